#include "core/DoseEstimates.h"

#include <cmath>
#include <tuple>
#include <utility>

#include "core/Fault.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

struct FormatLevels {
    double upper;      // above this: exponent pattern
    double lower;      // below this: exponent pattern
    const char* huge;  // the exponent pattern
    const char* below0001;
    const char* below001;
    const char* below1;
    const char* otherwise;
};

std::optional<std::string> FormatByLevels(double v, const FormatLevels& levels) {
    if (v == 0)
        return std::nullopt;
    const char* pattern = levels.otherwise;
    if (v > levels.upper || v < levels.lower) {
        pattern = levels.huge;
    } else if (v < 0.0001) {
        pattern = levels.below0001;
    } else if (v < 0.01) {
        pattern = levels.below001;
    } else if (v < 1) {
        pattern = levels.below1;
    }
    return FormatNumber(v, pattern);
}

constexpr FormatLevels kEstimateLevels{99999,    0.00001, "00000E+0", "0.000000",
                                       "0.0000", "0.000", "0.000"};
constexpr FormatLevels kTwoLevels{99999,    0.00001, "00000E+0", "0.00000",
                                  "0.0000", "0.000", "0.000"};
constexpr FormatLevels kFourLevels{999999, 0.000001, "0E+0", "0.000000", "0.0000", "0.00", "0"};

// WorkText keeps what it had for a WorkValue of 0.
void FormatIntoRegister(SharedRegisters& shared, const FormatLevels& levels) {
    if (auto text = FormatByLevels(shared.WorkValue, levels))
        shared.WorkText = std::move(*text);
}

// A limit on the log scale brought back to the user's units and rounded to four
// decimals. Returns false when the power of ten overflows.
bool LimitFromLog(double logLimit, std::int32_t doseScale, double& limit) {
    const double power = PowerOfTen(logLimit);
    if (std::isinf(power))
        return false;
    limit = NumberOf(FormatNumber(power / doseScale, "0.0000"));
    return true;
}

}  // namespace

void EstimateAtPercent(SharedRegisters& shared) {
    const FitResult& fit = shared.fit;
    // A step that fails is skipped and the next one runs. A percent whose transform
    // reads the table outside its ends leaves the transform's old output, and an
    // output that is no number leaves the percent in WorkValue.
    try {
        shared.probit.PercentToProbit(PlainText(shared.WorkValue));
    } catch (const Fault&) {
    }
    if (const auto probit = ParseNumber(shared.probit.PercentProbit()))
        shared.WorkValue = *probit;
    // A slope of 0 makes the division fail; the steps that need its result are
    // skipped and the later steps work with the probit still in WorkValue.
    if (fit.Slope != 0) {
        const double m =
            (shared.WorkValue - fit.MeanProbit + fit.Slope * fit.MeanLogDose) / fit.Slope;
        shared.LogEstimate = m;
        shared.WorkValue = PowerOfTen(m);
        if (std::isinf(shared.WorkValue)) {
            shared.WorkValue = 0;
            return;
        }
    }
    shared.WorkValue = shared.WorkValue / fit.DoseScale;
    shared.WorkValue = NumberOf(FormatNumber(shared.WorkValue, "0.0000"));
    shared.UpperLimit = 0;
    shared.LowerLimit = 0;
    if (fit.GValue < 0.4)
        FiducialLimits(shared);
}

LogLimits FiellerLogLimits(const FitResult& fit, double logEstimate) {
    const double m = logEstimate;
    const double g = fit.GValue;
    const double b = fit.Slope;
    const double distance = m - fit.MeanLogDose;
    const double square = distance * distance / fit.SumSquaresLogDose +
                          ((1 - g) / fit.SumWeights) * fit.HeterogeneityFactor;
    const double e = (fit.TValue / ((1 - g) * b)) * std::sqrt(square);
    const double c = (g / (1 - g)) * distance + m;
    LogLimits limits{c - e, c + e, square < 0};
    if (b < 0)
        std::swap(limits.upper, limits.lower);
    return limits;
}

DoseLimits FiducialLimitsOf(const FitResult& fit, double logEstimate) {
    const LogLimits limits = FiellerLogLimits(fit, logEstimate);
    DoseLimits out{limits.lower, limits.upper};
    // An overflowing power ends the routine where it stands, as an error inside the
    // estimate would: the limits keep what they hold at that point.
    double upper = 0, lower = 0;
    if (!LimitFromLog(out.upper, fit.DoseScale, upper))
        return out;
    out.upper = upper;
    if (!LimitFromLog(out.lower, fit.DoseScale, lower))
        return out;
    out.lower = lower;
    return out;
}

void FiducialLimits(SharedRegisters& shared) {
    const DoseLimits limits = FiducialLimitsOf(shared.fit, shared.LogEstimate);
    shared.UpperLimit = limits.upper;
    shared.LowerLimit = limits.lower;
}

bool EstimateOverflowed(const SharedRegisters& shared) {
    const FitResult& fit = shared.fit;
    if (fit.Slope == 0)
        return false;
    if (std::isinf(PowerOfTen(shared.LogEstimate)))
        return true;
    if (!(fit.GValue < 0.4))
        return false;
    const LogLimits limits = FiellerLogLimits(fit, shared.LogEstimate);
    return std::isinf(PowerOfTen(limits.upper)) || std::isinf(PowerOfTen(limits.lower));
}

bool ResponseAtDose(SharedRegisters& shared, UserPort& port) {
    const FitResult& fit = shared.fit;
    const double x = shared.WorkValue * fit.DoseScale;
    if (!(x > 0))
        throw Fault("the dose " + PlainText(shared.WorkValue) + " has no logarithm");
    const double logDose = Log10(x);
    const double y = fit.Slope * logDose + fit.MeanProbit - fit.MeanLogDose * fit.Slope;
    shared.WorkValue = y;
    const std::string& percent = shared.probit.ProbitToPercent(PlainText(y));
    if (percent == "out of scale") {
        port.warn("This value is out of scale");
        return false;
    }
    shared.WorkValue = NumberOf(percent);
    return true;
}

std::optional<std::string> FormatEstimateText(double value) {
    return FormatByLevels(value, kEstimateLevels);
}

std::optional<std::string> FormatTwoLevelsText(double value) {
    return FormatByLevels(value, kTwoLevels);
}

std::optional<std::string> FormatFourLevelsText(double value) {
    return FormatByLevels(value, kFourLevels);
}

void FormatEstimate(SharedRegisters& shared) {
    FormatIntoRegister(shared, kEstimateLevels);
}

void FormatTwoLevels(SharedRegisters& shared) {
    FormatIntoRegister(shared, kTwoLevels);
}

void FormatFourLevels(SharedRegisters& shared) {
    FormatIntoRegister(shared, kFourLevels);
}

}  // namespace morvane
