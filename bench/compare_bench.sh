#!/usr/bin/env bash
# morvane-cli compare of 1,000 line files as one process: writes the files, runs the
# command once and prints the elapsed time with the size of the table text.
# Target: under one second.
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
cli="$build/cli/morvane-cli"
lines=${LINES_TO_COMPARE:-1000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The files: see write_line_files.sh.
"$(dirname "$0")/write_line_files.sh" "$work" "$lines" 4

start=$(date +%s.%N)
"$cli" compare "$work"/line*.mrv > "$work/table.txt"
end=$(date +%s.%N)
bytes=$(wc -c < "$work/table.txt")
rows=$(( $(wc -l < "$work/table.txt") - 3 ))
awk -v s="$start" -v e="$end" -v n="$lines" -v b="$bytes" -v r="$rows" 'BEGIN {
    printf "compare of %d line files: %.3f s (%.2f ms a line), %d rows, %d bytes of table text\n",
           n, e - s, (e - s) * 1000 / n, r, b
}'
