// The results window of one line without its window: the data table's headings, the
// statistics table's names and colours, the estimates table for the standard
// percents, column fitting and the closing rules.
//
// Expected figures were worked out by hand from the method's rules (printed probit
// tables, Fieller's limits as Finney gives them, the number formats) and checked
// with an independent re-derivation; the rotenone assay is also cross-checked
// against a maximum-likelihood probit fit.

#include <gtest/gtest.h>

#include <cmath>

#include "ResponseTables.h"
#include "core/LineCalculation.h"
#include "core/LineFit.h"
#include "core/NumberText.h"
#include "results/LineResults.h"
#include "support/HandLine.h"
#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

using testing::DoseResponse;
using testing::ScriptedUserPort;
using testing::SetHandLine;

class LineResultsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        shared.DoseWord = "Dose";
        shared.UnitWord = "mg";
        shared.EstimateWord = "LD";
    }

    CalculationOutcome calculate(const TextTable& responses, bool paired = false, int tAlpha = 1) {
        CalculationInput input{responses, paired, tAlpha, "line.mrv"};
        return CalculateLine(input, shared, results.tables(), port, results.channel());
    }

    SharedRegisters shared;
    ScriptedUserPort port;
    FixedWidthTextMeasurer measurer{120};
    LineResults results{shared, port, measurer};
};

// --- The data table ---------------------------------------------------------------

TEST_F(LineResultsTest, DoseScaleOfOneHeadsColumnOneWithTheDoseWordAStarAndOne) {
    shared.fit.DoseScale = 1;
    results.FormatDataTable();
    const TextTable& grid1 = results.tables().Grid1;
    EXPECT_EQ(grid1.text(0, datacol::ScaledDose), "Dose\n*  1");
    EXPECT_EQ(grid1.text(0, datacol::LogDose), "Log\n(Dose*1)");
    EXPECT_EQ(results.HeadingSingle()[1], "Dose * 1");
}

TEST_F(LineResultsTest, DataTableHeadingsOnOneAndOnTwoLines) {
    shared.DoseWord = "Con.";
    shared.fit.DoseScale = 1000;
    results.FormatDataTable();
    const TextTable& grid1 = results.tables().Grid1;
    const char* const row0[] = {"Con.",          "Con.\n*  1000",        "Log\n(Con.*1000)",
                                "Treated",       "Observed\nresponse %", "Linear\nresponse %",
                                "Linear\nprobit"};
    const char* const single[] = {"Con.",         "Con. * 1000",         "Log (Con. * 1000)",
                                  "Treated",      "Observed response %", "Linear response %",
                                  "Linear probit"};
    const char* const first[] = {"Con.", "Con.", "Log", "Treated", "Observed", "Linear", "Linear"};
    const char* const second[] = {"",           "* 1000",     "(Con.*1000)", "",
                                  "response %", "response %", "probit"};
    for (int c = 0; c < 7; ++c) {
        EXPECT_EQ(grid1.text(0, c), row0[c]) << c;
        EXPECT_EQ(results.HeadingSingle()[static_cast<std::size_t>(c)], single[c]) << c;
        EXPECT_EQ(results.HeadingFirst()[static_cast<std::size_t>(c)], first[c]) << c;
        EXPECT_EQ(results.HeadingSecond()[static_cast<std::size_t>(c)], second[c]) << c;
    }
    for (std::size_t c = 7; c < 10; ++c)
        EXPECT_EQ(results.HeadingSingle()[c], "");
}

TEST_F(LineResultsTest, DataTableWidthsAndAlignments) {
    results.tables().Grid1.setRows(4);
    results.FormatDataTable();
    const TextTable& grid1 = results.tables().Grid1;
    const int widths[] = {350, 800, 800, -1, -1, 950, -1};
    for (int c = 0; c < 7; ++c) {
        EXPECT_EQ(grid1.columnWidth(c), widths[c]) << c;
        EXPECT_EQ(grid1.columnAlignment(c), 1) << c;
        EXPECT_EQ(grid1.cellAlignment(0, c), 3) << c;  // headings centred at the top
    }
    for (int r = 1; r < 4; ++r)
        EXPECT_EQ(grid1.cellAlignment(r, datacol::Dose), 1) << r;
    EXPECT_EQ(grid1.cellAlignment(1, datacol::ScaledDose), std::nullopt);
    EXPECT_EQ(grid1.rowHeight(0), 500);
}

// --- The estimates table ------------------------------------------------------------

TEST_F(LineResultsTest, StandardRowsOfAHandLine) {
    SetHandLine(shared.fit, {});
    results.FormatEstimateTables();
    // 25%: probit 4.3255, log dose (4.3255 - 5 + 2) / 2 = 0.66275, dose 4.59990...
    // 50%: dose 10; S = sqrt(0.7599 / 100), E = 1.96 / (0.7599 * 2) * S = 0.11242,
    // limits 10^(1 -/+ 0.11242).
    EXPECT_EQ(results.tables().Grid2.dump(),
              "LD\t\tDose\tLower limit\tUpper limit\n"
              "\t\tmg\tmg\tmg\n"
              "25\t\t4.5999\t2.0483\t6.3241\n"
              "50\t\t10\t7.7193\t12.9545\n"
              "75\t\t21.7395\t15.8126\t48.8219\n"
              "90\t\t43.7321\t26.0044\t186.8491\n"
              "95\t\t66.4431\t34.6893\t421.1451\n"
              "99\t\t145.5962\t59.1915\t1945.6507");
    EXPECT_DOUBLE_EQ(shared.Dose99Percent, 145.5962);
    // 1%: probit 2.6737, log dose -0.16315.
    EXPECT_DOUBLE_EQ(shared.Dose1Percent, 0.6868);
}

TEST_F(LineResultsTest, EstimatesTableWidthsAlignmentsAndHeights) {
    SetHandLine(shared.fit, {});
    results.FormatEstimateTables();
    const TextTable& grid2 = results.tables().Grid2;
    ASSERT_EQ(grid2.rows(), 8);
    ASSERT_EQ(grid2.cols(), 5);
    const int widths[] = {650, 100, 1400, 1400, -1};
    for (int c = 0; c < 5; ++c)
        EXPECT_EQ(grid2.columnWidth(c), widths[c]) << c;
    EXPECT_EQ(grid2.columnAlignment(estimatecol::Percent), std::nullopt);
    for (int c = estimatecol::Dose; c <= estimatecol::Upper; ++c)
        EXPECT_EQ(grid2.columnAlignment(c), 1) << c;
    for (int r = 2; r < 8; ++r)
        EXPECT_EQ(grid2.rowHeight(r), 400) << r;
}

TEST_F(LineResultsTest, GOfExactlyPointFourLeavesTheLimitCellsEmpty) {
    SetHandLine(shared.fit, {.g = 0.4});
    results.FormatEstimateTables();
    const TextTable& grid2 = results.tables().Grid2;
    for (int r = 2; r < 8; ++r) {
        EXPECT_NE(grid2.text(r, estimatecol::Dose), "") << r;
        EXPECT_EQ(grid2.text(r, estimatecol::Lower), "") << r;
        EXPECT_EQ(grid2.text(r, estimatecol::Upper), "") << r;
    }
    EXPECT_EQ(grid2.text(2, estimatecol::Dose), "4.5999");
}

TEST_F(LineResultsTest, GJustBelowPointFourGivesLimits) {
    SetHandLine(shared.fit, {.g = 0.399});
    results.FormatEstimateTables();
    EXPECT_EQ(results.tables().Grid2.text(2, estimatecol::Lower), "1.3684");
    EXPECT_EQ(results.tables().Grid2.text(2, estimatecol::Upper), "5.5142");
}

TEST_F(LineResultsTest, ALimitThatRoundsToZeroStaysAnEmptyCell) {
    // Doses 10^6 times smaller: the 1% limits drop under 0.00005 and round to 0.
    SetHandLine(shared.fit, {});
    shared.fit.DoseScale = 1000000;
    results.FormatEstimateTables();
    const TextTable& grid2 = results.tables().Grid2;
    // 25%: 4.5999 / 10^6 rounds to 0 as well, and is written as "0": only limits
    // read 0 as "none".
    EXPECT_EQ(grid2.text(2, estimatecol::Dose), "0");
    EXPECT_EQ(grid2.text(2, estimatecol::Lower), "");
    EXPECT_EQ(grid2.text(2, estimatecol::Upper), "");
    // 99%: 145.5962 / 10^6 = 0.0001456 gives 0.0001; the limits 0.0000592 and
    // 0.00194565 give 0.0001 and 0.0019.
    EXPECT_EQ(grid2.text(7, estimatecol::Dose), "0.0001");
    EXPECT_EQ(grid2.text(7, estimatecol::Lower), "0.0001");
    EXPECT_EQ(grid2.text(7, estimatecol::Upper), "0.0019");
}

TEST_F(LineResultsTest, NegativeSlopeKeepsTheUpperLimitTheLarger) {
    SetHandLine(shared.fit, {});
    shared.fit.Slope = -2;
    results.FormatEstimateTables();
    const TextTable& grid2 = results.tables().Grid2;
    EXPECT_EQ(grid2.text(2, estimatecol::Dose), "21.7395");
    EXPECT_EQ(grid2.text(2, estimatecol::Lower), "15.8126");
    EXPECT_EQ(grid2.text(2, estimatecol::Upper), "48.8219");
    // The dose of 99% is now the small one, that of 1% the large one.
    EXPECT_DOUBLE_EQ(shared.Dose99Percent, 0.6868);
    EXPECT_DOUBLE_EQ(shared.Dose1Percent, 145.5962);
}

TEST_F(LineResultsTest, EstimatesTableStartsAfreshAtEachCalculation) {
    SetHandLine(shared.fit, {});
    results.FormatEstimateTables();
    results.tables().Grid2.addRow();
    results.tables().Grid2.setText(8, estimatecol::Percent, "12.5");
    results.FormatEstimateTables();
    EXPECT_EQ(results.tables().Grid2.rows(), 8);
}

TEST_F(LineResultsTest, StatisticsNamesAndTheChiSquarePicture) {
    SetHandLine(shared.fit, {});
    results.FormatEstimateTables();
    const TextTable& grid22 = results.tables().Grid22;
    EXPECT_EQ(grid22.text(statrow::Slope, statcol::Name), "Slope");
    EXPECT_EQ(grid22.text(statrow::ChiSquare, statcol::Name), "");
    EXPECT_EQ(grid22.picture(statrow::ChiSquare, statcol::Name), kChiSquarePicture);
    EXPECT_EQ(grid22.text(statrow::P, statcol::Name), "p");
    EXPECT_EQ(grid22.text(statrow::H, statcol::Name), "h");
    EXPECT_EQ(grid22.text(statrow::G, statcol::Name), "g");
    EXPECT_EQ(grid22.text(statrow::R, statcol::Name), "r");
    EXPECT_EQ(grid22.columnWidth(statcol::Name), 700);
    EXPECT_EQ(grid22.columnWidth(statcol::Value), 1400);
    EXPECT_EQ(grid22.columnWidth(statcol::Tabulated), 1500);
    EXPECT_EQ(grid22.columnAlignment(1), 1);
    EXPECT_EQ(grid22.columnAlignment(2), 1);
}

TEST_F(LineResultsTest, QueryCaptionsFollowTheWords) {
    shared.DoseWord = "Time";
    shared.UnitWord = "hour";
    shared.EstimateWord = "LT";
    SetHandLine(shared.fit, {});
    results.FormatEstimateTables();
    const QueryPanels& panels = results.queries().panels();
    EXPECT_EQ(panels.SSTab2Caption0, "Calculate any LT value");
    EXPECT_EQ(panels.SSTab2Caption1, "Calculate Response of any Time");
    EXPECT_EQ(panels.SSTab2Tab, 0);
    EXPECT_EQ(panels.Label4, "The LT");
}

TEST_F(LineResultsTest, ActivateSetsTheWordCaptions) {
    shared.DoseWord = "Con.";
    shared.UnitWord = "ug / ml";
    shared.EstimateWord = "LC";
    results.Activate();
    EXPECT_EQ(results.captions().Label15, "From LC");
    EXPECT_EQ(results.captions().Label16, "to LC");
    EXPECT_EQ(results.captions().Label17, "LC");
    EXPECT_EQ(results.captions().Check3, "LC value");
    EXPECT_EQ(results.captions().Text7, "Con.  (ug / ml)");
    EXPECT_EQ(results.queries().panels().Label9, "ug / ml");
}

// --- Column fitting -----------------------------------------------------------------

TEST_F(LineResultsTest, ColumnsFitTheirWidestTextPlusTheMargin) {
    shared.DoseWord = "Con.";
    shared.UnitWord = "mg / L";
    shared.EstimateWord = "LC";
    ASSERT_EQ(calculate(testing::RotenoneResponses()), CalculationOutcome::Completed);
    // 120 twips a character; a heading measures as its widest line.
    const TextTable& grid1 = results.tables().Grid1;
    EXPECT_EQ(grid1.columnWidth(datacol::Dose), 4 * 120 + 325);       // "Con.", "10.2"
    EXPECT_EQ(grid1.columnWidth(datacol::LogDose), 8 * 120 + 325);    // "(Con.*1)"
    EXPECT_EQ(grid1.columnWidth(datacol::Treated), 7 * 120 + 325);    // "Treated"
    EXPECT_EQ(grid1.columnWidth(datacol::Observed), 10 * 120 + 325);  // "response %"
    const TextTable& grid2 = results.tables().Grid2;
    EXPECT_EQ(grid2.columnWidth(estimatecol::Percent), 2 * 120 + 300);  // "LC", "25"
    EXPECT_EQ(grid2.columnWidth(estimatecol::Gap), 300);                // the empty spacer
    EXPECT_EQ(grid2.columnWidth(estimatecol::Dose), 7 * 120 + 600);     // "11.9196"
    EXPECT_EQ(grid2.columnWidth(estimatecol::Lower), 11 * 120 + 600);   // "Lower limit"
}

TEST(FixedWidthTextMeasurer, MeasuresTheWidestLine) {
    const FixedWidthTextMeasurer measurer(100);
    EXPECT_DOUBLE_EQ(measurer.textWidth(""), 0);
    EXPECT_DOUBLE_EQ(measurer.textWidth("abc"), 300);
    EXPECT_DOUBLE_EQ(measurer.textWidth("Observed\nresponse %"), 1000);
}

// --- The channel --------------------------------------------------------------------

TEST_F(LineResultsTest, ChannelCodesBuildTheTables) {
    SetHandLine(shared.fit, {});
    const ResultsChannel channel = results.channel();
    channel(0);
    EXPECT_EQ(results.tables().Grid2.text(2, estimatecol::Percent), "");
    channel(1);
    EXPECT_EQ(results.tables().Grid1.text(0, datacol::Treated), "Treated");
    EXPECT_EQ(results.tables().Grid2.text(3, estimatecol::Dose), "10");
    EXPECT_EQ(results.tables().Grid2.columnWidth(estimatecol::Dose), 1400);
    channel(5);
    EXPECT_EQ(results.tables().Grid2.columnWidth(estimatecol::Dose), 8 * 120 + 600);  // "145.5962"
    EXPECT_EQ(results.tables().Grid1.columnWidth(datacol::Treated), -1);
    channel(2);
    EXPECT_EQ(results.tables().Grid1.columnWidth(datacol::Treated), 7 * 120 + 325);
}

TEST_F(LineResultsTest, PrintCodesGoToThePrintHandler) {
    std::vector<int> printed;
    results.setPrintHandler([&](int code) { printed.push_back(code); });
    results.Text1(3);
    results.Text1(4);
    results.Text1(6);
    EXPECT_EQ(printed, (std::vector<int>{3, 4}));
}

// --- A whole calculation ------------------------------------------------------------

TEST_F(LineResultsTest, RotenoneAssayAsCopyTablesGivesIt) {
    shared.DoseWord = "Con.";
    shared.UnitWord = "mg / L";
    shared.EstimateWord = "LC";
    ASSERT_EQ(calculate(testing::RotenoneResponses()), CalculationOutcome::Completed);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(results.ComposeResultsText(),
              "Con.\tCon. * 1\tLog (Con. * 1)\tTreated\tObserved response %\t"
              "Linear response %\tLinear probit\n"
              "2.6\t2.6\t0.4150\t50\t12.000\t12.7684\t3.8623\n"
              "3.8\t3.8\t0.5798\t48\t33.333\t32.8458\t4.5558\n"
              "5.1\t5.1\t0.7076\t46\t52.174\t53.7287\t5.0936\n"
              "7.7\t7.7\t0.8865\t49\t85.714\t80.1320\t5.8464\n"
              "10.2\t10.2\t1.0086\t50\t88.000\t91.3014\t6.3602\n"
              "\n\n"
              "Slope\t4.2080\t+/-  0.4803\t\n"
              "Chi\t1.7328\ttabulated  7.8\t\n"
              "p\t0.6297\t\t\n"
              "h\t0.5776\t\t\n"
              "g\t0.0500\t\t\n"
              "r\t0.9892\ttabulated  0.878\t"
              "\n\n\n"
              "LC\tCon.\tLower limit\tUpper limit\t\n"
              "\tmg / L\tmg / L\tmg / L\t\n"
              "25\t3.3502\t2.8471\t3.7739\t\n"
              "50\t4.8457\t4.3641\t5.3552\t\n"
              "75\t7.0089\t6.2777\t8.0975\t\n"
              "90\t9.7707\t8.4051\t12.1718\t\n"
              "95\t11.9196\t9.9496\t15.6266\t\n"
              "99\t17.3058\t13.5868\t25.0888\t");
    EXPECT_DOUBLE_EQ(shared.Dose1Percent, 1.3568);
    EXPECT_DOUBLE_EQ(shared.Dose99Percent, 17.3058);
    EXPECT_EQ(results.tables().Grid22.fore(statrow::ChiSquare, statcol::Value), std::nullopt);
    EXPECT_EQ(results.tables().Grid22.fore(statrow::G, statcol::Value), std::nullopt);
    EXPECT_EQ(results.tables().Text8, "");
}

TEST_F(LineResultsTest, RotenoneAgreesWithAMaximumLikelihoodFit) {
    // The table method stops within a few units of the fourth decimal of the
    // maximum-likelihood probit fit of the same data (b = 4.21320, LC50 = 4.84549,
    // by iteratively reweighted least squares with the exact normal integral); the
    // tolerances allow for the interpolation in the printed tables.
    ASSERT_EQ(calculate(testing::RotenoneResponses()), CalculationOutcome::Completed);
    EXPECT_NEAR(NumberOf(results.tables().Grid22.text(statrow::Slope, statcol::Value)), 4.21320,
                0.01);
    EXPECT_NEAR(NumberOf(results.tables().Grid2.text(3, estimatecol::Dose)), 4.84549, 0.001);
}

TEST_F(LineResultsTest, ScaledDosesCancelOutInTheEstimates) {
    // Doses of 0.001 to 0.008: DoseScale 1000, log doses 0 to 0.9031.
    const TextTable responses =
        testing::UnpairedResponses(std::nullopt, {{"0.001", "40", "10.000", "10.000"},
                                                  {"0.002", "40", "30.000", "30.000"},
                                                  {"0.004", "40", "55.000", "55.000"},
                                                  {"0.008", "40", "80.000", "80.000"}});
    ASSERT_EQ(calculate(responses), CalculationOutcome::Completed);
    EXPECT_EQ(results.HeadingSingle()[1], "Dose * 1000");
    EXPECT_EQ(results.tables().Grid1.dump(),
              "Dose\tDose\n*  1000\tLog\n(Dose*1000)\tTreated\tObserved\nresponse %\t"
              "Linear\nresponse %\tLinear\nprobit\n"
              "0.001\t1\t0.0000\t40\t10.000\t10.5018\t3.7460\n"
              "0.002\t2\t0.3010\t40\t30.000\t28.9028\t4.4437\n"
              "0.004\t4\t0.6021\t40\t55.000\t55.6312\t5.1417\n"
              "0.008\t8\t0.9031\t40\t80.000\t79.9365\t5.8394");
    EXPECT_EQ(results.tables().Grid2.dump(),
              "LD\t\tDose\tLower limit\tUpper limit\n"
              "\t\tmg\tmg\tmg\n"
              "25\t\t0.0018\t0.0013\t0.0022\n"
              "50\t\t0.0035\t0.0028\t0.0044\n"
              "75\t\t0.0068\t0.0052\t0.0104\n"
              "90\t\t0.0124\t0.0085\t0.0239\n"
              "95\t\t0.0178\t0.0114\t0.0397\n"
              "99\t\t0.035\t0.0193\t0.1035");
}

TEST_F(LineResultsTest, MoreThanThirtyDegreesOfFreedomShowPZeroAndNoTabulatedR) {
    // 33 doses 1 to 33, 20 treated each, responses 3% to 99% in steps of 3.
    std::vector<DoseResponse> rows;
    for (int i = 1; i <= 33; ++i) {
        const std::string percent = FormatNumber(3.0 * i, "0.000");
        rows.push_back({std::to_string(i), "20", percent, percent});
    }
    ASSERT_EQ(calculate(testing::UnpairedResponses(std::nullopt, rows)),
              CalculationOutcome::Completed);
    EXPECT_EQ(shared.fit.DegreesOfFreedom, 31);
    EXPECT_EQ(results.tables().Grid22.dump(),
              "Slope\t2.6123\t+/-  0.2177\n"
              "\t32.1606\ttabulated  43.8\n"
              "p\t0\t\n"
              "h\t1.0374\t\n"
              "g\t0.0267\t\n"
              "r\t0.9178\t");
}

// --- The statistics table's colours and texts, as the fit leaves them ---------------

class StatisticsTableTest : public LineResultsTest {
  protected:
    // Writes the statistics of a fit with the given slope and sums for five doses
    // (three degrees of freedom) or the number of doses given, then builds the
    // estimates table as the channel does.
    void writeStatistics(double slope, double sxx, double syy, double sxy, int doses = 5) {
        SetHandLine(shared.fit, {});
        shared.fit.Slope = slope;
        shared.fit.SumSquaresLogDose = sxx;
        CycleSums sums;
        sums.Syy = syy;
        sums.Sxy = sxy;
        WriteStatistics(results.tables(), doses, sums, 1, shared.fit);
        results.Text1(1);
    }
};

TEST_F(StatisticsTableTest, ChiSquareEqualToTheTabulatedValueIsRed) {
    // Three degrees of freedom: tabulated 7.8; chi-square = Syy - Sxy^2 / Sxx = 7.8.
    writeStatistics(2, 4, 7.8, 0);
    EXPECT_EQ(results.tables().Grid22.text(statrow::ChiSquare, statcol::Value), "7.8000");
    EXPECT_EQ(results.tables().Grid22.text(statrow::ChiSquare, statcol::Tabulated),
              "tabulated  7.8");
    EXPECT_EQ(results.tables().Grid22.fore(statrow::ChiSquare, statcol::Value), kRed);
}

TEST_F(StatisticsTableTest, ChiSquareJustBelowTheTabulatedValueIsBlack) {
    writeStatistics(2, 4, 7.79, 0);
    EXPECT_EQ(results.tables().Grid22.fore(statrow::ChiSquare, statcol::Value), std::nullopt);
}

TEST_F(StatisticsTableTest, GOfExactlyPointFourIsBlackWithoutNoticeYetHasNoLimits) {
    // Homogeneous, t 1.96: g = 1.96^2 / (b^2 Sxx) is exactly 0.4 with b = 1.96 and
    // Sxx = 2.5.
    writeStatistics(1.96, 2.5, 1, 0);
    ASSERT_EQ(shared.fit.GValue, 0.4);
    EXPECT_EQ(results.tables().Grid22.text(statrow::G, statcol::Value), "0.4000");
    EXPECT_EQ(results.tables().Grid22.fore(statrow::G, statcol::Value), std::nullopt);
    EXPECT_EQ(results.tables().Text8, "");
    EXPECT_EQ(results.tables().Grid2ToolTip, "");
    for (int r = 2; r < 8; ++r) {
        EXPECT_EQ(results.tables().Grid2.text(r, estimatecol::Lower), "") << r;
        EXPECT_EQ(results.tables().Grid2.text(r, estimatecol::Upper), "") << r;
    }
}

TEST_F(StatisticsTableTest, GJustAbovePointFourIsRedWithTheNotice) {
    writeStatistics(1.96, 2.4999, 1, 0);
    ASSERT_GT(shared.fit.GValue, 0.4);
    const std::string notice =
        "Upper and lower limits will be calculated only for the data of which g is less "
        "than 0.4.   See help for more details.";
    EXPECT_EQ(results.tables().Grid22.text(statrow::G, statcol::Value), "0.4000");
    EXPECT_EQ(results.tables().Grid22.fore(statrow::G, statcol::Value), kRed);
    EXPECT_EQ(results.tables().Text8, notice);
    EXPECT_EQ(results.tables().Grid2ToolTip, notice);
    EXPECT_EQ(results.tables().Grid2.text(2, estimatecol::Lower), "");
    EXPECT_EQ(results.tables().Grid2.text(7, estimatecol::Upper), "");
}

TEST_F(StatisticsTableTest, POfOneHalfShowsAsPointFiveAndHOfOneHalfWithFourDecimals) {
    // Two degrees of freedom (four doses): p = exp(-chi / 2) = 0.5 for chi = 2 ln 2.
    writeStatistics(2, 4, 2 * std::log(2.0), 0, 4);
    EXPECT_EQ(results.tables().Grid22.text(statrow::P, statcol::Value), "0.5");
    // chi-square 1 over two degrees of freedom: h = 0.5.
    writeStatistics(2, 4, 1, 0, 4);
    EXPECT_EQ(results.tables().Grid22.text(statrow::H, statcol::Value), "0.5000");
}

TEST_F(StatisticsTableTest, ThirtyOneDegreesOfFreedom) {
    writeStatistics(2, 4, 10, 0, 33);
    EXPECT_EQ(results.tables().Grid22.text(statrow::P, statcol::Value), "0");
    EXPECT_EQ(results.tables().Grid22.text(statrow::R, statcol::Tabulated), "");
    EXPECT_EQ(results.tables().Grid22.text(statrow::ChiSquare, statcol::Tabulated),
              "tabulated  43.8");
}

// --- Closing ------------------------------------------------------------------------

TEST_F(LineResultsTest, CloseBoxWithNothingUnsavedEndsTheProgram) {
    EXPECT_EQ(results.Unload(false), ResultsCloseAction::EndProgram);
}

TEST_F(LineResultsTest, CloseBoxWithUnsavedChangesLeavesThroughTheSaveQuestion) {
    EXPECT_EQ(results.Unload(true), ResultsCloseAction::LeaveWithSaveQuestion);
}

TEST_F(LineResultsTest, BackButtonReturnsToTheInputEitherWay) {
    results.Command11();
    EXPECT_EQ(results.BackRequested, 1);
    EXPECT_EQ(results.Unload(false), ResultsCloseAction::BackToInput);
    EXPECT_EQ(results.BackRequested, 0);
    results.Command11();
    EXPECT_EQ(results.Unload(true), ResultsCloseAction::BackToInput);
}

}  // namespace
}  // namespace morvane
