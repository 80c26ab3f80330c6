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

# Five doubling doses, 50 individuals each; each line starts 1% higher than the one
# before and its responses move by one individual, so that no two lines tie.
awk -v lines="$lines" -v dir="$work" 'BEGIN {
    split("5 14 26 38 46", base, " ")
    for (i = 1; i <= lines; i++) {
        file = sprintf("%s/line%04d.mrv", dir, i)
        printf "2,\"\",\"\",\"\",\"\",\"\"\r\n" > file
        printf "1,0,\"mg\",\"\",1,\"Dose\",\"LD\",\"\",0,\"0.05\",0,0\r\n" > file
        printf "7,6\r\n" > file
        first = 1.01 ^ i
        for (k = 0; k < 5; k++) {
            dose = first * 2 ^ k
            responded = base[k + 1] + (i + k) % 3 - 1
            printf "\"T\",\"%.15g\",\"50\",\"%d\",\"%.3f\",\"%.11fT\",", dose, responded,
                   responded / 50 * 100, dose ^ 0.01 > file
        }
        printf "\"T\",\"\",\"\",\"\"\r\n" > file
        close(file)
    }
}'

start=$(date +%s.%N)
"$cli" compare "$work"/line*.mrv > "$work/table.txt"
end=$(date +%s.%N)
bytes=$(wc -c < "$work/table.txt")
rows=$(( $(wc -l < "$work/table.txt") - 3 ))
awk -v s="$start" -v e="$end" -v n="$lines" -v b="$bytes" -v r="$rows" 'BEGIN {
    printf "compare of %d line files: %.3f s (%.2f ms a line), %d rows, %d bytes of table text\n",
           n, e - s, (e - s) * 1000 / n, r, b
}'
