#pragma once
// Comparison of a figure with a reference worked out elsewhere (in R, say) to six
// significant digits: |actual - expected| <= 1e-6 |expected|.

#include <cmath>

#include <gtest/gtest.h>

namespace morvane::testing {

inline ::testing::AssertionResult SixDigits(double actual, double expected) {
    if (std::fabs(actual - expected) <= 1e-6 * std::fabs(expected))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "got " << actual << ", expected " << expected << " to six significant digits";
}

}  // namespace morvane::testing

#define EXPECT_6(actual, expected) EXPECT_TRUE(::morvane::testing::SixDigits((actual), (expected)))
