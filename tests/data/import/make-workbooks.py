import xlwt, openpyxl, zipfile
rows = [(1, 2, 18), (2, 5, 15), (4, 9, 11), (8, 15, 5)]
# .xls by xlwt: a first sheet of notes, the data with a header on "Data".
wb = xlwt.Workbook()
notes = wb.add_sheet("Notes"); notes.write(0, 0, "bioassay of 2024")
ws = wb.add_sheet("Data")
for c, h in enumerate(("Dose", "Dead", "Alive")): ws.write(0, c, h)
for r, row in enumerate(rows, 1):
    for c, v in enumerate(row): ws.write(r, c, v)
ws.write(5, 0, 16); ws.write(5, 2, 1)  # a gap in row 6
wb.save("xlwt-counts.xls")
# .xlsx by openpyxl: the same, data on the first sheet without header, then text in a number column.
wb = openpyxl.Workbook(); ws = wb.active; ws.title = "Data"
for row in rows: ws.append(row)
wb.create_sheet("Other").append(["x"])
wb.save("openpyxl-counts.xlsx")
wb = openpyxl.Workbook(); ws = wb.active; ws.title = "Sheet1"
ws.append((1, 2, 18)); ws.append((2, "five", 15))
wb.save("openpyxl-text-in-number.xlsx")
