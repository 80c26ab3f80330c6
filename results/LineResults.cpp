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
constexpr int kEstimateRows = estimaterow::First + 6;

}  // namespace

LineResults::LineResults(SharedRegisters& shared, UserPort& port, const TextMeasurer& measurer)
    : shared_(shared), measurer_(measurer), queries_(shared, port, tables_.Grid2) {
    Load();
}

void LineResults::Load() {
    tables_.Grid1 = TextTable(2, datacol::Count);
    tables_.Grid22 = TextTable(statrow::Count, statcol::Count);
    tables_.Grid2 = TextTable(kEstimateRows, estimatecol::Count);
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
    if (grid.cols() < datacol::Count)
        grid.setCols(datacol::Count);
    if (grid.rows() < 1)
        grid.setRows(1);
    const int widths[datacol::Count] = {350,           800, 800,          kDefaultWidth,
                                        kDefaultWidth, 950, kDefaultWidth};
    for (int c = 0; c < datacol::Count; ++c) {
        grid.setColumnWidth(c, widths[c]);
        grid.setColumnAlignment(c, kLeftCentre);
    }
    for (int c = 0; c < grid.cols(); ++c)
        grid.setCellAlignment(0, c, kCentreTop);
    for (int r = 1; r < grid.rows(); ++r)
        grid.setCellAlignment(r, datacol::Dose, kLeftCentre);
    grid.setRowHeight(0, 500);

    const std::string& dose = shared_.DoseWord;
    const std::string scale = std::to_string(shared_.fit.DoseScale);
    grid.setText(0, datacol::Dose, dose);
    grid.setText(0, datacol::ScaledDose, dose + "\n*  " + scale);
    grid.setText(0, datacol::LogDose, "Log\n(" + dose + "*" + scale + ")");
    grid.setText(0, datacol::Treated, "Treated");
    grid.setText(0, datacol::Observed, "Observed\nresponse %");
    grid.setText(0, datacol::LinearResponse, "Linear\nresponse %");
    grid.setText(0, datacol::LinearProbit, "Linear\nprobit");

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
    grid = TextTable(kEstimateRows, estimatecol::Count);
    const int widths[estimatecol::Count] = {650, 100, 1400, 1400, kDefaultWidth};
    for (int c = 0; c < estimatecol::Count; ++c)
        grid.setColumnWidth(c, widths[c]);
    for (int c = estimatecol::Dose; c <= estimatecol::Upper; ++c) {
        grid.setColumnAlignment(c, kLeftCentre);
        grid.setText(estimaterow::Units, c, shared_.UnitWord);
    }
    grid.setText(0, estimatecol::Percent, shared_.EstimateWord);
    grid.setText(0, estimatecol::Dose, shared_.DoseWord);
    grid.setText(0, estimatecol::Lower, "Lower limit");
    grid.setText(0, estimatecol::Upper, "Upper limit");
    for (int i = 0; i < 6; ++i)
        grid.setText(estimaterow::First + i, estimatecol::Percent, kStandardPercents[i]);

    for (int r = estimaterow::First; r < kEstimateRows; ++r) {
        shared_.WorkValue = NumberOf(grid.text(r, estimatecol::Percent));
        EstimateAtPercent(shared_);
        RefuseOverflowedEstimate(shared_, grid.text(r, estimatecol::Percent));
        grid.setText(r, estimatecol::Dose, PlainText(shared_.WorkValue));
        // A limit of 0 is a limit that was not computed: the cell stays empty.
        grid.setText(r, estimatecol::Lower,
                     shared_.LowerLimit == 0 ? "" : PlainText(shared_.LowerLimit));
        grid.setText(r, estimatecol::Upper,
                     shared_.UpperLimit == 0 ? "" : PlainText(shared_.UpperLimit));
        grid.setRowHeight(r, 400);
    }
    shared_.Dose99Percent = shared_.WorkValue;

    queries_.setEstimateCaptions();

    TextTable& stats = tables_.Grid22;
    if (stats.rows() < statrow::Count)
        stats.setRows(statrow::Count);
    if (stats.cols() < statcol::Count)
        stats.setCols(statcol::Count);
    stats.setText(statrow::Slope, statcol::Name, "Slope");
    stats.setPicture(statrow::ChiSquare, statcol::Name, kChiSquarePicture);
    stats.setText(statrow::P, statcol::Name, "p");
    stats.setText(statrow::H, statcol::Name, "h");
    stats.setText(statrow::G, statcol::Name, "g");
    stats.setText(statrow::R, statcol::Name, "r");
    stats.setColumnWidth(statcol::Name, 700);
    stats.setColumnWidth(statcol::Value, 1400);
    stats.setColumnWidth(statcol::Tabulated, 1500);
    stats.setColumnAlignment(statcol::Value, kLeftCentre);
    stats.setColumnAlignment(statcol::Tabulated, kLeftCentre);

    shared_.WorkValue = 1;
    EstimateAtPercent(shared_);
    RefuseOverflowedEstimate(shared_, "1");
    shared_.Dose1Percent = shared_.WorkValue;
}

void LineResults::fitColumns(TextTable& grid, int lastNarrow, int narrowMargin, int margin) {
    for (int c = 0; c < grid.cols(); ++c) {
        const int extra = c <= lastNarrow ? narrowMargin : margin;
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
    fitColumns(tables_.Grid1, datacol::ScaledDose, 325, 325);
}

void LineResults::FitEstimateColumns() {
    fitColumns(tables_.Grid2, estimatecol::Gap, 300, 600);
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
