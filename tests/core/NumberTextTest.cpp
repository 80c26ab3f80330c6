// The rules by which numbers pass through text: plain text, format patterns,
// exponent patterns and the conversions back.
#include "core/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>

namespace morvane {
namespace {

TEST(PlainText, ShortestDecimalWithoutTrailingZeros) {
    EXPECT_EQ(PlainText(0.5), "0.5");
    EXPECT_EQ(PlainText(2.5), "2.5");
    EXPECT_EQ(PlainText(100), "100");
    EXPECT_EQ(PlainText(-12.25), "-12.25");
    EXPECT_EQ(PlainText(0), "0");
    EXPECT_EQ(PlainText(-0.0), "0");
    EXPECT_EQ(PlainText(1000), "1000");
    EXPECT_EQ(PlainText(0.1 + 0.2), "0.3");
}

TEST(PlainText, FifteenSignificantDigits) {
    EXPECT_EQ(PlainText(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(PlainText(2.0 / 3.0), "0.666666666666667");
    EXPECT_EQ(PlainText(123456789012345.0), "123456789012345");
}

TEST(PlainText, ExponentFormWhenPlainNeedsMoreThanFifteenDigits) {
    EXPECT_EQ(PlainText(1.0 / 3000.0), "3.33333333333333E-04");
    EXPECT_EQ(PlainText(1e15), "1E+15");
    EXPECT_EQ(PlainText(1234567890123456.0), "1.23456789012346E+15");
    EXPECT_EQ(PlainText((99.001 - 99) * 10), "1.00000000000477E-02");
    EXPECT_EQ(PlainText(1e-20), "1E-20");
    EXPECT_EQ(PlainText(-2.5e-300), "-2.5E-300");
}

TEST(PlainText, SmallNumbersStayPlainWhileFifteenDigitsSuffice) {
    EXPECT_EQ(PlainText(0.0001), "0.0001");
    EXPECT_EQ(PlainText(0.00012345), "0.00012345");
    EXPECT_EQ(PlainText(1e-14), "0.00000000000001");
    EXPECT_EQ(PlainText(1e-15), "0.000000000000001");
    EXPECT_EQ(PlainText(1e-16), "1E-16");
    EXPECT_EQ(PlainText(1.5e-14), "0.000000000000015");
    EXPECT_EQ(PlainText(1.5e-15), "1.5E-15");
    EXPECT_EQ(PlainText(100000000000000.0), "100000000000000");
}

TEST(PlainDecimalText, NeverExponentForm) {
    EXPECT_EQ(PlainDecimalText(1.0 / 3000.0), "0.000333333333333333");
    EXPECT_EQ(PlainDecimalText(0.0999895277), "0.0999895277");
    EXPECT_EQ(PlainDecimalText(1e15), "1000000000000000");
}

TEST(FormatNumber, FixedPatternsRoundHalfAwayFromZero) {
    EXPECT_EQ(FormatNumber(12.5, "0.000"), "12.500");
    EXPECT_EQ(FormatNumber(2.0005, "0.000"), "2.001");
    EXPECT_EQ(FormatNumber(0.00005, "0.0000"), "0.0001");
    EXPECT_EQ(FormatNumber(0.00004999, "0.0000"), "0.0000");
    EXPECT_EQ(FormatNumber(-2.5, "0"), "-3");
    EXPECT_EQ(FormatNumber(2.5, "0"), "3");
    EXPECT_EQ(FormatNumber(0.5, "0.00"), "0.50");
    EXPECT_EQ(FormatNumber(99.9996, "0.000"), "100.000");
    EXPECT_EQ(FormatNumber(0, "0.0000"), "0.0000");
    EXPECT_EQ(FormatNumber(1234567.891, "0.000"), "1234567.891");
    EXPECT_EQ(FormatNumber(-0.00001, "0.000"), "0.000");
}

TEST(FormatNumber, RoundsTheFifteenDigitValueNotTheBinaryOne) {
    // 1.0005 is stored as 1.000499999999999989...; its 15-digit value is 1.0005.
    EXPECT_EQ(FormatNumber(1.0005, "0.000"), "1.001");
    EXPECT_EQ(FormatNumber(0.125, "0.00"), "0.13");
    EXPECT_EQ(FormatNumber(1.00005, "0.0000"), "1.0001");
}

TEST(FormatNumber, ExponentPatterns) {
    EXPECT_EQ(FormatNumber(1234567, "00000E+0"), "12346E+2");
    EXPECT_EQ(FormatNumber(100000, "00000E+0"), "10000E+1");
    EXPECT_EQ(FormatNumber(999995, "00000E+0"), "10000E+2");
    EXPECT_EQ(FormatNumber(0.000001234567, "00000E+0"), "12346E-10");
    EXPECT_EQ(FormatNumber(-0.5, "00000E+0"), "-50000E-5");
    EXPECT_EQ(FormatNumber(1234567, "0E+0"), "1E+6");
    EXPECT_EQ(FormatNumber(9.6e-7, "0E+0"), "1E-6");
    EXPECT_EQ(FormatNumber(12345, "00000E+0"), "12345E+0");
}

TEST(ParseNumber, StandardConversion) {
    EXPECT_EQ(ParseNumber("12.5"), 12.5);
    EXPECT_EQ(ParseNumber(" -3 "), -3.0);
    EXPECT_EQ(ParseNumber(".5"), 0.5);
    EXPECT_EQ(ParseNumber("1E-3"), 0.001);
    EXPECT_EQ(ParseNumber("3.33333333333333E-04"), 3.33333333333333E-04);
    EXPECT_FALSE(ParseNumber(""));
    EXPECT_FALSE(ParseNumber("abc"));
    EXPECT_FALSE(ParseNumber("1.2.3"));
    EXPECT_FALSE(ParseNumber("out of scale"));
    EXPECT_FALSE(ParseNumber("1E"));
}

TEST(ParseNumber, NumberOfAndNumberOrZero) {
    EXPECT_EQ(NumberOrZero(""), 0.0);
    EXPECT_EQ(NumberOrZero("7.5"), 7.5);
    EXPECT_THROW(NumberOf(""), Fault);
    EXPECT_THROW(NumberOf("x"), Fault);
    EXPECT_THROW(NumberOrZero("x"), Fault);
}

TEST(RoundHalfEven32, HalvesGoToTheEvenNeighbour) {
    EXPECT_EQ(RoundHalfEven32(100.5), 100);
    EXPECT_EQ(RoundHalfEven32(101.5), 102);
    EXPECT_EQ(RoundHalfEven32(-2.5), -2);
    EXPECT_EQ(RoundHalfEven32(7.4), 7);
    EXPECT_FALSE(RoundHalfEven32(3e9));
}

TEST(Logarithms, TakenAsNaturalLogOverNaturalLogOfTen) {
    EXPECT_EQ(Log10(1000), std::log(1000.0) / std::log(10.0));
    EXPECT_EQ(FormatNumber(Log10(1000), "0.0000"), "3.0000");
    EXPECT_EQ(PowerOfTen(2), 100.0);
}

}  // namespace
}  // namespace morvane
