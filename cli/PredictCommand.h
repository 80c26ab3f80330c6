#pragma once
// morvane-cli predict: the extrapolation and interpolation calculator on the command
// line. The line is given by two points or by a point and a slope, typed into the
// boxes of its panel one after the other and each box left as a user leaves it;
// then each query is typed into the panel's dose or response box and its
// "Predict" button pressed, in the order given.

#include <iosfwd>
#include <string>
#include <vector>

namespace morvane::cli {

// The lines of the usage text for this command.
inline constexpr const char* kPredictUsage =
    "  predict (--points D1 R1 D2 R2 | --point D R --slope B)\n"
    "          [--dose X]... [--response P]...\n"
    "      The extrapolation and interpolation calculator: a log-probit line\n"
    "      through two points (dose and response %) or through one point with a\n"
    "      slope, read at the doses and responses asked for. Prints the lines\n"
    "      \"Slope\", \"Intercept\" and \"Dose\" \"Response %\", then one line per\n"
    "      query in the order given, fields separated by a tab.\n"
    "        --dose X      the response % at dose X (\"Predict  >>\")\n"
    "        --response P  the dose that gives P % (1 to 99, \"Predict  <<\")\n"
    "      Values are digits and a decimal point only. A point's response must lie\n"
    "      from 1 to 99 and its dose must not be 0. A refused query is told on\n"
    "      standard error and adds no line. Exit status 1 when the line can't be\n"
    "      defined, or when a query meets a dose of 0 or a slope of 0.\n";

// The command as morvane-cli runs it, from the arguments after "predict". Exit status
// 0 when the line was defined (refused queries told on standard error), 1 when it
// could not be, or when a query met a dose of 0 or a flat line.
int RunPredict(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace morvane::cli
