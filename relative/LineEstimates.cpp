#include "relative/LineEstimates.h"

#include <cmath>
#include <utility>

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
    const double m = shared.LogEstimate;
    const double g = fit.GValue;
    const double b = fit.Slope;
    if (fit.SumSquaresLogDose == 0)
        throw Fault("the sum of squares of log dose is 0, so the limits divide by zero");
    if (fit.SumWeights == 0)
        throw Fault("the sum of weights is 0, so the limits divide by zero");
    if (b == 0)
        throw Fault("the slope is 0, so the limits divide by zero");
    const double distance = m - fit.MeanLogDose;
    const double square = distance * distance / fit.SumSquaresLogDose +
                          (1 - g) / fit.SumWeights * fit.HeterogeneityFactor;
    if (square < 0)
        throw Fault("the limits need the square root of a negative number");
    const double d = std::sqrt(square);
    const double h = fit.TValue / ((1 - g) * b) * d;
    const double c = m + g / (1 - g) * distance;
    double upper = c + h;
    double lower = c - h;
    if (b < 0)
        std::swap(upper, lower);
    shared.UpperLimit = upper;
    shared.LowerLimit = lower;
    shared.UpperLimit = LimitThroughText(upper, shared, "upper");
    shared.LowerLimit = LimitThroughText(lower, shared, "lower");
}

}  // namespace morvane
