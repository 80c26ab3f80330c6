#include "results/ChartPicture.h"

#include <array>
#include <vector>

#include "core/DoseEstimates.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

// Line points of a hidden coordinate table, from row 1, in twips from the plot's
// bottom left corner, y upward. A row with an empty cell keeps zero there, as the
// screen chart keeps it.
std::vector<std::array<double, 2>> PointsOf(const TextTable& table) {
    std::vector<std::array<double, 2>> points;
    for (int r = 1; r < table.rows(); ++r) {
        std::array<double, 2> point{0, 0};
        for (int c = pointcol::X; c <= pointcol::Y; ++c) {
            const std::string& cell = table.text(r, c);
            if (!cell.empty())
                point[static_cast<std::size_t>(c)] = NumberOf(cell);
        }
        points.push_back(point);
    }
    return points;
}

}  // namespace

void DrawPictureFrame(Drawing& d, double left, double top, double right, double bottom) {
    for (int i = 1; i <= 8; ++i) {
        d.box(left, top, right, bottom);
        d.box(left + i, top + i, right - i, bottom - i);
    }
}

void DrawChartLabels(Drawing& d, const LogProbitChart& chart, const ChartLabelPlaces& at,
                     const std::string& doseAxisTitle, const TextWidth& width) {
    const double S = at.scale;
    const double L = at.left;
    const double T = at.top;
    const double W = at.width;
    const double B = at.bottom;
    auto printAt = [&d](double x, double y, const std::string& text) {
        d.setCurrentPosition(x, y);
        d.print(text);
    };
    auto halfWidth = [&width](const std::string& text) { return width(text) / 2; };

    const std::string& leftEnd = chart.leftEndLabel().caption;
    const std::string& rightEnd = chart.rightEndLabel().caption;
    printAt(L - halfWidth(leftEnd), B + 200, leftEnd);
    printAt(L + W - halfWidth(rightEnd), B + 200, rightEnd);

    // Ticks and dose labels at the inner cycle boundaries; parked ticks stand at a
    // left of zero or less. A blanked label still has its tick.
    for (int i = 0; i < LogProbitChart::kDoseLabels; ++i) {
        const ChartLabel& tick = chart.tickLabel(i);
        if (tick.left <= 0)
            continue;
        const double x = (tick.left + 15) * S + L;
        d.line(x, B, x, B - at.tickLength);
        const std::string& caption = chart.doseLabel(i).caption;
        printAt(x - halfWidth(caption), B + 200, caption);
    }
    for (int i = 0; i < LogProbitChart::kPercentLabels; ++i) {
        const ChartLabel& label = chart.percentLabel(i);
        printAt(L - at.percentLeft, label.top * S + T - 75, label.caption);
    }
    for (int j = 0; j < LogProbitChart::kProbitLabels; ++j) {
        const ChartLabel& label = chart.probitLabel(j);
        printAt(L + W + 150, label.top * S + T, label.caption);
    }
    printAt((at.surfaceWidth - width(doseAxisTitle)) / 2, B + at.titleBelow, doseAxisTitle);
}

namespace {

// The plot in the picture: the scale S, left edge L, top T, width W, height H and
// bottom B.
struct PictureBox {
    double S, L, T, W, H, B;
};

PictureBox PictureBoxOf(const ChartLayout& layout) {
    const double S = kPictureScale;
    const double L = kPictureLeft;
    const double T = kPictureTop;
    const double W = layout.Picture1.width * S;
    const double H = layout.Picture1.height * S;
    const double B = T + H;
    return {S, L, T, W, H, B};
}

// The line, through the points of the range the chart shows.
void DrawChartLine(Drawing& d, const LogProbitChart& chart, const PictureBox& at) {
    const auto points = PointsOf(chart.adjustRange() ? chart.Grid4() : chart.Grid3());
    for (std::size_t r = 1; r < points.size(); ++r) {
        d.line(at.S * points[r - 1][0] + at.L, at.B - at.S * points[r - 1][1],
               at.S * points[r][0] + at.L, at.B - at.S * points[r][1]);
    }
}

void DrawObservedPoints(Drawing& d, const LogProbitChart& chart, const PictureBox& at) {
    d.setPenWidth(3);
    for (const auto& point : PointsOf(chart.Grid5()))
        d.point(point[0] * at.S + at.L, at.B - at.S * point[1]);
    d.setPenWidth(1);
}

// The two axis titles, each centred in its picture scaled by S and turned to
// read upward.
void DrawAxisTitles(Drawing& d, const ChartLayout& layout, const PictureBox& at) {
    const double S = at.S;
    TextFont titleFont{"", 8.5 * S, true};
    d.setFont(titleFont);
    auto title = [&](double left, const LayoutRect& picture, const char* text) {
        const double top = at.T + (at.H - picture.height * S) / 2;
        d.text(left + picture.width * S / 2, top + picture.height * S / 2, text,
               HorizontalAnchor::Centre, VerticalAnchor::Middle, kBlack, 90);
    };
    title(at.L - 1000, layout.Pictprcent, kPercentAxisTitle);
    title(at.L + at.W + 650, layout.Pictprob, kProbitAxisTitle);
}

}  // namespace

Drawing ComposeChartPicture(const LogProbitChart& chart, const ChartLayout& layout,
                            const std::string& doseAxisTitle, SharedRegisters& shared,
                            const TextMeasurer& measurer) {
    const PictureBox at = PictureBoxOf(layout);
    const double S = at.S;

    Drawing d(layout.PictureFig.width * S, layout.PictureFig.height * S);
    d.clear();
    d.setPenWidth(1);
    d.setFont(TextFont{"", kPictureFontPoints});

    DrawPictureFrame(d, at.L, at.T, at.L + at.W, at.B);
    DrawChartLabels(d, chart, {S, at.L, at.T, at.W, at.B, 100, 450, 700, d.width()}, doseAxisTitle,
                    [&measurer](const std::string& text) { return measurer.textWidth(text); });
    DrawChartLine(d, chart, at);
    DrawChartMarks(d, chart, shared, {at.S, at.L, at.B, layout.Picture1.height, 350});
    if (chart.showPoints())
        DrawObservedPoints(d, chart, at);
    DrawAxisTitles(d, layout, at);
    return d;
}

void DrawChartMarks(Drawing& d, const LogProbitChart& chart, SharedRegisters& shared,
                    const MarkPlaces& at) {
    const FitResult& fit = shared.fit;
    for (const std::string& mark : chart.marks()) {
        const double probit = NumberOf(shared.probit.PercentToProbit(mark));
        const double logDose = LineLogDose(probit, fit);
        const double x = (logDose - chart.LogOrigin() + chart.CycleShift()) * chart.CycleWidth();
        const double xm = x * at.scale + at.left;
        const double ym = at.bottom - at.scale * ChartY(probit, at.plotHeight);
        d.line(at.left, ym, xm, ym);
        d.line(xm, ym, xm, at.bottom);
        if (chart.showEstimates()) {
            shared.WorkValue = PowerOfTen(logDose) / fit.DoseScale;
            FormatEstimate(shared);
            d.setCurrentPosition(xm + 20, at.bottom - at.doseRise);
            d.print(shared.WorkText);
        }
    }
}

}  // namespace morvane
