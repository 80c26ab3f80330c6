// An estimate or a limit whose power of ten overflows can't be shown as a dose: the
// estimate reads 0 and a limit keeps its log value. EstimateOverflowed tells it, so that
// the results stop instead of showing either.
#include <gtest/gtest.h>

#include "core/DoseEstimates.h"
#include "core/SharedRegisters.h"
#include "support/HandLine.h"

namespace morvane {
namespace {

using testing::SetHandLine;

// A line through 10^300 at 50%, with its limits as wide as its weights are small.
SharedRegisters LineNearTheLargest(double sumWeights) {
    SharedRegisters s;
    SetHandLine(s.fit, {.slope = 1, .meanLogDose = 300, .sumWeights = sumWeights, .g = 0.1});
    return s;
}

TEST(EstimateOverflowTest, AnEstimateWithinRangeIsNoOverflow) {
    SharedRegisters s = LineNearTheLargest(100);
    s.WorkValue = 50;
    EstimateAtPercent(s);
    EXPECT_EQ(s.LogEstimate, 300);
    EXPECT_FALSE(EstimateOverflowed(s));
}

TEST(EstimateOverflowTest, AnEstimateThatOverflowsReadsZeroAndIsTold) {
    SharedRegisters s = LineNearTheLargest(100);
    s.WorkValue = 99;  // 2.33 probits above the middle: 10^302.3
    s.fit.MeanLogDose = 307;
    EstimateAtPercent(s);
    EXPECT_EQ(s.WorkValue, 0);
    EXPECT_TRUE(EstimateOverflowed(s));
}

TEST(EstimateOverflowTest, ALimitThatOverflowsKeepsItsLogValueAndIsTold) {
    SharedRegisters s = LineNearTheLargest(0.001);
    s.WorkValue = 50;
    EstimateAtPercent(s);
    EXPECT_GT(s.WorkValue, 1e299);  // the estimate itself is a dose
    EXPECT_GT(s.UpperLimit, 300);   // but the upper limit is still a log value
    EXPECT_LT(s.UpperLimit, 1000);
    EXPECT_TRUE(EstimateOverflowed(s));
}

TEST(EstimateOverflowTest, NoSlopeIsNoOverflow) {
    SharedRegisters s = LineNearTheLargest(100);
    s.fit.Slope = 0;
    s.WorkValue = 50;
    EstimateAtPercent(s);
    EXPECT_FALSE(EstimateOverflowed(s));
}

}  // namespace
}  // namespace morvane
