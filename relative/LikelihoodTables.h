#pragma once
// The tables of the maximum-likelihood analysis, as the results window's tab, the
// comparison window and `morvane-cli fit` show them: text tables (row 0 the headings)
// with figures to six significant digits, their tab-separated text, and the JSON
// object with every figure at full precision (docs/fit-json.md).

#include <string>
#include <vector>

#include "core/LikelihoodFit.h"
#include "core/TextTable.h"
#include "relative/LineRatios.h"

namespace morvane {

// One fitted line with what it is called and its estimates.
struct LikelihoodLineReport {
    std::string name;
    std::string estimateWord = "LD";  // "LD", "LC", "LT" or the line's own word
    std::string unitWord;
    LikelihoodFit fit;
    std::vector<LikelihoodDose> estimates;
};

// The figures of the tables, to six significant digits.
std::string LikelihoodFigure(double value);

// Parameter | Estimate | Standard error: the intercept, the slope and, when it is
// estimated or fixed, the natural response.
TextTable ParameterTable(const LikelihoodLineReport& line);
// The covariance matrix of the estimated parameters, headed by their names.
TextTable CovarianceTable(const LikelihoodLineReport& line);
// Log-likelihood, chi-square, df, p, h, how the limits were taken, iterations.
TextTable GoodnessTable(const LikelihoodLineReport& line);
// LD (the line's word) | Dose | Lower limit | Upper limit, a row for each estimate.
TextTable EstimateTable(const LikelihoodLineReport& line);
// The sentence that says whether the limits were widened for heterogeneity.
std::string LimitsSentence(const LikelihoodFit& fit);

// Line | LD | Ratio | Lower limit | Upper limit | Differs: every line against the
// reference, the reference's own row first with ratio 1.
TextTable RatioTable(const std::vector<LikelihoodLineReport>& lines,
                     const LineComparison& comparison);
// Test | Chi-square | df | p | Result: parallelism and equality.
TextTable LineTestTable(const LineComparison& comparison);
// Line | Relative potency | Lower limit | Upper limit, when the lines are parallel.
TextTable PotencyTable(const std::vector<LikelihoodLineReport>& lines,
                       const LineComparison& comparison);

// The tables as text: each line's title and tables, then the comparisons; cells
// joined by tabs, rows ended by a line feed, a blank line between tables.
std::string LikelihoodText(const std::vector<LikelihoodLineReport>& lines,
                           const std::vector<LineComparison>& comparisons,
                           const LikelihoodOptions& options);

// The JSON object (docs/fit-json.md), without a final line feed.
std::string LikelihoodJson(const std::vector<LikelihoodLineReport>& lines,
                           const std::vector<LineComparison>& comparisons,
                           const LikelihoodOptions& options);

}  // namespace morvane
