// morvane-cli import: a new line from a data file, with exact messages and exit
// statuses, and the output left alone whenever the import fails.
#include <gtest/gtest.h>

#include <filesystem>

#include "CliRun.h"

namespace morvane::testing {
namespace {

class ImportCliTest : public ::testing::Test {
  protected:
    ImportCliTest() {
        // A line of the data type "Total and Responded".
        std::filesystem::copy_file(std::string(MORVANE_DOCUMENT_FIXTURES) + "/worked-type1.mrv",
                                   folder.file("line.mrv"));
    }
    CliResult Import(const std::vector<std::string>& extra) {
        std::vector<std::string> args{"import"};
        args.insert(args.end(), extra.begin(), extra.end());
        return RunCli(args, folder.path());
    }
    TempFolder folder;
};

TEST_F(ImportCliTest, CsvBecomesANewLineSavedAsSaveSavesIt) {
    WriteBytes(folder.file("plain.csv"), "1,20,2\r\n2,20,6\r\n4,20,13\r\n8,20,19\r\n");
    WriteBytes(folder.file("spread.txt"), "1\n\"20\"\n2\n2,20,6,4,20,13\n8,20,19");
    const CliResult a = Import({"plain.csv", "--options", "line.mrv", "--out", "a.mrv"});
    EXPECT_EQ(a.status, 0);
    EXPECT_EQ(a.out, "4 rows imported into a.mrv\n");
    EXPECT_EQ(a.err, "");
    const CliResult b = Import(
        {"spread.txt", "--options", "line.mrv", "--out", "b.mrv", "--sheet", "x", "--header"});
    EXPECT_EQ(b.status, 0);
    EXPECT_EQ(ReadBytes(folder.file("a.mrv")), ReadBytes(folder.file("b.mrv")));
    const CliResult report = RunCli({"report", "a.mrv"}, folder.path());
    EXPECT_EQ(report.status, 0) << report.err;
    EXPECT_EQ(report.err, "");
}

TEST_F(ImportCliTest, ExistingOutputNeedsForceAndIsCheckedFirst) {
    WriteBytes(folder.file("new.mrv"), "old");
    const CliResult r = Import({"missing.csv", "--options", "line.mrv", "--out", "new.mrv"});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.err, "new.mrv exists; give --force to replace it\n");
    EXPECT_EQ(ReadBytes(folder.file("new.mrv")), "old");

    WriteBytes(folder.file("d.csv"), "1,20,2\r\n");
    const CliResult forced =
        Import({"d.csv", "--options", "line.mrv", "--out", "new.mrv", "--force"});
    EXPECT_EQ(forced.status, 0);
    EXPECT_EQ(forced.out, "1 row imported into new.mrv\n");
    EXPECT_NE(ReadBytes(folder.file("new.mrv")), "old");
}

TEST_F(ImportCliTest, RefusedRowLeavesTheOutputAlone) {
    WriteBytes(folder.file("new.mrv"), "old");
    WriteBytes(folder.file("d.csv"), "1,20,2\r\n2,20,26\r\n");
    const CliResult r = Import({"d.csv", "--options", "line.mrv", "--out", "new.mrv", "--force"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "Illogic data, Responded can't be greater than total\n");
    EXPECT_EQ(ReadBytes(folder.file("new.mrv")), "old");
}

TEST_F(ImportCliTest, SheetMessagesOfSeveralLines) {
    const std::string data = MORVANE_IMPORT_DATA;
    const CliResult gap = Import({data + "/xlwt-counts.xls", "--options", "line.mrv", "--out",
                                  "n.mrv", "--sheet", "Nothing"});
    EXPECT_EQ(gap.status, 1);
    EXPECT_EQ(gap.err,
              "An error occurred when opening this file.\nthere is no sheet named \"Nothing\" in "
              "this file\n");
    EXPECT_FALSE(std::filesystem::exists(folder.file("n.mrv")));

    const CliResult odd =
        Import({data + "/garbage.xls", "--options", "line.mrv", "--out", "n.mrv"});
    EXPECT_EQ(odd.status, 1);
    EXPECT_EQ(odd.err, "Can not open this type of files\n");
}

TEST_F(ImportCliTest, FileWithNoRow) {
    WriteBytes(folder.file("empty.csv"), "");
    const CliResult r = Import({"empty.csv", "--options", "line.mrv", "--out", "n.mrv"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "There is no row to import in empty.csv\n");
    EXPECT_FALSE(std::filesystem::exists(folder.file("n.mrv")));
}

TEST_F(ImportCliTest, MissingOptionsOrOutputIsWrongUsage) {
    EXPECT_EQ(Import({"d.csv", "--out", "n.mrv"}).status, 2);
    EXPECT_EQ(Import({"d.csv", "--options", "line.mrv"}).status, 2);
    EXPECT_EQ(Import({"d.csv", "--options", "line.mrv", "--out", "n.mrv", "--bogus"}).status, 2);
}

}  // namespace
}  // namespace morvane::testing
