# The .xls workbooks of import_bench: 3,000 and 30,000 rows of counts on sheet "Data",
# written by python3-xlwt and kept gzip-compressed. Run here once:
#   python3 make-xls.py && gzip -9 -n counts-*.xls
import xlwt
for rows in (3000, 30000):
    wb = xlwt.Workbook(); ws = wb.add_sheet("Data")
    for r in range(rows):
        ws.write(r, 0, 1 + r % 40); ws.write(r, 1, r % 19); ws.write(r, 2, 20 - r % 19)
    wb.save("counts-%d.xls" % rows)
