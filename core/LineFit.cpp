#include "core/LineFit.h"

#include <cmath>
#include <vector>

#include "core/Fault.h"
#include "core/NumberText.h"
#include "core/ResultsTables.h"
#include "core/StatTables.h"

namespace morvane {
namespace {

constexpr double kPi = 3.14159265358979;

const char* const kGNotice =
    "Upper and lower limits will be calculated only for the data of which g is less than "
    "0.4.   See help for more details.";

}  // namespace

CycleSums RunCycles(const TextTable& grid1, int doseRows, FitResult& fit, ProbitTables& probit) {
    std::vector<double> last(static_cast<std::size_t>(doseRows) + 1, 0.0);
    CycleSums out;
    int counter = 0;
    while (true) {
        bool moved = false;
        fit.SumWeights = 0;
        double snx = 0, snxx = 0, sny = 0, snyy = 0, snxy = 0;
        for (int k = 1; k <= doseRows; ++k) {
            // The log dose as written in its cell, to four decimals.
            const double x = NumberOf(grid1.text(k, datacol::LogDose));
            const double expected = (x - fit.MeanLogDose) * fit.Slope + fit.MeanProbit;
            const auto total = RoundHalfEven32(NumberOf(grid1.text(k, datacol::Treated)));
            if (!total)
                throw Fault("the total " + grid1.text(k, datacol::Treated) + " overflows");
            probit.setWorkingExpected(PlainText(expected));
            probit.setWorkingResponse(grid1.text(k, datacol::Observed));
            const double w = NumberOrZero(probit.WorkingWeight());
            const double nw = *total * w;
            const double y = NumberOrZero(probit.WorkingValue());
            const double t = std::sqrt((y - expected) * (y - expected));
            double& lastGap = last[static_cast<std::size_t>(k)];
            const double d = std::sqrt((t - lastGap) * (t - lastGap));
            if (d > 0.000001)
                moved = true;
            lastGap = t;
            fit.SumWeights += nw;
            snx += x * nw;
            snxx += x * nw * x;
            sny += y * nw;
            snyy += y * nw * y;
            snxy += x * nw * y;
        }
        if (fit.SumWeights == 0)
            throw Fault(
                "every expected probit of a cycle lies outside 1.1 to 8.9, so the sum of "
                "weights is 0 and the means divide by zero");
        fit.MeanLogDose = snx / fit.SumWeights;
        fit.MeanProbit = sny / fit.SumWeights;
        fit.SumSquaresLogDose = snxx - snx * snx / fit.SumWeights;
        out.Syy = snyy - sny * sny / fit.SumWeights;
        out.Sxy = snxy - snx * sny / fit.SumWeights;
        if (fit.SumSquaresLogDose == 0)
            throw Fault(
                "only one dose has a weight, so the sum of squares of log dose is 0 and the "
                "slope divides by zero");
        fit.Slope = out.Sxy / fit.SumSquaresLogDose;
        if (moved && counter < 20) {
            ++counter;
            continue;
        }
        out.settled = !moved;
        return out;
    }
}

std::string UnsettledCyclesNote(const FitResult& fit) {
    if (fit.CyclesSettled)
        return {};
    return "Note: the cycles of the fit stopped at their limit of 21 passes without "
           "settling; the figures above are those of the last pass. The maximum likelihood "
           "analysis (the \"Maximum likelihood\" tab, or morvane-cli fit) fits the line "
           "without the rounding of the tables.";
}

void WriteExpectedValues(TextTable& grid1, int doseRows, const FitResult& fit,
                         ProbitTables& probit) {
    for (int k = 1; k <= doseRows; ++k) {
        const double x = NumberOf(grid1.text(k, datacol::LogDose));
        const double expected = (x - fit.MeanLogDose) * fit.Slope + fit.MeanProbit;
        grid1.setText(k, datacol::LinearProbit, FormatNumber(expected, "0.0000"));
        // Written as the transform gives it, "out of scale" included.
        grid1.setText(k, datacol::LinearResponse, probit.ProbitToPercent(PlainText(expected)));
    }
}

void WriteStatistics(ResultsTables& results, int doseRows, const CycleSums& sums, int tAlpha,
                     FitResult& fit) {
    const int df = doseRows - 2;
    fit.DegreesOfFreedom = static_cast<std::int16_t>(df);
    if (df <= 0)
        throw Fault("fewer than three doses leave no degrees of freedom");
    const double chi = sums.Syy - sums.Sxy * sums.Sxy / fit.SumSquaresLogDose;
    fit.ChiSquare = chi;
    const std::string dfText = std::to_string(df);
    const std::string tabulatedText = TabulatedChiSquare(df);
    const double tabulated = NumberOrZero(tabulatedText);
    const bool homogeneous = tabulated > chi;
    const double ratio = chi / df;
    fit.HeterogeneityFactor = homogeneous ? 1 : ratio;
    const double tInfinite = NumberOf(TValueText("130", tAlpha));
    const double tOwn = NumberOf(TValueText(dfText, tAlpha));
    fit.TValue = homogeneous ? tInfinite : tOwn;
    const double denominator = fit.Slope * fit.Slope * fit.SumSquaresLogDose;
    if (denominator == 0)
        throw Fault("the slope is 0, so g divides by zero");
    fit.GValue = (fit.TValue * fit.TValue * fit.HeterogeneityFactor) / denominator;
    if (fit.SumSquaresLogDose < 0)
        throw Fault("the sum of squares of log dose is negative, so the slope has no error");
    fit.SlopeError = std::sqrt(1 / fit.SumSquaresLogDose);
    double p = 0;
    if (df <= 30)
        p = NumberOf(FormatNumber(ChiSquareProbability(chi, df), "0.0000"));

    TextTable& g22 = results.Grid22;
    using statcol::Tabulated, statcol::Value;
    g22.setText(statrow::R, Value, FormatNumber(fit.Correlation, "0.0000"));
    if (df <= 30)
        g22.setText(statrow::R, Tabulated, "tabulated  " + PlainText(CriticalR(df)));
    g22.setText(statrow::Slope, Value, FormatNumber(fit.Slope, "0.0000"));
    g22.setText(statrow::Slope, Tabulated, "+/-  " + FormatNumber(fit.SlopeError, "0.0000"));
    g22.setText(statrow::ChiSquare, Value, FormatNumber(chi, "0.0000"));
    g22.setFore(statrow::ChiSquare, Value, homogeneous ? std::nullopt : std::optional<Color>(kRed));
    g22.setText(statrow::ChiSquare, Tabulated, "tabulated  " + tabulatedText);
    g22.setText(statrow::P, Value, PlainText(p));
    g22.setText(statrow::H, Value, FormatNumber(ratio, "0.0000"));
    g22.setText(statrow::G, Value, FormatNumber(fit.GValue, "0.0000"));
    g22.setFore(statrow::G, Value, fit.GValue > 0.4 ? std::optional<Color>(kRed) : std::nullopt);
    if (fit.GValue > 0.4) {
        results.Text8 = kGNotice;
        results.Grid2ToolTip = kGNotice;
    }
}

double ChiSquareProbability(double chiSquare, int degreesOfFreedom) {
    const double x = chiSquare;
    const int m = degreesOfFreedom;
    double s = std::exp(-x / 2);
    if (m % 2 == 1) {
        if (x < 0)
            throw Fault("the chi-square is negative, so its probability can't be computed");
        s = s * std::sqrt(2 * x / kPi);
    }
    int j = m;
    while (j >= 2) {
        s = x * s / j;
        j -= 2;
    }
    double term = s;
    j = m;
    while (s * 1E-10 < term) {
        term = x * term / (j + 2);
        j += 2;
        s += term;
    }
    return 1 - s;
}

}  // namespace morvane
