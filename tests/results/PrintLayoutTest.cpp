// The printed pages of one line: the tables in column groups with their page breaks
// and repeated headings, the chart scaled to the page, and the dialog "print" with
// its copies and orientations.
//
// Text widths come from FixedFontMeasure: ten twips a point a character, so at the
// tables' 11 points a character is 110 twips wide and a text of n characters stands
// n * 55 twips left of its column's middle.

#include "results/PrintLayout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ChartRows.h"
#include "ResponseTables.h"
#include "core/LineCalculation.h"
#include "support/ScriptedUserPort.h"

#include "support/DrawingLines.h"

namespace morvane {
namespace {

using testing::ScriptedUserPort;

constexpr double kA4Width = 11906;
constexpr double kA4Height = 16838;

std::vector<std::string> Lines(const Drawing& d) {
    return testing::DrawingLines(d);
}

class PrintTablesTest : public ::testing::Test {
  protected:
    void SetUp() override {
        shared.DoseWord = "Con.";
        shared.UnitWord = "mg / L";
        shared.EstimateWord = "LC";
        CalculationInput input{testing::RotenoneResponses(), false, 1, "line.mrv"};
        ASSERT_EQ(CalculateLine(input, shared, results.tables(), port, results.channel()),
                  CalculationOutcome::Completed);
        // Widths of our own, so that the places below can be worked out by hand.
        TextTable& grid1 = results.tables().Grid1;
        for (int c = 0; c < grid1.cols(); ++c)
            grid1.setColumnWidth(c, 1000);
        TextTable& grid22 = results.tables().Grid22;
        for (int c = 0; c < grid22.cols(); ++c)
            grid22.setColumnWidth(c, 1000);
        TextTable& grid2 = results.tables().Grid2;
        for (int c = 0; c < grid2.cols(); ++c)
            grid2.setColumnWidth(c, 1000);
    }

    std::vector<Drawing> print(double width = kA4Width, double height = kA4Height) {
        return PrintTables(results, width, height, FixedFontMeasure);
    }

    SharedRegisters shared;
    ScriptedUserPort port;
    FixedWidthTextMeasurer measurer{120};
    LineResults results{shared, port, measurer};
};

TEST_F(PrintTablesTest, OnePageHoldsTheThreeTablesInOrderAtTheirPlaces) {
    const auto pages = print();
    ASSERT_EQ(pages.size(), 1u);
    const auto ops = Lines(pages[0]);
    const TextTable& grid1 = results.tables().Grid1;
    ASSERT_EQ(grid1.rows(), 6);
    ASSERT_EQ(grid1.cols(), 7);
    // Heading row at y 1700 and 2100: column c has its middle at 750 + 1400 c + 700.
    const std::string first0 = results.HeadingFirst()[0];
    ASSERT_EQ(first0, "Con.");
    EXPECT_EQ(ops[0], "text 1230 1700 Con.");  // 1450 - 4 * 55
    EXPECT_EQ(ops[1],
              "text " +
                  std::to_string(1450 - 55 * static_cast<int>(results.HeadingSecond()[0].size())) +
                  " 2100 " + results.HeadingSecond()[0]);
    // Data rows from y 2500, 400 apart: the dose "2.6" of row 1 in column 0.
    const std::size_t firstData = 2 * 7;
    EXPECT_EQ(ops[firstData], "text 1285 2500 2.6");  // 1450 - 3 * 55
    EXPECT_EQ(ops[firstData + 7 * 4], "text 1230 4100 10.2");
    // After the five data rows y is 4500; 1000 more for the statistics, whose first
    // row is "Slope" centred in its column of 1400.
    const std::size_t statistics = firstData + 7 * 5;
    EXPECT_EQ(ops[statistics], "text 1175 5500 Slope");
    // The chi-square row prints its picture 20 twips left of the column's middle.
    const std::size_t chi = statistics + 3;
    EXPECT_EQ(ops[chi], std::string("text 1430 5900 ") + kChiSquareText);
    // Six statistics rows end at y 7900; the estimates start at 8900, without the
    // spacer column: the percent in the first column, the dose in the second.
    const std::size_t estimates = statistics + 6 * 3;
    const TextTable& grid2 = results.tables().Grid2;
    EXPECT_EQ(ops[estimates],
              "text " + std::to_string(1450 - 55 * static_cast<int>(grid2.text(0, 0).size())) +
                  " 8900 " + grid2.text(0, 0));
    EXPECT_EQ(ops[estimates + 4],
              "text " + std::to_string(1450 - 55 * static_cast<int>(grid2.text(1, 0).size())) +
                  " 9300 " + grid2.text(1, 0));
    // The rule under the data table's heading, at the end: from 750 to 750 + 10406,
    // at 1700 + 700, pen width 3.
    EXPECT_EQ(ops.back(), "line 750 2400 11156 2400 w3");
    EXPECT_EQ(ops.size(), statistics + 6 * 3 + static_cast<std::size_t>(grid2.rows()) * 4 + 1);
}

TEST_F(PrintTablesTest, WideColumnsSpillIntoAGroupPrintedAfterTheOtherTables) {
    TextTable& grid1 = results.tables().Grid1;
    for (int c = 0; c < grid1.cols(); ++c)
        grid1.setColumnWidth(c, 2000);
    // Usable 10406: four columns of 2400 make 9600, a fifth would pass it.
    const auto pages = print();
    ASSERT_EQ(pages.size(), 2u);
    const auto second = Lines(pages[1]);
    // The second page begins with the heading of columns 4 to 6 at y 1700.
    const std::string h4 = results.HeadingFirst()[4];
    EXPECT_EQ(second[0], "text " + std::to_string(750 + 1200 - 55 * static_cast<int>(h4.size())) +
                             " 1700 " + h4);
    EXPECT_EQ(second.size(), 3u * 2 + 3u * 5 + 1u);
    EXPECT_EQ(second.back(), "line 750 2400 11156 2400 w3");
    const auto firstPage = Lines(pages[0]);
    EXPECT_EQ(firstPage.size(), 4u * 2 + 4u * 5 + 6u * 3 +
                                    static_cast<std::size_t>(results.tables().Grid2.rows()) * 4);
}

TEST_F(PrintTablesTest, AShortPageRepeatsTheHeadingAndFirstRowOfTheDataTable) {
    // Height 5000: a row that leaves y above 3500 breaks the page.
    const auto pages = print(kA4Width, 5000);
    ASSERT_GE(pages.size(), 2u);
    const auto first = Lines(pages[0]);
    // Heading (y 1700/2100), rows at 2500, 2900, 3300 leave y at 3700: new page.
    EXPECT_EQ(first.size(), 7u * 2 + 7u * 3);
    const auto second = Lines(pages[1]);
    EXPECT_EQ(second[0], "text 1230 1700 Con.");
    EXPECT_EQ(second[14], "text 1285 2500 2.6");
    // Then row 4, the dose "7.7", at 2900.
    EXPECT_EQ(second[21], "text 1285 2900 7.7");
}

TEST_F(PrintTablesTest, EstimatesThatReachTheFootDrawTheRuleAndRepeatTheirHeadings) {
    const TextTable& grid2 = results.tables().Grid2;
    ASSERT_EQ(grid2.rows(), 8);
    // Height 11900: the data table ends at y 4500, the statistics run from 5500 to
    // 7900, the estimates start at 8900 (not above 11900 - 3000). Rows 0 to 3 stand at
    // 8900 to 10100; before row 4 y is 10500, above 10400: the rule, a new page, rows
    // 0 and 1 again at 1700 and 2100, then row 4 at 2500.
    const auto pages = print(kA4Width, 11900);
    ASSERT_EQ(pages.size(), 2u);
    const auto first = Lines(pages[0]);
    EXPECT_EQ(first.back(), "line 750 2400 11156 2400 w3");
    EXPECT_NE(first[first.size() - 5].find(" 10100 " + grid2.text(3, 0)), std::string::npos);
    const auto second = Lines(pages[1]);
    ASSERT_EQ(second.size(), 4u * (2 + 4) + 1);
    EXPECT_NE(second[0].find(" 1700 " + grid2.text(0, 0)), std::string::npos);
    EXPECT_NE(second[4].find(" 2100 " + grid2.text(1, 0)), std::string::npos);
    EXPECT_NE(second[8].find(" 2500 " + grid2.text(4, 0)), std::string::npos);
    EXPECT_EQ(second.back(), "line 750 2400 11156 2400 w3");
}

// --- The chart on paper -------------------------------------------------------------

class PrintChartTest : public ::testing::Test, protected testing::KnownChartLine {
  protected:
    PrintChartTest() : layout(testing::KnownChartLayout()) {}

    Drawing print(double width, double height) {
        return PrintChart(chart, layout, "Dose (mg)", shared, width, height, FixedFontMeasure);
    }

    ChartLayout layout;
};

TEST_F(PrintChartTest, LandscapeA4ScalesThePlotByTheSmallerRatio) {
    ASSERT_TRUE(chart.RedrawChart());
    // Landscape A4: 16838 by 11906. R1 = 13838 / 6000, R2 = 8906 / 3000: R = 2.30633.
    const Drawing d = print(16838, 11906);
    const auto ops = Lines(d);
    // W = 13838, H = 6919, L = 1500, T = 1000, B = 7919. Nine nested boxes.
    EXPECT_EQ(ops[0], "box 1500 1000 15338 7919");
    EXPECT_EQ(ops[8], "box 1508 1008 15330 7911");
    // The end labels at B + 200, centred on the plot's corners (9 points: 90 twips a
    // character): "1" and "1000".
    EXPECT_EQ(ops[9], "text 1455 8119 1");
    EXPECT_EQ(ops[10], "text 15158 8119 1000");
    // The first inner tick: a line of 50 twips up from the foot, pen width 2.
    ASSERT_GE(chart.tickLabel(0).left, 0);
    const double x = (chart.tickLabel(0).left + 15) * (13838.0 / 6000) + 1500;
    char tick[64];
    std::snprintf(tick, sizeof tick, "line %.0f 7919 %.0f 7869 w2", x, x);
    EXPECT_EQ(ops[11], tick);
    // The dose axis title centred on the page, 600 under the foot.
    bool title = false;
    for (const auto& op : ops)
        title = title || op == "text 8014 8519 Dose (mg)";  // (16838 - 810) / 2
    EXPECT_TRUE(title);
    // The two turned titles last.
    EXPECT_EQ(ops[ops.size() - 2], "text 850 4460 Response percentage");
    EXPECT_EQ(ops.back(), "text 15988 4460 Probit");
}

TEST_F(PrintChartTest, PointsArePrintedWithAPenOfTenAndMarksWithoutPercentText) {
    chart.clickShowPoints(true);
    ASSERT_TRUE(chart.RedrawChart());
    const auto ops = Lines(print(16838, 11906));
    int points = 0;
    for (const auto& op : ops)
        points += op.rfind("point ", 0) == 0 && op.find(" w10") != std::string::npos;
    EXPECT_EQ(points, 3);
}

// --- The dialog "print" ------------------------------------------------------------

TEST(Print1FormTest, PrintSendsTablesThenChartAsManyTimesAsTheCopiesSay) {
    ScriptedUserPort port;
    PrintForm form;
    form.Text1 = "3";
    form.Text2 = "2";
    EXPECT_EQ(form.Command1(port), (std::vector<int>{3, 3, 3, 4, 4}));
    form.Check1 = false;
    EXPECT_EQ(form.Command1(port), (std::vector<int>{4, 4}));
    form.Check2 = false;
    EXPECT_TRUE(form.Command1(port).empty());
    form.Check1 = true;
    form.Text1 = "0";
    EXPECT_TRUE(form.Command1(port).empty());
    EXPECT_TRUE(port.messages.empty());
}

TEST(Print1FormTest, TooManyCopiesAreToldAndNothingIsPrinted) {
    ScriptedUserPort port;
    PrintForm form;
    form.Text2 = "1000";
    EXPECT_TRUE(form.Command1(port).empty());
    ASSERT_EQ(port.messages.size(), 1u);
    EXPECT_EQ(port.messages[0].text, "No more than 999 copies can be printed at once.");
    form.Text2 = "999";
    EXPECT_EQ(form.Command1(port).size(), 1000u);
}

TEST(Print1FormTest, CopiesBoxesTakeDigitsAndBecomePlainNumbers) {
    const PrintForm form;
    EXPECT_TRUE(PrintForm::CopiesAcceptKey('7'));
    EXPECT_TRUE(PrintForm::CopiesAcceptKey('\b'));
    EXPECT_FALSE(PrintForm::CopiesAcceptKey('-'));
    EXPECT_FALSE(PrintForm::CopiesAcceptKey('.'));
    EXPECT_EQ(form.CopiesLostFocus(""), "0");
    EXPECT_EQ(form.CopiesLostFocus("007"), "7");
    EXPECT_EQ(form.CopiesLostFocus("12"), "12");
}

TEST(Print1FormTest, OrientationsChooseThePreviewsAndTheChecksEnableTheirGroups) {
    PrintForm form;
    EXPECT_EQ(form.tablesOrientation(), PageOrientation::Portrait);
    EXPECT_EQ(form.chartOrientation(), PageOrientation::Landscape);
    EXPECT_TRUE(form.Picture2Visible());
    EXPECT_FALSE(form.Picture1Visible());
    EXPECT_TRUE(form.Picture4Visible());
    form.Option1 = false;
    form.Option4 = true;
    EXPECT_TRUE(form.Picture1Visible());
    EXPECT_TRUE(form.Picture3Visible());
    EXPECT_EQ(form.tablesOrientation(), PageOrientation::Landscape);
    form.Check1 = false;
    EXPECT_FALSE(form.tablesEnabled());
    EXPECT_TRUE(form.graphicEnabled());
}

}  // namespace
}  // namespace morvane

namespace morvane {
namespace {

TEST(Print2FormTest, StartsLandscapeWithoutHeadersAndSendsCodesFiveAndSix) {
    ScriptedUserPort port;
    PrintForm form(PrintFormKind::Print2);
    EXPECT_EQ(form.tablesOrientation(), PageOrientation::Landscape);
    EXPECT_EQ(form.chartOrientation(), PageOrientation::Landscape);
    EXPECT_EQ(form.CopiesLostFocus(""), "1");
    EXPECT_EQ(form.CopiesLostFocus("03"), "3");
    form.Text1 = "3";
    EXPECT_EQ(form.Command1(port), (std::vector<int>{5, 5, 5, 6}));
}

}  // namespace
}  // namespace morvane
