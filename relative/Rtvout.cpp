#include "relative/Rtvout.h"

#include <cmath>

namespace morvane {

Rtvout::Rtvout() : Grid1(2, resultcol::Fixed), Grid2(2, grid2col::Count) {
    Grid1.setText(0, resultcol::Number, "No");
    Grid1.setText(0, resultcol::LineName, "Line name");
    Grid1.setColumnAlignment(resultcol::Number, 1);
    Grid1.setColumnAlignment(resultcol::LineName, 1);
}

void SizeResultColumns(Rtvout& rtvout, const TextMeasurer& measurer) {
    TextTable& grid = rtvout.Grid1;
    const int key = grid.cols() - 1;
    if (key < 0)
        return;
    grid.setColumnWidth(key, 0);
    for (int col = 0; col < key; ++col) {
        int width = 100;
        for (int row = 0; row < grid.rows(); ++row) {
            const double wanted = measurer.textWidth(grid.text(row, col)) + 180;
            if (wanted > width)
                width = static_cast<int>(std::nearbyint(wanted));
        }
        grid.setColumnWidth(col, width);
    }
}

}  // namespace morvane
