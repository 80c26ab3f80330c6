#pragma once
// The maximum-likelihood probit or logit line with a natural response, as Finney
// gives it (Probit Analysis, the chapters on natural mortality and on maximum
// likelihood): the probability of response at dose d is
//     P = C + (1 - C) F(a + b log10 d)
// with F the standard normal (probit) or logistic (logit) distribution function and C
// the natural response, fixed at 0, fixed at a given value, or estimated from the
// control groups (dose 0, where P = C) and the treated groups together.
//
// The fit is Fisher scoring with step halving; it stops when both the log-likelihood
// and every parameter have settled. All figures are doubles at full precision: no
// value passes through text and no rounded table is used (core/Distributions.h).
//
// This is the second analysis beside the classical line of core/LineCalculation.h,
// which stays the program's own figures; nothing here touches the shared registers.

#include <optional>
#include <string>
#include <vector>

#include "core/BorderedMatrix.h"

namespace morvane {

enum class LinkModel { Probit, Logit };

// The natural response: none (C = 0), a fixed proportion, or estimated.
struct NaturalResponse {
    enum class Kind { None, Fixed, Estimated };
    Kind kind = Kind::None;
    double value = 0;  // the fixed proportion, 0 <= value < 1 (Fixed only)
};

// One group of individuals: a dose, how many were treated and how many responded.
// A control group (marked, or of dose 0) has only the natural response; all controls
// of a line are pooled whatever their dose. Counts need not be whole.
struct DoseGroup {
    double dose = 0;
    double total = 0;
    double responded = 0;
    bool control = false;
};

struct LikelihoodOptions {
    LinkModel model = LinkModel::Probit;
    NaturalResponse natural;
    double confidence = 0.95;     // of the limits
    double heterogeneity = 0.05;  // chi-square significant below this p: h and t(df) used
    int maxIterations = 100;
};

// Several lines fitted at once: each group belongs to a line, and the lines may share
// their slope or their whole line. A single line is one line of its own.
enum class LineSharing {
    Separate,     // each line its own intercept and slope
    CommonSlope,  // each line its own intercept, one slope (parallel lines)
    Common,       // one intercept and one slope (the same line)
};

// The fitted model. Parameters are ordered: the intercepts (one per line, or one),
// the slopes (one per line, or one), then the natural responses that are estimated
// (one per line). covariance is the inverse of the information matrix, kept by its
// blocks (each line's own parameters, and the shared ones); it is not multiplied by h.
// cov(i, j) reads it, the same number for (i, j) and (j, i).
struct LikelihoodFit {
    bool converged = false;
    std::string message;  // why there is no fit, when converged is false
    int iterations = 0;
    int lineCount = 1;
    LineSharing sharing = LineSharing::Separate;
    std::vector<double> parameters;
    BorderedInverse covariance;
    double logLikelihood = 0;
    double chiSquare = 0;  // Pearson's, over the groups of distinct doses
    int groups = 0;        // the pooled groups the chi-square sums over
    int degreesOfFreedom = 0;
    double p = 1;                // of the chi-square
    double h = 1;                // chi-square / df (0 degrees of freedom: 1)
    bool heterogeneous = false;  // p below the options' heterogeneity level
    double confidence = 0.95;
    LinkModel model = LinkModel::Probit;
    // Per line: where its intercept, slope and natural response are among the
    // parameters (-1 for a natural response that is not estimated), and the fixed
    // natural response otherwise.
    std::vector<int> interceptIndex, slopeIndex, naturalIndex;
    std::vector<double> fixedNatural;
    // Per line: a natural response to be estimated fell below 0 and was fixed at 0.
    std::vector<bool> zeroNatural;
    bool naturalAtZero(int line = 0) const { return zeroNatural[line]; }

    int parameterCount() const { return static_cast<int>(parameters.size()); }
    double cov(int i, int j) const;
    double intercept(int line = 0) const { return parameters[interceptIndex[line]]; }
    double slope(int line = 0) const { return parameters[slopeIndex[line]]; }
    double natural(int line = 0) const;
    double interceptError(int line = 0) const;
    double slopeError(int line = 0) const;
    double naturalError(int line = 0) const;  // 0 when not estimated
    // The variance factor of the limits: h when heterogeneous, else 1.
    double varianceFactor() const { return heterogeneous ? h : 1; }
    // The multiplier of the limits: t(df) when heterogeneous, else the normal deviate,
    // at the options' confidence.
    double criticalValue() const;
};

// Fits the lines: groups[k] belongs to line lineOf[k] (0 .. lineCount - 1). Groups
// of the same line and dose are pooled. A line whose data can't determine it gives
// converged false and the reason in message.
LikelihoodFit FitLikelihoodLines(const std::vector<DoseGroup>& groups,
                                 const std::vector<int>& lineOf, int lineCount, LineSharing sharing,
                                 const LikelihoodOptions& options);

// One line.
LikelihoodFit FitLikelihoodLine(const std::vector<DoseGroup>& groups,
                                const LikelihoodOptions& options);

// A ratio N / D of two estimates with Fieller's limits: the theta with
// (N - theta D)^2 = q (vNN - 2 theta vND + theta^2 vDD), where q is the squared
// critical value times the variance factor. No limits when D is not significantly
// different from 0 (the quadratic opens downward or has no real roots).
struct FiellerInterval {
    double estimate = 0;
    std::optional<double> lower, upper;
    double g = 0;  // q vDD / D^2: limits exist only for g below 1
};
FiellerInterval FiellerRatio(double numerator, double denominator, double varNumerator,
                             double covariance, double varDenominator, double q);

// The dose at a percent response (0 < percent < 100) of line `line`, the percent
// counted over the natural response (F(a + b log10 d) = percent / 100), with
// Fieller's limits; log10 figures beside the doses.
struct LikelihoodDose {
    double percent = 0;
    double logDose = 0;
    double dose = 0;
    std::optional<double> lowerLog, upperLog;
    std::optional<double> lower, upper;
    double g = 0;
};
LikelihoodDose LikelihoodDoseAt(const LikelihoodFit& fit, double percent, int line = 0);

// The response (0..1, with the natural response) at a dose above 0, with limits from
// those of the linear predictor a + b log10 d.
struct LikelihoodResponse {
    double dose = 0;
    double response = 0;
    double lower = 0, upper = 0;
};
LikelihoodResponse LikelihoodResponseAt(const LikelihoodFit& fit, double dose, int line = 0);

// The name of the model as the tables show it: "probit" or "logit".
const char* LinkModelName(LinkModel model);

}  // namespace morvane
