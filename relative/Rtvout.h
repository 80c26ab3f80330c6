#pragma once
// The relative results window (Rtvout) as logic: the results table of a comparison,
// the hidden store that feeds the multi-line chart, the caption that names the
// references, the user's note, and the pens of the lines.
//
// The window computes nothing itself; the comparison (LineBatch.h) fills its cells
// before it is shown. As with every grid of Morvane the cell text is the data: the
// statistics read the estimates back from the cells, rounded as they were written.
//
// A results window is made anew for each comparison and dropped on the way back to
// the table of lines (Rtvin::UnloadRtvout), so pens changed by the user survive
// redraws but not a new comparison.

#include <cstdint>
#include <string>
#include <vector>

#include "core/TextTable.h"
#include "relative/FormControls.h"
#include "results/TextMeasurer.h"

namespace morvane {

// The fixed columns of the results table Grid1; the columns after them are laid out
// by SetUpResultColumns, as the options ask.
namespace resultcol {
inline constexpr int Number = 0;    // "No", the rank after the sort
inline constexpr int LineName = 1;  // "Line name"
inline constexpr int Estimate = 2;  // the estimate at the sorted percentage
inline constexpr int Fixed = 3;     // the number of fixed columns
}  // namespace resultcol

// Column numbers of the results table, set by SetUpResultColumns. A number of 0
// means the column was not laid out. PairColumns and AddedColumns are indexed from 1
// (line i, item k of the further percentages); entry 0 is unused.
struct ResultColumns {
    int LowerColumn = 0;
    int UpperColumn = 0;
    std::vector<int> PairColumns;
    int IndexColumn = 0;
    int RatioColumn = 0;
    int SlopeColumn = 0;
    int SlopeErrorColumn = 0;
    std::vector<int> AddedColumns;
    int SortKeyColumn = 0;
};

// The columns of the hidden store Grid2: row 0 holds the probits of the drawn
// percentages, rows 1 on one line each, log doses as the plain text of the double.
namespace grid2col {
inline constexpr int Estimate = 1;      // the estimate text, as in Grid1
inline constexpr int LogFrom = 2;       // log dose at "From", the line's own scale
inline constexpr int LogTo = 3;         // log dose at "To", the line's own scale
inline constexpr int DoseScale = 4;     // the line's dose factor
inline constexpr int CommonFrom = 5;    // row 0: probit of "From"; then on the common scale
inline constexpr int CommonTo = 6;      // row 0: probit of "To"; then on the common scale
inline constexpr int LogSorted = 8;     // log dose at the sorted percentage
inline constexpr int CommonSorted = 9;  // row 0: its probit; then on the common scale
inline constexpr int SortKey = 10;      // the sort key, as in Grid1
inline constexpr int Count = 11;
}  // namespace grid2col

class Rtvout {
  public:
    // The form's load: Grid1 with the headers "No" and "Line name" and one spare row,
    // Grid2 empty with its spare row.
    Rtvout();

    TextTable Grid1;  // the results table; its last column is the hidden sort key
    TextTable Grid2;  // the store of the chart
    ResultColumns columns;

    std::string Label1;  // names the references of the index and the RR
    std::string Text3;   // the user's note under the table, carried into exports

    // "Display" boxes of the chart; their captions follow the abbreviation and the
    // sorted percentage of the table of lines.
    CheckBox Check1{false, true, "LD50"};
    CheckBox Check2{false, false, "LD50 values"};

    // Pens of the lines by row number (entry 0 unused): colours as 0xRRGGBB, pen
    // styles 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot.
    std::vector<std::uint32_t> LineColors;
    std::vector<std::int16_t> LineStyles;

    // The drawn range of log doses on the common scale; ChartLogMax is a whole number.
    double ChartLogMin = 0;
    double ChartLogMax = 0;

    // Set by "back to Input tabls", so that closing returns to the table of lines
    // instead of ending the program.
    bool BackRequestedRelative = false;
};

// "Auto resize columns width": each column but the hidden key gets the widest of its
// texts, header included, plus 180 twips, rounded, and at least 100; the key column
// stays 0. Widths in twips in the window's font.
void SizeResultColumns(Rtvout& rtvout, const TextMeasurer& measurer);

}  // namespace morvane
