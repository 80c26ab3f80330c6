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

// The comparison stops here; BatchMessage holds the text to tell.
struct BatchStopped {};

void FailWith(SharedRegisters& shared, std::string message) {
    shared.BatchMessage = std::move(message);
    shared.BatchFailed = 1;
    throw BatchStopped{};
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
    grid1.setText(row, 2, estimate);
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

BatchOutcome RunComparison(Rtvin& rtvin, SharedRegisters& shared, LineCalculator& calculator,
                           UserPort& port, const BatchHooks& hooks) {
    rtvin.enabled = false;
    rtvin.panelVisible = true;
    Rtvout& out = rtvin.LoadRtvout();
    auto endPanel = [&rtvin] {
        rtvin.panelVisible = false;
        rtvin.enabled = true;
    };

    rtvin.CheckLineLimits(port);
    if (rtvin.LimitsInvalid) {
        rtvin.LimitsInvalid = false;
        rtvin.UnloadRtvout();
        endPanel();
        rtvin.focus = RtvinFocus::Text4;
        return BatchOutcome::LimitsInvalid;
    }

    SetUpResultColumns(rtvin, out);
    shared.BatchFailed = 0;
    std::string lastUnits;
    bool unitsDiffer = false;
    std::string oddAbbreviations;
    const int lines = rtvin.Grid1.rows() - 1;

    try {
        for (int i = 1; i <= lines; ++i) {
            // Each grid keeps one spare row at its end.
            out.Grid1.addRow();
            out.Grid2.addRow();
            const int row = out.Grid1.rows() - 2;
            out.Grid1.setCurrent(row, 1);
            out.Grid2.setCurrent(row, 1);

            // Blank rows are not skipped: their empty path fails to open.
            rtvin.Grid1.setCurrent(i, 1);
            const std::string name = rtvin.Grid1.text(i, 1);
            shared.BatchName = name;
            out.Grid1.setText(row, 1, name);
            if (hooks.progress) {
                const double share = static_cast<double>(i) / lines * 100;
                hooks.progress(BatchProgress{i, lines, name,
                                             static_cast<int>(std::nearbyint(share)),
                                             "Opening and calculating " + name});
            }
            if (hooks.cancelled && hooks.cancelled()) {
                rtvin.UnloadRtvout();
                endPanel();
                return BatchOutcome::Cancelled;
            }

            try {
                calculator.OpenLineForBatch(rtvin.Grid1.text(i, 2), shared);
                if (shared.BatchFailed)
                    throw BatchStopped{};
                calculator.CalculateFile(shared, port);
                if (shared.BatchFailed)
                    throw BatchStopped{};

                if (shared.EstimateWord != rtvin.Combo1.text)
                    oddAbbreviations += name + ", ";
                // Files without units are neutral: the comparison is with the last
                // file that had any.
                if (!shared.UnitWord.empty() && !lastUnits.empty() && shared.UnitWord != lastUnits)
                    unitsDiffer = true;
                if (!shared.UnitWord.empty())
                    lastUnits = shared.UnitWord;

                CopyLineResults(rtvin, out, row, shared);
            } catch (const Fault& fault) {
                FailWith(shared, "Can't calculate " + name + ":\n" + fault.what());
            } catch (const std::out_of_range& error) {
                FailWith(shared, "Can't calculate " + name + ":\n" + error.what());
            }
        }

        // Pens go by position in the table order, before the sort.
        LinePens pens = AssignLinePens(lines, out.Grid1.rows());
        out.LineColors = std::move(pens.colors);
        out.LineStyles = std::move(pens.styles);

        out.Grid1.setRows(out.Grid1.rows() - 1);
        out.Grid2.setRows(out.Grid2.rows() - 1);

        try {
            SortLines(out);
            for (int row = 1; row < out.Grid1.rows(); ++row)
                out.Grid1.setText(row, 2, PlainText(NumberOrZero(out.Grid1.text(row, 2))));
            BringToCommonScale(rtvin, out, shared);
            FindChartRange(out);
            for (int row = 1; row < out.Grid1.rows(); ++row)
                out.Grid1.setText(row, 0, std::to_string(row));
            // This order fixes the order of the texts in Label1.
            if (rtvin.Check1.checked)
                MarkOverlaps(out);
            if (rtvin.Check4.checked)
                FillToxicityIndex(rtvin, out, shared);
            if (rtvin.Check5.checked)
                FillResistanceRatio(rtvin, out, shared);
        } catch (const Fault& fault) {
            FailWith(shared, CalculationFaultMessage(fault.what()));
        } catch (const std::out_of_range& error) {
            FailWith(shared, CalculationFaultMessage(error.what()));
        }
    } catch (const BatchStopped&) {
        port.tell(shared.BatchMessage);
        rtvin.UnloadRtvout();
        endPanel();
        return BatchOutcome::Failed;
    }

    endPanel();
    if (hooks.showResults)
        hooks.showResults();
    if (unitsDiffer)
        port.tell(UnitsDifferWarning());
    if (!oddAbbreviations.empty())
        port.tell(OddAbbreviationsWarning(oddAbbreviations, rtvin.Combo1.text));
    return BatchOutcome::Shown;
}

}  // namespace morvane
