#pragma once
// The tabulated values that the fit needs: Student's t (two-tailed, at 0.10, 0.05
// and 0.01), the 5% critical values of chi-square, and the 5% critical values of the
// correlation coefficient. The values are the stored ones, coarse rounding and all;
// several differ in the last digit from exact quantiles and must stay as they are.

#include <string>
#include <string_view>

#include "core/TextTable.h"

namespace morvane {

// The t grid: 122 rows, row 0 the headings "d f", "0.1", "0.05", "0.01"; a row's
// number is its degrees of freedom, row 121 stands for infinity; only tabulated rows
// hold values, the other cells are empty.
const TextTable& TGrid();

// The t lookup: the text of the cell for the degrees of freedom written as text and
// the level index (0 "0.10", 1 "0.05", 2 "0.01"). Untabulated degrees of freedom
// take the next lower tabulated row; 121 or more take the row of infinity. An empty
// text gives an empty result.
std::string TValueText(std::string_view degreesOfFreedomText, int levelIndex);

// The 5% critical value of chi-square for the degrees of freedom, as text: 1..30
// their own row, more than 30 the row of 30. Fewer than 1 is a fault.
std::string TabulatedChiSquare(int degreesOfFreedom);

// 5% critical value of r for 1..30 degrees of freedom (21 to 29 interpolated
// between 20, 25 and 30, as stored).
double CriticalR(int degreesOfFreedom);

}  // namespace morvane
