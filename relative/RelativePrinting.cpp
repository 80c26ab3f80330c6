#include "relative/RelativePrinting.h"

#include <algorithm>
#include <cmath>

#include "results/ChartPicture.h"
#include "results/ChartText.h"

namespace morvane {
namespace {

// How the chart is set on its surface.
struct LineChartPlacement {
    double scale = 1;
    double left = 0;       // the plot's left edge
    double top = 0;        // the plot's top edge
    double legendTop = 0;  // where the legend's first row stands
    TextFont labels;       // axis labels, numbers and values
    TextFont title;        // the dose axis title
    TextFont legend;       // the legend's rows
};

double WidestLegend(const MultiLineChart& chart, const FontMeasure& measure, const TextFont& font) {
    double widest = 0;
    for (const LegendRow& row : chart.legend())
        widest = std::max(widest, measure(row.text, font));
    return widest;
}

// The plot on the surface: the scale S, left edge L, top T, width W, height H and
// bottom B.
struct PlotBox {
    double S, L, T, W, H, B;
};

PlotBox PlotBoxOf(const MultiLineChart& chart, const LineChartPlacement& at) {
    const double S = at.scale;
    const double L = at.left;
    const double T = at.top;
    const double W = chart.plotWidth() * S;
    const double H = chart.plotHeight() * S;
    const double B = T + H;
    return {S, L, T, W, H, B};
}

void PrintAt(Drawing& d, double x, double y, const std::string& text) {
    d.setCurrentPosition(x, y);
    d.print(text);
}

// Dose labels under the plot, with a tick at each inner cycle boundary, then the
// percent and probit labels at the sides.
void DrawAxisLabels(Drawing& d, const MultiLineChart& chart, const LineChartPlacement& at,
                    const PlotBox& box, const FontMeasure& measure) {
    for (const AxisLabel& label : chart.doseLabels()) {
        const double x = label.x * box.S + box.L;
        if (label.x > 0 && label.x < chart.plotWidth())
            d.line(x, box.B, x, box.B - 100);
        PrintAt(d, x - measure(label.caption, at.labels) / 2, box.B + 200, label.caption);
    }
    for (const AxisLabel& label : chart.percentLabels())
        d.text(box.L - 450, label.y * box.S + box.T, label.caption, HorizontalAnchor::Left,
               VerticalAnchor::Middle);
    for (const AxisLabel& label : chart.probitLabels())
        d.text(box.L + box.W + 150, label.y * box.S + box.T, label.caption, HorizontalAnchor::Left,
               VerticalAnchor::Middle);
}

// The lines, numbers, drop lines and values of the plot, scaled.
void DrawPlotContents(Drawing& d, const MultiLineChart& chart, const LineChartPlacement& at,
                      const PlotBox& box) {
    const double S = box.S, L = box.L, T = box.T;
    for (const DrawOp& op : chart.drawing().ops()) {
        if (const auto* line = std::get_if<draw::Line>(&op)) {
            double x1 = line->x1, y1 = line->y1, x2 = line->x2, y2 = line->y2;
            if (!ClipToBox(x1, y1, x2, y2, chart.plotWidth(), chart.plotHeight()))
                continue;
            d.setPenWidth(line->width);
            d.setPenStyle(line->style);
            d.line(x1 * S + L, y1 * S + T, x2 * S + L, y2 * S + T, line->color);
        } else if (const auto* text = std::get_if<draw::Text>(&op)) {
            if (text->x < 0 || text->y < 0 || text->x > chart.plotWidth() ||
                text->y > chart.plotHeight())
                continue;
            TextFont font = text->font;
            font.points = at.labels.points;
            d.setFont(font);
            d.text(text->x * S + L, text->y * S + T, text->text, text->horizontal, text->vertical,
                   text->color);
        }
    }
}

// The legend to the right of the plot: a sample of each line's pen, then its row.
void DrawLegend(Drawing& d, const MultiLineChart& chart, const LineChartPlacement& at,
                const PlotBox& box) {
    const double R = box.L + box.W;
    d.setFont(at.legend);
    for (std::size_t i = 0; i < chart.legend().size(); ++i) {
        const LegendRow& row = chart.legend()[i];
        const double y = at.legendTop + 300 * static_cast<double>(i);
        d.setPenStyle(row.style);
        d.line(R + 950, y + 150, R + 1700, y + 150, row.color);
        d.setPenStyle(PenStyle::Solid);
        PrintAt(d, R + 1850, y, row.text);
    }
}

// The titles of the percent and probit axes, turned to read upward.
void DrawTurnedTitles(Drawing& d, const LineChartPlacement& at, const PlotBox& box) {
    TextFont turned = at.labels;
    turned.bold = true;
    d.setFont(turned);
    d.text(box.L - 750, box.T + box.H / 2, kPercentAxisTitle, HorizontalAnchor::Centre,
           VerticalAnchor::Middle, kBlack, 90);
    d.text(box.L + box.W + 750, box.T + box.H / 2, kProbitAxisTitle, HorizontalAnchor::Centre,
           VerticalAnchor::Middle, kBlack, 90);
}

// The frame, the labels of the three axes and their titles, the lines and the legend.
void DrawLineChart(Drawing& d, const MultiLineChart& chart, const std::string& doseTitle,
                   const LineChartPlacement& at, const FontMeasure& measure) {
    const PlotBox box = PlotBoxOf(chart, at);
    d.setPenWidth(1);
    d.setPenStyle(PenStyle::Solid);
    d.setFont(at.labels);

    DrawPictureFrame(d, box.L, box.T, box.L + box.W, box.B);
    DrawAxisLabels(d, chart, at, box, measure);
    DrawPlotContents(d, chart, at, box);
    d.setPenWidth(1);
    d.setPenStyle(PenStyle::Solid);

    d.setFont(at.title);
    PrintAt(d, (box.L + box.W / 2) - measure(doseTitle, at.title) / 2, box.B + 800, doseTitle);
    DrawLegend(d, chart, at, box);
    DrawTurnedTitles(d, at, box);
}

}  // namespace

Drawing ComposeLineChartPicture(const MultiLineChart& chart, const std::string& doseTitle,
                                const FontMeasure& measure) {
    LineChartPlacement at;
    at.scale = kLinePictureScale;
    at.left = kLinePictureLeft;
    at.top = kLinePictureTop;
    at.legendTop = 0;
    at.labels = TextFont{"", kLinePicturePoints};
    at.title = at.labels;
    at.legend = at.labels;
    const double right = at.left + chart.plotWidth() * at.scale;
    const double bottom = at.top + chart.plotHeight() * at.scale;
    const double width = right + 1850 + WidestLegend(chart, measure, at.legend) + 300;
    const double height =
        std::max(bottom + 800 + 600, 300.0 * static_cast<double>(chart.legend().size()) + 300);
    Drawing d(width, height);
    d.clear();
    DrawLineChart(d, chart, doseTitle, at, measure);
    return d;
}

std::vector<Drawing> PrintLineTable(const Rtvout& rtvout, double pageWidth, double pageHeight,
                                    const FontMeasure& measure) {
    constexpr double kLeft = 750;
    const TextTable& grid = rtvout.Grid1;
    const TextFont font{"", kPrintTablePoints};
    std::vector<Drawing> pages;
    auto newPage = [&] {
        pages.emplace_back(pageWidth, pageHeight);
        pages.back().setPenWidth(3);
        pages.back().setFont(font);
    };
    auto printAt = [&](double x, double y, const std::string& text) {
        pages.back().setCurrentPosition(x, y);
        pages.back().print(text);
    };
    newPage();
    const int last = grid.cols() - 2;  // the hidden sort key is left out
    const auto groups = PrintColumnGroups(grid, last, pageWidth - 1500);
    for (std::size_t g = 0; g < groups.size(); ++g) {
        const auto& group = groups[g];
        auto printRow = [&](int r, double y) {
            double x = kLeft;
            for (int c = group[0]; c <= group[1]; ++c) {
                const double width = grid.columnWidth(c) + 400;
                const std::string& text = grid.text(r, c);
                printAt(x + std::round(width / 2 - measure(text, font) / 2), y, text);
                x += width;
            }
        };
        double y = 1700;
        for (int r = 0; r < grid.rows(); ++r) {
            if (y > pageHeight - 1500) {
                newPage();
                y = 1700;
                printRow(0, y);
                y += 400;
            }
            printRow(r, y);
            y += 400;
        }
        if (g == 0) {
            printAt(kLeft, y + 500, rtvout.Label1);
            printAt(kLeft, y + 900, rtvout.Text3);
        }
        if (g + 1 < groups.size())
            newPage();
    }
    return pages;
}

Drawing PrintLineChart(const MultiLineChart& chart, const std::string& doseTitle, double pageWidth,
                       double pageHeight, const FontMeasure& measure) {
    Drawing d(pageWidth, pageHeight);
    const double plotWidth = chart.plotWidth();
    const double plotHeight = chart.plotHeight();
    if (plotWidth <= 0 || plotHeight <= 0)
        return d;
    LineChartPlacement at;
    at.labels = TextFont{"", 8};
    at.title = TextFont{"", 11};
    at.legend = TextFont{"", 9};
    // The legend's width on the screen's scale, and the strips under the plot.
    const double legendWidth = WidestLegend(chart, measure, at.legend) + 1850;
    constexpr double kUnderPlot = 1400;  // the dose labels and the axis title
    const double across = (pageWidth - 2000) / (plotWidth + legendWidth + 400);
    const double down = (pageHeight - 1000) / (plotHeight + kUnderPlot);
    double s = std::min(std::round(across), std::round(down));
    // A whole scale, but never one that puts the chart beyond the paper.
    if ((plotWidth + legendWidth) * s > pageWidth - 1000 ||
        (plotHeight + kUnderPlot) * s > pageHeight - 800)
        s = std::floor(std::min(across, down));
    at.scale = std::max(1.0, s);
    at.top = 800;
    at.left = std::round((pageWidth - (plotWidth + legendWidth) * at.scale) / 2);
    at.left = std::max(at.left, 1000.0);
    at.legendTop = at.top;
    DrawLineChart(d, chart, doseTitle, at, measure);
    return d;
}

}  // namespace morvane
