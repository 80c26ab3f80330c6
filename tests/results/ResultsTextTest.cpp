// The tab-separated text of the three results tables, on tables filled by hand.

#include <gtest/gtest.h>

#include "results/LineResults.h"
#include "results/ResultsText.h"
#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

// Two dose rows, statistics and one standard row with limits and one without.
ResultsTables SmallTables() {
    ResultsTables t;
    t.Grid1 = TextTable(3, datacol::Count);
    const char* const rows[2][7] = {{"1", "1", "0.0000", "20", "10.000", "9.8", "3.7"},
                                    {"10", "10", "1.0000", "20", "90.000", "90.1", "6.3"}};
    for (int r = 0; r < 2; ++r)
        for (int c = 0; c < 7; ++c)
            t.Grid1.setText(r + 1, c, rows[r][c]);
    t.Grid1.setText(0, datacol::Dose, "heading row is not exported");
    const char* const stats[6][3] = {{"Slope", "2.0000", "+/-  0.5000"},
                                     {"", "1.0000", "tabulated  3.8"},
                                     {"p", "0.3173", ""},
                                     {"h", "1.0000", ""},
                                     {"g", "0.2401", ""},
                                     {"r", "0.9900", "tabulated  0.997"}};
    for (int r = 0; r < 6; ++r)
        for (int c = 0; c < 3; ++c)
            t.Grid22.setText(r, c, stats[r][c]);
    t.Grid22.setPicture(statrow::ChiSquare, statcol::Name, kChiSquarePicture);
    t.Grid2 = TextTable(4, estimatecol::Count);
    const char* const est[4][5] = {{"LD", "", "Dose", "Lower limit", "Upper limit"},
                                   {"", "", "mg", "mg", "mg"},
                                   {"50", "", "10", "7.7193", "12.9545"},
                                   {"99", "", "145.5962", "", ""}};
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 5; ++c)
            t.Grid2.setText(r, c, est[r][c]);
    return t;
}

ColumnHeadings Headings() {
    return {"Dose",
            "Dose * 1",
            "Log (Dose * 1)",
            "Treated",
            "Observed response %",
            "Linear response %",
            "Linear probit"};
}

TEST(ComposeResultsText, TheThreeTablesInTheirOrder) {
    EXPECT_EQ(ComposeResultsText(SmallTables(), Headings()),
              "Dose\tDose * 1\tLog (Dose * 1)\tTreated\tObserved response %\t"
              "Linear response %\tLinear probit\n"
              "1\t1\t0.0000\t20\t10.000\t9.8\t3.7\n"
              "10\t10\t1.0000\t20\t90.000\t90.1\t6.3\n"
              "\n\n"
              "Slope\t2.0000\t+/-  0.5000\t\n"
              "Chi\t1.0000\ttabulated  3.8\t\n"
              "p\t0.3173\t\t\n"
              "h\t1.0000\t\t\n"
              "g\t0.2401\t\t\n"
              "r\t0.9900\ttabulated  0.997\t"
              "\n\n\n"
              "LD\tDose\tLower limit\tUpper limit\t\n"
              "\tmg\tmg\tmg\t\n"
              "50\t10\t7.7193\t12.9545\t\n"
              "99\t145.5962\t\t\t");
}

TEST(ComposeResultsText, ChiSquareRowReadsChiTheValueAndTheTabulatedText) {
    const std::string text = ComposeResultsText(SmallTables(), Headings());
    EXPECT_NE(text.find("\nChi\t1.0000\ttabulated  3.8\t\n"), std::string::npos);
}

TEST(ComposeResultsText, RowWithoutLimitsGivesTwoEmptyFields) {
    const std::string text = ComposeResultsText(SmallTables(), Headings());
    const std::string last = text.substr(text.rfind('\n') + 1);
    EXPECT_EQ(last, "99\t145.5962\t\t\t");
}

TEST(ComposeResultsText, SpacerColumnJoinsThePercentWithoutATab) {
    ResultsTables t = SmallTables();
    t.Grid2.setText(2, estimatecol::Gap,
                    "|");  // the spacer never holds text; shown here to place it
    const std::string text = ComposeResultsText(t, Headings());
    EXPECT_NE(text.find("\n50|\t10\t"), std::string::npos);
}

TEST(ComposeResultsText, NoLineEndAtTheVeryEnd) {
    const std::string text = ComposeResultsText(SmallTables(), Headings());
    ASSERT_FALSE(text.empty());
    EXPECT_NE(text.back(), '\n');
}

TEST(ComposeResultsText, UnusedHeadingPlacesAreNotWritten) {
    ColumnHeadings headings = Headings();
    headings[7] = "not a column";
    EXPECT_EQ(ComposeResultsText(SmallTables(), headings).find("not a column"), std::string::npos);
}

TEST(ComposeResultsText, ResultsTextIsKeptAndTheNextCompositionStartsEmpty) {
    SharedRegisters shared;
    testing::ScriptedUserPort port;
    FixedWidthTextMeasurer measurer;
    LineResults results(shared, port, measurer);
    results.tables() = SmallTables();
    const std::string first = results.ComposeResultsText();
    EXPECT_EQ(results.ResultsText(), first);
    EXPECT_EQ(results.ResultsText(), ComposeResultsText(SmallTables(), results.HeadingSingle()));
    results.tables().Grid2.setRows(3);
    const std::string second = results.ComposeResultsText();
    EXPECT_EQ(results.ResultsText(), second);
    EXPECT_TRUE(second.ends_with("\n50\t10\t7.7193\t12.9545\t")) << second;
}

}  // namespace
}  // namespace morvane
