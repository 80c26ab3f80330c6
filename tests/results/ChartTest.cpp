// The log-probit chart as logic: the cycle rule, the axis labels and their blanking,
// the line's end points, observed points and marks for a known line.
//
// The known line: slope 2, mean log dose 1, mean probit 5, dose scale 1, so probit 5
// falls at dose 10, probit 3 at dose 1 and probit 7 at dose 100. The plot is 6000 by
// 3000 twips. The table holds the three doses 1, 10, 100 with the line's probits.

#include "results/Chart.h"

#include <gtest/gtest.h>

#include <string>

#include "ChartRows.h"
#include "core/NumberText.h"
#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

class ChartTest : public ::testing::Test, protected testing::KnownChartLine {
  protected:
    void setRow(int r, const std::string& dose, const std::string& logDose,
                const std::string& observed, const std::string& probit) {
        testing::SetChartRow(grid1, r, dose, logDose, observed, probit);
    }

    void manualCycles(const std::string& n) {
        chart.clickAutoCycles(false);
        chart.clickCycles(n);
    }

    testing::ScriptedUserPort port;
};

TEST(ChartRules, AutoCyclesFollowTheAbsoluteSlope) {
    EXPECT_EQ(AutoCycles(2), 3);
    EXPECT_EQ(AutoCycles(0.96), 3);
    EXPECT_EQ(AutoCycles(0.95), 5);
    EXPECT_EQ(AutoCycles(0.51), 5);
    EXPECT_EQ(AutoCycles(0.5), 7);
    EXPECT_EQ(AutoCycles(0.3), 9);
    EXPECT_EQ(AutoCycles(0.2), 11);
    EXPECT_EQ(AutoCycles(0.16), 11);
    EXPECT_EQ(AutoCycles(0.15), 15);
    EXPECT_EQ(AutoCycles(0.01), 15);
    EXPECT_EQ(AutoCycles(-0.95), 5);
    EXPECT_EQ(AutoCycles(-0.4), 7);
}

TEST(ChartRules, FloorRoundsThenStepsDown) {
    EXPECT_EQ(ChartFloor(0.5792), 0);
    EXPECT_EQ(ChartFloor(1.5), 1);
    EXPECT_EQ(ChartFloor(2.5), 2);
    EXPECT_EQ(ChartFloor(-0.2), -1);
    EXPECT_EQ(ChartFloor(-2.5), -3);
    EXPECT_EQ(ChartFloor(3), 3);
}

TEST(ChartRules, ProbitScaleRunsFrom267To733) {
    EXPECT_DOUBLE_EQ(ChartY(2.67, 3000), 0);
    EXPECT_DOUBLE_EQ(ChartY(7.33, 3000), 3000);
    FitResult fit;
    fit.Slope = 2;
    fit.MeanLogDose = 1;
    fit.MeanProbit = 5;
    EXPECT_DOUBLE_EQ(LineLogDose(5, fit), 1);
    EXPECT_DOUBLE_EQ(LineLogDose(7, fit), 2);
}

TEST_F(ChartTest, AutoPicksThreeCyclesForASteepLineAndShowsTheNumber) {
    ASSERT_TRUE(chart.RedrawChart());
    EXPECT_EQ(chart.cycles(), 3);
    EXPECT_EQ(chart.cyclesText(), "3");
    EXPECT_FALSE(chart.cyclesEnabled());
    EXPECT_DOUBLE_EQ(chart.CycleWidth(), 2000);
    EXPECT_DOUBLE_EQ(chart.LogOrigin(), 0);
    EXPECT_DOUBLE_EQ(chart.CycleShift(), 0);
}

TEST_F(ChartTest, SlopeOfExactly095GivesFiveCyclesAnd015GivesFifteen) {
    shared.fit.Slope = 0.95;
    chart.RedrawChart();
    EXPECT_EQ(chart.cyclesText(), "5");
    shared.fit.Slope = 0.15;
    chart.RedrawChart();
    EXPECT_EQ(chart.cyclesText(), "15");
    EXPECT_DOUBLE_EQ(chart.CycleWidth(), 400);
}

TEST_F(ChartTest, AutoNumberHoldsAfterUncheckingUntilAnotherIsPicked) {
    shared.fit.Slope = 0.25;
    chart.RedrawChart();
    EXPECT_EQ(chart.cyclesText(), "9");
    chart.clickAutoCycles(false);
    EXPECT_TRUE(chart.cyclesEnabled());
    shared.fit.Slope = 2;  // Auto would now take 3
    chart.RedrawChart();
    EXPECT_EQ(chart.cycles(), 9);
    chart.clickCycles("4");
    EXPECT_EQ(chart.cycles(), 4);
    EXPECT_DOUBLE_EQ(chart.CycleWidth(), 1500);
    chart.clickAutoCycles(true);
    EXPECT_EQ(chart.cyclesText(), "3");
    EXPECT_FALSE(chart.cyclesEnabled());
}

TEST_F(ChartTest, DoseLabelsAreDecadesFromTheFirstDose) {
    chart.RedrawChart();
    EXPECT_EQ(chart.leftEndLabel().caption, "1");
    EXPECT_EQ(chart.doseLabel(0).caption, "10");
    EXPECT_EQ(chart.doseLabel(1).caption, "100");
    EXPECT_EQ(chart.doseLabel(4).caption, "100000");
    EXPECT_EQ(chart.doseLabel(5).caption, "1E+6");
    EXPECT_EQ(chart.rightEndLabel().caption, "1000");
    // Left end at the strip's offset, right end at the plot's width beyond it.
    EXPECT_DOUBLE_EQ(chart.leftEndLabel().left, 700 - 450);
    EXPECT_DOUBLE_EQ(chart.rightEndLabel().left, 6000 - 450 + 700);
    // Inner labels under the cycle boundaries, the rest parked out of sight.
    EXPECT_DOUBLE_EQ(chart.doseLabel(0).left, 2000 - 450 + 700);
    EXPECT_DOUBLE_EQ(chart.doseLabel(1).left, 4000 - 450 + 700);
    EXPECT_DOUBLE_EQ(chart.doseLabel(2).left, -900);
    EXPECT_DOUBLE_EQ(chart.tickLabel(0).left, 2000 - 15);
    EXPECT_DOUBLE_EQ(chart.tickLabel(0).top, 3000 - 70);
    EXPECT_DOUBLE_EQ(chart.tickLabel(2).left, -30);
}

TEST_F(ChartTest, NineCyclesBlankTheRightEndAndKeepTheInnerLabels) {
    manualCycles("9");
    EXPECT_EQ(chart.cycles(), 9);
    EXPECT_EQ(chart.rightEndLabel().caption, "");
    EXPECT_EQ(chart.leftEndLabel().caption, "1");
    for (int i = 0; i <= 7; ++i) {
        EXPECT_FALSE(chart.doseLabel(i).caption.empty()) << i;
        EXPECT_GT(chart.doseLabel(i).left, 0) << i;
    }
    EXPECT_EQ(chart.doseLabel(7).caption, "1E+8");
    EXPECT_DOUBLE_EQ(chart.doseLabel(8).left, -900);
}

TEST_F(ChartTest, TenCyclesBlankEvenInnerLabelsAndKeepTheRightEnd) {
    manualCycles("10");
    for (int i : {0, 2, 4, 6, 8})
        EXPECT_EQ(chart.doseLabel(i).caption, "") << i;
    EXPECT_EQ(chart.doseLabel(1).caption, "100");
    EXPECT_EQ(chart.doseLabel(3).caption, "10000");
    EXPECT_EQ(chart.doseLabel(5).caption, "1E+6");
    EXPECT_EQ(chart.doseLabel(7).caption, "1E+8");
    EXPECT_EQ(chart.rightEndLabel().caption, "1E+10");
    EXPECT_EQ(chart.leftEndLabel().caption, "1");
}

TEST_F(ChartTest, ElevenCyclesBlankEvenInnerLabelsAndTheRightEnd) {
    manualCycles("11");
    for (int i : {0, 2, 4, 6, 8})
        EXPECT_EQ(chart.doseLabel(i).caption, "") << i;
    for (int i : {1, 3, 5, 7, 9})
        EXPECT_FALSE(chart.doseLabel(i).caption.empty()) << i;
    EXPECT_EQ(chart.doseLabel(9).caption, "1E+10");
    EXPECT_EQ(chart.rightEndLabel().caption, "");
    EXPECT_DOUBLE_EQ(chart.doseLabel(9).left, 10 * (6000.0 / 11) - 450 + 700);
    EXPECT_DOUBLE_EQ(chart.doseLabel(10).left, -900);
}

TEST_F(ChartTest, BlankedCaptionsComeBackWithFewerCycles) {
    manualCycles("11");
    chart.clickCycles("4");
    EXPECT_EQ(chart.doseLabel(0).caption, "10");
    EXPECT_EQ(chart.rightEndLabel().caption, "10000");
}

TEST_F(ChartTest, PercentAndProbitLabels) {
    chart.RedrawChart();
    EXPECT_EQ(chart.percentLabel(0).caption, "1%");
    EXPECT_EQ(chart.percentLabel(5).caption, "50");
    EXPECT_EQ(chart.percentLabel(9).caption, "90");
    EXPECT_EQ(chart.percentLabel(10).caption, "99%");
    // 50% is probit 5, in the middle of the plot; the strip begins 75 above it.
    EXPECT_DOUBLE_EQ(chart.percentLabel(5).top, 1500 - 97.5 + 75);
    EXPECT_DOUBLE_EQ(chart.percentLabel(0).top, 3110 - 165);
    EXPECT_EQ(chart.probitLabel(0).caption, "3");
    EXPECT_EQ(chart.probitLabel(1).caption, "3.5");
    EXPECT_EQ(chart.probitLabel(8).caption, "7");
    EXPECT_DOUBLE_EQ(chart.probitLabel(4).top, 1500 - 97.5);
}

TEST_F(ChartTest, ActualRangeJoinsTheRowsInTableOrder) {
    chart.RedrawChart();
    EXPECT_EQ(chart.Grid3().text(1, pointcol::X), "0");
    EXPECT_EQ(chart.Grid3().text(2, pointcol::X), "2000");
    EXPECT_EQ(chart.Grid3().text(2, pointcol::Y), "1500");
    EXPECT_EQ(chart.Grid3().text(1, pointcol::Y), PlainText(((3.0 - 2.67) / 4.66) * 3000));
    EXPECT_EQ(chart.drawing().dump(),
              "clear\n"
              "line 0 2788 2000 1500 w1\n"
              "line 2000 1500 4000 212 w1\n");
}

TEST_F(ChartTest, AdjustedRangeDrawsOnlyBetweenTheTwoPercents) {
    chart.clickAdjustRange(port);
    EXPECT_TRUE(port.messages.empty());
    // 20% is probit 4.1584 and 80% probit 5.8416 in the tables.
    const double low = (4.1584 - 5 + 2) / 2, high = (5.8416 - 5 + 2) / 2;
    EXPECT_DOUBLE_EQ(chart.CycleShift(), 0);
    EXPECT_EQ(chart.Grid4().text(1, pointcol::X), PlainText(low * 2000));
    EXPECT_EQ(chart.Grid4().text(2, pointcol::X), PlainText(high * 2000));
    EXPECT_EQ(chart.Grid4().text(1, pointcol::Y), PlainText(((4.1584 - 2.67) / 4.66) * 3000));
    EXPECT_EQ(chart.drawing().dump(), "clear\nline 1158 2042 2842 958 w1\n");
    EXPECT_FALSE(chart.limitsOkEnabled());
}

TEST_F(ChartTest, AdjustedRangeBelowTheFirstDecadeShiftsTheAxis) {
    chart.setLowPercent("1");  // probit 2.6737, log dose -0.16315: decade -1
    chart.clickAdjustRange(port);
    EXPECT_DOUBLE_EQ(chart.CycleShift(), 1);
    EXPECT_EQ(chart.leftEndLabel().caption, "0.10");
    // LogOrigin = log10(0.1) + 1, so the decade -1 begins at x = 0.
    EXPECT_NEAR(chart.LogOrigin(), 0, 1e-12);
    const double x = NumberOf(chart.Grid4().text(1, pointcol::X));
    EXPECT_NEAR(x, ((2.6737 - 5 + 2) / 2 + 1) * 2000, 1e-6);
}

TEST_F(ChartTest, NegativeSlopeTakesTheLowPointFromTheSecondPercent) {
    shared.fit.Slope = -2;
    shared.fit.MeanLogDose = 1;
    shared.fit.MeanProbit = 5;
    // 95% on this falling line lies at log dose (6.6449 - 5 - 2) / -2 = 0.17755,
    // 1% at 2.16315: only the second percent gives decade 0.
    chart.setLowPercent("1");
    chart.setHighPercent("95");
    chart.clickAdjustRange(port);
    EXPECT_DOUBLE_EQ(chart.CycleShift(), 0);
    chart.setHighPercent("99");  // log dose -0.16315: decade -1
    chart.clickLimitsOk(port);
    EXPECT_DOUBLE_EQ(chart.CycleShift(), 1);
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(ChartTest, LineLimitMessagesFallBackToTheActualRange) {
    chart.setLowPercent("0.5");
    EXPECT_EQ(chart.clickAdjustRange(port), ChartFocus::LowPercent);
    EXPECT_FALSE(chart.adjustRange());
    chart.setLowPercent("20");
    chart.setHighPercent("99.5");
    EXPECT_EQ(chart.clickAdjustRange(port), ChartFocus::HighPercent);
    chart.setHighPercent("10");
    EXPECT_EQ(chart.clickAdjustRange(port), ChartFocus::LowPercent);
    chart.setHighPercent("abc");
    EXPECT_EQ(chart.clickAdjustRange(port), ChartFocus::HighPercent);
    EXPECT_EQ(port.texts(),
              (std::vector<std::string>{"1st point is out of scale", "2nd point is out of scale",
                                        "1st point is greater than 2nd point!",
                                        "2nd point is out of scale"}));
    EXPECT_FALSE(chart.adjustRange());
    // The chart stands in the actual range after each refusal.
    EXPECT_EQ(chart.drawing().dump(),
              "clear\nline 0 2788 2000 1500 w1\nline 2000 1500 4000 212 w1\n");
}

TEST_F(ChartTest, EqualLimitsPassAndDrawALineWithoutLength) {
    chart.setHighPercent("20");
    EXPECT_EQ(chart.clickAdjustRange(port), ChartFocus::None);
    EXPECT_TRUE(chart.adjustRange());
    EXPECT_EQ(chart.drawing().dump(), "clear\nline 1158 2042 1158 2042 w1\n");
}

TEST_F(ChartTest, EmptyLimitDoesNothing) {
    chart.RedrawChart();
    chart.setLowPercent("");
    EXPECT_EQ(chart.clickAdjustRange(port), ChartFocus::None);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_TRUE(chart.adjustRange());
}

TEST_F(ChartTest, ChangingALimitInAdjustModeEnablesOk) {
    chart.setLowPercent("30");
    EXPECT_FALSE(chart.limitsOkEnabled());
    chart.clickAdjustRange(port);
    chart.setLowPercent("25");
    EXPECT_TRUE(chart.limitsOkEnabled());
    chart.clickLimitsOk(port);
    EXPECT_FALSE(chart.limitsOkEnabled());
    chart.setHighPercent("70");
    EXPECT_TRUE(chart.limitsOkEnabled());
    chart.clickActualRange();
    EXPECT_FALSE(chart.limitsOkEnabled());
}

TEST_F(ChartTest, EnterInTheLimitsAppliesThemOnlyInAdjustMode) {
    chart.RedrawChart();
    chart.setLowPercent("0");
    EXPECT_EQ(chart.enterInLimits(port), ChartFocus::None);
    EXPECT_TRUE(port.messages.empty());
    chart.clickAdjustRange(port);
    EXPECT_EQ(port.messages.size(), 1u);
}

TEST_F(ChartTest, ObservedPointsAtTheObservedProbits) {
    chart.RedrawChart();
    chart.clickShowPoints(true);
    // 10% is probit 3.7184, 50% 5, 90% 6.2816.
    EXPECT_EQ(chart.Grid5().text(2, pointcol::X), "2000");
    EXPECT_EQ(chart.Grid5().text(2, pointcol::Y), "1500");
    EXPECT_EQ(chart.drawing().dump(),
              "clear\n"
              "line 0 2788 2000 1500 w1\n"
              "line 2000 1500 4000 212 w1\n"
              "point 0 2325 w3\n"
              "point 2000 1500 w3\n"
              "point 4000 675 w3\n");
    chart.clickShowPoints(false);
    EXPECT_EQ(chart.drawing().ops().size(), 3u);
}

TEST_F(ChartTest, ObservedPercentOfZeroAndHundredTakeProbitsOneAndNine) {
    grid1.setText(1, 4, "0");
    grid1.setText(3, 4, "100");
    chart.RedrawChart();
    chart.clickShowPoints(true);
    EXPECT_EQ(chart.Grid5().text(1, pointcol::Y), PlainText(((1 - 2.67) / 4.66) * 3000));
    EXPECT_EQ(chart.Grid5().text(3, pointcol::Y), PlainText(((9 - 2.67) / 4.66) * 3000));
}

TEST_F(ChartTest, MarkDropsFromItsLevelToTheDoseAxisWithItsEstimate) {
    chart.RedrawChart();
    EXPECT_EQ(chart.addMark(port), ChartFocus::None);
    EXPECT_EQ(chart.marks(), std::vector<std::string>{"50"});
    EXPECT_EQ(chart.markPercent(), "");
    EXPECT_FALSE(chart.addMarkEnabled());
    EXPECT_EQ(chart.drawing().dump(),
              "clear\n"
              "line 0 2788 2000 1500 w1\n"
              "line 2000 1500 4000 212 w1\n"
              "line 0 1500 2000 1500 w1\n"
              "line 2000 1500 2000 3000 w1\n"
              "text 2020 2780 10.000\n"
              "text 10 1350 50\n");
    EXPECT_EQ(chart.selectedMark(), 0);
    EXPECT_TRUE(chart.deleteMarkEnabled());
}

TEST_F(ChartTest, MarkWithoutItsEstimateWhenTheValueBoxIsCleared) {
    chart.RedrawChart();
    chart.clickShowEstimates(false);
    chart.setMarkPercent("84");  // probit 5.9945, log dose 1.49725
    chart.addMark(port);
    const std::string dump = chart.drawing().dump();
    EXPECT_EQ(dump.find("text"), std::string::npos);
    EXPECT_NE(dump.find("line 2995 860 2995 3000 w1"), std::string::npos) << dump;
}

TEST_F(ChartTest, AddingAMarkDrawsAllMarksAgainWithoutClearing) {
    chart.RedrawChart();
    chart.addMark(port);
    chart.setMarkPercent("50");
    chart.addMark(port);
    EXPECT_EQ(chart.marks(), (std::vector<std::string>{"50", "50"}));
    const std::string dump = chart.drawing().dump();
    // One mark from the first add, two from the second, over one plot.
    std::size_t drops = 0;
    for (std::size_t at = 0; (at = dump.find("line 2000 1500 2000 3000", at)) != std::string::npos;
         ++at)
        ++drops;
    EXPECT_EQ(drops, 3u);
    chart.RedrawChart();
    EXPECT_EQ(chart.drawing().ops().size(), 3u + 2 * 4);
}

TEST_F(ChartTest, MarkOutOfScaleIsRefused) {
    chart.RedrawChart();
    chart.setMarkPercent("99.5");
    EXPECT_EQ(chart.addMark(port), ChartFocus::MarkPercent);
    chart.setMarkPercent("0.9");
    EXPECT_EQ(chart.addMark(port), ChartFocus::MarkPercent);
    EXPECT_EQ(port.texts(), (std::vector<std::string>{"This value is out of scale",
                                                      "This value is out of scale"}));
    EXPECT_TRUE(chart.marks().empty());
    EXPECT_EQ(chart.markPercent(), "0.9");
    chart.setMarkPercent("1");
    EXPECT_EQ(chart.addMark(port), ChartFocus::None);
    chart.setMarkPercent("99");
    EXPECT_EQ(chart.addMark(port), ChartFocus::None);
    EXPECT_EQ(chart.marks().size(), 2u);
}

TEST_F(ChartTest, MarkThatIsNoNumberOnlyTakesTheFocusBack) {
    chart.setMarkPercent("5,5");
    EXPECT_EQ(chart.addMark(port), ChartFocus::MarkPercent);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_TRUE(chart.marks().empty());
}

TEST_F(ChartTest, EnterInAnEmptyMarkBoxDoesNothing) {
    chart.setMarkPercent("");
    EXPECT_EQ(chart.enterInMarkPercent(port), ChartFocus::None);
    EXPECT_TRUE(chart.marks().empty());
    chart.setMarkPercent("30");
    chart.enterInMarkPercent(port);
    EXPECT_EQ(chart.marks().size(), 1u);
}

TEST_F(ChartTest, DeletingAMarkRedrawsAndSelectsTheLastRemaining) {
    chart.RedrawChart();
    for (const char* m : {"20", "50", "80"}) {
        chart.setMarkPercent(m);
        chart.addMark(port);
    }
    EXPECT_EQ(chart.selectedMark(), 2);
    chart.clickMark(0);
    chart.deleteMark();
    EXPECT_EQ(chart.marks(), (std::vector<std::string>{"50", "80"}));
    EXPECT_EQ(chart.selectedMark(), 1);
    EXPECT_TRUE(chart.deleteMarkEnabled());
    EXPECT_EQ(chart.drawing().ops().size(), 3u + 2 * 4);
    chart.deleteMark();
    chart.deleteMark();
    EXPECT_TRUE(chart.marks().empty());
    EXPECT_EQ(chart.selectedMark(), -1);
    EXPECT_FALSE(chart.deleteMarkEnabled());
    EXPECT_EQ(chart.drawing().ops().size(), 3u);
}

TEST_F(ChartTest, ScaledDosesStartTheAxisAtOneOverTheScale) {
    shared.fit.DoseScale = 1000;
    chart.RedrawChart();
    EXPECT_EQ(chart.leftEndLabel().caption, "0.0010");
    EXPECT_EQ(chart.doseLabel(0).caption, "0.01");
    EXPECT_EQ(chart.doseLabel(2).caption, "1");
    EXPECT_DOUBLE_EQ(chart.LogOrigin(), 0);
}

TEST_F(ChartTest, LineStartsAtTheDecadeOfTheFirstDose) {
    // The first dose 0.3 lies in decade -1; the left end reads "0.10" and the line
    // is placed from that caption.
    grid1.setText(1, 2, "-0.5229");
    chart.RedrawChart();
    EXPECT_EQ(chart.leftEndLabel().caption, "0.10");
    EXPECT_NEAR(chart.LogOrigin(), -1, 1e-12);
    EXPECT_NEAR(NumberOf(chart.Grid3().text(1, pointcol::X)), (-0.5229 + 1) * 2000, 1e-6);
}

TEST_F(ChartTest, EmptyTableLeavesAnEmptyPlot) {
    TextTable empty(1, 7);
    LogProbitChart nothing(empty, shared);
    nothing.setPlotSize(6000, 3000);
    EXPECT_FALSE(nothing.RedrawChart());
    EXPECT_EQ(nothing.drawing().dump(), "clear\n");
    nothing.clickShowPoints(true);
    EXPECT_EQ(nothing.drawing().dump(), "clear\n");
}

TEST_F(ChartTest, CellThatIsNoNumberLeavesAnEmptyPlot) {
    grid1.setText(2, 6, "");
    EXPECT_FALSE(chart.RedrawChart());
    EXPECT_EQ(chart.drawing().dump(), "clear\n");
}

TEST_F(ChartTest, LeavingANumberBoxWritesItsNumberPlain) {
    chart.clickAdjustRange(port);
    chart.setLowPercent("020.50");
    EXPECT_EQ(chart.leaveNumberBox(ChartFocus::LowPercent, port), ChartFocus::None);
    EXPECT_EQ(chart.lowPercent(), "20.5");
    EXPECT_TRUE(chart.limitsOkEnabled());
    chart.setHighPercent("8E1");
    EXPECT_EQ(chart.leaveNumberBox(ChartFocus::HighPercent, port), ChartFocus::None);
    EXPECT_EQ(chart.highPercent(), "80");
    chart.setMarkPercent("5.0");
    EXPECT_EQ(chart.leaveNumberBox(ChartFocus::MarkPercent, port), ChartFocus::None);
    EXPECT_EQ(chart.markPercent(), "5");
    chart.setMarkPercent("");
    EXPECT_EQ(chart.leaveNumberBox(ChartFocus::MarkPercent, port), ChartFocus::None);
    EXPECT_EQ(chart.markPercent(), "");
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(ChartTest, LeavingANumberBoxThatHoldsNoNumberKeepsTheFocus) {
    chart.setLowPercent("-");
    EXPECT_EQ(chart.leaveNumberBox(ChartFocus::LowPercent, port), ChartFocus::LowPercent);
    chart.setHighPercent(".");
    EXPECT_EQ(chart.leaveNumberBox(ChartFocus::HighPercent, port), ChartFocus::HighPercent);
    EXPECT_EQ(port.texts(), (std::vector<std::string>{"invaled value!", "invaled value!"}));
    EXPECT_EQ(chart.lowPercent(), "-");
    // The box of a mark keeps the focus without a word.
    chart.setMarkPercent("-");
    EXPECT_EQ(chart.leaveNumberBox(ChartFocus::MarkPercent, port), ChartFocus::MarkPercent);
    EXPECT_EQ(port.messages.size(), 2U);
}

TEST_F(ChartTest, RulingOfThePaperAtThePercentsAndTheCycles) {
    ASSERT_TRUE(chart.RedrawChart());
    const std::vector<double> percents = chart.PercentRulings();
    ASSERT_EQ(percents.size(), 9U);
    // 50% is probit 5, halfway up the plot of 3000.
    EXPECT_EQ(percents[4], 1500);
    EXPECT_EQ(percents[0], 3000 - ChartY(NumberOf(shared.probit.PercentToProbit("10")), 3000));
    // Three cycles over 6000: the inner boundaries at 2000 and 4000, ticks 70 high.
    using Rule = LogProbitChart::CycleRule;
    EXPECT_EQ(chart.CycleRulings(), (std::vector<Rule>{{2000, 2930}, {4000, 2930}}));
}

}  // namespace
}  // namespace morvane
