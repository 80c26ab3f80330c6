#!/usr/bin/env bash
# Writes the line files of the compare benchmarks: write_line_files.sh DIR COUNT DIGITS
# writes DIR/line0001.mrv and on, their numbers DIGITS wide. Five doubling doses, 50
# individuals each; each line starts 1% higher than the one before and its responses
# move by one individual, so that no two lines tie.
set -euo pipefail
awk -v lines="$2" -v dir="$1" -v digits="$3" 'BEGIN {
    split("5 14 26 38 46", base, " ")
    for (i = 1; i <= lines; i++) {
        file = sprintf("%s/line%0" digits "d.mrv", dir, i)
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
