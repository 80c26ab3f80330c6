// The layout of the results table, the order of the lines and the comparative
// statistics, on results tables written by hand as the batch leaves them.
#include "relative/ComparativeStatistics.h"

#include <gtest/gtest.h>

#include "RelativeFixtures.h"
#include "core/Fault.h"

namespace morvane {
namespace {

using testing::AddLines;
using testing::Column;
using testing::FillRows;
using testing::ResultRow;
using testing::Texts;

std::string HeaderRow(const TextTable& grid) {
    std::string out;
    for (int col = 0; col < grid.cols(); ++col)
        out += (col ? "|" : "") + grid.text(0, col);
    return out;
}

TEST(SetUpResultColumns, EveryDefaultOptionWithThreeLines) {
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b", "c"});
    Rtvout rtvout;
    SetUpResultColumns(rtvin, rtvout);
    EXPECT_EQ(HeaderRow(rtvout.Grid1),
              "No|Line name|LD50|Lower limit|Upper limit|1|2|3|Index|RR|Slope|LD90|");
    const ResultColumns& c = rtvout.columns;
    EXPECT_EQ(c.LowerColumn, 3);
    EXPECT_EQ(c.UpperColumn, 4);
    EXPECT_EQ(c.PairColumns, (std::vector<int>{0, 5, 6, 7}));
    EXPECT_EQ(c.IndexColumn, 8);
    EXPECT_EQ(c.RatioColumn, 9);
    EXPECT_EQ(c.SlopeColumn, 10);
    EXPECT_EQ(c.SlopeErrorColumn, 0);
    EXPECT_EQ(c.AddedColumns, (std::vector<int>{0, 11}));
    EXPECT_EQ(c.SortKeyColumn, 12);
    for (int col = c.PairColumns[1]; col <= c.PairColumns[3]; ++col)
        EXPECT_EQ(rtvout.Grid1.columnWidth(col), 300);
    EXPECT_EQ(rtvout.Grid1.columnWidth(c.SortKeyColumn), 0);
    for (int col = c.LowerColumn; col <= c.SortKeyColumn; ++col)
        EXPECT_EQ(rtvout.Grid1.columnAlignment(col), 4);
}

TEST(SetUpResultColumns, WithEveryOptionOffOnlyTheEstimateAndTheHiddenKeyRemain) {
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b"});
    rtvin.Check3Click(false);
    rtvin.Check4Click(false);
    rtvin.Check5Click(false);
    rtvin.Check2.checked = false;
    rtvin.List1Click(0);
    rtvin.Command3Click();
    Rtvout rtvout;
    SetUpResultColumns(rtvin, rtvout);
    EXPECT_EQ(HeaderRow(rtvout.Grid1), "No|Line name|LD50|");
    EXPECT_EQ(rtvout.columns.SortKeyColumn, 3);
    EXPECT_EQ(rtvout.columns.LowerColumn, 0);
    EXPECT_TRUE(rtvout.columns.PairColumns.empty());
}

TEST(SetUpResultColumns, TheSlopeErrorAndFurtherPercentagesTakeTheAbbreviation) {
    Rtvin rtvin;
    AddLines(rtvin, {"a"});
    rtvin.Combo1.text = "LC";
    rtvin.Text1.text = "90";
    rtvin.Check1.checked = false;
    rtvin.Check7.checked = true;
    rtvin.List1.items = {"95", "99.5"};
    Rtvout rtvout;
    SetUpResultColumns(rtvin, rtvout);
    EXPECT_EQ(HeaderRow(rtvout.Grid1),
              "No|Line name|LC90|Lower limit|Upper limit|Index|RR|Slope|Slope +/-|LC95|LC99.5|");
    EXPECT_EQ(rtvout.columns.SlopeErrorColumn, 8);
    EXPECT_EQ(rtvout.columns.AddedColumns, (std::vector<int>{0, 9, 10}));
}

TEST(SortLines, OrdersByTheEstimateAndKeepsTheTwoGridsPaired) {
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b", "c"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"ten", "10.000"}, {"empty", ""}, {"two and a half", "2.500"}});
    for (int row = 1; row <= 3; ++row)
        rtvout.Grid2.setText(row, grid2col::Estimate, rtvout.Grid1.text(row, resultcol::Estimate));
    SortLines(rtvout);
    // An empty estimate reads as 0 and sorts first with key 0.
    EXPECT_EQ(Column(rtvout.Grid1, resultcol::LineName), (Texts{"empty", "two and a half", "ten"}));
    const int key = rtvout.columns.SortKeyColumn;
    EXPECT_EQ(Column(rtvout.Grid1, key),
              (Texts{"0.000000000000", "1.009205015266", "1.023292992281"}));
    EXPECT_EQ(Column(rtvout.Grid2, grid2col::SortKey), Column(rtvout.Grid1, key));
    EXPECT_EQ(Column(rtvout.Grid2, grid2col::Estimate), (Texts{"", "2.500", "10.000"}));
}

TEST(SortLines, TiesKeepTheirOrder) {
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b", "c"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout,
             {{"second copy", "5.000"}, {"small", "1.000"}, {"first copy", "5.000"}});
    SortLines(rtvout);
    EXPECT_EQ(Column(rtvout.Grid1, resultcol::LineName),
              (Texts{"small", "second copy", "first copy"}));
}

TEST(SortLines, ADoseOfTenToTheHundredSortsWrongly) {
    // Its key has two digits before the point: "10.000000000000" sorts before the
    // key of 1E+99, "9.772372209558".
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"1E+99", "10000E+95"}, {"1E+100", "10000E+96"}});
    SortLines(rtvout);
    EXPECT_EQ(Column(rtvout.Grid1, resultcol::LineName), (Texts{"1E+100", "1E+99"}));
}

// The marks of the block of differences, row by row, one character per line's
// column ('*' or '.').
std::vector<std::string> Marks(const Rtvout& rtvout) {
    std::vector<std::string> out;
    const auto& pairs = rtvout.columns.PairColumns;
    for (int row = 1; row < rtvout.Grid1.rows(); ++row) {
        std::string line;
        for (std::size_t i = 1; i < pairs.size(); ++i) {
            const std::string& cell = rtvout.Grid1.text(row, pairs[i]);
            line += cell.empty() ? '.' : cell[0];
        }
        out.push_back(line);
    }
    return out;
}

TEST(MarkOverlaps, LimitsThatTouchOverlap) {
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"a", "1.500", "1", "2"}, {"b", "2.500", "2", "3"}});
    MarkOverlaps(rtvout);
    EXPECT_EQ(Marks(rtvout), (Texts{"**", "**"}));
}

TEST(MarkOverlaps, LimitsApartMarkOnlyTheDiagonal) {
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"a", "1.500", "1", "2"}, {"b", "2.500", "2.01", "3"}});
    MarkOverlaps(rtvout);
    EXPECT_EQ(Marks(rtvout), (Texts{"*.", ".*"}));
}

TEST(MarkOverlaps, ALineWithoutLimitsGetsNoMarksAtAll) {
    // The middle line had g of 0.4 or more: both its limit cells are empty.
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b", "c"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout,
             {{"a", "1.000", "0.5", "5"}, {"b", "2.000", "", ""}, {"c", "3.000", "1", "6"}});
    MarkOverlaps(rtvout);
    EXPECT_EQ(Marks(rtvout), (Texts{"*.*", "...", "*.*"}));
}

TEST(MarkOverlaps, AnEmptyLowerLimitCountsAsNoneAndAnUpperLimitOfZeroAsAValue) {
    // Line b has a lower limit of 0 (an empty cell) and an upper limit of "0": its
    // own column marks every line above it, since their upper limits are not below
    // 0, and nothing below it, itself included, since its lower cell is empty and
    // those below have none above 0.
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b", "c"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout,
             {{"a", "1.000", "0.5", "2"}, {"b", "2.000", "", "0"}, {"c", "3.000", "4", "6"}});
    MarkOverlaps(rtvout);
    EXPECT_EQ(Marks(rtvout), (Texts{"**.", "...", "..*"}));
}

TEST(FillToxicityIndexAndRatio, OneLineAgainstItself) {
    Rtvin rtvin;
    AddLines(rtvin, {"only"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"only", "7.250"}});
    SharedRegisters shared;
    FillToxicityIndex(rtvin, rtvout, shared);
    FillResistanceRatio(rtvin, rtvout, shared);
    EXPECT_EQ(rtvout.Grid1.text(1, rtvout.columns.IndexColumn), "100.000");
    EXPECT_EQ(rtvout.Grid1.text(1, rtvout.columns.RatioColumn), "1.000");
    EXPECT_EQ(rtvout.Label1,
              " Index compared with only       Resistance Ratio (RR) compared with only");
}

TEST(FillToxicityIndexAndRatio, FirstOneIsTheMostPotentLineAfterTheSort) {
    Rtvin rtvin;
    AddLines(rtvin, {"c", "a", "b"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"a", "2.5"}, {"b", "10"}, {"c", "12.5"}});
    SharedRegisters shared;
    FillToxicityIndex(rtvin, rtvout, shared);
    FillResistanceRatio(rtvin, rtvout, shared);
    EXPECT_EQ(Column(rtvout.Grid1, rtvout.columns.IndexColumn),
              (Texts{"100.000", "25.000", "20.000"}));
    EXPECT_EQ(Column(rtvout.Grid1, rtvout.columns.RatioColumn), (Texts{"1.000", "4.000", "5.000"}));
}

TEST(FillToxicityIndexAndRatio, FiveLinesAgainstTheLastOne) {
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b", "c", "d", "e"});
    rtvin.Combo4.listIndex = rtvin.Combo4.lastIndex();
    EXPECT_EQ(rtvin.Combo4.selectedText(), "Last one");
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"a", "1"}, {"b", "2"}, {"c", "4"}, {"d", "5"}, {"e", "8"}});
    SharedRegisters shared;
    FillResistanceRatio(rtvin, rtvout, shared);
    EXPECT_EQ(Column(rtvout.Grid1, rtvout.columns.RatioColumn),
              (Texts{"0.125", "0.250", "0.500", "0.625", "1.000"}));
    // Without the index first, no blanks lead the caption.
    EXPECT_EQ(rtvout.Label1, " Resistance Ratio (RR) compared with e");
}

TEST(FillToxicityIndexAndRatio, ANamedReferenceIsFoundByNameAfterTheSort) {
    Rtvin rtvin;
    AddLines(rtvin, {"c", "a", "b"});
    rtvin.Combo4.listIndex = 3;
    ASSERT_EQ(rtvin.Combo4.selectedText(), "b");
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"a", "2.5"}, {"b", "10"}, {"c", "12.5"}});
    SharedRegisters shared;
    FillResistanceRatio(rtvin, rtvout, shared);
    EXPECT_EQ(Column(rtvout.Grid1, rtvout.columns.RatioColumn), (Texts{"0.250", "1.000", "1.250"}));
    EXPECT_EQ(rtvout.Label1, " Resistance Ratio (RR) compared with b");
}

TEST(FillToxicityIndexAndRatio, OfTwoLinesOfOneNameTheLastInSortedOrderIsTheReference) {
    Rtvin rtvin;
    AddLines(rtvin, {"strain", "lab", "strain"});
    rtvin.Combo3.listIndex = 1;
    ASSERT_EQ(rtvin.Combo3.selectedText(), "strain");
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"strain", "2.5"}, {"lab", "10"}, {"strain", "12.5"}});
    SharedRegisters shared;
    FillToxicityIndex(rtvin, rtvout, shared);
    EXPECT_EQ(Column(rtvout.Grid1, rtvout.columns.IndexColumn),
              (Texts{"500.000", "125.000", "100.000"}));
}

TEST(FillToxicityIndexAndRatio, TheCaptionQuotesANameWithBlanksAsItIs) {
    Rtvin rtvin;
    AddLines(rtvin, {"field strain  2024"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"field strain  2024", "3"}});
    SharedRegisters shared;
    FillToxicityIndex(rtvin, rtvout, shared);
    EXPECT_EQ(rtvout.Label1, " Index compared with field strain  2024");
}

TEST(FillToxicityIndexAndRatio, AZeroReferenceOrEstimateIsAFault) {
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b"});
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"a", "0"}, {"b", "4"}});
    SharedRegisters shared;
    EXPECT_THROW(FillResistanceRatio(rtvin, rtvout, shared), Fault);
    EXPECT_THROW(FillToxicityIndex(rtvin, rtvout, shared), Fault);
}

}  // namespace
}  // namespace morvane
