// The estimates of one line of a comparison. The line of most tests passes through
// probit 5 at log dose 1 with slope 2, so the dose at a percentage with probit y is
// 10^((y - 5 + 2) / 2); probits come from the table of probits (90% is 6.2816, 20%
// is 4.1584). Expected texts follow the comparison's number format: three decimals
// from 0.01 up to 99999, five-digit exponent form beyond.
#include "relative/LineEstimates.h"

#include <gtest/gtest.h>

#include "FittedLines.h"
#include "core/Fault.h"

namespace morvane {
namespace {

using testing::Fitted;
using testing::LineFigures;

SharedRegisters WithLine(const LineFigures& figures) {
    SharedRegisters shared;
    shared.fit = Fitted(figures);
    return shared;
}

TEST(LineEstimateAtPercent, FiftyPercentIsTheDoseAtTheMeanProbit) {
    SharedRegisters shared = WithLine({});
    shared.WorkValue = 50;
    LineEstimateAtPercent(shared, false);
    EXPECT_EQ(shared.WorkText, "10.000");
    EXPECT_EQ(shared.WorkValue, 10);
    EXPECT_EQ(shared.LogEstimate, 1);
}

TEST(LineEstimateAtPercent, NinetyPercent) {
    // x = (6.2816 - 5 + 2) / 2 = 1.6408; 10^1.6408 = 43.7320...
    SharedRegisters shared = WithLine({});
    shared.WorkValue = 90;
    LineEstimateAtPercent(shared, false);
    EXPECT_EQ(shared.WorkText, "43.732");
    EXPECT_DOUBLE_EQ(shared.LogEstimate, 1.6408);
}

TEST(LineEstimateAtPercent, TheDoseScaleBringsTheDoseBackToTheUsersUnits) {
    SharedRegisters shared = WithLine({.doseScale = 1000});
    shared.WorkValue = 50;
    LineEstimateAtPercent(shared, false);
    EXPECT_EQ(shared.WorkText, "0.010");
    EXPECT_EQ(shared.LogEstimate, 1);  // on the line's own scaled doses
}

TEST(LineEstimateAtPercent, LogOnlyStopsAtTheLogDoseAndLeavesTheText) {
    SharedRegisters shared = WithLine({});
    shared.WorkText = "before";
    shared.LogEstimate = -7;
    shared.WorkValue = 20;
    LineEstimateAtPercent(shared, true);
    EXPECT_DOUBLE_EQ(shared.WorkValue, 0.5792);  // (4.1584 - 5 + 2) / 2
    EXPECT_EQ(shared.WorkText, "before");
    EXPECT_EQ(shared.LogEstimate, -7);
}

TEST(LineEstimateAtPercent, AnOverflowingDoseKeepsTheTextOfThePreviousEstimate) {
    // Slope 0.001 through probit 5 at log dose 0: 90% lies at log dose 1281.6.
    SharedRegisters shared = WithLine({.slope = 0.001, .meanLogDose = 0});
    shared.WorkText = "12.345";
    shared.WorkValue = 90;
    LineEstimateAtPercent(shared, false);
    EXPECT_EQ(shared.WorkText, "12.345");
    EXPECT_DOUBLE_EQ(shared.LogEstimate, 1281.6);
    EXPECT_DOUBLE_EQ(shared.WorkValue, 1281.6);
}

TEST(LineEstimateAtPercent, ADoseThatUnderflowsToZeroAlsoKeepsThePreviousText) {
    // 10% lies at log dose (3.7184 - 5) / 0.001 = -1281.6, whose power is 0.
    SharedRegisters shared = WithLine({.slope = 0.001, .meanLogDose = 0});
    shared.WorkText = "7.000";
    shared.WorkValue = 10;
    LineEstimateAtPercent(shared, false);
    EXPECT_EQ(shared.WorkText, "7.000");
    EXPECT_EQ(shared.WorkValue, 0);
}

TEST(LineEstimateAtPercent, PercentagesBeyondTheScaleCountAsProbitsOneAndNine) {
    // Probit 9 gives x = (9 - 5 + 2) / 2 = 3, probit 1 gives x = -1.
    SharedRegisters shared = WithLine({});
    shared.WorkValue = 99.95;
    LineEstimateAtPercent(shared, false);
    EXPECT_EQ(shared.WorkText, "1000.000");
    shared.WorkValue = 0.05;
    LineEstimateAtPercent(shared, false);
    EXPECT_EQ(shared.WorkText, "0.100");
}

TEST(LineEstimateAtPercent, HugeDosesTakeTheExponentForm) {
    // 50% at log dose 6.0915: 10^6.0915 = 1234.5 thousand.
    SharedRegisters shared = WithLine({.meanLogDose = 6.0915});
    shared.WorkValue = 50;
    LineEstimateAtPercent(shared, false);
    EXPECT_EQ(shared.WorkText, "12345E+2");
}

TEST(LineFiducialLimits, LimitsOfTheFiftyPercentDose) {
    // m = 1 = mean log dose: D = sqrt(0.9 / 50) = 0.134164, H = 1.96 / 1.8 * D =
    // 0.146090, C = 1; 10^1.146090 = 13.999 and 10^0.853910 = 7.143.
    SharedRegisters shared = WithLine({});
    shared.WorkValue = 50;
    LineEstimateAtPercent(shared, false);
    LineFiducialLimits(shared);
    EXPECT_EQ(shared.UpperLimit, 13.999);
    EXPECT_EQ(shared.LowerLimit, 7.143);
    EXPECT_EQ(shared.WorkText, "7.143");
}

TEST(LineFiducialLimits, TheHeterogeneityFactorStandsOnTheSecondTermOnly) {
    SharedRegisters homogeneous = WithLine({});
    homogeneous.LogEstimate = 1.6408;
    LineFiducialLimits(homogeneous);
    EXPECT_EQ(homogeneous.UpperLimit, 168.486);
    EXPECT_EQ(homogeneous.LowerLimit, 15.756);

    SharedRegisters heterogeneous = WithLine({.doseScale = 1000, .heterogeneity = 2.5});
    heterogeneous.LogEstimate = 1.6408;
    LineFiducialLimits(heterogeneous);
    EXPECT_EQ(heterogeneous.UpperLimit, 0.181);
    EXPECT_EQ(heterogeneous.LowerLimit, 0.015);
}

TEST(LineFiducialLimits, ANegativeSlopeStillGivesTheLargerLimitAsUpper) {
    // Slope -2: 90% lies at x = (6.2816 - 5 - 2) / -2 = 0.3592.
    SharedRegisters shared = WithLine({.slope = -2});
    shared.WorkValue = 90;
    LineEstimateAtPercent(shared, false);
    EXPECT_EQ(shared.WorkText, "2.287");
    LineFiducialLimits(shared);
    EXPECT_EQ(shared.UpperLimit, 6.347);
    EXPECT_EQ(shared.LowerLimit, 0.594);
}

TEST(LineFiducialLimits, ADivisionByZeroIsAFault) {
    SharedRegisters noWeights = WithLine({.sumWeights = 0});
    noWeights.LogEstimate = 1;
    EXPECT_THROW(LineFiducialLimits(noWeights), Fault);
    SharedRegisters noSpread = WithLine({.sumSquaresLogDose = 0});
    noSpread.LogEstimate = 1;
    EXPECT_THROW(LineFiducialLimits(noSpread), Fault);
}

TEST(LineFiducialLimits, AnOverflowingLimitIsAFault) {
    SharedRegisters shared = WithLine({});
    shared.LogEstimate = 400;
    EXPECT_THROW(LineFiducialLimits(shared), Fault);
}

}  // namespace
}  // namespace morvane
