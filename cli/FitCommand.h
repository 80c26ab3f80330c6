#pragma once
// morvane-cli fit: the maximum-likelihood probit or logit analysis of saved lines,
// beside the classical one of `report`; for two lines or more also the ratios of
// their LD values to a reference line and the tests of parallelism and equality.
//
// Each line file is read as the desktop program's Open reads it; its replicate rows
// are the groups of the fit, its control rows the control group. The output is text
// tables like those of `report`, or with --json one object with every figure at full
// precision (docs/fit-json.md describes it).

#include <iosfwd>
#include <string>
#include <vector>

#include "core/LikelihoodFit.h"

namespace morvane::cli {

struct FitRequest {
    std::vector<std::string> files;
    LikelihoodOptions options;
    std::vector<double> percents;  // empty: 25, 50, 75, 90, 95, 99 (and 50 for ratios)
    int reference = 0;             // index into files
    bool json = false;
};

extern const char* const kFitUsage;

// Exit status 0 done; 1 a line that can't be fitted (the reason on err); 2 a file
// that can't be read.
int FitLines(const FitRequest& request, std::ostream& out, std::ostream& err);

int RunFit(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace morvane::cli
