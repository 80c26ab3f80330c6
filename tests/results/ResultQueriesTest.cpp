// The two query panels of the results window: the estimate for any percent and the
// response of any dose, their checks and messages, the rows they add to the
// estimates table, and the enabling of their buttons.
//
// The line is drawn by hand: probit 5 at dose 10, slope 2, DoseScale 1, Sxx 4, sum of
// weights 100, t 1.96, h 1, g 0.2401. Then the dose of 1% is 0.6868 (probit 2.6737,
// log dose -0.16315) and the dose of 99% is 145.5962 (probit 7.3263, log dose
// 2.16315); Fieller's limits follow with S = sqrt((m - 1)^2 / 4 + 0.7599 / 100).

#include <gtest/gtest.h>

#include "core/NumberText.h"
#include "results/LineResults.h"
#include "support/HandLine.h"
#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

using testing::ScriptedUserPort;
using testing::SetHandLine;

class ResultQueriesTest : public ::testing::Test {
  protected:
    void SetUp() override { build(2, 0.2401); }

    void build(double slope, double g) {
        shared.DoseWord = "Dose";
        shared.UnitWord = "mg";
        shared.EstimateWord = "LD";
        SetHandLine(shared.fit, {.slope = slope, .g = g});
        results.Load();
        results.Text1(1);
        results.Activate();
    }

    // Types the percent, leaves the box for "is", and presses "is".
    void askPercent(const std::string& percent) {
        queries().typeText3(percent);
        queries().Text3LostFocus();
        queries().Command3();
    }
    void askDose(const std::string& dose) {
        queries().typeText2(dose);
        queries().Text2LostFocus();
        queries().Command1();
    }

    ResultQueries& queries() { return results.queries(); }
    const QueryPanels& panels() { return results.queries().panels(); }
    const TextTable& grid2() { return results.tables().Grid2; }
    std::string lastRow() {
        const int r = grid2().rows() - 1;
        std::string out;
        for (int c = 0; c < 5; ++c)
            out += (c ? "|" : "") + grid2().text(r, c);
        return out;
    }

    SharedRegisters shared;
    ScriptedUserPort port;
    FixedWidthTextMeasurer measurer;
    LineResults results{shared, port, measurer};
};

// --- The panels as the window opens ---------------------------------------------------

TEST_F(ResultQueriesTest, FreshPanels) {
    EXPECT_EQ(panels().Label1, "The responce of");
    EXPECT_EQ(panels().Label14, "Lower limit");
    EXPECT_EQ(panels().Label18, "Upper limit");
    EXPECT_EQ(panels().Label9, "mg");
    EXPECT_FALSE(panels().Command1Enabled);
    EXPECT_FALSE(panels().Command2Enabled);
    EXPECT_FALSE(panels().Command3Enabled);
    EXPECT_FALSE(panels().Command4Enabled);
    EXPECT_FALSE(panels().Label3Visible);
    EXPECT_FALSE(panels().Label14Visible);
    EXPECT_FALSE(panels().Label18Visible);
}

// --- The estimate for a percent ----------------------------------------------------

TEST_F(ResultQueriesTest, EstimateForAPercentWithItsLimits) {
    askPercent("12.5");
    EXPECT_TRUE(port.messages.empty());
    // Probit of 12.5%: halfway between 3.8250 and 3.8736, 3.8493; log dose 0.42465.
    EXPECT_EQ(panels().Label5, "2.6586");
    EXPECT_EQ(panels().Label6, "2.6586 mg");
    EXPECT_EQ(panels().Label19, "0.7165");
    EXPECT_EQ(panels().Label20, "4.2709");
    EXPECT_TRUE(panels().Label14Visible);
    EXPECT_TRUE(panels().Label18Visible);
    EXPECT_FALSE(panels().Command3Enabled);
    EXPECT_TRUE(panels().Command4Enabled);
    EXPECT_EQ(panels().focus, QueryFocus::Command4);
    queries().Command4();
    EXPECT_EQ(grid2().rows(), 9);
    EXPECT_EQ(lastRow(), "12.5||2.6586|0.7165|4.2709");
    EXPECT_EQ(grid2().currentRow(), 8);
    EXPECT_FALSE(panels().Command4Enabled);
}

TEST_F(ResultQueriesTest, PercentsOfExactlyPointOneAndNinetyNinePointNineAreAccepted) {
    askPercent("0.1");
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(panels().Label5, "0.285");  // probit 1.9098, log dose -0.5451
    queries().Command4();
    EXPECT_EQ(lastRow(), "0.1||0.285|0.0092|0.9318");
    askPercent("99.9");
    EXPECT_TRUE(port.messages.empty());
    queries().Command4();
    EXPECT_EQ(lastRow(), "99.9||350.8326|107.3142|10862.5156");
    // The standard rows still stop at 99.
    EXPECT_EQ(grid2().text(7, estimatecol::Percent), "99");
}

TEST_F(ResultQueriesTest, PercentsJustOutsideAreOutOfScale) {
    for (const char* percent : {"0.09", "99.91", "100"}) {
        port.messages.clear();
        askPercent(percent);
        EXPECT_EQ(port.texts(), std::vector<std::string>{"This value is out of scale"}) << percent;
        EXPECT_EQ(panels().focus, QueryFocus::Text3);
        EXPECT_EQ(panels().Label5, "");
        EXPECT_FALSE(panels().Command4Enabled);
        EXPECT_EQ(grid2().rows(), 8);
    }
}

TEST_F(ResultQueriesTest, WithGAbovePointFourTheLimitLabelsStayHiddenAndTheRowHasNoLimits) {
    build(2, 0.5);
    askPercent("50");
    EXPECT_EQ(panels().Label5, "10");
    EXPECT_FALSE(panels().Label14Visible);
    EXPECT_FALSE(panels().Label18Visible);
    EXPECT_EQ(panels().Label19, "");
    EXPECT_EQ(panels().Label20, "");
    queries().Command4();
    EXPECT_EQ(lastRow(), "50||10||");
}

TEST_F(ResultQueriesTest, RowOfAPercentKeepsThePercentAsTyped) {
    askPercent("50");
    queries().Command4();
    EXPECT_EQ(lastRow(), "50||10|7.7193|12.9545");
    askPercent("12.5");
    queries().Command4();
    EXPECT_EQ(grid2().text(grid2().rows() - 1, estimatecol::Percent), "12.5");
}

TEST_F(ResultQueriesTest, ChangingThePercentClearsTheResult) {
    askPercent("12.5");
    queries().setText3("12.6");
    EXPECT_EQ(panels().Label5, "");
    EXPECT_EQ(panels().Label6, "");
    EXPECT_EQ(panels().Label19, "");
    EXPECT_EQ(panels().Label20, "");
    EXPECT_FALSE(panels().Label14Visible);
    EXPECT_FALSE(panels().Label18Visible);
    EXPECT_FALSE(panels().Command4Enabled);
    EXPECT_TRUE(panels().Command3Enabled);
}

TEST_F(ResultQueriesTest, IsForAPercentIsEnabledUnlessEmptyOrZero) {
    queries().setText3("5");
    EXPECT_TRUE(panels().Command3Enabled);
    queries().setText3("");
    EXPECT_FALSE(panels().Command3Enabled);
    queries().setText3("0");
    EXPECT_FALSE(panels().Command3Enabled);
    queries().setText3("0.0");
    EXPECT_FALSE(panels().Command3Enabled);
    queries().setText3("0.5");
    EXPECT_TRUE(panels().Command3Enabled);
}

TEST_F(ResultQueriesTest, EnterAgainAfterAddingLeavesAddDisabled) {
    askPercent("50");
    queries().Command4();
    // The result label gets the same text again, so its change handler does not run.
    queries().Text3Enter();
    EXPECT_EQ(panels().Label5, "10");
    EXPECT_FALSE(panels().Command4Enabled);
    EXPECT_EQ(panels().focus, QueryFocus::Text3);
}

// --- The response of a dose --------------------------------------------------------

TEST_F(ResultQueriesTest, ResponseOfADoseAddedWithTwoDecimals) {
    askDose("4.6");
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(panels().Label2, "25.0005");
    EXPECT_EQ(panels().Label3, "25.001 %");
    EXPECT_TRUE(panels().Label3Visible);
    EXPECT_FALSE(panels().Command1Enabled);
    EXPECT_TRUE(panels().Command2Enabled);
    EXPECT_EQ(panels().focus, QueryFocus::Command2);
    queries().Command2();
    EXPECT_EQ(lastRow(), "25.00||4.6|2.0483|6.3242");
    EXPECT_FALSE(panels().Command2Enabled);
    askDose("10");
    queries().Command2();
    EXPECT_EQ(lastRow(), "50.00||10|7.7193|12.9545");
}

TEST_F(ResultQueriesTest, DosesOfExactlyTheOneAndNinetyNinePercentEstimatesAreAccepted) {
    ASSERT_EQ(PlainText(shared.Dose1Percent), "0.6868");
    ASSERT_EQ(PlainText(shared.Dose99Percent), "145.5962");
    askDose("0.6868");
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(panels().Label2, "0.99989");
    queries().Command2();
    EXPECT_EQ(lastRow(), "1.00||0.6868|0.0514|1.6894");
    askDose("145.5962");
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(panels().Label2, "99");
    queries().Command2();
    EXPECT_EQ(lastRow(), "99.00||145.5962|59.1915|1945.651");
}

TEST_F(ResultQueriesTest, DosesOutsideTheRangeAreOutOfScale) {
    for (const char* dose : {"0.6867", "145.5963"}) {
        port.messages.clear();
        askDose(dose);
        EXPECT_EQ(port.texts(), std::vector<std::string>{"This value is out of scale"}) << dose;
        EXPECT_EQ(panels().Label2, "");
        EXPECT_FALSE(panels().Command2Enabled);
        EXPECT_EQ(panels().focus, QueryFocus::Text2);
    }
    EXPECT_EQ(grid2().rows(), 8);
}

TEST_F(ResultQueriesTest, OutOfScaleClearsAResultStillShown) {
    askDose("4.6");
    ASSERT_EQ(panels().Label2, "25.0005");
    // Enter in the box runs "is" on its text; move the bounds so that it is refused.
    shared.Dose1Percent = 5;
    queries().Text2Enter();
    EXPECT_EQ(port.texts(), std::vector<std::string>{"This value is out of scale"});
    EXPECT_EQ(panels().Label2, "");
    EXPECT_FALSE(panels().Command2Enabled);
    EXPECT_FALSE(panels().Label3Visible);
}

TEST_F(ResultQueriesTest, FallingLineAnswersFalseOutsideItsRange) {
    build(-2, 0.2401);
    // The dose of 99% is now 0.6868, that of 1% 145.5962.
    askDose("10");
    EXPECT_EQ(panels().Label2, "50");
    EXPECT_TRUE(port.messages.empty());
    for (const char* dose : {"200", "0.5"}) {
        port.messages.clear();
        askDose(dose);
        EXPECT_EQ(port.texts(), std::vector<std::string>{"False"}) << dose;
        EXPECT_EQ(panels().focus, QueryFocus::Text2);
    }
    // Y = 7 - 2 log10(145.5962) = 2.67369992, just under the probit of 1%.
    askDose("145.5962");
    EXPECT_EQ(panels().Label2, "0.99999");
}

TEST_F(ResultQueriesTest, FalseLeavesTheResultLabelAsItWas) {
    build(-2, 0.2401);
    askDose("10");
    ASSERT_EQ(panels().Label2, "50");
    // Enter in the box runs "is" on its text; move the bounds so that it is refused.
    shared.Dose1Percent = 5;
    queries().Text2Enter();
    EXPECT_EQ(port.texts(), std::vector<std::string>{"False"});
    EXPECT_EQ(panels().Label2, "50");
    EXPECT_TRUE(panels().Command2Enabled);
}

TEST_F(ResultQueriesTest, ResponseOutOfTheProbitScaleIsToldAndAddsNothing) {
    // Wider bounds than the line allows: at dose 10^5 the probit is 13.
    shared.Dose99Percent = 1e6;
    askDose("100000");
    EXPECT_EQ(port.texts(), std::vector<std::string>{"This value is out of scale"});
    EXPECT_EQ(panels().Label2, "");
    EXPECT_FALSE(panels().Command2Enabled);
    EXPECT_EQ(panels().focus, QueryFocus::Text2);
    EXPECT_EQ(grid2().rows(), 8);
}

TEST_F(ResultQueriesTest, RowOfADoseWithGAbovePointFourHasNoLimits) {
    build(2, 0.5);
    askDose("10");
    queries().Command2();
    EXPECT_EQ(lastRow(), "50.00||10||");
}

TEST_F(ResultQueriesTest, ChangingTheDoseClearsTheResult) {
    askDose("4.6");
    queries().setText2("4.7");
    EXPECT_EQ(panels().Label2, "");
    EXPECT_EQ(panels().Label3, "%");
    EXPECT_FALSE(panels().Label3Visible);
    EXPECT_FALSE(panels().Command2Enabled);
    EXPECT_TRUE(panels().Command1Enabled);
    queries().setText2("0");
    EXPECT_FALSE(panels().Command1Enabled);
    queries().setText2("");
    EXPECT_FALSE(panels().Command1Enabled);
}

// --- Rows stay until the next calculation ------------------------------------------

TEST_F(ResultQueriesTest, AddedRowsGoOutWithTheTextAndStayUntilTheNextCalculation) {
    askPercent("12.5");
    queries().Command4();
    askDose("4.6");
    queries().Command2();
    const std::string text = results.ComposeResultsText();
    EXPECT_TRUE(
        text.ends_with("\n99\t145.5962\t59.1915\t1945.6507\t"
                       "\n12.5\t2.6586\t0.7165\t4.2709\t"
                       "\n25.00\t4.6\t2.0483\t6.3242\t"))
        << text;
    results.Activate();
    EXPECT_EQ(grid2().rows(), 10);
    results.Text1(1);  // the next calculation
    EXPECT_EQ(grid2().rows(), 8);
}

// --- The number boxes --------------------------------------------------------------

TEST_F(ResultQueriesTest, KeyFilterOfTheNumberBoxes) {
    for (char key : std::string("0123456789,.\b\r"))
        EXPECT_TRUE(ResultQueries::NumberBoxAcceptsKey(key)) << key;
    for (char key : std::string("-+eEa %"))
        EXPECT_FALSE(ResultQueries::NumberBoxAcceptsKey(key)) << key;
}

TEST_F(ResultQueriesTest, TypingDropsTheKeysTheBoxSwallows) {
    EXPECT_FALSE(queries().typeText2("-1e3"));
    EXPECT_EQ(panels().Text2, "13");
    EXPECT_TRUE(queries().typeText2("2.5"));
    EXPECT_EQ(panels().Text2, "2.5");
    EXPECT_TRUE(queries().typeText3(""));
    EXPECT_EQ(panels().Text3, "");
}

TEST_F(ResultQueriesTest, TypingTheSameTextAgainRunsTheChangeHandler) {
    askPercent("50");
    queries().Command4();
    queries().typeText3("50");
    EXPECT_TRUE(panels().Command3Enabled);
    queries().Command3();
    EXPECT_TRUE(panels().Command4Enabled);
    // One key that gives the same text is still a change.
    askPercent("5");
    queries().Command4();
    ASSERT_FALSE(panels().Command3Enabled);
    queries().typeText3("5");
    EXPECT_TRUE(panels().Command3Enabled);
    // A text set by the program that equals the box's text is no change.
    queries().Command3();
    queries().setText3("5");
    EXPECT_FALSE(panels().Command3Enabled);
}

TEST_F(ResultQueriesTest, LeavingABoxWritesThePlainTextOfItsNumber) {
    queries().setText3("12.50");
    queries().Text3LostFocus();
    EXPECT_EQ(panels().Text3, "12.5");
    queries().setText2("0004.60");
    queries().Text2LostFocus();
    EXPECT_EQ(panels().Text2, "4.6");
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(ResultQueriesTest, LeavingABoxWithNoNumberSaysInvaledValue) {
    queries().setText3("1.2.3");
    queries().Text3LostFocus();
    EXPECT_EQ(panels().Text3, "1.2.3");
    queries().setText2("2,5");
    queries().Text2LostFocus();
    EXPECT_EQ(panels().Text2, "2,5");
    EXPECT_EQ(port.texts(), (std::vector<std::string>{"invaled value!", "invaled value!"}));
    queries().setText2("");
    queries().Text2LostFocus();
    EXPECT_EQ(port.messages.size(), 2u);
}

TEST_F(ResultQueriesTest, EnterInAnEmptyBoxIsToldAndChangesNothing) {
    queries().Text3Enter();
    queries().Text2Enter();
    const std::string why = "Morvane could not answer this query:\n\"\" is not a number.";
    EXPECT_EQ(port.texts(), (std::vector<std::string>{why, why}));
    EXPECT_EQ(panels().Label5, "");
    EXPECT_EQ(panels().Label2, "");
    EXPECT_FALSE(panels().Command3Enabled);
    EXPECT_FALSE(panels().Command1Enabled);
    EXPECT_EQ(grid2().rows(), 8);
}

TEST_F(ResultQueriesTest, TabClickSendsTheFocusToTheBoxOfTheOtherTab) {
    queries().SSTab2Click(1, false);
    EXPECT_EQ(panels().SSTab2Tab, 1);
    EXPECT_EQ(panels().focus, QueryFocus::Unchanged);
    queries().SSTab2Click(1, true);
    EXPECT_EQ(panels().focus, QueryFocus::Text3);
    queries().SSTab2Click(0, true);
    EXPECT_EQ(panels().SSTab2Tab, 0);
    EXPECT_EQ(panels().focus, QueryFocus::Text2);
}

}  // namespace
}  // namespace morvane
