#include "results/TextMeasurer.h"

#include <algorithm>
#include <cstddef>

namespace morvane {

double FixedWidthTextMeasurer::textWidth(std::string_view text) const {
    std::size_t widest = 0;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find('\n', start);
        const std::size_t length = (end == std::string_view::npos ? text.size() : end) - start;
        widest = std::max(widest, length);
        if (end == std::string_view::npos)
            break;
        start = end + 1;
    }
    return static_cast<double>(widest) * twipsPerCharacter_;
}

}  // namespace morvane
