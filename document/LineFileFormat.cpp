#include "document/LineFileFormat.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane {
namespace {

std::int16_t ListIndex(std::int16_t value, int count, const char* what) {
    if (value < 0 || value >= count)
        throw FileFormatError(std::to_string(value) + " is not a value of the " + what);
    return value;
}

std::int16_t CheckValue(std::int16_t value, const char* what) {
    // A check box takes 0 (clear), 1 (ticked) and 2 (greyed).
    return ListIndex(value, 3, what);
}

// A table of cells laid out row by row in the file. A field takes at least one
// byte, so a size that the rest of the file can't fill ends the reading before the
// table is made.
TextTable ReadCells(FieldReader& in, int rows, int cols, const char* what) {
    if (rows < 0 || cols < 0)
        throw FileFormatError(std::string("the size of the ") + what + " is negative");
    const long long cells = static_cast<long long>(rows) * cols;
    if (cells > static_cast<long long>(in.remaining()))
        throw FileFormatError(std::string("the file ends before the end of the ") + what);
    TextTable table(rows, cols);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < cols; ++c)
            table.setText(r, c, in.readString());
    return table;
}

// A record of fields in their order, integers as integers and texts as strings.
void WriteField(FieldWriter& out, std::int64_t value) {
    out.writeInteger(value);
}
void WriteField(FieldWriter& out, std::string_view text) {
    out.writeString(text);
}
template <class... Fields>
void WriteRecord(FieldWriter& out, const Fields&... fields) {
    (WriteField(out, fields), ...);
    out.endRecord();
}

}  // namespace

void WriteOptionsRecord(FieldWriter& out, const LineOptions& options) {
    WriteRecord(out, options.ComboDataType, options.Tab1, options.ComboUnit1, options.ComboUnit2,
                options.FactorOption, options.Combo5, options.Combo6, options.Text5, options.Check3,
                options.Combo7, options.Check2, options.Check4);
}

std::string WriteLineFile(const LineOptions& options, const TextTable& grid1,
                          const NotesSheet& notes) {
    FieldWriter out;
    WriteRecord(out, 2, "", "", "", "", "");
    WriteOptionsRecord(out, options);
    WriteRecord(out, grid1.rows(), grid1.cols());
    for (int r = 1; r <= grid1.rows() - 2; ++r)
        for (int c = 0; c < grid1.cols(); ++c)
            out.writeCell(grid1.text(r, c));
    WriteRecord(out, notes.TreatmentName, notes.TreatedTarget, notes.ExperimentDate,
                notes.MoreInformation);
    return out.take();
}

std::int16_t ReadVersionRecord(FieldReader& in) {
    const std::int16_t mark = in.readInteger16();
    for (int i = 0; i < 5; ++i)
        in.readString();
    return mark;
}

void ReadOptionsRecord(FieldReader& in, FileOptions& options, SharedRegisters& shared) {
    LineOptions& c = options.controls;
    options.setDataType(static_cast<DataType>(ListIndex(in.readInteger16(), 3, "input data type")));
    c.Tab1 = ListIndex(in.readInteger16(), 2, "units tab");
    options.setComboUnit1(in.readString(), shared);
    options.setComboUnit2(in.readString(), shared);
    const std::int16_t factor = in.readInteger16();
    if (factor >= 1 && factor <= 3)
        options.selectOption(static_cast<FactorOption>(factor), shared);
    c.Combo5 = in.readString();
    c.Combo6 = in.readString();
    c.Text5 = in.readString();
    c.Check3 = CheckValue(in.readInteger16(), "control flag");
    std::string alpha = in.readString();
    bool known = false;
    for (const char* text : kAlphaTexts)
        known = known || alpha == text;
    if (!known)
        throw FileFormatError(QuoteField(alpha) + " is not a value of the probability of T");
    c.Combo7 = std::move(alpha);
    c.Check2 = CheckValue(in.readInteger16(), "replicates flag");
    c.Check4 = CheckValue(in.readInteger16(), "default flag");
}

TableSize ReadSizeRecord(FieldReader& in) {
    TableSize size;
    size.rows = in.readInteger16();
    size.cols = in.readInteger16();
    return size;
}

void CheckTableSize(const TableSize& size, const FieldReader& in) {
    if (size.rows < 2 || size.cols < 1)
        throw FileFormatError("the table's size, " + std::to_string(size.rows) + " rows of " +
                              std::to_string(size.cols) + " columns, is not a table's");
    const long long cells = static_cast<long long>(size.rows - 2) * size.cols;
    if (cells > static_cast<long long>(in.remaining()))
        throw FileFormatError("the file ends before the end of the table");
}

NotesSheet ReadNotesRecord(FieldReader& in) {
    NotesSheet notes;
    notes.TreatmentName = in.readString();
    notes.TreatedTarget = in.readString();
    notes.ExperimentDate = in.readString();
    notes.MoreInformation = in.readString();
    return notes;
}

namespace {

bool IsAlphaText(const std::string& text) {
    for (const char* known : kAlphaTexts)
        if (text == known)
            return true;
    return false;
}

OlderLineFile ReadOlderFields(FieldReader& in) {
    OlderLineFile file;
    in.readString();  // the mark, 1
    for (int i = 0; i < 5; ++i)
        in.readInteger16();

    file.dataType = ListIndex(in.readInteger16(), 3, "input data type");  // 1
    file.unit1 = in.readString();                                         // 2
    in.readInteger16();                                                   // 3
    file.unit2 = in.readString();                                         // 4
    file.factorSelector = in.readInteger16();                             // 5
    in.readDouble();                                                      // 6
    in.readString();                                                      // 7, a field of any kind
    const std::int16_t lastRow = in.readInteger16();                      // 8
    const std::int16_t lastCol = in.readInteger16();                      // 9
    in.readString();                                                      // 10
    file.customFactor = in.readString();                                  // 11
    file.customAbbreviation = in.readString();                            // 12
    file.customUnits = in.readString();                                   // 13
    file.controlFlag = CheckValue(in.readInteger16(), "control flag");    // 14
    file.alpha = in.readString();                                         // 15
    if (!IsAlphaText(file.alpha))
        throw FileFormatError(QuoteField(file.alpha) + " is not a value of the probability of T");
    in.readString();                                                          // 16
    in.readString();                                                          // 17
    file.replicatesFlag = CheckValue(in.readInteger16(), "replicates flag");  // 18
    in.readInteger16();                                                       // 19
    in.readInteger16();                                                       // 20
    in.readString();                                                          // 21
    in.readString();                                                          // 22

    file.GridOldV = ReadCells(in, lastRow + 1, lastCol + 1, "first old table");
    const std::int16_t lastRow2 = in.readInteger16();
    const std::int16_t lastCol2 = in.readInteger16();
    file.GridOldVt = ReadCells(in, lastRow2 + 1, lastCol2 + 1, "second old table");
    file.notes = ReadNotesRecord(in);
    return file;
}

}  // namespace

OlderLineFile ReadOlderLayout(FieldReader& in) {
    try {
        return ReadOlderFields(in);
    } catch (const FileFormatError& e) {
        throw FileFormatError(std::string(e.what()) + " (" + in.lastFieldPosition() + ")");
    }
}

}  // namespace morvane
