#pragma once
// morvane-cli compare: the comparison of saved lines, as the comparison window makes
// it, with its table text as the output.
//
// The options are set as a user sets the window's controls, field by field, and the
// files are added as through its file dialog, one after the other; a value the window
// refuses gets the window's own message. Then "Calculate" runs: each line file is
// read and calculated silently, all or nothing, and the table text of the relative
// export (the text of "Copy tables") is written to the output exactly, nothing added.

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace morvane::cli {

// The options of the comparison window, as the command takes them. A field that is
// not given keeps the window's initial value and is never typed into.
struct CompareRequest {
    std::optional<std::string> abbreviation;  // "LD"
    std::optional<std::string> percent;       // "50"
    bool limits = true;
    bool significance = true;
    bool index = true;
    std::string indexReference = "first";  // "first", "last" or a line name
    bool ratio = true;
    std::string ratioReference = "first";
    bool slope = true;
    bool slopeError = false;
    bool replaceAdded = false;  // --add or --no-add given: the list starts empty
    std::vector<std::string> added;
    std::optional<std::string> from;  // "20"
    std::optional<std::string> to;    // "80"
    std::vector<std::string> files;
    std::string workbook;  // --xlsx: the table also as a workbook, when not empty
    std::string chart;     // --chart: the chart also as a picture file, when not empty
    // Where "line i of n" goes while the lines are calculated; none for no progress.
    std::ostream* progress = nullptr;
};

// The lines of the usage text for this command.
extern const char* const kCompareUsage;

// Runs the comparison: exit status 0 with the table text on out and the warnings on
// err; 1 when the comparison failed (its message on err, nothing on out); 2 when the
// window would refuse an option (its message on err).
int CompareLines(const CompareRequest& request, std::ostream& out, std::ostream& err);

// The command as morvane-cli runs it, from the arguments after "compare".
int RunCompare(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace morvane::cli
