#pragma once
// A command of morvane-cli: its name, how it runs, and its part of the usage text.
// cli/main.cpp dispatches on the first argument to the table of commands there; a
// new command is one more line in that table.

#include <iosfwd>
#include <string>
#include <vector>

namespace morvane::cli {

// A command's result: an exit status, or one of these requests to the dispatcher.
inline constexpr int kWrongUsage = -1;  // the usage goes to standard error, exit 2
inline constexpr int kShowHelp = -2;    // the usage goes to standard output, exit 0

struct Command {
    const char* name;
    // The arguments after the command's name; what the command writes goes to out
    // and err. Returns the exit status, kWrongUsage or kShowHelp.
    int (*run)(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
    // The command's lines of the usage text, each ended by a line feed.
    const char* usage;
};

}  // namespace morvane::cli
