// morvane-cli reduction: the "Copy table" text of a formula's tab after the groups of
// values, every refusal on standard error, and the exit status. The figures are
// worked by hand from the formulas (see tests/calculators/ReductionCalculatorTest.cpp).

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CliRun.h"
#include "cli/ReductionCommand.h"

namespace morvane {
namespace {

using testing::CliTest;

// The block of the command as the tool prints it; its first line as a user reads it.
const std::string kReductionBlock = cli::kReductionUsage;
const std::string kReductionBlockFirstLine = "  reduction FORMULA VALUE...\n";

const std::string kAbbottHead = "\tn. t. after\tn. co. after\tcorrected %\n";
const std::string kHendersonHead =
    "\tn. t. before\tn. co. before\tn. t. after\tn. co. after\tcorrected %\n";
const std::string kSchneiderHead = "\tM% in t.\tM% in co.\tcorrected %\n";
const std::string kSunHead = "\tM% in t\tChange% in co\tcorrected %\n";

class ReductionCliTest : public CliTest {
  protected:
    ReductionCliTest() : CliTest({"reduction"}) {}
};

TEST_F(ReductionCliTest, TheUsageHasTheCommand) {
    expectUsageHas(kReductionBlock, kReductionBlockFirstLine);
}

TEST_F(ReductionCliTest, Abbott) {
    expectRun({"abbott", "20", "80", "0", "50", "120", "80"},
              kAbbottHead + "1\t20\t80\t75.00\n2\t0\t50\t100.00\n3\t120\t80\t-50.00\n\t\t\t\n", "",
              0);
}

TEST_F(ReductionCliTest, NoValuesGiveTheEmptyTable) {
    expectRun({"abbott"}, kAbbottHead + "\t\t\t\n", "", 0);
}

TEST_F(ReductionCliTest, HendersonTilton) {
    expectRun(
        {"henderson-tilton", "100", "120", "30", "90", "0", "1", "1", "1", "5", "5", "5", "0"},
        kHendersonHead + "1\t100\t120\t30\t90\t60.00\n\t\t\t\t\t\n",
        "Can't accept 0 value\nCan't accept 0 value\n", 1);
}

TEST_F(ReductionCliTest, SchneiderOrelli) {
    expectRun({"schneider-orelli", "100", "0", "50", "100", "55", "10", "101", "5", "5", "-1"},
              kSchneiderHead + "1\t100\t0\t100.00\n2\t55\t10\t50.00\n\t\t\t\n",
              "control value must be tween 0 and 100\n"
              "treated value must be tween 0 and 100\n"
              "control value must be tween 0 and 100\n",
              1);
}

TEST_F(ReductionCliTest, SunShepard) {
    expectRun({"sun-shepard", "40", "-100", "40", "100", "40", "20", "40", "-20"},
              kSunHead + "1\t40\t20\t50.00\n2\t40\t-20\t25.00\n\t\t\t\n",
              "invaled value!\n Change% in control plot value mustn't be = 100\n", 1);
}

TEST_F(ReductionCliTest, ValuesThatAreNoNumbersAreRefusedWhole) {
    expectRun({"abbott", "1,5", "80", "abc", "80", "1.2.3", "80", "-", "80", "", "80", "1e2", "80",
               "40", "80"},
              kAbbottHead + "1\t40\t80\t50.00\n\t\t\t\n",
              "invaled value!\ninvaled value!\ninvaled value!\ninvaled value!\ninvaled "
              "value!\ninvaled value!\n",
              1);
}

TEST_F(ReductionCliTest, AbbottChecks) {
    expectRun({"abbott", "-1", "0", "5", "0", "5", "-3"}, kAbbottHead + "\t\t\t\n",
              "treated value must be greater than 0\ncontrol value must be greater than 0\n"
              "control value must be greater than 0\n",
              1);
}

TEST_F(ReductionCliTest, WrongUsage) {
    const std::string help = usage();
    expectRun({}, "", help, 2);
    expectRun({"abbot", "1", "2"}, "", help, 2);
    expectRun({"abbott", "1"}, "", help, 2);
    expectRun({"henderson-tilton", "1", "2", "3", "4", "5"}, "", help, 2);
}

}  // namespace
}  // namespace morvane
