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
inline constexpr const char* kCompareUsage =
    "  compare [OPTIONS] FILE.mrv...\n"
    "      Compares saved lines as the comparison window does: each line file is\n"
    "      read and calculated, the lines are sorted by the estimate at the sorted\n"
    "      percentage, and the table text of the relative results (the text that\n"
    "      \"Copy tables\" gives) is printed exactly. A line is named after its file\n"
    "      less the last four characters. Options, defaults in brackets:\n"
    "        --abbreviation TEXT  the suggested abbreviation [LD]\n"
    "        --percent P          the sorted percentage, 1 to 99 [50]\n"
    "        --no-limits          no lower and upper limits, and so no test of\n"
    "                             significant differences\n"
    "        --no-significance    no test of significant differences\n"
    "        --no-index           no toxicity index\n"
    "        --index-ref REF      reference of the index: first, last or a line\n"
    "                             name [first]\n"
    "        --no-rr              no resistance ratio\n"
    "        --rr-ref REF         reference of the resistance ratio [first]\n"
    "        --no-slope           no slope column\n"
    "        --slope-error        the slope's standard error as a column\n"
    "        --add P              a further percentage, 0.1 to 99.9, as a column;\n"
    "                             repeatable, and it replaces the default 90\n"
    "        --no-add             no further percentages\n"
    "        --from P, --to P     the drawn part of each line [20, 80]\n"
    "        --xlsx OUT.xlsx      also writes the table as a workbook, as \"Save\n"
    "                             results into files\" does\n"
    "        --chart OUT          also writes the chart of the lines as the picture\n"
    "                             of \"Save results into files\": SVG, PNG, PDF or\n"
    "                             BMP by the name's extension\n"
    "      Warnings (units that differ, other abbreviations) go to standard error.\n"
    "      Exit status: 0 done; 1 a line could not be read or calculated, which\n"
    "      ends the whole comparison, or a file could not be written (an old one\n"
    "      stays as it was); 2 a value the window refuses, or wrong usage.\n";

// Runs the comparison: exit status 0 with the table text on out and the warnings on
// err; 1 when the comparison failed (its message on err, nothing on out); 2 when the
// window would refuse an option (its message on err).
int CompareLines(const CompareRequest& request, std::ostream& out, std::ostream& err);

// The command as morvane-cli runs it, from the arguments after "compare".
int RunCompare(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace morvane::cli
