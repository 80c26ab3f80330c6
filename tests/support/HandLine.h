#pragma once
// A fitted line set by hand, for the tests of what follows the fit: probit 5 at the
// mean log dose, DoseScale 1, Sxx 4, t 1.96 and h 1, with the figures given.

#include "core/SharedRegisters.h"

namespace morvane::testing {

struct HandLineFigures {
    double slope = 2;
    double meanLogDose = 1;  // probit 5 at dose 10
    double sumWeights = 100;
    double g = 0.2401;
};

// Sets the figures of the line into the fit; its other fields stay as they were.
inline void SetHandLine(FitResult& fit, const HandLineFigures& figures) {
    fit.DoseScale = 1;
    fit.Slope = figures.slope;
    fit.MeanLogDose = figures.meanLogDose;
    fit.MeanProbit = 5;
    fit.SumSquaresLogDose = 4;
    fit.SumWeights = figures.sumWeights;
    fit.TValue = 1.96;
    fit.HeterogeneityFactor = 1;
    fit.GValue = figures.g;
}

}  // namespace morvane::testing
