#pragma once
// The maximum-likelihood line drawn on the log-probit chart beside the classical one:
// the response over the natural one, F(a + b log10 dose), as its probit on the chart's
// scale, a dashed blue line across the plot. It is appended to the chart's drawing
// (LogProbitChart::setExtraLine), so the screen, the picture and the printout show it
// alike.

#include "core/Drawing.h"
#include "core/LikelihoodFit.h"
#include "results/Chart.h"

namespace morvane {

inline constexpr Color kLikelihoodLineColor{30, 90, 200};

// Appends the line to the drawing of the chart, whose plot is plotHeight twips high.
// doseScale is the power of ten by which the classical calculation multiplied the doses
// (the chart's log doses are of the scaled doses).
void AppendLikelihoodLine(Drawing& drawing, const LogProbitChart& chart, double plotHeight,
                          const LikelihoodFit& fit, double doseScale);

}  // namespace morvane
