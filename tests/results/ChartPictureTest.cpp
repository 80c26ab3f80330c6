// The chart as a picture for the bitmap file and the clipboard: one and a half times
// the screen chart, a frame of eight boxes, the labels measured and placed around the
// plot, the line, the marks and the points, and the two turned axis titles.
//
// The known line: slope 2, mean log dose 1, mean probit 5, dose scale 1; three
// cycles from dose 1 to 1000 on a plot of 6000 by 3000 twips, so a cycle is 2000
// twips on the screen and 3000 in the picture. The plot's corners in the picture:
// left 1000, top 200, right 1000 + 9000, bottom B = 200 + 4500 = 4700.

#include "results/ChartPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ChartRows.h"
#include "support/DrawingLines.h"
#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

class ChartPictureTest : public ::testing::Test, protected testing::KnownChartLine {
  protected:
    ChartPictureTest() : layout(testing::KnownChartLayout()), measurer(100) {}

    void setRow(int r, const std::string& dose, const std::string& logDose,
                const std::string& observed, const std::string& probit) {
        testing::SetChartRow(grid1, r, dose, logDose, observed, probit);
    }

    std::vector<std::string> lines(const Drawing& d) const { return testing::DrawingLines(d); }

    Drawing compose() { return ComposeChartPicture(chart, layout, "Dose (mg)", shared, measurer); }

    ChartLayout layout;
    FixedWidthTextMeasurer measurer;
    testing::ScriptedUserPort port;
};

TEST_F(ChartPictureTest, CanvasIsOneAndAHalfTimesTheFrameWithEightDoubleBoxes) {
    ASSERT_TRUE(chart.RedrawChart());
    const Drawing d = compose();
    EXPECT_DOUBLE_EQ(d.width(), 11250);
    EXPECT_DOUBLE_EQ(d.height(), 5700);
    const auto ops = lines(d);
    ASSERT_GE(ops.size(), 17u);
    EXPECT_EQ(ops[0], "clear");
    for (int i = 1; i <= 8; ++i) {
        EXPECT_EQ(ops[static_cast<std::size_t>(2 * i - 1)], "box 1000 200 10000 4700");
        EXPECT_EQ(ops[static_cast<std::size_t>(2 * i)],
                  "box " + std::to_string(1000 + i) + " " + std::to_string(200 + i) + " " +
                      std::to_string(10000 - i) + " " + std::to_string(4700 - i));
    }
}

// Texts are 100 twips a character, so a label stands half its length left of its
// place. The plain chart: frame, labels, ticks, line and the two axis titles.
TEST_F(ChartPictureTest, LabelsTicksLineAndTitlesWithoutMarksOrPoints) {
    ASSERT_TRUE(chart.RedrawChart());
    chart.clickShowEstimates(true);
    const auto ops = lines(compose());
    const std::vector<std::string> expected{"text 950 4900 1",
                                            "text 9800 4900 1000",
                                            "line 4000 4700 4000 4600 w1",
                                            "text 3900 4900 10",
                                            "line 7000 4700 7000 4600 w1",
                                            "text 6850 4900 100",
                                            "text 550 4543 1%",
                                            "text 550 3579 10",
                                            "text 550 3154 20",
                                            "text 550 2848 30",
                                            "text 550 2586 40",
                                            "text 550 2341 50",
                                            "text 550 2097 60",
                                            "text 550 1835 70",
                                            "text 550 1529 80",
                                            "text 550 1104 90",
                                            "text 550 125 99%",
                                            "text 10150 4235 3",
                                            "text 10150 3752 3.5",
                                            "text 10150 3269 4",
                                            "text 10150 2787 4.5",
                                            "text 10150 2304 5",
                                            "text 10150 1821 5.5",
                                            "text 10150 1338 6",
                                            "text 10150 855 6.5",
                                            "text 10150 372 7",
                                            "text 5175 5400 Dose (mg)",
                                            "line 1000 4381 4000 2450 w1",
                                            "line 4000 2450 7000 519 w1",
                                            "text 225 2450 Response percentage",
                                            "text 10875 2450 Probit"};
    EXPECT_EQ(std::vector<std::string>(ops.begin() + 17, ops.end()), expected);
}

// A mark at 50%: probit 5 at log dose 1, one cycle in, so 3000 twips right of the
// plot's left and half way up: drop lines and the dose under them, but not the
// percent beside the left axis. Points have a pen of 3.
TEST_F(ChartPictureTest, MarkDropsToTheAxisWithItsDoseAndPointsHaveAWidePen) {
    ASSERT_TRUE(chart.RedrawChart());
    chart.setMarkPercent("50");
    chart.addMark(port);
    chart.clickShowPoints(true);
    const auto ops = lines(compose());
    const std::vector<std::string> tail{"line 1000 2450 4000 2450 w1",
                                        "line 4000 2450 4000 4700 w1",
                                        "text 4020 4350 10.000",
                                        "point 1000 3688 w3",
                                        "point 4000 2450 w3",
                                        "point 7000 1212 w3",
                                        "text 225 2450 Response percentage",
                                        "text 10875 2450 Probit"};
    ASSERT_GE(ops.size(), tail.size());
    EXPECT_EQ(std::vector<std::string>(ops.end() - static_cast<long>(tail.size()), ops.end()),
              tail);
    // The only "50" is the percent label: the mark's own percent is not drawn.
    EXPECT_EQ(std::count_if(ops.begin(), ops.end(),
                            [](const std::string& op) { return op.ends_with(" 50"); }),
              1);
}

TEST_F(ChartPictureTest, WithoutEstimatesAMarkHasNoDoseText) {
    ASSERT_TRUE(chart.RedrawChart());
    chart.setMarkPercent("50");
    chart.addMark(port);
    chart.clickShowEstimates(false);
    const auto ops = lines(compose());
    EXPECT_EQ(ops[ops.size() - 4], "line 1000 2450 4000 2450 w1");
    EXPECT_EQ(ops[ops.size() - 3], "line 4000 2450 4000 4700 w1");
    EXPECT_EQ(ops[ops.size() - 2], "text 225 2450 Response percentage");
}

// Eleven cycles: every other inner dose label is blanked, and its text is drawn
// empty while its tick is still drawn.
TEST_F(ChartPictureTest, BlankedDoseLabelsStayBlankButKeepTheirTicks) {
    chart.clickAutoCycles(false);
    chart.clickCycles("11");
    ASSERT_TRUE(chart.RedrawChart());
    const auto ops = lines(compose());
    int ticks = 0;
    int blanks = 0;
    for (std::size_t i = 0; i + 1 < ops.size(); ++i) {
        if (ops[i].starts_with("line ") && ops[i].find(" 4700 ") != std::string::npos &&
            ops[i].ends_with(" 4600 w1")) {
            ++ticks;
            if (ops[i + 1].starts_with("text ") && ops[i + 1].ends_with(" 4900 "))
                ++blanks;
        }
    }
    EXPECT_EQ(ticks, 10);
    EXPECT_EQ(blanks, 5);
}

TEST_F(ChartPictureTest, TitlesAreTurnedToReadUpwardAndCentred) {
    ASSERT_TRUE(chart.RedrawChart());
    const Drawing d = compose();
    const auto& title = std::get<draw::Text>(d.ops().back());
    EXPECT_EQ(title.text, "Probit");
    EXPECT_DOUBLE_EQ(title.angle, 90);
    EXPECT_EQ(title.horizontal, HorizontalAnchor::Centre);
    EXPECT_EQ(title.vertical, VerticalAnchor::Middle);
    EXPECT_TRUE(title.font.bold);
}

}  // namespace
}  // namespace morvane
