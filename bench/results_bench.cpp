// Times the results of one line: the calculation with the results tables built on
// its channel (the data table's headings, the six standard estimates with their
// limits, the column fitting), the same tables alone on a calculated line, the
// tab-separated text of "Copy tables", and one query of each kind.
#include <benchmark/benchmark.h>

#include <cmath>

#include "bench/SilentPort.h"
#include "core/LineCalculation.h"
#include "core/NumberText.h"
#include "results/LineResults.h"

namespace morvane {
namespace {

// Doses doubling from 0.5, responses rising from 3% to 97% along a probit line, 50
// individuals a dose, no control.
TextTable ResponseTable(int doses) {
    TextTable t(2 + doses, 4);
    for (int i = 0; i < doses; ++i) {
        const double z = -1.9 + 3.8 * i / (doses - 1);
        const double percent = 50 * std::erfc(-z / std::sqrt(2.0));
        t.setText(2 + i, 0, PlainText(0.5 * std::pow(2.0, i)));
        t.setText(2 + i, 1, "50");
        t.setText(2 + i, 2, FormatNumber(percent, "0.000"));
        t.setText(2 + i, 3, FormatNumber(percent, "0.000"));
    }
    return t;
}

struct CalculatedLine {
    explicit CalculatedLine(int doses) : table(ResponseTable(doses)) {
        if (CalculateLine({table, false, 1, "bench"}, shared, results.tables(), port,
                          results.channel()) != CalculationOutcome::Completed)
            ok = false;
    }
    TextTable table;
    SharedRegisters shared;
    SilentPort port;
    FixedWidthTextMeasurer measurer;
    LineResults results{shared, port, measurer};
    bool ok = true;
};

void CalculationWithResultsTables(benchmark::State& state) {
    const TextTable table = ResponseTable(static_cast<int>(state.range(0)));
    SilentPort port;
    FixedWidthTextMeasurer measurer;
    for (auto _ : state) {
        SharedRegisters shared;
        LineResults results(shared, port, measurer);
        if (CalculateLine({table, false, 1, "bench"}, shared, results.tables(), port,
                          results.channel()) != CalculationOutcome::Completed)
            state.SkipWithError("not calculated");
        benchmark::DoNotOptimize(results.tables().Grid2);
    }
}
BENCHMARK(CalculationWithResultsTables)->Arg(12)->Arg(300)->Unit(benchmark::kMicrosecond);

void ResultsTablesAlone(benchmark::State& state) {
    CalculatedLine line(static_cast<int>(state.range(0)));
    if (!line.ok)
        state.SkipWithError("not calculated");
    for (auto _ : state) {
        line.results.Text1(1);
        line.results.Text1(2);
        line.results.Text1(5);
        benchmark::DoNotOptimize(line.results.tables().Grid2);
    }
}
BENCHMARK(ResultsTablesAlone)->Arg(12)->Arg(300)->Unit(benchmark::kMicrosecond);

void CopyTablesText(benchmark::State& state) {
    CalculatedLine line(static_cast<int>(state.range(0)));
    if (!line.ok)
        state.SkipWithError("not calculated");
    for (auto _ : state)
        benchmark::DoNotOptimize(line.results.ComposeResultsText());
}
BENCHMARK(CopyTablesText)->Arg(12)->Arg(300)->Unit(benchmark::kMicrosecond);

void QueriesOfEachKind(benchmark::State& state) {
    CalculatedLine line(12);
    if (!line.ok)
        state.SkipWithError("not calculated");
    ResultQueries& queries = line.results.queries();
    for (auto _ : state) {
        queries.typeText3("12.5");
        queries.Command3();
        queries.typeText2("4");
        queries.Command1();
        benchmark::DoNotOptimize(queries.panels());
    }
}
BENCHMARK(QueriesOfEachKind)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace morvane
