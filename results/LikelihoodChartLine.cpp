#include "results/LikelihoodChartLine.h"

#include <cmath>

#include "core/Distributions.h"

namespace morvane {

void AppendLikelihoodLine(Drawing& drawing, const LogProbitChart& chart, double plotHeight,
                          const LikelihoodFit& fit, double doseScale) {
    if (!fit.converged || !(chart.CycleWidth() > 0) || !(plotHeight > 0))
        return;
    const double width =
        drawing.width() > 0 ? drawing.width() : chart.CycleWidth() * chart.cycles();
    const double logScale = std::log10(doseScale);
    const int steps = 120;
    drawing.setPenStyle(PenStyle::Dash);
    drawing.setPenWidth(2);
    bool havePrevious = false;
    double px = 0, py = 0;
    for (int i = 0; i <= steps; ++i) {
        const double x = width * i / steps;
        const double scaledLog = x / chart.CycleWidth() + chart.LogOrigin() - chart.CycleShift();
        const double eta = fit.intercept() + fit.slope() * (scaledLog - logScale);
        const double p = fit.model == LinkModel::Probit ? NormalCdf(eta) : LogisticCdf(eta);
        if (!(p > 1e-4 && p < 1 - 1e-4)) {
            havePrevious = false;
            continue;
        }
        const double y = plotHeight - ChartY(5 + NormalQuantile(p), plotHeight);
        if (havePrevious)
            drawing.line(px, py, x, y, kLikelihoodLineColor);
        px = x;
        py = y;
        havePrevious = true;
    }
    drawing.setPenStyle(PenStyle::Solid);
    drawing.setPenWidth(1);
}

}  // namespace morvane
