// Grid2, the response table, derived from Grid1 after every change: the replicates of
// each dose pooled into a mean response, and that response corrected for the control
// by Abbott's formula, (P - C) / (100 - C) x 100, on the means as written.
#include <cstdint>
#include <limits>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/LineCalculation.h"
#include "core/NumberText.h"
#include "document/DataTable.h"

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
        grid2.setBack(1, matchedcol::Control, kControlColor);
    } else {
        for (int c = responsecol::Total; c < grid2.cols(); ++c)
            grid2.setBack(1, c, kControlColor);
    }
}

// The replicates of one dose, summed while Grid1 is walked.
struct PooledDose {
    std::string dose;  // the dose's text; empty before the first row
    double totals = 0, weights = 0, responses = 0;
};

// The rows of Grid2 without a control per treatment: the control's mean in row 1, the
// treatments' means from row 2 with their band colours.
class Pooling {
  public:
    Pooling(TextTable& grid2, const TableRules& rules, const EntryLayout& layout)
        : grid2_(grid2), rules_(rules), layout_(layout) {}

    // Walks Grid1's data rows and the empty last row, which ends the last dose.
    void run(const TextTable& grid1) {
        const int last = grid1.rows() - 1;
        for (int r = 1; r <= last; ++r) {
            // Doses are grouped by their text: "10" and "10.0" are two doses here.
            const std::string& dose = grid1.text(r, dosecol::Dose);
            if (dose != sums_.dose && !sums_.dose.empty()) {
                writeDose();
                if (r == last)
                    break;
            }
            add(grid1, r);
            if (grid1.text(r, dosecol::Label) == "T")
                bands.emplace_back(r, colour());
        }
    }

    std::vector<std::pair<int, std::optional<Color>>> bands;

  private:
    std::optional<Color> colour() const { return band_ == 1 ? DefaultCellColor : kBandColor; }

    void add(const TextTable& grid1, int r) {
        const bool type2 = rules_.dataType == DataType::ResponsePercentage;
        const double total = type2 ? 100 : NumberOf(grid1.text(r, layout_.TotalColumn));
        const double weight = rules_.weighting ? total : 1;
        sums_.responses += NumberOf(grid1.text(r, layout_.PercentColumn)) * weight;
        sums_.totals += total;
        sums_.weights += weight;
        sums_.dose = grid1.text(r, dosecol::Dose);
    }

    void writeDose() {
        const double mean = Mean(sums_.responses, sums_.weights, sums_.dose);
        int target = 1;
        if (sums_.dose != "0") {
            grid2_.addRow();
            target = grid2_.rows() - 1;
            for (int c = responsecol::Total; c < grid2_.cols(); ++c)
                grid2_.setBack(target, c, colour());
            band_ = 1 - band_;
        }
        grid2_.setText(target, responsecol::Dose, sums_.dose);
        grid2_.setText(target, responsecol::Total, PlainText(sums_.totals));
        grid2_.setText(target, responsecol::Response, FormatNumber(mean, "0.000"));
        sums_ = PooledDose{};
    }

    TextTable& grid2_;
    const TableRules& rules_;
    const EntryLayout& layout_;
    PooledDose sums_;
    int band_ = 1;
};

// The corrected responses of Grid2 without a control per treatment.
void CorrectForControl(TextTable& grid2) {
    if (grid2.text(1, responsecol::Dose).empty()) {
        // No control: the response is its own corrected response.
        for (int i = 2; i < grid2.rows(); ++i) {
            grid2.setText(i, responsecol::Corrected, grid2.text(i, responsecol::Response));
            grid2.setFore(i, responsecol::Corrected,
                          ResponseLetters(grid2.text(i, responsecol::Corrected)));
        }
        return;
    }
    const double control = NumberOf(grid2.text(1, responsecol::Response));
    for (int i = 1; i < grid2.rows(); ++i) {
        grid2.setText(i, responsecol::Corrected,
                      Corrected(NumberOf(grid2.text(i, responsecol::Response)), control));
        // The control's own row keeps the default letters.
        if (i >= 2)
            grid2.setFore(i, responsecol::Corrected,
                          ResponseLetters(grid2.text(i, responsecol::Corrected)));
    }
}

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

// The doses of Grid1, in the order they first stand, compared by number, as rows of
// Grid2 (dose text and control colour); gives the Grid2 row of each Grid1 row.
std::vector<int> MatchedDoseRows(const TextTable& grid1, TextTable& grid2) {
    std::unordered_map<double, int> rowOfDose;
    std::vector<int> doseRow(static_cast<std::size_t>(grid1.rows()), 0);
    for (int r = 1; r <= grid1.rows() - 2; ++r) {
        double dose = NumberOf(grid1.text(r, dosecol::Dose));
        if (dose == 0)
            dose = 0;  // -0 and 0 are one dose
        auto [it, added] = rowOfDose.try_emplace(dose, grid2.rows() - 1);
        if (added) {
            grid2.setText(it->second, matchedcol::Dose, grid1.text(r, dosecol::Dose));
            grid2.setBack(it->second, matchedcol::Control, kControlColor);
            grid2.addRow();
        }
        doseRow[static_cast<std::size_t>(r)] = it->second;
    }
    grid2.removeRow(grid2.rows() - 1);
    return doseRow;
}

// The treated and control means of each dose of the matched Grid2.
void WriteMatchedMeans(const TextTable& grid1, const std::vector<int>& doseRow,
                       const TableRules& rules, const EntryLayout& layout, TextTable& grid2) {
    const bool type2 = rules.dataType == DataType::ResponsePercentage;
    std::vector<DoseSums> treated(static_cast<std::size_t>(grid2.rows()));
    std::vector<DoseSums> controls(static_cast<std::size_t>(grid2.rows()));
    for (int r = 1; r <= grid1.rows() - 2; ++r) {
        const int i = doseRow[static_cast<std::size_t>(r)];
        const double total = type2 ? 100 : NumberOf(grid1.text(r, layout.TotalColumn));
        const double weight = rules.weighting ? total : 1;
        DoseSums& sums = grid1.text(r, dosecol::Label) == "T"
                             ? treated[static_cast<std::size_t>(i)]
                             : controls[static_cast<std::size_t>(i)];
        sums.totals += total;
        sums.weights = AddWeight(sums.weights, weight, grid1.text(r, dosecol::Dose));
        sums.responses += NumberOf(grid1.text(r, layout.PercentColumn)) * weight;
        sums.any = true;
    }
    for (int i = 1; i < grid2.rows(); ++i) {
        const DoseSums& t = treated[static_cast<std::size_t>(i)];
        const DoseSums& c = controls[static_cast<std::size_t>(i)];
        const std::string& dose = grid2.text(i, matchedcol::Dose);
        if (t.any) {
            grid2.setText(i, matchedcol::Total, PlainText(t.totals));
            grid2.setText(i, matchedcol::Treated,
                          FormatNumber(Mean(t.responses, t.weights, dose), "0.000"));
        }
        if (c.any)
            grid2.setText(i, matchedcol::Control,
                          FormatNumber(Mean(c.responses, c.weights, dose), "0.000"));
    }
}

// A dose without a control of its own is not corrected; nothing is carried over from
// another dose.
void CorrectForOwnControls(TextTable& grid2) {
    for (int i = 1; i < grid2.rows(); ++i) {
        const std::string& controlText = grid2.text(i, matchedcol::Control);
        const double control = controlText.empty() ? 0 : NumberOf(controlText);
        if (grid2.text(i, matchedcol::Treated).empty())
            continue;
        grid2.setText(i, matchedcol::Corrected,
                      Corrected(NumberOf(grid2.text(i, matchedcol::Treated)), control));
        grid2.setFore(i, matchedcol::Corrected,
                      ResponseLetters(grid2.text(i, matchedcol::Corrected)));
    }
}

}  // namespace

DataTable::Responses DataTable::Build(const TextTable& grid1, const TableRules& rules) const {
    return layout_.CheckCoVisible ? BuildMatchedResponses(grid1, rules)
                                  : BuildResponses(grid1, rules);
}

DataTable::Responses DataTable::BuildResponses(const TextTable& grid1,
                                               const TableRules& rules) const {
    Responses out{grid2_, {}, {}};  // built aside, so that a fault leaves Grid2 as it was
    Clear(out.grid2, false);
    if (grid1.rows() != 2) {
        Pooling pooling(out.grid2, rules, layout_);
        pooling.run(grid1);
        out.bands = std::move(pooling.bands);
        CorrectForControl(out.grid2);
    }
    out.calculateEnabled = morvane::CalculateEnabled(out.grid2, false);
    return out;
}

DataTable::Responses DataTable::BuildMatchedResponses(const TextTable& grid1,
                                                      const TableRules& rules) const {
    Responses out{grid2_, {}, {}};
    Clear(out.grid2, true);
    if (grid1.rows() != 2) {
        const std::vector<int> doseRow = MatchedDoseRows(grid1, out.grid2);
        WriteMatchedMeans(grid1, doseRow, rules, layout_, out.grid2);
        CorrectForOwnControls(out.grid2);
        out.calculateEnabled = morvane::CalculateEnabled(out.grid2, true);
    }
    return out;
}

void DataTable::commit(TextTable grid1, Responses responses) {
    grid1_ = std::move(grid1);
    sortPending_ = false;
    putResponses(std::move(responses));
}

void DataTable::putResponses(Responses responses) {
    grid2_ = std::move(responses.grid2);
    for (const auto& [row, colour] : responses.bands)
        for (int c = dosecol::FirstValue; c < grid1_.cols(); ++c)
            grid1_.setBack(row, c, colour);
    if (responses.calculateEnabled)
        calculateEnabled_ = *responses.calculateEnabled;
    grid1_.setCurrent(grid1_.currentRow(), dosecol::FirstValue);
}

void DataTable::RebuildResponseTable(const TableRules& rules) {
    putResponses(Build(Grid1(), rules));
}

void DataTable::ClearResponseTable() {
    Grid1();
    Clear(grid2_, layout_.CheckCoVisible);
}

}  // namespace morvane
