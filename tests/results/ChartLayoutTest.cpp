// The layout of the "Graph" tab: the offsets that follow the tab's size.

#include "results/ChartLayout.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(ChartLayout, SmallestResultsWindow) {
    // A results window of 11700 by 8400 twips has a tab control of 11500 by 7200.
    const ChartLayout l = ArrangeChart(11500, 7200);
    EXPECT_DOUBLE_EQ(l.PictureFig.width, 9000);
    EXPECT_DOUBLE_EQ(l.PictureFig.height, 6400);
    EXPECT_DOUBLE_EQ(l.Picture1.width, 7500);
    EXPECT_DOUBLE_EQ(l.Picture1.height, 5600);
    EXPECT_DOUBLE_EQ(l.Picture3.height, 5710);
    EXPECT_DOUBLE_EQ(l.Picture2.top, l.Picture1.bottom() - 10);
    EXPECT_DOUBLE_EQ(l.Picture2.width, 8700);
    EXPECT_DOUBLE_EQ(l.Picture2.left, l.Picture1.left - 700);
    EXPECT_DOUBLE_EQ(l.Text7.top, l.Picture2.top + 300);
    EXPECT_DOUBLE_EQ(l.Text7.width, 7500);
    EXPECT_DOUBLE_EQ(l.Pictprcent.top, 2800 - l.Pictprcent.height / 2);
    EXPECT_DOUBLE_EQ(l.Picture4.left, l.Picture1.right() + 75);
    EXPECT_DOUBLE_EQ(l.Picture4.height, 5605);
    EXPECT_DOUBLE_EQ(l.Pictprob.left, l.Picture4.left + 330);
    EXPECT_DOUBLE_EQ(l.Pictprob.top, 2800 - l.Pictprob.height / 2);
    EXPECT_DOUBLE_EQ(l.Frame1.left, l.PictureFig.right() + 100);
    EXPECT_DOUBLE_EQ(l.Frame5.left, l.Frame1.left);
    EXPECT_DOUBLE_EQ(l.Frame6.left, l.Frame1.left);
}

TEST(ChartLayout, EverythingFitsInTheSmallestTab) {
    const ChartLayout l = ArrangeChart(11500, 7200);
    EXPECT_LE(l.Text7.bottom(), l.PictureFig.height);
    EXPECT_LE(l.Pictprob.right(), l.PictureFig.width);
    EXPECT_LE(l.Picture2.right(), l.PictureFig.width);
    EXPECT_LE(l.Frame1.right(), 11500);
    EXPECT_LE(l.Frame6.bottom(), 7200 - 360);
}

TEST(ChartLayout, PlotGrowsWithTheTab) {
    const ChartLayout small = ArrangeChart(11500, 7200);
    const ChartLayout large = ArrangeChart(16500, 9200);
    EXPECT_DOUBLE_EQ(large.Picture1.width - small.Picture1.width, 5000);
    EXPECT_DOUBLE_EQ(large.Picture1.height - small.Picture1.height, 2000);
    EXPECT_DOUBLE_EQ(large.Frame1.left - small.Frame1.left, 5000);
    EXPECT_EQ(large.Frame1.top, small.Frame1.top);
}

}  // namespace
}  // namespace morvane
