// morvane-cli's usage, version and the answers to wrong usage.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CliRun.h"

namespace morvane {
namespace {

using testing::CliResult;
using testing::RunCli;
using testing::TempFolder;

const std::string kUsage =
    "Usage: morvane-cli COMMAND [ARGUMENTS]\n"
    "       morvane-cli --help\n"
    "       morvane-cli --version\n"
    "\n"
    "Probit analysis of dose-response bioassays, from the command line.\n"
    "\n"
    "Commands:\n"
    "  report FILE.mrv [--percent P]... [--dose D]...\n"
    "      Reads the line file FILE.mrv as the desktop program opens it, calculates\n"
    "      its probit line as the Calculate button does (a reverse slope is\n"
    "      accepted) and prints the results tables as tab-separated text: the text\n"
    "      that \"Copy tables\" of the results window gives.\n"
    "        --percent P  adds the dose at P percent response (0.1 to 99.9) with\n"
    "                     its fiducial limits as a row of the estimates table\n"
    "        --dose D     adds the response percent at dose D (from the dose of 1%\n"
    "                     to that of 99%) with the limits of D as a row of the table\n"
    "      The queries run in the order given, as if typed into the results window:\n"
    "      digits and a decimal point only. A refused query is told on standard\n"
    "      error and adds no row.\n"
    "\n"
    "Options:\n"
    "  --help       prints this usage and exits\n"
    "  --version    prints the version and exits\n"
    "\n"
    "Exit status: 0 done; 1 the line could not be calculated, the reason told on\n"
    "standard error; 2 a file that could not be read, or wrong usage.\n";

class UsageTest : public ::testing::Test {
  protected:
    void expectRun(const std::vector<std::string>& args, const std::string& out,
                   const std::string& err, int status) {
        const CliResult result = RunCli(args, folder.path());
        EXPECT_EQ(result.out, out);
        EXPECT_EQ(result.err, err);
        EXPECT_EQ(result.status, status);
    }
    TempFolder folder;
};

TEST_F(UsageTest, HelpPrintsTheUsage) {
    expectRun({"--help"}, kUsage, "", 0);
}

TEST_F(UsageTest, HelpOfTheReportCommandPrintsTheUsage) {
    expectRun({"report", "--help"}, kUsage, "", 0);
}

TEST_F(UsageTest, VersionPrintsTheProgramAndItsVersion) {
    expectRun({"--version"}, std::string("morvane-cli ") + MORVANE_VERSION + "\n", "", 0);
}

TEST_F(UsageTest, NoArgumentsIsWrongUsage) {
    expectRun({}, "", kUsage, 2);
}

TEST_F(UsageTest, UnknownCommandIsWrongUsage) {
    expectRun({"compute", "a.mrv"}, "", kUsage, 2);
}

TEST_F(UsageTest, ReportWithoutAFileIsWrongUsage) {
    expectRun({"report"}, "", kUsage, 2);
}

TEST_F(UsageTest, ReportOfTwoFilesIsWrongUsage) {
    expectRun({"report", "a.mrv", "b.mrv"}, "", kUsage, 2);
}

TEST_F(UsageTest, UnknownOptionIsWrongUsage) {
    expectRun({"report", "a.mrv", "--level", "50"}, "", kUsage, 2);
}

TEST_F(UsageTest, QueryWithoutItsValueIsWrongUsage) {
    expectRun({"report", "a.mrv", "--percent"}, "", kUsage, 2);
    expectRun({"report", "a.mrv", "--dose"}, "", kUsage, 2);
}

TEST_F(UsageTest, HelpOrVersionWithMoreArgumentsIsWrongUsage) {
    expectRun({"--version", "report"}, "", kUsage, 2);
    expectRun({"--help", "report"}, "", kUsage, 2);
}

}  // namespace
}  // namespace morvane
