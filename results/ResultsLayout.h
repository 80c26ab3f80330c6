#pragma once
// The places of the parts of the results window, recomputed at every resize: the tab
// control grows with the window, the data table and the query panels share its upper
// half, the statistics and the estimates its lower half, and the buttons stand in a
// row under it. The "Graph" tab has its own rules (results/ChartLayout.h); its option
// frames are stacked here, because their heights depend on what the controls need.
//
// All values are twips. The tab control and the buttons are placed in the window, the
// tables and the panels in the "Tables" page.

#include <array>

#include "results/ChartLayout.h"

namespace morvane {

struct ResultsLayout {
    // The size of the window that the rules work with: the real size, frame
    // included, but never less than the least size.
    double formWidth = 0;
    double formHeight = 0;

    LayoutRect Tab1;    // in the window
    LayoutRect Image1;  // the button that fits the columns, in the page
    LayoutRect Grid1;
    LayoutRect SSTab2;  // the query panels
    LayoutRect Grid22;
    LayoutRect Grid2;
    LayoutRect Text8;  // the notice, over the foot of Grid22
    // "Save results into files", "Print", "Copy tables", "back to Input tabls",
    // "Help", left to right, in the window.
    std::array<LayoutRect, 5> Buttons;
};

// The least size of the main windows, frame included, in twips: the desktop's
// windows never get smaller, and the command line draws its pictures at this size.
inline constexpr double MinFormWidth = 11700;
inline constexpr double MinFormHeight = 8400;

// The layout for a window of the given outer size. leastWidth and leastHeight are
// the least size of the main windows; tabStripHeight is the height of the strip of
// tab captions, which the pages lose.
ResultsLayout ArrangeResults(double formWidth, double formHeight, double leastWidth,
                             double leastHeight, double tabStripHeight);

// The option frames of the "Graph" tab, one under the other from the top of Frame1,
// 100 apart: each keeps its left edge and width from the chart's layout and is as
// high as the layout says or as its controls need, whichever is more. `needed` holds
// the heights the controls of Frame1, Frame5 and Frame6 need.
std::array<LayoutRect, 3> StackOptionFrames(const ChartLayout& chart,
                                            const std::array<double, 3>& needed);

}  // namespace morvane
