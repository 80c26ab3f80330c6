#!/bin/sh
# The counts of Data.csv (a header and five rows) written by spreadsheet programs and
# libraries into ../; run here once with the programs installed:
#   apt-get install libreoffice-calc-nogui gnumeric python3-openpyxl python3-xlwt libxlsxwriter-dev
set -e
out=$(mktemp -d)
for ext in xls xlsx ods; do
    soffice --headless --convert-to "$ext" --outdir "$out" Data.csv >/dev/null
    mv "$out/Data.$ext" "../libreoffice-counts.$ext"
    ssconvert Data.csv "../gnumeric-counts.$ext" >/dev/null 2>&1
done
/usr/bin/python3 make-libraries.py
cc libxlsxwriter-counts.c -lxlsxwriter -o "$out/lxw" && "$out/lxw"
rm -rf "$out"
