#pragma once
// Hand-built fitted lines for the tests of the comparison: a line through probit
// `meanProbit` at log dose `meanLogDose` with slope `slope`, and the statistics the
// fiducial limits need. The defaults make a homogeneous line with t of 1.96 and a
// g of 0.1.

#include <cstdint>

#include "core/SharedRegisters.h"

namespace morvane::testing {

struct LineFigures {
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

inline FitResult Fitted(const LineFigures& figures) {
    FitResult fit;
    fit.Slope = figures.slope;
    fit.MeanLogDose = figures.meanLogDose;
    fit.MeanProbit = figures.meanProbit;
    fit.DoseScale = figures.doseScale;
    fit.SumWeights = figures.sumWeights;
    fit.SumSquaresLogDose = figures.sumSquaresLogDose;
    fit.TValue = figures.tValue;
    fit.GValue = figures.gValue;
    fit.HeterogeneityFactor = figures.heterogeneity;
    fit.SlopeError = figures.slopeError;
    return fit;
}

}  // namespace morvane::testing
