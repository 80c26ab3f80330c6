#include "core/LikelihoodFit.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "core/BorderedMatrix.h"
#include "core/Distributions.h"

namespace morvane {
namespace {

// A pooled group of one line: treated (log10 dose x) or the line's controls.
struct Group {
    int line = 0;
    bool control = false;
    double x = 0;
    double dose = 0;
    double n = 0;
    double r = 0;
};

double Cdf(LinkModel model, double z) {
    return model == LinkModel::Probit ? NormalCdf(z) : LogisticCdf(z);
}
double Density(LinkModel model, double z) {
    return model == LinkModel::Probit ? NormalDensity(z) : LogisticDensity(z);
}
double Quantile(LinkModel model, double p) {
    return model == LinkModel::Probit ? NormalQuantile(p) : LogisticQuantile(p);
}

// The model at one set of parameters: the log-likelihood, and when asked the score
// and the expected information.
struct Evaluation {
    bool valid = false;  // every probability strictly inside its range
    double logLikelihood = 0;
    std::vector<double> score;
    BorderedMatrix information;
};

// Where the parameters stand in the information matrix: each line's own intercept,
// slope and natural response form its block; a common intercept or slope is shared.
BorderedPlaces PlacesOf(const LikelihoodFit& layout) {
    std::vector<int> owner(layout.parameters.size(), -1);
    for (int line = 0; line < layout.lineCount; ++line) {
        if (layout.sharing != LineSharing::Common)
            owner[layout.interceptIndex[line]] = line;
        if (layout.sharing == LineSharing::Separate)
            owner[layout.slopeIndex[line]] = line;
        if (layout.naturalIndex[line] >= 0)
            owner[layout.naturalIndex[line]] = line;
    }
    return BorderedPlaces::Of(owner, layout.lineCount);
}

class Model {
  public:
    Model(std::vector<Group> groups, const LikelihoodFit& layout)
        : groups_(std::move(groups)), layout_(layout), places_(PlacesOf(layout)) {}

    const std::vector<Group>& groups() const { return groups_; }

    double natural(const std::vector<double>& theta, int line) const {
        const int index = layout_.naturalIndex[line];
        return index >= 0 ? theta[index] : layout_.fixedNatural[line];
    }

    double probability(const std::vector<double>& theta, const Group& g) const {
        const double c = natural(theta, g.line);
        if (g.control)
            return c;
        const double eta =
            theta[layout_.interceptIndex[g.line]] + theta[layout_.slopeIndex[g.line]] * g.x;
        return c + (1 - c) * Cdf(layout_.model, eta);
    }

    Evaluation evaluate(const std::vector<double>& theta, bool derivatives) const {
        const int size = static_cast<int>(theta.size());
        Evaluation e;
        if (derivatives) {
            e.score.assign(size, 0.0);
            e.information = BorderedMatrix(places_);
        }
        for (const Group& g : groups_) {
            const int naturalIndex = layout_.naturalIndex[g.line];
            if (g.control && naturalIndex < 0)
                continue;  // a fixed natural response: the controls add a constant
            const double c = natural(theta, g.line);
            const double p = probability(theta, g);
            if (!(p > 0 && p < 1)) {
                // A probability of exactly 0 or 1 is possible only where nothing
                // contradicts it.
                if ((p == 0 && g.r == 0) || (p == 1 && g.r == g.n))
                    continue;
                return e;
            }
            e.logLikelihood += g.r * std::log(p) + (g.n - g.r) * std::log1p(-p);
            if (!derivatives)
                continue;
            // dP/dtheta at the three places a group touches.
            int index[3];
            double dp[3];
            int count = 0;
            if (!g.control) {
                const double eta =
                    theta[layout_.interceptIndex[g.line]] + theta[layout_.slopeIndex[g.line]] * g.x;
                const double f = (1 - c) * Density(layout_.model, eta);
                index[count] = layout_.interceptIndex[g.line];
                dp[count++] = f;
                index[count] = layout_.slopeIndex[g.line];
                dp[count++] = f * g.x;
                if (naturalIndex >= 0) {
                    index[count] = naturalIndex;
                    dp[count++] = 1 - Cdf(layout_.model, eta);
                }
            } else {
                index[count] = naturalIndex;
                dp[count++] = 1;
            }
            const double v = p * (1 - p);
            const double residual = (g.r - g.n * p) / v;
            for (int i = 0; i < count; ++i) {
                e.score[index[i]] += residual * dp[i];
                for (int j = 0; j < count; ++j)
                    e.information.add(index[i], index[j], g.n / v * dp[i] * dp[j]);
            }
        }
        e.valid = true;
        return e;
    }

  private:
    std::vector<Group> groups_;
    const LikelihoodFit& layout_;
    BorderedPlaces places_;
};

// The log of the binomial coefficients, so that the log-likelihood is the full one.
double LogBinomialCoefficients(const std::vector<Group>& groups, const LikelihoodFit& layout) {
    double sum = 0;
    for (const Group& g : groups) {
        if (g.control && layout.naturalIndex[g.line] < 0)
            continue;
        sum += std::lgamma(g.n + 1) - std::lgamma(g.r + 1) - std::lgamma(g.n - g.r + 1);
    }
    return sum;
}

std::string CheckLine(const std::vector<Group>& groups, int line) {
    std::vector<const Group*> treated;
    for (const Group& g : groups) {
        if (g.line == line && !g.control && g.n > 0)
            treated.push_back(&g);
    }
    if (treated.size() < 2)
        return "The maximum likelihood fit needs at least two different doses above 0 with "
               "individuals treated.";
    bool anyResponse = false, anySurvivor = false;
    for (const Group* g : treated) {
        anyResponse = anyResponse || g->r > 0;
        anySurvivor = anySurvivor || g->r < g->n;
    }
    if (!anyResponse)
        return "No individual responded at any dose: the line can't be fitted.";
    if (!anySurvivor)
        return "Every individual responded at every dose: the line can't be fitted.";
    // Complete separation: no response up to some dose and all responding above it
    // (or the reverse); the slope would grow without bound.
    for (int direction = 0; direction < 2; ++direction) {
        std::size_t k = 0;
        auto none = [](const Group* g) { return g->r == 0; };
        auto all = [](const Group* g) { return g->r == g->n; };
        while (k < treated.size() && (direction == 0 ? none(treated[k]) : all(treated[k])))
            ++k;
        std::size_t rest = k;
        while (rest < treated.size() && (direction == 0 ? all(treated[rest]) : none(treated[rest])))
            ++rest;
        if (rest == treated.size() && k > 0 && k < treated.size())
            return "The responses are completely separated: no dose has a partial response "
                   "between none and all, so the slope grows without bound and the line "
                   "can't be fitted.";
    }
    return {};
}

// The starting natural response of each line: from its controls when it has any,
// otherwise half the lowest treated proportion; never above one half.
std::vector<double> StartingNatural(const std::vector<Group>& groups, const LikelihoodFit& fit,
                                    std::vector<double>& start) {
    std::vector<double> c0(fit.lineCount, 0.0);
    for (int line = 0; line < fit.lineCount; ++line) {
        if (fit.naturalIndex[line] < 0) {
            c0[line] = fit.fixedNatural[line];
            continue;
        }
        double n = 0, r = 0, lowest = 1;
        for (const Group& g : groups) {
            if (g.line != line)
                continue;
            if (g.control) {
                n += g.n;
                r += g.r;
            } else if (g.n > 0) {
                lowest = std::min(lowest, g.r / g.n);
            }
        }
        c0[line] = n > 0 ? (r + 0.5) / (n + 1) : std::max(lowest / 2, 0.01);
        c0[line] = std::min(c0[line], 0.5);
        start[fit.naturalIndex[line]] = c0[line];
    }
    return c0;
}

// Weighted sums of log dose and transformed proportion for one regression.
struct RegressionSums {
    double w = 0, x = 0, z = 0, xx = 0, xz = 0;
};

// The regression sums of each line, and of all lines together.
struct StartingSums {
    std::vector<RegressionSums> lines;
    RegressionSums all;
};

StartingSums SumTreatedGroups(const std::vector<Group>& groups, const LikelihoodFit& fit,
                              const std::vector<double>& c0) {
    StartingSums sums;
    sums.lines.resize(fit.lineCount);
    for (const Group& g : groups) {
        if (g.control || g.n <= 0)
            continue;
        const double p = (g.r + 0.5) / (g.n + 1);
        const double c = c0[g.line];
        const double corrected =
            std::clamp((p - c) / (1 - c), 0.5 / (g.n + 1), 1 - 0.5 / (g.n + 1));
        const double z = Quantile(fit.model, corrected);
        for (RegressionSums* s : {&sums.lines[g.line], &sums.all}) {
            s->w += g.n;
            s->x += g.n * g.x;
            s->z += g.n * z;
            s->xx += g.n * g.x * g.x;
            s->xz += g.n * g.x * z;
        }
    }
    return sums;
}

double RegressionSlope(const RegressionSums& s) {
    const double sxx = s.xx - s.x * s.x / s.w;
    return sxx > 0 ? (s.xz - s.x * s.z / s.w) / sxx : 0.0;
}

// The slopes of the lines averaged with their spread of log dose as weights.
double PooledSlope(const std::vector<RegressionSums>& lines) {
    double commonSlope = 0, weight = 0;
    for (const RegressionSums& s : lines) {
        const double sxx = s.xx - s.x * s.x / s.w;
        commonSlope += RegressionSlope(s) * sxx;
        weight += sxx;
    }
    return weight > 0 ? commonSlope / weight : 0;
}

// Starting values: for each line a weighted regression of the transformed adjusted
// proportions on log dose, corrected for the starting natural response.
std::vector<double> StartingValues(const std::vector<Group>& groups, const LikelihoodFit& fit) {
    std::vector<double> start(fit.parameters.size(), 0.0);
    const std::vector<double> c0 = StartingNatural(groups, fit, start);
    const StartingSums sums = SumTreatedGroups(groups, fit, c0);
    const double commonSlope = PooledSlope(sums.lines);
    for (int line = 0; line < fit.lineCount; ++line) {
        const RegressionSums& s = fit.sharing == LineSharing::Common ? sums.all : sums.lines[line];
        double b = RegressionSlope(s);
        if (fit.sharing == LineSharing::CommonSlope)
            b = commonSlope;
        start[fit.slopeIndex[line]] = b;
        start[fit.interceptIndex[line]] = (s.z - b * s.x) / s.w;
    }
    return start;
}

LikelihoodFit Layout(int lineCount, LineSharing sharing, const LikelihoodOptions& options,
                     const std::vector<bool>& estimateNatural) {
    LikelihoodFit fit;
    fit.lineCount = lineCount;
    fit.sharing = sharing;
    fit.model = options.model;
    fit.confidence = options.confidence;
    const int intercepts = sharing == LineSharing::Common ? 1 : lineCount;
    const int slopes = sharing == LineSharing::Separate ? lineCount : 1;
    int next = intercepts + slopes;
    for (int line = 0; line < lineCount; ++line) {
        fit.interceptIndex.push_back(sharing == LineSharing::Common ? 0 : line);
        fit.slopeIndex.push_back(intercepts + (sharing == LineSharing::Separate ? line : 0));
        fit.naturalIndex.push_back(estimateNatural[line] ? next++ : -1);
        fit.fixedNatural.push_back(
            options.natural.kind == NaturalResponse::Kind::Fixed ? options.natural.value : 0.0);
    }
    fit.parameters.assign(next, 0.0);
    fit.zeroNatural.assign(lineCount, false);
    return fit;
}

LikelihoodFit Failed(LikelihoodFit fit, std::string message) {
    fit.converged = false;
    fit.message = std::move(message);
    return fit;
}

const char* const kSingularInformation =
    "The information matrix is singular: the data can't determine the line "
    "(one dose, or all responses alike).";

// Halves the step until the likelihood at theta + step does not fall; the result is
// not valid when no step up to 40 halvings does. candidate holds the last point tried.
Evaluation HalveStep(const Model& model, const std::vector<double>& theta,
                     const Evaluation& current, std::vector<double>& step,
                     std::vector<double>& candidate) {
    Evaluation next;
    const std::size_t size = theta.size();
    for (int halving = 0; halving <= 40; ++halving) {
        for (std::size_t i = 0; i < size; ++i)
            candidate[i] = theta[i] + step[i];
        next = model.evaluate(candidate, false);
        const double tolerance = 1e-12 * (std::fabs(current.logLikelihood) + 1);
        if (next.valid && next.logLikelihood >= current.logLikelihood - tolerance)
            break;
        next.valid = false;
        for (double& s : step)
            s /= 2;
    }
    return next;
}

bool StepSettled(const std::vector<double>& step, const std::vector<double>& candidate) {
    bool parametersSettled = true;
    for (std::size_t i = 0; i < step.size(); ++i) {
        if (std::fabs(step[i]) > 1e-10 * (std::fabs(candidate[i]) + 1e-6))
            parametersSettled = false;
    }
    return parametersSettled;
}

// Where the scoring ended: the parameters, the model there, the iterations taken, and
// a problem when the information matrix could not be inverted on the way.
struct Scoring {
    std::vector<double> theta;
    Evaluation current;
    int iterations = 0;
    bool settled = false;
    std::string problem;
};

Scoring Score(const Model& model, Scoring s, const LikelihoodOptions& options) {
    const int size = static_cast<int>(s.theta.size());
    while (s.iterations < options.maxIterations && !s.settled) {
        ++s.iterations;
        BorderedInverse inverse;
        if (!s.current.information.invert(inverse)) {
            s.problem = kSingularInformation;
            return s;
        }
        std::vector<double> step = inverse.times(s.current.score);
        std::vector<double> candidate(size);
        const Evaluation next = HalveStep(model, s.theta, s.current, step, candidate);
        if (!next.valid)
            break;  // no step improves: taken as settled only by the tests below
        const bool parametersSettled = StepSettled(step, candidate);
        const bool likelihoodSettled = std::fabs(next.logLikelihood - s.current.logLikelihood) <=
                                       1e-13 * (std::fabs(next.logLikelihood) + 1);
        s.theta = candidate;
        s.current = model.evaluate(s.theta, true);
        s.settled = parametersSettled && likelihoodSettled;
    }
    return s;
}

// The covariance matrix from the information at the fit; false when the information
// is singular or its inverse has values that are not finite.
bool CovarianceOf(const BorderedMatrix& information, BorderedInverse& covariance) {
    return information.invert(covariance) && covariance.finite();
}

// Pearson's chi-square of the fitted line, its degrees of freedom and, when there are
// any, the heterogeneity test.
void AddGoodnessOfFit(const std::vector<Group>& groups, const Model& model,
                      const LikelihoodOptions& options, LikelihoodFit& fit) {
    double chi = 0;
    int counted = 0;
    for (const Group& g : groups) {
        if (g.n <= 0 || (g.control && fit.naturalIndex[g.line] < 0))
            continue;
        const double p = model.probability(fit.parameters, g);
        ++counted;
        const double expected = g.n * p * (1 - p);
        if (expected > 0)
            chi += (g.r - g.n * p) * (g.r - g.n * p) / expected;
    }
    fit.chiSquare = chi;
    fit.groups = counted;
    fit.degreesOfFreedom = counted - fit.parameterCount();
    if (fit.degreesOfFreedom > 0) {
        fit.p = ChiSquareUpperTail(chi, fit.degreesOfFreedom);
        fit.h = chi / fit.degreesOfFreedom;
        fit.heterogeneous = fit.p < options.heterogeneity;
    }
}

// Fisher scoring with step halving from the starting values.
LikelihoodFit Iterate(const std::vector<Group>& groups, LikelihoodFit fit,
                      const LikelihoodOptions& options) {
    const Model model(groups, fit);
    Scoring start;
    start.theta = StartingValues(groups, fit);
    start.current = model.evaluate(start.theta, true);
    if (!start.current.valid)
        return Failed(std::move(fit),
                      "The starting line of the maximum likelihood fit gives "
                      "impossible probabilities: the line can't be fitted.");
    const Scoring end = Score(model, std::move(start), options);
    if (!end.problem.empty())
        return Failed(std::move(fit), end.problem);
    fit.iterations = end.iterations;
    fit.parameters = end.theta;
    if (!end.settled)
        return Failed(std::move(fit), "The maximum likelihood fit did not converge in " +
                                          std::to_string(end.iterations) +
                                          " iterations: the line can't be fitted.");
    BorderedInverse covariance;
    if (!CovarianceOf(end.current.information, covariance))
        return Failed(std::move(fit), kSingularInformation);
    fit.covariance = std::move(covariance);
    fit.logLikelihood = end.current.logLikelihood + LogBinomialCoefficients(groups, fit);
    AddGoodnessOfFit(groups, model, options, fit);
    fit.converged = true;
    return fit;
}

// Groups of the same line and dose are pooled; all controls of a line are one group.
// Returns a problem when a group has counts the fit can't take.
std::string PoolGroups(const std::vector<DoseGroup>& doseGroups, const std::vector<int>& lineOf,
                       std::vector<Group>& groups) {
    std::map<std::pair<int, double>, Group> pooled;
    for (std::size_t k = 0; k < doseGroups.size(); ++k) {
        const DoseGroup& d = doseGroups[k];
        if (!(d.total >= 0 && d.responded >= 0 && d.responded <= d.total && d.dose >= 0) ||
            !std::isfinite(d.total) || !std::isfinite(d.dose))
            return "A group has counts the fit can't take: the responded must be from 0 "
                   "to the number treated, and the dose 0 or more.";
        const bool control = d.control || d.dose == 0;
        Group& g = pooled[{lineOf[k], control ? -1.0 : d.dose}];
        g.line = lineOf[k];
        g.control = control;
        g.dose = control ? 0 : d.dose;
        g.x = g.control ? 0 : std::log10(d.dose);
        g.n += d.total;
        g.r += d.responded;
    }
    for (auto& [key, g] : pooled)
        groups.push_back(g);
    return {};
}

// The lines whose natural response is taken as 0: a single line always; with several
// lines, those whose own fit takes it as 0.
std::vector<bool> LinesWithNaturalAtZero(const std::vector<DoseGroup>& doseGroups,
                                         const std::vector<int>& lineOf, int lineCount,
                                         const LikelihoodOptions& options) {
    std::vector<bool> atZero(lineCount, lineCount == 1);
    if (lineCount > 1) {
        for (int line = 0; line < lineCount; ++line) {
            std::vector<DoseGroup> own;
            for (std::size_t k = 0; k < doseGroups.size(); ++k) {
                if (lineOf[k] == line)
                    own.push_back(doseGroups[k]);
            }
            const LikelihoodFit single = FitLikelihoodLine(own, options);
            atZero[line] = single.converged && single.naturalAtZero();
        }
    }
    return atZero;
}

// Whether the likelihood of a single line rises as the natural response rises from 0,
// in which case the fit at 0 does not stand.
bool LikelihoodRisesFromZero(const std::vector<Group>& groups, const LikelihoodFit& refit,
                             const LikelihoodOptions& options) {
    double scoreAtZero = 0;
    for (const Group& g : groups) {
        if (g.control) {
            scoreAtZero += g.r > 0 ? HUGE_VAL : -g.n;
            continue;
        }
        const double f = Cdf(options.model, refit.intercept() + refit.slope() * g.x);
        scoreAtZero += (g.r - g.n * f) / f;
    }
    return scoreAtZero > 0;
}

// Finney's rule: a natural response estimated below 0 is taken as 0. With several
// lines, the lines whose own fit takes it as 0 keep 0 in the joint fit.
LikelihoodFit RefitWithNaturalAtZero(const std::vector<DoseGroup>& doseGroups,
                                     const std::vector<int>& lineOf,
                                     const std::vector<Group>& groups, const LikelihoodFit& fit,
                                     LineSharing sharing, const LikelihoodOptions& options) {
    const int lineCount = fit.lineCount;
    const std::vector<bool> atZero = LinesWithNaturalAtZero(doseGroups, lineOf, lineCount, options);
    std::vector<bool> estimate(lineCount);
    bool any = false;
    for (int line = 0; line < lineCount; ++line) {
        any = any || atZero[line];
        estimate[line] = !atZero[line];
    }
    if (!any)
        return fit;
    LikelihoodFit refit = Iterate(groups, Layout(lineCount, sharing, options, estimate), options);
    if (!refit.converged)
        return fit.converged ? refit : fit;
    for (int line = 0; line < lineCount; ++line) {
        if (!atZero[line] && refit.natural(line) < 0)
            return fit.converged ? refit : fit;
    }
    // The fit at 0 stands for a single line when the likelihood falls as the natural
    // response rises from 0 (controls with no response, treated groups that ask for
    // none).
    if (lineCount == 1 && LikelihoodRisesFromZero(groups, refit, options))
        return fit;
    refit.zeroNatural = atZero;
    return refit;
}

}  // namespace

double LikelihoodFit::cov(int i, int j) const {
    // The inverse of a symmetric matrix is symmetric; the rounding of the elimination
    // is evened out so that cov(i, j) and cov(j, i) are the same number.
    return i == j ? covariance.at(i, i) : (covariance.at(i, j) + covariance.at(j, i)) / 2;
}
double LikelihoodFit::natural(int line) const {
    return naturalIndex[line] >= 0 ? parameters[naturalIndex[line]] : fixedNatural[line];
}
double LikelihoodFit::interceptError(int line) const {
    return std::sqrt(cov(interceptIndex[line], interceptIndex[line]));
}
double LikelihoodFit::slopeError(int line) const {
    return std::sqrt(cov(slopeIndex[line], slopeIndex[line]));
}
double LikelihoodFit::naturalError(int line) const {
    return naturalIndex[line] >= 0 ? std::sqrt(cov(naturalIndex[line], naturalIndex[line])) : 0;
}
double LikelihoodFit::criticalValue() const {
    const double p = 1 - (1 - confidence) / 2;
    return heterogeneous ? StudentTQuantile(p, degreesOfFreedom) : NormalQuantile(p);
}

LikelihoodFit FitLikelihoodLines(const std::vector<DoseGroup>& doseGroups,
                                 const std::vector<int>& lineOf, int lineCount, LineSharing sharing,
                                 const LikelihoodOptions& options) {
    std::vector<bool> estimate(lineCount, options.natural.kind == NaturalResponse::Kind::Estimated);
    LikelihoodFit layout = Layout(lineCount, sharing, options, estimate);
    if (options.natural.kind == NaturalResponse::Kind::Fixed &&
        !(options.natural.value >= 0 && options.natural.value < 1))
        return Failed(std::move(layout),
                      "The natural response must be a proportion from 0 up to, not including, 1.");
    std::vector<Group> groups;
    const std::string badCounts = PoolGroups(doseGroups, lineOf, groups);
    if (!badCounts.empty())
        return Failed(std::move(layout), badCounts);
    for (int line = 0; line < lineCount; ++line) {
        const std::string problem = CheckLine(groups, line);
        if (!problem.empty())
            return Failed(std::move(layout), problem);
    }
    LikelihoodFit fit = Iterate(groups, layout, options);
    if (options.natural.kind != NaturalResponse::Kind::Estimated)
        return fit;
    bool belowZero = !fit.converged;
    for (int line = 0; line < lineCount && fit.converged; ++line)
        belowZero = belowZero || fit.natural(line) < 0;
    if (!belowZero)
        return fit;
    return RefitWithNaturalAtZero(doseGroups, lineOf, groups, fit, sharing, options);
}

LikelihoodFit FitLikelihoodLine(const std::vector<DoseGroup>& groups,
                                const LikelihoodOptions& options) {
    return FitLikelihoodLines(groups, std::vector<int>(groups.size(), 0), 1, LineSharing::Separate,
                              options);
}

FiellerInterval FiellerRatio(double numerator, double denominator, double varNumerator,
                             double covariance, double varDenominator, double q) {
    FiellerInterval interval;
    interval.estimate = numerator / denominator;
    interval.g = q * varDenominator / (denominator * denominator);
    const double a = denominator * denominator - q * varDenominator;
    const double b = -2 * (numerator * denominator - q * covariance);
    const double c = numerator * numerator - q * varNumerator;
    const double discriminant = b * b - 4 * a * c;
    if (!(a > 0) || discriminant < 0)
        return interval;
    const double root = std::sqrt(discriminant);
    interval.lower = (-b - root) / (2 * a);
    interval.upper = (-b + root) / (2 * a);
    return interval;
}

LikelihoodDose LikelihoodDoseAt(const LikelihoodFit& fit, double percent, int line) {
    LikelihoodDose result;
    result.percent = percent;
    const double xi = Quantile(fit.model, percent / 100);
    const int ia = fit.interceptIndex[line], ib = fit.slopeIndex[line];
    const double q = fit.criticalValue() * fit.criticalValue() * fit.varianceFactor();
    const FiellerInterval f = FiellerRatio(xi - fit.parameters[ia], fit.parameters[ib],
                                           fit.cov(ia, ia), -fit.cov(ia, ib), fit.cov(ib, ib), q);
    result.logDose = f.estimate;
    result.dose = std::pow(10.0, f.estimate);
    result.g = f.g;
    if (f.lower && f.upper) {
        result.lowerLog = f.lower;
        result.upperLog = f.upper;
        result.lower = std::pow(10.0, *f.lower);
        result.upper = std::pow(10.0, *f.upper);
    }
    return result;
}

LikelihoodResponse LikelihoodResponseAt(const LikelihoodFit& fit, double dose, int line) {
    LikelihoodResponse result;
    result.dose = dose;
    const int ia = fit.interceptIndex[line], ib = fit.slopeIndex[line];
    const double x = std::log10(dose);
    const double eta = fit.parameters[ia] + fit.parameters[ib] * x;
    const double variance = (fit.cov(ia, ia) + 2 * x * fit.cov(ia, ib) + x * x * fit.cov(ib, ib)) *
                            fit.varianceFactor();
    const double half = fit.criticalValue() * std::sqrt(std::max(variance, 0.0));
    const double c = fit.natural(line);
    result.response = c + (1 - c) * Cdf(fit.model, eta);
    result.lower = c + (1 - c) * Cdf(fit.model, eta - half);
    result.upper = c + (1 - c) * Cdf(fit.model, eta + half);
    return result;
}

const char* LinkModelName(LinkModel model) {
    return model == LinkModel::Probit ? "probit" : "logit";
}

}  // namespace morvane
