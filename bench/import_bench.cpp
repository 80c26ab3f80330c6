// Imports of 3,000 and 30,000 rows into a new line, from a CSV file, an .xlsx workbook
// and an .xls workbook: the reading of the file, every row through AcceptRow, one
// rebuild of the response table at the end. The two sizes show how the time grows.
#include <benchmark/benchmark.h>
#include <unistd.h>
#include <xlsxwriter.h>
#include <zlib.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/SilentPort.h"
#include "core/SharedRegisters.h"
#include "document/ImportWorkbook.h"
#include "document/LineDocument.h"

namespace {

// Row r of every file: a dose of 1 to 40, responded and non responded of 20.
int Dose(int r) {
    return 1 + r % 40;
}
int Responded(int r) {
    return r % 19;
}

std::string TempPath(const std::string& name) {
    return (std::filesystem::temp_directory_path() /
            ("morvane-import-bench-" + std::to_string(getpid()) + "-" + name))
        .string();
}

std::string WriteCsv(int rows) {
    const std::string path = TempPath(std::to_string(rows) + ".csv");
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    for (int r = 0; r < rows; ++r)
        out << Dose(r) << ',' << Responded(r) << ',' << (20 - Responded(r)) << "\r\n";
    return path;
}

std::string WriteXlsx(int rows) {
    const std::string path = TempPath(std::to_string(rows) + ".xlsx");
    lxw_workbook* book = workbook_new(path.c_str());
    lxw_worksheet* sheet = workbook_add_worksheet(book, "Data");
    for (int r = 0; r < rows; ++r) {
        const auto row = static_cast<lxw_row_t>(r);
        worksheet_write_number(sheet, row, 0, Dose(r), nullptr);
        worksheet_write_number(sheet, row, 1, Responded(r), nullptr);
        worksheet_write_number(sheet, row, 2, 20 - Responded(r), nullptr);
    }
    workbook_close(book);
    return path;
}

// The .xls workbooks were written by xlwt (bench/data/make-xls.py) and are kept
// compressed; the same rows as the others.
std::string WriteXls(int rows) {
    const std::string path = TempPath(std::to_string(rows) + ".xls");
    const std::string source =
        std::string(MORVANE_BENCH_DATA) + "/counts-" + std::to_string(rows) + ".xls.gz";
    gzFile in = gzopen(source.c_str(), "rb");
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    char buffer[65536];
    for (int n = 0; in && (n = gzread(in, buffer, sizeof buffer)) > 0;)
        out.write(buffer, n);
    if (in)
        gzclose(in);
    return path;
}

void Import(benchmark::State& state, const std::string& path) {
    const int rows = static_cast<int>(state.range(0));
    for (auto _ : state) {
        morvane::SharedRegisters shared;
        morvane::SilentPort port;
        morvane::LineDocument doc(shared, port, std::string());
        doc.CommandNew();
        doc.fileOptionsControls().setDataType(morvane::DataType::RespondedAndNonResponded);
        doc.fileOptionsControls().setComboUnit1("mg", shared);
        doc.FileOptionsOK();
        const morvane::ImportOutcome outcome = morvane::ImportDataFile(doc, port, path, {});
        if (outcome.rowsTaken != rows)
            state.SkipWithError("the rows were not all taken");
        benchmark::DoNotOptimize(doc.Grid2().rows());
    }
    std::remove(path.c_str());
}

void BM_ImportCsv(benchmark::State& state) {
    Import(state, WriteCsv(static_cast<int>(state.range(0))));
}
void BM_ImportXlsx(benchmark::State& state) {
    Import(state, WriteXlsx(static_cast<int>(state.range(0))));
}
void BM_ImportXls(benchmark::State& state) {
    Import(state, WriteXls(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_ImportCsv)->Arg(3000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportXlsx)->Arg(3000)->Arg(30000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportXls)->Arg(3000)->Arg(30000)->Unit(benchmark::kMillisecond);

}  // namespace
