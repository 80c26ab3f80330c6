// The Reduction % calculator: the four formulas with their checks in order, the
// result tables, "Erase all" and the text of "Copy table". Expected results are
// worked by hand from the formulas: Abbott (1 - 20/80) * 100 = 75, Henderson-Tilton
// (1 - (30 * 120) / (100 * 90)) * 100 = 60, Schneider-Orelli (55 - 10) / 90 * 100 = 50,
// Sun-Shepard (40 + 20) / 120 * 100 = 50.

#include "calculators/ReductionCalculator.h"

#include <gtest/gtest.h>

#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

using Box = ReductionCalculator::Box;
using Tab = ReductionCalculator::Tab;

class ReductionCalculatorTest : public ::testing::Test {
  protected:
    ReductionCalculatorTest() : calc(port) {}

    // Types the values into the boxes and presses OK; returns the box with the focus.
    Box run(Tab tab, const std::vector<std::string>& values) {
        const std::vector<Box> boxes = ReductionCalculator::Boxes(tab);
        for (std::size_t i = 0; i < boxes.size(); ++i)
            calc.setText(boxes[i], values[i]);
        return calc.OK(tab);
    }
    // The one message told since the last call, with its title.
    void expectMessage(const std::string& text, const std::string& title) {
        ASSERT_EQ(port.messages.size(), 1u);
        EXPECT_EQ(port.messages[0].text, text);
        EXPECT_EQ(port.messages[0].title, title);
        EXPECT_EQ(port.messages[0].buttons, Buttons::Ok);
        port.messages.clear();
    }

    testing::ScriptedUserPort port;
    ReductionCalculator calc;
};

TEST_F(ReductionCalculatorTest, TablesStartWithTheirHeadingsAndOneEmptyRow) {
    EXPECT_EQ(calc.CopyTable(Tab::Abbott), "\tn. t. after\tn. co. after\tcorrected %\n\t\t\t\n");
    EXPECT_EQ(calc.CopyTable(Tab::HendersonTilton),
              "\tn. t. before\tn. co. before\tn. t. after\tn. co. after\tcorrected %\n"
              "\t\t\t\t\t\n");
    EXPECT_EQ(calc.CopyTable(Tab::SchneiderOrelli), "\tM% in t.\tM% in co.\tcorrected %\n\t\t\t\n");
    EXPECT_EQ(calc.CopyTable(Tab::SunShepard), "\tM% in t\tChange% in co\tcorrected %\n\t\t\t\n");
    EXPECT_EQ(ReductionCalculator::TabCaption(Tab::Abbott), std::string("Abbott"));
    EXPECT_EQ(ReductionCalculator::TabCaption(Tab::HendersonTilton),
              std::string("Henderson - Tilton"));
    EXPECT_EQ(ReductionCalculator::TabCaption(Tab::SchneiderOrelli),
              std::string("Schneider - Orelli"));
    EXPECT_EQ(ReductionCalculator::TabCaption(Tab::SunShepard), std::string("Sun - Shepard"));
    EXPECT_EQ(ReductionCalculator::TabCaption(Tab::Guide), std::string("Guide"));
}

TEST_F(ReductionCalculatorTest, AbbottAddsNumberedRowsAndKeepsTheBoxes) {
    EXPECT_EQ(run(Tab::Abbott, {"20", "80"}), Box::Text9);
    EXPECT_EQ(run(Tab::Abbott, {"0", "50"}), Box::Text9);  // 0 treated: 100.00
    // More pests in the treated plot than in the control: a negative reduction.
    EXPECT_EQ(run(Tab::Abbott, {"120", "80"}), Box::Text9);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(calc.CopyTable(Tab::Abbott),
              "\tn. t. after\tn. co. after\tcorrected %\n"
              "1\t20\t80\t75.00\n"
              "2\t0\t50\t100.00\n"
              "3\t120\t80\t-50.00\n"
              "\t\t\t\n");
    EXPECT_EQ(calc.text(Box::Text9), "120");
    EXPECT_EQ(calc.text(Box::Text10), "80");
}

TEST_F(ReductionCalculatorTest, InputColumnsHoldThePlainTextOfTheNumbers) {
    run(Tab::Abbott, {"020.50", "41."});
    EXPECT_EQ(calc.grid(Tab::Abbott).text(1, 1), "20.5");
    EXPECT_EQ(calc.grid(Tab::Abbott).text(1, 2), "41");
    EXPECT_EQ(calc.grid(Tab::Abbott).text(1, 3), "50.00");
    // The boxes keep what was typed until they are left.
    EXPECT_EQ(calc.text(Box::Text9), "020.50");
}

TEST_F(ReductionCalculatorTest, AbbottChecksInOrder) {
    EXPECT_EQ(run(Tab::Abbott, {"-1", "0"}), Box::Text9);
    expectMessage("treated value must be greater than 0", "invaled value!");
    EXPECT_EQ(run(Tab::Abbott, {"5", "0"}), Box::Text10);
    expectMessage("control value must be greater than 0", "invaled value!");
    EXPECT_EQ(run(Tab::Abbott, {"5", "-3"}), Box::Text10);
    expectMessage("control value must be greater than 0", "invaled value!");
    EXPECT_EQ(calc.grid(Tab::Abbott).rows(), 2);
}

TEST_F(ReductionCalculatorTest, AnEmptyOrWrongBoxIsAnInvalidValue) {
    EXPECT_EQ(run(Tab::Abbott, {"", "80"}), Box::Text9);
    expectMessage("invaled value!", "");
    EXPECT_EQ(run(Tab::Abbott, {"5", ""}), Box::Text10);
    expectMessage("invaled value!", "");
    EXPECT_EQ(run(Tab::Abbott, {"5", "1,5"}), Box::Text10);
    expectMessage("invaled value!", "");
    // A check before the failing conversion speaks first.
    EXPECT_EQ(run(Tab::Abbott, {"-5", ""}), Box::Text9);
    expectMessage("treated value must be greater than 0", "invaled value!");
    EXPECT_EQ(run(Tab::HendersonTilton, {"100", "", "30", "90"}), Box::Text5);
    expectMessage("invaled value!", "");
    EXPECT_EQ(calc.grid(Tab::Abbott).rows(), 2);
    EXPECT_EQ(calc.grid(Tab::HendersonTilton).rows(), 2);
}

TEST_F(ReductionCalculatorTest, HendersonTilton) {
    EXPECT_EQ(run(Tab::HendersonTilton, {"100", "120", "30", "90"}), Box::Text4);
    EXPECT_EQ(calc.CopyTable(Tab::HendersonTilton),
              "\tn. t. before\tn. co. before\tn. t. after\tn. co. after\tcorrected %\n"
              "1\t100\t120\t30\t90\t60.00\n"
              "\t\t\t\t\t\n");
    EXPECT_EQ(run(Tab::HendersonTilton, {"0", "120", "30", "0"}), Box::Text4);
    expectMessage("Can't accept 0 value", "invaled value!");
    EXPECT_EQ(run(Tab::HendersonTilton, {"100", "120", "30", "0"}), Box::Text7);
    expectMessage("Can't accept 0 value", "invaled value!");
    // The control before may be 0: a reduction of 100.
    EXPECT_EQ(run(Tab::HendersonTilton, {"100", "0", "30", "90"}), Box::Text4);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(calc.grid(Tab::HendersonTilton).text(2, 5), "100.00");
}

TEST_F(ReductionCalculatorTest, SchneiderOrelliBoundsAreUneven) {
    EXPECT_EQ(run(Tab::SchneiderOrelli, {"100", "0"}), Box::Text1);
    EXPECT_EQ(run(Tab::SchneiderOrelli, {"55", "10"}), Box::Text1);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(calc.CopyTable(Tab::SchneiderOrelli),
              "\tM% in t.\tM% in co.\tcorrected %\n"
              "1\t100\t0\t100.00\n"
              "2\t55\t10\t50.00\n"
              "\t\t\t\n");
    EXPECT_EQ(run(Tab::SchneiderOrelli, {"50", "100"}), Box::Text2);
    expectMessage("control value must be tween 0 and 100", "invaled value!");
    EXPECT_EQ(run(Tab::SchneiderOrelli, {"50", "-1"}), Box::Text2);
    expectMessage("control value must be tween 0 and 100", "invaled value!");
    EXPECT_EQ(run(Tab::SchneiderOrelli, {"100.5", "10"}), Box::Text1);
    expectMessage("treated value must be tween 0 and 100", "invaled value!");
    EXPECT_EQ(run(Tab::SchneiderOrelli, {"-0.5", "10"}), Box::Text1);
    expectMessage("treated value must be tween 0 and 100", "invaled value!");
    EXPECT_EQ(calc.grid(Tab::SchneiderOrelli).rows(), 4);
}

TEST_F(ReductionCalculatorTest, SunShepard) {
    EXPECT_EQ(run(Tab::SunShepard, {"40", "20"}), Box::Text12);
    EXPECT_EQ(run(Tab::SunShepard, {"40", "-20"}), Box::Text12);
    EXPECT_EQ(calc.CopyTable(Tab::SunShepard),
              "\tM% in t\tChange% in co\tcorrected %\n"
              "1\t40\t20\t50.00\n"
              "2\t40\t-20\t25.00\n"
              "\t\t\t\n");
    EXPECT_EQ(run(Tab::SunShepard, {"40", "100"}), Box::Text13);
    expectMessage(" Change% in control plot value mustn't be = 100", "invaled value!");
    // The treated mortality isn't tested.
    EXPECT_EQ(run(Tab::SunShepard, {"-300", "50"}), Box::Text12);
    EXPECT_EQ(calc.grid(Tab::SunShepard).text(3, 3), "-166.67");
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(ReductionCalculatorTest, SunShepardChangeOfMinusHundredFailsInTheDivision) {
    EXPECT_EQ(run(Tab::SunShepard, {"40", "-100"}), Box::Text13);
    expectMessage("invaled value!", "");
    EXPECT_EQ(calc.grid(Tab::SunShepard).rows(), 2);
}

TEST_F(ReductionCalculatorTest, AnOverflowIsAnInvalidValue) {
    EXPECT_EQ(run(Tab::HendersonTilton, {"1E-300", "1E+300", "1E+300", "1E-300"}), Box::Text7);
    expectMessage("invaled value!", "");
    EXPECT_EQ(calc.grid(Tab::HendersonTilton).rows(), 2);
}

TEST_F(ReductionCalculatorTest, EraseAllStartsTheNumbersAgain) {
    run(Tab::Abbott, {"20", "80"});
    run(Tab::Abbott, {"10", "80"});
    EXPECT_EQ(calc.EraseAll(Tab::Abbott), Box::Text9);
    EXPECT_EQ(calc.text(Box::Text9), "");
    EXPECT_EQ(calc.text(Box::Text10), "");
    EXPECT_EQ(calc.CopyTable(Tab::Abbott), "\tn. t. after\tn. co. after\tcorrected %\n\t\t\t\n");
    run(Tab::Abbott, {"40", "80"});
    EXPECT_EQ(calc.CopyTable(Tab::Abbott),
              "\tn. t. after\tn. co. after\tcorrected %\n1\t40\t80\t50.00\n\t\t\t\n");
}

TEST_F(ReductionCalculatorTest, EraseAllOfSunShepardEmptiesTheSchneiderOrelliBoxes) {
    run(Tab::SchneiderOrelli, {"55", "10"});
    run(Tab::SunShepard, {"40", "20"});
    EXPECT_EQ(calc.EraseAll(Tab::SunShepard), Box::Text12);
    EXPECT_EQ(calc.text(Box::Text1), "");
    EXPECT_EQ(calc.text(Box::Text2), "");
    EXPECT_EQ(calc.text(Box::Text12), "40");
    EXPECT_EQ(calc.text(Box::Text13), "20");
    EXPECT_EQ(calc.CopyTable(Tab::SunShepard), "\tM% in t\tChange% in co\tcorrected %\n\t\t\t\n");
    // The Schneider-Orelli table itself stays.
    EXPECT_EQ(calc.grid(Tab::SchneiderOrelli).rows(), 3);
}

TEST_F(ReductionCalculatorTest, LeavingABoxRewritesItsNumber) {
    calc.setText(Box::Text9, "007.50");
    EXPECT_TRUE(calc.leave(Box::Text9));
    EXPECT_EQ(calc.text(Box::Text9), "7.5");
    calc.setText(Box::Text10, "-");
    EXPECT_FALSE(calc.leave(Box::Text10));
    expectMessage("invaled value!", "");
    EXPECT_EQ(calc.text(Box::Text10), "-");
    calc.setText(Box::Text10, "");
    EXPECT_TRUE(calc.leave(Box::Text10));
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(ReductionCalculatorTest, BoxOrderAndKeys) {
    EXPECT_EQ(ReductionCalculator::NextBox(Box::Text4), Box::Text5);
    EXPECT_EQ(ReductionCalculator::NextBox(Box::Text6), Box::Text7);
    EXPECT_EQ(ReductionCalculator::NextBox(Box::Text7), std::nullopt);
    EXPECT_EQ(ReductionCalculator::PreviousBox(Box::Text10), Box::Text9);
    EXPECT_EQ(ReductionCalculator::PreviousBox(Box::Text12), std::nullopt);
    EXPECT_TRUE(ReductionCalculator::IsLastBox(Box::Text10));
    EXPECT_TRUE(ReductionCalculator::IsLastBox(Box::Text7));
    EXPECT_TRUE(ReductionCalculator::IsLastBox(Box::Text2));
    EXPECT_TRUE(ReductionCalculator::IsLastBox(Box::Text13));
    EXPECT_FALSE(ReductionCalculator::IsLastBox(Box::Text12));
    EXPECT_EQ(ReductionCalculator::FirstBox(Tab::SunShepard), Box::Text12);
    EXPECT_EQ(ReductionCalculator::FirstBox(Tab::Guide), std::nullopt);
    for (char key : std::string("0123456789.,-\b\r"))
        EXPECT_TRUE(ReductionCalculator::KeyAllowed(key)) << key;
    for (char key : std::string("aE+ /"))
        EXPECT_FALSE(ReductionCalculator::KeyAllowed(key)) << key;
}

}  // namespace
}  // namespace morvane
