// The line document with a large table: a 30,000-row line file written and read, and
// 30,000 rows accepted one by one through AcceptRow followed by one rebuild of the
// response table, as an import does.
#include <benchmark/benchmark.h>

#include <stdlib.h>
#include "bench/SilentPort.h"

#include <filesystem>
#include <string>

#include "core/SharedRegisters.h"
#include "document/FileBytes.h"
#include "document/LineDocument.h"

namespace {

using namespace morvane;

constexpr int kRows = 30000;

std::string Folder() {
    static const std::string folder = [] {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "morvane-bench-XXXXXX").string();
        return std::string(mkdtemp(pattern.data()));
    }();
    return folder;
}

// A new line of responded and non responded counts in mg.
void NewLine(LineDocument& doc, SharedRegisters& shared) {
    doc.ResetLine();
    doc.fileOptionsControls().setDataType(DataType::RespondedAndNonResponded);
    doc.fileOptionsControls().setComboUnit1("mg", shared);
    doc.FileOptionsOK();
}

// kRows replicates over 3,000 doses, in an order that is not the table's.
void AcceptRows(LineDocument& doc) {
    for (int i = 0; i < kRows; ++i) {
        const int dose = 1 + (i * 7919) % 3000;
        doc.setTextDose(std::to_string(dose) + ".5");
        doc.setText1input(std::to_string(1 + i % 19));
        doc.setText2input(std::to_string(20 - i % 19));
        doc.AcceptRow();
    }
}

void BM_AcceptRowsThenRebuild(benchmark::State& state) {
    SharedRegisters shared;
    SilentPort port;
    LineDocument doc(shared, port, Folder());
    for (auto _ : state) {
        state.PauseTiming();
        NewLine(doc, shared);
        state.ResumeTiming();
        AcceptRows(doc);
        doc.RebuildResponseTable();
        benchmark::DoNotOptimize(doc.Grid2().rows());
    }
    state.counters["rows"] = doc.Grid1().rows() - 2;
    state.counters["doses"] = doc.Grid2().rows() - 2;
}
BENCHMARK(BM_AcceptRowsThenRebuild)->Unit(benchmark::kMillisecond)->Iterations(3);

std::string LargeFile(SharedRegisters& shared, SilentPort& port) {
    LineDocument doc(shared, port, Folder());
    NewLine(doc, shared);
    AcceptRows(doc);
    doc.RebuildResponseTable();
    const std::string path = Folder() + "/large.mrv";
    ReplaceFileContents(path, WriteLineFile(doc.fileOptions().controls, doc.Grid1(), doc.notes()));
    return path;
}

void BM_WriteLineFile(benchmark::State& state) {
    SharedRegisters shared;
    SilentPort port;
    LineDocument doc(shared, port, Folder());
    NewLine(doc, shared);
    AcceptRows(doc);
    doc.RebuildResponseTable();
    const std::string path = Folder() + "/written.mrv";
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string text =
            WriteLineFile(doc.fileOptions().controls, doc.Grid1(), doc.notes());
        ReplaceFileContents(path, text);  // a temporary file, flushed, renamed over the target
        bytes = text.size();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(BM_WriteLineFile)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_ReadLineFile(benchmark::State& state) {
    SharedRegisters shared;
    SilentPort port;
    const std::string path = LargeFile(shared, port);
    LineDocument doc(shared, port, Folder());
    for (auto _ : state) {
        // Opening reads the file, sets up the options and rebuilds the response table.
        if (!doc.OpenLineFile(path))
            state.SkipWithError("the file was not read");
    }
    state.counters["rows"] = doc.Grid1().rows() - 2;
}
BENCHMARK(BM_ReadLineFile)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
