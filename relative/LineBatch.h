#pragma once
// The comparison of lines ("Calculate" of the table of lines): each line file in
// turn is read and calculated silently by the same machinery as an opened document,
// and what the comparison needs is copied out of the shared registers into the
// results window before the next file overwrites them. Then the lines are sorted,
// brought to one dose scale and compared.
//
// All or nothing: the first file that fails ends the whole comparison with one
// message, and nothing of the earlier files is kept; the table of lines and the
// options stay as they were. Differing units and abbreviations are only warnings,
// told after the results are shown.

#include <functional>
#include <string>

#include "core/SharedRegisters.h"
#include "core/UserPort.h"
#include "relative/Rtvin.h"

namespace morvane {

// The single-line machinery as the comparison uses it. Both steps report a failure
// only through shared.BatchFailed and shared.BatchMessage (the name of the line is in
// shared.BatchName); after CalculateFile the fitted line, DoseScale, UnitWord and
// EstimateWord of the file stand in the shared registers.
class LineCalculator {
  public:
    virtual ~LineCalculator() = default;
    // Empties the document and reads the line file at `path` into it, either layout.
    virtual void OpenLineForBatch(const std::string& path, SharedRegisters& shared) = 0;
    // The silent calculation of the loaded document.
    virtual void CalculateFile(SharedRegisters& shared, UserPort& port) = 0;
};

// Where the comparison stands: line `line` of `lines` is being opened and
// calculated. `bar` is the progress bar's value, 0 to 100, which runs ahead of the
// work and reaches 100 at the start of the last file; `caption` is the panel's text.
struct BatchProgress {
    int line = 0;
    int lines = 0;
    std::string name;
    int bar = 0;
    std::string caption;
};

struct BatchHooks {
    std::function<void(const BatchProgress&)> progress;
    // Called once the results stand in rtvin's results window, before the warnings.
    std::function<void()> showResults;
    // Asked after each progress report: true ends the comparison there, as if it had
    // never started (the window shows the progress and lets the user cancel).
    std::function<bool()> cancelled;
};

enum class BatchOutcome {
    Shown,          // the results window holds the comparison
    LimitsInvalid,  // "From" is not below "To": told, the focus is on Text4
    Failed,         // a file failed: BatchMessage told, no results window
    Cancelled,      // the user ended it: no message, no results window
};

BatchOutcome RunComparison(Rtvin& rtvin, SharedRegisters& shared, LineCalculator& calculator,
                           UserPort& port, const BatchHooks& hooks = {});

// The warnings of a comparison, as told after the results are shown.
std::string UnitsDifferWarning();
std::string OddAbbreviationsWarning(const std::string& names, const std::string& abbreviation);

}  // namespace morvane
