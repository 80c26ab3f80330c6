#include "results/ResultsWorkbook.h"

#include <xlsxwriter.h>

#include <unistd.h>
#include <algorithm>
#include <atomic>
#include <filesystem>
#include <map>
#include <system_error>

#include "core/Fault.h"
#include "core/NumberText.h"
#include "document/FileBytes.h"

namespace morvane {
namespace {

// 1 January 2000, 00:00 UTC: the creation time of every workbook.
constexpr time_t kCreationTime = 946684800;

// Writes cells, numbers in the format that their text shows; each format is made once.
class CellWriter {
  public:
    explicit CellWriter(lxw_workbook* book) : book_(book) {}

    void write(lxw_worksheet* sheet, int row, int column, const std::string& text) {
        if (text.empty())
            return;
        const auto r = static_cast<lxw_row_t>(row);
        const auto c = static_cast<lxw_col_t>(column);
        if (const auto number = ParseNumber(text))
            worksheet_write_number(sheet, r, c, *number, formatOf(text));
        else
            worksheet_write_string(sheet, r, c, text.c_str(), nullptr);
    }

  private:
    lxw_format* formatOf(const std::string& text) {
        const std::string pattern = NumberFormatOf(text);
        if (pattern.empty())
            return nullptr;
        auto found = formats_.find(pattern);
        if (found == formats_.end()) {
            lxw_format* format = workbook_add_format(book_);
            format_set_num_format(format, pattern.c_str());
            found = formats_.emplace(pattern, format).first;
        }
        return found->second;
    }

    lxw_workbook* book_;
    std::map<std::string, lxw_format*> formats_;
};

// A temporary file name of this process's own.
std::filesystem::path TemporaryWorkbookPath() {
    static std::atomic<int> counter{0};
    std::error_code error;
    std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    if (error)
        folder = ".";
    return folder /
           ("morvane-" + std::to_string(::getpid()) + "-" + std::to_string(++counter) + ".xlsx");
}

}  // namespace

// The number format that shows a number with the digits of its text: "12.000" as
// "0.000", "3" as "0", "1.5E-05" as "0.0E+00". None for a text of another shape,
// which keeps the spreadsheet's general format.
std::string NumberFormatOf(const std::string& text) {
    std::size_t i = (!text.empty() && (text[0] == '-' || text[0] == '+')) ? 1 : 0;
    const std::size_t integerStart = i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9')
        ++i;
    if (i == integerStart)
        return {};
    std::string format = "0";
    if (i < text.size() && text[i] == '.') {
        const std::size_t decimalsStart = ++i;
        while (i < text.size() && text[i] >= '0' && text[i] <= '9')
            ++i;
        if (i > decimalsStart)
            format += "." + std::string(i - decimalsStart, '0');
    }
    if (i == text.size())
        return format;
    if (text[i] != 'E' && text[i] != 'e')
        return {};
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    const std::size_t exponentStart = i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9')
        ++i;
    if (i != text.size() || i == exponentStart)
        return {};
    return format + "E+" + std::string(std::max<std::size_t>(2, i - exponentStart), '0');
}

std::string ComposeResultsWorkbook(const std::string& resultsText, const TextTable& grid1,
                                   const ColumnHeadings& headingSingle) {
    const std::filesystem::path path = TemporaryWorkbookPath();
    lxw_workbook* book = workbook_new(path.string().c_str());
    if (book == nullptr)
        throw Fault("the workbook could not be made");
    lxw_doc_properties properties{};
    properties.title = const_cast<char*>("Probit analysis results");
    properties.created = kCreationTime;
    workbook_set_properties(book, &properties);

    CellWriter cells(book);
    lxw_worksheet* results = workbook_add_worksheet(book, "Results");
    int row = 0;
    int column = 0;
    std::string cell;
    for (const char c : resultsText) {
        if (c == '\t' || c == '\n') {
            cells.write(results, row, column, cell);
            cell.clear();
            if (c == '\t') {
                ++column;
            } else {
                ++row;
                column = 0;
            }
        } else {
            cell += c;
        }
    }
    cells.write(results, row, column, cell);

    lxw_worksheet* data = grid1.rows() > 0 ? workbook_add_worksheet(book, "Data") : nullptr;
    for (int c = 0; data && c < grid1.cols() && c < static_cast<int>(headingSingle.size()); ++c)
        cells.write(data, 0, c, headingSingle[static_cast<std::size_t>(c)]);
    for (int r = 1; r < grid1.rows(); ++r) {
        for (int c = 0; c < grid1.cols(); ++c)
            cells.write(data, r, c, grid1.text(r, c));
    }

    const lxw_error status = workbook_close(book);
    if (status != LXW_NO_ERROR) {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
        throw Fault(std::string("the workbook could not be made: ") + lxw_strerror(status));
    }
    std::string bytes;
    try {
        bytes = ReadFileBytes(path.string());
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
        throw;
    }
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    return bytes;
}

}  // namespace morvane
