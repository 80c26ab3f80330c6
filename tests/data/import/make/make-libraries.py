# The counts of Data.csv written by openpyxl (.xlsx) and xlwt (.xls), numbers as numbers.
import csv, openpyxl, xlwt
rows = list(csv.reader(open("Data.csv")))
def value(text):
    return text if not text.replace(".", "").isdigit() else (float(text) if "." in text else int(text))
wb = openpyxl.Workbook(); ws = wb.active; ws.title = "Data"
for row in rows: ws.append([value(t) for t in row])
wb.save("../openpyxl-header-counts.xlsx")
wb = xlwt.Workbook(); ws = wb.add_sheet("Data")
for r, row in enumerate(rows):
    for c, t in enumerate(row): ws.write(r, c, value(t))
wb.save("../xlwt-header-counts.xls")
