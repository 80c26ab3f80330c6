#include "relative/MultiLineChart.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "core/DoseEstimates.h"
#include "core/Fault.h"
#include "core/NumberText.h"
#include "results/Chart.h"

namespace morvane {
namespace {

constexpr double kSampleWidth = 700;
constexpr double kSampleHeight = 240;
constexpr Color kRuling{222, 226, 234};
constexpr Color kFrame{60, 66, 80};

// The width of a text in twips, a little generous so that neighbours keep a gap.
double TextWidth(const std::string& text, double points) {
    return static_cast<double>(text.size()) * points * kTwipsPerPoint * 0.62 + 30;
}
double TextHeight(double points) {
    return points * kTwipsPerPoint * 1.25;
}

struct Box {
    double left, top, right, bottom;
    bool meets(const Box& o) const {
        return left < o.right && o.left < right && top < o.bottom && o.top < bottom;
    }
};

// Places texts so that none covers another: each goes in the first row, counted from
// the wanted place in the given direction, where it meets no text placed before.
// Texts are filed by strips of the x axis, so that a place is tried only against its
// neighbours and hundreds of lines stay quick.
class TextRows {
  public:
    // x is the text's left edge, y the top of row 0; step is +1 (rows downward) or -1.
    Box place(double x, double y, double width, double height, int step) {
        const long first = strip(x), last = strip(x + width);
        // Texts wanted at one place go in rows one after the other: the search starts
        // at the row where the last of them went, so that many lines at one place
        // cost no more than a few.
        const Hint hint{first, static_cast<long>(std::lround(y)), step};
        int row = 0;
        if (const auto found = hints_.find(hint); found != hints_.end())
            row = found->second;
        for (;; ++row) {
            const double top = y + step * row * height;
            const Box box{x, top, x + width, top + height};
            bool free = true;
            for (long s = first; s <= last && free; ++s) {
                const auto found = strips_.find(s);
                if (found == strips_.end())
                    continue;
                for (const std::size_t i : found->second) {
                    if (box.meets(placed_[i])) {
                        free = false;
                        break;
                    }
                }
            }
            if (free || row > 2000) {
                placed_.push_back(box);
                for (long s = first; s <= last; ++s)
                    strips_[s].push_back(placed_.size() - 1);
                hints_[hint] = row;
                return box;
            }
        }
    }

  private:
    static long strip(double x) { return static_cast<long>(std::floor(x / 400)); }
    struct Hint {
        long strip, y;
        int step;
        bool operator<(const Hint& o) const {
            return std::tie(strip, y, step) < std::tie(o.strip, o.y, o.step);
        }
    };
    std::vector<Box> placed_;
    std::map<long, std::vector<std::size_t>> strips_;
    std::map<Hint, int> hints_;
};

// Cuts a segment to the box from 0, 0 to width, height (Liang and Barsky). False
// when nothing of it lies inside.
bool ClipToBox(double& x1, double& y1, double& x2, double& y2, double width, double height) {
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2))
        return false;
    const double dx = x2 - x1, dy = y2 - y1;
    double t0 = 0, t1 = 1;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x1, width - x1, y1, height - y1};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0)
                return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
    }
    if (t0 > t1)
        return false;
    const double ax = x1 + t0 * dx, ay = y1 + t0 * dy;
    x2 = x1 + t1 * dx;
    y2 = y1 + t1 * dy;
    x1 = ax;
    y1 = ay;
    return true;
}

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
    plotWidth_ = std::max(width, 600.0);
    plotHeight_ = std::max(height, 600.0);
    drawing_.setSize(plotWidth_, plotHeight_);
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
    // Percent labels at 10 to 90, probit labels at 3 to 7, centred on their heights.
    percentLabels_.clear();
    for (int i = 1; i <= 9; ++i) {
        const std::string caption = PlainText(10.0 * i);
        const double y = plotHeight_ - ChartY(probitOf(caption), plotHeight_);
        percentLabels_.push_back(AxisLabel{caption, 0, y});
    }
    // The ends of the paper stand for 1% and 99%.
    percentLabels_.push_back(AxisLabel{"1%", 0, plotHeight_});
    percentLabels_.push_back(AxisLabel{"99%", 0, 0});
    probitLabels_.clear();
    for (int j = 0; j <= 8; ++j) {
        const double p = 3 + 0.5 * j;
        probitLabels_.push_back(
            AxisLabel{PlainText(p), plotWidth_, plotHeight_ - ChartY(p, plotHeight_)});
    }

    // The low end of the range is brought into the first cycle.
    double v = rtvout_.ChartLogMin;
    cycleShift_ = 0;
    if (v < 0) {
        while (!(v > 0)) {
            v += 1;
            cycleShift_ += 1;
            if (cycleShift_ > 400)
                throw Fault("the doses of the chart are out of range");
        }
    } else if (doseScale_ == 1 && v > 1) {
        while (!(v < 1)) {
            v -= 1;
            cycleShift_ -= 1;
            if (cycleShift_ < -400)
                throw Fault("the doses of the chart are out of range");
        }
    }
    double o = 0;
    double d = 0;
    if (doseScale_ > 1) {
        o = 1.0 / doseScale_;
        d = o / PowerOfTen(cycleShift_);
    } else {
        o = ChartFloor(v) - cycleShift_;
        d = PowerOfTen(o);
    }
    label10_ = PlainText(d);
    std::array<std::string, 14> label8;
    for (int i = 0; i < 14; ++i) {
        shared_.WorkValue = PowerOfTen(i + 1) * d;
        FormatFourLevels(shared_);
        label8[static_cast<std::size_t>(i)] = shared_.WorkText;
    }

    int n = 0;
    if (autoCycles_) {
        const auto rounded = RoundHalfEven32(rtvout_.ChartLogMax - o + cycleShift_);
        if (!rounded)
            throw Fault("the range of the chart is out of range");
        n = *rounded;
        if (n < kMinCycles)
            n = kMinCycles;
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
    cycles_ = n;
    cycleWidth_ = plotWidth_ / n;

    // From ten cycles on every other inner label is blank.
    if (n > 9) {
        for (int i = 0; i <= n - 2; i += 2)
            label8[static_cast<std::size_t>(i)].clear();
    }
    shared_.WorkValue = PowerOfTen(n) * d;
    FormatFourLevels(shared_);
    label11_ = shared_.WorkText;

    doseLabels_.clear();
    doseLabels_.push_back(AxisLabel{label10_, 0, plotHeight_});
    for (int i = 0; i <= n - 2 && i < 14; ++i) {
        if (!label8[static_cast<std::size_t>(i)].empty())
            doseLabels_.push_back(
                AxisLabel{label8[static_cast<std::size_t>(i)], (i + 1) * cycleWidth_, plotHeight_});
    }
    doseLabels_.push_back(AxisLabel{label11_, plotWidth_, plotHeight_});
}

void MultiLineChart::ComputeLineCoordinates() {
    const TextTable& grid2 = rtvout_.Grid2;
    logOrigin_ = doseScale_ == 1 ? Log10(NumberOf(label10_)) + cycleShift_ : 0;
    grid4_.setRows(std::max(1, grid2.rows()));
    const int columns[3] = {grid2col::CommonFrom, grid2col::CommonTo, grid2col::CommonSorted};
    for (int c = 0; c < 3; ++c) {
        const double y = ChartY(NumberOrZero(grid2.text(0, columns[c])), plotHeight_);
        grid4_.setText(0, c, PlainText(y));
    }
    for (int row = 1; row < grid2.rows(); ++row) {
        for (int c = 0; c < 3; ++c) {
            const double x =
                (NumberOrZero(grid2.text(row, columns[c])) - logOrigin_ + cycleShift_) *
                cycleWidth_;
            grid4_.setText(row, c, PlainText(x));
        }
    }
}

void MultiLineChart::DrawLines() {
    const double h = plotHeight_;
    drawing_.setSize(plotWidth_, plotHeight_);
    drawing_.clear();
    legend_.clear();
    const double yF = NumberOrZero(grid4_.text(0, 0));
    const double yT = NumberOrZero(grid4_.text(0, 1));
    const double yS = NumberOrZero(grid4_.text(0, 2));
    const int count = std::min(lines(), grid4_.rows() - 1);

    // The texts go after the lines, so that no line crosses a number.
    struct PlacedText {
        double x, y;
        std::string text;
        Color color;
    };
    std::vector<PlacedText> texts;
    TextRows rows;
    const double numberHeight = TextHeight(kNumberPoints);
    // The rows of the numbers at "From" run down into the band under the lines'
    // starts, those at "To" up into the band over their ends; a falling line turns
    // the bands over.
    const bool rising = yT >= yF;
    const double lowY = h - (rising ? yF : yT);
    const double highY = h - (rising ? yT : yF);

    for (int i = 1; i <= count; ++i) {
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
        drawing_.line(xF, h - yF, xT, h - yT, color);

        if (rtvout_.Check1.checked) {
            drawing_.setPenStyle(PenStyle::Solid);
            drawing_.line(0, h - yS, xS, h - yS, kBlack);
            drawing_.setPenStyle(style);
            drawing_.line(xS, h - yS, xS, h, color);
        }

        const std::string name = rtvout_.Grid1.text(i, 1);
        legend_.push_back(LegendRow{std::to_string(i) + "- " + name, color, style});
    }

    TextFont font;
    font.points = kNumberPoints;
    drawing_.setFont(font);
    if (rtvout_.Check1.checked && rtvout_.Check2.checked) {
        // The estimates stand by their drop lines, rows going up from the axis.
        for (int i = 1; i <= count; ++i) {
            const double xS = NumberOrZero(grid4_.text(i, 2));
            const std::string& text = rtvout_.Grid1.text(i, 2);
            const Box b = rows.place(xS + 30, h - numberHeight - 30, TextWidth(text, kNumberPoints),
                                     numberHeight, -1);
            texts.push_back(PlacedText{b.left, b.top, text, penColor(i)});
        }
    }
    if (lineNumbers_) {
        for (int i = 1; i <= count; ++i) {
            const std::string number = std::to_string(i);
            const double w = TextWidth(number, kNumberPoints);
            const double xLow = NumberOrZero(grid4_.text(i, rising ? 0 : 1));
            const double xHigh = NumberOrZero(grid4_.text(i, rising ? 1 : 0));
            const Box low = rows.place(xLow - w / 2, lowY + 40, w, numberHeight, +1);
            texts.push_back(PlacedText{low.left, low.top, number, penColor(i)});
            const Box high =
                rows.place(xHigh - w / 2, highY - numberHeight - 40, w, numberHeight, -1);
            texts.push_back(PlacedText{high.left, high.top, number, penColor(i)});
        }
    }
    drawing_.setPenStyle(PenStyle::Solid);
    for (const PlacedText& t : texts) {
        // Light lines are hard to read as text: numbers take a darker shade.
        Color c = t.color;
        if (c.red + c.green + c.blue > 600)
            c = Color{static_cast<std::uint8_t>(c.red * 0.6),
                      static_cast<std::uint8_t>(c.green * 0.6),
                      static_cast<std::uint8_t>(c.blue * 0.6)};
        drawing_.text(t.x, t.y, t.text, HorizontalAnchor::Left, VerticalAnchor::Top, c);
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
    const double left = kFigureLeft;
    const double top = kFigureTop;
    Drawing fig(width, height);
    fig.fillBox(0, 0, width, height, Color{248, 249, 251});
    fig.fillBox(left, top, left + plotWidth_, top + plotHeight_, kWhite);

    // The ruling of the paper at the percents and the cycles.
    fig.setPenWidth(1);
    for (const AxisLabel& label : percentLabels_)
        fig.line(left, top + label.y, left + plotWidth_, top + label.y, kRuling);
    for (int i = 1; i < cycles_; ++i)
        fig.line(left + i * cycleWidth_, top, left + i * cycleWidth_, top + plotHeight_, kRuling);

    // The plot, clipped to its area as the surface clips it: a line beyond the
    // cycles ends at the frame, a text outside the paper is left out.
    for (const DrawOp& op : drawing_.ops()) {
        if (const auto* line = std::get_if<draw::Line>(&op)) {
            double x1 = line->x1, y1 = line->y1, x2 = line->x2, y2 = line->y2;
            if (!ClipToBox(x1, y1, x2, y2, plotWidth_, plotHeight_))
                continue;
            fig.setPenWidth(line->width);
            fig.setPenStyle(line->style);
            fig.line(left + x1, top + y1, left + x2, top + y2, line->color);
        } else if (const auto* text = std::get_if<draw::Text>(&op)) {
            if (text->x < 0 || text->y < 0 || text->x > plotWidth_ || text->y > plotHeight_)
                continue;
            fig.setFont(text->font);
            fig.text(left + text->x, top + text->y, text->text, text->horizontal, text->vertical,
                     text->color);
        }
    }
    fig.setPenWidth(1);
    fig.setPenStyle(PenStyle::Solid);
    fig.box(left, top, left + plotWidth_, top + plotHeight_, kFrame);
    for (int i = 1; i < cycles_; ++i)
        fig.line(left + i * cycleWidth_, top + plotHeight_ - 70, left + i * cycleWidth_,
                 top + plotHeight_, kFrame);

    TextFont font;
    font.points = kLabelPoints;
    fig.setFont(font);
    // Dose labels under the plot; a label that would touch its left neighbour is left
    // out, so that crowded cycles stay readable.
    double lastRight = -1e9;
    for (std::size_t i = 0; i < doseLabels_.size(); ++i) {
        const AxisLabel& label = doseLabels_[i];
        const double w = TextWidth(label.caption, kLabelPoints);
        const bool last = i + 1 == doseLabels_.size();
        if (!last && left + label.x - w / 2 < lastRight)
            continue;
        fig.text(left + label.x, top + label.y + 60, label.caption, HorizontalAnchor::Centre,
                 VerticalAnchor::Top);
        lastRight = left + label.x + w / 2;
    }
    for (const AxisLabel& label : percentLabels_)
        fig.text(left - 60, top + label.y, label.caption, HorizontalAnchor::Right,
                 VerticalAnchor::Middle);
    for (const AxisLabel& label : probitLabels_)
        fig.text(left + label.x + 60, top + label.y, label.caption, HorizontalAnchor::Left,
                 VerticalAnchor::Middle);

    TextFont title = font;
    title.bold = true;
    title.points = 8.5;
    fig.setFont(title);
    fig.text(150, top + plotHeight_ / 2, "Response percentage", HorizontalAnchor::Centre,
             VerticalAnchor::Middle, kBlack, 90);
    fig.text(width - 150, top + plotHeight_ / 2, "Probit", HorizontalAnchor::Centre,
             VerticalAnchor::Middle, kBlack, 90);
    if (!doseTitle.empty())
        fig.text(left + plotWidth_ / 2, height - 300, doseTitle, HorizontalAnchor::Centre,
                 VerticalAnchor::Middle);
    return fig;
}

}  // namespace morvane
