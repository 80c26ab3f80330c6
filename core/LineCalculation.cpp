#include "core/LineCalculation.h"

#include <cmath>
#include <limits>
#include <stdexcept>
#include <vector>

#include "core/Fault.h"
#include "core/LineFit.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

enum class Twin { Line, File };

const char* const kIllegalSlopeTail = "it has an infinite value\nso your data can't be calculated";

std::string RowNumber(int row) {
    return std::to_string(row);
}

// Step 6 of the driver: the power of ten that brings the smallest dose to 1 or
// more. The factor is a 32-bit integer; a dose it cannot bring there is a fault.
std::int32_t ScaleForSmallestDose(const std::string& doseText) {
    const double dose = NumberOf(doseText);
    std::int64_t scale = 1;
    while (dose * static_cast<double>(scale) < 1) {
        scale *= 10;
        if (scale > std::numeric_limits<std::int32_t>::max())
            throw Fault("the smallest dose, " + doseText +
                        ", can't be brought to 1 or more by a power of ten (the dose scale "
                        "overflows)");
    }
    return static_cast<std::int32_t>(scale);
}

struct ProvisionalSums {
    double Sx = 0, Sy = 0, Sxx = 0, Sxy = 0;
    std::vector<double> X, Y;
};

// The slope tests of the provisional line, in their order. Returns the outcome to
// stop with, or Completed to go on.
CalculationOutcome TestSlope(Twin twin, double b, SharedRegisters& shared, UserPort& port) {
    const std::string batchHead = "Data in the file " + shared.BatchName + "\n";
    auto refuse = [&](const std::string& what, const std::string& limit) {
        const std::string tail = limit + "\nMorvane can't calculate it";
        if (twin == Twin::Line) {
            port.warn("Your data " + what + "\n" + tail);
        } else {
            shared.BatchMessage = batchHead + what + "\n" + tail;
            shared.BatchFailed = 1;
        }
        return CalculationOutcome::Refused;
    };
    if (0 < b && b < 0.0001)
        return refuse("revealed an extreme flat slope", "it is less than 0.0001");
    if (-0.0001 < b && b < 0)
        return refuse("revealed an extreme flat slope", "it is less than 0.0001");
    if (b > 1000 || b < -1000)
        return refuse("revealed an extreme large slope", "it is more than  1000");
    if (b < 0 && twin == Twin::Line) {
        Message question{
            "Your data revealed a reverse slope\nit is less than  0\ndo you want to continue ?",
            Buttons::YesNo, Icon::None, Answer::Yes};
        if (port.ask(question) == Answer::No)
            return CalculationOutcome::Declined;
    }
    return CalculationOutcome::Completed;
}

CalculationOutcome RefuseIllegalSlope(Twin twin, SharedRegisters& shared, UserPort& port) {
    if (twin == Twin::Line) {
        port.warn(std::string("Your data Revealed an illegal slope\n") + kIllegalSlopeTail);
    } else {
        // The batch twin shows this one as a box too, and leaves BatchFailed alone.
        port.tell("Data in the file " + shared.BatchName + "\nrevealed an illegal slope\n" +
                  kIllegalSlopeTail);
    }
    return CalculationOutcome::Refused;
}

// The batch twin refuses a table with fewer than three doses; the other twin is
// never pressed then.
bool RefuseTooFewDoses(Twin twin, const CalculationInput& input, SharedRegisters& shared) {
    if (twin == Twin::Line || CalculateEnabled(input.responses, input.controlPerTreatment))
        return false;
    shared.BatchMessage = "Can't calculate " + shared.BatchName;
    shared.BatchFailed = 1;
    return true;
}

// In the paired layout a dose whose replicates hold only control values has no
// corrected response: the data are refused.
bool RefuseControlOnlyRows(Twin twin, const CalculationInput& input, SharedRegisters& shared,
                           UserPort& port) {
    if (!input.controlPerTreatment)
        return false;
    const TextTable& grid2 = input.responses;
    const int lastColumn = grid2.cols() - 1;
    for (int row = 1; row < grid2.rows(); ++row) {
        if (!grid2.text(row, lastColumn).empty())
            continue;
        if (twin == Twin::Line) {
            port.warn("Morvane detected missing data\nline no. " + RowNumber(row) +
                      " which is labeled " + grid2.text(row, 0) +
                      "\nhas only control value.\nPlease add treated value or remove all "
                      "the replicates of this point.");
        } else {
            // BatchFailed is left as it was: the comparison sees no failure here.
            shared.BatchMessage = "Can't calculate " + shared.BatchName;
        }
        return true;
    }
    return false;
}

// The doses scaled so that the smallest is at least 1, each dose row
// written into the results Grid1 (dose, scaled dose, log dose, treated, corrected
// response), and the sums of log dose and empirical probit for the provisional line.
ProvisionalSums WriteDataTable(const CalculationInput& input, SharedRegisters& shared,
                               ResultsTables& results) {
    const TextTable& grid2 = input.responses;
    FitResult& fit = shared.fit;
    const int lastColumn = grid2.cols() - 1;
    fit.DoseScale = 1;
    const int c = input.controlPerTreatment ? 0 : 1;
    results.Grid1.setCols(datacol::Count);
    results.Grid1.setRows(grid2.rows() - c);
    if (results.Grid22.rows() < statrow::Count)
        results.Grid22.setRows(statrow::Count);
    if (results.Grid22.cols() < statcol::Count)
        results.Grid22.setCols(statcol::Count);

    fit.DoseScale = ScaleForSmallestDose(grid2.text(c + 1, 0));

    ProvisionalSums sums;
    for (int i = c + 1; i < grid2.rows(); ++i) {
        const int k = i - c;
        const std::string& dose = grid2.text(i, 0);
        results.Grid1.setText(k, datacol::Dose, dose);
        const double x = NumberOf(dose) * fit.DoseScale;
        results.Grid1.setText(k, datacol::ScaledDose, PlainText(x));
        if (!(x > 0))
            throw Fault("the dose " + dose + " has no logarithm");
        const double logDose = Log10(x);
        results.Grid1.setText(k, datacol::LogDose, FormatNumber(logDose, "0.0000"));
        results.Grid1.setText(k, datacol::Treated, grid2.text(i, 1));
        results.Grid1.setText(k, datacol::Observed, grid2.text(i, lastColumn));
        const double probitValue =
            NumberOf(shared.probit.PercentToProbit(grid2.text(i, lastColumn)));
        sums.Sx += logDose;
        sums.Sy += probitValue;
        sums.Sxx += logDose * logDose;
        sums.Sxy += logDose * probitValue;
        sums.X.push_back(logDose);
        sums.Y.push_back(probitValue);
    }
    return sums;
}

// The provisional line: an unweighted regression of the empirical probits on log
// dose, with its correlation. A line whose log doses are all equal is refused as an
// illegal slope; otherwise the slope tests decide.
CalculationOutcome FitProvisionalLine(Twin twin, const ProvisionalSums& sums,
                                      SharedRegisters& shared, UserPort& port) {
    FitResult& fit = shared.fit;
    const int n = static_cast<int>(sums.X.size());
    fit.MeanLogDose = sums.Sx / n;
    fit.MeanProbit = sums.Sy / n;
    double sdxy = 0, sdx2 = 0, sdy2 = 0;
    bool allLogDosesEqual = true;
    for (int k = 0; k < n; ++k) {
        const double dx = sums.X[static_cast<std::size_t>(k)] - fit.MeanLogDose;
        const double dy = sums.Y[static_cast<std::size_t>(k)] - fit.MeanProbit;
        sdxy += dx * dy;
        sdx2 += dx * dx;
        sdy2 += dy * dy;
        if (sums.X[static_cast<std::size_t>(k)] != sums.X[0])
            allLogDosesEqual = false;
    }
    // With every log dose equal r would divide 0 by 0 before the slope test that
    // catches this line: refuse it as that test does.
    if (allLogDosesEqual)
        return RefuseIllegalSlope(twin, shared, port);
    const double product = sdx2 * sdy2;
    if (product == 0)
        throw Fault("every dose gives the same probit, so the correlation r divides by zero");
    fit.Correlation = sdxy / std::pow(product, 0.5);
    const double d = sums.Sxx - sums.Sx * sums.Sx / n;
    if (d == 0)
        return RefuseIllegalSlope(twin, shared, port);
    fit.Slope = (sums.Sxy - sums.Sx * sums.Sy / n) / d;
    return TestSlope(twin, fit.Slope, shared, port);
}

CalculationOutcome Calculate(Twin twin, const CalculationInput& input, SharedRegisters& shared,
                             ResultsTables& results, UserPort& port,
                             const ResultsChannel& channel) {
    if (RefuseTooFewDoses(twin, input, shared))
        return CalculationOutcome::Refused;
    shared.fit.SumWeights = 0;
    if (ValidateResponses(input, twin == Twin::Line, shared, port) == 1)
        return CalculationOutcome::Refused;
    if (RefuseControlOnlyRows(twin, input, shared, port))
        return CalculationOutcome::Refused;

    results.Caption = "Results, " + input.fileTitle;
    const ProvisionalSums sums = WriteDataTable(input, shared, results);
    const CalculationOutcome provisional = FitProvisionalLine(twin, sums, shared, port);
    if (provisional != CalculationOutcome::Completed)
        return provisional;

    const int n = results.Grid1.rows() - 1;
    const CycleSums cycles = RunCycles(results.Grid1, n, shared.fit, shared.probit);
    shared.fit.CyclesSettled = cycles.settled;
    WriteExpectedValues(results.Grid1, n, shared.fit, shared.probit);
    WriteStatistics(results, n, cycles, input.tAlpha, shared.fit);

    if (channel) {
        channel(1);
        channel(2);
        channel(5);
    }
    shared.probit.reset();
    return CalculationOutcome::Completed;
}

CalculationOutcome GuardedCalculate(Twin twin, const CalculationInput& input,
                                    SharedRegisters& shared, ResultsTables& results, UserPort& port,
                                    const ResultsChannel& channel) {
    std::string reason;
    try {
        return Calculate(twin, input, shared, results, port, channel);
    } catch (const Fault& fault) {
        reason = fault.what();
    } catch (const std::out_of_range& error) {
        reason = std::string("the response table is not complete (") + error.what() + ")";
    }
    if (twin == Twin::Line) {
        port.tellError(CalculationFaultMessage(reason));
    } else {
        shared.BatchMessage = "Can't calculate " + shared.BatchName + ":\n" + reason;
        shared.BatchFailed = 1;
    }
    return CalculationOutcome::Refused;
}

}  // namespace

bool CalculateEnabled(const TextTable& responses, bool controlPerTreatment) {
    return responses.rows() >= (controlPerTreatment ? 4 : 5);
}

int ValidateResponses(const CalculationInput& input, bool mainVisible, SharedRegisters& shared,
                      UserPort& port) {
    const TextTable& grid2 = input.responses;
    const int column = input.controlPerTreatment ? 4 : 3;
    const int first = input.controlPerTreatment ? 0 : 1;
    bool red = false;
    if (column < grid2.cols()) {
        for (int row = first; row < grid2.rows() && !red; ++row)
            red = grid2.fore(row, column) == kRed;
    }
    if (!red)
        return 0;
    if (mainVisible) {
        port.tell(
            "Your data contain unacceptable values and can't be calculated\nCorrected response "
            "percentage more than 99.9% or less than 0.1% cant be calculated.");
    } else {
        shared.BatchMessage = "Can't calculate " + shared.BatchName;
        shared.BatchFailed = 1;
    }
    return 1;
}

CalculationOutcome CalculateLine(const CalculationInput& input, SharedRegisters& shared,
                                 ResultsTables& results, UserPort& port,
                                 const ResultsChannel& channel) {
    return GuardedCalculate(Twin::Line, input, shared, results, port, channel);
}

CalculationOutcome CalculateFile(const CalculationInput& input, SharedRegisters& shared,
                                 ResultsTables& results, UserPort& port,
                                 const ResultsChannel& channel) {
    return GuardedCalculate(Twin::File, input, shared, results, port, channel);
}

std::string CalculationFaultMessage(const std::string& reason) {
    return "Morvane stopped the calculation:\n" + reason + ".\nNo results were made.";
}

}  // namespace morvane
