// The table text of a comparison and the sizing of the results table's columns.
#include "relative/RelativeExport.h"

#include <gtest/gtest.h>

#include "RelativeFixtures.h"

namespace morvane {
namespace {

using testing::AddLines;
using testing::FillRows;

// One line, "a", of which the table shows no more than the name and the estimate:
// no limits, ratios, index, sorted percent or added percents.
void ShowOnlyTheEstimateOfA(Rtvin& rtvin) {
    AddLines(rtvin, {"a"});
    rtvin.Check3Click(false);
    rtvin.Check4Click(false);
    rtvin.Check5Click(false);
    rtvin.Check2.checked = false;
    rtvin.List1.items.clear();
}

TEST(RelativeTableText, RowsByLineFeedsCellsByTabsWithoutTheHiddenKey) {
    Rtvin rtvin;
    AddLines(rtvin, {"a", "b"});
    rtvin.Check3Click(false);
    rtvin.Check4Click(false);
    rtvin.Check2.checked = false;
    rtvin.List1.items.clear();
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"a", "2.5"}, {"b", "10"}});
    rtvout.Grid1.setText(1, rtvout.columns.RatioColumn, "1.000");
    rtvout.Grid1.setText(2, rtvout.columns.RatioColumn, "4.000");
    rtvout.Grid1.setText(1, rtvout.columns.SortKeyColumn, "1.009205015266");
    rtvout.Label1 = " Resistance Ratio (RR) compared with a";
    rtvout.Text3 = "Season 2024, field strains";
    EXPECT_EQ(RelativeTableText(rtvout),
              "No\tLine name\tLD50\tRR\n"
              "1\ta\t2.5\t1.000\n"
              "2\tb\t10\t4.000\n"
              "\n"
              " Resistance Ratio (RR) compared with a\n"
              "Season 2024, field strains");
}

TEST(RelativeTableText, AnEmptyCaptionAndNoteStillEndTheText) {
    Rtvin rtvin;
    ShowOnlyTheEstimateOfA(rtvin);
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"a", "2.5"}});
    EXPECT_EQ(RelativeTableText(rtvout), "No\tLine name\tLD50\n1\ta\t2.5\n\n\n");
}

TEST(SizeResultColumns, TheWidestTextHeaderIncludedPlusAMargin) {
    Rtvin rtvin;
    ShowOnlyTheEstimateOfA(rtvin);
    Rtvout rtvout;
    FillRows(rtvin, rtvout, {{"a much longer line name", ""}});
    rtvout.Grid1.setText(0, resultcol::Estimate, "");  // an empty column
    SizeResultColumns(rtvout, FixedWidthTextMeasurer(100));
    EXPECT_EQ(rtvout.Grid1.columnWidth(resultcol::Number), 380);           // "No": 200 + 180
    EXPECT_EQ(rtvout.Grid1.columnWidth(resultcol::LineName), 2480);        // the name: 2300 + 180
    EXPECT_EQ(rtvout.Grid1.columnWidth(resultcol::Estimate), 180);         // nothing but the margin
    EXPECT_EQ(rtvout.Grid1.columnWidth(rtvout.columns.SortKeyColumn), 0);  // the hidden key
    SizeResultColumns(rtvout, FixedWidthTextMeasurer(-1000));
    EXPECT_EQ(rtvout.Grid1.columnWidth(resultcol::LineName), 100);
    SizeResultColumns(rtvout, FixedWidthTextMeasurer(10.25));
    EXPECT_EQ(rtvout.Grid1.columnWidth(resultcol::LineName), 416);  // 23 * 10.25 + 180 = 415.75
}

}  // namespace
}  // namespace morvane
