#pragma once
// The estimates of one line of a comparison, taken from the fitted line in the shared
// registers right after its file was calculated: the dose at a percentage and its
// fiducial limits (Fieller's theorem, FiellerLogLimits of core/DoseEstimates.h),
// in the number format of the comparison tables.
//
// They talk through the shared registers as the estimates of one line do: the
// percentage goes in WorkValue, the text comes back in WorkText.

#include "core/SharedRegisters.h"

namespace morvane {

// WorkValue holds a percentage. With logOnly the routine stops at the log10 of the
// scaled dose, left in WorkValue. Otherwise it keeps that log as LogEstimate and
// leaves the dose in the user's units in WorkValue and its text in WorkText.
//
// A step that fails is skipped and the next one runs. A dose whose power of ten
// overflows ends the routine with WorkText as it was, so the caller writes the text
// of the previous estimate into the cell: a line whose dose overflows repeats a
// neighbouring value without a warning, and that is kept.
void LineEstimateAtPercent(SharedRegisters& shared, bool logOnly);

// The limits of the estimate whose log is in LogEstimate, into LowerLimit and
// UpperLimit, each passed through the comparison's number format and read back, so
// that the limits carry the rounding of the display. The caller tests g below 0.4
// first. Throws Fault on a division by zero or an overflow, which ends the
// comparison with a message.
void LineFiducialLimits(SharedRegisters& shared);

}  // namespace morvane
