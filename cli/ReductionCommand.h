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
inline constexpr const char* kReductionUsage =
    "  reduction FORMULA VALUE...\n"
    "      The Reduction % calculator. FORMULA and its values, in the order of the\n"
    "      boxes of its tab:\n"
    "        abbott            treated after, control after\n"
    "        henderson-tilton  treated before, control before, treated after,\n"
    "                          control after\n"
    "        schneider-orelli  mortality % in treated, mortality % in control\n"
    "        sun-shepard       mortality % in treated, change % in control\n"
    "      The values come in groups of that many; each group is typed into the\n"
    "      boxes and \"OK >\" pressed, one group after the other. Prints the text\n"
    "      that \"Copy table\" gives: the heading row, one row per accepted group\n"
    "      and the empty last row, cells separated by tabs. A value may begin with\n"
    "      a minus sign. A refused group is told on standard error and adds no\n"
    "      row; exit status 1 when any group was refused.\n";

// The command as morvane-cli runs it, from the arguments after "reduction". Exit
// status 0 when every group was accepted, 1 when any was refused.
int RunReduction(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace morvane::cli
