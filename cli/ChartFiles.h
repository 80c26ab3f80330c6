#pragma once
// The chart files of morvane-cli: the chart of one line (report --chart) and of a
// comparison (compare --chart), drawn by the same code as the windows' "Save results
// into files" and written as SVG, PNG, PDF or BMP by the name's extension. The charts
// are laid out as the windows show them at their least size.

#include <iosfwd>
#include <string>

#include "relative/Rtvout.h"
#include "results/LineResults.h"

namespace morvane::cli {

// Whether the name ends in an extension of a chart file; when it doesn't, the reason
// is told on err with the command's name in front, as a usage error.
bool ChartFileNameIsGood(const std::string& command, const std::string& path, std::ostream& err);

// Writes the chart of the calculated line; false with the reason on err when the
// file can't be written, which leaves an old file as it was.
bool WriteLineChart(const std::string& path, LineResults& results, SharedRegisters& shared,
                    std::ostream& err);

// Writes the chart of the comparison's results.
bool WriteComparisonChart(const std::string& path, Rtvout& rtvout, SharedRegisters& shared,
                          UserPort& port, std::ostream& err);

// Writes bytes carefully: false with "An error occurred while saving this file." and
// the reason on err, an old file left as it was.
bool WriteResultFile(const std::string& path, const std::string& bytes, std::ostream& err);

}  // namespace morvane::cli
