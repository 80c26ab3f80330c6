// Times one whole calculation of a line: the provisional line, the cycles, the
// expected values and the statistics, for a 12-dose and a 300-dose line.
#include <benchmark/benchmark.h>

#include <cmath>

#include "bench/SilentPort.h"
#include "core/LineCalculation.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

// Doses rising by a constant factor, responses on a logistic-looking curve
// between 2 and 98 percent, 40 individuals a dose, no control.
TextTable ResponseTable(int doses) {
    TextTable t(2 + doses, 4);
    for (int i = 0; i < doses; ++i) {
        const double dose = 0.1 * std::pow(1.05, i);
        const double z = (i - doses / 2.0) / (doses / 6.0);
        const double percent = 2 + 96 / (1 + std::exp(-1.7 * z));
        t.setText(2 + i, 0, PlainText(dose));
        t.setText(2 + i, 1, "40");
        t.setText(2 + i, 2, FormatNumber(percent, "0.000"));
        t.setText(2 + i, 3, FormatNumber(percent, "0.000"));
    }
    return t;
}

void CalculateLineOf(benchmark::State& state) {
    const TextTable table = ResponseTable(static_cast<int>(state.range(0)));
    SilentPort port;
    for (auto _ : state) {
        SharedRegisters shared;
        ResultsTables results;
        const auto outcome = CalculateLine({table, false, 1, "bench"}, shared, results, port, {});
        if (outcome != CalculationOutcome::Completed)
            state.SkipWithError("not calculated");
        benchmark::DoNotOptimize(results.Grid22);
    }
}
BENCHMARK(CalculateLineOf)->Arg(12)->Arg(300)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace morvane
