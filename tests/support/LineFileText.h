#pragma once
// The text of a line file of the current layout, as the program writes it, for the
// tests that write line files of their own.

#include <string>
#include <vector>

namespace morvane::testing {

// The version record, the options record given, the size record, every cell of the
// table quoted with a comma behind it, then the notes record on the same line.
inline std::string CurrentLineFile(const std::string& options, int columns,
                                   const std::vector<std::vector<std::string>>& rows,
                                   const std::string& notes) {
    std::string text = "2,\"\",\"\",\"\",\"\",\"\"\r\n" + options + "\r\n";
    text += std::to_string(rows.size() + 2) + "," + std::to_string(columns) + "\r\n";
    for (const auto& row : rows)
        for (const std::string& cell : row)
            text += "\"" + cell + "\",";
    return text + notes + "\r\n";
}

}  // namespace morvane::testing
