#pragma once
// The tables of the results window of one line, as the calculation leaves them and
// the results module formats them, and the names of their rows and columns. Row 0 of
// each table holds the headings. Every later step reads numbers back from the cell
// texts.

#include <string>

#include "core/TextTable.h"

namespace morvane {

// Columns of Grid1, the data table; rows 1..N one dose each.
namespace datacol {
inline constexpr int Dose = 0;            // the dose as typed
inline constexpr int ScaledDose = 1;      // dose * DoseScale, plain text
inline constexpr int LogDose = 2;         // log10 of the scaled dose, to four decimals
inline constexpr int Treated = 3;         // the number treated
inline constexpr int Observed = 4;        // the corrected response percent
inline constexpr int LinearResponse = 5;  // the expected percent, or "out of scale"
inline constexpr int LinearProbit = 6;    // the expected probit, to four decimals
inline constexpr int Count = 7;
}  // namespace datacol

// Rows of Grid22, the statistics of the fit: one statistic a row, no heading row.
namespace statrow {
inline constexpr int Slope = 0;
inline constexpr int ChiSquare = 1;  // its name cell shows the chi-square symbol
inline constexpr int P = 2;
inline constexpr int H = 3;
inline constexpr int G = 4;
inline constexpr int R = 5;
inline constexpr int Count = 6;
}  // namespace statrow

// Columns of Grid22.
namespace statcol {
inline constexpr int Name = 0;       // "Slope", "p", "h", ...
inline constexpr int Value = 1;      // the statistic
inline constexpr int Tabulated = 2;  // the slope's error, or "tabulated  " and the table's value
inline constexpr int Count = 3;
}  // namespace statcol

// Columns of Grid2, the estimates: row 1 holds the units, rows from
// estimaterow::First one percent each (the standard six, then those the user adds).
namespace estimatecol {
inline constexpr int Percent = 0;
inline constexpr int Gap = 1;  // a narrow empty column
inline constexpr int Dose = 2;
inline constexpr int Lower = 3;  // the fiducial limits; empty when not computed
inline constexpr int Upper = 4;
inline constexpr int Count = 5;
}  // namespace estimatecol

namespace estimaterow {
inline constexpr int Units = 1;
inline constexpr int First = 2;
}  // namespace estimaterow

// The tables of the results window: Grid1 the data table, Grid22 the statistics,
// Grid2 the estimates, which the results module builds; Text8 the notice under
// Grid22.
struct ResultsTables {
    TextTable Grid1;
    TextTable Grid22{statrow::Count, statcol::Count};
    TextTable Grid2;
    std::string Text8;
    std::string Grid2ToolTip;
    std::string Caption;
};

}  // namespace morvane
