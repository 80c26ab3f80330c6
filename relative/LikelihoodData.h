#pragma once
// The groups of a line document as the maximum-likelihood fit takes them: one group a
// replicate row of the data table (Grid1), the controls marked. The likelihood needs
// counts, so a line entered as response percentages has none to give.

#include <string>
#include <vector>

#include "core/LikelihoodFit.h"
#include "core/TextTable.h"
#include "document/FileOptions.h"

namespace morvane {

// The groups, or an empty list with the reason in message.
struct LineGroups {
    std::vector<DoseGroup> groups;
    std::string message;
};
LineGroups DoseGroupsOf(const TextTable& grid1, DataType type);

// The message for a line of response percentages.
inline constexpr const char* kNoCountsMessage =
    "The maximum likelihood fit needs the numbers treated and responded: a line entered "
    "as response percentages has no counts.";

}  // namespace morvane
