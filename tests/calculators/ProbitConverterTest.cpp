// The probit converter dialog over the probit tables in their visible branch.

#include "calculators/ProbitConverter.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

using Box = ProbitConverter::Box;

class ProbitConverterTest : public ::testing::Test {
  protected:
    ProbitConverterTest() : converter(probit) { converter.Open(); }
    ProbitTables probit;
    ProbitConverter converter;
};

TEST_F(ProbitConverterTest, OpeningEmptiesTheBoxesAndResults) {
    converter.setText(Box::Text1, "50");
    converter.setText(Box::Text3, "5");
    converter.Close();
    converter.Open();
    for (Box box : {Box::Text1, Box::Text2, Box::Text3, Box::Text4})
        EXPECT_EQ(converter.text(box), "");
    EXPECT_EQ(converter.Label1(), "");
    EXPECT_EQ(converter.Label2(), "");
    EXPECT_EQ(converter.Label12(), "");
    EXPECT_EQ(converter.Label13(), "");
    EXPECT_TRUE(probit.visible());
}

TEST_F(ProbitConverterTest, PercentToProbitAtOnce) {
    converter.setText(Box::Text1, "5");
    EXPECT_EQ(converter.Label1(), "3.3551");
    converter.setText(Box::Text1, "50");
    EXPECT_EQ(converter.Label1(), "5");
    converter.setText(Box::Text1, "");
    EXPECT_EQ(converter.Label1(), "");
}

TEST_F(ProbitConverterTest, PercentBelowOneTenthIsOutOfScaleOnlyWhileShown) {
    converter.setText(Box::Text1, "0.05");
    EXPECT_EQ(converter.Label1(), "out of scale");
    converter.Close();
    EXPECT_FALSE(probit.visible());
    EXPECT_EQ(probit.PercentToProbit("0.05"), "1");
}

TEST_F(ProbitConverterTest, ProbitAboveTheTableIsOutOfScale) {
    converter.setText(Box::Text2, "8.1");
    EXPECT_EQ(converter.Label2(), "out of scale");
    converter.setText(Box::Text2, "5");
    EXPECT_EQ(converter.Label2(), "50");
}

TEST_F(ProbitConverterTest, ResponseAbove100TurnsTo100) {
    converter.setText(Box::Text4, "150");
    EXPECT_EQ(converter.text(Box::Text4), "100");
}

TEST_F(ProbitConverterTest, ResponseOfZeroEmptiesTheBox) {
    converter.setText(Box::Text3, "5");
    converter.setText(Box::Text4, "0");
    EXPECT_EQ(converter.text(Box::Text4), "");
    // Computed with p = 0: the minimum working probit.
    EXPECT_EQ(converter.Label12(), "3.7467");
    EXPECT_EQ(converter.Label13(), "0.63662");
}

TEST_F(ProbitConverterTest, WorkingProbitOfFiveAtFiftyPercent) {
    converter.setText(Box::Text3, "5");
    converter.setText(Box::Text4, "50");
    EXPECT_EQ(converter.Label12(), "5");
    EXPECT_EQ(converter.Label13(), "0.63662");
}

TEST_F(ProbitConverterTest, LeavingABoxWritesThePlainNumber) {
    converter.setText(Box::Text1, "05");
    EXPECT_TRUE(converter.leave(Box::Text1));
    EXPECT_EQ(converter.text(Box::Text1), "5");
    converter.setText(Box::Text3, "5.50");
    EXPECT_TRUE(converter.leave(Box::Text3));
    EXPECT_EQ(converter.text(Box::Text3), "5.5");
    converter.setText(Box::Text2, "");
    EXPECT_TRUE(converter.leave(Box::Text2));
    EXPECT_EQ(converter.text(Box::Text2), "");
}

TEST_F(ProbitConverterTest, TextThatIsNoNumberLeavesTheResultEmpty) {
    converter.setText(Box::Text1, "50");
    converter.setText(Box::Text1, "5,5");
    EXPECT_EQ(converter.Label1(), "");
    EXPECT_FALSE(converter.leave(Box::Text1));
    EXPECT_EQ(converter.text(Box::Text1), "5,5");
    converter.setText(Box::Text1, "50");
    EXPECT_EQ(converter.Label1(), "5");
    converter.setText(Box::Text3, "5");
    converter.setText(Box::Text4, ".");
    EXPECT_EQ(converter.Label12(), "");
    converter.setText(Box::Text4, "50");
    EXPECT_EQ(converter.Label12(), "5");
}

TEST_F(ProbitConverterTest, KeysOfTheBoxes) {
    for (Box box : {Box::Text1, Box::Text2, Box::Text3, Box::Text4}) {
        EXPECT_TRUE(ProbitConverter::KeyAllowed(box, '7'));
        EXPECT_TRUE(ProbitConverter::KeyAllowed(box, '.'));
        EXPECT_TRUE(ProbitConverter::KeyAllowed(box, ','));
        EXPECT_TRUE(ProbitConverter::KeyAllowed(box, 8));
        EXPECT_FALSE(ProbitConverter::KeyAllowed(box, 'e'));
        EXPECT_FALSE(ProbitConverter::KeyAllowed(box, '-'));
    }
    EXPECT_TRUE(ProbitConverter::KeyAllowed(Box::Text1, 13));
    EXPECT_TRUE(ProbitConverter::KeyAllowed(Box::Text2, 13));
    EXPECT_FALSE(ProbitConverter::KeyAllowed(Box::Text3, 13));
    EXPECT_FALSE(ProbitConverter::KeyAllowed(Box::Text4, 13));
}

TEST_F(ProbitConverterTest, FocusOnActivationAndTabs) {
    EXPECT_EQ(ProbitConverter::FocusOnActivate(), Box::Text1);
    EXPECT_EQ(ProbitConverter::FocusOnTab(0), Box::Text1);
    EXPECT_EQ(ProbitConverter::FocusOnTab(1), Box::Text3);
}

TEST_F(ProbitConverterTest, NewResultSlidesItsPanelDownAndBack) {
    converter.setText(Box::Text1, "50");
    SlidingPanel& panel = converter.Picture3();
    EXPECT_TRUE(panel.running());
    EXPECT_FALSE(converter.Picture4().running());
    std::vector<int> tops;
    while (panel.running()) {
        panel.tick();
        tops.push_back(panel.top());
    }
    EXPECT_EQ(tops, (std::vector<int>{-300, -100, 100, 300, 500, -500}));
}

TEST_F(ProbitConverterTest, SameResultDoesNotSlide) {
    converter.setText(Box::Text2, "5");
    SlidingPanel& panel = converter.Picture4();
    while (panel.running())
        panel.tick();
    converter.setText(Box::Text2, "5.0");
    EXPECT_FALSE(panel.running());
}

}  // namespace
}  // namespace morvane
