#include "results/LineResults.h"

#include <cmath>
#include <string>

#include "core/DoseEstimates.h"
#include "core/Fault.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

// An estimate or limit whose power of ten overflowed would be shown as 0 or as a log
// value: the calculation stops instead, as at any arithmetic fault.
void RefuseOverflowedEstimate(const SharedRegisters& shared, const std::string& percent) {
    if (EstimateOverflowed(shared))
        throw Fault("the " + shared.EstimateWord + percent +
                    " or its limits are larger than any number can be (an overflow): the line "
                    "is too flat to give them as doses");
}

// Alignments as the grid numbers them.
constexpr Alignment kLeftCentre = 1;
constexpr Alignment kCentreTop = 3;

constexpr int kDefaultWidth = -1;

const char* const kStandardPercents[] = {"25", "50", "75", "90", "95", "99"};

}  // namespace

LineResults::LineResults(SharedRegisters& shared, UserPort& port, const TextMeasurer& measurer)
    : shared_(shared), measurer_(measurer), queries_(shared, port, tables_.Grid2) {
    Load();
}

void LineResults::Load() {
    tables_.Grid1 = TextTable(2, 7);
    tables_.Grid22 = TextTable(6, 3);
    tables_.Grid2 = TextTable(8, 5);
    tables_.Text8.clear();
    tables_.Grid2ToolTip.clear();
    tables_.Caption.clear();
    headingSingle_ = {};
    headingFirst_ = {};
    headingSecond_ = {};
    captions_ = {};
    queries_.reset();
    resultsText_.clear();
    BackRequested = 0;
}

void LineResults::Text1(int code) {
    switch (code) {
        case 1:
            FormatDataTable();
            FormatEstimateTables();
            break;
        case 2:
            FitDataColumns();
            break;
        case 3:
        case 4:
            if (print_)
                print_(code);
            break;
        case 5:
            FitEstimateColumns();
            break;
        default:
            break;
    }
}

ResultsChannel LineResults::channel() {
    return [this](int code) { Text1(code); };
}

void LineResults::FormatDataTable() {
    TextTable& grid = tables_.Grid1;
    if (grid.cols() < 7)
        grid.setCols(7);
    if (grid.rows() < 1)
        grid.setRows(1);
    const int widths[7] = {350, 800, 800, kDefaultWidth, kDefaultWidth, 950, kDefaultWidth};
    for (int c = 0; c < 7; ++c) {
        grid.setColumnWidth(c, widths[c]);
        grid.setColumnAlignment(c, kLeftCentre);
    }
    for (int c = 0; c < grid.cols(); ++c)
        grid.setCellAlignment(0, c, kCentreTop);
    for (int r = 1; r < grid.rows(); ++r)
        grid.setCellAlignment(r, 0, kLeftCentre);
    grid.setRowHeight(0, 500);

    const std::string& dose = shared_.DoseWord;
    const std::string scale = std::to_string(shared_.fit.DoseScale);
    grid.setText(0, 0, dose);
    grid.setText(0, 1, dose + "\n*  " + scale);
    grid.setText(0, 2, "Log\n(" + dose + "*" + scale + ")");
    grid.setText(0, 3, "Treated");
    grid.setText(0, 4, "Observed\nresponse %");
    grid.setText(0, 5, "Linear\nresponse %");
    grid.setText(0, 6, "Linear\nprobit");

    headingSingle_ = {dose,           dose + " * " + scale,  "Log (" + dose + " * " + scale + ")",
                      "Treated",      "Observed response %", "Linear response %",
                      "Linear probit"};
    headingFirst_ = {dose, dose, "Log", "Treated", "Observed", "Linear", "Linear"};
    headingSecond_ = {"",           "* " + scale, "(" + dose + "*" + scale + ")", "", "response %",
                      "response %", "probit"};
}

void LineResults::FormatEstimateTables() {
    // A new calculation starts the estimates table afresh, so the rows a user added
    // to the last one go with it.
    TextTable& grid = tables_.Grid2;
    grid = TextTable(8, 5);
    const int widths[5] = {650, 100, 1400, 1400, kDefaultWidth};
    for (int c = 0; c < 5; ++c)
        grid.setColumnWidth(c, widths[c]);
    for (int c = 2; c < 5; ++c)
        grid.setColumnAlignment(c, kLeftCentre);
    grid.setText(0, 0, shared_.EstimateWord);
    grid.setText(0, 2, shared_.DoseWord);
    grid.setText(0, 3, "Lower limit");
    grid.setText(0, 4, "Upper limit");
    for (int c = 2; c < 5; ++c)
        grid.setText(1, c, shared_.UnitWord);
    for (int i = 0; i < 6; ++i)
        grid.setText(i + 2, 0, kStandardPercents[i]);

    for (int r = 2; r < 8; ++r) {
        shared_.WorkValue = NumberOf(grid.text(r, 0));
        EstimateAtPercent(shared_);
        RefuseOverflowedEstimate(shared_, grid.text(r, 0));
        grid.setText(r, 2, PlainText(shared_.WorkValue));
        // A limit of 0 is a limit that was not computed: the cell stays empty.
        grid.setText(r, 3, shared_.LowerLimit == 0 ? "" : PlainText(shared_.LowerLimit));
        grid.setText(r, 4, shared_.UpperLimit == 0 ? "" : PlainText(shared_.UpperLimit));
        grid.setRowHeight(r, 400);
    }
    shared_.Dose99Percent = shared_.WorkValue;

    queries_.setEstimateCaptions();

    TextTable& stats = tables_.Grid22;
    if (stats.rows() < 6)
        stats.setRows(6);
    if (stats.cols() < 3)
        stats.setCols(3);
    stats.setText(0, 0, "Slope");
    stats.setPicture(1, 0, kChiSquarePicture);
    stats.setText(2, 0, "p");
    stats.setText(3, 0, "h");
    stats.setText(4, 0, "g");
    stats.setText(5, 0, "r");
    stats.setColumnWidth(0, 700);
    stats.setColumnWidth(1, 1400);
    stats.setColumnWidth(2, 1500);
    stats.setColumnAlignment(1, kLeftCentre);
    stats.setColumnAlignment(2, kLeftCentre);

    shared_.WorkValue = 1;
    EstimateAtPercent(shared_);
    RefuseOverflowedEstimate(shared_, "1");
    shared_.Dose1Percent = shared_.WorkValue;
}

void LineResults::fitColumns(TextTable& grid, int margin01, int margin) {
    for (int c = 0; c < grid.cols(); ++c) {
        const int extra = c <= 1 ? margin01 : margin;
        double width = 100;
        for (int r = 0; r < grid.rows(); ++r) {
            const double wanted = measurer_.textWidth(grid.text(r, c)) + extra;
            if (wanted > width)
                width = std::nearbyint(wanted);
        }
        grid.setColumnWidth(c, static_cast<int>(width));
    }
}

void LineResults::FitDataColumns() {
    fitColumns(tables_.Grid1, 325, 325);
}

void LineResults::FitEstimateColumns() {
    fitColumns(tables_.Grid2, 300, 600);
}

void LineResults::Activate() {
    const std::string& estimate = shared_.EstimateWord;
    captions_.Label15 = "From " + estimate;
    captions_.Label16 = "to " + estimate;
    captions_.Label17 = estimate;
    captions_.Check3 = estimate + " value";
    captions_.Text7 = shared_.DoseWord + "  (" + shared_.UnitWord + ")";
    queries_.setUnitCaption();
}

const std::string& LineResults::ComposeResultsText() {
    resultsText_.clear();
    resultsText_ = morvane::ComposeResultsText(tables_, headingSingle_);
    return resultsText_;
}

ResultsCloseAction LineResults::Unload(bool saveEnabled) {
    const bool back = BackRequested != 0;
    BackRequested = 0;
    if (back)
        return ResultsCloseAction::BackToInput;
    return saveEnabled ? ResultsCloseAction::LeaveWithSaveQuestion : ResultsCloseAction::EndProgram;
}

}  // namespace morvane
