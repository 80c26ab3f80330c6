#!/usr/bin/env bash
# How morvane-cli compare grows with the number of lines, with the test of
# significant differences on: 1,000, 4,000 and 10,000 line files, each compared in
# one process, with the elapsed time and the peak memory (resident set).
# Targets: 1,000 files in at most 0.25 s and 50 MB; 10,000 in at most 3 s and 300 MB;
# from 1,000 to 4,000 files the time grows at most five times.
# Usage: bench/compare_scaling_bench.sh [build folder], after a RelWithDebInfo or
# Release build of morvane-cli. The processor time (user + system) is printed beside
# the elapsed time: on a machine that is busy with other work it is the steadier one.
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
cli="$build/cli/morvane-cli"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
most=10000

# The files: see write_line_files.sh.
"$(dirname "$0")/write_line_files.sh" "$work" "$most" 5

run() {
    local lines=$1
    awk -v n="$lines" 'BEGIN { for (i = 1; i <= n; i++) printf "line%05d.mrv\n", i }' \
        > "$work/list$lines"
    local start end
    if [ -x /usr/bin/time ]; then
        (cd "$work" && /usr/bin/time -f "%e %U %S %M" -o "time$lines" "$cli" compare \
            $(cat "list$lines") > "table$lines.txt")
        read -r seconds user system kilobytes < "$work/time$lines"
        cpu=$(awk -v u="$user" -v s="$system" 'BEGIN { printf "%.2f", u + s }')
    else
        start=$(date +%s.%N)
        (cd "$work" && "$cli" compare $(cat "list$lines") > "table$lines.txt")
        end=$(date +%s.%N)
        seconds=$(awk -v s="$start" -v e="$end" 'BEGIN { printf "%.2f", e - s }')
        kilobytes=0
        cpu=0
    fi
    bytes=$(wc -c < "$work/table$lines.txt")
    printf "compare of %5d line files: %6.2f s (processor %5.2f s), peak %6.1f MB, %d bytes of table text\n" \
        "$lines" "$seconds" "$cpu" "$(awk -v k="$kilobytes" 'BEGIN { print k / 1024 }')" "$bytes"
    eval "seconds$lines=$seconds cpu$lines=$cpu"
}

run 1000
run 4000
run 10000
awk -v a="$seconds1000" -v b="$seconds4000" -v c="$cpu1000" -v d="$cpu4000" 'BEGIN {
    printf "time from 1,000 to 4,000 files: %.1f times (processor time %.1f times)\n",
           (a > 0 ? b / a : 0), (c > 0 ? d / c : 0)
}'
