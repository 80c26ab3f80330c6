#pragma once
// The chart picture and the printed pages of a comparison, as drawings: the picture
// of the chart file and of "Copy graphic" (ComposeLineChartPicture), the table on
// paper (PrintLineTable, code 5 of the relative results) and the chart on paper
// (PrintLineChart, code 6). The chart is the multi-line chart as the screen last drew
// it: its plot, its axis labels and its legend, scaled and framed for the picture or
// the page. All values are twips.

#include <string>
#include <vector>

#include "core/Drawing.h"
#include "relative/MultiLineChart.h"
#include "relative/Rtvout.h"
#include "results/PrintLayout.h"

namespace morvane {

// The picture's scale against the screen's plot, its margins and its font.
inline constexpr double kLinePictureScale = 1.5;
inline constexpr double kLinePictureLeft = 1000;
inline constexpr double kLinePictureTop = 200;
inline constexpr double kLinePicturePoints = 12;

// The chart at one and a half times its plot on the screen, in black on white but for
// the lines' own pens, with the legend to the right of the plot. doseTitle is the
// text of the dose axis (Text2).
Drawing ComposeLineChartPicture(const MultiLineChart& chart, const std::string& doseTitle,
                                const FontMeasure& measure);

// The results table on pages of the given size, in groups of columns that fit; the
// caption of the references and the note follow the first group.
std::vector<Drawing> PrintLineTable(const Rtvout& rtvout, double pageWidth, double pageHeight,
                                    const FontMeasure& measure);

// The chart on one page of the given size, at a whole scale of the screen's plot.
Drawing PrintLineChart(const MultiLineChart& chart, const std::string& doseTitle, double pageWidth,
                       double pageHeight, const FontMeasure& measure);

}  // namespace morvane
