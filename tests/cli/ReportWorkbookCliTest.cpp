// morvane-cli report --xlsx: the workbook beside the printed tables, and a workbook
// that can't be saved, which is told and leaves what stood there as it was.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "CliRun.h"

namespace morvane {
namespace {

using testing::CliResult;
using testing::RunCli;
using testing::WriteBytes;

class ReportWorkbookCliTest : public testing::CliTest {
  protected:
    ReportWorkbookCliTest() {
        WriteBytes(folder.file("rotenone.mrv"), testing::RotenoneLineFile());
    }
};

TEST_F(ReportWorkbookCliTest, WorkbookIsWrittenBesideTheSameTablesText) {
    const CliResult plain = RunCli({"report", "rotenone.mrv"}, folder.path());
    const CliResult withBook =
        RunCli({"report", "rotenone.mrv", "--xlsx", "rotenone.xlsx"}, folder.path());
    EXPECT_EQ(withBook.out, plain.out);
    EXPECT_EQ(withBook.err, "");
    EXPECT_EQ(withBook.status, 0);
    const std::string book = bytes("rotenone.xlsx");
    ASSERT_GT(book.size(), 4u);
    EXPECT_EQ(book.substr(0, 4), std::string("PK\x03\x04", 4));
    EXPECT_NE(book.find("xl/worksheets/sheet2.xml"), std::string::npos);
    // The fixed creation time makes a second run give the same bytes.
    RunCli({"report", "rotenone.mrv", "--xlsx", "again.xlsx"}, folder.path());
    EXPECT_EQ(bytes("again.xlsx"), book);
}

TEST_F(ReportWorkbookCliTest, AFolderOfThatNameIsToldAndStaysAFolder) {
    std::filesystem::create_directory(folder.file("taken.xlsx"));
    const CliResult result =
        RunCli({"report", "rotenone.mrv", "--xlsx", "taken.xlsx"}, folder.path());
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err.rfind("An error occurred while saving this file.\n", 0), 0u) << result.err;
    EXPECT_TRUE(std::filesystem::is_directory(folder.file("taken.xlsx")));
}

TEST_F(ReportWorkbookCliTest, XlsxWithoutAFileIsAUsageError) {
    const CliResult result = RunCli({"report", "rotenone.mrv", "--xlsx"}, folder.path());
    EXPECT_NE(result.status, 0);
    EXPECT_NE(result.err.find("Usage"), std::string::npos) << result.err;
}

}  // namespace
}  // namespace morvane
