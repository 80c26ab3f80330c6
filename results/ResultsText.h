#pragma once
// The results of one line as one tab-separated text: what "Copy tables" puts on the
// clipboard, what "Save results into files" writes into its .xls file, and what
// morvane-cli report prints. It is a golden format: spreadsheets open it, and
// scripts read it, so its tabs and line ends are kept exactly.

#include <array>
#include <string>

#include "core/LineCalculation.h"

namespace morvane {

// The headings of the columns of Grid1, ten places of which seven are used.
using ColumnHeadings = std::array<std::string, 10>;

// The three tables in this order, lines ended by a line feed alone:
// - Grid1 under its one-line headings, columns joined by tabs;
// - two empty lines, then Grid22 with a tab after every cell, the last one too; its
//   chi-square cell, which holds only a picture, reads "Chi";
// - three line ends, then Grid2 from row 0 with a tab before every cell but the
//   first: the spacer column (estimatecol::Gap) holds no text, so a row reads percent, tab, dose,
//   tab, lower limit, tab, upper limit, tab.
// The rows a user added to Grid2 come along. No line end at the very end.
std::string ComposeResultsText(const ResultsTables& tables, const ColumnHeadings& headingSingle);

}  // namespace morvane
