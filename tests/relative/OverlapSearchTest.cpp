// The search behind the test of differences finds exactly the lines that a look at
// every line finds, in the same order, with empty and equal limits.

#include "relative/OverlapSearch.h"

#include <gtest/gtest.h>

#include <random>

namespace morvane {
namespace {

std::vector<int> EveryUpperAtLeast(const std::vector<LineLimits>& lines, int first, int last,
                                   double value) {
    std::vector<int> found;
    for (int j = first; j <= last; ++j)
        if (!lines[static_cast<std::size_t>(j)].upperEmpty &&
            lines[static_cast<std::size_t>(j)].upper >= value)
            found.push_back(j);
    return found;
}

std::vector<int> EveryLowerAtMost(const std::vector<LineLimits>& lines, int first, int last,
                                  double value) {
    std::vector<int> found;
    for (int j = first; j <= last; ++j)
        if (!lines[static_cast<std::size_t>(j)].lowerEmpty &&
            lines[static_cast<std::size_t>(j)].lower <= value)
            found.push_back(j);
    return found;
}

TEST(OverlapSearch, TouchingLimitsAndEmptyCells) {
    // Limits 1 to 2 and 2 to 3 touch; a line without limits; 2.01 to 3 does not touch.
    const std::vector<LineLimits> lines = {
        {false, false, 1, 2}, {false, false, 2, 3}, {true, true, 0, 0}, {false, false, 2.01, 3}};
    const OverlapSearch search(lines);
    std::vector<int> found;
    search.UpperAtLeast(0, 3, 2, found);
    EXPECT_EQ(found, (std::vector<int>{0, 1, 3}));
    found.clear();
    search.LowerAtMost(0, 3, 2, found);
    EXPECT_EQ(found, (std::vector<int>{0, 1}));
    found.clear();
    search.LowerAtMost(2, 1, 5, found);  // an empty stretch
    EXPECT_TRUE(found.empty());
}

TEST(OverlapSearch, FindsWhatALookAtEveryLineFinds) {
    std::mt19937 random(12);
    std::uniform_real_distribution<double> value(0, 100);
    std::uniform_int_distribution<int> kind(0, 9);
    for (int n : {1, 2, 7, 64, 300}) {
        std::vector<LineLimits> lines;
        for (int i = 0; i < n; ++i) {
            const double centre = value(random);
            LineLimits line{kind(random) == 0, kind(random) == 0, centre - value(random) / 10,
                            centre + value(random) / 10};
            if (kind(random) == 1)
                line.upper = line.lower;  // a line whose limits are equal
            lines.push_back(line);
        }
        const OverlapSearch search(lines);
        for (int q = 0; q < 200; ++q) {
            const int first = std::uniform_int_distribution<int>(0, n - 1)(random);
            const int last = std::uniform_int_distribution<int>(first, n - 1)(random);
            const double at = value(random);
            std::vector<int> found;
            search.UpperAtLeast(first, last, at, found);
            EXPECT_EQ(found, EveryUpperAtLeast(lines, first, last, at));
            found.clear();
            search.LowerAtMost(first, last, at, found);
            EXPECT_EQ(found, EveryLowerAtMost(lines, first, last, at));
        }
    }
}

}  // namespace
}  // namespace morvane
