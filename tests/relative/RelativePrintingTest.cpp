// The chart picture and the printed pages of a comparison: the picture at one and a
// half times the plot with its frame, labels, lines and legend; the table on paper in
// column groups, with the caption and the note after the first group and the header
// row again on each new page; the chart on paper at a whole scale.
//
// Texts are measured by FixedFontMeasure: ten twips a point a character.

#include "relative/RelativePrinting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/NumberText.h"
#include "relative/LinePens.h"
#include "support/ScriptedUserPort.h"

#include "support/DrawingLines.h"

namespace morvane {
namespace {

using testing::ScriptedUserPort;

std::vector<std::string> Lines(const Drawing& d) {
    return testing::DrawingLines(d);
}

bool Has(const std::vector<std::string>& ops, const std::string& op) {
    return std::find(ops.begin(), ops.end(), op) != ops.end();
}

// Two lines on the common scale, as a comparison leaves them, drawn on a plot of
// 6000 by 3000 twips.
class RelativePrintingTest : public ::testing::Test {
  protected:
    RelativePrintingTest() {
        out.Grid1 = TextTable(3, 3);
        out.Grid2 = TextTable(3, grid2col::Count);
        out.Grid2.setText(0, grid2col::CommonFrom, "4.1584");
        out.Grid2.setText(0, grid2col::CommonTo, "5.8416");
        out.Grid2.setText(0, grid2col::CommonSorted, "5");
        const double logs[2][3] = {{0.3, 0.9, 0.6}, {0.8, 1.4, 1.1}};
        for (int i = 1; i <= 2; ++i) {
            out.Grid1.setText(i, 0, std::to_string(i));
            out.Grid1.setText(i, 1, "line " + std::to_string(i));
            out.Grid2.setText(i, grid2col::CommonFrom, PlainText(logs[i - 1][0]));
            out.Grid2.setText(i, grid2col::CommonTo, PlainText(logs[i - 1][1]));
            out.Grid2.setText(i, grid2col::CommonSorted, PlainText(logs[i - 1][2]));
        }
        const LinePens pens = AssignLinePens(2, 3);
        out.LineColors = pens.colors;
        out.LineStyles = pens.styles;
        out.ChartLogMin = 0.3;
        out.ChartLogMax = 2;
        shared.fit.DoseScale = 1;
        chart.setPlotSize(6000, 3000);
        chart.Redraw(port);
    }

    SharedRegisters shared;
    Rtvout out;
    ScriptedUserPort port;
    MultiLineChart chart{out, shared};
};

TEST_F(RelativePrintingTest, PictureFramesThePlotAtOneAndAHalfTimesWithTheLegendBeside) {
    const Drawing d = ComposeLineChartPicture(chart, "Dose (mg)", FixedFontMeasure);
    const auto ops = Lines(d);
    ASSERT_GE(ops.size(), 17u);
    EXPECT_EQ(ops[0], "clear");
    // Plot: left 1000, top 200, 9000 by 4500; eight boxes and their insets.
    EXPECT_EQ(ops[1], "box 1000 200 10000 4700");
    EXPECT_EQ(ops[2], "box 1001 201 9999 4699");
    EXPECT_EQ(ops[16], "box 1008 208 9992 4692");
    // The legend: the sample of line 1 from R + 950 to R + 1700, 150 under its row,
    // in the line's colour; its text at R + 1850, row 0 at the canvas's top edge.
    const Color first = ColorOfRgb(out.LineColors[1]);
    char sample[96];
    std::snprintf(sample, sizeof sample, "line 10950 150 11700 150 w1 rgb(%d,%d,%d)", first.red,
                  first.green, first.blue);
    EXPECT_TRUE(Has(ops, sample));
    EXPECT_TRUE(Has(ops, "text 11850 0 1- line 1"));
    EXPECT_TRUE(Has(ops, "text 11850 300 2- line 2"));
    // The dose title centred under the plot, 600 under the labels' line: 9 characters
    // of 12 points are 1080 twips.
    EXPECT_TRUE(Has(ops, "text 4960 5500 Dose (mg)"));
    // The canvas reaches past the widest legend row by 300.
    EXPECT_DOUBLE_EQ(d.width(), 11850 + 9 * 120 + 300);
    EXPECT_DOUBLE_EQ(d.height(), 4700 + 800 + 600);
    // Every line of the plot is there, scaled by 1.5 from the plot's corner.
    int plotted = 0;
    for (const DrawOp& op : chart.drawing().ops()) {
        const auto* line = std::get_if<draw::Line>(&op);
        if (!line || line->x1 < 0 || line->x2 > 6000)
            continue;
        ++plotted;
        Drawing one;
        one.setPenWidth(line->width);
        one.line(line->x1 * 1.5 + 1000, line->y1 * 1.5 + 200, line->x2 * 1.5 + 1000,
                 line->y2 * 1.5 + 200, line->color);
        const std::string expected = Lines(one)[0];
        EXPECT_TRUE(Has(ops, expected)) << expected;
    }
    EXPECT_GE(plotted, 2);
}

TEST_F(RelativePrintingTest, AllBlackDrawsTheLegendInBlack) {
    chart.clickAllBlack(true, port);
    const auto ops = Lines(ComposeLineChartPicture(chart, "", FixedFontMeasure));
    EXPECT_TRUE(Has(ops, "line 10950 150 11700 150 w1"));
    EXPECT_TRUE(Has(ops, "line 10950 450 11700 450 w1"));
}

TEST_F(RelativePrintingTest, ChartOnPaperHasAWholeScaleAndStaysOnThePage) {
    // Landscape A4. The legend is 1850 + 9 * 90 = 2660 wide: across =
    // 14838 / 9060 = 1.64, down = 10906 / 4400 = 2.48; rounded 2 and 2, but twice
    // the plot and legend pass the paper, so the scale is 1.
    const Drawing d = PrintLineChart(chart, "Dose (mg)", 16838, 11906, FixedFontMeasure);
    const auto ops = Lines(d);
    // Left = (16838 - 8660) / 2 = 4089; top 800.
    EXPECT_EQ(ops[0], "box 4089 800 10089 3800");
    EXPECT_TRUE(Has(ops, "text 11939 800 1- line 1"));
    // On a page twice as large: across 31676 / 9060 = 3.5 and down 22812 / 4400 =
    // 5.18 round to 4 and 5, but four times 8660 passes the paper: the scale is 3,
    // the left (33676 - 25980) / 2 = 3848, the plot 18000 by 9000.
    const auto big = Lines(PrintLineChart(chart, "Dose (mg)", 33676, 23812, FixedFontMeasure));
    EXPECT_EQ(big[0], "box 3848 800 21848 9800");
}

// --- The table on paper -------------------------------------------------------------

class RelativeTableTest : public ::testing::Test {
  protected:
    RelativeTableTest() {
        // No, name, estimate, four more columns and the hidden key.
        out.Grid1 = TextTable(rows, 8);
        const char* heads[] = {"No", "Line name", "LD50", "Lower", "Upper", "Index", "RR", "key"};
        for (int c = 0; c < 8; ++c) {
            out.Grid1.setText(0, c, heads[c]);
            out.Grid1.setColumnWidth(c, c == 7 ? 0 : 1000);
        }
        for (int r = 1; r < rows; ++r) {
            out.Grid1.setText(r, 0, std::to_string(r));
            out.Grid1.setText(r, 1, "L" + std::to_string(r));
        }
        out.Label1 = "Index and RR to line 1";
        out.Text3 = "my note";
    }
    int rows = 4;
    Rtvout out;
};

TEST_F(RelativeTableTest, TheKeyIsLeftOutAndTheCaptionAndNoteFollow) {
    const auto pages = PrintLineTable(out, 11906, 16838, FixedFontMeasure);
    ASSERT_EQ(pages.size(), 1u);
    const auto ops = Lines(pages[0]);
    // Seven columns of 1400 a row; "No" in the middle of the first: 750 + 700 - 110.
    EXPECT_EQ(ops[0], "text 1340 1700 No");
    EXPECT_EQ(ops[7], "text 1395 2100 1");
    EXPECT_FALSE(Has(ops, "text 9950 1700 key"));
    // Four rows end at y 3300: the caption at 3800, the note at 4200.
    EXPECT_EQ(ops[ops.size() - 2], "text 750 3800 Index and RR to line 1");
    EXPECT_EQ(ops.back(), "text 750 4200 my note");
    EXPECT_EQ(ops.size(), 4u * 7 + 2);
}

TEST_F(RelativeTableTest, WideTablesPrintInGroupsAndFullPagesRepeatTheHeader) {
    for (int c = 0; c < 7; ++c)
        out.Grid1.setColumnWidth(c, 2600);  // 3000 a column: three fit in 10406
    const auto pages = PrintLineTable(out, 11906, 16838, FixedFontMeasure);
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(Lines(pages[0]).size(), 4u * 3 + 2);
    EXPECT_EQ(Lines(pages[1]).size(), 4u * 3);
    EXPECT_EQ(Lines(pages[2])[0], "text 2140 1700 RR");
    // A short page: rows at 1700, 2100, 2500 leave y at 2900, above 2800: a new page
    // with the header row, then row 3.
    const auto short_ = PrintLineTable(out, 11906, 4300, FixedFontMeasure);
    const auto second = Lines(short_[1]);
    EXPECT_EQ(second[0], "text 2140 1700 No");
    EXPECT_EQ(second[3], "text 2195 2100 3");
}

}  // namespace
}  // namespace morvane
