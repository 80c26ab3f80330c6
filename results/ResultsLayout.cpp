#include "results/ResultsLayout.h"

#include <algorithm>

namespace morvane {
namespace {

constexpr double kTabLeft = 60;
constexpr double kTabTop = 60;
constexpr double kGridLeft = 120;
constexpr double kGrid1Top = 440;
constexpr double kButtonHeight = 420;
constexpr double kButtonWidths[] = {2300, 1000, 1500, 2000, 900};

}  // namespace

ResultsLayout ArrangeResults(double formWidth, double formHeight, double leastWidth,
                             double leastHeight, double tabStripHeight) {
    ResultsLayout l;
    l.formWidth = std::max(formWidth, leastWidth);
    l.formHeight = std::max(formHeight, leastHeight);
    const double tabWidth = l.formWidth - 200;
    const double tabHeight = l.formHeight - 1200;
    l.Tab1 = {kTabLeft, kTabTop, tabWidth, tabHeight};

    // The page begins under the tab strip, whose height the rules do not count: the
    // lower tables end where the page ends.
    const double pageHeight = tabHeight - tabStripHeight - 60;
    const double grid1Width = tabWidth - 4600;
    const double grid1Height = tabHeight / 2 - 555;
    l.Image1 = {kGridLeft, 40, 360, 360};
    l.Grid1 = {kGridLeft, kGrid1Top, grid1Width, grid1Height};
    const double sstabLeft = l.Grid1.right() + 150;
    l.SSTab2 = {sstabLeft, 40, tabWidth - 150 - sstabLeft, grid1Height + kGrid1Top - 40};
    const double lowerTop = kGrid1Top + grid1Height + 105;
    const double lowerHeight = std::min(tabHeight - grid1Height - 855, pageHeight - lowerTop - 90);
    const double grid22Width = tabWidth / 2 - 335;
    l.Grid22 = {kGridLeft, lowerTop, grid22Width, lowerHeight};
    l.Grid2 = {l.Grid22.right() + 210, lowerTop, tabWidth / 2 - 275, lowerHeight};
    l.Text8 = {kGridLeft + 75, lowerTop + lowerHeight - 675, grid22Width - 150, 600};

    const double buttonsTop = kTabTop + tabHeight + 120;
    double left = kTabLeft;
    for (std::size_t i = 0; i < l.Buttons.size(); ++i) {
        l.Buttons[i] = {left, buttonsTop, kButtonWidths[i], kButtonHeight};
        left += kButtonWidths[i] + 120;
    }
    return l;
}

std::array<LayoutRect, 3> StackOptionFrames(const ChartLayout& chart,
                                            const std::array<double, 3>& needed) {
    const LayoutRect* rects[] = {&chart.Frame1, &chart.Frame5, &chart.Frame6};
    std::array<LayoutRect, 3> frames;
    double top = chart.Frame1.top;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const double height = std::max(rects[i]->height, needed[i]);
        frames[i] = {rects[i]->left, top, rects[i]->width, height};
        top += height + 100;
    }
    return frames;
}

}  // namespace morvane
