#pragma once
// The chart as a picture to leave the program: drawn afresh at one and a half times
// its size on the screen, in black on white, for the chart's bitmap file and the
// clipboard. It reads what the screen chart has already worked out (the label
// captions and places, the scale, the hidden coordinate tables), so the chart must
// have been redrawn at the screen's size before.
//
// The picture's frame is eight boxes inside each other around the plot; the dose
// labels stand under it, the percents to its left and the probits to its right; the
// titles of the two vertical axes are turned to read upward. All values are twips.

#include <string>

#include "core/Drawing.h"
#include "core/SharedRegisters.h"
#include "results/Chart.h"
#include "results/ChartLayout.h"
#include "results/TextMeasurer.h"

namespace morvane {

// Scale of the picture against the screen chart, and the margins of the plot in it.
inline constexpr double kPictureScale = 1.5;
inline constexpr double kPictureLeft = 1000;
inline constexpr double kPictureTop = 200;

// The canvas font: the measurer must measure in the same face and size.
inline constexpr double kPictureFontPoints = 8;

// The titles of the percent and probit axes, as the screen shows them.
inline constexpr const char* kPercentAxisTitle = "Response percentage";
inline constexpr const char* kProbitAxisTitle = "Probit";

// Draws the picture of the chart. The layout gives the sizes on the screen of the
// frame (PictureFig), the plot (Picture1) and the two axis titles; doseAxisTitle is
// the text of Text7. Marks read their probit through the shared probit tables and
// format their dose through the shared registers, as the screen chart does.
Drawing ComposeChartPicture(const LogProbitChart& chart, const ChartLayout& layout,
                            const std::string& doseAxisTitle, SharedRegisters& shared,
                            const TextMeasurer& measurer);

}  // namespace morvane
