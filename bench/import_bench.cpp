// The import of 30,000 rows of a CSV file into a new line: the reading by the
// sequential field rules, every row through AcceptRow, one rebuild of the response
// table at the end.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/SilentPort.h"
#include "core/SharedRegisters.h"
#include "document/ImportWorkbook.h"
#include "document/LineDocument.h"

namespace {

std::string WriteCsv(int rows) {
    const std::string path = (std::filesystem::temp_directory_path() /
                              ("morvane-import-bench-" + std::to_string(getpid()) + ".csv"))
                                 .string();
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    for (int r = 0; r < rows; ++r)
        out << (1 + r % 40) << ',' << (r % 19) << ',' << (20 - r % 19) << "\r\n";
    return path;
}

void BM_ImportCsv30000(benchmark::State& state) {
    const std::string path = WriteCsv(30000);
    for (auto _ : state) {
        morvane::SharedRegisters shared;
        morvane::SilentPort port;
        morvane::LineDocument doc(shared, port, std::string());
        doc.CommandNew();
        doc.fileOptionsControls().setDataType(morvane::DataType::RespondedAndNonResponded);
        doc.fileOptionsControls().setComboUnit1("mg", shared);
        doc.FileOptionsOK();
        const morvane::ImportOutcome outcome = morvane::ImportDataFile(doc, port, path, {});
        if (outcome.rowsTaken != 30000)
            state.SkipWithError("the rows were not all taken");
        benchmark::DoNotOptimize(doc.Grid2().rows());
    }
    std::remove(path.c_str());
}
BENCHMARK(BM_ImportCsv30000)->Unit(benchmark::kMillisecond);

}  // namespace
