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
using testing::TempFolder;

// The usage is its head, one block for each command (report first), and its foot.
const std::string kUsageHead =
    "Usage: morvane-cli COMMAND [ARGUMENTS]\n"
    "       morvane-cli --help\n"
    "       morvane-cli --version\n"
    "\n"
    "Probit analysis of dose-response bioassays, from the command line.\n"
    "\n"
    "Commands:\n";
// The block of the command as the tool prints it; its first line as a user reads it.
const std::string kReportBlock = cli::kReportUsage;
const std::string kReportBlockFirstLine =
    "  report FILE.mrv [--percent P]... [--dose D]... [--xlsx OUT.xlsx]\n";
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
        EXPECT_TRUE(kReportBlock.starts_with(kReportBlockFirstLine));
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
