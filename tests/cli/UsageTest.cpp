// morvane-cli's usage, version and the answers to wrong usage.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CliRun.h"
#include "cli/ReportCommand.h"

namespace morvane {
namespace {

using testing::CliResult;
using testing::CliTest;
using testing::RunCli;

// The usage is its head, one block for each command (report first), and its foot.
const std::string kUsageHead =
    "Usage: morvane-cli COMMAND [ARGUMENTS]\n"
    "       morvane-cli --help\n"
    "       morvane-cli --version\n"
    "\n"
    "Probit analysis of dose-response bioassays, from the command line.\n"
    "\n"
    "Commands:\n";
const std::string kReportBlock =
    "  report FILE.mrv [--percent P]... [--dose D]... [--xlsx OUT.xlsx]\n"
    "         [--chart OUT.svg|.png|.pdf|.bmp]\n"
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
    "        --xlsx OUT.xlsx  also writes the results as a workbook: the results\n"
    "                     text on the sheet \"Results\", the data table on \"Data\",\n"
    "                     numbers as numbers, as \"Save results into files\" does\n"
    "        --chart OUT  also writes the chart as the picture that \"Save results\n"
    "                     into files\" writes, by the name's extension: SVG, PNG,\n"
    "                     PDF or BMP, as the results window shows it at its least\n"
    "                     size\n"
    "      A file that can't be written is told, leaves what stood there as it\n"
    "      was, and makes the exit status 1.\n";
const std::string kUsageFoot =
    "\n"
    "Options:\n"
    "  --help       prints this usage and exits\n"
    "  --version    prints the version and exits\n"
    "\n"
    "Exit status: 0 done; 1 the line could not be calculated, the reason told on\n"
    "standard error; 2 a file that could not be read, or wrong usage.\n";

class UsageTest : public CliTest {
  protected:
    // The whole usage, as --help prints it; its head, the report block and the foot
    // are checked here, the blocks of other commands by their own tests.
    std::string usage() {
        const CliResult help = RunCli({"--help"}, folder.path());
        EXPECT_TRUE(help.out.starts_with(kUsageHead + kReportBlock)) << help.out;
        EXPECT_TRUE(help.out.ends_with(kUsageFoot)) << help.out;
        return help.out;
    }
};

TEST_F(UsageTest, HelpPrintsTheUsage) {
    expectRun({"--help"}, usage(), "", 0);
}

TEST_F(UsageTest, HelpOfTheReportCommandPrintsTheUsage) {
    expectRun({"report", "--help"}, usage(), "", 0);
}

TEST_F(UsageTest, VersionPrintsTheProgramAndItsVersion) {
    expectRun({"--version"}, std::string("morvane-cli ") + MORVANE_VERSION + "\n", "", 0);
}

TEST_F(UsageTest, NoArgumentsIsWrongUsage) {
    expectRun({}, "", usage(), 2);
}

TEST_F(UsageTest, UnknownCommandIsWrongUsage) {
    expectRun({"compute", "a.mrv"}, "", usage(), 2);
}

TEST_F(UsageTest, ReportWithoutAFileIsWrongUsage) {
    expectRun({"report"}, "", usage(), 2);
}

TEST_F(UsageTest, ReportOfTwoFilesIsWrongUsage) {
    expectRun({"report", "a.mrv", "b.mrv"}, "", usage(), 2);
}

TEST_F(UsageTest, UnknownOptionIsWrongUsage) {
    expectRun({"report", "a.mrv", "--level", "50"}, "", usage(), 2);
}

TEST_F(UsageTest, QueryWithoutItsValueIsWrongUsage) {
    expectRun({"report", "a.mrv", "--percent"}, "", usage(), 2);
    expectRun({"report", "a.mrv", "--dose"}, "", usage(), 2);
}

TEST_F(UsageTest, HelpOrVersionWithMoreArgumentsIsWrongUsage) {
    expectRun({"--version", "report"}, "", usage(), 2);
    expectRun({"--help", "report"}, "", usage(), 2);
}

}  // namespace
}  // namespace morvane
