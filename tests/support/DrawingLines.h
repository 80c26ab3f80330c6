#pragma once
// A drawing's operations as the lines of its dump, for tests that look for one.

#include <string>
#include <vector>

#include "core/Drawing.h"

namespace morvane::testing {

inline std::vector<std::string> DrawingLines(const Drawing& d) {
    std::vector<std::string> out;
    const std::string dump = d.dump();
    std::size_t start = 0;
    for (std::size_t end; (end = dump.find('\n', start)) != std::string::npos; start = end + 1)
        out.push_back(dump.substr(start, end - start));
    return out;
}

}  // namespace morvane::testing
