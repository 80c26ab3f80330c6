#include "relative/CommonScale.h"

#include <cmath>
#include <cstdint>

#include "core/Fault.h"
#include "core/NumberText.h"

namespace morvane {

void BringToCommonScale(const Rtvin& rtvin, Rtvout& rtvout, SharedRegisters& shared) {
    TextTable& grid = rtvout.Grid2;
    const int last = grid.rows() - 1;
    double largest = 0;
    for (int row = 1; row <= last; ++row) {
        const double scale = NumberOf(grid.text(row, grid2col::DoseScale));
        if (scale > largest)
            largest = scale;
    }
    shared.fit.DoseScale = static_cast<std::int32_t>(largest);
    const double common = Log10(largest);

    struct Drawn {
        const TextBox& field;
        int ownColumn;
        int commonColumn;
    };
    const Drawn drawn[] = {{rtvin.Text4, grid2col::LogFrom, grid2col::CommonFrom},
                           {rtvin.Text3, grid2col::LogTo, grid2col::CommonTo},
                           {rtvin.Text1, grid2col::LogSorted, grid2col::CommonSorted}};
    for (const Drawn& d : drawn)
        grid.setText(0, d.commonColumn,
                     shared.probit.PercentToProbit(PlainText(NumberOf(d.field.text))));
    for (int row = 1; row <= last; ++row) {
        const double own = Log10(NumberOf(grid.text(row, grid2col::DoseScale)));
        for (const Drawn& d : drawn)
            grid.setText(row, d.commonColumn,
                         PlainText(NumberOf(grid.text(row, d.ownColumn)) - own + common));
    }
}

void FindChartRange(Rtvout& rtvout) {
    const TextTable& grid = rtvout.Grid2;
    const int last = grid.rows() - 1;
    double low = NumberOf(grid.text(1, grid2col::CommonFrom));
    double high = NumberOf(grid.text(last, grid2col::CommonTo));
    for (int row = 1; row <= last; ++row) {
        for (int col : {grid2col::CommonFrom, grid2col::CommonTo}) {
            const double value = NumberOf(grid.text(row, col));
            if (value < low)
                low = value;
            if (value > high)
                high = value;
        }
    }
    // Raised to the next whole number: rounded, and 1 added when that fell below.
    double whole = std::nearbyint(high);
    if (whole < high)
        whole += 1;
    rtvout.ChartLogMin = low;
    rtvout.ChartLogMax = whole;
}

}  // namespace morvane
