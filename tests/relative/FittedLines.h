#pragma once
// Hand-built fitted lines for the tests of the comparison: a line through probit
// `meanProbit` at log dose `meanLogDose` with slope `slope`, and the statistics the
// fiducial limits need. The defaults make a homogeneous line with t of 1.96 and a
// g of 0.1.

#include <cstdint>

#include "core/SharedRegisters.h"

namespace morvane::testing {

struct LineSpec {
    double slope = 2;
    double meanLogDose = 1;
    double meanProbit = 5;
    std::int32_t doseScale = 1;
    double sumWeights = 50;
    double sumSquaresLogDose = 2;
    double tValue = 1.96;
    double gValue = 0.1;
    double heterogeneity = 1;
    double slopeError = 0.7071;
};

inline FitResult Fitted(const LineSpec& spec) {
    FitResult fit;
    fit.Slope = spec.slope;
    fit.MeanLogDose = spec.meanLogDose;
    fit.MeanProbit = spec.meanProbit;
    fit.DoseScale = spec.doseScale;
    fit.SumWeights = spec.sumWeights;
    fit.SumSquaresLogDose = spec.sumSquaresLogDose;
    fit.TValue = spec.tValue;
    fit.GValue = spec.gValue;
    fit.HeterogeneityFactor = spec.heterogeneity;
    fit.SlopeError = spec.slopeError;
    return fit;
}

}  // namespace morvane::testing
