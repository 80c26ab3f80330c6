#pragma once
// morvane-cli report: the results tables of one saved line, as text.
//
// The line file is read as the desktop program's Open reads it (both layouts), the
// line is calculated as the Calculate button does, answering Yes to the reverse-slope
// question, and the text that "Copy tables" of the results window gives is written
// to the output, followed by one line feed. Each --percent and --dose is one query of
// the results window, typed into its box, then "is" and "Add to list >>".

#include <iosfwd>
#include <string>
#include <vector>

namespace morvane::cli {

// One query of the results window, with the text the user types into its box.
struct ReportQuery {
    enum class Kind { Percent, Dose };
    Kind kind;
    std::string value;
};

struct ReportRequest {
    std::string file;
    std::vector<ReportQuery> queries;
    std::string workbook;  // --xlsx: the results also as a workbook, when not empty
    std::string chart;     // --chart: the chart also as a picture file, when not empty
};

// The lines of the usage text for this command.
extern const char* const kReportUsage;

// Runs the request: exit status 0 when the results were written, 1 when the line
// can't be calculated or the workbook or the chart can't be saved (the reason on err; an old
// workbook stays as it was), 2 when the file can't be read.
int ReportLine(const ReportRequest& request, std::ostream& out, std::ostream& err);

// The command as morvane-cli runs it, from the arguments after "report".
int RunReport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The name of a line: its file's name less the last four characters (".mrv").
std::string LineName(const std::string& fileTitle);

}  // namespace morvane::cli
