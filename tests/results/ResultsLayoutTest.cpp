// The layout of the results window: the tables tab and the buttons follow the
// window's size; the option frames of the graph tab stand one under the other.

#include "results/ResultsLayout.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

using Rect = LayoutRect;

TEST(ResultsLayout, SmallestWindowWithATabStripOf300) {
    const ResultsLayout l = ArrangeResults(11700, 8400, 11700, 8400, 300);
    EXPECT_EQ(l.Tab1, (Rect{60, 60, 11500, 7200}));
    EXPECT_EQ(l.Image1, (Rect{120, 40, 360, 360}));
    // Grid1: the tab's width less 4600, half its height less 555.
    EXPECT_EQ(l.Grid1, (Rect{120, 440, 6900, 3045}));
    EXPECT_EQ(l.SSTab2, (Rect{7170, 40, 4180, 3445}));
    // The lower tables end 90 above the end of the page (7200 - 300 - 60 = 6840),
    // which comes before 7200 - 3045 - 855 = 3300 below their top.
    EXPECT_EQ(l.Grid22, (Rect{120, 3590, 5415, 3160}));
    EXPECT_EQ(l.Grid2, (Rect{5745, 3590, 5475, 3160}));
    EXPECT_EQ(l.Text8, (Rect{195, 6075, 5265, 600}));
    const double lefts[] = {60, 2480, 3600, 5220, 7340};
    const double widths[] = {2300, 1000, 1500, 2000, 900};
    for (std::size_t i = 0; i < l.Buttons.size(); ++i)
        EXPECT_EQ(l.Buttons[i], (Rect{lefts[i], 7380, widths[i], 420})) << i;
}

TEST(ResultsLayout, ALowTabStripLeavesTheRuleOfTheTabHeight) {
    const ResultsLayout l = ArrangeResults(11700, 8400, 11700, 8400, 0);
    // 6840 + 300 - 3590 - 90 = 3460 is more than 3300.
    EXPECT_EQ(l.Grid22.height, 3300);
    EXPECT_EQ(l.Grid2.height, 3300);
}

TEST(ResultsLayout, AWindowBelowTheLeastSizeIsLaidOutAtThatSize) {
    const ResultsLayout small = ArrangeResults(5000, 3000, 11700, 8400, 300);
    const ResultsLayout least = ArrangeResults(11700, 8400, 11700, 8400, 300);
    EXPECT_EQ(small.formWidth, 11700);
    EXPECT_EQ(small.formHeight, 8400);
    EXPECT_EQ(small.Tab1, least.Tab1);
    EXPECT_EQ(small.Grid2, least.Grid2);
    const ResultsLayout wide = ArrangeResults(14700, 8000, 11700, 8400, 300);
    EXPECT_EQ(wide.Tab1, (Rect{60, 60, 14500, 7200}));
    EXPECT_EQ(wide.Grid1.width, 9900);
}

TEST(StackOptionFrames, EachAsHighAsTheLayoutOrItsControlsSay) {
    ChartLayout chart;
    chart.Frame1 = {9200, 100, 2000, 1000};
    chart.Frame5 = {9200, 1300, 2000, 1500};
    chart.Frame6 = {9200, 3000, 2000, 2500};
    const auto frames = StackOptionFrames(chart, {1200, 900, 2500});
    EXPECT_EQ(frames[0], (Rect{9200, 100, 2000, 1200}));
    EXPECT_EQ(frames[1], (Rect{9200, 1400, 2000, 1500}));
    EXPECT_EQ(frames[2], (Rect{9200, 3000, 2000, 2500}));
}

}  // namespace
}  // namespace morvane
