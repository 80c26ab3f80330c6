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
inline constexpr const char* kReportUsage =
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

// Runs the request: exit status 0 when the results were written, 1 when the line
// can't be calculated or the workbook or the chart can't be saved (the reason on err; an old
// workbook stays as it was), 2 when the file can't be read.
int ReportLine(const ReportRequest& request, std::ostream& out, std::ostream& err);

// The command as morvane-cli runs it, from the arguments after "report".
int RunReport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The name of a line: its file's name less the last four characters (".mrv").
std::string LineName(const std::string& fileTitle);

}  // namespace morvane::cli
