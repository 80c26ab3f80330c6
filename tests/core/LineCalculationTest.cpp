// The calculation of one line from the response table: data checks, dose scaling,
// the provisional line and its slope tests, the cycles and the statistics.
#include "core/LineCalculation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/DoseEstimates.h"
#include "core/LineFit.h"
#include "core/NumberText.h"
#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

using testing::ScriptedUserPort;

struct Dose {
    std::string dose, total, corrected;
    bool red = false;
};

// A response table in the unpaired layout: row 1 reserved for the control (empty
// when there is none), treatments from row 2. Response and corrected cells are the
// same text: without a control the corrected cell is a copy of the response.
TextTable UnpairedTable(const std::vector<Dose>& doses, const std::string& control = "") {
    TextTable t(2 + static_cast<int>(doses.size()), 4);
    t.setText(0, 0, "Dose\n()");
    t.setText(0, 1, "Total");
    t.setText(0, 2, "Response\n%");
    t.setText(0, 3, "Corrected\nResponse\n%");
    if (!control.empty()) {
        t.setText(1, 0, "0");
        t.setText(1, 2, control);
    }
    for (std::size_t i = 0; i < doses.size(); ++i) {
        const int row = 2 + static_cast<int>(i);
        t.setText(row, 0, doses[i].dose);
        t.setText(row, 1, doses[i].total);
        t.setText(row, 2, doses[i].corrected);
        t.setText(row, 3, doses[i].corrected);
        if (doses[i].red)
            t.setFore(row, 3, kRed);
    }
    return t;
}

// The paired layout: one row a dose from row 1, with treated, control and corrected
// cells.
struct PairedDose {
    std::string dose, total, treated, control, corrected;
};
TextTable PairedTable(const std::vector<PairedDose>& doses) {
    TextTable t(1 + static_cast<int>(doses.size()), 5);
    for (std::size_t i = 0; i < doses.size(); ++i) {
        const int row = 1 + static_cast<int>(i);
        t.setText(row, 0, doses[i].dose);
        t.setText(row, 1, doses[i].total);
        t.setText(row, 2, doses[i].treated);
        t.setText(row, 3, doses[i].control);
        t.setText(row, 4, doses[i].corrected);
    }
    return t;
}

const std::vector<Dose> kWorked = {{"0.5", "50", "4.000"},
                                   {"1", "50", "14.000"},
                                   {"2", "50", "32.000"},
                                   {"4", "50", "62.000"},
                                   {"8", "50", "86.000"}};

struct Session {
    SharedRegisters shared;
    ResultsTables results;
    ScriptedUserPort port;
    std::vector<int> channel;

    CalculationOutcome line(const TextTable& table, bool paired = false, int tAlpha = 1) {
        CalculationInput input{table, paired, tAlpha, "worked.mrv"};
        return CalculateLine(input, shared, results, port,
                             [this](int code) { channel.push_back(code); });
    }
    CalculationOutcome file(const TextTable& table, bool paired = false) {
        CalculationInput input{table, paired, 1, "worked.mrv"};
        return CalculateFile(input, shared, results, port,
                             [this](int code) { channel.push_back(code); });
    }
};

// The worked example: five doses doubling from 0.5, 50 insects each, responses of
// 4, 14, 32, 62 and 86 percent, no control, t at 0.05. The expected texts were
// derived by an independent calculation from the method's formulas (the probit
// tables, five cycles on working probits, Fieller's limits).
TEST(WorkedExample, EveryCellOfTheDataTable) {
    Session run;
    ASSERT_EQ(run.line(UnpairedTable(kWorked)), CalculationOutcome::Completed);
    EXPECT_TRUE(run.port.messages.empty());
    EXPECT_EQ(run.results.Caption, "Results, worked.mrv");
    EXPECT_EQ(run.results.Grid1.rows(), 6);
    const std::string rows[] = {
        "0.5\t5\t0.6990\t50\t4.000\t3.46252\t3.1794", "1\t10\t1.0000\t50\t14.000\t13.3781\t3.8910",
        "2\t20\t1.3010\t50\t32.000\t34.5584\t4.6027", "4\t40\t1.6021\t50\t62.000\t62.3441\t5.3146",
        "8\t80\t1.9031\t50\t86.000\t84.7575\t6.0262",
    };
    for (int k = 1; k <= 5; ++k) {
        std::string line;
        for (int c = 0; c < 7; ++c)
            line += (c ? "\t" : "") + run.results.Grid1.text(k, c);
        EXPECT_EQ(line, rows[k - 1]) << "row " << k;
    }
    EXPECT_EQ(run.channel, (std::vector<int>{1, 2, 5}));
}

TEST(WorkedExample, StatisticsTable) {
    Session run;
    ASSERT_EQ(run.line(UnpairedTable(kWorked)), CalculationOutcome::Completed);
    const TextTable& g = run.results.Grid22;
    EXPECT_EQ(g.text(statrow::Slope, statcol::Value), "2.3643");
    EXPECT_EQ(g.text(statrow::Slope, statcol::Tabulated), "+/-  0.2627");
    EXPECT_EQ(g.text(statrow::ChiSquare, statcol::Value), "0.2731");
    EXPECT_EQ(g.text(statrow::ChiSquare, statcol::Tabulated), "tabulated  7.8");
    EXPECT_FALSE(g.fore(statrow::ChiSquare, statcol::Value));
    EXPECT_EQ(g.text(statrow::P, statcol::Value), "0.965");
    EXPECT_EQ(g.text(statrow::H, statcol::Value), "0.0910");
    EXPECT_EQ(g.text(statrow::G, statcol::Value), "0.0474");
    EXPECT_FALSE(g.fore(statrow::G, statcol::Value));
    EXPECT_EQ(g.text(statrow::R, statcol::Value), "0.9988");
    EXPECT_EQ(g.text(statrow::R, statcol::Tabulated), "tabulated  0.878");
    const FitResult& fit = run.shared.fit;
    EXPECT_EQ(fit.DoseScale, 10);
    EXPECT_EQ(fit.DegreesOfFreedom, 3);
    EXPECT_EQ(fit.HeterogeneityFactor, 1);
    EXPECT_EQ(fit.TValue, 1.96);
    EXPECT_EQ(FormatNumber(fit.MeanLogDose, "0.000000"), "1.398946");
    EXPECT_EQ(FormatNumber(fit.MeanProbit, "0.000000"), "4.834266");
    EXPECT_EQ(FormatNumber(fit.SumWeights, "0.0000"), "111.0406");
    EXPECT_EQ(run.results.Text8, "");
}

TEST(WorkedExample, EstimatesWithFiducialLimits) {
    Session run;
    ASSERT_EQ(run.line(UnpairedTable(kWorked)), CalculationOutcome::Completed);
    struct Expected {
        double percent;
        const char *dose, *lower, *upper;
    };
    const Expected expected[] = {
        {25, "1.5267", "1.1984", "1.8513"},    {50, "2.9447", "2.4567", "3.5869"},
        {75, "5.6797", "4.5454", "7.6996"},    {90, "10.259", "7.5872", "15.9618"},
        {95, "14.6139", "10.2365", "24.8675"}, {99, "28.3771", "17.8384", "57.4816"},
        {1, "0.3056", "0.1643", "0.4608"},
    };
    for (const Expected& e : expected) {
        run.shared.WorkValue = e.percent;
        EstimateAtPercent(run.shared);
        EXPECT_EQ(PlainText(run.shared.WorkValue), e.dose) << e.percent;
        EXPECT_EQ(PlainText(run.shared.LowerLimit), e.lower) << e.percent;
        EXPECT_EQ(PlainText(run.shared.UpperLimit), e.upper) << e.percent;
    }
}

TEST(CalculationDriver, ThreeDosesWithoutControlLeaveRowOneEmpty) {
    Session run;
    const TextTable table =
        UnpairedTable({{"1", "20", "10.000"}, {"10", "20", "50.000"}, {"100", "20", "90.000"}});
    ASSERT_EQ(table.rows(), 5);
    ASSERT_TRUE(CalculateEnabled(table, false));
    ASSERT_EQ(run.line(table), CalculationOutcome::Completed);
    EXPECT_EQ(run.results.Grid1.rows(), 4);
    EXPECT_EQ(run.shared.fit.DegreesOfFreedom, 1);
    EXPECT_EQ(run.results.Grid22.text(statrow::R, statcol::Tabulated), "tabulated  0.997");
    EXPECT_EQ(run.results.Grid22.text(statrow::ChiSquare, statcol::Tabulated), "tabulated  3.8");
}

TEST(CalculationDriver, CalculateNeedsThreeDoseRows) {
    EXPECT_FALSE(
        CalculateEnabled(UnpairedTable({{"1", "20", "10.000"}, {"2", "20", "20.000"}}), false));
    EXPECT_FALSE(CalculateEnabled(
        PairedTable({{"1", "20", "10.000", "", "10.000"}, {"2", "20", "30.000", "", "30.000"}}),
        true));
    EXPECT_TRUE(CalculateEnabled(PairedTable({{"1", "20", "10.000", "", "10.000"},
                                              {"2", "20", "30.000", "", "30.000"},
                                              {"4", "20", "60.000", "", "60.000"}}),
                                 true));
}

TEST(CalculationDriver, SmallDosesAreScaledByAPowerOfTen) {
    Session run;
    ASSERT_EQ(run.line(UnpairedTable(
                  {{"0.001", "20", "10.000"}, {"0.01", "20", "50.000"}, {"0.1", "20", "90.000"}})),
              CalculationOutcome::Completed);
    EXPECT_EQ(run.shared.fit.DoseScale, 1000);
    EXPECT_EQ(run.results.Grid1.text(1, datacol::ScaledDose), "1");
    EXPECT_EQ(run.results.Grid1.text(1, datacol::LogDose), "0.0000");
    EXPECT_EQ(run.results.Grid1.text(2, datacol::LogDose), "1.0000");
    EXPECT_EQ(run.results.Grid1.text(3, datacol::LogDose), "2.0000");
}

TEST(CalculationDriver, DoseScaleOfOneAndOfTen) {
    Session a;
    ASSERT_EQ(a.line(UnpairedTable(
                  {{"1", "20", "10.000"}, {"10", "20", "50.000"}, {"100", "20", "90.000"}})),
              CalculationOutcome::Completed);
    EXPECT_EQ(a.shared.fit.DoseScale, 1);
    Session b;
    ASSERT_EQ(b.line(UnpairedTable(
                  {{"0.5", "20", "10.000"}, {"10", "20", "50.000"}, {"100", "20", "90.000"}})),
              CalculationOutcome::Completed);
    EXPECT_EQ(b.shared.fit.DoseScale, 10);
    EXPECT_EQ(b.results.Grid1.text(1, datacol::ScaledDose), "5");
}

TEST(CalculationDriver, ADoseTooSmallToScaleIsReportedNotAnEnd) {
    Session run;
    const TextTable table =
        UnpairedTable({{"1E-10", "20", "10.000"}, {"10", "20", "50.000"}, {"100", "20", "90.000"}});
    EXPECT_EQ(run.line(table), CalculationOutcome::Refused);
    ASSERT_EQ(run.port.messages.size(), 1u);
    EXPECT_EQ(run.port.messages[0].text,
              CalculationFaultMessage("the smallest dose, 1E-10, can't be brought to 1 or more "
                                      "by a power of ten (the dose scale overflows)"));
    EXPECT_TRUE(run.channel.empty());
}

TEST(CalculationDriver, PairedDoseWithControlOnlyNamesItsRowAndDose) {
    Session run;
    const TextTable table = PairedTable({{"1", "20", "10.000", "5.000", "5.263"},
                                         {"2", "", "", "5.000", ""},
                                         {"4", "20", "60.000", "5.000", "57.895"}});
    EXPECT_EQ(run.line(table, true), CalculationOutcome::Refused);
    EXPECT_EQ(run.port.texts(),
              (std::vector<std::string>{
                  "Morvane detected missing data\nline no. 2 which is labeled 2\nhas only control "
                  "value.\nPlease add treated value or remove all the replicates of this point."}));
}

TEST(CalculationDriver, PairedDoseWithTreatedOnlyIsUsedUncorrected) {
    Session run;
    const TextTable table = PairedTable({{"1", "20", "10.000", "", "10.000"},
                                         {"2", "20", "30.000", "5.000", "26.316"},
                                         {"4", "20", "60.000", "5.000", "57.895"}});
    ASSERT_EQ(run.line(table, true), CalculationOutcome::Completed);
    EXPECT_EQ(run.results.Grid1.rows(), 4);
    EXPECT_EQ(run.results.Grid1.text(1, datacol::Observed), "10.000");
}

TEST(CalculationDriver, CorrectedValuesOfExactlyPointOneAndNinetyNinePointNinePass) {
    Session run;
    ASSERT_EQ(run.line(UnpairedTable(
                  {{"1", "100", "0.100"}, {"10", "100", "50.000"}, {"100", "100", "99.900"}})),
              CalculationOutcome::Completed);
    EXPECT_TRUE(run.port.messages.empty());
}

TEST(CalculationDriver, ARedCorrectedCellRefusesTheData) {
    Session run;
    EXPECT_EQ(
        run.line(UnpairedTable(
            {{"1", "100", "0.050", true}, {"10", "100", "50.000"}, {"100", "100", "90.000"}})),
        CalculationOutcome::Refused);
    EXPECT_EQ(run.port.texts(),
              (std::vector<std::string>{
                  "Your data contain unacceptable values and can't be calculated\nCorrected "
                  "response percentage more than 99.9% or less than 0.1% cant be calculated."}));
    EXPECT_EQ(run.shared.fit.SumWeights, 0);
}

TEST(CalculationDriver, RedCellInBatchFillsTheBatchReport) {
    Session run;
    run.shared.BatchName = "field";
    EXPECT_EQ(
        run.file(UnpairedTable(
            {{"1", "100", "0.050", true}, {"10", "100", "50.000"}, {"100", "100", "90.000"}})),
        CalculationOutcome::Refused);
    EXPECT_TRUE(run.port.messages.empty());
    EXPECT_EQ(run.shared.BatchMessage, "Can't calculate field");
    EXPECT_EQ(run.shared.BatchFailed, 1);
}

TEST(CalculationDriver, BatchWithTooFewDoses) {
    Session run;
    run.shared.BatchName = "short";
    EXPECT_EQ(run.file(UnpairedTable({{"1", "100", "10.000"}, {"10", "100", "50.000"}})),
              CalculationOutcome::Refused);
    EXPECT_EQ(run.shared.BatchMessage, "Can't calculate short");
    EXPECT_EQ(run.shared.BatchFailed, 1);
}

TEST(CalculationDriver, BatchPairedMissingTreatedLeavesBatchFailedAlone) {
    Session run;
    run.shared.BatchName = "paired";
    const TextTable table = PairedTable({{"1", "20", "10.000", "5.000", "5.263"},
                                         {"2", "", "", "5.000", ""},
                                         {"4", "20", "60.000", "5.000", "57.895"}});
    EXPECT_EQ(run.file(table, true), CalculationOutcome::Refused);
    EXPECT_EQ(run.shared.BatchMessage, "Can't calculate paired");
    EXPECT_EQ(run.shared.BatchFailed, 0);
    EXPECT_TRUE(run.port.messages.empty());
}

TEST(SlopeTests, AllLogDosesEqualIsAnIllegalSlope) {
    Session run;
    EXPECT_EQ(
        run.line(UnpairedTable(
            {{"10", "100", "10.000"}, {"10.0", "100", "50.000"}, {"10.00", "100", "90.000"}})),
        CalculationOutcome::Refused);
    EXPECT_EQ(run.port.texts(),
              (std::vector<std::string>{"Your data Revealed an illegal slope\nit has an infinite "
                                        "value\nso your data can't be calculated"}));
}

TEST(SlopeTests, IllegalSlopeInBatchShowsItsBoxAndLeavesBatchFailed) {
    Session run;
    run.shared.BatchName = "same";
    EXPECT_EQ(
        run.file(UnpairedTable(
            {{"10", "100", "10.000"}, {"10.0", "100", "50.000"}, {"10.00", "100", "90.000"}})),
        CalculationOutcome::Refused);
    EXPECT_EQ(run.port.texts(),
              (std::vector<std::string>{"Data in the file same\nrevealed an illegal slope\nit has "
                                        "an infinite value\nso your data can't be calculated"}));
    EXPECT_EQ(run.shared.BatchFailed, 0);
}

// Probits 5 and 5.0001 at log doses 0 and 2 give a slope of about 0.00005 per log
// dose: 50% and the probit just above it.
TEST(SlopeTests, ExtremeFlatSlope) {
    Session run;
    const TextTable table =
        UnpairedTable({{"1", "100", "50.000"}, {"10", "100", "50.000"}, {"100", "100", "50.001"}});
    EXPECT_EQ(run.line(table), CalculationOutcome::Refused);
    EXPECT_EQ(run.port.texts(),
              (std::vector<std::string>{"Your data revealed an extreme flat slope\nit is less than "
                                        "0.0001\nMorvane can't calculate it"}));
    Session batch;
    batch.shared.BatchName = "flat";
    EXPECT_EQ(batch.file(table), CalculationOutcome::Refused);
    EXPECT_EQ(batch.shared.BatchMessage,
              "Data in the file flat\nrevealed an extreme flat slope\nit is less than "
              "0.0001\nMorvane can't calculate it");
    EXPECT_EQ(batch.shared.BatchFailed, 1);
}

TEST(SlopeTests, ExtremeFlatNegativeSlope) {
    Session run;
    EXPECT_EQ(run.line(UnpairedTable(
                  {{"1", "100", "50.001"}, {"10", "100", "50.000"}, {"100", "100", "50.000"}})),
              CalculationOutcome::Refused);
    EXPECT_EQ(run.port.texts(),
              (std::vector<std::string>{"Your data revealed an extreme flat slope\nit is less than "
                                        "0.0001\nMorvane can't calculate it"}));
}

// Doses 1, 1.001, 1.002 differ by 0.00043 in log: a rise of three probits across
// them is a slope far above 1000.
TEST(SlopeTests, ExtremeLargeSlope) {
    Session run;
    const TextTable table = UnpairedTable(
        {{"1", "100", "10.000"}, {"1.001", "100", "50.000"}, {"1.002", "100", "90.000"}});
    EXPECT_EQ(run.line(table), CalculationOutcome::Refused);
    EXPECT_EQ(run.port.texts(), (std::vector<std::string>{
                                    "Your data revealed an extreme large slope\nit is more than "
                                    " 1000\nMorvane can't calculate it"}));
    Session batch;
    batch.shared.BatchName = "steep";
    EXPECT_EQ(batch.file(table), CalculationOutcome::Refused);
    EXPECT_EQ(batch.shared.BatchMessage,
              "Data in the file steep\nrevealed an extreme large slope\nit is more than  "
              "1000\nMorvane can't calculate it");
}

const std::vector<Dose> kReverse = {
    {"1", "50", "86.000"}, {"2", "50", "62.000"}, {"4", "50", "32.000"}, {"8", "50", "14.000"}};

TEST(SlopeTests, ReverseSlopeAsksAndStopsOnNo) {
    Session run;
    run.port.answers.push_back(Answer::No);
    EXPECT_EQ(run.line(UnpairedTable(kReverse)), CalculationOutcome::Declined);
    ASSERT_EQ(run.port.messages.size(), 1u);
    EXPECT_EQ(run.port.messages[0].text,
              "Your data revealed a reverse slope\nit is less than  0\ndo you want to continue ?");
    EXPECT_EQ(run.port.messages[0].buttons, Buttons::YesNo);
    EXPECT_TRUE(run.channel.empty());
}

TEST(SlopeTests, ReverseSlopeGoesOnAtYesAndTheUpperLimitStaysTheLarger) {
    Session run;
    run.port.answers.push_back(Answer::Yes);
    ASSERT_EQ(run.line(UnpairedTable(kReverse)), CalculationOutcome::Completed);
    EXPECT_LT(run.shared.fit.Slope, 0);
    run.shared.WorkValue = 50;
    EstimateAtPercent(run.shared);
    ASSERT_NE(run.shared.UpperLimit, 0);
    EXPECT_GT(run.shared.UpperLimit, run.shared.WorkValue);
    EXPECT_LT(run.shared.LowerLimit, run.shared.WorkValue);
}

TEST(SlopeTests, BatchCalculatesAReverseSlopeWithoutAsking) {
    Session run;
    run.shared.BatchName = "reverse";
    EXPECT_EQ(run.file(UnpairedTable(kReverse)), CalculationOutcome::Completed);
    EXPECT_TRUE(run.port.messages.empty());
    EXPECT_LT(run.shared.fit.Slope, 0);
}

TEST(CalculationFaults, EqualProbitsAreReportedNotAnEnd) {
    Session run;
    const TextTable table =
        UnpairedTable({{"1", "100", "50.000"}, {"10", "100", "50.000"}, {"100", "100", "50.000"}});
    EXPECT_EQ(run.line(table), CalculationOutcome::Refused);
    EXPECT_EQ(run.port.texts(),
              (std::vector<std::string>{CalculationFaultMessage(
                  "every dose gives the same probit, so the correlation r divides by zero")}));
    Session batch;
    batch.shared.BatchName = "flat";
    EXPECT_EQ(batch.file(table), CalculationOutcome::Refused);
    EXPECT_EQ(batch.shared.BatchFailed, 1);
    EXPECT_EQ(batch.shared.BatchMessage,
              "Can't calculate flat:\nevery dose gives the same probit, so the correlation r "
              "divides by zero");
}

TEST(CalculationFaults, ADoseThatIsNotANumberIsReported) {
    Session run;
    EXPECT_EQ(run.line(UnpairedTable(
                  {{"1", "100", "10.000"}, {"x", "100", "50.000"}, {"100", "100", "90.000"}})),
              CalculationOutcome::Refused);
    EXPECT_EQ(run.port.texts(),
              (std::vector<std::string>{CalculationFaultMessage("\"x\" is not a number")}));
}

}  // namespace
}  // namespace morvane
