#pragma once
// The log-probit chart as the "Graph" tab shows it, as one drawing: the frame of the
// chart (PictureFig) with the plot (Picture1) on ruled log-probit paper, the major
// and minor ticks of the dose axis, the labels of the three axes and the turned
// titles of the percent and probit axes. Only the title of the dose axis (Text7) is
// not in it: the user retypes that one in place.
//
// The plot's own drawing (the line, the points and the marks of the chart logic) is
// clipped to the plot. The observed points are drawn larger than the chart's pen of
// 3, so that they can be seen on a screen of today. Texts never cover each other:
// dose labels that would touch a neighbour are left out (the labels at the ends go
// first), and the texts of the marks move up, or to the left side of their drop
// line at the right edge, until they meet nothing; a text with no room is left out.
//
// All values are twips in the frame of the chart, origin at its top left.

#include "core/Drawing.h"
#include "results/Chart.h"
#include "results/ChartLayout.h"

namespace morvane {

// The look of the figure.
inline constexpr Color kFigureBack{248, 249, 251};
inline constexpr Color kFigureRuling{222, 226, 234};
inline constexpr Color kFigureMinorRuling{238, 240, 245};
inline constexpr Color kFigureFrame{60, 66, 80};
inline constexpr Color kFigureLabel{30, 34, 44};
inline constexpr double kFigureLabelPoints = 7.5;
inline constexpr double kFigureTitlePoints = 8.5;
// Pen units of an observed point in the figure.
inline constexpr int kFigurePointWidth = 6;
// Heights of the ticks under the plot: at the cycles the chart's own, between them
// at the doses 2 to 9 times a power of ten.
inline constexpr double kMinorTickHeight = 55;

// The positions of the minor ticks across a plot of `cycles` cycles of the given
// width: log10(2) to log10(9) of each cycle.
std::vector<double> MinorTickPositions(int cycles, double cycleWidth);

Drawing ComposeChartFigure(const LogProbitChart& chart, const ChartLayout& layout);

}  // namespace morvane
