#pragma once
// Runs the built morvane-cli as a whole process in a folder of its own, on files the
// test writes there, and gives back everything it wrote and its exit status.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "support/LineFileText.h"
#include "support/TestFiles.h"

namespace morvane::testing {

struct CliResult {
    std::string out;
    std::string err;
    int status = -1;
};

// A word for the shell, in single quotes.
inline std::string ShellWord(const std::string& word) {
    std::string out = "'";
    for (char c : word)
        out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

// Runs morvane-cli with the arguments, its working folder the one given.
inline CliResult RunCli(const std::vector<std::string>& args, const std::filesystem::path& folder) {
    const std::filesystem::path out = folder / ".stdout";
    const std::filesystem::path err = folder / ".stderr";
    std::string command = "cd " + ShellWord(folder.string()) + " && " + ShellWord(MORVANE_CLI_PATH);
    for (const std::string& arg : args)
        command += " " + ShellWord(arg);
    command += " >" + ShellWord(out.string()) + " 2>" + ShellWord(err.string()) + " </dev/null";
    const int raw = std::system(command.c_str());
    CliResult result;
    result.out = ReadBytes(out);
    result.err = ReadBytes(err);
    result.status = raw != -1 && WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return result;
}

// A test of morvane-cli in a folder of its own. expectRun runs the tool with the
// words of its command (none for the tool's own options) before the arguments, and
// compares its whole standard output, standard error and exit status.
class CliTest : public ::testing::Test {
  protected:
    explicit CliTest(std::vector<std::string> command = {}) : command_(std::move(command)) {}

    CliResult run(const std::vector<std::string>& args) const {
        std::vector<std::string> all = command_;
        all.insert(all.end(), args.begin(), args.end());
        return RunCli(all, folder.path());
    }
    void expectRun(const std::vector<std::string>& args, const std::string& out,
                   const std::string& err, int status) const {
        const CliResult result = run(args);
        EXPECT_EQ(result.out, out);
        EXPECT_EQ(result.err, err);
        EXPECT_EQ(result.status, status);
    }
    // What --help prints.
    std::string usage() const { return RunCli({"--help"}, folder.path()).out; }
    // The usage holds the command's block, which starts with its first line, and the
    // command's --help prints the whole usage.
    void expectUsageHas(const std::string& block, const std::string& firstLine) const {
        const std::string help = usage();
        EXPECT_NE(help.find(block), std::string::npos) << help;
        EXPECT_TRUE(block.starts_with(firstLine)) << block;
        expectRun({"--help"}, help, "", 0);
    }

    // The bytes of a file in the folder.
    std::string bytes(const std::string& name) const { return ReadBytes(folder.file(name)); }

    TempFolder folder;

  private:
    std::vector<std::string> command_;
};

}  // namespace morvane::testing
