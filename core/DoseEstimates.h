#pragma once
// Doses from the fitted line: the dose that gives a response (LD, LC or LT value)
// with its fiducial limits by Fieller's theorem as Finney gives it, the response that
// a dose gives, and the rules that pick a number format by a value's size.
//
// All of these talk through the shared registers: the argument goes into WorkValue,
// the result comes back in WorkValue, LogEstimate, UpperLimit, LowerLimit or
// WorkText. The fitted line in shared.fit must be valid.

#include "core/SharedRegisters.h"
#include "core/UserPort.h"

namespace morvane {

// One value with its limits as the tables show it; limits of 0 mean none.
struct DoseEstimate {
    double percent = 0;
    double value = 0;
    double lower = 0;
    double upper = 0;
};

// WorkValue: a percent in, the dose out (rounded to four decimals, in the user's
// units). Sets LogEstimate and, when g is below 0.4, the limits; otherwise the
// limits are 0. An estimate whose power of ten overflows gives 0 and leaves the
// limits as they were.
void EstimateAtPercent(SharedRegisters& shared);

// Limits for the log estimate in LogEstimate, into UpperLimit and LowerLimit,
// rounded to four decimals in the user's units.
void FiducialLimits(SharedRegisters& shared);

// Whether the last EstimateAtPercent could not bring its estimate or one of its limits
// back from the log scale because the power of ten overflowed: the estimate then reads
// 0, or a limit still holds its log value. Neither may be shown as a dose.
bool EstimateOverflowed(const SharedRegisters& shared);

// WorkValue: a dose in the user's units in, its response percent out. Returns false
// when the response is out of scale: the user is told "This value is out of scale"
// and WorkValue holds the probit.
bool ResponseAtDose(SharedRegisters& shared, UserPort& port);

// The format rules: WorkValue rendered into WorkText by its size. A WorkValue of 0
// leaves WorkText as it was.
void FormatEstimate(SharedRegisters& shared);
void FormatTwoLevels(SharedRegisters& shared);
void FormatFourLevels(SharedRegisters& shared);

}  // namespace morvane
