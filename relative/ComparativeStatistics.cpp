#include "relative/ComparativeStatistics.h"

#include <cmath>
#include <vector>

#include "core/DoseEstimates.h"
#include "core/Fault.h"
#include "core/NumberText.h"
#include "relative/OverlapSearch.h"

namespace morvane {
namespace {

constexpr int kCentred = 4;

int AddColumn(TextTable& grid, const std::string& header) {
    const int col = grid.cols();
    grid.setCols(col + 1);
    grid.setText(0, col, header);
    grid.setColumnAlignment(col, kCentred);
    return col;
}

struct Reference {
    double value = 0;
    std::string name;
};

// The reference line of a ratio: "1st one" is the first row after sorting, "Last
// one" the row numbered as the last row of the table of lines, and a name the last
// row of that name (the search does not stop at a match).
Reference FindReference(const ListControl& combo, const Rtvin& rtvin, const Rtvout& rtvout) {
    const TextTable& grid = rtvout.Grid1;
    auto take = [&](int row) {
        return Reference{NumberOrZero(grid.text(row, resultcol::Estimate)),
                         grid.text(row, resultcol::LineName)};
    };
    if (combo.listIndex == 0)
        return take(1);
    if (combo.listIndex == combo.lastIndex())
        return take(rtvin.Grid1.rows() - 1);
    Reference found;
    const std::string& wanted = combo.selectedText();
    for (int row = 1; row < grid.rows(); ++row)
        if (grid.text(row, resultcol::LineName) == wanted)
            found = take(row);
    return found;
}

void WriteFormatted(TextTable& grid, int row, int col, double value, SharedRegisters& shared) {
    shared.WorkValue = value;
    FormatTwoLevels(shared);
    grid.setText(row, col, shared.WorkText);
}

}  // namespace

void SetUpResultColumns(const Rtvin& rtvin, Rtvout& rtvout) {
    TextTable& grid = rtvout.Grid1;
    ResultColumns& columns = rtvout.columns;
    columns = ResultColumns{};
    grid.setCols(resultcol::Fixed);
    grid.setText(0, resultcol::Estimate, rtvin.Combo1.text + rtvin.Text1.text);
    // Each column is added after the last one, in the order of the options.
    if (rtvin.Check3.checked) {
        columns.LowerColumn = AddColumn(grid, "Lower limit");
        columns.UpperColumn = AddColumn(grid, "Upper limit");
    }
    if (rtvin.Check1.checked) {
        const int lines = rtvin.Grid1.rows() - 1;
        columns.PairColumns.assign(static_cast<std::size_t>(lines) + 1, 0);
        for (int i = 1; i <= lines; ++i) {
            const int col = AddColumn(grid, std::to_string(i));
            grid.setColumnWidth(col, 300);
            columns.PairColumns[static_cast<std::size_t>(i)] = col;
        }
    }
    if (rtvin.Check4.checked)
        columns.IndexColumn = AddColumn(grid, "Index");
    if (rtvin.Check5.checked)
        columns.RatioColumn = AddColumn(grid, "RR");
    if (rtvin.Check2.checked)
        columns.SlopeColumn = AddColumn(grid, "Slope");
    if (rtvin.Check7.checked)
        columns.SlopeErrorColumn = AddColumn(grid, "Slope +/-");
    const auto& items = rtvin.List1.items;
    columns.AddedColumns.assign(items.size() + 1, 0);
    for (std::size_t k = 0; k < items.size(); ++k)
        columns.AddedColumns[k + 1] = AddColumn(grid, rtvin.Combo1.text + items[k]);
    columns.SortKeyColumn = AddColumn(grid, "");
    grid.setColumnWidth(columns.SortKeyColumn, 0);
}

void SortLines(Rtvout& rtvout) {
    TextTable& grid1 = rtvout.Grid1;
    TextTable& grid2 = rtvout.Grid2;
    const int key = rtvout.columns.SortKeyColumn;
    const int last = grid1.rows() - 1;
    for (int row = 1; row <= last; ++row) {
        const double estimate = NumberOrZero(grid1.text(row, resultcol::Estimate));
        // The hundredth root squeezes every dose that can occur into a band around 1,
        // so that the key has one digit before the point.
        std::string text = FormatNumber(std::pow(estimate, 0.01), "0.000000000000");
        grid2.setText(row, grid2col::SortKey, text);
        grid1.setText(row, key, std::move(text));
    }
    grid1.sortByColumn(key, 1, last);
    grid2.sortByColumn(grid2col::SortKey, 1, last);
}

void MarkOverlaps(Rtvout& rtvout) {
    TextTable& grid = rtvout.Grid1;
    const ResultColumns& columns = rtvout.columns;
    const int lines = grid.rows() - 1;
    // The limits as they stand in the table, read once: the cells don't change here.
    std::vector<LineLimits> limits(static_cast<std::size_t>(lines) + 1);
    for (int row = 1; row <= lines; ++row) {
        const std::string& lower = grid.text(row, columns.LowerColumn);
        const std::string& upper = grid.text(row, columns.UpperColumn);
        limits[static_cast<std::size_t>(row)] =
            LineLimits{lower.empty(), upper.empty(), NumberOrZero(lower), NumberOrZero(upper)};
    }
    const OverlapSearch search(limits);
    std::vector<int> marked;
    for (int i = 1; i <= lines; ++i) {
        const LineLimits& own = limits[static_cast<std::size_t>(i)];
        if (own.upperEmpty)
            continue;
        const int col = columns.PairColumns.at(static_cast<std::size_t>(i));
        marked.clear();
        // The lines above: their upper limit against this line's lower one; this line
        // and those below: their lower limit against the upper one.
        search.UpperAtLeast(1, i - 1, own.lower, marked);
        search.LowerAtMost(i, lines, own.upper, marked);
        for (const int j : marked)
            grid.setText(j, col, "*");
    }
}

void FillToxicityIndex(const Rtvin& rtvin, Rtvout& rtvout, SharedRegisters& shared) {
    const Reference reference = FindReference(rtvin.Combo3, rtvin, rtvout);
    TextTable& grid = rtvout.Grid1;
    for (int row = 1; row < grid.rows(); ++row) {
        const double estimate = NumberOrZero(grid.text(row, resultcol::Estimate));
        if (estimate == 0)
            throw Fault("the line " + grid.text(row, resultcol::LineName) +
                        " has an estimate of 0, so its toxicity index divides by zero");
        WriteFormatted(grid, row, rtvout.columns.IndexColumn, reference.value / estimate * 100,
                       shared);
    }
    rtvout.Label1 += " Index compared with " + reference.name;
}

void FillResistanceRatio(const Rtvin& rtvin, Rtvout& rtvout, SharedRegisters& shared) {
    const Reference reference = FindReference(rtvin.Combo4, rtvin, rtvout);
    TextTable& grid = rtvout.Grid1;
    if (reference.value == 0)
        throw Fault("the reference line " + reference.name +
                    " has an estimate of 0, so the resistance ratio divides by zero");
    for (int row = 1; row < grid.rows(); ++row) {
        const double estimate = NumberOrZero(grid.text(row, resultcol::Estimate));
        WriteFormatted(grid, row, rtvout.columns.RatioColumn, estimate / reference.value, shared);
    }
    if (!rtvout.Label1.empty())
        rtvout.Label1 += "      ";
    rtvout.Label1 += " Resistance Ratio (RR) compared with " + reference.name;
}

}  // namespace morvane
