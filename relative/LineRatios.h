#pragma once
// Tests between maximum-likelihood lines (core/LikelihoodFit.h):
// - the ratio of each line's LD at a chosen percent to a reference line's, with
//   confidence limits (the ratio test of Robertson and Preisler, Pesticide Bioassays
//   with Arthropods: the log ratio's variance is the sum of the two lines' delta-method
//   variances, each times its h when its chi-square is significant, and the limits are
//   the log ratio +/- the normal deviate times its standard error; the lines differ
//   significantly when the limits exclude 1);
// - the likelihood-ratio tests of parallelism (each line its own slope against one
//   common slope, k - 1 df) and of equality (against one common line, 2 (k - 1) df);
// - the relative potency of each line to the reference from the common-slope fit,
//   LD of the reference over LD of the line, with Fieller's limits (h and t of the
//   common-slope fit's degrees of freedom when its chi-square is significant). It is
//   given where the lines are parallel (the parallelism test not significant).

#include <optional>
#include <string>
#include <vector>

#include "core/LikelihoodFit.h"

namespace morvane {

struct LineRatio {
    int line = 0;
    double ratio = 1;  // LD of the line over LD of the reference
    double lower = 1, upper = 1;
    bool significant = false;  // the limits exclude 1
};

struct LikelihoodRatioTest {
    double chiSquare = 0;
    int degreesOfFreedom = 0;
    double p = 1;
    bool significant = false;  // p below 0.05
};

struct RelativePotency {
    int line = 0;
    double potency = 1;  // LD of the reference over LD of the line
    std::optional<double> lower, upper;
};

struct LineComparison {
    bool done = false;
    std::string message;  // why not, when not done
    double percent = 50;
    int reference = 0;
    std::vector<LikelihoodFit> lines;       // each line fitted alone
    std::vector<LikelihoodDose> estimates;  // each line's LD at the percent
    std::vector<LineRatio> ratios;          // every line but the reference
    LikelihoodFit separate, parallel, common;
    LikelihoodRatioTest parallelism, equality;
    bool parallelLines = false;              // the parallelism test is not significant
    std::vector<RelativePotency> potencies;  // when parallel: every line but the reference
};

// Compares the lines (two or more, each a list of groups) at the percent, with the
// reference line's index. Not done, with the message, when a line can't be fitted
// (the message names it by its number from 1) or a joint fit fails.
LineComparison CompareLikelihoodLines(const std::vector<std::vector<DoseGroup>>& lines,
                                      int reference, double percent,
                                      const LikelihoodOptions& options);

}  // namespace morvane
