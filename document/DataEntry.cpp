// Rows into and out of Grid1: the input cells, Accept's checks, AcceptRow for the
// readers and the import, Edit and Delete; and the layout of the tables for a line.
#include <cmath>

#include "core/NumberText.h"
#include "document/DataTable.h"

namespace morvane {
namespace {

const char* const kExtremeTail = "\nMorvane can't operate with these extreme values";
const char* const kZeroWithControls =
    "Cant accept 0 value when you have control associated each treatment.";
const char* const kRespondedAboveTotal = "Illogic data, Responded can't be greater than total";
const char* const kNilTotal = "Nil value can't be accepted as total number of individuals.";
const char* const kNoLine =
    "There is no line to take this row.\nStart a new file or open one first.";

// The leave-focus rule of an input cell: a non-empty text becomes the text of its
// value; none when the text is no number.
bool ConvertCell(std::string& cell, bool emptyNegative) {
    if (cell.empty())
        return true;
    const std::optional<double> value = ParseNumber(cell);
    if (!value)
        return false;
    cell = emptyNegative && *value < 0 ? std::string() : PlainText(*value);
    return true;
}

// The checks of the two values that Accept and AcceptRow share.
std::optional<Refusal> CheckCounts(DataType type, double first, double second) {
    if (type == DataType::TotalAndResponded) {
        if (second > first)
            return Refusal{kRespondedAboveTotal, Focus::Text1input};
        if (first == 0)
            return Refusal{kNilTotal, Focus::Text1input};
    } else if (first + second == 0) {
        return Refusal{kNilTotal, Focus::Text1input};
    }
    return std::nullopt;
}

}  // namespace

std::string SortKey(double dose, const std::string& label) {
    // The hundredth root squeezes doses from 1e-50 to 1e+50 into one fixed width, so
    // that the order of the texts is the order of the doses.
    return FormatNumber(std::pow(dose, 0.01), "0.00000000000") + label;
}

DataTable::DataTable() : grid1_(2, 3), grid2_(2, 4) {
    for (int c = 0; c < grid1_.cols(); ++c)
        grid1_.setColumnWidth(c, 1000);
    grid1_.setColumnWidth(dosecol::Label, 300);
    grid1_.setCurrent(1, dosecol::FirstValue);
}

const TextTable& DataTable::Grid1() const {
    if (sortPending_) {
        settle(grid1_);
        sortPending_ = false;
        knownSorted_ = true;
    }
    return grid1_;
}

void DataTable::settle(TextTable& grid) const {
    grid.sortByColumn(grid.cols() - 1, 1, grid.rows() - 2);
}

// ---- The input cells.

void DataTable::clearInputCells() {
    textDose_.clear();
    text1input_.clear();
    text2input_.clear();
}

bool DataTable::leaveTextDose() {
    return ConvertCell(textDose_, true);
}
bool DataTable::leaveText1input() {
    return ConvertCell(text1input_, false);
}
bool DataTable::leaveText2input() {
    return ConvertCell(text2input_, false);
}

void DataTable::setCurrent(int row, int col) {
    Grid1();
    if (row < 0 || row >= grid1_.rows() || col < 0 || col >= grid1_.cols())
        return;
    grid1_.setCurrent(row, col);
}

// ---- Entry.

void DataTable::appendRow(TextTable& grid, DataType type, double dose, double first, double second,
                          bool control) {
    const int row = grid.rows() - 1;  // the empty last row takes the new one
    const int last = grid.cols() - 1;
    const Grid1Columns cols = Grid1ColumnsOf(type);
    grid.setText(row, dosecol::Dose, PlainText(dose));
    switch (type) {
        case DataType::ResponsePercentage:
            grid.setText(row, cols.percent, FormatNumber(first, "0.000"));
            break;
        case DataType::TotalAndResponded:
            grid.setText(row, cols.total, PlainText(first));
            grid.setText(row, dosecol::SecondValue, PlainText(second));
            grid.setText(row, cols.percent, FormatNumber(second / first * 100, "0.000"));
            break;
        case DataType::RespondedAndNonResponded:
            grid.setText(row, dosecol::FirstValue, PlainText(first));
            grid.setText(row, dosecol::SecondValue, PlainText(second));
            grid.setText(row, cols.total, PlainText(first + second));
            grid.setText(row, cols.percent, FormatNumber(first / (first + second) * 100, "0.000"));
            break;
    }
    grid.setText(row, dosecol::Label, "T");
    if (control) {
        for (int c = dosecol::FirstValue; c <= last; ++c)
            grid.setBack(row, c, kControlColor);
        grid.setText(row, dosecol::Label, "C");
    }
    grid.setText(row, last, SortKey(dose, grid.text(row, dosecol::Label)));
    // The rows are sorted by their keys after each new row, stably, so a row that
    // sorts after the one before it stays where it is; otherwise the sort is done
    // once before the table is next read, with the same result.
    if (!inPlace(grid, row))
        sortPending_ = true;
    grid.addRow();
    grid.setCurrent(row, dosecol::FirstValue);
}

bool DataTable::inPlace(const TextTable& grid, int row) const {
    const int last = grid.cols() - 1;
    return !sortPending_ && knownSorted_ &&
           (row == 1 || CompareTextNoCase(grid.text(row, last), grid.text(row - 1, last)) >= 0);
}

std::optional<Refusal> DataTable::CheckTypedRow(const TableRules& rules,
                                                const std::string& doseWord) const {
    auto value = [](const std::string& cell, double& out) {
        const std::optional<double> v = ParseNumber(cell);
        if (v)
            out = *v;
        return v.has_value();
    };
    if (grid1_.cols() < Grid1ColumnsOf(rules.dataType).count)
        return Refusal{kNoLine, Focus::TextDose};

    double dose = 0;
    if (textDose_.empty())
        return Refusal{"Missing data", Focus::TextDose};
    if (!value(textDose_, dose))
        return Refusal{"invaled value!", Focus::TextDose};
    if (dose > 1e+40)
        return Refusal{doseWord + " value is verrry high." + kExtremeTail, Focus::TextDose};
    if (dose != 0 && dose < 1e-08)
        return Refusal{doseWord + " value is verrry low." + kExtremeTail, Focus::TextDose};
    if (layout_.CheckCoVisible && dose == 0)
        return Refusal{kZeroWithControls, Focus::TextDose};

    double first = 0, second = 0;
    if (text1input_.empty())
        return Refusal{"Missing data", Focus::Text1input};
    if (!value(text1input_, first))
        return Refusal{"invaled value!", Focus::Text1input};
    if (rules.dataType == DataType::ResponsePercentage) {
        if (first > 100)
            return Refusal{"Illogic data, Response percentage can't exceed 100", Focus::Text1input};
        return std::nullopt;
    }
    if (text2input_.empty())
        return Refusal{"Missing data", Focus::Text2input};
    if (!value(text2input_, second))
        return Refusal{"invaled value!", Focus::Text2input};
    return CheckCounts(rules.dataType, first, second);
}

void DataTable::AcceptTypedRow(const TableRules& rules) {
    const double dose = NumberOf(textDose_);
    const double first = NumberOf(text1input_);
    const double second =
        rules.dataType == DataType::ResponsePercentage ? 0 : NumberOf(text2input_);
    Grid1();  // a pending sort is done before the row is added
    TextTable grid1 = grid1_;
    appendRow(grid1, rules.dataType, dose, first, second, controlRow(dose));
    if (rowsWereRemoved_ == 1)
        for (int r = 1; r < grid1.rows(); ++r)
            grid1.setRowHeight(r, 240);
    if (sortPending_)
        settle(grid1);
    sortPending_ = false;  // grid1 is in order; Grid1 is as it was
    Responses responses = Build(grid1, rules);
    commit(std::move(grid1), std::move(responses));
    knownSorted_ = true;
    rowsWereRemoved_ = 0;
    text1input_.clear();
    text2input_.clear();  // TextDose keeps the dose for the next replicate
}

std::optional<Refusal> DataTable::AcceptRow(const TableRules& rules, const std::string& doseWord) {
    auto refuse = [this](const std::string& text, Focus focus) {
        importRowRefused_ = 1;
        return Refusal{text, focus};
    };
    const double dose = NumberOf(textDose_);
    if (dose != 0 && (dose > 1e+50 || dose < 1e-50))
        return refuse(doseWord + " value is verrry high or verry low." + kExtremeTail,
                      Focus::TextDose);
    if (layout_.CheckCoVisible && dose == 0)
        return refuse(kZeroWithControls, Focus::TextDose);

    const double first = NumberOf(text1input_);
    double second = 0;
    if (rules.dataType == DataType::ResponsePercentage) {
        // The capital letter differs from Accept's message on purpose.
        if (first > 100)
            return refuse("Illogic data, Response Percentage can't exceed 100", Focus::Text1input);
    } else {
        second = NumberOf(text2input_);
        if (std::optional<Refusal> refusal = CheckCounts(rules.dataType, first, second))
            return refuse(refusal->text, refusal->focus);
    }
    if (grid1_.cols() < Grid1ColumnsOf(rules.dataType).count)
        throw Fault("there is no line to take the row");

    appendRow(grid1_, rules.dataType, dose, first, second, controlRow(dose));
    clearInputCells();
    return std::nullopt;
}

std::optional<int> DataTable::CurrentDataRow() const {
    const TextTable& grid = Grid1();
    const int row = grid.currentRow();
    if (row < 1 || row >= grid.rows() - 1)
        return std::nullopt;
    return row;
}

void DataTable::EditRow(int row, const TableRules& rules) {
    const TextTable& current = Grid1();
    const std::string dose = PlainText(NumberOf(current.text(row, dosecol::Dose)));
    const std::string first = PlainText(NumberOf(current.text(row, dosecol::FirstValue)));
    const std::string second =
        layout_.Text2inputVisible ? current.text(row, dosecol::SecondValue) : text2input_;
    const bool control = current.text(row, dosecol::Label) == "C";
    TextTable grid1 = current;
    grid1.removeRow(row);
    Responses responses = Build(grid1, rules);
    commit(std::move(grid1), std::move(responses));
    textDose_ = dose;
    text1input_ = first;
    if (layout_.Text2inputVisible)
        text2input_ = second;
    if (layout_.CheckCoVisible)
        checkCo_ = control ? 1 : 0;
    rowsWereRemoved_ = 1;
}

void DataTable::DeleteRow(int row, const TableRules& rules) {
    TextTable grid1 = Grid1();
    grid1.removeRow(row);
    Responses responses = Build(grid1, rules);
    commit(std::move(grid1), std::move(responses));
    rowsWereRemoved_ = 1;
}

// ---- The line's layout.

void DataTable::Reset() {
    clearInputCells();
    sortPending_ = false;
    knownSorted_ = true;
    grid1_.setRows(2);
    grid1_.setCols(3);
    importRowRefused_ = 0;
    for (int r = 0; r < grid1_.rows(); ++r)
        for (int c = 0; c < grid1_.cols(); ++c) {
            grid1_.setText(r, c, "");
            if (r >= 1 && c >= dosecol::FirstValue)
                grid1_.setBack(r, c, DefaultCellColor);
        }
    grid2_.setCols(responsecol::Count);
    grid2_.setRows(2);
    for (int r = 0; r < grid2_.rows(); ++r)
        for (int c = 0; c < grid2_.cols(); ++c) {
            grid2_.setText(r, c, "");
            if (r >= 1 && c >= responsecol::Total)
                grid2_.setBack(r, c, DefaultCellColor);
        }
    // The tables are empty, so Calculate has nothing to work on.
    calculateEnabled_ = false;
}

void DataTable::LayOut(DataType type, bool controlPerTreatment, const std::string& doseHeading) {
    layout_.CheckCoVisible = controlPerTreatment;
    layOutInputCells(type);
    layOutGrid2();
    grid2_.setRowHeight(0, 600);
    grid1_.setRowHeight(0, 500);
    setDoseHeading(doseHeading);
    for (TextTable* grid : {&grid1_, &grid2_})
        for (int col = 0; col < grid->cols(); ++col) {
            grid->setColumnWidth(col, 1000);
            grid->setColumnAlignment(col, 2);
        }
    grid1_.setColumnWidth(dosecol::Label, 300);
    grid1_.setColumnWidth(grid1_.cols() - 1, 0);  // the sort key is never seen
    grid1_.setCurrent(1, dosecol::FirstValue);
}

void DataTable::layOutInputCells(DataType type) {
    const Grid1Columns cols = Grid1ColumnsOf(type);
    grid1_.setCols(cols.count);
    switch (type) {
        case DataType::RespondedAndNonResponded:
            layout_.Text2inputVisible = true;
            layout_.Text1inputTip = "Responded";
            layout_.Text2inputTip = "Non responded";
            grid1_.setText(0, dosecol::FirstValue, "Responded");
            grid1_.setText(0, dosecol::SecondValue, "Non responded");
            grid1_.setText(0, cols.total, "Total");
            layout_.TotalColumn = static_cast<std::int16_t>(cols.total);
            break;
        case DataType::TotalAndResponded:
            layout_.Text2inputVisible = true;
            layout_.Text1inputTip = "Total number";
            layout_.Text2inputTip = "Responded";
            grid1_.setText(0, cols.total, "Total");
            grid1_.setText(0, dosecol::SecondValue, "Responded");
            layout_.TotalColumn = static_cast<std::int16_t>(cols.total);
            break;
        case DataType::ResponsePercentage:
            layout_.Text2inputVisible = false;
            layout_.Text1inputTip = "Response %";
            layout_.Text2inputTip.clear();
            break;  // TotalColumn is left as it was
    }
    grid1_.setText(0, cols.percent, "Response\n%");
    layout_.PercentColumn = static_cast<std::int16_t>(cols.percent);
    const bool narrow = type == DataType::ResponsePercentage;
    layout_.CommandAcceptLeft = narrow ? 2350 : 3350;
    layout_.CommandEditLeft = narrow ? 3350 : 4350;
    layout_.CommandDelLeft = narrow ? 4325 : 5325;
}

void DataTable::layOutGrid2() {
    if (!layout_.CheckCoVisible) {
        grid2_.setCols(responsecol::Count);
        grid2_.setText(0, responsecol::Total, "Total");
        grid2_.setText(0, responsecol::Response, "Response\n%");
        grid2_.setText(0, responsecol::Corrected, "Corrected\nResponse\n%");
    } else {
        grid2_.setCols(matchedcol::Count);
        grid2_.setText(0, matchedcol::Total, "Total");
        grid2_.setText(0, matchedcol::Treated, "Treated response\n%");
        grid2_.setText(0, matchedcol::Control, "Control response\n%");
        grid2_.setText(0, matchedcol::Corrected, "Corrected\nResponse\n%");
    }
}

void DataTable::setDoseHeading(const std::string& doseHeading) {
    grid1_.setText(0, dosecol::Dose, doseHeading);
    grid2_.setText(0, responsecol::Dose, doseHeading);
}

}  // namespace morvane
