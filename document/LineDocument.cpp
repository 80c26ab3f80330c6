// The input window's state, its input cells and its command channel.
#include "document/LineDocument.h"

#include <exception>

#include "core/DoseEstimates.h"
#include "core/NumberText.h"

namespace morvane {

LineDocument::LineDocument(SharedRegisters& shared, UserPort& port, std::string programFolder)
    : shared_(shared), port_(port), programFolder_(std::move(programFolder)) {
    // The window as it loads: no document, Grid1 of three columns 1000 twips wide
    // with the narrow label column, Grid2 of four.
    form_.Grid1 = TextTable(2, 3);
    for (int c = 0; c < form_.Grid1.cols(); ++c)
        form_.Grid1.setColumnWidth(c, 1000);
    form_.Grid1.setColumnWidth(0, 300);
    form_.Grid1.setCurrent(1, 2);
    form_.Grid2 = TextTable(2, 4);
}

const MainForm& LineDocument::main() const {
    settleGrid1();
    return form_;
}

CalculationInput LineDocument::calculationInput() const {
    settleGrid1();
    return CalculationInput{form_.Grid2, form_.CheckCoVisible, options_.TAlpha(), form_.FileTitle};
}

void LineDocument::notify() {
    if (observer_)
        observer_->documentChanged();
}

void LineDocument::setFocus(Focus focus) {
    form_.focus = focus;
    if (observer_)
        observer_->focusRequested(focus);
}

void LineDocument::settleGrid1() const {
    if (!sortPending_)
        return;
    TextTable& grid = form_.Grid1;
    grid.sortByColumn(grid.cols() - 1, 1, grid.rows() - 2);
    sortPending_ = false;
    knownSorted_ = true;
}

void LineDocument::guarded(const std::function<void()>& body) {
    settleGrid1();
    const MainForm formBefore = form_;
    const FileOptions optionsBefore = options_;
    const NotesSheet notesBefore = notes_;
    const bool sortedBefore = knownSorted_;
    const std::string dose = shared_.DoseWord, unit = shared_.UnitWord,
                      estimate = shared_.EstimateWord;
    try {
        body();
    } catch (const std::exception& e) {
        form_ = formBefore;
        options_ = optionsBefore;
        notes_ = notesBefore;
        sortPending_ = false;
        knownSorted_ = sortedBefore;
        shared_.DoseWord = dose;
        shared_.UnitWord = unit;
        shared_.EstimateWord = estimate;
        port_.tell(StoppedCommandMessage(e.what()));
    }
    notify();
}

std::string StoppedCommandMessage(const std::string& reason) {
    return "Morvane stopped this command:\n" + reason + ".\nThe data were left as they were.";
}

// ---- Input cells.

void LineDocument::setTextDose(std::string text) {
    form_.TextDose = std::move(text);
}
void LineDocument::setText1input(std::string text) {
    form_.Text1input = std::move(text);
}
void LineDocument::setText2input(std::string text) {
    form_.Text2input = std::move(text);
}

void LineDocument::setCheckCo(bool ticked) {
    form_.CheckCo = ticked ? 1 : 0;
    setFocus(Focus::TextDose);
}

namespace {

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

}  // namespace

bool LineDocument::leaveTextDose() {
    if (ConvertCell(form_.TextDose, true))
        return true;
    port_.tell("invaled value!");
    setFocus(Focus::TextDose);
    return false;
}

bool LineDocument::leaveText1input() {
    if (ConvertCell(form_.Text1input, false))
        return true;
    port_.tell("invaled value!");
    setFocus(Focus::Text1input);
    return false;
}

bool LineDocument::leaveText2input() {
    if (ConvertCell(form_.Text2input, false))
        return true;
    port_.tell("invaled value!");
    setFocus(Focus::Text2input);
    return false;
}

void LineDocument::setTextName(std::string text) {
    // Every assignment counts as a change of the box, also one of the same text.
    form_.TextName = std::move(text);
    form_.Modified = 1;
    form_.CommandSaveEnabled = true;
    notes_.TreatmentName = form_.TextName;
}

void LineDocument::setGrid1Current(int row, int col) {
    settleGrid1();
    if (row < 0 || row >= form_.Grid1.rows() || col < 0 || col >= form_.Grid1.cols())
        return;
    form_.Grid1.setCurrent(row, col);
}

void LineDocument::setMainVisible(bool visible) {
    form_.Visible = visible;
}
void LineDocument::setMainEnabled(bool enabled) {
    form_.Enabled = enabled;
}

// ---- Emptying the document.

void LineDocument::ResetLine() {
    form_.CommandInfFormEnabled = false;
    form_.CommandChgangeOptionsEnabled = false;
    shared_.UnitWord.clear();
    shared_.DoseWord.clear();
    shared_.EstimateWord.clear();
    form_.FileTitle.clear();
    form_.FilePath.clear();
    form_.Caption = "Morvane";
    form_.TextDose.clear();
    form_.Text1input.clear();
    form_.Text2input.clear();

    sortPending_ = false;
    knownSorted_ = true;
    TextTable& grid1 = form_.Grid1;
    grid1.setRows(2);
    grid1.setCols(3);
    form_.ImportFile.clear();
    form_.ImportRowRefused = 0;
    for (int r = 0; r < grid1.rows(); ++r)
        for (int c = 0; c < grid1.cols(); ++c) {
            grid1.setText(r, c, "");
            if (r >= 1 && c >= 2)
                grid1.setBack(r, c, DefaultCellColor);
        }

    notes_ = NotesSheet{};
    setTextName("");
    form_.OlderVersionFile = 0;

    TextTable& grid2 = form_.Grid2;
    grid2.setCols(4);
    grid2.setRows(2);
    for (int r = 0; r < grid2.rows(); ++r)
        for (int c = 0; c < grid2.cols(); ++c) {
            grid2.setText(r, c, "");
            if (r >= 1 && c >= 1)
                grid2.setBack(r, c, DefaultCellColor);
        }
    // The tables are empty, so Calculate has nothing to work on.
    form_.CommandCalcEnabled = false;
    // A reset document has nothing that Cancel of the options dialog could give back.
    beforeNew_.reset();

    form_.Modified = 0;
    form_.CommandSaveEnabled = false;
}

// ---- The command channel.

void LineDocument::TextMsg(const std::string& code) {
    if (code == "1") {
        ResetLine();
    } else if (code == "2") {
        form_.FileTitle = "New file";
        form_.Caption = "Morvane, New file";
    } else if (code == "3") {
        if (observer_)
            observer_->spreadsheetReadRequested();
    } else if (code == "4") {
        form_.PendingCommand = 1;
        if (observer_)
            observer_->importRequested();
    } else if (code == "5") {
        RebuildResponseTable();
    } else if (code == "6") {
        if (observer_)
            observer_->calculateFileRequested();
    } else if (code == "7") {
        FormatTwoLevels(shared_);
    } else if (code == "8") {
        AcceptRow();
    } else if (code == "9") {
        FormatFourLevels(shared_);
    } else if (code == "17") {
        if (QueryClose() && observer_)
            observer_->programEndRequested();
    }
}

}  // namespace morvane
