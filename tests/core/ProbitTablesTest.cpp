// The probit tables and transforms: grid points, interpolation, the four-character
// cut, the kept table exceptions and the outputs that persist.
#include "core/ProbitTables.h"

#include <gtest/gtest.h>

#include "core/NumberText.h"

namespace morvane {
namespace {

TEST(ProbitTableEntries, FollowTheRuleAndKeepThePrintedExceptions) {
    EXPECT_EQ(ProbitTables::ProbitLow(1), 1.9098);
    EXPECT_EQ(ProbitTables::ProbitMiddle(1), 2.6737);
    EXPECT_EQ(ProbitTables::ProbitLow(10), 2.6737);
    EXPECT_EQ(ProbitTables::ProbitMiddle(50), 5);
    EXPECT_EQ(ProbitTables::ProbitMiddle(99), 7.3263);
    EXPECT_EQ(ProbitTables::ProbitHigh(0), 7.3263);
    EXPECT_EQ(ProbitTables::ProbitHigh(9), 8.0902);
    EXPECT_EQ(ProbitTables::ProbitLow(0), 0);
    EXPECT_EQ(ProbitTables::ProbitHigh(10), 0);
    EXPECT_EQ(ProbitTables::ExpectedProbit(80), 0);
    // i = 56 is Y = 6.6, i = 10 is Y = 2 and i = 70 is Y = 8.
    EXPECT_EQ(ProbitTables::MinimumWorking(56), -2.9214);
    EXPECT_EQ(ProbitTables::MinimumWorking(57), -3.4488);
    EXPECT_EQ(ProbitTables::WorkingRange(10), 225.3695);
    EXPECT_EQ(ProbitTables::WorkingRange(70), 225.3695);
    EXPECT_EQ(ProbitTables::WorkingRange(1), 5033.8402);
    EXPECT_EQ(ProbitTables::MinimumWorking(79), -5024.6981);
}

TEST(ProbitTableEntries, TellingRows) {
    struct Row {
        int i;
        double minimum, range, weight;
    };
    const Row rows[] = {{1, 0.8579, 5033.8402, 0.00082},  {20, 2.5786, 18.5216, 0.13112},
                        {40, 3.7467, 2.5066, 0.63662},    {55, -0.7051, 7.721, 0.26907},
                        {60, -11.1002, 18.5216, 0.13112}, {79, -5024.6981, 5033.8402, 0.00082}};
    for (const Row& r : rows) {
        EXPECT_EQ(ProbitTables::MinimumWorking(r.i), r.minimum) << r.i;
        EXPECT_EQ(ProbitTables::WorkingRange(r.i), r.range) << r.i;
        EXPECT_EQ(ProbitTables::WeightingCoefficient(r.i), r.weight) << r.i;
    }
}

TEST(PercentToProbit, GridPointsReproduceTheTable) {
    ProbitTables t;
    EXPECT_EQ(t.PercentToProbit("50"), "5");
    EXPECT_EQ(t.PercentToProbit("1"), "2.6737");
    EXPECT_EQ(t.PercentToProbit("99"), "7.3263");
    EXPECT_EQ(t.PercentToProbit("0.1"), "1.9098");
    EXPECT_EQ(t.PercentToProbit("99.9"), "8.0902");
    EXPECT_EQ(t.PercentToProbit("99.5"), "7.5758");
}

TEST(PercentToProbit, InterpolatesLinearly) {
    ProbitTables t;
    // Between 50 (5) and 51 (5.0251): a quarter of the way.
    EXPECT_EQ(t.PercentToProbit("50.25"), PlainText(5.0251 + (5 - 5.0251) * (50.25 - 51) / -1));
    EXPECT_EQ(NumberOf(t.PercentToProbit("50.25")), 5.006275);
}

TEST(PercentToProbit, HiddenOutOfRangeGivesOneAndNine) {
    ProbitTables t;
    EXPECT_EQ(t.PercentToProbit("0.05"), "1");
    EXPECT_EQ(t.PercentToProbit("99.95"), "9");
}

TEST(PercentToProbit, ShownOutOfRangeIsOutOfScale) {
    ProbitTables t;
    t.setVisible(true);
    EXPECT_EQ(t.PercentToProbit("0.05"), "out of scale");
    EXPECT_EQ(t.PercentToProbit("99.95"), "out of scale");
}

TEST(PercentToProbit, FourCharacterCutJustAbove99) {
    ProbitTables t;
    // x = (99.001 - 99) * 10 is written 1.00000000000477E-02, whose first four
    // characters read 1: k = 1 and k = 2 both match and the later one stands, so the
    // segment from 99.1 to 99.2 is extended downward.
    ASSERT_EQ(PlainText((99.001 - 99) * 10), "1.00000000000477E-02");
    const std::string out = t.PercentToProbit("99.001");
    const double h2 = ProbitTables::ProbitHigh(2), h1 = ProbitTables::ProbitHigh(1);
    EXPECT_EQ(out, PlainText(h2 + (h1 - h2) * (99.001 - (0.2 + 99)) / ((0.1 + 99) - (0.2 + 99))));
    EXPECT_EQ(FormatNumber(NumberOf(out), "0.0000"), "7.3227");
}

TEST(PercentToProbit, FourCharacterCutAboveNineMatchesNothing) {
    ProbitTables t;
    t.PercentToProbit("50");
    // x is written 9.98999999999...E-03, whose first four characters read 9.98:
    // no k matches and the old output stays.
    ASSERT_EQ(PlainText((99.000999 - 99) * 10).substr(0, 4), "9.98");
    EXPECT_EQ(t.PercentToProbit("99.000999"), "5");
}

TEST(PercentToProbit, ACutReadingZeroReadsTheTableBelowItsStart) {
    ProbitTables t;
    // 99 + 2^-10 is exact: x = 0.009765625 is written plainly and its first four
    // characters read 0, so k = 0 matches and the table is read at index -1.
    ASSERT_EQ(PlainText((99.0009765625 - 99) * 10), "0.009765625");
    EXPECT_THROW(t.PercentToProbit("99.0009765625"), Fault);
}

TEST(PercentToProbit, EmptyInputEmptiesTheOutputAndSameTextDoesNothing) {
    ProbitTables t;
    EXPECT_EQ(t.PercentToProbit("50"), "5");
    EXPECT_EQ(t.PercentToProbit(""), "");
    EXPECT_EQ(t.PercentToProbit("50"), "5");
}

TEST(ProbitToPercent, LimitsAndCut) {
    ProbitTables t;
    EXPECT_EQ(t.ProbitToPercent("1.9096"), "0.09998");
    EXPECT_EQ(t.ProbitToPercent("1.9095"), "out of scale");
    EXPECT_EQ(t.ProbitToPercent("8.0903"), "out of scale");
    EXPECT_EQ(t.ProbitToPercent("5"), "50");
    EXPECT_EQ(t.ProbitToPercent("2.6737"), "1");
    EXPECT_EQ(t.ProbitToPercent("7.3263"), "99");
    EXPECT_EQ(t.ProbitToPercent("8.0902"), "99.9");
    EXPECT_EQ(t.ProbitToPercent("1.9098"), "0.1");
    EXPECT_EQ(t.ProbitToPercent(""), "");
}

TEST(ProbitToPercent, CutsToSevenCharactersWithoutRounding) {
    ProbitTables t;
    // Between 5.0251 (51) and 5.0502 (52): 51 + 0.01/0.0251 = 51.398406...
    EXPECT_EQ(t.ProbitToPercent("5.0351"), "51.3984");
}

TEST(WorkingProbit, MiddleOfTheTable) {
    ProbitTables t;
    t.setWorkingExpected("5");
    t.setWorkingResponse("50");
    EXPECT_EQ(t.WorkingValue(), "5");
    EXPECT_EQ(t.WorkingWeight(), "0.63662");
    EXPECT_EQ(t.workingResponse(), "50");
}

TEST(WorkingProbit, OutsideTheTableLeavesBothOutputsEmpty) {
    ProbitTables t;
    t.setWorkingExpected("1");
    t.setWorkingResponse("40");
    EXPECT_EQ(t.WorkingValue(), "");
    EXPECT_EQ(t.WorkingWeight(), "");
    t.setWorkingExpected("8.9");
    EXPECT_EQ(t.WorkingValue(), "");
    EXPECT_EQ(t.WorkingWeight(), "");
    t.setWorkingExpected("8.89");
    EXPECT_NE(t.WorkingWeight(), "");
}

TEST(WorkingProbit, ZeroResponseEmptiesTheBoxAndGivesTheMinimum) {
    ProbitTables t;
    t.setWorkingExpected("5");
    t.setWorkingResponse("0");
    EXPECT_EQ(t.workingResponse(), "");
    EXPECT_EQ(t.WorkingValue(), "3.7467");
    EXPECT_EQ(t.WorkingWeight(), "0.63662");
}

TEST(WorkingProbit, ResponseBoxRewritesItsOwnText) {
    ProbitTables t;
    t.setWorkingExpected("5");
    t.setWorkingResponse("12.500");
    EXPECT_EQ(t.workingResponse(), "12.5");
    t.setWorkingResponse("150");
    EXPECT_EQ(t.workingResponse(), "100");
    EXPECT_EQ(t.WorkingValue(), PlainText(100.0 / 100 * 2.5066 + 3.7467));
}

TEST(WorkingProbit, InterpolatesBetweenRows) {
    ProbitTables t;
    t.setWorkingExpected("5.05");
    t.setWorkingResponse("50");
    const double f = (5.05 - 5.1) / (5.0 - 5.1);
    const double m = ProbitTables::MinimumWorking(41) +
                     (ProbitTables::MinimumWorking(40) - ProbitTables::MinimumWorking(41)) * f;
    const double r = ProbitTables::WorkingRange(41) +
                     (ProbitTables::WorkingRange(40) - ProbitTables::WorkingRange(41)) * f;
    EXPECT_EQ(t.WorkingValue(), PlainText(50.0 / 100 * r + m));
}

TEST(ProbitTables, ResetEmptiesEverything) {
    ProbitTables t;
    t.PercentToProbit("50");
    t.ProbitToPercent("5");
    t.setWorkingExpected("5");
    t.setWorkingResponse("50");
    t.reset();
    EXPECT_EQ(t.PercentProbit(), "");
    EXPECT_EQ(t.ProbitPercent(), "");
    EXPECT_EQ(t.WorkingValue(), "");
    EXPECT_EQ(t.WorkingWeight(), "");
}

}  // namespace
}  // namespace morvane
