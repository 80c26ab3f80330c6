#pragma once
// The registers that the routines of a line analysis share: the fitted line of the
// last calculation, the argument and result registers of the estimate and format
// routines, the words of the current line, and the batch report. They are shared on
// purpose: the estimate routines take their argument in WorkValue and leave results
// in WorkValue, WorkText, LogEstimate and the limits, and callers depend on values
// carried over from one call to the next (a format of 0 leaves WorkText as it was).
// One instance belongs to the running program; tests make their own.

#include <cstdint>
#include <string>

#include "core/ProbitTables.h"

namespace morvane {

// The fitted line Y = MeanProbit + Slope * (x - MeanLogDose), x being log10 of the
// dose times DoseScale.
struct FitResult {
    std::int32_t DoseScale = 1;         // power of ten that multiplied the doses
    double Slope = 0;                   // b, probit per log10 of scaled dose
    double SumWeights = 0;              // sum of nw of the last cycle
    double MeanLogDose = 0;             // weighted mean of log10 scaled dose
    double MeanProbit = 0;              // weighted mean of working probit
    double SumSquaresLogDose = 0;       // Sxx
    double HeterogeneityFactor = 1;     // h: 1 when homogeneous, else chi-square / df
    double TValue = 0;                  // t for the fiducial limits
    double GValue = 0;                  // g
    double SlopeError = 0;              // 1 / sqrt(Sxx)
    std::int16_t DegreesOfFreedom = 0;  // N - 2
    double ChiSquare = 0;               // heterogeneity chi-square
    double Correlation = 0;             // r of the provisional line
    bool CyclesSettled = true;          // false: the cycles stopped at their limit
};

struct SharedRegisters {
    FitResult fit;

    // Argument and result registers of the estimate and format routines.
    double WorkValue = 0;
    std::string WorkText;
    double LogEstimate = 0;  // log10 of the last scaled estimate
    double UpperLimit = 0;   // fiducial limits of the last estimate, 0 when none
    double LowerLimit = 0;
    double Dose1Percent = 0;  // estimates at 1% and 99% of the current line
    double Dose99Percent = 0;

    // Words of the current line: "Dose", "mg", "LD" and their kin.
    std::string DoseWord = "Dose";
    std::string UnitWord;
    std::string EstimateWord = "LD";

    // How a calculation without dialogs reports to the comparison of lines.
    std::string BatchName;
    std::int16_t BatchFailed = 0;
    std::string BatchMessage;

    // The probit transforms keep their outputs between calls, like the library form
    // they model.
    ProbitTables probit;
};

}  // namespace morvane
