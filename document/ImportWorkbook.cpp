// Workbook readers of the import: .xls through FreeXL; the packages are chosen here.
#include "document/ImportWorkbook.h"

#include <freexl.h>

#include <algorithm>
#include <cmath>

#include "core/NumberText.h"
#include "document/FileBytes.h"
#include "document/SequentialFields.h"

namespace morvane {

namespace {

// The rows an import can read: a header, a full line and the row that ends it.
constexpr unsigned kRowsWanted = 32765u + 2u;

std::string FreeXLReason(int code) {
    switch (code) {
        case FREEXL_FILE_NOT_FOUND:
            return "the file was not found";
        case FREEXL_BIFF_PASSWORD:
            return "the workbook is protected by a password";
        case FREEXL_INSUFFICIENT_MEMORY:
            return "there is not enough memory to read the workbook";
        default:
            return "the file is no workbook that can be read, or it is damaged (FreeXL error " +
                   std::to_string(code) + ")";
    }
}

// An open legacy workbook, closed when it goes.
class XlsWorkbook {
  public:
    explicit XlsWorkbook(const std::string& path) {
        const int rc = freexl_open(path.c_str(), &handle_);
        if (rc != FREEXL_OK) {
            if (handle_)
                freexl_close(handle_);
            handle_ = nullptr;
            throw ImportError(FreeXLReason(rc));
        }
        unsigned int password = 0;
        if (freexl_get_info(handle_, FREEXL_BIFF_PASSWORD, &password) == FREEXL_OK &&
            password == FREEXL_BIFF_OBFUSCATED) {
            freexl_close(handle_);
            throw ImportError(FreeXLReason(FREEXL_BIFF_PASSWORD));
        }
    }
    ~XlsWorkbook() {
        if (handle_)
            freexl_close(handle_);
    }
    XlsWorkbook(const XlsWorkbook&) = delete;
    XlsWorkbook& operator=(const XlsWorkbook&) = delete;

    std::vector<std::string> sheetNames() const {
        unsigned int count = 0;
        check(freexl_get_info(handle_, FREEXL_BIFF_SHEET_COUNT, &count));
        std::vector<std::string> names;
        for (unsigned int i = 0; i < count && i < 0xFFFFu; ++i) {
            const char* name = nullptr;
            check(freexl_get_worksheet_name(handle_, static_cast<unsigned short>(i), &name));
            names.emplace_back(name ? name : "");
        }
        return names;
    }

    Sheet read(unsigned short index) const {
        check(freexl_select_active_worksheet(handle_, index));
        unsigned int rows = 0;
        unsigned short columns = 0;
        check(freexl_worksheet_dimensions(handle_, &rows, &columns));
        Sheet sheet;
        const unsigned int rowCount = std::min(rows, kRowsWanted);
        const unsigned short colCount =
            std::min<unsigned short>(columns, static_cast<unsigned short>(kImportColumns));
        sheet.rows.resize(rowCount);
        for (unsigned int r = 0; r < rowCount; ++r) {
            std::vector<std::string>& cells = sheet.rows[r];
            cells.resize(colCount);
            for (unsigned short c = 0; c < colCount; ++c) {
                FreeXL_CellValue value{};
                check(freexl_get_cell_value(handle_, r, c, &value));
                cells[c] = CellText(value);
            }
        }
        return sheet;
    }

  private:
    static void check(int rc) {
        if (rc != FREEXL_OK)
            throw ImportError(FreeXLReason(rc));
    }

    static std::string CellText(const FreeXL_CellValue& value) {
        switch (value.type) {
            case FREEXL_CELL_INT:
                return std::to_string(value.value.int_value);
            case FREEXL_CELL_DOUBLE:
                return std::isfinite(value.value.double_value) ? PlainText(value.value.double_value)
                                                               : std::string("#NUM!");
            case FREEXL_CELL_TEXT:
            case FREEXL_CELL_SST_TEXT:
            case FREEXL_CELL_DATE:
            case FREEXL_CELL_DATETIME:
            case FREEXL_CELL_TIME:
                return value.value.text_value ? value.value.text_value : "";
            default:
                return "";
        }
    }

    const void* handle_ = nullptr;
};

[[noreturn]] void NotAWorkbook() {
    throw ImportError("the file is no workbook");
}

}  // namespace

std::vector<std::string> WorkbookSheetNames(const std::string& path, ImportFormat format) {
    switch (format) {
        case ImportFormat::Xls:
            return XlsWorkbook(path).sheetNames();
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
        case ImportFormat::Xls: {
            const XlsWorkbook book(path);
            const std::vector<std::string> names = book.sheetNames();
            const auto it = std::find(names.begin(), names.end(), sheetName);
            if (it == names.end())
                throw ImportError("there is no sheet named " + QuoteField(sheetName) +
                                  " in this file");
            return book.read(static_cast<unsigned short>(it - names.begin()));
        }
        case ImportFormat::Xlsx:
        case ImportFormat::Ods:
            return ReadPackageSheet(path, format, sheetName);
        default:
            NotAWorkbook();
    }
}

namespace {

// Text files larger than this are no data set of a line.
constexpr std::size_t kMaxImportTextBytes = 256u * 1024u * 1024u;

}  // namespace

ImportOutcome ImportDataFile(LineDocument& doc, UserPort& port, const std::string& path,
                             const SheetChoice& choice) {
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
        return ImportTextRecords(doc, port, bytes);
    bytes.clear();
    try {
        std::string sheet = choice.sheet;
        if (sheet.empty()) {
            const std::vector<std::string> names = WorkbookSheetNames(path, format);
            if (names.empty())
                throw ImportError("the workbook holds no sheet");
            sheet = names.front();
        }
        return ImportSheetRows(doc, port, ReadWorkbookSheet(path, format, sheet), choice.hasHeader);
    } catch (const std::exception& e) {
        doc.ResetLine();
        port.tell(std::string(kImportOpenError) + "\n" + e.what());
        return ImportOutcome{0, true};
    }
}

}  // namespace morvane
