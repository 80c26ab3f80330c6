#include "cli/ChartFiles.h"

#include <ostream>

#include "core/Fault.h"
#include "document/FileBytes.h"
#include "relative/MultiLineChart.h"
#include "relative/RelativePrinting.h"
#include "results/Chart.h"
#include "results/ChartPicture.h"
#include "results/ResultsExport.h"
#include "results/ResultsLayout.h"
#include "shell/FontMeasure.h"
#include "shell/PictureExport.h"

namespace morvane::cli {
namespace {

// The height of the strip of the results windows' tabs, in twips.
constexpr double kTabStrip = 330;
// The figure of the comparison's "Graph" tab in the window of the least size.
constexpr double kComparisonFigureWidth = 8000;
constexpr double kComparisonFigureHeight = 6000;

bool WriteChart(const std::string& path, const std::function<Drawing()>& compose,
                std::ostream& err) {
    std::string bytes;
    try {
        EnsureFontSupport();
        bytes = EncodePicture(compose(), PictureFormatOf(path).value_or(PictureFormat::Bmp));
    } catch (const Fault& failure) {
        err << kSaveFailed << '\n' << failure.what() << '\n';
        return false;
    }
    return WriteResultFile(path, bytes, err);
}

}  // namespace

bool ChartFileNameIsGood(const std::string& command, const std::string& path, std::ostream& err) {
    if (PictureFormatOf(path))
        return true;
    err << command << ": the chart's file \"" << path
        << "\" must end in .svg, .png, .pdf or .bmp\n";
    return false;
}

bool WriteResultFile(const std::string& path, const std::string& bytes, std::ostream& err) {
    try {
        ReplaceFileContents(path, bytes);
        return true;
    } catch (const Fault& failure) {
        err << kSaveFailed << '\n' << failure.what() << '\n';
        return false;
    }
}

bool WriteLineChart(const std::string& path, LineResults& results, SharedRegisters& shared,
                    std::ostream& err) {
    return WriteChart(
        path,
        [&] {
            const ResultsLayout window =
                ArrangeResults(MinFormWidth, MinFormHeight, MinFormWidth, MinFormHeight, kTabStrip);
            const ChartLayout layout = ArrangeChart(window.Tab1.width, window.Tab1.height);
            LogProbitChart chart(results.tables().Grid1, shared);
            chart.setPlotSize(layout.Picture1.width, layout.Picture1.height);
            chart.setPercentStripHeight(layout.Picture3.height);
            chart.RedrawChart();
            const PictureTextMeasurer measurer;
            return ComposeChartPicture(chart, layout, results.captions().Text7, shared, measurer);
        },
        err);
}

bool WriteComparisonChart(const std::string& path, Rtvout& rtvout, SharedRegisters& shared,
                          UserPort& port, std::ostream& err) {
    return WriteChart(
        path,
        [&] {
            MultiLineChart chart(rtvout, shared);
            chart.figure(kComparisonFigureWidth, kComparisonFigureHeight, std::string(), port);
            return ComposeLineChartPicture(chart, std::string(), PrintFontMeasure);
        },
        err);
}

}  // namespace morvane::cli
