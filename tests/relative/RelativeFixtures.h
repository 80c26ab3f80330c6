#pragma once
// Helpers of the comparison tests: a table of lines filled through the add dialog,
// and a results table laid out for its options with hand-written rows.

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "relative/ComparativeStatistics.h"
#include "relative/Rtvin.h"
#include "relative/Rtvout.h"
#include "support/ScriptedUserPort.h"

namespace morvane::testing {

// Adds the files one dialog after the other, then cancels.
inline void AddFiles(Rtvin& rtvin, ScriptedUserPort& port, const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        port.openAnswers.push_back(path);
    port.openAnswers.push_back(std::nullopt);
    rtvin.Command1Click(port);
}

// A table of lines whose files are named "<name>.mrv".
inline void AddLines(Rtvin& rtvin, const std::vector<std::string>& names) {
    ScriptedUserPort port;
    std::vector<std::string> paths;
    for (const std::string& name : names)
        paths.push_back("/lines/" + name + ".mrv");
    AddFiles(rtvin, port, paths);
}

// One line of a results table as the cells hold it.
struct ResultRow {
    std::string name;
    std::string estimate;
    std::string lower;
    std::string upper;
};

// The results table laid out for the options of `rtvin`, with the rows written in
// the order given (as they stand after the sort).
inline void FillRows(const Rtvin& rtvin, Rtvout& rtvout, const std::vector<ResultRow>& rows) {
    SetUpResultColumns(rtvin, rtvout);
    TextTable& grid = rtvout.Grid1;
    grid.setRows(static_cast<int>(rows.size()) + 1);
    rtvout.Grid2.setRows(static_cast<int>(rows.size()) + 1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int row = static_cast<int>(i) + 1;
        grid.setText(row, resultcol::Number, std::to_string(row));
        grid.setText(row, resultcol::LineName, rows[i].name);
        grid.setText(row, resultcol::Estimate, rows[i].estimate);
        if (rtvout.columns.LowerColumn) {
            grid.setText(row, rtvout.columns.LowerColumn, rows[i].lower);
            grid.setText(row, rtvout.columns.UpperColumn, rows[i].upper);
        }
    }
}

// The texts of one column from row 1 down.
inline std::vector<std::string> Column(const TextTable& grid, int col) {
    std::vector<std::string> out;
    for (int row = 1; row < grid.rows(); ++row)
        out.push_back(grid.text(row, col));
    return out;
}

using Texts = std::vector<std::string>;

}  // namespace morvane::testing
