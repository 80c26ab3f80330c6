#include "relative/RelativeExport.h"

namespace morvane {

std::string RelativeTableText(const Rtvout& rtvout) {
    const TextTable& grid = rtvout.Grid1;
    const int shown = grid.cols() - 1;  // the last column is the sort key
    std::string text;
    for (int row = 0; row < grid.rows(); ++row) {
        for (int col = 0; col < shown; ++col) {
            text += grid.text(row, col);
            if (col < shown - 1)
                text += '\t';
        }
        text += '\n';
    }
    text += '\n';
    text += rtvout.Label1;
    text += '\n';
    text += rtvout.Text3;
    return text;
}

}  // namespace morvane
