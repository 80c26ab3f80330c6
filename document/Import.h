#pragma once
// Import of a data set from a text file or a sheet of a workbook into the line that the
// options dialog has just laid out. Every row goes through the input cells and
// AcceptRow exactly as if typed, so an imported row passes the same checks and gets
// the same refusals as a typed one; Grid2 is rebuilt once at the end.
//
// What is read is chosen by the file's first bytes, not by its name: a compound
// document is a legacy workbook (.xls), a zip package an .xlsx or an .ods, anything
// else that holds text a text file. The readers of the workbook formats are in
// ImportWorkbook.h; here are the rules of the rows, which all formats share.
//
// Text files follow the sequential field rules of the line file: fields end at a
// comma or a line end, numbers plain or quoted, no header line. A record is
//   [label,] dose, first value[, second value]
// with the label when a control goes with each treatment ("C" or "c" a control row)
// and the second value for the data types of two counts. A sheet has the same columns
// from column 1, one record a row, from row 1 or, with a header, from row 2.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Fault.h"
#include "core/UserPort.h"
#include "document/LineDocument.h"

namespace morvane {

// The kinds of files an import can read, told by their content.
enum class ImportFormat { Text, Xls, Xlsx, Ods, Unknown };

// The kind of the file whose first bytes these are (a few kilobytes are enough).
ImportFormat SniffImportFormat(std::string_view head);

// One sheet as the text of its cells. Rows and columns count from 1, as a sheet counts
// them; a cell outside the stored rows is empty.
struct Sheet {
    std::vector<std::vector<std::string>> rows;  // rows[0] is row 1
    const std::string& cell(int row, int col) const;
};

// What an import did: the rows taken into Grid1, and whether it ended at a message.
struct ImportOutcome {
    int rowsTaken = 0;
    bool failed = false;     // a refused row, a partly empty row, an unreadable file
    bool cancelled = false;  // the progress said stop; the line is empty
};

// Told of an import's progress every few hundred rows, as thousandths of what there
// is to read. False stops the import and leaves the new line empty, as it was when
// the options dialog had laid it out.
using ImportProgress = std::function<bool(int permille)>;

// Messages of the import, as the user reads them.
inline constexpr const char* kUnknownImportType = "Can not open this type of files";
inline constexpr const char* kImportOpenError = "An error occurred when opening this file.";
inline constexpr const char* kCantContinue = "Morvane can't continue importing data";
inline constexpr const char* kNoSheetName = "Please select or type sheet name.";

// The most data rows a line file holds; an import stops there with a message.
int MaxImportRows();

// The hint of FormExcelOptions' Label2: how many columns the sheet must have and
// which. The label column of a control per treatment isn't counted.
std::string ExcelOptionsHint(const LineDocument& doc, const std::string& doseWord);

// Reads the records of a text file into the document. The end of the data ends the
// loop, and a last record with too few fields is dropped with it. A refused row ends
// the import with AcceptRow's message and keeps the rows before it; a field that holds
// no number ends it with a message that quotes the field. Rebuilds Grid2.
ImportOutcome ImportTextRecords(LineDocument& doc, UserPort& port, std::string_view bytes,
                                const ImportProgress& progress = {});

// Reads the rows of a sheet into the document, from row 1 or, with a header, row 2.
// The first row with fewer filled cells than a record needs ends the data: silently
// when it is entirely empty, with "can't continue" and its row number when it is
// partly filled. A refused row ends the import with AcceptRow's message, earlier rows
// staying. A cell that holds no number where a number is needed is a fault of the
// reading: the document is reset and the opening message tells why.
ImportOutcome ImportSheetRows(LineDocument& doc, UserPort& port, const Sheet& sheet, bool hasHeader,
                              const ImportProgress& progress = {});

// A workbook or text file that cannot be read: the text says why.
class ImportError : public Fault {
  public:
    using Fault::Fault;
};

}  // namespace morvane
