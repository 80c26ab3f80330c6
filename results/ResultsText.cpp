#include "results/ResultsText.h"

namespace morvane {

std::string ComposeResultsText(const ResultsTables& tables, const ColumnHeadings& headingSingle) {
    std::string text;
    const TextTable& grid1 = tables.Grid1;
    const int lastColumn = grid1.cols() - 1;
    for (int c = 0; c <= lastColumn; ++c) {
        if (c < static_cast<int>(headingSingle.size()))
            text += headingSingle[static_cast<std::size_t>(c)];
        if (c != lastColumn)
            text += '\t';
    }
    text += '\n';
    for (int r = 1; r < grid1.rows(); ++r) {
        for (int c = 0; c <= lastColumn; ++c) {
            text += grid1.text(r, c);
            if (c != lastColumn)
                text += '\t';
        }
        text += '\n';
    }
    text += "\n\n";

    const TextTable& grid22 = tables.Grid22;
    for (int r = 0; r < grid22.rows(); ++r) {
        for (int c = 0; c < grid22.cols(); ++c) {
            text += grid22.text(r, c);
            // The chi-square cell shows only its symbol.
            if (r == statrow::ChiSquare && c == statcol::Name)
                text += "Chi";
            text += '\t';
        }
        if (r != grid22.rows() - 1)
            text += '\n';
    }
    text += "\n\n\n";

    const TextTable& grid2 = tables.Grid2;
    for (int r = 0; r < grid2.rows(); ++r) {
        for (int c = 0; c < grid2.cols(); ++c) {
            text += grid2.text(r, c);
            // The percent and the empty gap after it share one field.
            if (c >= estimatecol::Gap)
                text += '\t';
        }
        if (r != grid2.rows() - 1)
            text += '\n';
    }
    return text;
}

}  // namespace morvane
