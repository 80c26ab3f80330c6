#include "results/ChartLayout.h"

#include <initializer_list>

namespace morvane {
namespace {

// Design places: what the resize leaves alone.
constexpr LayoutRect kFigure{60, 60, 0, 0};
constexpr double kPlotLeft = 700;  // the dose strip begins at the frame's left edge
constexpr double kPlotTop = 150;
constexpr double kPercentStripLeft = 250;
constexpr double kPercentStripWidth = 450;
constexpr double kDoseStripHeight = 300;
constexpr double kTitleHeight = 285;
constexpr LayoutRect kPercentTitle{10, 0, 230, 3000};
constexpr double kProbitStripWidth = 330;
constexpr LayoutRect kProbitTitle{0, 0, 230, 1300};
constexpr double kFrameWidth = 2250;
constexpr LayoutRect kCyclesFrame{0, 60, kFrameWidth, 1000};
constexpr LayoutRect kLimitsFrame{0, 1160, kFrameWidth, 1560};
constexpr LayoutRect kShowFrame{0, 2820, kFrameWidth, 3000};

}  // namespace

ChartLayout ArrangeChart(double tabWidth, double tabHeight) {
    ChartLayout l;
    l.PictureFig = kFigure;
    l.PictureFig.width = tabWidth - 2500;
    l.PictureFig.height = tabHeight - 800;

    l.Picture1.left = kPlotLeft;
    l.Picture1.top = kPlotTop;
    l.Picture1.width = l.PictureFig.width - 1500;
    l.Picture1.height = l.PictureFig.height - 800;

    // The percent strip begins 75 twips above the plot.
    l.Picture3 = LayoutRect{kPercentStripLeft, kPlotTop - 75, kPercentStripWidth, 0};
    l.Picture3.height = l.Picture1.height + 110;

    l.Picture2.left = l.Picture1.left - 700;
    l.Picture2.top = l.Picture1.bottom() - 10;
    l.Picture2.width = l.Picture1.width + 1200;
    l.Picture2.height = kDoseStripHeight;

    l.Text7 = LayoutRect{l.Picture1.left, l.Picture2.top + 300, l.Picture1.width, kTitleHeight};

    l.Pictprcent = kPercentTitle;
    l.Pictprcent.top = l.Picture1.height / 2 - l.Pictprcent.height / 2;

    l.Picture4 = LayoutRect{l.Picture1.right() + 75, l.Picture1.top, kProbitStripWidth, 0};
    l.Picture4.height = l.Picture1.height + 5;

    l.Pictprob = kProbitTitle;
    l.Pictprob.left = l.Picture4.left + 330;
    l.Pictprob.top = l.Picture1.height / 2 - l.Pictprob.height / 2;

    l.Frame1 = kCyclesFrame;
    l.Frame5 = kLimitsFrame;
    l.Frame6 = kShowFrame;
    for (LayoutRect* frame : {&l.Frame1, &l.Frame5, &l.Frame6}) {
        frame->left = l.PictureFig.right() + 100;
    }
    return l;
}

}  // namespace morvane
