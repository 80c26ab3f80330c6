// The chart of the "Graph" tab as one drawing: ruled paper with minor ticks between
// the cycles, the plot's drawing clipped to the plot, points that can be seen, and
// labels of the axes and the marks of which none covers another.
//
// The known line: slope 2, mean log dose 1, mean probit 5, dose scale 1, doses 1, 10
// and 100, so Auto gives 3 cycles from dose 1 to 1000. The tab is 11500 by 6500
// twips, which gives a plot of 7500 by 4900 twips (2500 a cycle).

#include "results/ChartFigure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "ChartRows.h"
#include "core/DoseEstimates.h"
#include "core/NumberText.h"
#include "results/ChartText.h"
#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

class ChartFigureTest : public ::testing::Test {
  protected:
    ChartFigureTest() : grid1(4, datacol::Count), chart(grid1, shared) {
        line(2, 1, 5);
        setRow(1, "1", "0.0000", "10.000", "3.0000");
        setRow(2, "10", "1.0000", "50.000", "5.0000");
        setRow(3, "100", "2.0000", "90.000", "7.0000");
        arrange(11500, 6500);
    }

    void line(double slope, double meanLogDose, double meanProbit) {
        shared.fit.Slope = slope;
        shared.fit.MeanLogDose = meanLogDose;
        shared.fit.MeanProbit = meanProbit;
        shared.fit.DoseScale = 1;
    }

    void setRow(int r, const std::string& dose, const std::string& logDose,
                const std::string& observed, const std::string& probit) {
        testing::SetChartRow(grid1, r, dose, logDose, observed, probit);
    }

    // Rows of a line of the given slope through probit 5 at log dose m, from log
    // dose `from` in `count` steps of `step`.
    void rowsOnLine(double from, double step, int count) {
        grid1.setRows(count + 1);
        for (int i = 0; i < count; ++i) {
            const double logDose = from + step * i;
            const double probit =
                shared.fit.Slope * (logDose - shared.fit.MeanLogDose) + shared.fit.MeanProbit;
            const std::string percent =
                shared.probit.ProbitToPercent(FormatNumber(probit, "0.0000"));
            setRow(i + 1, PlainText(std::pow(10.0, logDose)), FormatNumber(logDose, "0.0000"),
                   percent, FormatNumber(probit, "0.0000"));
        }
    }

    void arrange(double tabWidth, double tabHeight) {
        layout = ArrangeChart(tabWidth, tabHeight);
        chart.setPlotSize(layout.Picture1.width, layout.Picture1.height);
        chart.setPercentStripHeight(layout.Picture3.height);
    }

    void addMarks(const std::vector<std::string>& percents) {
        for (const std::string& p : percents) {
            chart.setMarkPercent(p);
            ASSERT_EQ(chart.addMark(port), ChartFocus::None) << p;
        }
    }

    Drawing figure() {
        EXPECT_TRUE(chart.RedrawChart());
        return ComposeChartFigure(chart, layout);
    }

    static std::vector<draw::Line> linesOf(const Drawing& d, Color color) {
        std::vector<draw::Line> out;
        for (const DrawOp& op : d.ops())
            if (const auto* l = std::get_if<draw::Line>(&op); l && l->color == color)
                out.push_back(*l);
        return out;
    }
    static std::vector<draw::Text> textsOf(const Drawing& d) {
        std::vector<draw::Text> out;
        for (const DrawOp& op : d.ops())
            if (const auto* t = std::get_if<draw::Text>(&op))
                out.push_back(*t);
        return out;
    }
    static std::vector<std::string> captionsOf(const Drawing& d) {
        std::vector<std::string> out;
        for (const draw::Text& t : textsOf(d))
            out.push_back(t.text);
        return out;
    }

    // No two texts of the figure meet, and every text lies inside the figure.
    static void expectTextsApart(const Drawing& d) {
        const std::vector<TextRoom> boxes = TextRoomsOf(d);
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            EXPECT_TRUE(boxes[i].inside(0, 0, d.width(), d.height())) << i;
            for (std::size_t j = i + 1; j < boxes.size(); ++j)
                EXPECT_FALSE(boxes[i].meets(boxes[j]))
                    << textsOf(d)[i].text << " meets " << textsOf(d)[j].text;
        }
    }

    TextTable grid1;
    SharedRegisters shared;
    LogProbitChart chart;
    ChartLayout layout;
    testing::ScriptedUserPort port;
};

TEST_F(ChartFigureTest, PaperHasMinorRulingAndTicksAtTwoToNineOfEachCycle) {
    const Drawing d = figure();
    ASSERT_EQ(chart.cycles(), 3);
    ASSERT_DOUBLE_EQ(chart.CycleWidth(), 2500);
    const std::vector<double> minor = MinorTickPositions(3, 2500);
    ASSERT_EQ(minor.size(), 24u);
    EXPECT_NEAR(minor[0], 752.57, 0.01);   // log10(2) of the first cycle
    EXPECT_NEAR(minor[7], 2385.61, 0.01);  // log10(9)
    EXPECT_NEAR(minor[8], 3252.57, 0.01);  // log10(2) of the second

    const LayoutRect& p = layout.Picture1;
    const auto ruling = linesOf(d, kFigureMinorRuling);
    ASSERT_EQ(ruling.size(), 24u);
    EXPECT_DOUBLE_EQ(ruling[0].x1, p.left + minor[0]);
    EXPECT_DOUBLE_EQ(ruling[0].y1, p.top);
    EXPECT_DOUBLE_EQ(ruling[0].y2, p.bottom());

    // Frame-coloured lines: the two inner cycle ticks and the 24 minor ticks.
    const auto ticks = linesOf(d, kFigureFrame);
    ASSERT_EQ(ticks.size(), 26u);
    EXPECT_DOUBLE_EQ(ticks[0].x1, p.left + 2500);
    EXPECT_DOUBLE_EQ(ticks[0].y1, p.top + p.height - 70);
    EXPECT_DOUBLE_EQ(ticks[2].x1, p.left + minor[0]);
    EXPECT_DOUBLE_EQ(ticks[2].y1, p.bottom() - kMinorTickHeight);
    EXPECT_DOUBLE_EQ(ticks[2].y2, p.bottom());
    // The major ruling: nine percents and two cycles.
    EXPECT_EQ(linesOf(d, kFigureRuling).size(), 11u);
}

TEST_F(ChartFigureTest, LabelsOfTheThreeAxesAndTheTitles) {
    const Drawing d = figure();
    // The dose labels at the ends first, then the percents, the probits, the inner
    // dose labels and the titles.
    const std::vector<std::string> expected{"1",     "1000", "1%",  "10",  "20",
                                            "30",    "40",   "50",  "60",  "70",
                                            "80",    "90",   "99%", "3",   "3.5",
                                            "4",     "4.5",  "5",   "5.5", "6",
                                            "6.5",   "7",    "10",  "100", "Response percentage",
                                            "Probit"};
    EXPECT_EQ(captionsOf(d), expected);
    const auto texts = textsOf(d);
    // The turned titles read upward.
    EXPECT_EQ(texts[24].angle, 90);
    EXPECT_TRUE(texts[24].font.bold);
    // The dose labels stand centred on their cycles under the plot.
    const LayoutRect& p = layout.Picture1;
    EXPECT_DOUBLE_EQ(texts[0].x, p.left);
    EXPECT_DOUBLE_EQ(texts[1].x, p.right());
    EXPECT_DOUBLE_EQ(texts[22].x, p.left + 2500);
    EXPECT_EQ(texts[22].horizontal, HorizontalAnchor::Centre);
    expectTextsApart(d);
}

TEST_F(ChartFigureTest, PointsAreLargeAndTheLineStaysInThePlot) {
    chart.clickShowPoints(true);
    const Drawing d = figure();
    std::vector<draw::Point> points;
    for (const DrawOp& op : d.ops())
        if (const auto* pt = std::get_if<draw::Point>(&op))
            points.push_back(*pt);
    ASSERT_EQ(points.size(), 3u);
    const LayoutRect& p = layout.Picture1;
    for (const draw::Point& pt : points)
        EXPECT_EQ(pt.width, kFigurePointWidth);
    // Dose 1, 10% observed: probit 3.7184 at the left edge.
    EXPECT_DOUBLE_EQ(points[0].x, p.left);
    EXPECT_NEAR(points[0].y, p.bottom() - (3.7184 - 2.67) / 4.66 * p.height, 0.5);

    // The line of the actual range: two segments, inside the plot.
    const auto black = linesOf(d, kBlack);
    ASSERT_EQ(black.size(), 2u);
    for (const draw::Line& l : black) {
        EXPECT_GE(std::min(l.x1, l.x2), p.left);
        EXPECT_LE(std::max(l.x1, l.x2), p.right());
        EXPECT_GE(std::min(l.y1, l.y2), p.top);
        EXPECT_LE(std::max(l.y1, l.y2), p.bottom());
    }
}

TEST_F(ChartFigureTest, ALineBeyondThePlotIsCutAtItsEdge) {
    // Two cycles from dose 1: the point of dose 100 lies on the right edge, the line
    // to 1000 beyond it.
    setRow(3, "1000", "3.0000", "99.000", "9.0000");
    chart.clickAutoCycles(false);
    chart.clickCycles("2");
    const Drawing d = figure();
    const auto black = linesOf(d, kBlack);
    ASSERT_EQ(black.size(), 2u);
    // Probit 7.33, the top of the plot, lies beyond the second cycle: the line ends
    // at the right edge.
    EXPECT_DOUBLE_EQ(black[1].x2, layout.Picture1.right());
    EXPECT_GT(black[1].y2, layout.Picture1.top);
}

TEST_F(ChartFigureTest, TextsOfManyMarksMoveUpAndNeverMeet) {
    addMarks({"50", "52", "55", "60", "62", "65", "70", "75", "80", "85", "90", "95", "99"});
    const Drawing d = figure();
    const auto captions = captionsOf(d);
    // Every mark's percent has room at the left edge.
    for (const char* mark : {"52", "62", "85", "99"})
        EXPECT_NE(std::find(captions.begin(), captions.end(), mark), captions.end()) << mark;
    expectTextsApart(d);
}

TEST_F(ChartFigureTest, TheDoseOfAMarkAtTheRightEdgeStandsLeftOfItsLine) {
    chart.clickAutoCycles(false);
    chart.clickCycles("2");
    addMarks({"97"});
    const Drawing d = figure();
    const double logDose = LineLogDose(NumberOf(shared.probit.PercentToProbit("97")), shared.fit);
    const double x = layout.Picture1.left + (logDose - chart.LogOrigin()) * chart.CycleWidth();
    ASSERT_LT(x, layout.Picture1.right());
    shared.WorkValue = std::pow(10.0, logDose);
    FormatEstimate(shared);
    const auto texts = textsOf(d);
    const auto dose = std::find_if(texts.begin(), texts.end(),
                                   [&](const draw::Text& t) { return t.text == shared.WorkText; });
    ASSERT_NE(dose, texts.end()) << shared.WorkText;
    EXPECT_LT(dose->x + EstimatedTextWidth(dose->text, dose->font.points), x);
    expectTextsApart(d);
}

// Each added mark draws all marks again over the plot; the figure shows each text
// once, and none of a mark beyond the last cycle.
TEST_F(ChartFigureTest, MarksDrawnAgainShowOnceAndNoneBeyondThePlot) {
    chart.clickAutoCycles(false);
    chart.clickCycles("2");
    addMarks({"50", "99"});
    const Drawing d = ComposeChartFigure(chart, layout);
    // The drawing holds "50" twice (the first mark drawn by each Add) and "99" once.
    int plotFifty = 0;
    for (const DrawOp& op : chart.drawing().ops())
        if (const auto* t = std::get_if<draw::Text>(&op); t && t->text == "50")
            ++plotFifty;
    EXPECT_EQ(plotFifty, 2);
    const auto captions = captionsOf(d);
    // "50" once as the mark's percent, once as the percent label of the axis.
    EXPECT_EQ(std::count(captions.begin(), captions.end(), "50"), 2);
    shared.WorkValue = 10;
    FormatEstimate(shared);
    EXPECT_EQ(std::count(captions.begin(), captions.end(), shared.WorkText), 1);
    // The 99% mark lies at log dose 2.163, beyond the two cycles: its dose is left out
    // with its line, its percent stays by the left axis.
    EXPECT_EQ(std::count(captions.begin(), captions.end(), "99"), 1);
    expectTextsApart(d);
}

TEST_F(ChartFigureTest, MarksOfAFallingLineInASmallWindowStayApart) {
    line(-1.2, 0.5, 5);
    rowsOnLine(-1, 0.5, 5);
    arrange(9200, 7600);
    addMarks({"10", "20", "30", "40", "50", "60", "70", "80", "90"});
    chart.clickShowPoints(true);
    expectTextsApart(figure());
}

// A shallow line over four decades: Auto takes 7 cycles by its slope, and the line
// fills four of them, as the rule of the cycles gives it.
TEST_F(ChartFigureTest, FourDecadesOfAShallowLineKeepTheCyclesOfTheSlope) {
    line(0.45, 0, 5);
    rowsOnLine(-2, 1, 5);
    addMarks({"25", "50", "75", "90"});
    const Drawing d = figure();
    EXPECT_EQ(chart.cycles(), 7);
    EXPECT_EQ(chart.cyclesText(), "7");
    EXPECT_EQ(chart.leftEndLabel().caption, "0.01");
    EXPECT_NEAR(NumberOf(chart.Grid3().text(1, pointcol::X)), 0, 1e-6);
    EXPECT_NEAR(NumberOf(chart.Grid3().text(5, pointcol::X)), 4 * chart.CycleWidth(), 1e-6);
    EXPECT_EQ(MinorTickPositions(7, chart.CycleWidth()).size(), 56u);
    expectTextsApart(d);
}

// Fifteen cycles on a narrow plot: the chart blanks every other inner label and the
// right end's; of the rest, those that would touch a neighbour are left out, never the
// left end's.
TEST_F(ChartFigureTest, CrowdedDoseLabelsAreLeftOutAndTheEndsStay) {
    line(0.1, 0, 5);
    rowsOnLine(-4, 2, 5);
    arrange(7000, 6000);
    const Drawing d = figure();
    ASSERT_EQ(chart.cycles(), 15);
    const auto captions = captionsOf(d);
    EXPECT_NE(std::find(captions.begin(), captions.end(), chart.leftEndLabel().caption),
              captions.end());
    EXPECT_TRUE(chart.rightEndLabel().caption.empty());
    int shown = 0;
    for (int i = 0; i < LogProbitChart::kDoseLabels; ++i) {
        const std::string& c = chart.doseLabel(i).caption;
        if (!c.empty() && std::find(captions.begin(), captions.end(), c) != captions.end())
            ++shown;
    }
    EXPECT_GT(shown, 0);
    EXPECT_LT(shown, 7);
    expectTextsApart(d);
}

}  // namespace
}  // namespace morvane
