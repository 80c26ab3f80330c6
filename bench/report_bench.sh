#!/usr/bin/env bash
# Times morvane-cli report as a whole process, from the build folder given as $1:
# a 12-dose line file a number of times, then 1,000 different files one after the
# other, each beside the bare start of the process (morvane-cli --version), so that
# the work of reading, calculating and writing can be told from the start itself.
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
cli="$build/cli/morvane-cli"
[ -x "$cli" ] || { echo "no $cli: build the morvane-cli target first" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Line files of the current layout, "Total and Responded", 12 doubling doses from
# 0.5 mg, 50 treated a dose: $1 the folder, $2 how many files (line1.mrv ...); the
# responses of file i are shifted by (i mod 3) - 1 counts, so the files differ.
write_lines() {
    awk -v folder="$1" -v files="$2" 'BEGIN {
        split("2 4 7 11 16 22 28 34 39 43 46 48", counts, " ")
        for (f = 1; f <= files; f++) {
            shift = f % 3 - 1
            cells = ""
            for (i = 0; i < 12; i++) {
                dose = sprintf("%.15g", 0.5 * 2 ^ i)
                responded = counts[i + 1] + shift
                cells = cells sprintf("\"T\",\"%s\",\"50\",\"%d\",\"%.3f\",\"%.11fT\",",
                                      dose, responded, responded * 2, dose ^ 0.01)
            }
            file = folder "/line" f ".mrv"
            printf "2,\"\",\"\",\"\",\"\",\"\"\r\n" > file
            printf "1,0,\"mg\",\"\",1,\"Dose\",\"LD\",\"\",0,\"0.05\",0,0\r\n" > file
            printf "14,6\r\n%s\"\",\"\",\"\",\"\"\r\n", cells > file
            close(file)
        }
    }'
}

# Seconds for a command run n times, as a decimal.
time_runs() {
    local n=$1; shift
    local start end
    start=$(date +%s%N)
    for ((k = 0; k < n; k++)); do "$@" > /dev/null; done
    end=$(date +%s%N)
    awk -v ns=$((end - start)) 'BEGIN { printf "%.3f", ns / 1e9 }'
}

write_lines "$work" 1
"$cli" report "$work/line1.mrv" > /dev/null || { echo "report failed" >&2; exit 1; }

runs=200
start_only=$(time_runs $runs "$cli" --version)
report=$(time_runs $runs "$cli" report "$work/line1.mrv" --percent 12.5 --dose 4)
echo "report of one 12-dose file, $runs runs:"
awk -v s="$start_only" -v r="$report" -v n=$runs 'BEGIN {
    printf "  process start alone (--version)  %8.3f ms a run\n", s / n * 1000
    printf "  report with two queries          %8.3f ms a run\n", r / n * 1000
    printf "  the work itself                  %8.3f ms a run\n", (r - s) / n * 1000
}'

mkdir "$work/season"
write_lines "$work/season" 1000
files=("$work"/season/*.mrv)
start=$(date +%s%N)
for f in "${files[@]}"; do "$cli" report "$f" > /dev/null; done
end=$(date +%s%N)
start_only=$(time_runs 1000 "$cli" --version)
awk -v ns=$((end - start)) -v s="$start_only" 'BEGIN {
    printf "report of 1,000 files one after the other:\n"
    printf "  all files                        %8.3f s\n", ns / 1e9
    printf "  1,000 process starts alone       %8.3f s\n", s
    printf "  a file                           %8.3f ms\n", ns / 1e6 / 1000
}'
