#pragma once
// The search behind the test of differences: which lines' fiducial limits reach a
// given value, among the lines of a stretch of the sorted table. A tree over the rows
// keeps the highest upper and the lowest lower limit of each stretch, so a search
// costs a few steps for each line it finds instead of a look at every line: the
// test of n lines is then in proportion to the marks it writes, not to n squared.

#include <vector>

namespace morvane {

// The limits of one line as they stand in the results table; an empty cell is no
// limit.
struct LineLimits {
    bool lowerEmpty = true;
    bool upperEmpty = true;
    double lower = 0;
    double upper = 0;
};

class OverlapSearch {
  public:
    // Lines indexed from 0.
    explicit OverlapSearch(std::vector<LineLimits> lines);

    // Lines first..last (inclusive) with an upper limit not less than `value`, in
    // ascending order, appended to `found`.
    void UpperAtLeast(int first, int last, double value, std::vector<int>& found) const;
    // Lines first..last (inclusive) with a lower limit not more than `value`, in
    // ascending order, appended to `found`.
    void LowerAtMost(int first, int last, double value, std::vector<int>& found) const;

  private:
    void build(int node, int from, int to);
    void upperAtLeast(int node, int from, int to, int first, int last, double value,
                      std::vector<int>& found) const;
    void lowerAtMost(int node, int from, int to, int first, int last, double value,
                     std::vector<int>& found) const;

    std::vector<LineLimits> lines_;
    std::vector<double> highestUpper_;
    std::vector<double> lowestLower_;
};

}  // namespace morvane
