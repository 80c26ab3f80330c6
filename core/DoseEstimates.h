#pragma once
// Doses from the fitted line: the dose that gives a response (LD, LC or LT value)
// with its fiducial limits by Fieller's theorem as Finney gives it, the response that
// a dose gives, and the rules that pick a number format by a value's size.
//
// All of these talk through the shared registers: the argument goes into WorkValue,
// the result comes back in WorkValue, LogEstimate, UpperLimit, LowerLimit or
// WorkText. The fitted line in shared.fit must be valid.

#include <optional>
#include <string>

#include "core/SharedRegisters.h"
#include "core/UserPort.h"

namespace morvane {

// WorkValue: a percent in, the dose out (rounded to four decimals, in the user's
// units). Sets LogEstimate and, when g is below 0.4, the limits; otherwise the
// limits are 0. An estimate whose power of ten overflows gives 0 and leaves the
// limits as they were.
void EstimateAtPercent(SharedRegisters& shared);

// Fieller's limits on the log10 scale of the scaled dose for the log estimate m:
// c +/- e with c = m + g / (1 - g) * (m - MeanLogDose) and
// e = t / ((1 - g) b) * sqrt((m - MeanLogDose)^2 / Sxx + (1 - g) / SumWeights * h),
// the factor h on the second term only; swapped for a negative slope. Plain arithmetic: a square
// below 0 gives limits that are no number and sets negativeSquare.
struct LogLimits {
    double lower = 0;
    double upper = 0;
    bool negativeSquare = false;
};
LogLimits FiellerLogLimits(const FitResult& fit, double logEstimate);

// The fiducial limits of the log estimate in the user's units, rounded to four
// decimals. A limit whose power of ten overflows stops the conversion there: that
// limit and the ones after it (the upper limit comes first) stay on the log scale.
struct DoseLimits {
    double lower = 0;
    double upper = 0;
};
DoseLimits FiducialLimitsOf(const FitResult& fit, double logEstimate);

// Limits for the log estimate in LogEstimate, into UpperLimit and LowerLimit, as
// FiducialLimitsOf gives them.
void FiducialLimits(SharedRegisters& shared);

// Whether the last EstimateAtPercent could not bring its estimate or one of its limits
// back from the log scale because the power of ten overflowed: the estimate then reads
// 0, or a limit still holds its log value. Neither may be shown as a dose.
bool EstimateOverflowed(const SharedRegisters& shared);

// WorkValue: a dose in the user's units in, its response percent out. Returns false
// when the response is out of scale: the user is told "This value is out of scale"
// and WorkValue holds the probit.
bool ResponseAtDose(SharedRegisters& shared, UserPort& port);

// The format rules: the text of a value by its size. A value of 0 has no text.
std::optional<std::string> FormatEstimateText(double value);
std::optional<std::string> FormatTwoLevelsText(double value);
std::optional<std::string> FormatFourLevelsText(double value);

// The same rules on the registers: WorkValue rendered into WorkText. A WorkValue of
// 0 leaves WorkText as it was, and callers depend on that carry-over.
void FormatEstimate(SharedRegisters& shared);
void FormatTwoLevels(SharedRegisters& shared);
void FormatFourLevels(SharedRegisters& shared);

}  // namespace morvane
