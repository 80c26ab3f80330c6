// Grid2, the response table, derived from Grid1 after every change: the replicates of
// each dose pooled into a mean response, and that response corrected for the control
// by Abbott's formula, (P - C) / (100 - C) x 100, on the means as written.
#include <cstdint>
#include <limits>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/NumberText.h"
#include "document/LineDocument.h"

namespace morvane {
namespace {

// The corrected response written as text, from the written mean P and control C.
std::string Corrected(double p, double c) {
    if (100 - c == 0)
        throw Fault(
            "the control response is 100%, so no response can be corrected for it "
            "(a division by zero)");
    return FormatNumber((p - c) / (100 - c) * 100, "0.000");
}

// Red letters for a response outside 0.1 to 99.9, judged on the written text.
std::optional<Color> ResponseLetters(const std::string& written) {
    const double v = NumberOf(written);
    return v < 0.1 || v > 99.9 ? std::optional<Color>(kRed) : std::nullopt;
}

double Mean(double weighted, double weights, const std::string& dose) {
    if (weights == 0)
        throw Fault("the replicates of the dose " + dose +
                    " weigh nothing together (a division by zero)");
    return weighted / weights;
}

// The clearing of Grid2 to its heading and the empty first row, painted as the
// control's row.
void Clear(TextTable& grid2, bool checkCoVisible) {
    grid2.setRows(2);
    for (int c = 0; c < grid2.cols(); ++c)
        grid2.setText(1, c, "");
    if (checkCoVisible) {
        grid2.setBack(1, 3, kControlColor);
    } else {
        for (int c = 1; c < grid2.cols(); ++c)
            grid2.setBack(1, c, kControlColor);
    }
}

}  // namespace

void LineDocument::ClearResponseTable() {
    settleGrid1();
    Clear(form_.Grid2, form_.CheckCoVisible);
}

void LineDocument::RebuildResponseTable() {
    if (form_.CheckCoVisible) {
        RebuildMatchedResponseTable();
        return;
    }
    settleGrid1();
    const TextTable& grid1 = form_.Grid1;
    TextTable grid2 = form_.Grid2;  // built aside, so that a fault leaves Grid2 as it was
    Clear(grid2, false);
    // The band colour of each treatment row of Grid1, painted when all went well.
    std::vector<std::pair<int, std::optional<Color>>> bands;

    if (grid1.rows() != 2) {
        const bool type2 = options_.controls.ComboDataType == 2;
        const bool weighting = options_.ReplicatesWeighting();
        const int last = grid1.rows() - 1;
        std::string previous;
        double sumTotals = 0, sumWeights = 0, sumResponses = 0;
        int band = 1;
        for (int r = 1; r <= last; ++r) {
            // Doses are grouped by their text: "10" and "10.0" are two doses here.
            const std::string& dose = grid1.text(r, 1);
            if (dose != previous && !previous.empty()) {
                const double mean = Mean(sumResponses, sumWeights, previous);
                int target = 1;
                if (previous != "0") {
                    grid2.addRow();
                    target = grid2.rows() - 1;
                    for (int c = 1; c < grid2.cols(); ++c)
                        grid2.setBack(target, c, band == 1 ? DefaultCellColor : kBandColor);
                    band = 1 - band;
                }
                grid2.setText(target, 0, previous);
                grid2.setText(target, 1, PlainText(sumTotals));
                grid2.setText(target, 2, FormatNumber(mean, "0.000"));
                sumTotals = sumWeights = sumResponses = 0;
                if (r == last)
                    break;
            }
            const double total = type2 ? 100 : NumberOf(grid1.text(r, form_.TotalColumn));
            const double weight = weighting ? total : 1;
            sumResponses += NumberOf(grid1.text(r, form_.PercentColumn)) * weight;
            sumTotals += total;
            sumWeights += weight;
            previous = dose;
            if (grid1.text(r, 0) == "T")
                bands.emplace_back(r, band == 1 ? DefaultCellColor : kBandColor);
        }

        if (grid2.text(1, 0).empty()) {
            // No control: the response is its own corrected response.
            for (int i = 2; i < grid2.rows(); ++i) {
                grid2.setText(i, 3, grid2.text(i, 2));
                grid2.setFore(i, 3, ResponseLetters(grid2.text(i, 3)));
            }
        } else {
            const double control = NumberOf(grid2.text(1, 2));
            for (int i = 1; i < grid2.rows(); ++i) {
                grid2.setText(i, 3, Corrected(NumberOf(grid2.text(i, 2)), control));
                // The control's own row keeps the default letters.
                if (i >= 2)
                    grid2.setFore(i, 3, ResponseLetters(grid2.text(i, 3)));
            }
        }
    }

    form_.Grid2 = std::move(grid2);
    TextTable& table = form_.Grid1;
    for (const auto& [row, colour] : bands)
        for (int c = 2; c < table.cols(); ++c)
            table.setBack(row, c, colour);
    form_.CommandCalcEnabled = morvane::CalculateEnabled(form_.Grid2, false);
    table.setCurrent(table.currentRow(), 2);
    notify();
}

namespace {

// A sum of weights held in 16 bits, rounded at every addition.
std::int16_t AddWeight(std::int16_t sum, double weight, const std::string& dose) {
    const std::optional<std::int32_t> whole = RoundHalfEven32(sum + weight);
    if (!whole || *whole > std::numeric_limits<std::int16_t>::max() ||
        *whole < std::numeric_limits<std::int16_t>::min())
        throw Fault("the replicates of the dose " + dose +
                    " weigh more than 32767 together (an overflow)");
    return static_cast<std::int16_t>(*whole);
}

struct DoseSums {
    double totals = 0, responses = 0;
    std::int16_t weights = 0;
    bool any = false;
};

}  // namespace

void LineDocument::RebuildMatchedResponseTable() {
    settleGrid1();
    const TextTable& grid1 = form_.Grid1;
    TextTable grid2 = form_.Grid2;
    Clear(grid2, true);

    if (grid1.rows() != 2) {
        // The doses, in the order they first stand in Grid1, compared by number.
        std::unordered_map<double, int> rowOfDose;
        std::vector<int> doseRow(static_cast<std::size_t>(grid1.rows()), 0);
        for (int r = 1; r <= grid1.rows() - 2; ++r) {
            double dose = NumberOf(grid1.text(r, 1));
            if (dose == 0)
                dose = 0;  // -0 and 0 are one dose
            auto [it, added] = rowOfDose.try_emplace(dose, grid2.rows() - 1);
            if (added) {
                grid2.setText(it->second, 0, grid1.text(r, 1));
                grid2.setBack(it->second, 3, kControlColor);
                grid2.addRow();
            }
            doseRow[static_cast<std::size_t>(r)] = it->second;
        }
        grid2.removeRow(grid2.rows() - 1);

        const bool type2 = options_.controls.ComboDataType == 2;
        const bool weighting = options_.ReplicatesWeighting();
        std::vector<DoseSums> treated(static_cast<std::size_t>(grid2.rows()));
        std::vector<DoseSums> controls(static_cast<std::size_t>(grid2.rows()));
        for (int r = 1; r <= grid1.rows() - 2; ++r) {
            const int i = doseRow[static_cast<std::size_t>(r)];
            const double total = type2 ? 100 : NumberOf(grid1.text(r, form_.TotalColumn));
            const double weight = weighting ? total : 1;
            DoseSums& sums = grid1.text(r, 0) == "T" ? treated[static_cast<std::size_t>(i)]
                                                     : controls[static_cast<std::size_t>(i)];
            sums.totals += total;
            sums.weights = AddWeight(sums.weights, weight, grid1.text(r, 1));
            sums.responses += NumberOf(grid1.text(r, form_.PercentColumn)) * weight;
            sums.any = true;
        }
        for (int i = 1; i < grid2.rows(); ++i) {
            const DoseSums& t = treated[static_cast<std::size_t>(i)];
            const DoseSums& c = controls[static_cast<std::size_t>(i)];
            const std::string& dose = grid2.text(i, 0);
            if (t.any) {
                grid2.setText(i, 1, PlainText(t.totals));
                grid2.setText(i, 2, FormatNumber(Mean(t.responses, t.weights, dose), "0.000"));
            }
            if (c.any)
                grid2.setText(i, 3, FormatNumber(Mean(c.responses, c.weights, dose), "0.000"));
        }

        // A dose without a control of its own is not corrected; nothing is carried
        // over from another dose.
        for (int i = 1; i < grid2.rows(); ++i) {
            const double control = grid2.text(i, 3).empty() ? 0 : NumberOf(grid2.text(i, 3));
            if (grid2.text(i, 2).empty())
                continue;
            grid2.setText(i, 4, Corrected(NumberOf(grid2.text(i, 2)), control));
            grid2.setFore(i, 4, ResponseLetters(grid2.text(i, 4)));
        }
        form_.CommandCalcEnabled = morvane::CalculateEnabled(grid2, true);
    }

    form_.Grid2 = std::move(grid2);
    TextTable& table = form_.Grid1;
    table.setCurrent(table.currentRow(), 2);
    notify();
}

}  // namespace morvane
