// An infinite value or one that is no number is an arithmetic fault of the routine that
// made it: writing it throws, so no table, file or message shows "Infinity" or "NaN",
// nor a 0 in their place.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "core/NumberText.h"

namespace morvane {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

void ExpectFault(const std::function<std::string()>& write, const std::string& text) {
    try {
        const std::string written = write();
        ADD_FAILURE() << "written as \"" << written << "\"";
    } catch (const Fault& fault) {
        EXPECT_EQ(std::string(fault.what()), text);
    }
}

TEST(UnwritableNumbersTest, AnOverflowIsAFault) {
    const std::string overflow = "a result is larger than any number can be (an overflow)";
    ExpectFault([] { return PlainText(kInfinity); }, overflow);
    ExpectFault([] { return PlainText(-kInfinity); }, overflow);
    ExpectFault([] { return PlainDecimalText(kInfinity); }, overflow);
    ExpectFault([] { return FormatNumber(kInfinity, "0.000"); }, overflow);
    ExpectFault([] { return FormatNumber(1e308 * 10, "00000E+0"); }, overflow);
}

TEST(UnwritableNumbersTest, NoNumberIsAFault) {
    const std::string none = "a result is no number (a division of zero by zero or the like)";
    ExpectFault([] { return PlainText(std::nan("")); }, none);
    ExpectFault([] { return FormatNumber(std::nan(""), "0.0000"); }, none);
}

TEST(UnwritableNumbersTest, TheLargestNumbersAreStillWritten) {
    EXPECT_EQ(PlainText(1e308), "1E+308");
    EXPECT_EQ(PlainText(-1.5e307), "-1.5E+307");
}

}  // namespace
}  // namespace morvane
