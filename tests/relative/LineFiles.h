#pragma once
// Line files written by the tests of the comparison, in the current layout (mark 2)
// and the older one (mark 1), with the data type "Total and Responded".

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "core/NumberText.h"
#include "document/LineDocument.h"

#include "support/LineFileText.h"
#include "support/TestFiles.h"

namespace morvane::testing {

struct Replicate {
    double dose = 0;
    double total = 0;
    double responded = 0;
    bool control = false;  // a control row of the paired layout
};

struct LineFileFigures {
    std::vector<Replicate> rows;  // in the order of the table: ascending doses
    // The standard units tab: the first unit and the factor (1 "Dose", 2 "Con.",
    // 3 "Time").
    std::string unit;
    int factor = 1;
    // The custom tab, used when abbreviation is not empty.
    std::string customFactor = "Dose";
    std::string abbreviation;
    std::string customUnits;
    std::string alpha = "0.05";
};

inline std::string Quoted(const std::string& text) {
    return "\"" + text + "\"";
}

// The text of a current line file.
inline std::string LineFileText(const LineFileFigures& figures) {
    const bool custom = !figures.abbreviation.empty();
    const std::string options =
        "1," + std::string(custom ? "1" : "0") + "," + Quoted(custom ? "" : figures.unit) +
        ",\"\"," + std::to_string(custom ? 1 : figures.factor) + "," +
        Quoted(custom ? figures.customFactor : "Dose") + "," +
        Quoted(custom ? figures.abbreviation : "LD") + "," +
        Quoted(custom ? figures.customUnits : "") + ",0," + Quoted(figures.alpha) + ",0,0";
    std::vector<std::vector<std::string>> cells;
    for (const Replicate& r : figures.rows) {
        const std::string label = r.control ? "C" : "T";
        cells.push_back({label, PlainText(r.dose), PlainText(r.total), PlainText(r.responded),
                         FormatNumber(r.responded / r.total * 100, "0.000"),
                         SortKey(r.dose, label)});
    }
    return CurrentLineFile(options, 6, cells, "\"Treatment\",\"Target\",\"01 / 02 / 2003\",\"\"");
}

// The text of an older line file of the paired layout ("Time"): the treated
// replicates in the first old table, the control replicates in the second.
inline std::string OlderLineFileText(const std::vector<Replicate>& treated,
                                     const std::vector<Replicate>& controls) {
    // One dose to a pair of columns: the dose in row 0, replicates from row `first`
    // down, the total in the first column and the responded in the second.
    auto table = [](const std::vector<Replicate>& rows, int first) {
        std::vector<double> doses;
        for (const Replicate& r : rows)
            if (doses.empty() || doses.back() != r.dose)
                doses.push_back(r.dose);
        std::vector<std::vector<std::string>> cells;
        auto cell = [&cells](std::size_t row, std::size_t col) -> std::string& {
            if (cells.size() <= row)
                cells.resize(row + 1);
            if (cells[row].size() <= col)
                cells[row].resize(col + 1);
            return cells[row][col];
        };
        for (std::size_t d = 0; d < doses.size(); ++d) {
            cell(0, 2 * d) = PlainText(doses[d]);
            std::size_t row = static_cast<std::size_t>(first);
            for (const Replicate& r : rows) {
                if (r.dose != doses[d])
                    continue;
                cell(row, 2 * d) = PlainText(r.total);
                cell(row, 2 * d + 1) = PlainText(r.responded);
                ++row;
            }
        }
        const std::size_t cols = 2 * doses.size();
        std::string fields;
        for (auto& line : cells) {
            line.resize(cols);
            for (const std::string& c : line)
                fields += Quoted(c) + ",";
        }
        return std::make_pair(std::to_string(cells.size() - 1) + "," + std::to_string(cols - 1),
                              fields);
    };
    const auto [size1, cells1] = table(treated, 5);
    const auto [size2, cells2] = table(controls, 3);
    std::string text = "\"1\",0,0,0,0,0\r\n";
    text += "1,\"\",0,\"\",3,0,0," + size1 +
            ",\"\",\"Time\",\"LT\",\"\",0,\"0.05\",\"\",\"\",0,0,0,\"\",\"\"\r\n";
    // The cells end with a comma each, so the next fields follow on the same line.
    text += cells1 + size2 + "\r\n" + cells2;
    text += "\"Older\",\"\",\"\",\"\"\r\n";
    return text;
}

// A line of five doubling doses, 50 individuals each, with the responses given.
inline LineFileFigures FiveDoses(double firstDose, std::vector<double> responded) {
    LineFileFigures figures;
    double dose = firstDose;
    for (double r : responded) {
        figures.rows.push_back(Replicate{dose, 50, r});
        dose *= 2;
    }
    return figures;
}

}  // namespace morvane::testing
