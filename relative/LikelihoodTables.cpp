#include "relative/LikelihoodTables.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/NumberText.h"

namespace morvane {
namespace {

TextTable TableOf(const std::vector<std::vector<std::string>>& rows) {
    std::size_t cols = 0;
    for (const auto& row : rows)
        cols = std::max(cols, row.size());
    TextTable table(static_cast<int>(rows.size()), static_cast<int>(cols));
    for (std::size_t r = 0; r < rows.size(); ++r)
        for (std::size_t c = 0; c < rows[r].size(); ++c)
            table.setText(static_cast<int>(r), static_cast<int>(c), rows[r][c]);
    return table;
}

std::string Percent(double percent) {
    return SignificantText(percent, 15);
}

std::string ModelTitle(LinkModel model) {
    return model == LinkModel::Probit ? "probit" : "logit";
}

std::string NaturalSetting(const NaturalResponse& natural) {
    switch (natural.kind) {
        case NaturalResponse::Kind::None:
            return "none";
        case NaturalResponse::Kind::Estimated:
            return "estimated";
        case NaturalResponse::Kind::Fixed:
            break;
    }
    return "fixed at " + SignificantText(natural.value, 15);
}

std::string Name(const std::vector<LikelihoodLineReport>& lines, int line) {
    return lines[line].name.empty() ? "Line " + std::to_string(line + 1) : lines[line].name;
}

void AppendTable(std::string& out, const TextTable& table) {
    for (int r = 0; r < table.rows(); ++r) {
        for (int c = 0; c < table.cols(); ++c) {
            if (c > 0)
                out += '\t';
            out += table.text(r, c);
        }
        out += '\n';
    }
}

// JSON pieces.
std::string Number(double value) {
    return std::isfinite(value) ? RoundTripText(value) : "null";
}
std::string Optional(const std::optional<double>& value) {
    return value ? Number(*value) : "null";
}
std::string Bool(bool value) {
    return value ? "true" : "false";
}
std::string String(const std::string& text) {
    std::string out = "\"";
    for (const char ch : text) {
        const auto c = static_cast<unsigned char>(ch);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += ch;
        } else if (c < 0x20) {
            static const char hex[] = "0123456789abcdef";
            out += "\\u00";
            out += hex[c >> 4];
            out += hex[c & 15];
        } else {
            out += ch;
        }
    }
    return out + "\"";
}

std::string FitJson(const LikelihoodFit& fit) {
    std::string out;
    out += "\"converged\": " + Bool(fit.converged);
    out += ", \"iterations\": " + std::to_string(fit.iterations);
    out += ", \"log_likelihood\": " + Number(fit.logLikelihood);
    out += ", \"chi_square\": " + Number(fit.chiSquare);
    out += ", \"groups\": " + std::to_string(fit.groups);
    out += ", \"df\": " + std::to_string(fit.degreesOfFreedom);
    out += ", \"p\": " + Number(fit.p);
    out += ", \"h\": " + Number(fit.h);
    out += ", \"heterogeneous\": " + Bool(fit.heterogeneous);
    out += ", \"variance_factor\": " + Number(fit.varianceFactor());
    out += ", \"critical_value\": " + Number(fit.criticalValue());
    return out;
}

}  // namespace

std::string LikelihoodFigure(double value) {
    return std::isfinite(value) ? SignificantText(value, 6) : std::string();
}

TextTable ParameterTable(const LikelihoodLineReport& line) {
    const LikelihoodFit& fit = line.fit;
    std::vector<std::vector<std::string>> rows = {
        {"Parameter", "Estimate", "Standard error"},
        {"Intercept", LikelihoodFigure(fit.intercept()), LikelihoodFigure(fit.interceptError())},
        {"Slope", LikelihoodFigure(fit.slope()), LikelihoodFigure(fit.slopeError())}};
    if (fit.naturalIndex[0] >= 0)
        rows.push_back({"Natural response", LikelihoodFigure(fit.natural()),
                        LikelihoodFigure(fit.naturalError())});
    else if (fit.naturalAtZero())
        rows.push_back({"Natural response", "0", "estimated below 0, taken as 0"});
    else if (fit.natural() > 0)
        rows.push_back({"Natural response", LikelihoodFigure(fit.natural()), "fixed"});
    return TableOf(rows);
}

TextTable CovarianceTable(const LikelihoodLineReport& line) {
    const LikelihoodFit& fit = line.fit;
    const char* names[] = {"Intercept", "Slope", "Natural response"};
    std::vector<std::vector<std::string>> rows(1, {"Covariance"});
    for (int i = 0; i < fit.parameterCount(); ++i)
        rows[0].push_back(names[i]);
    for (int i = 0; i < fit.parameterCount(); ++i) {
        rows.push_back({names[i]});
        for (int j = 0; j < fit.parameterCount(); ++j)
            rows.back().push_back(LikelihoodFigure(fit.cov(i, j)));
    }
    return TableOf(rows);
}

std::string LimitsSentence(const LikelihoodFit& fit) {
    if (fit.heterogeneous)
        return "chi-square significant: variances times h, t with " +
               std::to_string(fit.degreesOfFreedom) + " df (" +
               LikelihoodFigure(fit.criticalValue()) + ")";
    return "chi-square not significant: normal deviate (" + LikelihoodFigure(fit.criticalValue()) +
           "), no h";
}

TextTable GoodnessTable(const LikelihoodLineReport& line) {
    const LikelihoodFit& fit = line.fit;
    return TableOf({{"Log-likelihood", LikelihoodFigure(fit.logLikelihood)},
                    {"Chi-square", LikelihoodFigure(fit.chiSquare)},
                    {"df", std::to_string(fit.degreesOfFreedom)},
                    {"p", LikelihoodFigure(fit.p)},
                    {"h", LikelihoodFigure(fit.h)},
                    {"Limits", LimitsSentence(fit)},
                    {"Iterations", std::to_string(fit.iterations)}});
}

TextTable EstimateTable(const LikelihoodLineReport& line) {
    std::vector<std::vector<std::string>> rows = {
        {line.estimateWord, "Dose", "Lower limit", "Upper limit"}};
    if (!line.unitWord.empty())
        rows[0][1] = line.unitWord;
    for (const LikelihoodDose& d : line.estimates) {
        rows.push_back({Percent(d.percent), LikelihoodFigure(d.dose),
                        d.lower ? LikelihoodFigure(*d.lower) : "none",
                        d.upper ? LikelihoodFigure(*d.upper) : "none"});
    }
    return TableOf(rows);
}

TextTable RatioTable(const std::vector<LikelihoodLineReport>& lines,
                     const LineComparison& comparison) {
    const std::string word = lines[comparison.reference].estimateWord;
    std::vector<std::vector<std::string>> rows = {{"Line", word + Percent(comparison.percent),
                                                   "Ratio", "Lower limit", "Upper limit",
                                                   "Differs"}};
    rows.push_back({Name(lines, comparison.reference),
                    LikelihoodFigure(comparison.estimates[comparison.reference].dose), "1", "", "",
                    "reference"});
    for (const LineRatio& ratio : comparison.ratios) {
        rows.push_back({Name(lines, ratio.line),
                        LikelihoodFigure(comparison.estimates[ratio.line].dose),
                        LikelihoodFigure(ratio.ratio), LikelihoodFigure(ratio.lower),
                        LikelihoodFigure(ratio.upper), ratio.significant ? "yes" : "no"});
    }
    return TableOf(rows);
}

TextTable LineTestTable(const LineComparison& comparison) {
    auto row = [](const char* name, const LikelihoodRatioTest& test, const char* same,
                  const char* differ) {
        return std::vector<std::string>{name, LikelihoodFigure(test.chiSquare),
                                        std::to_string(test.degreesOfFreedom),
                                        LikelihoodFigure(test.p), test.significant ? differ : same};
    };
    return TableOf({{"Test", "Chi-square", "df", "p", "Result"},
                    row("Parallelism", comparison.parallelism, "parallel", "not parallel"),
                    row("Equality", comparison.equality, "the same line", "different lines")});
}

TextTable PotencyTable(const std::vector<LikelihoodLineReport>& lines,
                       const LineComparison& comparison) {
    std::vector<std::vector<std::string>> rows = {
        {"Line", "Relative potency", "Lower limit", "Upper limit"}};
    for (const RelativePotency& p : comparison.potencies) {
        rows.push_back({Name(lines, p.line), LikelihoodFigure(p.potency),
                        p.lower ? LikelihoodFigure(*p.lower) : "none",
                        p.upper ? LikelihoodFigure(*p.upper) : "none"});
    }
    return TableOf(rows);
}

std::string LikelihoodText(const std::vector<LikelihoodLineReport>& lines,
                           const std::vector<LineComparison>& comparisons,
                           const LikelihoodOptions& options) {
    std::string out;
    for (std::size_t k = 0; k < lines.size(); ++k) {
        const LikelihoodLineReport& line = lines[k];
        if (k > 0)
            out += '\n';
        out += "Maximum likelihood " + ModelTitle(options.model) + ": " +
               Name(lines, static_cast<int>(k)) + "\n";
        out += "Natural response: " + NaturalSetting(options.natural) + "\n\n";
        AppendTable(out, ParameterTable(line));
        out += '\n';
        AppendTable(out, CovarianceTable(line));
        out += '\n';
        AppendTable(out, GoodnessTable(line));
        out += '\n';
        AppendTable(out, EstimateTable(line));
    }
    for (const LineComparison& comparison : comparisons) {
        out += "\nRatios to " + Name(lines, comparison.reference) + " at " +
               lines[comparison.reference].estimateWord + Percent(comparison.percent) + "\n\n";
        AppendTable(out, RatioTable(lines, comparison));
    }
    if (comparisons.empty())
        return out;
    // The tests and the potency are the same at every percent.
    const LineComparison& comparison = comparisons.front();
    out += "\nTests between the lines\n\n";
    AppendTable(out, LineTestTable(comparison));
    out += '\n';
    if (comparison.parallelLines) {
        out += "Common slope " + LikelihoodFigure(comparison.parallel.slope()) + " +/- " +
               LikelihoodFigure(comparison.parallel.slopeError()) + "; " +
               LimitsSentence(comparison.parallel) + "\n\n";
        AppendTable(out, PotencyTable(lines, comparison));
    } else {
        out += "The lines are not parallel: no relative potency.\n";
    }
    return out;
}

namespace {

std::string NaturalJson(const NaturalResponse& natural) {
    std::string out = "{\"setting\": ";
    switch (natural.kind) {
        case NaturalResponse::Kind::None:
            out += "\"none\", \"value\": null}";
            break;
        case NaturalResponse::Kind::Estimated:
            out += "\"estimate\", \"value\": null}";
            break;
        case NaturalResponse::Kind::Fixed:
            out += "\"fixed\", \"value\": " + Number(natural.value) + "}";
            break;
    }
    return out;
}

// The names of the parameters of a line and their covariance matrix, row by row.
std::string CovarianceJson(const LikelihoodFit& fit) {
    std::string out = "{\"parameters\": [";
    const char* names[] = {"intercept", "slope", "natural_response"};
    for (int i = 0; i < fit.parameterCount(); ++i)
        out += std::string(i > 0 ? ", " : "") + "\"" + names[i] + "\"";
    out += "], \"matrix\": [";
    for (int i = 0; i < fit.parameterCount(); ++i) {
        out += i > 0 ? ", [" : "[";
        for (int j = 0; j < fit.parameterCount(); ++j)
            out += (j > 0 ? ", " : "") + Number(fit.cov(i, j));
        out += "]";
    }
    return out + "]}";
}

std::string EstimatesJson(const std::vector<LikelihoodDose>& estimates) {
    std::string out = "[";
    for (std::size_t e = 0; e < estimates.size(); ++e) {
        const LikelihoodDose& d = estimates[e];
        out += e > 0 ? ", " : "";
        out += "{\"percent\": " + Number(d.percent) + ", \"dose\": " + Number(d.dose) +
               ", \"lower\": " + Optional(d.lower) + ", \"upper\": " + Optional(d.upper) +
               ", \"log10_dose\": " + Number(d.logDose) + ", \"g\": " + Number(d.g) + "}";
    }
    return out + "]";
}

std::string LineJson(const LikelihoodLineReport& line) {
    const LikelihoodFit& fit = line.fit;
    std::string out = "{\"name\": " + String(line.name);
    out += ", \"estimate_word\": " + String(line.estimateWord);
    out += ", \"unit\": " + String(line.unitWord);
    out += ", " + FitJson(fit);
    out += ", \"intercept\": " + Number(fit.intercept());
    out += ", \"intercept_se\": " + Number(fit.interceptError());
    out += ", \"slope\": " + Number(fit.slope());
    out += ", \"slope_se\": " + Number(fit.slopeError());
    out += ", \"natural_response\": " + Number(fit.natural());
    out += ", \"natural_response_se\": " +
           (fit.naturalIndex[0] >= 0 ? Number(fit.naturalError()) : std::string("null"));
    out += ", \"natural_response_at_zero\": " + Bool(fit.naturalAtZero());
    out += ", \"covariance\": " + CovarianceJson(fit);
    out += ", \"estimates\": " + EstimatesJson(line.estimates);
    return out + "}";
}

// The ratios to the reference line at every percent, as one list.
std::string RatiosJson(const std::vector<LineComparison>& comparisons) {
    std::string out = "[";
    bool first = true;
    for (const LineComparison& at : comparisons) {
        for (const LineRatio& ratio : at.ratios) {
            out += first ? "" : ", ";
            first = false;
            out += "{\"percent\": " + Number(at.percent) +
                   ", \"line\": " + std::to_string(ratio.line + 1) +
                   ", \"ratio\": " + Number(ratio.ratio) + ", \"lower\": " + Number(ratio.lower) +
                   ", \"upper\": " + Number(ratio.upper) +
                   ", \"significant\": " + Bool(ratio.significant) + "}";
        }
    }
    return out + "]";
}

std::string TestJson(const LikelihoodRatioTest& t) {
    return "{\"chi_square\": " + Number(t.chiSquare) +
           ", \"df\": " + std::to_string(t.degreesOfFreedom) + ", \"p\": " + Number(t.p) +
           ", \"significant\": " + Bool(t.significant) + "}";
}

std::string PotenciesJson(const std::vector<RelativePotency>& potencies) {
    std::string out = "[";
    for (std::size_t r = 0; r < potencies.size(); ++r) {
        const RelativePotency& p = potencies[r];
        out += r > 0 ? ", " : "";
        out += "{\"line\": " + std::to_string(p.line + 1) + ", \"potency\": " + Number(p.potency) +
               ", \"lower\": " + Optional(p.lower) + ", \"upper\": " + Optional(p.upper) + "}";
    }
    return out + "]";
}

// The comparison of the lines; the tests and the potency are the same at every percent.
std::string ComparisonJson(const std::vector<LineComparison>& comparisons) {
    const LineComparison& c = comparisons.front();
    std::string out = "{\"reference\": " + std::to_string(c.reference + 1);
    out += ", \"ratios\": " + RatiosJson(comparisons);
    out += ", \"parallelism\": " + TestJson(c.parallelism);
    out += ", \"equality\": " + TestJson(c.equality);
    out += ", \"parallel\": " + Bool(c.parallelLines);
    out += ", \"common_slope\": {\"slope\": " + Number(c.parallel.slope()) +
           ", \"slope_se\": " + Number(c.parallel.slopeError()) + ", " + FitJson(c.parallel) + "}";
    out += ", \"relative_potency\": " + PotenciesJson(c.potencies);
    return out + "}";
}

}  // namespace

std::string LikelihoodJson(const std::vector<LikelihoodLineReport>& lines,
                           const std::vector<LineComparison>& comparisons,
                           const LikelihoodOptions& options) {
    std::string out = "{\"model\": " + String(ModelTitle(options.model));
    out += ", \"natural_response\": " + NaturalJson(options.natural);
    out += ", \"confidence\": " + Number(options.confidence);
    out += ", \"heterogeneity_level\": " + Number(options.heterogeneity);
    out += ", \"lines\": [";
    for (std::size_t k = 0; k < lines.size(); ++k) {
        if (k > 0)
            out += ", ";
        out += LineJson(lines[k]);
    }
    out += "]";
    if (!comparisons.empty())
        out += ", \"comparison\": " + ComparisonJson(comparisons);
    return out + "}";
}

}  // namespace morvane
