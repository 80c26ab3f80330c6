#pragma once
// The places of the parts of the "Graph" tab of the results window, recomputed at
// every resize: the frame of the chart (PictureFig) grows with the tab, the plot area
// (Picture1) with the frame, and the label strips and axis titles follow the plot.
// The option frames stand to the right of the chart.
//
// All values are twips. The frame of the chart and the option frames are placed in
// the tab page; the plot, the strips and the titles in the frame of the chart. The
// strip of dose labels begins 700 twips left of the plot, which the label places of
// the chart assume.

namespace morvane {

struct LayoutRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    double right() const { return left + width; }
    double bottom() const { return top + height; }
    friend bool operator==(const LayoutRect&, const LayoutRect&) = default;
};

struct ChartLayout {
    LayoutRect PictureFig;  // in the tab page
    LayoutRect Picture1;    // the plot, in PictureFig
    LayoutRect Picture2;    // dose labels under the plot, in PictureFig
    LayoutRect Picture3;    // percent labels left of the plot, in PictureFig
    LayoutRect Picture4;    // probit labels right of the plot, in PictureFig
    LayoutRect Text7;       // the title of the dose axis, in PictureFig
    LayoutRect Pictprcent;  // the title of the percent axis, in PictureFig
    LayoutRect Pictprob;    // the title of the probit axis, in PictureFig
    LayoutRect Frame1;      // "(X) axis scale", in the tab page
    LayoutRect Frame5;      // "Line limits", in the tab page
    LayoutRect Frame6;      // "Show on the graph", in the tab page
};

// The layout for a tab control of the given size.
ChartLayout ArrangeChart(double tabWidth, double tabHeight);

}  // namespace morvane
