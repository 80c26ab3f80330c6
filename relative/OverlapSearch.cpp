#include "relative/OverlapSearch.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace morvane {
namespace {
constexpr double kInfinity = std::numeric_limits<double>::infinity();
}

OverlapSearch::OverlapSearch(std::vector<LineLimits> lines) : lines_(std::move(lines)) {
    const std::size_t n = lines_.size();
    highestUpper_.assign(4 * std::max<std::size_t>(n, 1), -kInfinity);
    lowestLower_.assign(4 * std::max<std::size_t>(n, 1), kInfinity);
    if (n > 0)
        build(1, 0, static_cast<int>(n) - 1);
}

void OverlapSearch::build(int node, int from, int to) {
    const auto at = static_cast<std::size_t>(node);
    if (from == to) {
        const LineLimits& line = lines_[static_cast<std::size_t>(from)];
        // A limit that is no number never marks, as no comparison with it holds.
        highestUpper_[at] = line.upperEmpty || std::isnan(line.upper) ? -kInfinity : line.upper;
        lowestLower_[at] = line.lowerEmpty || std::isnan(line.lower) ? kInfinity : line.lower;
        return;
    }
    const int middle = from + (to - from) / 2;
    build(2 * node, from, middle);
    build(2 * node + 1, middle + 1, to);
    highestUpper_[at] = std::max(highestUpper_[2 * at], highestUpper_[2 * at + 1]);
    lowestLower_[at] = std::min(lowestLower_[2 * at], lowestLower_[2 * at + 1]);
}

void OverlapSearch::UpperAtLeast(int first, int last, double value, std::vector<int>& found) const {
    first = std::max(first, 0);
    last = std::min(last, static_cast<int>(lines_.size()) - 1);
    if (first <= last)
        upperAtLeast(1, 0, static_cast<int>(lines_.size()) - 1, first, last, value, found);
}

void OverlapSearch::LowerAtMost(int first, int last, double value, std::vector<int>& found) const {
    first = std::max(first, 0);
    last = std::min(last, static_cast<int>(lines_.size()) - 1);
    if (first <= last)
        lowerAtMost(1, 0, static_cast<int>(lines_.size()) - 1, first, last, value, found);
}

void OverlapSearch::upperAtLeast(int node, int from, int to, int first, int last, double value,
                                 std::vector<int>& found) const {
    if (to < first || from > last || !(highestUpper_[static_cast<std::size_t>(node)] >= value))
        return;
    if (from == to) {
        const LineLimits& line = lines_[static_cast<std::size_t>(from)];
        if (!line.upperEmpty && line.upper >= value)
            found.push_back(from);
        return;
    }
    const int middle = from + (to - from) / 2;
    upperAtLeast(2 * node, from, middle, first, last, value, found);
    upperAtLeast(2 * node + 1, middle + 1, to, first, last, value, found);
}

void OverlapSearch::lowerAtMost(int node, int from, int to, int first, int last, double value,
                                std::vector<int>& found) const {
    if (to < first || from > last || !(lowestLower_[static_cast<std::size_t>(node)] <= value))
        return;
    if (from == to) {
        const LineLimits& line = lines_[static_cast<std::size_t>(from)];
        if (!line.lowerEmpty && line.lower <= value)
            found.push_back(from);
        return;
    }
    const int middle = from + (to - from) / 2;
    lowerAtMost(2 * node, from, middle, first, last, value, found);
    lowerAtMost(2 * node + 1, middle + 1, to, first, last, value, found);
}

}  // namespace morvane
