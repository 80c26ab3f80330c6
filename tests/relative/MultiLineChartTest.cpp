// The multi-line chart of a comparison: the cycles of the dose axis and their
// labels, the coordinates of the lines, the legend, the pens, the drop lines and the
// placing of the numbers at the line ends, which must never cover one another.

#include "relative/MultiLineChart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <variant>

#include "core/NumberText.h"
#include "relative/LinePens.h"
#include "results/Chart.h"
#include "results/ChartFigure.h"
#include "results/ChartText.h"
#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

using testing::ScriptedUserPort;

// The probits of 20, 80 and 50 percent, as the comparison writes them into row 0.
constexpr const char* kProbitFrom = "4.1584";
constexpr const char* kProbitTo = "5.8416";
constexpr const char* kProbitSorted = "5";

struct LineLogs {
    std::string name;
    double from = 0;  // log doses on the common scale
    double to = 0;
    double sorted = 0;
};

// A results window as a comparison leaves it, with the pens of the batch.
struct Comparison {
    SharedRegisters shared;
    Rtvout out;
    ScriptedUserPort port;

    explicit Comparison(const std::vector<LineLogs>& lines, std::int32_t doseScale = 1) {
        const int n = static_cast<int>(lines.size());
        out.Grid1 = TextTable(n + 1, 3);
        out.Grid2 = TextTable(n + 1, grid2col::Count);
        out.Grid2.setText(0, grid2col::CommonFrom, kProbitFrom);
        out.Grid2.setText(0, grid2col::CommonTo, kProbitTo);
        out.Grid2.setText(0, grid2col::CommonSorted, kProbitSorted);
        double low = 1e300, high = -1e300;
        for (int i = 1; i <= n; ++i) {
            const LineLogs& line = lines[static_cast<std::size_t>(i - 1)];
            out.Grid1.setText(i, 0, std::to_string(i));
            out.Grid1.setText(i, 1, line.name);
            out.Grid1.setText(i, 2, FormatNumber(std::pow(10.0, line.sorted), "0.000"));
            out.Grid2.setText(i, grid2col::CommonFrom, PlainText(line.from));
            out.Grid2.setText(i, grid2col::CommonTo, PlainText(line.to));
            out.Grid2.setText(i, grid2col::CommonSorted, PlainText(line.sorted));
            low = std::min({low, line.from, line.to});
            high = std::max({high, line.from, line.to});
        }
        LinePens pens = AssignLinePens(n, n + 1);
        out.LineColors = pens.colors;
        out.LineStyles = pens.styles;
        out.ChartLogMin = low;
        out.ChartLogMax = std::ceil(high);
        shared.fit.DoseScale = doseScale;
    }
};

// Lines that each start a little to the right of the one before.
std::vector<LineLogs> Crowded(int count, double spacing) {
    std::vector<LineLogs> lines;
    for (int i = 0; i < count; ++i) {
        const double start = 0.3 + spacing * i;
        lines.push_back(LineLogs{"line " + std::to_string(i + 1), start, start + 0.6, start + 0.3});
    }
    return lines;
}

std::vector<draw::Text> Texts(const Drawing& drawing) {
    std::vector<draw::Text> texts;
    for (const DrawOp& op : drawing.ops())
        if (const auto* text = std::get_if<draw::Text>(&op))
            texts.push_back(*text);
    return texts;
}

std::vector<draw::Line> Lines(const Drawing& drawing) {
    std::vector<draw::Line> lines;
    for (const DrawOp& op : drawing.ops())
        if (const auto* line = std::get_if<draw::Line>(&op))
            lines.push_back(*line);
    return lines;
}

// No two texts share a pixel: each is taken as a box of 0.55 em a character and
// 1.15 em of height from its top left corner.
void ExpectNoTextCovers(const std::vector<draw::Text>& texts) {
    for (std::size_t a = 0; a < texts.size(); ++a) {
        for (std::size_t b = a + 1; b < texts.size(); ++b) {
            const draw::Text& s = texts[a];
            const draw::Text& t = texts[b];
            const double em = s.font.points * kTwipsPerPoint;
            const double sw = static_cast<double>(s.text.size()) * em * 0.55, h = em * 1.15;
            const double tw = static_cast<double>(t.text.size()) * em * 0.55;
            const bool apart =
                s.x + sw <= t.x || t.x + tw <= s.x || s.y + h <= t.y || t.y + h <= s.y;
            EXPECT_TRUE(apart) << "\"" << s.text << "\" at " << s.x << "," << s.y << " covers \""
                               << t.text << "\" at " << t.x << "," << t.y;
        }
    }
}

TEST(MultiLineChart, NarrowRangeGivesTwoCycles) {
    Comparison c({{"a", 0.2, 0.8, 0.5}, {"b", 0.3, 0.9, 0.6}});
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(6000, 4000);
    chart.Redraw(c.port);
    EXPECT_EQ(chart.cycles(), 2);
    EXPECT_EQ(chart.cyclesText(), "2");
    EXPECT_EQ(chart.cycleWidth(), 3000);
    EXPECT_EQ(chart.leftEndCaption(), "1");
    EXPECT_TRUE(c.port.messages.empty());
}

TEST(MultiLineChart, CoordinatesFollowTheCommonScale) {
    Comparison c({{"a", 0.2, 0.8, 0.5}, {"b", 0.3, 0.9, 0.6}});
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(6000, 4000);
    chart.Redraw(c.port);
    // Row 0: heights of the probits of From, To and the sorted percentage.
    EXPECT_EQ(chart.Grid4().text(0, 0), PlainText(ChartY(4.1584, 4000)));
    EXPECT_EQ(chart.Grid4().text(0, 2), PlainText(ChartY(5, 4000)));
    // Rows: log dose times the width of a cycle, from the left end at log 0.
    EXPECT_EQ(chart.Grid4().text(1, 0), PlainText(0.2 * 3000));
    EXPECT_EQ(chart.Grid4().text(2, 1), PlainText(0.9 * 3000));
    // Each line is one segment between its two points, the plot's y turned over.
    const std::vector<draw::Line> lines = Lines(chart.drawing());
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_DOUBLE_EQ(lines[0].x1, 0.2 * 3000);
    // The heights pass through the plain text of the coordinate table.
    EXPECT_NEAR(lines[0].y1, 4000 - ChartY(4.1584, 4000), 1e-9);
    EXPECT_DOUBLE_EQ(lines[1].x2, 0.9 * 3000);
    EXPECT_NEAR(lines[1].y2, 4000 - ChartY(5.8416, 4000), 1e-9);
}

TEST(MultiLineChart, LowDosesShiftTheFirstCycle) {
    Comparison c({{"a", -1.5, -0.5, -1}, {"b", -1.2, 0.4, -0.4}});
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(6000, 4000);
    chart.Redraw(c.port);
    // -1.5 takes two steps to pass 0: the left end is a hundredth.
    EXPECT_EQ(chart.cycleShift(), 2);
    EXPECT_EQ(chart.leftEndCaption(), "0.01");
    // The automatic count adds the shift to the range once more: 1 - (-2) + 2.
    EXPECT_EQ(chart.cycles(), 5);
    // The left end of the paper is log -2: the line starts half a cycle in.
    // (log10 of 0.01 taken as ln over ln 10 is a hair above -2.)
    EXPECT_NEAR(NumberOf(chart.Grid4().text(1, 0)), (-1.5 + 2) * 1200, 1e-9);
}

TEST(MultiLineChart, WideRangeWarnsOnceAndDrawsFifteenCycles) {
    Comparison c({{"a", 0.5, 1, 0.7}, {"b", 18, 19.5, 19}});
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(6000, 4000);
    chart.Redraw(c.port);
    chart.clickLineNumbers(false, c.port);
    ASSERT_EQ(c.port.texts(),
              std::vector<std::string>{
                  "You have too wide scale range, it couldn't be drawn in one figure.\n"
                  "So your figure may not appear completely."});
    EXPECT_EQ(chart.cycles(), 15);
    EXPECT_EQ(chart.cyclesText(), "15");
    EXPECT_TRUE(chart.wideRangeWarned());
}

TEST(MultiLineChart, CyclesByHand) {
    Comparison c({{"a", 0.2, 0.8, 0.5}});
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(6000, 4000);
    chart.Redraw(c.port);
    // Unchecking Auto only frees the list; a choice redraws.
    chart.clickAutoCycles(false, c.port);
    EXPECT_TRUE(chart.cyclesEnabled());
    EXPECT_EQ(chart.cycles(), 2);
    chart.clickCycles("5", c.port);
    EXPECT_EQ(chart.cycles(), 5);
    EXPECT_EQ(chart.cycleWidth(), 1200);
    chart.clickAutoCycles(true, c.port);
    EXPECT_EQ(chart.cycles(), 2);
    EXPECT_FALSE(chart.cyclesEnabled());
}

TEST(MultiLineChart, LegendNamesLinesByRankWithTheirPens) {
    Comparison c({{"Lab strain", 0.2, 0.8, 0.5}, {"Field 7", 0.3, 0.9, 0.6}});
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(6000, 4000);
    chart.Redraw(c.port);
    ASSERT_EQ(chart.legend().size(), 2u);
    EXPECT_EQ(chart.legend()[0].text, "1- Lab strain");
    EXPECT_EQ(chart.legend()[1].text, "2- Field 7");
    // Palette entries 8 (grey) and 9 (light blue); styles solid and dash.
    EXPECT_EQ(chart.legend()[0].color, ColorOfRgb(PaletteColor(8)));
    EXPECT_EQ(chart.legend()[1].color, ColorOfRgb(PaletteColor(9)));
    EXPECT_EQ(chart.legend()[0].style, PenStyle::Solid);
    EXPECT_EQ(chart.legend()[1].style, PenStyle::Dash);
    // The numbers stand at both ends of each line.
    std::vector<std::string> numbers;
    for (const draw::Text& t : Texts(chart.drawing()))
        numbers.push_back(t.text);
    std::sort(numbers.begin(), numbers.end());
    EXPECT_EQ(numbers, (std::vector<std::string>{"1", "1", "2", "2"}));
    chart.clickLineNumbers(false, c.port);
    EXPECT_TRUE(Texts(chart.drawing()).empty());
}

TEST(MultiLineChart, AllBlackKeepsEachLinesStyle) {
    Comparison c(Crowded(6, 0.2));
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(6000, 4000);
    chart.clickAllBlack(true, c.port);
    const std::vector<draw::Line> lines = Lines(chart.drawing());
    ASSERT_EQ(lines.size(), 6u);
    const PenStyle styles[] = {PenStyle::Solid,   PenStyle::Dash,       PenStyle::Dot,
                               PenStyle::DashDot, PenStyle::DashDotDot, PenStyle::Solid};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].color, kBlack);
        EXPECT_EQ(lines[i].style, styles[i]);
    }
}

TEST(MultiLineChart, DropLinesAndTheirEstimates) {
    Comparison c({{"a", 0.2, 0.8, 0.5}, {"b", 0.3, 0.9, 0.6}});
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(6000, 4000);
    chart.Redraw(c.port);
    chart.clickLineNumbers(false, c.port);
    chart.clickDropLines(true);
    EXPECT_TRUE(c.out.Check2.enabled);
    std::vector<draw::Line> lines = Lines(chart.drawing());
    ASSERT_EQ(lines.size(), 6u);
    const double yS = 4000 - ChartY(5, 4000);
    // From the left edge at the sorted probit to the line, then down to the axis.
    EXPECT_EQ(lines[1].x1, 0);
    EXPECT_NEAR(lines[1].y1, yS, 1e-9);
    EXPECT_DOUBLE_EQ(lines[1].x2, 0.5 * 3000);
    EXPECT_EQ(lines[1].style, PenStyle::Solid);
    EXPECT_DOUBLE_EQ(lines[2].x1, 0.5 * 3000);
    EXPECT_DOUBLE_EQ(lines[2].y2, 4000);
    EXPECT_TRUE(Texts(chart.drawing()).empty());
    chart.clickDropValues(true);
    std::vector<std::string> values;
    for (const draw::Text& t : Texts(chart.drawing()))
        values.push_back(t.text);
    EXPECT_EQ(values, (std::vector<std::string>{c.out.Grid1.text(1, 2), c.out.Grid1.text(2, 2)}));
    chart.clickDropLines(false);
    EXPECT_FALSE(c.out.Check2.enabled);
    EXPECT_EQ(Lines(chart.drawing()).size(), 2u);
    EXPECT_TRUE(Texts(chart.drawing()).empty());
}

TEST(MultiLineChart, CustomPenSurvivesRedraws) {
    Comparison c({{"a", 0.2, 0.8, 0.5}, {"b", 0.3, 0.9, 0.6}});
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(6000, 4000);
    chart.Redraw(c.port);
    chart.ApplyCustomLine(2, 0xFF0000, 3, c.port);
    chart.clickLineNumbers(false, c.port);
    EXPECT_EQ(c.out.LineColors[2], 0xFF0000u);
    EXPECT_EQ(c.out.LineStyles[2], 3);
    EXPECT_EQ(chart.legend()[1].color, (Color{255, 0, 0}));
    EXPECT_EQ(chart.legend()[1].style, PenStyle::DashDot);
    EXPECT_EQ(Lines(chart.drawing())[1].color, (Color{255, 0, 0}));
}

TEST(MultiLineChart, TwoLinesAtOnePlaceKeepTheirNumbersApart) {
    Comparison c({{"a", 0.2, 0.8, 0.5}, {"a again", 0.2, 0.8, 0.5}});
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(6000, 4000);
    chart.clickDropLines(true);
    chart.clickDropValues(true);
    chart.Redraw(c.port);
    EXPECT_EQ(Texts(chart.drawing()).size(), 6u);
    ExpectNoTextCovers(Texts(chart.drawing()));
}

TEST(MultiLineChart, ThirtyCrowdedLinesKeepEveryTextApart) {
    Comparison c(Crowded(30, 0.03));
    MultiLineChart chart(c.out, c.shared);
    chart.setPlotSize(7000, 4500);
    chart.clickDropLines(true);
    chart.clickDropValues(true);
    chart.Redraw(c.port);
    const std::vector<draw::Text> texts = Texts(chart.drawing());
    EXPECT_EQ(texts.size(), 90u);
    ExpectNoTextCovers(texts);
}

TEST(MultiLineChart, FigureHoldsEveryTextOnceAndClipsToThePaper) {
    Comparison c({{"a", 0.2, 0.8, 0.5}, {"b", 0.3, 2.9, 0.6}});
    MultiLineChart chart(c.out, c.shared);
    chart.clickAutoCycles(false, c.port);
    chart.clickCycles("2", c.port);
    const Drawing figure = chart.figure(9000, 5000, "Dose (mg)", c.port);
    EXPECT_EQ(chart.plotWidth(), 9000 - MultiLineChart::kFigureLeft - MultiLineChart::kFigureRight);
    std::vector<std::string> texts;
    for (const draw::Text& t : Texts(figure))
        texts.push_back(t.text);
    for (const char* expected :
         {"1%", "50", "99%", "5", "1", "10", "100", "Response percentage", "Probit", "Dose (mg)"})
        EXPECT_NE(std::find(texts.begin(), texts.end(), expected), texts.end()) << expected;
    // Line b runs past the second cycle and ends at the frame.
    const double right = MultiLineChart::kFigureLeft + chart.plotWidth();
    for (const draw::Line& line : Lines(figure)) {
        EXPECT_LE(std::max(line.x1, line.x2), right + 1e-6);
    }
}

// Every text of a figure lies inside it and meets no other, by the room the charts
// give a text.
void ExpectFigureTextsApart(const Drawing& figure) {
    const std::vector<TextRoom> rooms = TextRoomsOf(figure);
    const std::vector<draw::Text> texts = Texts(figure);
    for (std::size_t i = 0; i < rooms.size(); ++i) {
        EXPECT_TRUE(rooms[i].inside(0, 0, figure.width(), figure.height())) << texts[i].text;
        for (std::size_t j = i + 1; j < rooms.size(); ++j)
            EXPECT_FALSE(rooms[i].meets(rooms[j])) << texts[i].text << " meets " << texts[j].text;
    }
}

std::vector<draw::Line> LinesOf(const Drawing& drawing, Color color) {
    std::vector<draw::Line> lines;
    for (const draw::Line& line : Lines(drawing))
        if (line.color == color)
            lines.push_back(line);
    return lines;
}

TEST(MultiLineChart, FigureHasMinorTicksBetweenTheCycles) {
    Comparison c({{"a", 0.2, 0.8, 0.5}, {"b", 0.3, 2.9, 0.6}});
    MultiLineChart chart(c.out, c.shared);
    const Drawing figure = chart.figure(9000, 5000, "", c.port);
    ASSERT_EQ(chart.cycles(), 3);
    const double cycle = chart.cycleWidth();
    const double bottom = MultiLineChart::kFigureTop + chart.plotHeight();
    // Faint ruling and a short tick at 2 to 9 times each power of ten.
    const std::vector<draw::Line> ruling = LinesOf(figure, kFigureMinorRuling);
    ASSERT_EQ(ruling.size(), 24u);
    EXPECT_NEAR(ruling[0].x1, MultiLineChart::kFigureLeft + std::log10(2.0) * cycle, 1e-9);
    EXPECT_NEAR(ruling[23].x1, MultiLineChart::kFigureLeft + (2 + std::log10(9.0)) * cycle, 1e-9);
    const std::vector<draw::Line> ticks = LinesOf(figure, kFigureFrame);
    // Two ticks at the inner cycles, 24 minor ones.
    ASSERT_EQ(ticks.size(), 26u);
    EXPECT_DOUBLE_EQ(ticks[2].y1, bottom - kMinorTickHeight);
    EXPECT_DOUBLE_EQ(ticks[2].y2, bottom);
    ExpectFigureTextsApart(figure);
}

TEST(MultiLineChart, FigureOfTwentyLinesWithTheirEstimatesKeepsTextsApart) {
    Comparison c(Crowded(20, 0.12));
    MultiLineChart chart(c.out, c.shared);
    chart.clickDropLines(true);
    chart.clickDropValues(true);
    const Drawing figure = chart.figure(10000, 6000, "Dose (mg)", c.port);
    ExpectFigureTextsApart(figure);
    // The numbers at the line ends are on the paper, each line's twice.
    const std::vector<draw::Text> texts = Texts(figure);
    const double left = MultiLineChart::kFigureLeft, top = MultiLineChart::kFigureTop;
    for (const char* number : {"1", "10", "20"})
        EXPECT_EQ(std::count_if(texts.begin(), texts.end(),
                                [&](const draw::Text& t) {
                                    return t.text == number && t.x >= left && t.y >= top &&
                                           t.x <= left + chart.plotWidth() &&
                                           t.y <= top + chart.plotHeight();
                                }),
                  2)
            << number;
}

// Fifteen cycles on a narrow figure: the ends of the dose axis are labelled, inner
// labels that would touch them or each other are left out.
TEST(MultiLineChart, CrowdedDoseLabelsLeaveTheEnds) {
    Comparison c({{"a", 0.5, 1, 0.7}, {"b", 13, 14.5, 14}});
    MultiLineChart chart(c.out, c.shared);
    const Drawing figure = chart.figure(6000, 4000, "", c.port);
    ASSERT_EQ(chart.cycles(), 15);
    std::vector<std::string> texts;
    for (const draw::Text& t : Texts(figure))
        texts.push_back(t.text);
    EXPECT_EQ(texts[0], chart.leftEndCaption());
    EXPECT_EQ(texts[1], chart.rightEndCaption());
    std::size_t inner = 0;
    for (std::size_t i = 1; i + 1 < chart.doseLabels().size(); ++i)
        inner += std::count(texts.begin(), texts.end(), chart.doseLabels()[i].caption);
    EXPECT_LT(inner, chart.doseLabels().size() - 2);
    ExpectFigureTextsApart(figure);
}

}  // namespace
}  // namespace morvane
