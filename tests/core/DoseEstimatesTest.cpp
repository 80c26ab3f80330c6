// Estimates, fiducial limits, the response of a dose, the format rules, and the
// statistics of the fit that the estimates depend on.
#include "core/DoseEstimates.h"

#include <gtest/gtest.h>

#include "core/LineCalculation.h"
#include "core/LineFit.h"
#include "core/NumberText.h"
#include "support/HandLine.h"
#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

using testing::ScriptedUserPort;
using testing::SetHandLine;

// A line through probit 5 at dose 10 with slope 2, DoseScale 1.
SharedRegisters LineThroughTen() {
    SharedRegisters s;
    SetHandLine(s.fit, {.g = 0.1});
    return s;
}

TEST(EstimateAtPercent, FiftyPercentOfALineThroughTen) {
    SharedRegisters s = LineThroughTen();
    s.WorkValue = 50;
    EstimateAtPercent(s);
    EXPECT_EQ(s.WorkValue, 10);
    EXPECT_EQ(s.LogEstimate, 1);
}

TEST(EstimateAtPercent, OneStandardDeviationAboveTheMiddle) {
    SharedRegisters s = LineThroughTen();
    s.WorkValue = 84.13;
    EstimateAtPercent(s);
    // Probit of 84.13 by the tables: 6.0364 - 0.0419 * 0.87 = 5.999947; the log
    // dose is (5.999947 - 5 + 2) / 2 = 1.4999735 and the dose 10^1.4999735 = 31.6208,
    // close to 10^1.5 = 31.62.
    EXPECT_NEAR(s.WorkValue, 31.6, 0.05);
    EXPECT_EQ(PlainText(s.WorkValue), "31.6208");
}

TEST(EstimateAtPercent, GJustBelowPointFourGivesLimitsAndPointFourNone) {
    SharedRegisters s = LineThroughTen();
    s.fit.GValue = 0.399;
    s.WorkValue = 50;
    EstimateAtPercent(s);
    EXPECT_NE(s.LowerLimit, 0);
    EXPECT_NE(s.UpperLimit, 0);
    EXPECT_LT(s.LowerLimit, 10);
    EXPECT_GT(s.UpperLimit, 10);

    s.fit.GValue = 0.4;
    s.WorkValue = 50;
    EstimateAtPercent(s);
    EXPECT_EQ(s.LowerLimit, 0);
    EXPECT_EQ(s.UpperLimit, 0);
}

TEST(EstimateAtPercent, EstimatesAreCutToFourDecimals) {
    SharedRegisters s = LineThroughTen();
    s.fit.Slope = 1;
    s.fit.MeanLogDose = -4;  // 50% at a dose of 0.0001, 25% lower still
    s.WorkValue = 1;
    EstimateAtPercent(s);
    EXPECT_EQ(s.WorkValue, 0);
}

TEST(EstimateAtPercent, AnOverflowingPowerGivesZeroAndKeepsTheOldLimits) {
    SharedRegisters s = LineThroughTen();
    s.UpperLimit = 7;
    s.LowerLimit = 3;
    s.fit.MeanLogDose = 400;
    s.WorkValue = 50;
    EstimateAtPercent(s);
    EXPECT_EQ(s.WorkValue, 0);
    EXPECT_EQ(s.UpperLimit, 7);
    EXPECT_EQ(s.LowerLimit, 3);
}

TEST(EstimateAtPercent, ANegativeSlopeKeepsTheUpperLimitTheLarger) {
    SharedRegisters s = LineThroughTen();
    s.fit.Slope = -2;
    s.WorkValue = 25;
    EstimateAtPercent(s);
    EXPECT_GT(s.WorkValue, 10);
    EXPECT_GT(s.UpperLimit, s.WorkValue);
    EXPECT_LT(s.LowerLimit, s.WorkValue);
}

TEST(EstimateAtPercent, ZeroSlopeSkipsTheStepsThatNeedIt) {
    SharedRegisters s = LineThroughTen();
    s.fit.Slope = 0;
    s.fit.GValue = 1;
    s.LogEstimate = 0.5;
    s.WorkValue = 50;
    EstimateAtPercent(s);
    // The probit 5 is still in WorkValue, divided by the scale and rounded.
    EXPECT_EQ(s.WorkValue, 5);
    EXPECT_EQ(s.LogEstimate, 0.5);
}

// The same doses entered at 1000 times their value give the same estimates times
// 1000, save for the four-decimal rounding.
TEST(EstimateAtPercent, ATransformThatFailsLeavesItsOldOutputAndGoesOn) {
    SharedRegisters s = LineThroughTen();
    s.WorkValue = 50;
    EstimateAtPercent(s);
    // 99 + 2^-10 makes the transform read its table below the start: the step
    // fails, the old probit 5 stands, and the estimate is that of 50 percent.
    s.WorkValue = 99.0009765625;
    EstimateAtPercent(s);
    EXPECT_EQ(s.probit.PercentProbit(), "5");
    EXPECT_EQ(s.WorkValue, 10);
}

TEST(EstimateAtPercent, ADoseScaleAboveOneCancelsOut) {
    auto table = [](double factor) {
        TextTable t(7, 4);
        const double doses[] = {0.5, 1, 2, 4, 8};
        const char* responses[] = {"4.000", "14.000", "32.000", "62.000", "86.000"};
        for (int i = 0; i < 5; ++i) {
            t.setText(2 + i, 0, PlainText(doses[i] * factor));
            t.setText(2 + i, 1, "50");
            t.setText(2 + i, 2, responses[i]);
            t.setText(2 + i, 3, responses[i]);
        }
        return t;
    };
    ScriptedUserPort port;
    SharedRegisters small, large;
    ResultsTables r1, r2;
    const TextTable t1 = table(0.001), t2 = table(1);
    ASSERT_EQ(CalculateLine({t1, false, 1, "a"}, small, r1, port, {}),
              CalculationOutcome::Completed);
    ASSERT_EQ(CalculateLine({t2, false, 1, "b"}, large, r2, port, {}),
              CalculationOutcome::Completed);
    EXPECT_EQ(small.fit.DoseScale, 10000);
    EXPECT_EQ(large.fit.DoseScale, 10);
    EXPECT_EQ(r1.Grid22.dump(), r2.Grid22.dump());
    small.WorkValue = 50;
    large.WorkValue = 50;
    EstimateAtPercent(small);
    EstimateAtPercent(large);
    EXPECT_EQ(large.WorkValue, 2.9447);
    EXPECT_EQ(small.WorkValue, 0.0029);
    EXPECT_NEAR(small.WorkValue * 1000, large.WorkValue, 0.05);
}

TEST(ResponseAtDose, ReturnsThePercentOfTheLine) {
    SharedRegisters s = LineThroughTen();
    ScriptedUserPort port;
    s.WorkValue = 10;
    EXPECT_TRUE(ResponseAtDose(s, port));
    EXPECT_EQ(s.WorkValue, 50);
    EXPECT_TRUE(port.messages.empty());
}

TEST(ResponseAtDose, OutOfScaleTellsTheUserAndLeavesTheProbit) {
    SharedRegisters s = LineThroughTen();
    ScriptedUserPort port;
    s.WorkValue = 100000;  // log 5: probit 13
    EXPECT_FALSE(ResponseAtDose(s, port));
    EXPECT_EQ(port.texts(), (std::vector<std::string>{"This value is out of scale"}));
    EXPECT_EQ(s.WorkValue, 13);
}

TEST(FiducialLimitsOf, ALineThroughTenAtItsMiddle) {
    // m = 1 lies on the mean: c = 1 and e = 1.96 / (0.9 * 2) * sqrt(0.9 / 100), so
    // the limits are 10^(1 -/+ 0.1033011) = 7.8831 and 12.6853.
    const DoseLimits limits = FiducialLimitsOf(LineThroughTen().fit, 1);
    EXPECT_EQ(limits.lower, 7.8831);
    EXPECT_EQ(limits.upper, 12.6853);
}

TEST(FiducialLimitsOf, AnOverflowingUpperLimitLeavesBothOnTheLogScale) {
    const FitResult fit = LineThroughTen().fit;
    const LogLimits logs = FiellerLogLimits(fit, 400);
    EXPECT_NEAR(logs.lower, 227.0999754, 1e-6);
    EXPECT_NEAR(logs.upper, 661.5666912, 1e-6);
    const DoseLimits limits = FiducialLimitsOf(fit, 400);
    EXPECT_EQ(limits.lower, logs.lower);
    EXPECT_EQ(limits.upper, logs.upper);
}

TEST(FiellerLogLimits, ANegativeSlopeSwapsTheLimits) {
    FitResult fit = LineThroughTen().fit;
    fit.Slope = -2;
    const LogLimits logs = FiellerLogLimits(fit, 1);
    EXPECT_NEAR(logs.lower, 0.8966989, 1e-6);
    EXPECT_NEAR(logs.upper, 1.1033011, 1e-6);
    EXPECT_FALSE(logs.negativeSquare);
    fit.HeterogeneityFactor = -1;  // a square below 0
    EXPECT_TRUE(FiellerLogLimits(fit, 1).negativeSquare);
}

TEST(FormatRules, ZeroHasNoText) {
    EXPECT_EQ(FormatEstimateText(0), std::nullopt);
    EXPECT_EQ(FormatTwoLevelsText(0), std::nullopt);
    EXPECT_EQ(FormatFourLevelsText(0), std::nullopt);
}

TEST(FormatRules, ZeroLeavesWorkTextAsItWas) {
    SharedRegisters s;
    s.WorkText = "kept";
    s.WorkValue = 0;
    FormatEstimate(s);
    EXPECT_EQ(s.WorkText, "kept");
    FormatTwoLevels(s);
    EXPECT_EQ(s.WorkText, "kept");
    FormatFourLevels(s);
    EXPECT_EQ(s.WorkText, "kept");
}

TEST(FormatRules, FormatEstimateBySize) {
    auto f = [](double v) { return FormatEstimateText(v).value_or("no text"); };
    EXPECT_EQ(f(100000), "10000E+1");
    EXPECT_EQ(f(99999), "99999.000");
    EXPECT_EQ(f(1234567), "12346E+2");
    EXPECT_EQ(f(0.000005), "50000E-10");
    EXPECT_EQ(f(0.00005), "0.000050");
    EXPECT_EQ(f(0.005), "0.0050");
    EXPECT_EQ(f(0.5), "0.500");
    EXPECT_EQ(f(12.34567), "12.346");
    EXPECT_EQ(f(-1), "-10000E-4");
}

TEST(FormatRules, FormatTwoLevelsBySize) {
    auto f = [](double v) { return FormatTwoLevelsText(v).value_or("no text"); };
    EXPECT_EQ(f(100000), "10000E+1");
    EXPECT_EQ(f(0.00005), "0.00005");
    EXPECT_EQ(f(0.005), "0.0050");
    EXPECT_EQ(f(0.5), "0.500");
    EXPECT_EQ(f(5), "5.000");
}

TEST(FormatRules, FormatFourLevelsBySize) {
    auto f = [](double v) { return FormatFourLevelsText(v).value_or("no text"); };
    EXPECT_EQ(f(0.5), "0.50");
    EXPECT_EQ(f(5), "5");
    EXPECT_EQ(f(1000000), "1E+6");
    EXPECT_EQ(f(0.0000005), "5E-7");
    EXPECT_EQ(f(0.00005), "0.000050");
    EXPECT_EQ(f(0.005), "0.0050");
    EXPECT_EQ(f(999999), "999999");
}

// --- Statistics of the fit -------------------------------------------------------

TEST(ChiSquareProbability, ZeroAndHugeChiSquareGiveOne) {
    EXPECT_EQ(ChiSquareProbability(0, 3), 1);
    EXPECT_EQ(ChiSquareProbability(0, 4), 1);
    EXPECT_EQ(ChiSquareProbability(1500, 4), 1);
}

TEST(ChiSquareProbability, KnownUpperTails) {
    // 3.8414588... is the 5% point of one degree of freedom; 2 at two gives exp(-1).
    EXPECT_EQ(FormatNumber(ChiSquareProbability(3.841458820694124, 1), "0.0000"), "0.0500");
    EXPECT_EQ(FormatNumber(ChiSquareProbability(2, 2), "0.000000"), "0.367879");
}

// A results Grid22 and fit prepared for WriteStatistics with a chosen g.
struct Statistics {
    SharedRegisters shared;
    ResultsTables results;
    CycleSums sums;
    int doseRows = 5;

    explicit Statistics(double g, bool homogeneous = true) {
        shared.fit.Slope = 1;
        // With a homogeneous line h is 1 and t is 1.96 at level 0.05, so
        // g = 1.96^2 / Sxx.
        shared.fit.SumSquaresLogDose = 1.96 * 1.96 / g;
        sums.Sxy = shared.fit.SumSquaresLogDose;
        sums.Syy = sums.Sxy * sums.Sxy / shared.fit.SumSquaresLogDose + (homogeneous ? 1 : 50);
        WriteStatistics(results, doseRows, sums, 1, shared.fit);
    }
};

TEST(Statistics, GOfExactlyPointFourIsNeitherRedNorReported) {
    Statistics st(0.4);
    ASSERT_EQ(st.shared.fit.GValue, 0.4);
    EXPECT_EQ(st.results.Grid22.text(statrow::G, statcol::Value), "0.4000");
    EXPECT_FALSE(st.results.Grid22.fore(statrow::G, statcol::Value));
    EXPECT_EQ(st.results.Text8, "");
}

TEST(Statistics, GAbovePointFourIsRedWithTheNotice) {
    Statistics st(0.41);
    EXPECT_EQ(st.results.Grid22.fore(statrow::G, statcol::Value), kRed);
    const std::string notice =
        "Upper and lower limits will be calculated only for the data of which g is less than "
        "0.4.   See help for more details.";
    EXPECT_EQ(st.results.Text8, notice);
    EXPECT_EQ(st.results.Grid2ToolTip, notice);
}

TEST(Statistics, HomogeneousLineUsesTheTOfInfinityAndShowsTheRatio) {
    Statistics st(0.1);
    EXPECT_EQ(st.shared.fit.TValue, 1.96);
    EXPECT_EQ(st.shared.fit.HeterogeneityFactor, 1);
    EXPECT_EQ(st.results.Grid22.text(statrow::H, statcol::Value),
              FormatNumber(st.shared.fit.ChiSquare / 3, "0.0000"));
    EXPECT_NE(st.results.Grid22.text(statrow::H, statcol::Value), "1.0000");
}

TEST(Statistics, HeterogeneousLineUsesTheTOfItsDegreesOfFreedom) {
    Statistics st(0.1, false);
    EXPECT_EQ(st.shared.fit.TValue, 3.182);  // t of 3 df at 0.05
    EXPECT_EQ(st.shared.fit.HeterogeneityFactor, st.shared.fit.ChiSquare / 3);
    EXPECT_EQ(st.results.Grid22.fore(statrow::ChiSquare, statcol::Value), kRed);
}

TEST(Statistics, ChiSquareEqualToTheTabulatedValueIsRed) {
    SharedRegisters shared;
    ResultsTables results;
    shared.fit.Slope = 1;
    shared.fit.SumSquaresLogDose = 100;
    CycleSums sums{7.8, 0};  // chi-square 7.8 at 3 df, the tabulated value
    WriteStatistics(results, 5, sums, 1, shared.fit);
    EXPECT_EQ(results.Grid22.text(statrow::ChiSquare, statcol::Value), "7.8000");
    EXPECT_EQ(results.Grid22.fore(statrow::ChiSquare, statcol::Value), kRed);
    EXPECT_EQ(results.Grid22.text(statrow::ChiSquare, statcol::Tabulated), "tabulated  7.8");
}

TEST(Statistics, MoreThanThirtyDegreesOfFreedom) {
    SharedRegisters shared;
    ResultsTables results;
    results.Grid22.setText(statrow::R, statcol::Tabulated, "as it was");
    shared.fit.Slope = 1;
    shared.fit.SumSquaresLogDose = 100;
    CycleSums sums{20, 0};
    WriteStatistics(results, 35, sums, 0, shared.fit);
    EXPECT_EQ(shared.fit.DegreesOfFreedom, 33);
    EXPECT_EQ(results.Grid22.text(statrow::P, statcol::Value), "0");
    EXPECT_EQ(results.Grid22.text(statrow::R, statcol::Tabulated), "as it was");
    EXPECT_EQ(results.Grid22.text(statrow::ChiSquare, statcol::Tabulated), "tabulated  43.8");
    EXPECT_EQ(shared.fit.TValue, 1.6448);
}

TEST(Statistics, APOfOneHalfShowsPlainAndTheRatioWithFourDecimals) {
    SharedRegisters shared;
    ResultsTables results;
    shared.fit.Slope = 1;
    shared.fit.SumSquaresLogDose = 100;
    // Two degrees of freedom: p = exp(-chi/2) = 0.5 at chi = 2 ln 2; the ratio is
    // ln 2 = 0.6931. A chi-square of 1 at 2 df gives a ratio of one half.
    CycleSums sums{2 * 0.6931471805599453, 0};
    WriteStatistics(results, 4, sums, 1, shared.fit);
    EXPECT_EQ(results.Grid22.text(statrow::P, statcol::Value), "0.5");
    CycleSums half{1, 0};
    WriteStatistics(results, 4, half, 1, shared.fit);
    EXPECT_EQ(results.Grid22.text(statrow::H, statcol::Value), "0.5000");
}

TEST(Statistics, ANegativeChiSquareIsNotCorrected) {
    SharedRegisters shared;
    ResultsTables results;
    shared.fit.Slope = 1;
    shared.fit.SumSquaresLogDose = 100;
    CycleSums sums{-0.00001, 0};
    WriteStatistics(results, 4, sums, 1, shared.fit);  // 2 df: the series needs no root
    EXPECT_EQ(results.Grid22.text(statrow::ChiSquare, statcol::Value), "0.0000");
    EXPECT_EQ(shared.fit.ChiSquare, -0.00001);
}

TEST(Cycles, TotalsAreRoundedHalvesToEven) {
    auto weights = [](const char* total) {
        SharedRegisters shared;
        shared.fit.Slope = 2;
        shared.fit.MeanLogDose = 1;
        shared.fit.MeanProbit = 5;
        TextTable grid1(4, datacol::Count);
        const char* logs[] = {"0.5000", "1.0000", "1.5000"};
        const char* responses[] = {"20.000", "50.000", "80.000"};
        for (int k = 1; k <= 3; ++k) {
            grid1.setText(k, datacol::LogDose, logs[k - 1]);
            grid1.setText(k, datacol::Treated, total);
            grid1.setText(k, datacol::Observed, responses[k - 1]);
        }
        RunCycles(grid1, 3, shared.fit, shared.probit);
        return shared.fit.SumWeights;
    };
    EXPECT_EQ(weights("100.5"), weights("100"));
    EXPECT_EQ(weights("101.5"), weights("102"));
    EXPECT_NE(weights("101.5"), weights("101"));
}

TEST(Cycles, AllExpectedProbitsOutsideTheTableIsReportedNotAnEnd) {
    SharedRegisters shared;
    shared.fit.Slope = 2;
    shared.fit.MeanLogDose = 1;
    shared.fit.MeanProbit = 20;  // every expected probit far above 8.9
    TextTable grid1(4, datacol::Count);
    for (int k = 1; k <= 3; ++k) {
        grid1.setText(k, datacol::LogDose, "1.0000");
        grid1.setText(k, datacol::Treated, "10");
        grid1.setText(k, datacol::Observed, "50.000");
    }
    EXPECT_THROW(RunCycles(grid1, 3, shared.fit, shared.probit), Fault);
}

TEST(Cycles, AReverseSlopeMayGiveOutOfScaleExpectedResponses) {
    SharedRegisters shared;
    shared.fit.Slope = -4;
    shared.fit.MeanLogDose = 1;
    shared.fit.MeanProbit = 5;
    TextTable grid1(4, datacol::Count);
    const char* logs[] = {"0.0000", "1.0000", "2.0000"};
    for (int k = 1; k <= 3; ++k)
        grid1.setText(k, datacol::LogDose, logs[k - 1]);
    WriteExpectedValues(grid1, 3, shared.fit, shared.probit);
    EXPECT_EQ(grid1.text(1, datacol::LinearProbit), "9.0000");
    EXPECT_EQ(grid1.text(1, datacol::LinearResponse), "out of scale");
    EXPECT_EQ(grid1.text(2, datacol::LinearResponse), "50");
    EXPECT_EQ(grid1.text(3, datacol::LinearResponse), "out of scale");
}

}  // namespace
}  // namespace morvane
