#include "document/TextFields.h"

#include <algorithm>

namespace morvane {

bool TextFieldTakes(std::string_view oldText, std::string_view newText) {
    return std::count(newText.begin(), newText.end(), '"') <=
           std::count(oldText.begin(), oldText.end(), '"');
}

}  // namespace morvane
