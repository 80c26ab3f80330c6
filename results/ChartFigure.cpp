#include "results/ChartFigure.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <variant>

#include "results/ChartText.h"

namespace morvane {
namespace {

// Room between a text and its drop line or the plot's edge.
constexpr double kTextGap = 20;

class FigureComposer {
  public:
    FigureComposer(const LogProbitChart& chart, const ChartLayout& layout)
        : chart_(chart),
          layout_(layout),
          plot_(layout.Picture1),
          figure_(layout.PictureFig.width, layout.PictureFig.height) {}

    Drawing compose() {
        figure_.fillBox(0, 0, figure_.width(), figure_.height(), kFigureBack);
        figure_.fillBox(plot_.left, plot_.top, plot_.right(), plot_.bottom(), kWhite);
        rule();
        plotDrawing();
        frameAndTicks();
        TextFont font{"", kFigureLabelPoints};
        figure_.setFont(font);
        endLabels();
        percentAndProbitLabels();
        innerDoseLabels();
        plotTexts();
        axisTitles();
        return std::move(figure_);
    }

  private:
    // The paper: faint lines at the percents, at the cycles and, fainter still, at the
    // doses between the cycles.
    void rule() {
        figure_.setPenWidth(1);
        if (chart_.cycles() > 0) {
            for (const double x : MinorTickPositions(chart_.cycles(), chart_.CycleWidth()))
                figure_.line(plot_.left + x, plot_.top, plot_.left + x, plot_.bottom(),
                             kFigureMinorRuling);
        }
        for (const double y : chart_.PercentRulings())
            figure_.line(plot_.left, plot_.top + y, plot_.right(), plot_.top + y, kFigureRuling);
        for (const LogProbitChart::CycleRule& rule : chart_.CycleRulings())
            figure_.line(plot_.left + rule.x, plot_.top, plot_.left + rule.x, plot_.bottom(),
                         kFigureRuling);
    }

    // The chart's own drawing, clipped to the plot; its texts wait for their places.
    void plotDrawing() {
        for (const DrawOp& op : chart_.drawing().ops()) {
            if (const auto* line = std::get_if<draw::Line>(&op)) {
                double x1 = line->x1, y1 = line->y1, x2 = line->x2, y2 = line->y2;
                if (!ClipToBox(x1, y1, x2, y2, plot_.width, plot_.height))
                    continue;
                figure_.setPenWidth(line->width);
                figure_.setPenStyle(line->style);
                figure_.line(plot_.left + x1, plot_.top + y1, plot_.left + x2, plot_.top + y2,
                             line->color);
            } else if (const auto* point = std::get_if<draw::Point>(&op)) {
                if (!(point->x >= 0 && point->x <= plot_.width && point->y >= 0 &&
                      point->y <= plot_.height))
                    continue;
                figure_.setPenWidth(std::max(point->width, kFigurePointWidth));
                figure_.point(plot_.left + point->x, plot_.top + point->y, point->color);
            } else if (const auto* text = std::get_if<draw::Text>(&op)) {
                // Marks added one after another are drawn again over the plot: a text
                // printed once more at its place is the same text.
                if (std::find(plotTexts_.begin(), plotTexts_.end(), *text) == plotTexts_.end())
                    plotTexts_.push_back(*text);
            }
        }
        figure_.setPenWidth(1);
        figure_.setPenStyle(PenStyle::Solid);
    }

    void frameAndTicks() {
        figure_.box(plot_.left, plot_.top, plot_.right(), plot_.bottom(), kFigureFrame);
        for (const LogProbitChart::CycleRule& rule : chart_.CycleRulings())
            figure_.line(plot_.left + rule.x, plot_.top + rule.tickTop, plot_.left + rule.x,
                         plot_.bottom(), kFigureFrame);
        if (chart_.cycles() <= 0)
            return;
        for (const double x : MinorTickPositions(chart_.cycles(), chart_.CycleWidth()))
            figure_.line(plot_.left + x, plot_.bottom() - kMinorTickHeight, plot_.left + x,
                         plot_.bottom(), kFigureFrame);
    }

    // A label whose box would meet one placed before moves by whole rows in the
    // direction step, at most `rows` of them, or is left out.
    std::optional<TextRoom> label(double x, double y, const std::string& caption,
                                  HorizontalAnchor h, VerticalAnchor v, int step = 0,
                                  int rows = 0) {
        if (caption.empty())
            return std::nullopt;
        const draw::Text text{x, y, caption, figure_.font(), kFigureLabel, h, v};
        const TextRoom box = BoxOfText(text);
        const double height = box.bottom - box.top;
        for (int row = 0; row <= rows; ++row) {
            const double dy = step * row * height;
            const TextRoom moved{box.left, box.top + dy, box.right, box.bottom + dy};
            if (!moved.inside(0, 0, figure_.width(), figure_.height()) || !placer_.free(moved))
                continue;
            placer_.reserve(moved);
            figure_.text(x, y + dy, caption, h, v, kFigureLabel);
            return moved;
        }
        return std::nullopt;
    }

    // The dose labels at the two ends of the axis, before all others.
    void endLabels() {
        dose(chart_.leftEndLabel());
        dose(chart_.rightEndLabel());
    }

    void dose(const ChartLabel& l) {
        if (l.left + l.width <= 0)
            return;  // parked out of sight
        const LayoutRect& strip = layout_.Picture2;
        label(strip.left + l.left + l.width / 2, strip.top + l.top, l.caption,
              HorizontalAnchor::Centre, VerticalAnchor::Top);
    }

    // Percents to the left of the plot (the lowest may step up a row to clear the
    // dose axis), probits to its right.
    void percentAndProbitLabels() {
        const LayoutRect& percents = layout_.Picture3;
        for (int i = 0; i < LogProbitChart::kPercentLabels; ++i) {
            const ChartLabel& l = chart_.percentLabel(i);
            if (const auto box =
                    label(percents.right() - kTextGap, percents.top + l.top + l.height / 2,
                          l.caption, HorizontalAnchor::Right, VerticalAnchor::Middle, -1, 1))
                percentLeft_ = std::min(percentLeft_, box->left);
        }
        const LayoutRect& probits = layout_.Picture4;
        for (int j = 0; j < LogProbitChart::kProbitLabels; ++j) {
            const ChartLabel& l = chart_.probitLabel(j);
            if (const auto box = label(probits.left + kTextGap, probits.top + l.top + l.height / 2,
                                       l.caption, HorizontalAnchor::Left, VerticalAnchor::Middle))
                probitRight_ = std::max(probitRight_, box->right);
        }
    }

    void innerDoseLabels() {
        for (int i = 0; i < LogProbitChart::kDoseLabels; ++i)
            dose(chart_.doseLabel(i));
    }

    // The texts of the marks: each in the first free row at or above its place,
    // inside the plot, on the left of its drop line where the right edge is near;
    // where the top of the plot leaves no room, the first free row below it. The text
    // of a mark beyond the last cycle is left out with its line.
    void plotTexts() {
        for (const draw::Text& t : plotTexts_) {
            const double width = EstimatedTextWidth(t.text, t.font.points);
            const double height = EstimatedTextHeight(t.font.points);
            double x = plot_.left + t.x;
            if (x + width > plot_.right() - kTextGap)
                x = std::max(plot_.left + kTextGap, x - width - 2 * kTextGap);
            x = std::max(x, plot_.left + kTextGap / 2);
            if (x + width > plot_.right())
                continue;  // the mark lies beyond the last cycle
            const double y = std::min(plot_.top + t.y, plot_.bottom() - height);
            auto box = placer_.place(x, y, width, height, -1, plot_.top, plot_.bottom());
            if (!box)
                box = placer_.place(x, y, width, height, +1, plot_.top, plot_.bottom());
            if (!box)
                continue;
            figure_.setFont(t.font);
            figure_.text(box->left, box->top, t.text, HorizontalAnchor::Left, VerticalAnchor::Top,
                         t.color);
        }
    }

    // The turned titles stand centred in their pictures, moved clear of the labels
    // of their axes where these reach into them.
    void axisTitles() {
        const TextFont font{"", kFigureTitlePoints, true};
        figure_.setFont(font);
        const double half = EstimatedTextHeight(font.points) / 2;
        auto title = [&](const LayoutRect& r, double x, const char* text) {
            figure_.text(x, r.top + r.height / 2, text, HorizontalAnchor::Centre,
                         VerticalAnchor::Middle, kFigureLabel, 90);
        };
        const LayoutRect& percent = layout_.Pictprcent;
        title(percent, std::min(percent.left + percent.width / 2, percentLeft_ - kTextGap - half),
              "Response percentage");
        const LayoutRect& probit = layout_.Pictprob;
        title(probit, std::max(probit.left + probit.width / 2, probitRight_ + kTextGap + half),
              "Probit");
    }

    const LogProbitChart& chart_;
    const ChartLayout& layout_;
    const LayoutRect plot_;
    Drawing figure_;
    TextPlacer placer_;
    std::vector<draw::Text> plotTexts_;
    double percentLeft_ = 1e300;
    double probitRight_ = -1e300;
};

}  // namespace

std::vector<double> MinorTickPositions(int cycles, double cycleWidth) {
    std::vector<double> positions;
    for (int c = 0; c < cycles; ++c) {
        for (int m = 2; m <= 9; ++m)
            positions.push_back((c + std::log10(static_cast<double>(m))) * cycleWidth);
    }
    return positions;
}

Drawing ComposeChartFigure(const LogProbitChart& chart, const ChartLayout& layout) {
    return FigureComposer(chart, layout).compose();
}

}  // namespace morvane
