// The readers of the import chosen by the kind of the file, and the import of a file.
#include "document/ImportWorkbook.h"

#include <algorithm>
#include <cmath>

#include "core/NumberText.h"
#include "document/FileBytes.h"
#include "document/SequentialFields.h"

namespace morvane {

namespace {

[[noreturn]] void NotAWorkbook() {
    throw ImportError("the file is no workbook");
}

}  // namespace

std::vector<std::string> WorkbookSheetNames(const std::string& path, ImportFormat format) {
    switch (format) {
        case ImportFormat::Xls:
            return XlsSheetNames(path);
        case ImportFormat::Xlsx:
        case ImportFormat::Ods:
            return OpenPackageSheetNames(path, format);
        default:
            NotAWorkbook();
    }
}

Sheet ReadWorkbookSheet(const std::string& path, ImportFormat format,
                        const std::string& sheetName) {
    switch (format) {
        case ImportFormat::Xls:
            return ReadXlsSheet(path, sheetName);
        case ImportFormat::Xlsx:
        case ImportFormat::Ods:
            return ReadPackageSheet(path, format, sheetName);
        default:
            NotAWorkbook();
    }
}

namespace {

// The content decides what is read; the filters only narrow what the dialog lists.
constexpr const char* kImportFilter =
    "All data files (*.txt *.csv *.xls *.xlsx *.ods)|*.txt *.csv *.xls *.xlsx *.ods|"
    "Excel Files (*.xls)|*.xls|Excel Files (*.xlsx)|*.xlsx|"
    "OpenDocument spreadsheets (*.ods)|*.ods|Text Files (*.txt)|*.txt|CSV Files (*.csv)|*.csv";

}  // namespace

std::optional<std::string> ChooseImportFile(UserPort& port, int& filterIndex) {
    int chosen = filterIndex;
    FileDialog dialog{"Import data from Text or Excel file", kImportFilter, "", ""};
    dialog.filterIndex = filterIndex;
    dialog.chosenFilter = &chosen;
    std::optional<std::string> path = port.openFileName(dialog);
    if (path)
        filterIndex = chosen;
    return path;
}

namespace {

// Text files larger than this are no data set of a line.
constexpr std::size_t kMaxImportTextBytes = 256u * 1024u * 1024u;

}  // namespace

ImportOutcome ImportDataFile(LineDocument& doc, UserPort& port, const std::string& path,
                             const SheetChoice& choice, const ImportProgress& progress) {
    std::string bytes;
    try {
        bytes = ReadFileBytes(path, kMaxImportTextBytes);
    } catch (const FileError& e) {
        if (e.notFound()) {
            port.tell(e.what());
            return ImportOutcome{0, true};
        }
        doc.ResetLine();
        port.tell(std::string(kImportOpenError) + "\n" + e.what());
        return ImportOutcome{0, true};
    }
    const ImportFormat format = SniffImportFormat(std::string_view(bytes).substr(0, 4096));
    if (format == ImportFormat::Unknown) {
        port.tell(kUnknownImportType);
        return ImportOutcome{0, true};
    }
    if (format == ImportFormat::Text)
        return ImportTextRecords(doc, port, bytes, progress);
    bytes.clear();
    try {
        std::string sheet = choice.sheet;
        if (sheet.empty()) {
            const std::vector<std::string> names = WorkbookSheetNames(path, format);
            if (names.empty())
                throw ImportError("the workbook holds no sheet");
            sheet = names.front();
        }
        return ImportSheetRows(doc, port, ReadWorkbookSheet(path, format, sheet), choice.hasHeader,
                               progress);
    } catch (const std::exception& e) {
        doc.ResetLine();
        port.tell(std::string(kImportOpenError) + "\n" + e.what());
        return ImportOutcome{0, true};
    }
}

}  // namespace morvane
