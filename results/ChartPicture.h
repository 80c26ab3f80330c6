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

#include <functional>
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

// The frame of the pictures around a plot: eight boxes, each a twip further inside.
void DrawPictureFrame(Drawing& d, double left, double top, double right, double bottom);

// Where the labels of the log-probit paper stand around a plot that is drawn at a
// scale of the screen's plot, on the picture or on paper.
struct ChartLabelPlaces {
    double scale = 1;  // the surface's twips to one of the screen's plot
    double left = 0;   // the plot's edges on the surface
    double top = 0;
    double width = 0;
    double bottom = 0;
    double tickLength = 0;    // the ticks of the dose labels, upward into the plot
    double percentLeft = 0;   // where the percents begin, left of the plot
    double titleBelow = 0;    // the dose axis title's distance below the plot
    double surfaceWidth = 0;  // the title is centred across the surface
};

// The width of a text in the face the labels are drawn in.
using TextWidth = std::function<double(const std::string& text)>;

// Where the marks of a chart go on a drawing: the plot's scale, left edge and bottom,
// its height in the chart's own units, and how far above the bottom the dose under a
// mark stands.
struct MarkPlaces {
    double scale, left, bottom, plotHeight, doseRise;
};
// The marks: drop lines from the left axis to the line and down to the dose axis,
// with the dose under them when estimates are shown. The percent beside the left axis
// that the screen shows is left out. Used by the chart picture and the printed chart.
void DrawChartMarks(Drawing& d, const LogProbitChart& chart, SharedRegisters& shared,
                    const MarkPlaces& at);

// The end labels, the ticks and dose labels, the percents, the probits and the title
// of the dose axis, in the current font of the drawing.
void DrawChartLabels(Drawing& d, const LogProbitChart& chart, const ChartLabelPlaces& at,
                     const std::string& doseAxisTitle, const TextWidth& width);

// Draws the picture of the chart. The layout gives the sizes on the screen of the
// frame (PictureFig), the plot (Picture1) and the two axis titles; doseAxisTitle is
// the text of Text7. Marks read their probit through the shared probit tables and
// format their dose through the shared registers, as the screen chart does.
Drawing ComposeChartPicture(const LogProbitChart& chart, const ChartLayout& layout,
                            const std::string& doseAxisTitle, SharedRegisters& shared,
                            const TextMeasurer& measurer);

}  // namespace morvane
