// The rows of an import: text records and sheet rows fed through the input cells and
// AcceptRow as if typed, and the kind of a file told by its first bytes.
#include "document/Import.h"

#include <algorithm>
#include <array>
#include <exception>

#include "core/NumberText.h"
#include "document/LineFileChecks.h"
#include "document/SequentialFields.h"

namespace morvane {

namespace {

constexpr std::string_view kCompoundDocument{"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8};
constexpr std::string_view kZipEntry{"PK\x03\x04", 4};
// An OpenDocument package stores its type uncompressed as the first entry.
constexpr std::string_view kOdsMimeType = "mimetypeapplication/vnd.oasis.opendocument.spreadsheet";

// Text has no control characters other than tab, line ends, form feed and the old
// end-of-file mark.
bool LooksLikeText(std::string_view head) {
    for (const char c : head) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r' && byte != '\f' &&
            byte != 0x1A)
            return false;
        if (byte == 0x7F)
            return false;
    }
    return true;
}

bool IsControlLabel(const std::string& label) {
    return label == "C" || label == "c";
}

// Values a record holds beside its label: dose and one or two values.
int ValueFields(const LineDocument& doc) {
    if (doc.ControlPerTreatment())
        return doc.table().layout().Text2inputVisible ? 3 : 2;
    // With no label column the layout is told by Grid1's width, as the reader always
    // did: the tables of two counts have at least 5 columns.
    return doc.Grid1().cols() >= 5 ? 3 : 2;
}

void PutValues(LineDocument& doc, const std::array<std::string, 3>& values, int count) {
    doc.setTextDose(values[0]);
    doc.setText1input(values[1]);
    if (count == 3)
        doc.setText2input(values[2]);
}

// The end of every import: the input cells emptied, nothing left refused, Grid2 built
// once for all rows.
void FinishImport(LineDocument& doc) {
    doc.setText1input("");
    if (doc.table().layout().Text2inputVisible)
        doc.setText2input("");
    doc.setImportRowRefused(0);
    doc.RebuildResponseTable();
}

// How often an import tells its progress, in rows.
constexpr int kProgressRows = 256;

// How far an import has read: done of total (rows or bytes).
struct ReadSoFar {
    std::size_t done;
    std::size_t total;
};

// True when the import goes on; after a stop the new line is laid out again, empty.
bool GoOn(LineDocument& doc, const ImportProgress& progress, int rowsTaken, ReadSoFar read,
          ImportOutcome& outcome) {
    if (!progress || rowsTaken % kProgressRows != 0 || rowsTaken == 0)
        return true;
    const int permille =
        read.total == 0
            ? 1000
            : static_cast<int>(std::min<std::size_t>(read.done * 1000 / read.total, 1000));
    if (progress(permille))
        return true;
    doc.ResetLine();
    doc.FileOptionsOK();
    outcome = ImportOutcome{0, false, true};
    return false;
}

std::string TooManyRowsMessage(int row) {
    return std::string(kCantContinue) + "\na line holds at most " +
           std::to_string(MaxImportRows()) + " rows; the data from row no. " + std::to_string(row) +
           " on was not read";
}

// One row of a file, ready to be typed: its values, its label when the file has a
// label column, and its number as the message of a row too many names it.
struct RowTaken {
    const std::array<std::string, 3>& values;
    int count;
    const std::string* label;
    int number;
};

// Takes one row as if typed: the values into the input cells, the label into the
// control box, then AcceptRow. False when the import ends here: a row beyond what a
// line can hold, or a row that AcceptRow refused (and told). A sheet clears the control
// box after a refused row; a text file leaves it as the refused row set it.
bool TakeRow(LineDocument& doc, UserPort& port, const RowTaken& row, bool clearControlOnRefusal,
             ImportOutcome& outcome) {
    if (outcome.rowsTaken == MaxImportRows()) {
        port.tell(TooManyRowsMessage(row.number));
        outcome.failed = true;
        return false;
    }
    PutValues(doc, row.values, row.count);
    if (row.label)
        doc.setCheckCo(IsControlLabel(*row.label));
    if (!doc.AcceptRow()) {
        if (row.label && clearControlOnRefusal)
            doc.setCheckCo(false);
        outcome.failed = true;
        return false;
    }
    ++outcome.rowsTaken;
    return true;
}

// Where a row leaves an import: at the next row, at its end, or stopped by the
// progress with the new line empty.
enum class Step { Next, End, Stopped };

// Takes the row as if typed (TakeRow), then tells the progress.
Step TakeAndTell(LineDocument& doc, UserPort& port, const RowTaken& row, bool clearControlOnRefusal,
                 const ImportProgress& progress, ReadSoFar read, ImportOutcome& outcome) {
    if (!TakeRow(doc, port, row, clearControlOnRefusal, outcome))
        return Step::End;
    return GoOn(doc, progress, outcome.rowsTaken, read, outcome) ? Step::Next : Step::Stopped;
}

// Every import: readRows takes the rows and says where they ended; the end empties the
// input cells and rebuilds Grid2 once, unless a stop left the line empty. A fault of
// the reading resets the document and tells the opening message with its reason.
template <class ReadRows>
ImportOutcome RunImport(LineDocument& doc, UserPort& port, ReadRows readRows) {
    ImportOutcome outcome;
    try {
        if (readRows(outcome) == Step::Stopped)
            return outcome;
        FinishImport(doc);
    } catch (const std::exception& e) {
        doc.ResetLine();
        port.tell(std::string(kImportOpenError) + "\n" + e.what());
        outcome = ImportOutcome{0, true};
    }
    return outcome;
}

}  // namespace

ImportFormat SniffImportFormat(std::string_view head) {
    if (head.substr(0, kCompoundDocument.size()) == kCompoundDocument)
        return ImportFormat::Xls;
    if (head.substr(0, kZipEntry.size()) == kZipEntry)
        return head.size() >= 30 + kOdsMimeType.size() &&
                       head.substr(30, kOdsMimeType.size()) == kOdsMimeType
                   ? ImportFormat::Ods
                   : ImportFormat::Xlsx;
    return LooksLikeText(head) ? ImportFormat::Text : ImportFormat::Unknown;
}

const std::string& Sheet::cell(int row, int col) const {
    static const std::string empty;
    if (row < 1 || static_cast<std::size_t>(row) > rows.size() || col < 1)
        return empty;
    const std::vector<std::string>& cells = rows[static_cast<std::size_t>(row) - 1];
    return static_cast<std::size_t>(col) > cells.size() ? empty
                                                        : cells[static_cast<std::size_t>(col) - 1];
}

int MaxImportRows() {
    return kMaxLineFileRows - 2;  // the heading and the empty last row
}

std::string ExcelOptionsHint(const LineDocument& doc, const std::string& doseWord) {
    const DataType type = doc.fileOptions().controls.dataType();
    const int columns = type == DataType::ResponsePercentage ? 2 : 3;
    return "Target file must contains " + std::to_string(columns) + " columns, i.e.\n" + doseWord +
           ", " + kDataTypeNames[static_cast<int>(type)];
}

ImportOutcome ImportTextRecords(LineDocument& doc, UserPort& port, std::string_view bytes,
                                const ImportProgress& progress) {
    const bool labelled = doc.ControlPerTreatment();
    const int count = ValueFields(doc);
    FieldReader in(bytes);
    return RunImport(doc, port, [&](ImportOutcome& outcome) {
        for (;;) {
            std::string label;
            std::array<std::string, 3> values;
            try {
                if (labelled) {
                    if (in.atEnd())
                        return Step::End;
                    label = in.readString();
                }
                for (int i = 0; i < count; ++i) {
                    if (in.atEnd())
                        return Step::End;  // the end of the data drops a record cut short
                    values[static_cast<std::size_t>(i)] = PlainText(in.readDouble());
                }
            } catch (const FileFormatError& e) {
                port.tell(std::string(kImportOpenError) + "\n" + e.what() + " (" +
                          in.lastFieldPosition() + ")");
                outcome.failed = true;
                return Step::End;
            }
            const RowTaken taken{values, count, labelled ? &label : nullptr, outcome.rowsTaken + 1};
            const Step step = TakeAndTell(doc, port, taken, false, progress,
                                          {bytes.size() - in.remaining(), bytes.size()}, outcome);
            if (step != Step::Next)
                return step;
        }
    });
}

ImportOutcome ImportSheetRows(LineDocument& doc, UserPort& port, const Sheet& sheet, bool hasHeader,
                              const ImportProgress& progress) {
    const bool labelled = doc.ControlPerTreatment();
    const int o = labelled ? 1 : 0;
    const int count = ValueFields(doc);
    // A cell that is no number, or a table that can't be built, is a fault of the
    // reading: the document is reset, as a failing reading always left it.
    return RunImport(doc, port, [&](ImportOutcome& outcome) {
        for (int row = hasHeader ? 2 : 1;; ++row) {
            int filled = 0;
            std::string label;
            if (labelled) {
                label = sheet.cell(row, 1);
                filled += label.empty() ? 0 : 1;
            }
            std::array<std::string, 3> values;
            for (int i = 0; i < count; ++i) {
                values[static_cast<std::size_t>(i)] = sheet.cell(row, o + 1 + i);
                filled += values[static_cast<std::size_t>(i)].empty() ? 0 : 1;
            }
            if (filled < o + count) {
                // The end of the data; a row with some cells filled is a gap in it.
                if (filled > 0) {
                    port.tell(std::string(kCantContinue) + "\nthere is an empty cell in row no. " +
                              std::to_string(row));
                    outcome.failed = true;
                }
                return Step::End;
            }
            const RowTaken taken{values, count, labelled ? &label : nullptr, row};
            const Step step =
                TakeAndTell(doc, port, taken, true, progress,
                            {static_cast<std::size_t>(row), sheet.rows.size()}, outcome);
            if (step != Step::Next)
                return step;
        }
    });
}

}  // namespace morvane
