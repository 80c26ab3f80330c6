// The line document with a large table: a 30,000-row line file written and read, and
// 30,000 rows accepted one by one through AcceptRow followed by one rebuild of the
// response table, as an import does; and the memory a document of that file holds,
// counted by the allocations it keeps (this program replaces the global operator new
// and delete to count them).
#include <benchmark/benchmark.h>

#include <malloc.h>
#include <stdlib.h>
#include "bench/SilentPort.h"

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <new>
#include <string>

namespace {

// The bytes held by live allocations of operator new, as the allocator counts them.
std::atomic<long long> gLiveBytes{0};

void* CountedAllocation(std::size_t size) {
    void* p = std::malloc(size == 0 ? 1 : size);
    if (p == nullptr)
        throw std::bad_alloc();
    gLiveBytes += static_cast<long long>(malloc_usable_size(p));
    return p;
}

void CountedRelease(void* p) noexcept {
    if (p == nullptr)
        return;
    gLiveBytes -= static_cast<long long>(malloc_usable_size(p));
    std::free(p);
}

}  // namespace

void* operator new(std::size_t size) {
    return CountedAllocation(size);
}
void* operator new[](std::size_t size) {
    return CountedAllocation(size);
}
void operator delete(void* p) noexcept {
    CountedRelease(p);
}
void operator delete[](void* p) noexcept {
    CountedRelease(p);
}
void operator delete(void* p, std::size_t) noexcept {
    CountedRelease(p);
}
void operator delete[](void* p, std::size_t) noexcept {
    CountedRelease(p);
}

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

// kRows replicates over 3,000 doses (or as many doses as given), in an order that is
// not the table's.
void AcceptRows(LineDocument& doc, int doses = 3000) {
    for (int i = 0; i < kRows; ++i) {
        const int dose = 1 + static_cast<int>((static_cast<long long>(i) * 7919) % doses);
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

std::string LargeFile(SharedRegisters& shared, SilentPort& port, int doses = 3000) {
    LineDocument doc(shared, port, Folder());
    NewLine(doc, shared);
    AcceptRows(doc, doses);
    doc.RebuildResponseTable();
    const std::string path = Folder() + "/large-" + std::to_string(doses) + ".mrv";
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

// What an opened document of the 30,000-row file keeps in memory: the bytes per row of
// Grid1 and against the file's size (the aim is at most 4 times the file). The argument
// is the number of doses: 3,000 doses of ten replicates, or a dose for every row.
void BM_DocumentMemory(benchmark::State& state) {
    SharedRegisters shared;
    SilentPort port;
    const std::string path = LargeFile(shared, port, static_cast<int>(state.range(0)));
    const double fileBytes = static_cast<double>(std::filesystem::file_size(path));
    long long held = 0;
    int rows = 0;
    for (auto _ : state) {
        const long long before = gLiveBytes;
        auto doc = std::make_unique<LineDocument>(shared, port, Folder());
        if (!doc->OpenLineFile(path))
            state.SkipWithError("the file was not read");
        held = gLiveBytes - before;
        rows = doc->Grid1().rows() - 2;
    }
    state.counters["rows"] = rows;
    state.counters["file_bytes"] = fileBytes;
    state.counters["held_bytes"] = static_cast<double>(held);
    state.counters["bytes_per_row"] = static_cast<double>(held) / rows;
    state.counters["times_file"] = static_cast<double>(held) / fileBytes;
}
BENCHMARK(BM_DocumentMemory)->Arg(3000)->Arg(kRows)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
