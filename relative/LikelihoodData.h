#pragma once
// The groups of a line document as the maximum-likelihood fit takes them: one group a
// replicate row of the data table (Grid1), the controls marked. The likelihood needs
// counts, so a line entered as response percentages has none to give.

#include <string>
#include <vector>

#include "core/LikelihoodFit.h"
#include "core/TextTable.h"
#include "core/UserPort.h"
#include "document/FileOptions.h"

namespace morvane {

// The groups, or an empty list with the reason in message.
struct LineGroups {
    std::vector<DoseGroup> groups;
    std::string message;
};
LineGroups DoseGroupsOf(const TextTable& grid1, DataType type);

// A saved line's groups, read silently as the comparison reads its files (an older
// file gives the rows of its first table), with the line's words; a file that can't be
// read leaves the groups empty and says why in groups.message.
struct LineFileGroups {
    std::string name;
    std::string estimateWord = "LD";
    std::string unitWord;
    LineGroups groups;
};
LineFileGroups ReadLineGroups(const std::string& name, const std::string& path, UserPort& port);

// The message for a line of response percentages.
inline constexpr const char* kNoCountsMessage =
    "The maximum likelihood fit needs the numbers treated and responded: a line entered "
    "as response percentages has no counts.";

}  // namespace morvane
