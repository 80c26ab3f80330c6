#include "results/ResultsWorkbook.h"

#include <xlsxwriter.h>

#include <unistd.h>
#include <atomic>
#include <filesystem>
#include <system_error>

#include "core/Fault.h"
#include "core/NumberText.h"
#include "document/FileBytes.h"

namespace morvane {
namespace {

// 1 January 2000, 00:00 UTC: the creation time of every workbook.
constexpr time_t kCreationTime = 946684800;

void WriteCell(lxw_worksheet* sheet, int row, int column, const std::string& text) {
    if (text.empty())
        return;
    const auto r = static_cast<lxw_row_t>(row);
    const auto c = static_cast<lxw_col_t>(column);
    if (const auto number = ParseNumber(text))
        worksheet_write_number(sheet, r, c, *number, nullptr);
    else
        worksheet_write_string(sheet, r, c, text.c_str(), nullptr);
}

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

    lxw_worksheet* results = workbook_add_worksheet(book, "Results");
    int row = 0;
    int column = 0;
    std::string cell;
    for (const char c : resultsText) {
        if (c == '\t' || c == '\n') {
            WriteCell(results, row, column, cell);
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
    WriteCell(results, row, column, cell);

    lxw_worksheet* data = grid1.rows() > 0 ? workbook_add_worksheet(book, "Data") : nullptr;
    for (int c = 0; data && c < grid1.cols() && c < static_cast<int>(headingSingle.size()); ++c)
        WriteCell(data, 0, c, headingSingle[static_cast<std::size_t>(c)]);
    for (int r = 1; r < grid1.rows(); ++r) {
        for (int c = 0; c < grid1.cols(); ++c)
            WriteCell(data, r, c, grid1.text(r, c));
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
