#pragma once
// The cycles of weighted regression on working probits, the expected values and the
// statistics of the fitted line (Finney's probit analysis with the printed tables of
// working probits and weighting coefficients).

#include <string>

#include "core/SharedRegisters.h"
#include "core/TextTable.h"

namespace morvane {

struct ResultsTables;

// Refits the provisional line held in fit on the rows 1..N of the results
// Grid1 (the log dose as written, the number treated, the corrected response): at most 21 passes,
// until no row's gap between working and expected probit moves by more than 0.000001. Leaves Syy
// and Sxy of the last pass.
struct CycleSums {
    double Syy = 0;
    double Sxy = 0;
    // false when the 21st pass still moved: the cycles stopped at their limit
    // instead of settling (a line whose working probits fall where the tables are
    // coarse can swing between two states).
    bool settled = true;
};
CycleSums RunCycles(const TextTable& grid1, int doseRows, FitResult& fit, ProbitTables& probit);

// The linear response and probit of each row of Grid1, from the fitted line.
void WriteExpectedValues(TextTable& grid1, int doseRows, const FitResult& fit,
                         ProbitTables& probit);

// Chi-square, h, t, g, the slope's error and p, written into Grid22, and the notice
// of a g above 0.4.
void WriteStatistics(ResultsTables& results, int doseRows, const CycleSums& sums, int tAlpha,
                     FitResult& fit);

// The note shown below the classical results when the cycles did not settle, or an
// empty text when they did. The classical figures stay as they are; the note points
// to the maximum-likelihood analysis.
std::string UnsettledCyclesNote(const FitResult& fit);

// Upper tail probability of chi-square for the degrees of freedom, by a series for
// the lower tail: a chi-square of 0 or above about 1490 gives 1.
double ChiSquareProbability(double chiSquare, int degreesOfFreedom);

}  // namespace morvane
