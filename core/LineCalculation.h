#pragma once
// The calculation of one line, from the response table to the fitted probit line:
// the checks of the data, the scaling of the doses, the provisional regression of
// empirical probits on log dose with its slope tests, then the cycles of weighted
// regression on working probits, the expected values and the statistics (Finney's
// probit analysis, as done with the printed tables).
//
// Two twins run it. CalculateLine talks to the user through the UserPort;
// CalculateFile is its silent twin for the comparison of lines and reports through
// BatchFailed and BatchMessage. Their arithmetic is the same line by line.
//
// The calculation writes the line's points into Grid1 and the statistics into
// Grid22 of the results tables as text, and all later steps read that text back:
// the log dose is rounded to four decimals in its cell, and that rounded value is
// what the cycles fit.

#include <functional>
#include <string>

#include "core/ResultsTables.h"
#include "core/SharedRegisters.h"
#include "core/TextTable.h"
#include "core/UserPort.h"

namespace morvane {

// What the calculation reads: the response table (Grid2 of the input window, cell
// texts and the red foreground of corrected cells), the layout, the t level and the
// title that goes into the results caption.
struct CalculationInput {
    const TextTable& responses;
    bool controlPerTreatment = false;
    int tAlpha = 0;  // 0 "0.10", 1 "0.05", 2 "0.01"
    std::string fileTitle;
};

// The results window's command channel: the calculation sends 1, 2 and 5 after the
// fit, which build the results tables. May be empty.
using ResultsChannel = std::function<void(int code)>;

enum class CalculationOutcome {
    Completed,  // results stand in the tables; the results window is to be shown
    Refused,    // the data were refused with a message, or a fault stopped the work
    Declined,   // the user answered No at the reverse slope
};

// Whether Calculate can be pressed: at least three dose rows (Grid2 of at least 5
// rows in the unpaired layout, 4 in the paired one).
bool CalculateEnabled(const TextTable& responses, bool controlPerTreatment);

// 1 when a corrected cell is red. With the input window visible it tells the user;
// else it fills BatchMessage and sets BatchFailed.
int ValidateResponses(const CalculationInput& input, bool mainVisible, SharedRegisters& shared,
                      UserPort& port);

CalculationOutcome CalculateLine(const CalculationInput& input, SharedRegisters& shared,
                                 ResultsTables& results, UserPort& port,
                                 const ResultsChannel& channel);

// The batch twin; the name of the line is in shared.BatchName. The illegal-slope
// refusal still shows its box through the port.
CalculationOutcome CalculateFile(const CalculationInput& input, SharedRegisters& shared,
                                 ResultsTables& results, UserPort& port,
                                 const ResultsChannel& channel);

// The text of the message that tells the user a fault stopped the calculation.
std::string CalculationFaultMessage(const std::string& reason);

}  // namespace morvane
