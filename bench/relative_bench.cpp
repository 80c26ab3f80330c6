// Where the time of a comparison of lines goes: the whole comparison over line files
// (reading, calculating, comparing), the comparison alone over lines already fitted,
// and the table text.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "core/NumberText.h"
#include "document/LineDocument.h"
#include "relative/DocumentLineCalculator.h"
#include "relative/LineBatch.h"
#include "relative/RelativeExport.h"
#include "relative/Rtvin.h"
#include "results/LineResults.h"
#include "results/TextMeasurer.h"

namespace {

using namespace morvane;

// A port that answers the file dialog from a list and says nothing.
class QuietPort : public UserPort {
  public:
    std::vector<std::string> files;
    std::size_t next = 0;
    Answer ask(const Message& message) override { return message.defaultAnswer; }
    std::optional<std::string> openFileName(const FileDialog&) override {
        if (next < files.size())
            return files[next++];
        return std::nullopt;
    }
    std::optional<std::string> saveFileName(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> inputBox(const InputRequest&) override { return std::nullopt; }
};

// Line files of five doubling doses, each line 1% above the one before, written once.
const std::vector<std::string>& LineFiles(int lines) {
    static std::string folder;
    static std::vector<std::string> files;
    if (static_cast<int>(files.size()) >= lines)
        return files;
    if (folder.empty()) {
        std::string pattern = "/tmp/morvane-bench-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr)
            std::abort();
        folder = pattern;
        std::atexit([] { std::system(("rm -rf '" + folder + "'").c_str()); });
    }
    const int base[] = {5, 14, 26, 38, 46};
    for (int i = static_cast<int>(files.size()) + 1; i <= lines; ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "/line%04d.mrv", i);
        const std::string path = folder + name;
        std::ofstream out(path, std::ios::binary);
        out << "2,\"\",\"\",\"\",\"\",\"\"\r\n1,0,\"mg\",\"\",1,\"Dose\",\"LD\",\"\",0,\"0.05\",0,"
               "0\r\n"
            << "7,6\r\n";
        for (int k = 0; k < 5; ++k) {
            const double dose = std::pow(1.01, i) * std::pow(2.0, k);
            const int responded = base[k] + (i + k) % 3 - 1;
            out << "\"T\",\"" << PlainText(dose) << "\",\"50\",\"" << responded << "\",\""
                << FormatNumber(responded / 50.0 * 100, "0.000") << "\",\"" << SortKey(dose, "T")
                << "\",";
        }
        out << "\"T\",\"\",\"\",\"\"\r\n";
        files.push_back(path);
    }
    return files;
}

void AddLines(Rtvin& rtvin, QuietPort& port, const std::vector<std::string>& paths, int lines) {
    port.files.assign(paths.begin(), paths.begin() + lines);
    port.next = 0;
    rtvin.Command1Click(port);
}

// The whole comparison, as morvane-cli compare runs it.
void BM_CompareLineFiles(benchmark::State& state) {
    const int lines = static_cast<int>(state.range(0));
    const auto& files = LineFiles(lines);
    std::size_t bytes = 0;
    for (auto _ : state) {
        SharedRegisters shared;
        QuietPort port;
        Rtvin rtvin;
        AddLines(rtvin, port, files, lines);
        const FixedWidthTextMeasurer measurer;
        LineDocument document(shared, port, std::string());
        LineResults results(shared, port, measurer);
        DocumentLineCalculator calculator(document, results);
        if (RunComparison(rtvin, shared, calculator, port) != BatchOutcome::Shown)
            state.SkipWithError("the comparison failed");
        bytes = RelativeTableText(*rtvin.rtvout()).size();
    }
    state.counters["lines"] = lines;
    state.counters["text_bytes"] = static_cast<double>(bytes);
    state.counters["per_line"] = benchmark::Counter(
        static_cast<double>(lines),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_CompareLineFiles)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

// The comparison alone: every line is the same fitted line, set in the registers.
class FittedCalculator : public LineCalculator {
  public:
    void OpenLineForBatch(const std::string&, SharedRegisters&) override {}
    void CalculateFile(SharedRegisters& shared, UserPort&) override {
        shared.fit.Slope = 2;
        shared.fit.MeanLogDose = 1 + 0.001 * ++count_;
        shared.fit.MeanProbit = 5;
        shared.fit.DoseScale = 1;
        shared.fit.SumWeights = 50;
        shared.fit.SumSquaresLogDose = 2;
        shared.fit.TValue = 1.96;
        shared.fit.GValue = 0.1;
        shared.fit.HeterogeneityFactor = 1;
        shared.EstimateWord = "LD";
    }

  private:
    int count_ = 0;
};

void BM_CompareFittedLines(benchmark::State& state) {
    const int lines = static_cast<int>(state.range(0));
    std::vector<std::string> names;
    for (int i = 1; i <= lines; ++i)
        names.push_back("/fitted/line" + std::to_string(i) + ".mrv");
    for (auto _ : state) {
        SharedRegisters shared;
        QuietPort port;
        Rtvin rtvin;
        AddLines(rtvin, port, names, lines);
        FittedCalculator calculator;
        if (RunComparison(rtvin, shared, calculator, port) != BatchOutcome::Shown)
            state.SkipWithError("the comparison failed");
        benchmark::DoNotOptimize(rtvin.rtvout());
    }
    state.counters["lines"] = lines;
}
BENCHMARK(BM_CompareFittedLines)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
