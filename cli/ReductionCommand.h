#pragma once
// morvane-cli reduction: the Reduction % calculator on the command line.
//
// The values come in groups of the formula's number of boxes. Each group is typed
// into the boxes of the formula's tab and "OK >" is pressed, one group after the
// other, as a user would; the output is the text that "Copy table" of the tab gives
// afterwards. A refused group is told on standard error and adds no row.

#include <iosfwd>
#include <string>
#include <vector>

namespace morvane::cli {

// The lines of the usage text for this command.
extern const char* const kReductionUsage;

// The command as morvane-cli runs it, from the arguments after "reduction". Exit
// status 0 when every group was accepted, 1 when any was refused.
int RunReduction(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace morvane::cli
