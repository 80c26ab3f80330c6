#include "relative/LikelihoodData.h"

#include "core/NumberText.h"
#include "core/SharedRegisters.h"
#include "document/DataTable.h"
#include "document/LineDocument.h"

namespace morvane {

LineGroups DoseGroupsOf(const TextTable& grid1, DataType type) {
    LineGroups result;
    if (type == DataType::ResponsePercentage) {
        result.message = kNoCountsMessage;
        return result;
    }
    const Grid1Columns cols = Grid1ColumnsOf(type);
    // Row 0 is the heading; the last row is the empty one that takes the next entry.
    for (int row = 1; row < grid1.rows(); ++row) {
        if (grid1.text(row, dosecol::Dose).empty())
            continue;
        const double total = NumberOrZero(grid1.text(row, cols.total));
        const double responded = type == DataType::TotalAndResponded
                                     ? NumberOrZero(grid1.text(row, dosecol::SecondValue))
                                     : NumberOrZero(grid1.text(row, dosecol::FirstValue));
        result.groups.push_back({NumberOrZero(grid1.text(row, dosecol::Dose)), total, responded,
                                 grid1.text(row, dosecol::Label) == "C"});
    }
    return result;
}

LineFileGroups ReadLineGroups(const std::string& name, const std::string& path, UserPort& port) {
    LineFileGroups line;
    line.name = name;
    SharedRegisters shared;
    shared.BatchName = name;
    LineDocument document(shared, port, std::string());
    if (!document.OpenLineForBatch(path) || shared.BatchFailed) {
        line.groups.message = shared.BatchMessage.empty()
                                  ? "An error occurred while opening " + name
                                  : shared.BatchMessage;
        return line;
    }
    line.estimateWord = shared.EstimateWord;
    line.unitWord = shared.UnitWord;
    line.groups = DoseGroupsOf(document.Grid1(), document.fileOptions().controls.dataType());
    return line;
}

}  // namespace morvane
