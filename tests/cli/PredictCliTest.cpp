// morvane-cli predict: the line's slope and intercept, the queries in their order,
// every message on standard error and the exit status. The figures come from the
// independent derivation in tests/calculators/LinePredictorTest.cpp.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CliRun.h"
#include "cli/PredictCommand.h"

namespace morvane {
namespace {

using testing::CliTest;

// The block of the command as the tool prints it; its first line as a user reads it.
const std::string kPredictBlock = cli::kPredictUsage;
const std::string kPredictBlockFirstLine =
    "  predict (--points D1 R1 D2 R2 | --point D R --slope B)\n";

const std::string kTwoPointsHead = "Slope\t1.989\nIntercept\t4.0055\nDose\tResponse %\n";
const std::string kPointAndSlopeHead = "Slope\t2\nIntercept\t3\nDose\tResponse %\n";
const std::string kIllegalSlope =
    "Your data Revealed an illegal slope\nit has an infinite or almost infinite value\nso "
    "your data can't be calculated\n";
const std::string kFirstPoint = "1st point give an invaled value\nMorvane can't calculate it\n";
const std::string kSecondPoint = "2nd point give an invaled value\nMorvane can't calculate it\n";
const std::string kDoseOfZero = "A dose of 0 has no logarithm\nMorvane can't calculate it\n";
const std::string kFlatLine =
    "The slope of this line is 0: every dose gives the same response\nMorvane can't "
    "calculate a dose from it\n";

class PredictCliTest : public CliTest {
  protected:
    PredictCliTest() : CliTest({"predict"}) {}
};

TEST_F(PredictCliTest, TheUsageHasTheCommand) {
    expectUsageHas(kPredictBlock, kPredictBlockFirstLine);
}

TEST_F(PredictCliTest, TwoPoints) {
    expectRun({"--points", "1", "16", "10", "84", "--dose", "3.16", "--response", "50",
               "--response", "90"},
              kTwoPointsHead + "3.16\t49.9752\n3.162\t50\n13.943\t90\n", "", 0);
}

TEST_F(PredictCliTest, OptionsInAnyOrderQueriesInTheirOwn) {
    expectRun({"--response", "90", "--dose", "3.16", "--points", "1", "16", "10", "84"},
              kTwoPointsHead + "13.943\t90\n3.16\t49.9752\n", "", 0);
}

TEST_F(PredictCliTest, PointAndSlope) {
    expectRun({"--point", "10", "50", "--slope", "2", "--dose", "20", "--response", "84",
               "--response", "16"},
              kPointAndSlopeHead + "20\t72.6419\n31.423\t84\n3.182\t16\n", "", 0);
    expectRun({"--slope", "2.50", "--point", "10", "050"},
              "Slope\t2.5\nIntercept\t2.5\nDose\tResponse %\n", "", 0);
}

TEST_F(PredictCliTest, TheLineWithoutQueries) {
    expectRun({"--points", "1", "16", "10", "84"}, kTwoPointsHead, "", 0);
}

TEST_F(PredictCliTest, RefusedQueriesAreToldAndTheRunGoesOn) {
    expectRun(
        {"--points", "1", "16", "10", "84", "--dose", "50.9", "--response", "0.5", "--response",
         "99.5", "--dose", "-3", "--response", "1,5", "--dose", "1.2.3", "--dose", "3.16"},
        kTwoPointsHead + "3.16\t49.9752\n",
        "This point is out of scale\nThis point is out of scale\nThis point is out of "
        "scale\nonly numbers\nonly numbers\nThis box doesn't hold a number\n",
        0);
}

TEST_F(PredictCliTest, EqualDoses) {
    expectRun({"--points", "5", "16", "5", "84", "--dose", "3"}, "", kIllegalSlope, 1);
}

TEST_F(PredictCliTest, PointsResponseOutOfRange) {
    expectRun({"--points", "1", "0.5", "10", "84"}, "", kFirstPoint, 1);
    expectRun({"--points", "1", "16", "10", "99.5"}, "", kSecondPoint, 1);
    expectRun({"--point", "10", "100", "--slope", "2"}, "", kFirstPoint, 1);
    // The response check comes before the equal doses are met.
    expectRun({"--points", "5", "0.5", "5", "84"}, "", kFirstPoint, 1);
}

TEST_F(PredictCliTest, OnlyNumbersInThePoints) {
    expectRun({"--points", "1", "-16", "10", "84"}, "", "only numbers\n", 1);
    expectRun({"--point", "10", "50", "--slope", "-2"}, "", "only numbers\n", 1);
    expectRun({"--point", "1e1", "50", "--slope", "x"}, "", "only numbers\n", 1);
    expectRun({"--points", "1", ".", "10", "84"}, "", "This box doesn't hold a number\n", 1);
}

TEST_F(PredictCliTest, ADoseOfZeroNeverEndsTheProgram) {
    expectRun({"--points", "0", "16", "10", "84"}, "", kDoseOfZero, 1);
    expectRun({"--points", "1", "16", "0.0", "84"}, "", kDoseOfZero, 1);
    expectRun({"--point", "0", "50", "--slope", "2"}, "", kDoseOfZero, 1);
    expectRun({"--point", "10", "50", "--slope", "2", "--dose", "0", "--dose", "20"},
              kPointAndSlopeHead + "20\t72.6419\n", kDoseOfZero, 1);
}

TEST_F(PredictCliTest, AFlatLineGivesNoDose) {
    expectRun({"--point", "10", "50", "--slope", "0", "--dose", "20", "--response", "60"},
              "Slope\t0\nIntercept\t5\nDose\tResponse %\n20\t50\n", kFlatLine, 1);
    // Two points of equal response: a slope of 0, whose text is left as it was, empty.
    expectRun({"--points", "1", "30", "10", "30", "--response", "40"},
              "Slope\t\nIntercept\t4.4756\nDose\tResponse %\n", kFlatLine, 1);
}

TEST_F(PredictCliTest, WrongUsage) {
    const std::string help = usage();
    expectRun({}, "", help, 2);
    expectRun({"--points", "1", "16", "10"}, "", help, 2);
    expectRun({"--point", "10", "50"}, "", help, 2);
    expectRun({"--slope", "2"}, "", help, 2);
    expectRun({"--points", "1", "16", "10", "84", "--point", "10", "50", "--slope", "2"}, "", help,
              2);
    expectRun({"--points", "1", "16", "10", "84", "--level", "3"}, "", help, 2);
    expectRun({"--points", "1", "16", "10", "84", "--dose"}, "", help, 2);
    expectRun({"--points", "1", "16", "", "84"}, "", help, 2);
    expectRun({"--points", "1", "16", "10", "84", "--dose", ""}, "", help, 2);
}

}  // namespace
}  // namespace morvane
