// Times the maximum-likelihood analysis: one line of 10, 100 and 1,000 doses, with
// the natural response estimated, and the comparison of 3, 30 and 300 lines (each
// alone, then the separate, parallel and common joint fits with the ratios and the
// two tests).
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "core/Distributions.h"
#include "core/LikelihoodFit.h"
#include "relative/LineRatios.h"

namespace morvane {
namespace {

// A control of 100 individuals with 10 responding, then doses rising by a constant
// factor with the expected response of a probit line (slope 3, natural response 0.1)
// rounded to whole individuals, 50 a dose. `shift` moves the line along the dose axis.
std::vector<DoseGroup> Groups(int doses, double shift) {
    std::vector<DoseGroup> groups{{0, 100, 10, true}};
    const double step = 2.0 / doses;
    for (int i = 0; i < doses; ++i) {
        const double logDose = -1 + step * i + shift;
        const double p = 0.1 + 0.9 * NormalCdf(3 * (logDose - shift));
        groups.push_back({std::pow(10.0, logDose), 50, std::round(50 * p), false});
    }
    return groups;
}

void FitOneLine(benchmark::State& state) {
    const std::vector<DoseGroup> groups = Groups(static_cast<int>(state.range(0)), 0);
    LikelihoodOptions options;
    options.natural.kind = NaturalResponse::Kind::Estimated;
    for (auto _ : state) {
        const LikelihoodFit fit = FitLikelihoodLine(groups, options);
        if (!fit.converged)
            state.SkipWithError("not fitted");
        benchmark::DoNotOptimize(fit.parameters);
    }
}
BENCHMARK(FitOneLine)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

void CompareLines(benchmark::State& state) {
    std::vector<std::vector<DoseGroup>> lines;
    for (int k = 0; k < state.range(0); ++k)
        lines.push_back(Groups(6, 0.01 * k));
    for (auto _ : state) {
        const LineComparison comparison = CompareLikelihoodLines(lines, 0, 50, {});
        if (!comparison.done)
            state.SkipWithError("not compared");
        benchmark::DoNotOptimize(comparison.ratios);
    }
}
BENCHMARK(CompareLines)->Arg(3)->Arg(30)->Arg(300)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace morvane
