// The results as a workbook: a real .xlsx (a zip package with the two sheets), the
// same bytes for the same results thanks to the fixed creation time.

#include "results/ResultsWorkbook.h"

#include <gtest/gtest.h>

#include <string>

namespace morvane {
namespace {

class ResultsWorkbookTest : public ::testing::Test {
  protected:
    ResultsWorkbookTest() : grid1(3, 2) {
        grid1.setText(1, 0, "1");
        grid1.setText(1, 1, "0.0000");
        grid1.setText(2, 0, "10");
        grid1.setText(2, 1, "1.0000");
        headings[0] = "Dose";
        headings[1] = "Log Dose";
    }
    TextTable grid1;
    ColumnHeadings headings;
    const std::string text = "Dose\tLog Dose\n1\t0.0000\n10\t1.0000\n\n\nChi\t1.5\t3.84\t";
};

TEST_F(ResultsWorkbookTest, IsAZipPackageWithTheResultsAndTheDataSheets) {
    const std::string bytes = ComposeResultsWorkbook(text, grid1, headings);
    ASSERT_GT(bytes.size(), 4u);
    EXPECT_EQ(bytes.substr(0, 4), std::string("PK\x03\x04", 4));
    // The names of the package's parts stand uncompressed in its directory.
    EXPECT_NE(bytes.find("xl/workbook.xml"), std::string::npos);
    EXPECT_NE(bytes.find("xl/worksheets/sheet1.xml"), std::string::npos);
    EXPECT_NE(bytes.find("xl/worksheets/sheet2.xml"), std::string::npos);
    EXPECT_EQ(bytes.find("xl/worksheets/sheet3.xml"), std::string::npos);
}

TEST_F(ResultsWorkbookTest, SameResultsGiveTheSameBytes) {
    EXPECT_EQ(ComposeResultsWorkbook(text, grid1, headings),
              ComposeResultsWorkbook(text, grid1, headings));
    EXPECT_NE(ComposeResultsWorkbook(text, grid1, headings),
              ComposeResultsWorkbook(text + "x", grid1, headings));
}

TEST_F(ResultsWorkbookTest, NoDataRowsGiveOnlyTheResultsSheet) {
    const std::string bytes = ComposeResultsWorkbook(text, TextTable(0, 0), {});
    EXPECT_NE(bytes.find("xl/worksheets/sheet1.xml"), std::string::npos);
    EXPECT_EQ(bytes.find("xl/worksheets/sheet2.xml"), std::string::npos);
}

}  // namespace
}  // namespace morvane
