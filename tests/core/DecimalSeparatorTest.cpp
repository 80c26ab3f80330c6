// Numbers typed in a locale whose decimal separator is a comma: "2,5" reads as 2.5,
// the point still reads, and every number is still written with the point.
#include <gtest/gtest.h>

#include "core/NumberText.h"

namespace morvane {
namespace {

class DecimalSeparatorTest : public ::testing::Test {
  protected:
    void SetUp() override { SetTypedDecimalSeparator(","); }
    void TearDown() override { SetTypedDecimalSeparator("."); }
};

TEST_F(DecimalSeparatorTest, CommaReadsAsThePoint) {
    EXPECT_EQ(TypedDecimalSeparator(), ',');
    EXPECT_EQ(ParseNumber("2,5"), 2.5);
    EXPECT_EQ(ParseNumber(" -0,125 "), -0.125);
    EXPECT_EQ(ParseNumber("1,5E+2"), 150.0);
    EXPECT_EQ(NumberOf("99,9"), 99.9);
    EXPECT_EQ(NumberOrZero("0,1"), 0.1);
}

TEST_F(DecimalSeparatorTest, PointStillReads) {
    EXPECT_EQ(ParseNumber("2.5"), 2.5);
    EXPECT_EQ(ParseNumber("12"), 12.0);
}

TEST_F(DecimalSeparatorTest, MixedOrDoubledSeparatorsAreNoNumber) {
    EXPECT_EQ(ParseNumber("1,000.5"), std::nullopt);
    EXPECT_EQ(ParseNumber("12,3.4"), std::nullopt);
    EXPECT_EQ(ParseNumber("1,2,3"), std::nullopt);
    EXPECT_EQ(ParseNumber(","), std::nullopt);
    EXPECT_THROW(NumberOf("2,5a"), Fault);
}

TEST_F(DecimalSeparatorTest, WritingKeepsThePoint) {
    EXPECT_EQ(PlainText(2.5), "2.5");
    EXPECT_EQ(FormatNumber(0.125, "0.00"), "0.13");
    EXPECT_EQ(PlainText(*ParseNumber("3,75")), "3.75");
}

TEST(DecimalSeparator, PointLocaleReadsNoComma) {
    SetTypedDecimalSeparator(".");
    EXPECT_EQ(TypedDecimalSeparator(), '.');
    EXPECT_EQ(ParseNumber("2,5"), std::nullopt);
    EXPECT_EQ(ParseNumber("2.5"), 2.5);
}

TEST(DecimalSeparator, UnusableSeparatorsLeaveThePoint) {
    for (const char* separator : {"", ",,", "-", "+", "5", "e"}) {
        SetTypedDecimalSeparator(separator);
        EXPECT_EQ(TypedDecimalSeparator(), '.') << separator;
    }
    SetTypedDecimalSeparator(".");
}

}  // namespace
}  // namespace morvane
