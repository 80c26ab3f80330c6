#include "relative/MultiLineChart.h"

#include <algorithm>
#include <cmath>

#include "core/DoseEstimates.h"
#include "core/Fault.h"
#include "core/NumberText.h"
#include "results/Chart.h"
#include "results/ChartFigure.h"

namespace morvane {
namespace {

constexpr double kSampleWidth = 700;
constexpr double kSampleHeight = 240;

// A placer that never runs out of rows: the plot's own drawing keeps every text, the
// figure leaves out what falls beyond the paper.
constexpr double kNoLimit = 1e12;

}  // namespace

Color ColorOfRgb(std::uint32_t rgb) {
    return Color{static_cast<std::uint8_t>((rgb >> 16) & 0xFF),
                 static_cast<std::uint8_t>((rgb >> 8) & 0xFF),
                 static_cast<std::uint8_t>(rgb & 0xFF)};
}

std::uint32_t RgbOfColor(Color color) {
    return (static_cast<std::uint32_t>(color.red) << 16) |
           (static_cast<std::uint32_t>(color.green) << 8) | color.blue;
}

PenStyle PenStyleOfNumber(int style) {
    switch (style) {
        case 1:
            return PenStyle::Dash;
        case 2:
            return PenStyle::Dot;
        case 3:
            return PenStyle::DashDot;
        case 4:
            return PenStyle::DashDotDot;
        default:
            return PenStyle::Solid;
    }
}

MultiLineChart::MultiLineChart(Rtvout& rtvout, SharedRegisters& shared)
    : rtvout_(rtvout),
      shared_(shared),
      doseScale_(shared.fit.DoseScale < 1 ? 1 : shared.fit.DoseScale) {}

void MultiLineChart::setPlotSize(double width, double height) {
    scale_.plotWidth = std::max(width, 600.0);
    scale_.plotHeight = std::max(height, 600.0);
    drawing_.setSize(scale_.plotWidth, scale_.plotHeight);
}

double MultiLineChart::probitOf(const std::string& percentText) {
    return NumberOf(shared_.probit.PercentToProbit(percentText));
}

int MultiLineChart::lines() const {
    return std::max(0, rtvout_.Grid1.rows() - 1);
}

Color MultiLineChart::penColor(int line) const {
    if (allBlack_ || line < 0 || line >= static_cast<int>(rtvout_.LineColors.size()))
        return kBlack;
    return ColorOfRgb(rtvout_.LineColors[static_cast<std::size_t>(line)]);
}

void MultiLineChart::Redraw(UserPort& port) {
    SetRelativeXAxis(port);
    ComputeLineCoordinates();
    DrawLines();
}

void MultiLineChart::SetRelativeXAxis(UserPort& port) {
    PlaceYLabels();
    const double v = ShiftRangeIntoFirstCycle();
    double o = 0;
    double d = 0;
    if (doseScale_ > 1) {
        o = 1.0 / doseScale_;
        d = o / PowerOfTen(scale_.cycleShift);
    } else {
        o = ChartFloor(v) - scale_.cycleShift;
        d = PowerOfTen(o);
    }
    label10_ = PlainText(d);
    std::array<std::string, kInnerDoseLabels> label8;
    for (int i = 0; i < kInnerDoseLabels; ++i) {
        shared_.WorkValue = PowerOfTen(i + 1) * d;
        FormatFourLevels(shared_);
        label8[static_cast<std::size_t>(i)] = shared_.WorkText;
    }
    ChooseCycles(o, port);
    PlaceDoseLabels(label8, d);
}

// Percent labels at 10 to 90, probit labels at 3 to 7, centred on their heights.
void MultiLineChart::PlaceYLabels() {
    const double h = scale_.plotHeight;
    percentLabels_.clear();
    for (int i = 1; i <= 9; ++i) {
        const std::string caption = PlainText(10.0 * i);
        percentLabels_.push_back(AxisLabel{caption, 0, h - ChartY(probitOf(caption), h)});
    }
    // The ends of the paper stand for 1% and 99%.
    percentLabels_.push_back(AxisLabel{"1%", 0, h});
    percentLabels_.push_back(AxisLabel{"99%", 0, 0});
    probitLabels_.clear();
    for (int j = 0; j <= 8; ++j) {
        const double p = 3 + 0.5 * j;
        probitLabels_.push_back(AxisLabel{PlainText(p), scale_.plotWidth, h - ChartY(p, h)});
    }
}

// The low end of the range is brought into the first cycle: whole decades are added
// to a negative log dose, or taken from one above 1 on a dose scale of 1.
double MultiLineChart::ShiftRangeIntoFirstCycle() {
    double v = rtvout_.ChartLogMin;
    scale_.cycleShift = 0;
    if (v < 0) {
        while (!(v > 0)) {
            v += 1;
            scale_.cycleShift += 1;
            if (scale_.cycleShift > 400)
                throw Fault("the doses of the chart are out of range");
        }
    } else if (doseScale_ == 1 && v > 1) {
        while (!(v < 1)) {
            v -= 1;
            scale_.cycleShift -= 1;
            if (scale_.cycleShift < -400)
                throw Fault("the doses of the chart are out of range");
        }
    }
    return v;
}

// The number of cycles: from the range of the data, warned about once when it is
// more than the paper holds, or the user's choice.
void MultiLineChart::ChooseCycles(double o, UserPort& port) {
    int n = 0;
    if (autoCycles_) {
        const auto rounded = RoundHalfEven32(rtvout_.ChartLogMax - o + scale_.cycleShift);
        if (!rounded)
            throw Fault("the range of the chart is out of range");
        n = std::max(*rounded, kMinCycles);
        if (n > kMaxCycles) {
            if (!wideRangeWarned_) {
                port.tell(
                    "You have too wide scale range, it couldn't be drawn in one figure.\n"
                    "So your figure may not appear completely.");
                wideRangeWarned_ = true;
            }
            n = kMaxCycles;
        }
        cyclesText_ = std::to_string(n);
    } else {
        const double chosen = NumberOf(cyclesText_);
        if (!(chosen >= kMinCycles && chosen <= kMaxCycles))
            throw Fault("the number of cycles " + cyclesText_ + " is out of range");
        n = static_cast<int>(chosen);
    }
    scale_.cycles = n;
    scale_.cycleWidth = scale_.plotWidth / n;
}

// The dose labels at the inner cycle boundaries, every other one blank from ten
// cycles on, and at the two ends.
void MultiLineChart::PlaceDoseLabels(std::array<std::string, kInnerDoseLabels>& label8, double d) {
    const int n = scale_.cycles;
    if (n > 9) {
        for (int i = 0; i <= n - 2; i += 2)
            label8[static_cast<std::size_t>(i)].clear();
    }
    shared_.WorkValue = PowerOfTen(n) * d;
    FormatFourLevels(shared_);
    label11_ = shared_.WorkText;

    const double h = scale_.plotHeight;
    doseLabels_.clear();
    doseLabels_.push_back(AxisLabel{label10_, 0, h});
    for (int i = 0; i <= n - 2 && i < kInnerDoseLabels; ++i) {
        const std::string& caption = label8[static_cast<std::size_t>(i)];
        if (!caption.empty())
            doseLabels_.push_back(AxisLabel{caption, (i + 1) * scale_.cycleWidth, h});
    }
    doseLabels_.push_back(AxisLabel{label11_, scale_.plotWidth, h});
}

void MultiLineChart::ComputeLineCoordinates() {
    const TextTable& grid2 = rtvout_.Grid2;
    scale_.logOrigin = doseScale_ == 1 ? Log10(NumberOf(label10_)) + scale_.cycleShift : 0;
    grid4_.setRows(std::max(1, grid2.rows()));
    const int columns[3] = {grid2col::CommonFrom, grid2col::CommonTo, grid2col::CommonSorted};
    for (int c = 0; c < 3; ++c) {
        const double y = ChartY(NumberOrZero(grid2.text(0, columns[c])), scale_.plotHeight);
        grid4_.setText(0, c, PlainText(y));
    }
    for (int row = 1; row < grid2.rows(); ++row) {
        for (int c = 0; c < 3; ++c) {
            const double x =
                (NumberOrZero(grid2.text(row, columns[c])) - scale_.logOrigin + scale_.cycleShift) *
                scale_.cycleWidth;
            grid4_.setText(row, c, PlainText(x));
        }
    }
}

void MultiLineChart::DrawLines() {
    drawing_.setSize(scale_.plotWidth, scale_.plotHeight);
    drawing_.clear();
    legend_.clear();
    const Heights heights{NumberOrZero(grid4_.text(0, 0)), NumberOrZero(grid4_.text(0, 1)),
                          NumberOrZero(grid4_.text(0, 2))};
    const int count = std::min(lines(), grid4_.rows() - 1);
    for (int i = 1; i <= count; ++i)
        DrawLine(i, heights);
    // The texts go after the lines, so that no line crosses a number.
    PlaceLineTexts(count, heights);
}

// One line in its pen, its drop line when asked for, and its row of the legend.
void MultiLineChart::DrawLine(int i, const Heights& y) {
    const double h = scale_.plotHeight;
    const double xF = NumberOrZero(grid4_.text(i, 0));
    const double xT = NumberOrZero(grid4_.text(i, 1));
    const double xS = NumberOrZero(grid4_.text(i, 2));
    const int styleNumber = i < static_cast<int>(rtvout_.LineStyles.size())
                                ? rtvout_.LineStyles[static_cast<std::size_t>(i)]
                                : 0;
    const PenStyle style = PenStyleOfNumber(styleNumber);
    const Color color = penColor(i);
    drawing_.setPenWidth(1);
    drawing_.setPenStyle(style);
    drawing_.line(xF, h - y.from, xT, h - y.to, color);
    if (rtvout_.Check1.checked) {
        drawing_.setPenStyle(PenStyle::Solid);
        drawing_.line(0, h - y.sorted, xS, h - y.sorted, kBlack);
        drawing_.setPenStyle(style);
        drawing_.line(xS, h - y.sorted, xS, h, color);
    }
    const std::string name = rtvout_.Grid1.text(i, 1);
    legend_.push_back(LegendRow{std::to_string(i) + "- " + name, color, style});
}

// The estimates by their drop lines, rows going up from the axis, and the numbers at
// the line ends: the rows of the numbers at "From" run down into the band under the
// lines' starts, those at "To" up into the band over their ends; a falling line turns
// the bands over.
void MultiLineChart::PlaceLineTexts(int count, const Heights& y) {
    const double h = scale_.plotHeight;
    struct PlacedText {
        TextRoom box;
        std::string text;
        Color color;
    };
    std::vector<PlacedText> texts;
    TextPlacer rows;
    const double numberHeight = EstimatedTextHeight(kNumberPoints);
    auto place = [&](double x, double top, const std::string& text, int step, Color color) {
        const double w = EstimatedTextWidth(text, kNumberPoints);
        if (const auto box = rows.place(x, top, w, numberHeight, step, -kNoLimit, kNoLimit))
            texts.push_back(PlacedText{*box, text, color});
    };
    if (rtvout_.Check1.checked && rtvout_.Check2.checked) {
        for (int i = 1; i <= count; ++i)
            place(NumberOrZero(grid4_.text(i, 2)) + 30, h - numberHeight - 30,
                  rtvout_.Grid1.text(i, 2), -1, penColor(i));
    }
    if (lineNumbers_) {
        const bool rising = y.to >= y.from;
        const double lowY = h - (rising ? y.from : y.to);
        const double highY = h - (rising ? y.to : y.from);
        for (int i = 1; i <= count; ++i) {
            const std::string number = std::to_string(i);
            const double half = EstimatedTextWidth(number, kNumberPoints) / 2;
            place(NumberOrZero(grid4_.text(i, rising ? 0 : 1)) - half, lowY + 40, number, +1,
                  penColor(i));
            place(NumberOrZero(grid4_.text(i, rising ? 1 : 0)) - half, highY - numberHeight - 40,
                  number, -1, penColor(i));
        }
    }
    drawing_.setFont(TextFont{"", kNumberPoints});
    drawing_.setPenStyle(PenStyle::Solid);
    for (const PlacedText& t : texts) {
        // Light lines are hard to read as text: numbers take a darker shade.
        Color c = t.color;
        if (c.red + c.green + c.blue > 600)
            c = Color{static_cast<std::uint8_t>(c.red * 0.6),
                      static_cast<std::uint8_t>(c.green * 0.6),
                      static_cast<std::uint8_t>(c.blue * 0.6)};
        drawing_.text(t.box.left, t.box.top, t.text, HorizontalAnchor::Left, VerticalAnchor::Top,
                      c);
    }
}

Drawing MultiLineChart::LegendSample(int row) const {
    Drawing sample(kSampleWidth, kSampleHeight);
    if (row < 0 || row >= static_cast<int>(legend_.size()))
        return sample;
    sample.setPenStyle(legend_[static_cast<std::size_t>(row)].style);
    sample.line(0, 120, kSampleWidth, 120, legend_[static_cast<std::size_t>(row)].color);
    return sample;
}

void MultiLineChart::clickAutoCycles(bool checked, UserPort& port) {
    autoCycles_ = checked;
    if (checked)
        Redraw(port);
}

void MultiLineChart::clickCycles(const std::string& text, UserPort& port) {
    if (autoCycles_)
        return;
    cyclesText_ = text;
    Redraw(port);
}

void MultiLineChart::clickLineNumbers(bool checked, UserPort& port) {
    lineNumbers_ = checked;
    Redraw(port);
}

void MultiLineChart::clickAllBlack(bool checked, UserPort& port) {
    allBlack_ = checked;
    Redraw(port);
}

void MultiLineChart::clickDropLines(bool checked) {
    rtvout_.Check1.checked = checked;
    rtvout_.Check2.enabled = checked;
    DrawLines();
}

void MultiLineChart::clickDropValues(bool checked) {
    rtvout_.Check2.checked = checked;
    DrawLines();
}

void MultiLineChart::ApplyCustomLine(int line, std::uint32_t color, int style, UserPort& port) {
    if (line < 1 || line >= static_cast<int>(rtvout_.LineColors.size()) ||
        line >= static_cast<int>(rtvout_.LineStyles.size()))
        return;
    rtvout_.LineColors[static_cast<std::size_t>(line)] = color;
    rtvout_.LineStyles[static_cast<std::size_t>(line)] = static_cast<std::int16_t>(style);
    Redraw(port);
}

Drawing MultiLineChart::figure(double width, double height, const std::string& doseTitle,
                               UserPort& port) {
    setPlotSize(width - kFigureLeft - kFigureRight, height - kFigureTop - kFigureBottom);
    Redraw(port);
    Drawing fig(width, height);
    fig.fillBox(0, 0, width, height, kFigureBack);
    fig.fillBox(kFigureLeft, kFigureTop, kFigureLeft + scale_.plotWidth,
                kFigureTop + scale_.plotHeight, kWhite);
    FigureRuling(fig);
    FigurePlotLines(fig);
    FigureFrame(fig);
    TextPlacer placer;
    fig.setFont(TextFont{"", kLabelPoints});
    FigureLabels(fig, placer);
    FigurePlotTexts(fig, placer);
    FigureTitles(fig, doseTitle);
    return fig;
}

// The ruling of the paper: the percents, the cycles and, fainter, the doses 2 to 9
// times a power of ten between them.
void MultiLineChart::FigureRuling(Drawing& fig) const {
    const double left = kFigureLeft, top = kFigureTop;
    const double w = scale_.plotWidth, h = scale_.plotHeight;
    fig.setPenWidth(1);
    for (const double x : MinorTickPositions(scale_.cycles, scale_.cycleWidth))
        fig.line(left + x, top, left + x, top + h, kFigureMinorRuling);
    for (const AxisLabel& label : percentLabels_)
        fig.line(left, top + label.y, left + w, top + label.y, kFigureRuling);
    for (int i = 1; i < scale_.cycles; ++i)
        fig.line(left + i * scale_.cycleWidth, top, left + i * scale_.cycleWidth, top + h,
                 kFigureRuling);
}

// The lines of the plot, clipped to its area as the surface clips them: a line beyond
// the cycles ends at the frame.
void MultiLineChart::FigurePlotLines(Drawing& fig) const {
    for (const DrawOp& op : drawing_.ops()) {
        const auto* line = std::get_if<draw::Line>(&op);
        if (!line)
            continue;
        double x1 = line->x1, y1 = line->y1, x2 = line->x2, y2 = line->y2;
        if (!ClipToBox(x1, y1, x2, y2, scale_.plotWidth, scale_.plotHeight))
            continue;
        fig.setPenWidth(line->width);
        fig.setPenStyle(line->style);
        fig.line(kFigureLeft + x1, kFigureTop + y1, kFigureLeft + x2, kFigureTop + y2, line->color);
    }
    fig.setPenWidth(1);
    fig.setPenStyle(PenStyle::Solid);
}

// The frame, the ticks at the cycles and the minor ticks between them.
void MultiLineChart::FigureFrame(Drawing& fig) const {
    const double left = kFigureLeft, bottom = kFigureTop + scale_.plotHeight;
    fig.box(left, kFigureTop, left + scale_.plotWidth, bottom, kFigureFrame);
    for (int i = 1; i < scale_.cycles; ++i)
        fig.line(left + i * scale_.cycleWidth, bottom - 70, left + i * scale_.cycleWidth, bottom,
                 kFigureFrame);
    for (const double x : MinorTickPositions(scale_.cycles, scale_.cycleWidth))
        fig.line(left + x, bottom - kMinorTickHeight, left + x, bottom, kFigureFrame);
}

// Labels of the three axes. The dose labels at the two ends go first; an inner one
// that would touch a label placed before it is left out, so that crowded cycles stay
// readable, and so is a probit label with no room; a percent label (the 1% by the
// dose axis) may first step up a row.
void MultiLineChart::FigureLabels(Drawing& fig, TextPlacer& placer) const {
    const double left = kFigureLeft, top = kFigureTop;
    // A label may step up by one row of its height when `up` is set.
    auto label = [&](double x, double y, const std::string& caption, HorizontalAnchor h,
                     VerticalAnchor v, bool up = false) {
        const TextRoom box = BoxOfText(draw::Text{x, y, caption, fig.font(), kBlack, h, v});
        for (const double dy : {0.0, up ? box.top - box.bottom : 0.0}) {
            const TextRoom moved{box.left, box.top + dy, box.right, box.bottom + dy};
            if (caption.empty() || !moved.inside(0, 0, fig.width(), fig.height()) ||
                !placer.free(moved))
                continue;
            placer.reserve(moved);
            fig.text(x, y + dy, caption, h, v);
            return;
        }
    };
    auto dose = [&](const AxisLabel& l) {
        label(left + l.x, top + l.y + 60, l.caption, HorizontalAnchor::Centre, VerticalAnchor::Top);
    };
    if (!doseLabels_.empty()) {
        dose(doseLabels_.front());
        dose(doseLabels_.back());
    }
    for (const AxisLabel& l : percentLabels_)
        label(left - 60, top + l.y, l.caption, HorizontalAnchor::Right, VerticalAnchor::Middle,
              true);
    for (const AxisLabel& l : probitLabels_)
        label(left + l.x + 60, top + l.y, l.caption, HorizontalAnchor::Left,
              VerticalAnchor::Middle);
    for (std::size_t i = 1; i + 1 < doseLabels_.size(); ++i)
        dose(doseLabels_[i]);
}

// The numbers and estimates of the plot: a text beyond the paper is left out, one
// that reaches over its right edge moves inside it.
void MultiLineChart::FigurePlotTexts(Drawing& fig, TextPlacer& placer) const {
    for (const DrawOp& op : drawing_.ops()) {
        const auto* text = std::get_if<draw::Text>(&op);
        if (!text)
            continue;
        TextRoom box = BoxOfText(*text);
        const double overRight = box.right - scale_.plotWidth;
        if (overRight > 0 && box.left - overRight >= 0) {
            box.left -= overRight;
            box.right -= overRight;
        }
        if (!box.inside(0, 0, scale_.plotWidth, scale_.plotHeight))
            continue;
        const TextRoom onFigure{box.left + kFigureLeft, box.top + kFigureTop,
                                box.right + kFigureLeft, box.bottom + kFigureTop};
        if (!placer.free(onFigure))
            continue;
        placer.reserve(onFigure);
        fig.setFont(text->font);
        fig.text(onFigure.left, onFigure.top, text->text, HorizontalAnchor::Left,
                 VerticalAnchor::Top, text->color);
    }
}

void MultiLineChart::FigureTitles(Drawing& fig, const std::string& doseTitle) const {
    const double middle = kFigureTop + scale_.plotHeight / 2;
    fig.setFont(TextFont{"", kFigureTitlePoints, true});
    fig.text(150, middle, "Response percentage", HorizontalAnchor::Centre, VerticalAnchor::Middle,
             kBlack, 90);
    fig.text(fig.width() - 150, middle, "Probit", HorizontalAnchor::Centre, VerticalAnchor::Middle,
             kBlack, 90);
    if (!doseTitle.empty())
        fig.text(kFigureLeft + scale_.plotWidth / 2, fig.height() - 300, doseTitle,
                 HorizontalAnchor::Centre, VerticalAnchor::Middle);
}

}  // namespace morvane
