#pragma once
// Reading one sheet of a workbook file into cell text, for the import. Legacy
// workbooks (.xls, the compound document of BIFF records) are read with FreeXL, the
// zip packages (.xlsx, .ods) with liborcus through a factory of our own that keeps
// only cell text and numbers (shared strings, formulas' cached results).
//
// A number becomes its plain text (up to 15 significant digits), a text cell its UTF-8
// text, a date or time the text the reader gives for it ("2024-05-01"), which no
// number column takes. Only the first columns an import can use are kept, and no more
// rows than a line can hold past a header, so a sheet of a million rows costs no more
// than one that fills a line.

#include <optional>
#include <string>
#include <vector>

#include "document/Import.h"

namespace morvane {

// The columns a record of any layout can use: label, dose and two values.
inline constexpr int kImportColumns = 4;

// The names of the workbook's sheets, in their order. Throws ImportError when the file
// can't be read as a workbook of that kind (damaged, encrypted, another kind).
std::vector<std::string> WorkbookSheetNames(const std::string& path, ImportFormat format);

// The cells of the named sheet. Throws ImportError when the file can't be read or
// holds no sheet of that name.
Sheet ReadWorkbookSheet(const std::string& path, ImportFormat format, const std::string& sheetName);

// What FormExcelOptions chose: the sheet (empty: the workbook's first) and whether its
// first row is a header.
struct SheetChoice {
    std::string sheet;
    bool hasHeader = false;
};

// The import's file dialog, which offers every kind the import reads ("All data files"
// first) and opens with the filter chosen in the last import of the run. filterIndex
// is that choice (0 before the first import), kept by the caller and updated when a
// file is chosen. None when the dialog is cancelled.
std::optional<std::string> ChooseImportFile(UserPort& port, int& filterIndex);

// The reading of an import once the file is chosen: its kind by its content, then
// the text records or the rows of the chosen sheet (the choice means nothing for
// text). A file of no kind that can be read gives "Can not open this type of files";
// a missing text file the error's own text; a workbook that can't be read, or has no
// such sheet, the opening message with the reason and an empty document. A sheet that
// the reader returns empty while the file held cells is such an error too.
ImportOutcome ImportDataFile(LineDocument& doc, UserPort& port, const std::string& path,
                             const SheetChoice& choice, const ImportProgress& progress = {});

// The package formats alone (ImportPackage.cpp) and the legacy workbooks alone
// (ImportXls.cpp); the two above choose them.
std::vector<std::string> OpenPackageSheetNames(const std::string& path, ImportFormat format);
Sheet ReadPackageSheet(const std::string& path, ImportFormat format, const std::string& sheetName);
std::vector<std::string> XlsSheetNames(const std::string& path);
Sheet ReadXlsSheet(const std::string& path, const std::string& sheetName);

}  // namespace morvane
