#pragma once
// Response tables built by hand for the results tests: the table of pooled responses
// that the input window hands to the calculation, with its heading row, the reserved
// control row of the unpaired layout, and red corrected cells outside 0.1 to 99.9.

#include <optional>
#include <string>
#include <vector>

#include "core/NumberText.h"
#include "core/TextTable.h"

namespace morvane::testing {

// One dose row: the dose as typed, the total, the mean response and the corrected
// response, all as the table holds them.
struct DoseResponse {
    std::string dose;
    std::string total;
    std::string response;
    std::string corrected;
};

inline void MarkCorrected(TextTable& table, int row, int col) {
    const double v = NumberOf(table.text(row, col));
    if (v < 0.1 || v > 99.9)
        table.setFore(row, col, kRed);
}

// Four columns: dose, total, response, corrected. Row 1 holds the control (dose
// "0") or stays empty; the doses follow from row 2.
inline TextTable UnpairedResponses(const std::optional<DoseResponse>& control,
                                   const std::vector<DoseResponse>& rows) {
    TextTable table(static_cast<int>(rows.size()) + 2, 4);
    table.setText(0, 0, "Dose\n(mg)");
    table.setText(0, 1, "Total");
    table.setText(0, 2, "Response\n%");
    table.setText(0, 3, "Corrected\nResponse\n%");
    if (control) {
        table.setText(1, 0, control->dose);
        table.setText(1, 1, control->total);
        table.setText(1, 2, control->response);
        table.setText(1, 3, control->corrected);
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int r = static_cast<int>(i) + 2;
        table.setText(r, 0, rows[i].dose);
        table.setText(r, 1, rows[i].total);
        table.setText(r, 2, rows[i].response);
        table.setText(r, 3, rows[i].corrected);
        MarkCorrected(table, r, 3);
    }
    return table;
}

// One dose row of the paired layout: dose, treated total, treated response, control
// response (may be empty), corrected response.
struct PairedResponse {
    std::string dose;
    std::string total;
    std::string treated;
    std::string control;
    std::string corrected;
};

inline TextTable PairedResponses(const std::vector<PairedResponse>& rows) {
    TextTable table(static_cast<int>(rows.size()) + 1, 5);
    table.setText(0, 0, "Time\n(hour)");
    table.setText(0, 1, "Total");
    table.setText(0, 2, "Treated response\n%");
    table.setText(0, 3, "Control response\n%");
    table.setText(0, 4, "Corrected\nResponse\n%");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int r = static_cast<int>(i) + 1;
        table.setText(r, 0, rows[i].dose);
        table.setText(r, 1, rows[i].total);
        table.setText(r, 2, rows[i].treated);
        table.setText(r, 3, rows[i].control);
        table.setText(r, 4, rows[i].corrected);
        if (!rows[i].corrected.empty())
            MarkCorrected(table, r, 4);
    }
    return table;
}

// Finney's assay of rotenone on Macrosiphoniella sanborni: concentrations in mg/l,
// insects treated and the percent killed (6/50, 16/48, 24/46, 42/49, 44/50), with an
// untreated control of 49 insects, none killed.
inline TextTable RotenoneResponses() {
    return UnpairedResponses(DoseResponse{"0", "49", "0.000", "0.000"},
                             {{"2.6", "50", "12.000", "12.000"},
                              {"3.8", "48", "33.333", "33.333"},
                              {"5.1", "46", "52.174", "52.174"},
                              {"7.7", "49", "85.714", "85.714"},
                              {"10.2", "50", "88.000", "88.000"}});
}

}  // namespace morvane::testing
