#pragma once
// The data table of one line: the input cells, Grid1 and Grid2.
//
// Grid1, the table of replicate rows (DoseRow), kept sorted by a hidden sort key, is at
// once the store of the document; Grid2, the response table (ResponseRow), is derived
// from it after every change and is what the calculation reads. Cell text is the
// data: numbers are written as text and read back from it.
//
// The table knows the rules of entry and tells its refusals as values (the message and
// the cell to go back to); it asks and tells nothing itself. A change that fails on
// the arithmetic (a control response of 100%, a cell that holds no number) throws
// Fault before anything is changed: the new rows and their response table are built
// aside and put in place only when both are whole.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/NumberText.h"
#include "core/TextTable.h"
#include "document/FileOptions.h"
#include "document/Focus.h"
#include "document/SequentialFields.h"

namespace morvane {

// Colours of the input window's tables. A back colour of none is the grid's default
// background, DefaultCellColor.
inline constexpr Color kControlColor{200, 255, 200};  // the cells of a control row
inline constexpr Color kBandColor{225, 225, 255};     // every other dose of treatments
inline constexpr std::optional<Color> DefaultCellColor{};

// The columns of Grid1. Every data type has the label and the dose first and the
// hidden sort key last; the values between them depend on the data type
// (Grid1Columns).
namespace dosecol {
inline constexpr int Label = 0;  // "T" a treatment, "C" a control
inline constexpr int Dose = 1;
inline constexpr int FirstValue = 2;   // Text1input's value
inline constexpr int SecondValue = 3;  // Text2input's value (data types 0 and 1)
}  // namespace dosecol

// The columns of Grid1 that differ by data type; -1 where the type has none.
struct Grid1Columns {
    int count;    // label and dose, the values, the response %, the sort key
    int total;    // the number of individuals
    int percent;  // the response %
    constexpr int sortKey() const { return count - 1; }
};
constexpr Grid1Columns Grid1ColumnsOf(DataType type) {
    switch (type) {
        case DataType::RespondedAndNonResponded:
            return {7, 4, 5};  // Responded, Non responded, Total, Response %
        case DataType::TotalAndResponded:
            return {6, 2, 4};  // Total, Responded, Response %
        case DataType::ResponsePercentage:
            break;
    }
    return {4, -1, 2};  // Response %
}
inline constexpr Grid1Columns kCountsColumns = Grid1ColumnsOf(DataType::RespondedAndNonResponded);
inline constexpr Grid1Columns kTotalColumns = Grid1ColumnsOf(DataType::TotalAndResponded);
inline constexpr Grid1Columns kPercentColumns = Grid1ColumnsOf(DataType::ResponsePercentage);

// The columns of Grid2 without a control per treatment.
namespace responsecol {
inline constexpr int Dose = 0;
inline constexpr int Total = 1;
inline constexpr int Response = 2;   // the mean response %
inline constexpr int Corrected = 3;  // corrected for the control by Abbott's formula
inline constexpr int Count = 4;
}  // namespace responsecol

// The columns of Grid2 with a control for each treatment (the matched layout).
namespace matchedcol {
inline constexpr int Dose = 0;
inline constexpr int Total = 1;
inline constexpr int Treated = 2;  // the treated rows' mean response %
inline constexpr int Control = 3;  // the control rows' mean response %
inline constexpr int Corrected = 4;
inline constexpr int Count = 5;
}  // namespace matchedcol

// How the input cells and the tables are laid out for the options of the line.
struct EntryLayout {
    bool CheckCoVisible = false;  // a control with each treatment: the box is shown
    bool Text2inputVisible = true;
    std::string Text1inputTip = "Responded", Text2inputTip = "Non responded";
    // Left edges in twips of CommandAccept, CommandEdit, CommandDel.
    int CommandAcceptLeft = 3350, CommandEditLeft = 4350, CommandDelLeft = 5325;
    std::int16_t TotalColumn = 0;    // Grid1 column of the total (data types 0, 1)
    std::int16_t PercentColumn = 0;  // Grid1 column of the response %
};

// A row the table did not take: the message to show and the cell to go back to.
struct Refusal {
    std::string text;
    Focus focus = Focus::None;
};

class DataTable {
  public:
    // As the window loads: no line, Grid1 of three columns 1000 twips wide with the
    // narrow label column, Grid2 of four.
    DataTable();

    // Grid1 with its rows in order (a pending sort is done first).
    const TextTable& Grid1() const;
    const TextTable& Grid2() const { return grid2_; }
    const std::string& TextDose() const { return textDose_; }
    const std::string& Text1input() const { return text1input_; }
    const std::string& Text2input() const { return text2input_; }
    std::int16_t CheckCo() const { return checkCo_; }  // 1: the row is a control
    const EntryLayout& layout() const { return layout_; }
    bool ControlPerTreatment() const { return layout_.CheckCoVisible; }
    // Grid2 holds what Calculate can work on.
    bool CalculateEnabled() const { return calculateEnabled_; }
    std::int16_t RowsWereRemoved() const { return rowsWereRemoved_; }  // 1 to the next Accept
    std::int16_t ImportRowRefused() const { return importRowRefused_; }

    // ---- The input cells.
    void setTextDose(std::string text) { textDose_ = std::move(text); }
    void setText1input(std::string text) { text1input_ = std::move(text); }
    void setText2input(std::string text) { text2input_ = std::move(text); }
    void setCheckCo(bool ticked) { checkCo_ = ticked ? 1 : 0; }
    void clearInputCells();
    // The leave-focus rule: the cell's text becomes the text of its value; false, the
    // text kept, when it is no number. A negative dose is emptied.
    bool leaveTextDose();
    bool leaveText1input();
    bool leaveText2input();
    void setImportRowRefused(std::int16_t value) { importRowRefused_ = value; }
    void setCurrent(int row, int col);

    // ---- Entry. doseWord names the dose in the messages.
    // Accept's checks of the input cells, in the order the user is told of them.
    std::optional<Refusal> CheckTypedRow(const TableRules& rules,
                                         const std::string& doseWord) const;
    // The checked row added, sorted in, Grid2 rebuilt; the value cells are emptied,
    // the dose kept for the next replicate. Throws Fault with nothing changed.
    void AcceptTypedRow(const TableRules& rules);
    // The import's row: its limits, no "Missing data", the input cells emptied. Does
    // not rebuild Grid2. A refusal sets ImportRowRefused. Throws Fault when a cell
    // holds no number or there is no line to take the row.
    std::optional<Refusal> AcceptRow(const TableRules& rules, const std::string& doseWord);
    // The current row of Grid1, when it is a data row.
    std::optional<int> CurrentDataRow() const;
    // The data row moved back into the input cells and removed; Grid2 rebuilt.
    // Throws Fault with nothing changed.
    void EditRow(int row, const TableRules& rules);
    // The data row removed; Grid2 rebuilt. Throws Fault with nothing changed.
    void DeleteRow(int row, const TableRules& rules);

    // ---- The response table.
    // Refills Grid2 from Grid1 (the matched layout with a control per treatment) and
    // sets CalculateEnabled. Throws Fault with nothing changed.
    void RebuildResponseTable(const TableRules& rules);
    void ClearResponseTable();

    // ---- The line's layout.
    // No line: the cells emptied, Grid1 of three columns, Grid2 of four, nothing to
    // calculate. The layout of the cells is kept.
    void Reset();
    // The tables and cells laid out for the options, with doseHeading over the dose
    // columns. The control box is shown when controlPerTreatment.
    void LayOut(DataType type, bool controlPerTreatment, const std::string& doseHeading);
    void setControlPerTreatment(bool on) { layout_.CheckCoVisible = on; }
    void setDoseHeading(const std::string& doseHeading);

    // ---- Reading a line file.
    // The size record and the table section into Grid1, the rows as the file has them.
    void ReadTableIntoGrid1(FieldReader& in);
    // The control rows of a read table painted.
    void paintControlRows();
    // The replicates of an old table into the input cells, one row at a time from
    // firstRow, with perRow run after each. Throws Fault when a cell holds no number.
    template <class PerRow>
    void ForEachOldReplicate(const TextTable& grid, int firstRow, PerRow perRow);

  private:
    void layOutInputCells(DataType type);
    void layOutGrid2();
    // Writes the checked row into the empty last row of grid and adds a new empty row.
    void appendRow(TextTable& grid, DataType type, double dose, double first, double second,
                   bool control);
    bool inPlace(const TextTable& grid, int row) const;
    bool controlRow(double dose) const {
        return layout_.CheckCoVisible ? checkCo_ == 1 : dose == 0;
    }
    // Grid2 built from a sorted grid1, with the band colours of grid1's treatment rows
    // and the enabling of Calculate (none: left as it was).
    struct Responses {
        TextTable grid2;
        std::vector<std::pair<int, std::optional<Color>>> bands;
        std::optional<bool> calculateEnabled;
    };
    Responses Build(const TextTable& grid1, const TableRules& rules) const;
    Responses BuildResponses(const TextTable& grid1, const TableRules& rules) const;
    Responses BuildMatchedResponses(const TextTable& grid1, const TableRules& rules) const;
    // Puts grid1, whose rows are in order when they were known to be, and the
    // responses built from it in place.
    void commit(TextTable grid1, Responses responses);
    // Puts the responses built from Grid1 in place.
    void putResponses(Responses responses);
    void settle(TextTable& grid) const;

    mutable TextTable grid1_;
    TextTable grid2_;
    std::string textDose_, text1input_, text2input_;
    std::int16_t checkCo_ = 0;
    EntryLayout layout_;
    bool calculateEnabled_ = false;
    std::int16_t rowsWereRemoved_ = 0;
    std::int16_t importRowRefused_ = 0;
    // AcceptRow appends; the sort of Grid1 is done once before anything reads the
    // table, with the same stable result as a sort after each row.
    mutable bool sortPending_ = false;
    // Grid1's data rows are known to stand in the order of their sort keys (a file's
    // rows stand as the file has them).
    mutable bool knownSorted_ = true;
};

// The columns of the old tables of an older-layout file: each dose a pair of columns,
// its heading in row 0 ("control" for the dose 0), then one replicate a row.
namespace oldcol {
inline constexpr int HeadingRow = 0;
inline constexpr int FirstValue = 0;   // within the pair
inline constexpr int SecondValue = 1;  // within the pair
inline constexpr int PairWidth = 2;
inline constexpr int GridOldVFirstRow = 5;
inline constexpr int GridOldVtFirstRow = 3;
}  // namespace oldcol

template <class PerRow>
void DataTable::ForEachOldReplicate(const TextTable& grid, int firstRow, PerRow perRow) {
    for (int c = 0; c < grid.cols(); c += oldcol::PairWidth) {
        if (grid.rows() == 0)
            return;
        const std::string& head = grid.text(oldcol::HeadingRow, c);
        if (head.empty())
            continue;
        const double dose = head == "control" ? 0.0 : NumberOf(head);
        const int first = c + oldcol::FirstValue, second = c + oldcol::SecondValue;
        for (int r = firstRow; r < grid.rows(); ++r) {
            if (grid.text(r, first).empty())
                continue;
            setTextDose(PlainText(dose));
            setText1input(PlainText(NumberOf(grid.text(r, first))));
            if (!grid.text(r, second).empty())
                setText2input(PlainText(NumberOf(grid.text(r, second))));
            perRow();
        }
    }
}

// The sort key of a row: the dose to the power 0.01 written "0.00000000000", then the
// label: a treatment at dose 10 gives "1.02329299228T", a control at 0
// "0.00000000000C".
std::string SortKey(double dose, const std::string& label);

}  // namespace morvane
