#include "relative/LineRatios.h"

#include <cmath>

#include "core/Distributions.h"

namespace morvane {
namespace {

// The variance of log10 of the LD at m = (xi - a) / b by the delta method, times the
// line's variance factor.
double LogDoseVariance(const LikelihoodFit& fit, double logDose) {
    const int ia = fit.interceptIndex[0], ib = fit.slopeIndex[0];
    const double b = fit.parameters[ib];
    return fit.varianceFactor() *
           (fit.cov(ia, ia) + 2 * logDose * fit.cov(ia, ib) + logDose * logDose * fit.cov(ib, ib)) /
           (b * b);
}

LikelihoodRatioTest RatioTest(const LikelihoodFit& full, const LikelihoodFit& reduced) {
    LikelihoodRatioTest test;
    test.chiSquare = 2 * (full.logLikelihood - reduced.logLikelihood);
    test.degreesOfFreedom = full.parameterCount() - reduced.parameterCount();
    test.p = ChiSquareUpperTail(test.chiSquare, test.degreesOfFreedom);
    test.significant = test.p < 0.05;
    return test;
}

std::string LineMessage(int line, const std::string& message) {
    return "Line " + std::to_string(line + 1) + ": " + message;
}

// The dose groups of all lines in one list, with the line of each.
struct PooledLines {
    std::vector<DoseGroup> all;
    std::vector<int> lineOf;
};

// Fits each line on its own and finds its dose at the percent; false, with the message
// set, when a line can't be fitted.
bool FitEachLine(const std::vector<std::vector<DoseGroup>>& lines, const LikelihoodOptions& options,
                 LineComparison& result, PooledLines& pooled) {
    for (int line = 0; line < static_cast<int>(lines.size()); ++line) {
        LikelihoodFit fit = FitLikelihoodLine(lines[line], options);
        if (!fit.converged) {
            result.message = LineMessage(line, fit.message);
            return false;
        }
        result.estimates.push_back(LikelihoodDoseAt(fit, result.percent));
        result.lines.push_back(std::move(fit));
        for (const DoseGroup& group : lines[line]) {
            pooled.all.push_back(group);
            pooled.lineOf.push_back(line);
        }
    }
    return true;
}

// The ratio of each line's dose to the reference line's, with limits from the variances
// of both log doses.
void AddDoseRatios(LineComparison& result, const LikelihoodOptions& options) {
    const int reference = result.reference;
    const double z = NormalQuantile(1 - (1 - options.confidence) / 2);
    const LikelihoodFit& ref = result.lines[reference];
    const double refLog = result.estimates[reference].logDose;
    for (int line = 0; line < static_cast<int>(result.lines.size()); ++line) {
        if (line == reference)
            continue;
        const double logRatio = result.estimates[line].logDose - refLog;
        const double se =
            std::sqrt(LogDoseVariance(result.lines[line], result.estimates[line].logDose) +
                      LogDoseVariance(ref, refLog));
        LineRatio ratio;
        ratio.line = line;
        ratio.ratio = std::pow(10.0, logRatio);
        ratio.lower = std::pow(10.0, logRatio - z * se);
        ratio.upper = std::pow(10.0, logRatio + z * se);
        ratio.significant = ratio.lower > 1 || ratio.upper < 1;
        result.ratios.push_back(ratio);
    }
}

// Fits the lines together three ways: separate, with a common slope, and as one line;
// false, with the message set, when one of them can't be fitted.
bool FitTogether(const PooledLines& pooled, const LikelihoodOptions& options,
                 LineComparison& result) {
    const int count = static_cast<int>(result.lines.size());
    const std::vector<DoseGroup>& all = pooled.all;
    const std::vector<int>& lineOf = pooled.lineOf;
    result.separate = FitLikelihoodLines(all, lineOf, count, LineSharing::Separate, options);
    result.parallel = FitLikelihoodLines(all, lineOf, count, LineSharing::CommonSlope, options);
    result.common = FitLikelihoodLines(all, lineOf, count, LineSharing::Common, options);
    for (const LikelihoodFit* fit : {&result.separate, &result.parallel, &result.common}) {
        if (!fit->converged) {
            result.message = "The lines fitted together: " + fit->message;
            return false;
        }
    }
    return true;
}

// The potency of each line relative to the reference from the common-slope fit, with
// Fieller limits.
void AddPotencies(LineComparison& result) {
    const int reference = result.reference;
    const LikelihoodFit& fit = result.parallel;
    const double q = fit.criticalValue() * fit.criticalValue() * fit.varianceFactor();
    const int ir = fit.interceptIndex[reference], ib = fit.slopeIndex[reference];
    for (int line = 0; line < static_cast<int>(result.lines.size()); ++line) {
        if (line == reference)
            continue;
        const int il = fit.interceptIndex[line];
        const FiellerInterval f =
            FiellerRatio(fit.parameters[il] - fit.parameters[ir], fit.parameters[ib],
                         fit.cov(il, il) + fit.cov(ir, ir) - 2 * fit.cov(il, ir),
                         fit.cov(il, ib) - fit.cov(ir, ib), fit.cov(ib, ib), q);
        RelativePotency potency;
        potency.line = line;
        potency.potency = std::pow(10.0, f.estimate);
        if (f.lower && f.upper) {
            potency.lower = std::pow(10.0, *f.lower);
            potency.upper = std::pow(10.0, *f.upper);
        }
        result.potencies.push_back(potency);
    }
}

}  // namespace

LineComparison CompareLikelihoodLines(const std::vector<std::vector<DoseGroup>>& lines,
                                      int reference, double percent,
                                      const LikelihoodOptions& options) {
    LineComparison result;
    result.percent = percent;
    result.reference = reference;
    const int count = static_cast<int>(lines.size());
    if (count < 2 || reference < 0 || reference >= count) {
        result.message = "The comparison needs two lines or more and a reference among them.";
        return result;
    }
    if (!(percent > 0 && percent < 100)) {
        result.message = "The percent of the comparison must lie between 0 and 100.";
        return result;
    }
    PooledLines pooled;
    if (!FitEachLine(lines, options, result, pooled))
        return result;
    AddDoseRatios(result, options);
    if (!FitTogether(pooled, options, result))
        return result;
    result.parallelism = RatioTest(result.separate, result.parallel);
    result.equality = RatioTest(result.separate, result.common);
    result.parallelLines = !result.parallelism.significant;
    if (result.parallelLines)
        AddPotencies(result);
    result.done = true;
    return result;
}

}  // namespace morvane
