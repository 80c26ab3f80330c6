#include "relative/RelativeExport.h"

#include <ostream>
#include <sstream>

namespace morvane {

void WriteRelativeTable(const Rtvout& rtvout, std::ostream& out) {
    const TextTable& grid = rtvout.Grid1;
    const int shown = grid.cols() - 1;  // the last column is the sort key
    // Row by row: the table of a large comparison holds a column per line, so its
    // text grows with the square of the lines and is never held whole.
    std::string line;
    for (int row = 0; row < grid.rows(); ++row) {
        line.clear();
        grid.appendRowText(line, row, shown, '\t');
        line += '\n';
        out << line;
    }
    out << '\n' << rtvout.Label1 << '\n' << rtvout.Text3;
}

std::string RelativeTableText(const Rtvout& rtvout) {
    std::ostringstream text;
    WriteRelativeTable(rtvout, text);
    return text.str();
}

}  // namespace morvane
