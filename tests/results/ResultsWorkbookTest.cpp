// The results as a workbook: a real .xlsx (a zip package with the two sheets), the
// same bytes for the same results thanks to the fixed creation time.

#include "results/ResultsWorkbook.h"

#include <gtest/gtest.h>

#include <orcus/zip_archive.hpp>
#include <orcus/zip_archive_stream.hpp>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "document/Import.h"
#include "document/ImportWorkbook.h"

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

namespace morvane {
namespace {

// One part of the package, read with liborcus.
std::string PackagePart(const std::string& bytes, const std::string& name) {
    orcus::zip_archive_stream_blob stream(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                          bytes.size());
    orcus::zip_archive archive(&stream);
    archive.load();
    std::vector<unsigned char> buffer;
    if (!archive.read_file_entry(name, buffer))
        return {};
    return std::string(buffer.begin(), buffer.end());
}

TEST(WorkbookReadBackTest, NumbersAreNumbersInTheFormatOfTheirText) {
    TextTable grid1(3, 2);
    grid1.setText(1, 0, "2.6");
    grid1.setText(1, 1, "0.4150");
    grid1.setText(2, 0, "10");
    grid1.setText(2, 1, "1.0086");
    const ColumnHeadings headings{"Dose", "Log Dose"};
    const std::string text = "Slope\t2.3450\t+/- 0.4004\t\n25\t1.9752\t1.22\t2.6934\t";
    const std::string bytes = ComposeResultsWorkbook(text, grid1, headings);
    // The spreadsheet reads numbers as numbers and the rest as text.
    const std::string path = ::testing::TempDir() + "read-back.xlsx";
    {
        std::ofstream file(path, std::ios::binary);
        file << bytes;
    }
    const Sheet results = ReadWorkbookSheet(path, ImportFormat::Xlsx, "Results");
    EXPECT_EQ(results.cell(1, 1), "Slope");
    EXPECT_EQ(results.cell(1, 2), "2.345");
    EXPECT_EQ(results.cell(1, 3), "+/- 0.4004");
    EXPECT_EQ(results.cell(2, 4), "2.6934");
    const Sheet data = ReadWorkbookSheet(path, ImportFormat::Xlsx, "Data");
    EXPECT_EQ(data.cell(1, 2), "Log Dose");
    EXPECT_EQ(data.cell(2, 2), "0.415");
    std::remove(path.c_str());
    // Each pattern is one format of the workbook's styles: 0.0000, 0.0, 0 and 0.00.
    const std::string styles = PackagePart(bytes, "xl/styles.xml");
    for (const char* code : {"0.0000", "0.0", "0", "0.00"})
        EXPECT_NE(styles.find(std::string("formatCode=\"") + code + "\""), std::string::npos)
            << code;
    EXPECT_EQ(styles.find("formatCode=\"0.000\""), std::string::npos);
    // The slope's cell B1 takes a style of its own, the text A1 none.
    const std::string sheet = PackagePart(bytes, "xl/worksheets/sheet1.xml");
    EXPECT_NE(sheet.find("<c r=\"B1\" s=\""), std::string::npos);
    EXPECT_NE(sheet.find("<c r=\"A1\" t=\"s\">"), std::string::npos);
}

TEST(NumberFormatTest, TheFormatShowsTheDigitsOfTheText) {
    EXPECT_EQ(NumberFormatOf("12.000"), "0.000");
    EXPECT_EQ(NumberFormatOf("0.0000"), "0.0000");
    EXPECT_EQ(NumberFormatOf("-1.5"), "0.0");
    EXPECT_EQ(NumberFormatOf("3"), "0");
    EXPECT_EQ(NumberFormatOf("100.000"), "0.000");
    EXPECT_EQ(NumberFormatOf("1.5E-05"), "0.0E+00");
    EXPECT_EQ(NumberFormatOf("2E+120"), "0E+000");
    EXPECT_EQ(NumberFormatOf("Slope"), "");
    EXPECT_EQ(NumberFormatOf("+/- 0.40"), "");
    EXPECT_EQ(NumberFormatOf(".5"), "");
    EXPECT_EQ(NumberFormatOf("1E"), "");
}

}  // namespace
}  // namespace morvane
