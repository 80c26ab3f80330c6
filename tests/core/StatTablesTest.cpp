// The t, chi-square and r tables as stored.
#include "core/StatTables.h"

#include "core/Fault.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(TTable, UntabulatedDegreesOfFreedomTakeTheNextLowerRow) {
    EXPECT_EQ(TValueText("31", 1), TValueText("30", 1));
    EXPECT_EQ(TValueText("31", 1), "2.042");
    EXPECT_EQ(TValueText("34", 0), "1.697");
    EXPECT_EQ(TValueText("36", 1), "2.03");
    EXPECT_EQ(TValueText("119", 1), "1.982");
    EXPECT_EQ(TValueText("120", 1), "1.98");
}

TEST(TTable, OneHundredThirtyGivesTheNormalDeviate) {
    EXPECT_EQ(TValueText("130", 0), "1.6448");
    EXPECT_EQ(TValueText("130", 1), "1.96");
    EXPECT_EQ(TValueText("130", 2), "2.5758");
    EXPECT_EQ(TValueText("121", 2), "2.5758");
}

TEST(TTable, StoredValuesAndHeadings) {
    EXPECT_EQ(TValueText("1", 2), "63.657");
    EXPECT_EQ(TValueText("100", 1), "1.982");
    EXPECT_EQ(TValueText("", 1), "");
    EXPECT_EQ(TGrid().text(0, 0), "d f");
    EXPECT_EQ(TGrid().rows(), 122);
}

TEST(ChiSquareTable, StoredValuesAndTheRowOfThirtyBeyondIt) {
    EXPECT_EQ(TabulatedChiSquare(1), "3.8");
    EXPECT_EQ(TabulatedChiSquare(5), "11.1");
    EXPECT_EQ(TabulatedChiSquare(11), "19.65");
    EXPECT_EQ(TabulatedChiSquare(30), "43.8");
    EXPECT_EQ(TabulatedChiSquare(31), "43.8");
    EXPECT_EQ(TabulatedChiSquare(1000), "43.8");
}

TEST(ChiSquareTable, NoRowBelowOneDegreeOfFreedom) {
    EXPECT_THROW(TabulatedChiSquare(0), Fault);
}

TEST(CriticalR, StoredInterpolatedValues) {
    EXPECT_EQ(CriticalR(1), 0.997);
    EXPECT_EQ(CriticalR(20), 0.423);
    EXPECT_EQ(CriticalR(21), 0.4146);
    EXPECT_EQ(CriticalR(29), 0.3554);
    EXPECT_EQ(CriticalR(30), 0.349);
    EXPECT_THROW(CriticalR(31), Fault);
}

}  // namespace
}  // namespace morvane
