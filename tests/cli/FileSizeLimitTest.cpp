// A process that writes past its file-size limit (ulimit -f) gets the signal SIGXFSZ,
// which ends it unless it is ignored. morvane-cli ignores it: the write fails, and the
// failure is its exit status.
#include "CliRun.h"

namespace morvane::testing {
namespace {

TEST(FileSizeLimitTest, OutputPastTheLimitIsAFailureNotASignal) {
    TempFolder folder;
    const std::string out = folder.file("usage.txt");
    // One block of at most 1,024 bytes; the usage is longer.
    const std::string command = "ulimit -f 1 && exec " + ShellWord(MORVANE_CLI_PATH) + " --help >" +
                                ShellWord(out) + " 2>/dev/null </dev/null";
    const int raw = std::system(command.c_str());
    ASSERT_NE(raw, -1);
    EXPECT_FALSE(WIFSIGNALED(raw));
    ASSERT_TRUE(WIFEXITED(raw));
    EXPECT_EQ(WEXITSTATUS(raw), 1);
    EXPECT_LE(std::filesystem::file_size(out), 1024u);
}

}  // namespace
}  // namespace morvane::testing
