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
extern const char* const kPredictUsage;

// The command as morvane-cli runs it, from the arguments after "predict". Exit status
// 0 when the line was defined (refused queries told on standard error), 1 when it
// could not be, or when a query met a dose of 0 or a flat line.
int RunPredict(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace morvane::cli
