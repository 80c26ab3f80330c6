#pragma once
// The results of one line as a real workbook (.xlsx), beside the tab-separated text
// under .xls that the program has always written: a spreadsheet opens it without
// the warning that the extension and the content don't match. The sheet "Results"
// holds the results text cell for cell, the sheet "Data" the data table under its
// headings. A cell whose text is a number is written as that number, every other
// cell as text, and a number shows the digits of its text: "12.000" gets the number
// format "0.000", so the spreadsheet shows what the tables show. The creation time
// is fixed, so the same results give the same bytes.

#include <string>

#include "core/ResultsTables.h"
#include "results/ResultsText.h"

namespace morvane {

// The number format that shows a number with the digits of its text ("0.000",
// "0", "0.0E+00"); empty for a text of another shape.
std::string NumberFormatOf(const std::string& text);

// The bytes of the workbook. resultsText is the text of ComposeResultsText (or the
// table text of a comparison); a grid1 without rows gives no sheet "Data". Throws
// Fault when the workbook can't be made.
std::string ComposeResultsWorkbook(const std::string& resultsText, const TextTable& grid1,
                                   const ColumnHeadings& headingSingle);

}  // namespace morvane
