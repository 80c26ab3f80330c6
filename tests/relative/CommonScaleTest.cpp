// The common dose scale of the chart and its range.
#include "relative/CommonScale.h"

#include <gtest/gtest.h>

#include "RelativeFixtures.h"

namespace morvane {
namespace {

using testing::Column;
using testing::Texts;

// Grid2 rows as the batch leaves them: log doses at From, To and the sorted
// percentage on the line's own scale, and the line's dose factor.
void SetLine(Rtvout& rtvout, int row, const char* from, const char* to, const char* sorted,
             const char* scale) {
    TextTable& grid = rtvout.Grid2;
    if (grid.rows() <= row)
        grid.setRows(row + 1);
    grid.setText(row, grid2col::LogFrom, from);
    grid.setText(row, grid2col::LogTo, to);
    grid.setText(row, grid2col::LogSorted, sorted);
    grid.setText(row, grid2col::DoseScale, scale);
}

TEST(CommonScale, LinesAreBroughtToTheLargestDoseScale) {
    Rtvin rtvin;
    Rtvout rtvout;
    SetLine(rtvout, 1, "0.5", "1.2", "0.8", "1");
    SetLine(rtvout, 2, "-1.3", "0.1", "-0.5", "100");
    SharedRegisters shared;
    BringToCommonScale(rtvin, rtvout, shared);
    EXPECT_EQ(shared.fit.DoseScale, 100);
    // Row 0: the probits of From (20), To (80) and the sorted percentage (50).
    EXPECT_EQ(rtvout.Grid2.text(0, grid2col::CommonFrom), "4.1584");
    EXPECT_EQ(rtvout.Grid2.text(0, grid2col::CommonTo), "5.8416");
    EXPECT_EQ(rtvout.Grid2.text(0, grid2col::CommonSorted), "5");
    // The line of factor 1 moves up by log10(100) = 2; the other stays.
    EXPECT_EQ(Column(rtvout.Grid2, grid2col::CommonFrom), (Texts{"2.5", "-1.3"}));
    EXPECT_EQ(Column(rtvout.Grid2, grid2col::CommonTo), (Texts{"3.2", "0.1"}));
    EXPECT_EQ(Column(rtvout.Grid2, grid2col::CommonSorted), (Texts{"2.8", "-0.5"}));

    FindChartRange(rtvout);
    EXPECT_EQ(rtvout.ChartLogMin, -1.3);
    EXPECT_EQ(rtvout.ChartLogMax, 4);  // 3.2 raised to the next whole number
}

TEST(CommonScale, TheRangeLooksAtTheDrawnEndsOnlyAndKeepsAWholeMaximum) {
    Rtvout rtvout;
    rtvout.Grid2.setRows(3);
    const char* rows[][3] = {{"1.5", "3", "9"}, {"0.25", "2", "-7"}};
    for (int row = 1; row <= 2; ++row) {
        rtvout.Grid2.setText(row, grid2col::CommonFrom, rows[row - 1][0]);
        rtvout.Grid2.setText(row, grid2col::CommonTo, rows[row - 1][1]);
        rtvout.Grid2.setText(row, grid2col::CommonSorted, rows[row - 1][2]);
    }
    FindChartRange(rtvout);
    EXPECT_EQ(rtvout.ChartLogMin, 0.25);
    EXPECT_EQ(rtvout.ChartLogMax, 3);
}

TEST(CommonScale, AMaximumJustAboveAHalfStillGoesUp) {
    Rtvout rtvout;
    rtvout.Grid2.setRows(2);
    rtvout.Grid2.setText(1, grid2col::CommonFrom, "-2.5");
    rtvout.Grid2.setText(1, grid2col::CommonTo, "2.5");
    FindChartRange(rtvout);
    EXPECT_EQ(rtvout.ChartLogMin, -2.5);
    EXPECT_EQ(rtvout.ChartLogMax, 3);
}

}  // namespace
}  // namespace morvane
