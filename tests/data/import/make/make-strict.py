# A workbook whose sheet part speaks the namespace of "Strict" Open XML, which the
# .xlsx reader passes over: it finds the sheet but none of its cells, although the
# part holds them. Made from ../openpyxl-header-counts.xlsx by changing the
# worksheet's namespace only.
import zipfile
src = zipfile.ZipFile("../openpyxl-header-counts.xlsx")
with zipfile.ZipFile("../strict-namespace.xlsx", "w", zipfile.ZIP_DEFLATED) as out:
    for item in src.infolist():
        data = src.read(item.filename)
        if item.filename.startswith("xl/worksheets/"):
            data = data.replace(b"http://schemas.openxmlformats.org/spreadsheetml/2006/main",
                                b"http://purl.oclc.org/ooxml/spreadsheetml/main")
        out.writestr(item, data)
