#include "relative/LineEstimates.h"

#include <cmath>

#include "core/DoseEstimates.h"
#include "core/Fault.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

// 10 to the power m brought to the user's units and written by the comparison's
// format rule, then read back from the text.
double LimitThroughText(double logLimit, SharedRegisters& shared, const char* which) {
    const double power = PowerOfTen(logLimit);
    if (std::isinf(power))
        throw Fault("the " + std::string(which) + " limit overflows (10 to the power " +
                    PlainText(logLimit) + ")");
    shared.WorkValue = power / shared.fit.DoseScale;
    FormatTwoLevels(shared);
    return NumberOrZero(shared.WorkText);
}

}  // namespace

void LineEstimateAtPercent(SharedRegisters& shared, bool logOnly) {
    const FitResult& fit = shared.fit;
    // A transform that fails leaves its old output, and that is what is read.
    try {
        shared.probit.PercentToProbit(PlainText(shared.WorkValue));
    } catch (const Fault&) {
    }
    double y = 0;
    if (const auto probit = ParseNumber(shared.probit.PercentProbit()))
        y = *probit;
    // A slope of 0 makes the division fail: the step is skipped and x stays 0.
    double x = 0;
    if (fit.Slope != 0) {
        x = (y - fit.MeanProbit + fit.Slope * fit.MeanLogDose) / fit.Slope;
        shared.WorkValue = x;
    }
    if (logOnly)
        return;
    shared.LogEstimate = x;
    const double dose = PowerOfTen(x);
    if (std::isinf(dose))
        return;  // "Overflow": WorkText keeps the previous text
    shared.WorkValue = dose / fit.DoseScale;
    FormatTwoLevels(shared);
}

void LineFiducialLimits(SharedRegisters& shared) {
    const FitResult& fit = shared.fit;
    if (fit.SumSquaresLogDose == 0)
        throw Fault("the sum of squares of log dose is 0, so the limits divide by zero");
    if (fit.SumWeights == 0)
        throw Fault("the sum of weights is 0, so the limits divide by zero");
    if (fit.Slope == 0)
        throw Fault("the slope is 0, so the limits divide by zero");
    const LogLimits limits = FiellerLogLimits(fit, shared.LogEstimate);
    if (limits.negativeSquare)
        throw Fault("the limits need the square root of a negative number");
    const double upper = limits.upper;
    const double lower = limits.lower;
    shared.UpperLimit = upper;
    shared.LowerLimit = lower;
    shared.UpperLimit = LimitThroughText(upper, shared, "upper");
    shared.LowerLimit = LimitThroughText(lower, shared, "lower");
}

}  // namespace morvane
