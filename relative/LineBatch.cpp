#include "relative/LineBatch.h"

#include <cmath>
#include <stdexcept>

#include "core/DoseEstimates.h"
#include "core/Fault.h"
#include "core/LineCalculation.h"
#include "core/NumberText.h"
#include "relative/CommonScale.h"
#include "relative/ComparativeStatistics.h"
#include "relative/LineEstimates.h"
#include "relative/LinePens.h"

namespace morvane {
namespace {

// A fault ends the comparison: BatchMessage holds the text to tell.
void Fail(SharedRegisters& shared, std::string message) {
    shared.BatchMessage = std::move(message);
    shared.BatchFailed = 1;
}

// What the comparison notes of the words of its lines, told after the results.
struct LineWords {
    std::string lastUnits;
    bool unitsDiffer = false;
    std::string oddAbbreviations;
};

void NoteWords(const SharedRegisters& shared, const Rtvin& rtvin, const std::string& name,
               LineWords& words) {
    if (shared.EstimateWord != rtvin.Combo1.text)
        words.oddAbbreviations += name + ", ";
    // Files without units are neutral: the comparison is with the last file that had
    // any.
    const std::string& units = shared.UnitWord;
    if (!units.empty() && !words.lastUnits.empty() && units != words.lastUnits)
        words.unitsDiffer = true;
    if (!units.empty())
        words.lastUnits = units;
}

void ReportProgress(const BatchHooks& hooks, int line, int lines, const std::string& name) {
    if (!hooks.progress)
        return;
    const double share = static_cast<double>(line) / lines * 100;
    hooks.progress(BatchProgress{line, lines, name, static_cast<int>(std::nearbyint(share)),
                                 "Opening and calculating " + name});
}

// The estimate at a percentage of the line just calculated, as its cell text.
const std::string& EstimateText(double percent, SharedRegisters& shared) {
    shared.WorkValue = percent;
    LineEstimateAtPercent(shared, false);
    return shared.WorkText;
}

// What the comparison keeps of the line in row `row`, copied out of the shared
// registers before the next file overwrites them.
void CopyLineResults(Rtvin& rtvin, Rtvout& out, int row, SharedRegisters& shared) {
    TextTable& grid1 = out.Grid1;
    TextTable& grid2 = out.Grid2;
    const ResultColumns& columns = out.columns;
    const FitResult& fit = shared.fit;

    const std::string& estimate = EstimateText(NumberOf(rtvin.Text1.text), shared);
    grid1.setText(row, resultcol::Estimate, estimate);
    grid2.setText(row, grid2col::Estimate, estimate);

    // A line with g of 0.4 or more keeps both limit cells empty.
    if (rtvin.Check3.checked && fit.GValue < 0.4) {
        LineFiducialLimits(shared);
        // No lower limit reads as an empty cell, no upper limit as "0": the
        // difference is kept, and the test of differences depends on it.
        grid1.setText(row, columns.LowerColumn,
                      shared.LowerLimit == 0 ? std::string() : PlainText(shared.LowerLimit));
        grid1.setText(row, columns.UpperColumn, PlainText(shared.UpperLimit));
    }
    if (rtvin.Check2.checked) {
        shared.WorkValue = fit.Slope;
        FormatTwoLevels(shared);
        grid1.setText(row, columns.SlopeColumn, shared.WorkText);
    }
    if (rtvin.Check7.checked) {
        shared.WorkValue = fit.SlopeError;
        FormatTwoLevels(shared);
        grid1.setText(row, columns.SlopeErrorColumn, shared.WorkText);
    }
    for (int k = 1; k <= static_cast<int>(rtvin.List1.items.size()); ++k) {
        rtvin.List1Click(k - 1);
        const double percent = NumberOf(rtvin.List1.items[static_cast<std::size_t>(k - 1)]);
        grid1.setText(row, columns.AddedColumns.at(static_cast<std::size_t>(k)),
                      EstimateText(percent, shared));
    }

    // The log doses of the drawn ends and of the sorted percentage, on the line's
    // own scale.
    rtvin.LogOnly = true;
    const std::pair<const TextBox*, int> logs[] = {{&rtvin.Text4, grid2col::LogFrom},
                                                   {&rtvin.Text3, grid2col::LogTo},
                                                   {&rtvin.Text1, grid2col::LogSorted}};
    for (const auto& [field, col] : logs) {
        shared.WorkValue = NumberOf(field->text);
        LineEstimateAtPercent(shared, true);
        grid2.setText(row, col, PlainText(shared.WorkValue));
    }
    rtvin.LogOnly = false;
    grid2.setText(row, grid2col::DoseScale, std::to_string(fit.DoseScale));
}

}  // namespace

std::string UnitsDifferWarning() {
    return "units in your files are not similar, that may mean illogic comparison";
}

std::string OddAbbreviationsWarning(const std::string& names, const std::string& abbreviation) {
    return "The abbreviation of the file(s)\n" + names +
           "\nis not the same as your suggested abbreviation " + abbreviation;
}

namespace {

// The things RunComparison works with, so that its steps need not pass them one by one.
struct Batch {
    Rtvin& rtvin;
    Rtvout& out;
    SharedRegisters& shared;
    LineCalculator& calculator;
    UserPort& port;
    const BatchHooks& hooks;
    LineWords words;
};

enum class LineStep { Added, Failed, Cancelled };

// Opens and calculates line `i` of the table of lines and copies its figures into a
// new row of the results. Failed: BatchMessage says why. Cancelled: the user ended the
// batch when its progress was shown, before this line was read.
LineStep AddLine(Batch& batch, int i, int lines) {
    Rtvout& out = batch.out;
    SharedRegisters& shared = batch.shared;
    // Each grid keeps one spare row at its end.
    out.Grid1.addRow();
    out.Grid2.addRow();
    const int row = out.Grid1.rows() - 2;
    out.Grid1.setCurrent(row, resultcol::LineName);
    out.Grid2.setCurrent(row, grid2col::Estimate);

    // Blank rows are not skipped: their empty path fails to open.
    TextTable& table = batch.rtvin.Grid1;
    table.setCurrent(i, linecol::Name);
    const std::string name = table.text(i, linecol::Name);
    shared.BatchName = name;
    out.Grid1.setText(row, resultcol::LineName, name);
    ReportProgress(batch.hooks, i, lines, name);
    if (batch.hooks.cancelled && batch.hooks.cancelled())
        return LineStep::Cancelled;

    try {
        batch.calculator.OpenLineForBatch(table.text(i, linecol::Path), shared);
        if (shared.BatchFailed)
            return LineStep::Failed;
        batch.calculator.CalculateFile(shared, batch.port);
        if (shared.BatchFailed)
            return LineStep::Failed;
        NoteWords(shared, batch.rtvin, name, batch.words);
        CopyLineResults(batch.rtvin, out, row, shared);
        return LineStep::Added;
    } catch (const Fault& fault) {
        Fail(shared, "Can't calculate " + name + ":\n" + fault.what());
    } catch (const std::out_of_range& error) {
        Fail(shared, "Can't calculate " + name + ":\n" + error.what());
    }
    return LineStep::Failed;
}

// Once every line stands in the results: the pens, the sort, the common dose scale
// and the drawn range, the ranks, then the comparisons the options ask for. False
// on a fault; BatchMessage says what it was.
bool CompareLines(Batch& batch, int lines) {
    Rtvin& rtvin = batch.rtvin;
    Rtvout& out = batch.out;
    SharedRegisters& shared = batch.shared;
    // Pens go by position in the table order, before the sort.
    LinePens pens = AssignLinePens(lines, out.Grid1.rows());
    out.LineColors = std::move(pens.colors);
    out.LineStyles = std::move(pens.styles);

    out.Grid1.setRows(out.Grid1.rows() - 1);
    out.Grid2.setRows(out.Grid2.rows() - 1);

    try {
        SortLines(out);
        for (int row = 1; row < out.Grid1.rows(); ++row) {
            const double estimate = NumberOrZero(out.Grid1.text(row, resultcol::Estimate));
            out.Grid1.setText(row, resultcol::Estimate, PlainText(estimate));
        }
        BringToCommonScale(rtvin, out, shared);
        FindChartRange(out);
        for (int row = 1; row < out.Grid1.rows(); ++row)
            out.Grid1.setText(row, resultcol::Number, std::to_string(row));
        // This order fixes the order of the texts in Label1.
        if (rtvin.Check1.checked)
            MarkOverlaps(out);
        if (rtvin.Check4.checked)
            FillToxicityIndex(rtvin, out, shared);
        if (rtvin.Check5.checked)
            FillResistanceRatio(rtvin, out, shared);
        return true;
    } catch (const Fault& fault) {
        Fail(shared, CalculationFaultMessage(fault.what()));
    } catch (const std::out_of_range& error) {
        Fail(shared, CalculationFaultMessage(error.what()));
    }
    return false;
}

void EndPanel(Rtvin& rtvin) {
    rtvin.panelVisible = false;
    rtvin.enabled = true;
}

}  // namespace

BatchOutcome RunComparison(Rtvin& rtvin, SharedRegisters& shared, LineCalculator& calculator,
                           UserPort& port, const BatchHooks& hooks) {
    rtvin.enabled = false;
    rtvin.panelVisible = true;
    Rtvout& out = rtvin.LoadRtvout();

    rtvin.CheckLineLimits(port);
    if (rtvin.LimitsInvalid) {
        rtvin.LimitsInvalid = false;
        rtvin.UnloadRtvout();
        EndPanel(rtvin);
        rtvin.focus = RtvinFocus::Text4;
        return BatchOutcome::LimitsInvalid;
    }

    SetUpResultColumns(rtvin, out);
    shared.BatchFailed = 0;
    Batch batch{rtvin, out, shared, calculator, port, hooks, {}};
    const int lines = rtvin.Grid1.rows() - 1;
    LineStep step = LineStep::Added;
    for (int i = 1; i <= lines && step == LineStep::Added; ++i)
        step = AddLine(batch, i, lines);
    if (step == LineStep::Cancelled) {
        rtvin.UnloadRtvout();
        EndPanel(rtvin);
        return BatchOutcome::Cancelled;
    }
    if (step == LineStep::Failed || !CompareLines(batch, lines)) {
        port.tell(shared.BatchMessage);
        rtvin.UnloadRtvout();
        EndPanel(rtvin);
        return BatchOutcome::Failed;
    }

    EndPanel(rtvin);
    if (hooks.showResults)
        hooks.showResults();
    if (batch.words.unitsDiffer)
        port.tell(UnitsDifferWarning());
    if (!batch.words.oddAbbreviations.empty())
        port.tell(OddAbbreviationsWarning(batch.words.oddAbbreviations, rtvin.Combo1.text));
    return BatchOutcome::Shown;
}

}  // namespace morvane
