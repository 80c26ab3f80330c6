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

// Finney's rotenone assay on Macrosiphoniella sanborni, typed as totals and responded,
// concentrations in mg / L, with an untreated control.
inline std::string RotenoneLineFile() {
    return CurrentLineFile(R"(1,0,"mg","L",2,"Dose","LD","",0,"0.05",0,0)", 6,
                           {{"C", "0", "49", "0", "0.000", "0.00000000000C"},
                            {"T", "2.6", "50", "6", "12.000", "1.00960091030T"},
                            {"T", "3.8", "48", "16", "33.333", "1.01343951993T"},
                            {"T", "5.1", "46", "24", "52.174", "1.01642585036T"},
                            {"T", "7.7", "49", "42", "85.714", "1.02062195706T"},
                            {"T", "10.2", "50", "44", "88.000", "1.02349565124T"}},
                           R"("Rotenone","Macrosiphoniella sanborni","","")");
}

}  // namespace morvane::testing
