import zipfile
rows = [(1, 10), (2, 25.5), (4, 60)]
cells = "".join("<table:table-row>" + "".join(
    f'<table:table-cell office:value-type="float" office:value="{v}"><text:p>{v}</text:p></table:table-cell>' for v in r)
    + "</table:table-row>" for r in rows)
content = f'''<?xml version="1.0" encoding="UTF-8"?>
<office:document-content xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" office:version="1.2"><office:body><office:spreadsheet>
<table:table table:name="Percent"><table:table-row><table:table-cell office:value-type="string"><text:p>Dose</text:p></table:table-cell><table:table-cell office:value-type="string"><text:p>Response</text:p></table:table-cell></table:table-row>{cells}</table:table>
</office:spreadsheet></office:body></office:document-content>'''
manifest = '''<?xml version="1.0" encoding="UTF-8"?>
<manifest:manifest xmlns:manifest="urn:oasis:names:tc:opendocument:xmlns:manifest:1.0" manifest:version="1.2"><manifest:file-entry manifest:full-path="/" manifest:media-type="application/vnd.oasis.opendocument.spreadsheet"/><manifest:file-entry manifest:full-path="content.xml" manifest:media-type="text/xml"/></manifest:manifest>'''
with zipfile.ZipFile("handmade-percent.ods", "w") as z:
    z.writestr(zipfile.ZipInfo("mimetype"), "application/vnd.oasis.opendocument.spreadsheet", compress_type=zipfile.ZIP_STORED)
    z.writestr("META-INF/manifest.xml", manifest, compress_type=zipfile.ZIP_DEFLATED)
    z.writestr("content.xml", content, compress_type=zipfile.ZIP_DEFLATED)
