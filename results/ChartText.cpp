#include "results/ChartText.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace morvane {

double EstimatedTextWidth(const std::string& text, double points) {
    return static_cast<double>(text.size()) * points * kTwipsPerPoint * kCharacterShare + kTextEnds;
}

double EstimatedTextHeight(double points) {
    return points * kTwipsPerPoint * kLineShare;
}

TextRoom BoxOfText(const draw::Text& t) {
    const double along = EstimatedTextWidth(t.text, t.font.points);
    const double across = EstimatedTextHeight(t.font.points);
    auto start = [](double at, double size, int anchor) {
        return anchor == 0 ? at : anchor == 1 ? at - size / 2 : at - size;
    };
    const int h = static_cast<int>(t.horizontal);
    const int v = static_cast<int>(t.vertical);
    if (std::fabs(std::fmod(t.angle, 180)) == 90) {
        // Turned to read upward: the text runs up the page from its anchor.
        const double top = t.y - along - start(0, along, h);
        const double left = start(t.x, across, v);
        return TextRoom{left, top, left + across, top + along};
    }
    const double left = start(t.x, along, h);
    const double top = start(t.y, across, v);
    return TextRoom{left, top, left + along, top + across};
}

std::vector<TextRoom> TextRoomsOf(const Drawing& drawing) {
    std::vector<TextRoom> boxes;
    for (const DrawOp& op : drawing.ops()) {
        if (const auto* text = std::get_if<draw::Text>(&op))
            boxes.push_back(BoxOfText(*text));
    }
    return boxes;
}

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

long TextPlacer::strip(double x) {
    constexpr double kStripWidth = 400;
    return static_cast<long>(std::floor(x / kStripWidth));
}

bool TextPlacer::Hint::operator<(const Hint& o) const {
    return std::tie(strip, y, step) < std::tie(o.strip, o.y, o.step);
}

void TextPlacer::reserve(const TextRoom& box) {
    placed_.push_back(box);
    for (long s = strip(box.left); s <= strip(box.right); ++s)
        strips_[s].push_back(placed_.size() - 1);
}

bool TextPlacer::free(const TextRoom& box) const {
    for (long s = strip(box.left); s <= strip(box.right); ++s) {
        const auto found = strips_.find(s);
        if (found == strips_.end())
            continue;
        for (const std::size_t i : found->second) {
            if (box.meets(placed_[i]))
                return false;
        }
    }
    return true;
}

std::optional<TextRoom> TextPlacer::place(double x, double y, double width, double height, int step,
                                          double limitTop, double limitBottom) {
    // Texts wanted at one place go in rows one after the other: the search starts at
    // the row where the last of them went, so that many texts at one place cost no
    // more than a few.
    y = std::max(limitTop, std::min(y, limitBottom - height));
    const Hint hint{strip(x), static_cast<long>(std::lround(y)), step};
    int row = 0;
    if (const auto found = hints_.find(hint); found != hints_.end())
        row = found->second;
    for (;; ++row) {
        const double top = y + step * row * height;
        const TextRoom box{x, top, x + width, top + height};
        if (top < limitTop || top + height > limitBottom)
            return std::nullopt;
        if (free(box)) {
            reserve(box);
            hints_[hint] = row;
            return box;
        }
    }
}

}  // namespace morvane
