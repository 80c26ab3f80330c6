// The extrapolation and interpolation calculator: the line from two points or from a
// point and a slope, the predictions both ways, the reactions of the boxes and every
// message.
//
// Expected figures come from an independent derivation: the table entries as
// 5 + the inverse normal of k/100, rounded to four decimals (16% 4.0055, 50% 5,
// 84% 5.9945, 90% 6.2816), the linear interpolation and the cut to seven characters
// done by hand. Points (1, 16) and (10, 84): slope (4.0055 - 5.9945) / (0 - 1) =
// 1.989, intercept 4.0055; dose 3.16 gives probit 4.999377607328, 49.9752%; 50% gives
// dose 10^0.5 = 3.162, 90% gives 10^((6.2816 - 4.0055) / 1.989) = 13.943. Point
// (10, 50) with slope 2: intercept 3; dose 20 gives 5.60205999132796, 72.6419%;
// 84% gives 31.423, 16% gives 3.182.

#include "calculators/LinePredictor.h"

#include <gtest/gtest.h>

#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

using Box = LinePredictor::Box;
using Button = LinePredictor::Button;

class LinePredictorTest : public ::testing::Test {
  protected:
    LinePredictorTest() : calc(probit, port) {}

    void twoPoints(const std::string& d1, const std::string& p1, const std::string& d2,
                   const std::string& p2) {
        calc.setText(Box::Text1, d1);
        calc.setText(Box::Text2, p1);
        calc.setText(Box::Text3, d2);
        calc.setText(Box::Text4, p2);
    }
    void pointAndSlope(const std::string& d, const std::string& p, const std::string& b) {
        calc.setText(Box::Text7, d);
        calc.setText(Box::Text8, p);
        calc.setText(Box::Text9, b);
    }
    std::vector<std::string> takeMessages() {
        std::vector<std::string> texts = port.texts();
        port.messages.clear();
        return texts;
    }

    ProbitTables probit;
    testing::ScriptedUserPort port;
    LinePredictor calc;
};

using Texts = std::vector<std::string>;

TEST_F(LinePredictorTest, StartsWithNoLineAndDisabledPredictions) {
    for (Box box : {Box::Text5, Box::Text6, Box::Text10, Box::Text11})
        EXPECT_FALSE(calc.enabled(box)) << LinePredictor::BoxName(box);
    for (Button button : {Button::Command2, Button::Command3, Button::Command5, Button::Command6})
        EXPECT_FALSE(calc.enabled(button));
    EXPECT_FALSE(calc.Label5Visible());
    EXPECT_EQ(calc.Label6(), "");
}

TEST_F(LinePredictorTest, TwoPointsDefineTheLine) {
    twoPoints("1", "16", "10", "84");
    EXPECT_TRUE(port.messages.empty());
    EXPECT_TRUE(calc.Label5Visible());
    EXPECT_EQ(calc.Label6(), "1.989");
    EXPECT_EQ(calc.Label9(), "4.0055");
    EXPECT_TRUE(calc.enabled(Box::Text5));
    EXPECT_TRUE(calc.enabled(Box::Text6));
    EXPECT_FALSE(calc.enabled(Button::Command2));

    calc.setText(Box::Text5, "3.16");
    EXPECT_TRUE(calc.enabled(Button::Command2));
    EXPECT_EQ(calc.press(Button::Command2), std::nullopt);
    EXPECT_EQ(calc.text(Box::Text6), "49.9752");
    EXPECT_TRUE(calc.enabled(Button::Command3));

    calc.setText(Box::Text6, "50");
    EXPECT_EQ(calc.press(Button::Command3), std::nullopt);
    EXPECT_EQ(calc.text(Box::Text5), "3.162");
    calc.setText(Box::Text6, "90");
    calc.press(Button::Command3);
    EXPECT_EQ(calc.text(Box::Text5), "13.943");
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(LinePredictorTest, APointAndASlopeDefineTheLine) {
    pointAndSlope("10", "50", "2");
    EXPECT_EQ(calc.Label16(), "3");
    EXPECT_TRUE(calc.enabled(Box::Text10));
    EXPECT_TRUE(calc.enabled(Box::Text11));
    calc.setText(Box::Text11, "20");
    EXPECT_TRUE(calc.enabled(Button::Command6));
    calc.press(Button::Command6);
    EXPECT_EQ(calc.text(Box::Text10), "72.6419");
    calc.setText(Box::Text10, "84");
    EXPECT_TRUE(calc.enabled(Button::Command5));
    calc.press(Button::Command5);
    EXPECT_EQ(calc.text(Box::Text11), "31.423");
    calc.setText(Box::Text10, "16");
    calc.press(Button::Command5);
    EXPECT_EQ(calc.text(Box::Text11), "3.182");
    EXPECT_TRUE(port.messages.empty());
    // The first panel knows nothing of it.
    EXPECT_FALSE(calc.enabled(Box::Text5));
}

TEST_F(LinePredictorTest, AChangeOfAPointEmptiesThePredictions) {
    twoPoints("1", "16", "10", "84");
    calc.setText(Box::Text5, "3.16");
    calc.press(Button::Command2);
    calc.setText(Box::Text3, "100");
    EXPECT_EQ(calc.text(Box::Text5), "");
    EXPECT_EQ(calc.text(Box::Text6), "");
    EXPECT_FALSE(calc.enabled(Button::Command2));
    EXPECT_FALSE(calc.enabled(Button::Command3));
    EXPECT_EQ(calc.Label6(), "0.995");  // (4.0055 - 5.9945) / (0 - 2)
    calc.setText(Box::Text3, "");
    EXPECT_FALSE(calc.enabled(Box::Text5));
    EXPECT_FALSE(calc.enabled(Box::Text6));
    EXPECT_EQ(calc.Label6(), "");

    pointAndSlope("10", "50", "2");
    calc.setText(Box::Text11, "20");
    calc.press(Button::Command6);
    calc.setText(Box::Text9, "");
    EXPECT_EQ(calc.text(Box::Text10), "");
    EXPECT_EQ(calc.text(Box::Text11), "");
    EXPECT_FALSE(calc.enabled(Box::Text10));
    EXPECT_FALSE(calc.enabled(Box::Text11));
}

TEST_F(LinePredictorTest, EqualDosesGiveTheIllegalSlopeAndChangeNothingElse) {
    twoPoints("1", "16", "10", "84");
    calc.setText(Box::Text3, "1");
    EXPECT_EQ(takeMessages(), Texts{"Your data Revealed an illegal slope\nit has an infinite or "
                                    "almost infinite value\nso your data can't be calculated"});
    EXPECT_EQ(calc.Label6(), "1.989");
    EXPECT_EQ(calc.Label9(), "4.0055");
    EXPECT_TRUE(calc.enabled(Box::Text5));
}

TEST_F(LinePredictorTest, EqualDosesFirstTimeLeaveTheLineUndefined) {
    twoPoints("5", "16", "5", "84");
    EXPECT_EQ(takeMessages().size(), 1u);
    EXPECT_FALSE(calc.enabled(Box::Text5));
    EXPECT_FALSE(calc.Label5Visible());
}

TEST_F(LinePredictorTest, PredictionsOutOfScale) {
    twoPoints("1", "16", "10", "84");
    for (const char* percent : {"0.5", "99.5"}) {
        calc.setText(Box::Text6, percent);
        EXPECT_EQ(calc.press(Button::Command3), std::nullopt);
        EXPECT_EQ(takeMessages(), Texts{"This point is out of scale"});
        EXPECT_EQ(calc.text(Box::Text5), "");
    }
    // Dose 50.9 gives probit 7.40016, beyond 7.33.
    calc.setText(Box::Text5, "50.9");
    EXPECT_EQ(calc.press(Button::Command2), Box::Text5);
    EXPECT_EQ(takeMessages(), Texts{"This point is out of scale"});
    // The strip ends are inside: 1% and 99% are read.
    calc.setText(Box::Text6, "1");
    calc.press(Button::Command3);
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(LinePredictorTest, LeavingAPointsResponseChecksItsRange) {
    calc.setText(Box::Text2, "0.5");
    EXPECT_FALSE(calc.leave(Box::Text2));
    EXPECT_EQ(takeMessages(), Texts{"1st point give an invaled value\nMorvane can't calculate it"});
    calc.setText(Box::Text4, "99.50");
    EXPECT_FALSE(calc.leave(Box::Text4));
    EXPECT_EQ(calc.text(Box::Text4), "99.5");
    EXPECT_EQ(takeMessages(), Texts{"2nd point give an invaled value\nMorvane can't calculate it"});
    calc.setText(Box::Text8, "100");
    EXPECT_FALSE(calc.leave(Box::Text8));
    EXPECT_EQ(takeMessages(), Texts{"1st point give an invaled value\nMorvane can't calculate it"});
    calc.setText(Box::Text8, "050");
    EXPECT_TRUE(calc.leave(Box::Text8));
    EXPECT_EQ(calc.text(Box::Text8), "50");
    calc.setText(Box::Text2, "1");
    EXPECT_TRUE(calc.leave(Box::Text2));
    calc.setText(Box::Text2, "");
    EXPECT_TRUE(calc.leave(Box::Text2));
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(LinePredictorTest, ADoseOfZeroIsToldAndNeverEndsTheProgram) {
    twoPoints("0", "16", "10", "84");
    EXPECT_TRUE(port.messages.empty());  // the box may still become "0.5"
    EXPECT_FALSE(calc.enabled(Box::Text5));
    EXPECT_FALSE(calc.leave(Box::Text1));
    EXPECT_EQ(takeMessages(), Texts{"A dose of 0 has no logarithm\nMorvane can't calculate it"});
    calc.setText(Box::Text1, "0.5");
    EXPECT_TRUE(calc.enabled(Box::Text5));

    pointAndSlope("0", "50", "2");
    EXPECT_FALSE(calc.enabled(Box::Text10));
    EXPECT_FALSE(calc.leave(Box::Text7));
    EXPECT_EQ(takeMessages(), Texts{"A dose of 0 has no logarithm\nMorvane can't calculate it"});

    calc.setText(Box::Text5, "0");
    EXPECT_EQ(calc.press(Button::Command2), Box::Text5);
    EXPECT_EQ(takeMessages(), Texts{"A dose of 0 has no logarithm\nMorvane can't calculate it"});
    EXPECT_EQ(calc.text(Box::Text6), "");
}

TEST_F(LinePredictorTest, AFlatLineGivesNoDose) {
    pointAndSlope("10", "50", "0");
    calc.setText(Box::Text11, "20");
    calc.press(Button::Command6);
    EXPECT_EQ(calc.text(Box::Text10), "50");  // every dose gives the point's response
    calc.setText(Box::Text10, "60");
    EXPECT_EQ(calc.press(Button::Command5), Box::Text10);
    EXPECT_EQ(takeMessages(), Texts{"The slope of this line is 0: every dose gives the same "
                                    "response\nMorvane can't calculate a dose from it"});
    EXPECT_EQ(calc.text(Box::Text11), "20");
}

TEST_F(LinePredictorTest, EqualProbitsKeepTheLastSlopeTextAndGiveNoDose) {
    // A slope of exactly 0 leaves the format's text as it was: empty at first.
    twoPoints("1", "30", "10", "30");
    EXPECT_EQ(calc.Label6(), "");
    EXPECT_TRUE(calc.enabled(Box::Text5));
    calc.setText(Box::Text6, "40");
    EXPECT_EQ(calc.press(Button::Command3), Box::Text6);
    EXPECT_EQ(takeMessages().size(), 1u);
    // After a line with a slope, the flat line shows that slope's text again.
    calc.setText(Box::Text4, "84");
    EXPECT_EQ(calc.Label6(), "1.519");  // (4.4756 - 5.9945) / (0 - 1)
}

TEST_F(LinePredictorTest, ATooLargeDoseIsTold) {
    pointAndSlope("10", "50", "0.0001");
    calc.setText(Box::Text10, "99");
    EXPECT_EQ(calc.press(Button::Command5), Box::Text10);
    EXPECT_EQ(takeMessages(), Texts{"The dose of this response is too large\nMorvane can't "
                                    "calculate it"});
}

TEST_F(LinePredictorTest, NotANumberIsToldOnLeaving) {
    calc.setText(Box::Text1, ".");
    EXPECT_FALSE(calc.leave(Box::Text1));
    EXPECT_EQ(takeMessages(), Texts{"This box doesn't hold a number"});
    calc.setText(Box::Text9, "1,5");
    EXPECT_FALSE(calc.leave(Box::Text9));
    EXPECT_EQ(takeMessages(), Texts{"This box doesn't hold a number"});
}

TEST_F(LinePredictorTest, KeysAndBoxOrder) {
    for (char key : std::string("0123456789.,\b\r"))
        EXPECT_TRUE(LinePredictor::KeyAllowed(key)) << key;
    for (char key : std::string("-a+E "))
        EXPECT_FALSE(LinePredictor::KeyAllowed(key)) << key;
    EXPECT_EQ(LinePredictor::NextBox(Box::Text2), Box::Text3);
    EXPECT_EQ(LinePredictor::NextBox(Box::Text6), std::nullopt);
    EXPECT_EQ(LinePredictor::NextBox(Box::Text9), Box::Text11);
    EXPECT_EQ(LinePredictor::BoxBelow(Box::Text1), Box::Text3);
    EXPECT_EQ(LinePredictor::BoxBelow(Box::Text4), Box::Text6);
    EXPECT_EQ(LinePredictor::BoxBelow(Box::Text7), Box::Text9);
    EXPECT_EQ(LinePredictor::BoxBelow(Box::Text6), std::nullopt);
}

}  // namespace
}  // namespace morvane
