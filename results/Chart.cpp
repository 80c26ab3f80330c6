#include "results/Chart.h"

#include <cmath>
#include <stdexcept>
#include <string>

#include "core/DoseEstimates.h"
#include "core/Fault.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

// The probit scale of the paper: 2.67 at the bottom, 2.67 + 4.66 = 7.33 at the top.
constexpr double kBottomProbit = 2.67;
constexpr double kProbitSpan = 4.66;

// The design captions of the end labels of the percent axis.
constexpr const char* kFirstPercentCaption = "1%";
constexpr const char* kLastPercentCaption = "99%";

// A label parked out of sight to the left of its strip.
constexpr double kParkedTickLeft = -30;
constexpr double kParkedDoseLeft = -900;

constexpr const char* kOutOfScale = "This value is out of scale";

}  // namespace

double ChartY(double probit, double plotHeight) {
    return ((probit - kBottomProbit) / kProbitSpan) * plotHeight;
}

double LineLogDose(double probit, const FitResult& fit) {
    return ((probit - fit.MeanProbit) + fit.MeanLogDose * fit.Slope) / fit.Slope;
}

int AutoCycles(double slope) {
    const double b = std::fabs(slope);
    if (b > 0.95)
        return 3;
    if (b > 0.5)
        return 5;
    if (b > 0.3)
        return 7;
    if (b > 0.2)
        return 9;
    if (b > 0.15)
        return 11;
    return 15;
}

double ChartFloor(double value) {
    const auto rounded = RoundHalfEven32(value);
    if (!rounded)
        throw Fault("a log dose of the chart is out of range");
    double whole = *rounded;
    if (whole > value)
        whole -= 1;
    return whole;
}

LogProbitChart::LogProbitChart(const TextTable& grid1, SharedRegisters& shared)
    : grid1_(grid1), shared_(shared) {
    for (auto& label : label7_) {
        label = ChartLabel{"l", kParkedTickLeft, 0, kTickWidth, kTickHeight};
    }
    for (auto& label : label8_) {
        label = ChartLabel{"", kParkedDoseLeft, kDoseLabelTop, kDoseLabelWidth, kDoseLabelHeight};
    }
    label10_ = ChartLabel{"", 0, kDoseLabelTop, kDoseLabelWidth, kDoseLabelHeight};
    label11_ = label10_;
    for (auto& label : label12_) {
        label = ChartLabel{"", 0, 0, kPercentLabelWidth, kPercentLabelHeight};
    }
    label12_.front().caption = kFirstPercentCaption;
    label12_.back().caption = kLastPercentCaption;
    for (auto& label : label13_) {
        label = ChartLabel{"", 0, 0, kProbitLabelWidth, kProbitLabelHeight};
    }
}

void LogProbitChart::setPlotSize(double width, double height) {
    nextPlotWidth_ = width;
    nextPlotHeight_ = height;
    drawing_.setSize(width, height);
}

double LogProbitChart::probitOf(const std::string& percentText) {
    return NumberOf(shared_.probit.PercentToProbit(percentText));
}

double LogProbitChart::xOfLogDose(double logDose) const {
    return (logDose - scale_.logOrigin + scale_.cycleShift) * scale_.cycleWidth;
}

void LogProbitChart::SetXAxis() {
    const FitResult& fit = shared_.fit;
    scale_.cycleShift = 0;
    // The decade of the first dose.
    firstLogFloor_ = ChartFloor(NumberOf(grid1_.text(1, datacol::LogDose)));
    if (adjustRange_) {
        // The lower end of the line: the smaller percent on a rising line, the
        // larger on a falling one.
        const std::string& lowText = fit.Slope > 0 ? lowPercent_ : highPercent_;
        const double low = ChartFloor(LineLogDose(probitOf(lowText), fit));
        scale_.cycleShift = firstLogFloor_ - low;
    }

    const double leftEnd = fit.DoseScale > 1 ? (1.0 / fit.DoseScale) / PowerOfTen(scale_.cycleShift)
                                             : PowerOfTen(firstLogFloor_ - scale_.cycleShift);
    CaptionDoseLabels(leftEnd);
    ChooseCycles();
    PlaceDoseLabels(leftEnd);
    PlaceYLabels();
}

// The dose at the left end and at each inner cycle boundary. The labels are the
// format rule's text; a value of 0 would leave the text of the call before, as the
// rule does.
void LogProbitChart::CaptionDoseLabels(double leftEnd) {
    shared_.WorkValue = leftEnd;
    FormatFourLevels(shared_);
    label10_.caption = shared_.WorkText;
    for (int i = 0; i < kDoseLabels; ++i) {
        shared_.WorkValue = PowerOfTen(i + 1) * leftEnd;
        FormatFourLevels(shared_);
        label8_[static_cast<std::size_t>(i)].caption = shared_.WorkText;
    }
}

// The number of decades across the plot: Auto's choice by the slope, or the user's.
void LogProbitChart::ChooseCycles() {
    int n = 0;
    if (autoCycles_) {
        n = AutoCycles(shared_.fit.Slope);
        cyclesText_ = std::to_string(n);
    } else {
        const double chosen = NumberOf(cyclesText_);
        if (!(chosen >= 1 && chosen <= kDoseLabels + 1))
            throw Fault("the number of cycles " + cyclesText_ + " is out of range");
        n = static_cast<int>(chosen);
    }
    scale_.cycles = n;
    scale_.cycleWidth = scale_.plotWidth / n;
}

// Ticks and dose labels at the inner cycle boundaries, the right end's label, and
// the thinning of crowded labels.
void LogProbitChart::PlaceDoseLabels(double leftEnd) {
    const int n = scale_.cycles;
    for (int i = 0; i < kDoseLabels; ++i) {
        label7_[static_cast<std::size_t>(i)].left = kParkedTickLeft;
        label8_[static_cast<std::size_t>(i)].left = kParkedDoseLeft;
    }
    for (int i = 0; i <= n - 2 && i < kDoseLabels; ++i) {
        const double x = (i + 1) * scale_.cycleWidth;
        ChartLabel& tick = label7_[static_cast<std::size_t>(i)];
        tick.top = scale_.plotHeight - 70;
        tick.left = x - tick.width / 2;
        ChartLabel& dose = label8_[static_cast<std::size_t>(i)];
        dose.left = x - dose.width / 2 + kDoseStripOffset;
    }

    // An odd number of cycles from 9 on would crowd the right end: its label goes.
    if (n % 2 == 1 && n >= 9) {
        label11_.caption.clear();
    } else {
        shared_.WorkValue = PowerOfTen(n) * leftEnd;
        FormatFourLevels(shared_);
        label11_.caption = shared_.WorkText;
    }
    // From ten cycles on only every other inner label is shown.
    if (n > 9) {
        for (int i = 0; i <= n - 2 && i < kDoseLabels; i += 2) {
            label8_[static_cast<std::size_t>(i)].caption.clear();
        }
    }
    label11_.left = scale_.plotWidth - label11_.width / 2 + kDoseStripOffset;
    label10_.left = kDoseStripOffset - label10_.width / 2;
}

void LogProbitChart::PlaceYLabels() {
    // The percent strip begins 75 twips above the plot.
    for (int i = 1; i <= 9; ++i) {
        ChartLabel& label = label12_[static_cast<std::size_t>(i)];
        label.caption = PlainText(10.0 * i);
        const double p = probitOf(label.caption);
        label.top = (scale_.plotHeight - ChartY(p, scale_.plotHeight)) - label.height / 2 + 75;
    }
    label12_.front().top = percentStripHeight_ - 165;
    for (int j = 0; j < kProbitLabels; ++j) {
        ChartLabel& label = label13_[static_cast<std::size_t>(j)];
        const double p = 3 + 0.5 * j;
        label.top = (scale_.plotHeight - ChartY(p, scale_.plotHeight)) - label.height / 2;
        label.caption = PlainText(p);
    }
}

bool LogProbitChart::RedrawChart() {
    scale_.plotHeight = nextPlotHeight_;
    scale_.plotWidth = nextPlotWidth_;
    drawing_.setSize(scale_.plotWidth, scale_.plotHeight);
    if (grid1_.rows() < 2) {
        drawing_.clear();
        return false;
    }
    try {
        SetXAxis();
        const FitResult& fit = shared_.fit;
        scale_.logOrigin =
            fit.DoseScale == 1 ? Log10(NumberOf(label10_.caption)) + scale_.cycleShift : 0;

        grid3_.setRows(grid1_.rows());
        for (int r = 1; r < grid1_.rows(); ++r) {
            const double x =
                (NumberOf(grid1_.text(r, datacol::LogDose)) - scale_.logOrigin) * scale_.cycleWidth;
            const double y =
                ChartY(NumberOf(grid1_.text(r, datacol::LinearProbit)), scale_.plotHeight);
            grid3_.setText(r, pointcol::X, PlainText(x));
            grid3_.setText(r, pointcol::Y, PlainText(y));
        }
        if (adjustRange_) {
            const std::string* ends[] = {&lowPercent_, &highPercent_};
            for (int row = 1; row <= 2; ++row) {
                const double p = probitOf(*ends[row - 1]);
                grid4_.setText(row, pointcol::X, PlainText(xOfLogDose(LineLogDose(p, fit))));
                grid4_.setText(row, pointcol::Y, PlainText(ChartY(p, scale_.plotHeight)));
            }
        }
        DrawPlot();
        return true;
    } catch (const Fault&) {
    } catch (const std::out_of_range&) {
    }
    drawing_.clear();
    return false;
}

void LogProbitChart::DrawPlot() {
    drawing_.clear();
    // Each segment joins two consecutive rows, in the order of the table.
    const TextTable& source = adjustRange_ ? grid4_ : grid3_;
    std::vector<std::array<double, 2>> linePoints(static_cast<std::size_t>(source.rows()));
    for (int r = 1; r < source.rows(); ++r) {
        for (int c = pointcol::X; c <= pointcol::Y; ++c) {
            const std::string& cell = source.text(r, c);
            if (cell.empty())
                continue;
            auto& point = linePoints[static_cast<std::size_t>(r)];
            point[static_cast<std::size_t>(c)] = NumberOf(cell);
            if (c == pointcol::Y && r > 1) {
                const auto& previous = linePoints[static_cast<std::size_t>(r - 1)];
                drawing_.line(previous[pointcol::X], scale_.plotHeight - previous[pointcol::Y],
                              point[pointcol::X], scale_.plotHeight - point[pointcol::Y], kBlack);
            }
        }
    }
    if (showPoints_)
        DrawPoints();
    DrawMarks();
    if (extraLine_)
        extraLine_(drawing_, scale_.plotHeight);
}

void LogProbitChart::DrawPoints() {
    grid5_.setRows(grid1_.rows());
    for (int r = 1; r < grid1_.rows(); ++r) {
        const double logDose = NumberOf(grid1_.text(r, datacol::LogDose));
        const double x = (logDose - scale_.logOrigin + scale_.cycleShift) * scale_.cycleWidth;
        const double y = ChartY(probitOf(grid1_.text(r, datacol::Observed)), scale_.plotHeight);
        grid5_.setText(r, pointcol::X, PlainText(x));
        grid5_.setText(r, pointcol::Y, PlainText(y));
    }
    drawing_.setPenWidth(3);
    for (int r = 1; r < grid5_.rows(); ++r) {
        drawing_.point(NumberOf(grid5_.text(r, pointcol::X)),
                       scale_.plotHeight - NumberOf(grid5_.text(r, pointcol::Y)), kBlack);
    }
    drawing_.setPenWidth(1);
}

void LogProbitChart::DrawMarks() {
    const FitResult& fit = shared_.fit;
    for (std::size_t i = 0; i < marks_.size(); ++i) {
        // Each entry is selected in turn; the selection ends on the last one.
        clickMark(static_cast<int>(i));
        const std::string& mark = marks_[i];
        const double p = probitOf(mark);
        const double logDose = LineLogDose(p, fit);
        const double x = xOfLogDose(logDose);
        const double y = ChartY(p, scale_.plotHeight);
        drawing_.line(0, scale_.plotHeight - y, x, scale_.plotHeight - y, kBlack);
        drawing_.line(x, scale_.plotHeight - y, x, scale_.plotHeight, kBlack);
        if (showEstimates_) {
            shared_.WorkValue = PowerOfTen(logDose) / fit.DoseScale;
            FormatEstimate(shared_);
            drawing_.setCurrentPosition(x + 20, scale_.plotHeight - 220);
            drawing_.print(shared_.WorkText);
            drawing_.setCurrentPosition(10, scale_.plotHeight - y - 150);
            drawing_.print(mark);
        }
    }
}

std::vector<double> LogProbitChart::PercentRulings() const {
    // A label stands centred on its percent in a strip that begins 75 above the plot.
    std::vector<double> rulings;
    for (int i = 1; i < kPercentLabels - 1; ++i) {
        const ChartLabel& label = label12_[static_cast<std::size_t>(i)];
        rulings.push_back(label.top + label.height / 2 - 75);
    }
    return rulings;
}

std::vector<LogProbitChart::CycleRule> LogProbitChart::CycleRulings() const {
    std::vector<CycleRule> rulings;
    for (const ChartLabel& tick : label7_) {
        if (tick.left <= 0)
            continue;  // parked out of sight
        rulings.push_back({tick.left + tick.width / 2, tick.top});
    }
    return rulings;
}

void LogProbitChart::selectActualRangeAfterRefusal() {
    clickActualRange();
}

ChartFocus LogProbitChart::ApplyLineLimits(UserPort& port) {
    if (lowPercent_.empty() || highPercent_.empty())
        return ChartFocus::None;
    // A text that is no number is as far out of scale as a number can be.
    const auto low = ParseNumber(lowPercent_);
    if (!low || *low > 99 || *low < 1) {
        port.tell("1st point is out of scale");
        selectActualRangeAfterRefusal();
        return ChartFocus::LowPercent;
    }
    const auto high = ParseNumber(highPercent_);
    if (!high || *high > 99 || *high < 1) {
        port.tell("2nd point is out of scale");
        selectActualRangeAfterRefusal();
        return ChartFocus::HighPercent;
    }
    // Equal percents pass: the line then has no length.
    if (*high < *low) {
        port.tell("1st point is greater than 2nd point!");
        selectActualRangeAfterRefusal();
        return ChartFocus::LowPercent;
    }
    RedrawChart();
    limitsOkEnabled_ = false;
    return ChartFocus::None;
}

void LogProbitChart::clickActualRange() {
    adjustRange_ = false;
    limitsOkEnabled_ = false;
    RedrawChart();
}

ChartFocus LogProbitChart::clickAdjustRange(UserPort& port) {
    adjustRange_ = true;
    return ApplyLineLimits(port);
}

ChartFocus LogProbitChart::clickLimitsOk(UserPort& port) {
    return ApplyLineLimits(port);
}

ChartFocus LogProbitChart::enterInLimits(UserPort& port) {
    if (!adjustRange_)
        return ChartFocus::None;
    return ApplyLineLimits(port);
}

void LogProbitChart::setLowPercent(const std::string& text) {
    lowPercent_ = text;
    if (adjustRange_)
        limitsOkEnabled_ = true;
}

void LogProbitChart::setHighPercent(const std::string& text) {
    highPercent_ = text;
    if (adjustRange_)
        limitsOkEnabled_ = true;
}

void LogProbitChart::clickAutoCycles(bool checked) {
    autoCycles_ = checked;
    // Unchecked, the number that Auto chose stays until the user picks another.
    if (checked)
        RedrawChart();
}

void LogProbitChart::clickCycles(const std::string& text) {
    cyclesText_ = text;
    if (cyclesEnabled())
        RedrawChart();
}

// The plot is drawn again over the scale of the last RedrawChart; a table that holds
// no line leaves the plot empty.
void LogProbitChart::drawPlotAgain() {
    if (grid1_.rows() < 2 || scale_.cycleWidth == 0)
        return;
    try {
        DrawPlot();
    } catch (const Fault&) {
        drawing_.clear();
    }
}

void LogProbitChart::clickShowPoints(bool checked) {
    showPoints_ = checked;
    drawPlotAgain();
}

void LogProbitChart::clickShowEstimates(bool checked) {
    showEstimates_ = checked;
    drawPlotAgain();
}

void LogProbitChart::setMarkPercent(const std::string& text) {
    markPercent_ = text;
}

ChartFocus LogProbitChart::addMark(UserPort& port) {
    // A text that is no number fails the handler, which only gives the focus back.
    const auto percent = ParseNumber(markPercent_);
    if (!percent)
        return ChartFocus::MarkPercent;
    if (*percent > 99 || *percent < 1) {
        port.warn(kOutOfScale);
        return ChartFocus::MarkPercent;
    }
    marks_.push_back(markPercent_);
    markPercent_.clear();
    // All marks are drawn again over the plot, without clearing it.
    if (grid1_.rows() >= 2 && scale_.cycleWidth != 0) {
        try {
            DrawMarks();
        } catch (const Fault&) {
            return ChartFocus::MarkPercent;
        }
    }
    return ChartFocus::None;
}

ChartFocus LogProbitChart::enterInMarkPercent(UserPort& port) {
    if (!addMarkEnabled())
        return ChartFocus::None;
    return addMark(port);
}

ChartFocus LogProbitChart::leaveNumberBox(ChartFocus box, UserPort& port) {
    std::string* text = nullptr;
    if (box == ChartFocus::LowPercent)
        text = &lowPercent_;
    else if (box == ChartFocus::HighPercent)
        text = &highPercent_;
    else if (box == ChartFocus::MarkPercent)
        text = &markPercent_;
    if (text == nullptr || text->empty())
        return ChartFocus::None;
    const auto value = ParseNumber(*text);
    if (!value) {
        if (box != ChartFocus::MarkPercent)
            port.tell("invaled value!");
        return box;
    }
    const std::string plain = PlainText(*value);
    if (plain == *text)
        return ChartFocus::None;
    if (box == ChartFocus::LowPercent)
        setLowPercent(plain);
    else if (box == ChartFocus::HighPercent)
        setHighPercent(plain);
    else
        setMarkPercent(plain);
    return ChartFocus::None;
}

void LogProbitChart::clickMark(int index) {
    selectedMark_ = index >= 0 && index < static_cast<int>(marks_.size()) ? index : -1;
    deleteMarkEnabled_ = selectedMark_ >= 0;
}

void LogProbitChart::deleteMark() {
    if (selectedMark_ < 0)
        return;
    marks_.erase(marks_.begin() + selectedMark_);
    selectedMark_ = -1;
    deleteMarkEnabled_ = false;
    drawPlotAgain();
}

}  // namespace morvane
