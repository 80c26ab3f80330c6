// morvane-cli report --chart and compare --xlsx --chart: the picture files of "Save
// results into files" beside the printed text, their names checked before anything
// runs, and a file that can't be written told with nothing lost. Pictures are read
// back by their size and texts, never by their pixels.

#include <gtest/gtest.h>

#include <cstdio>
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

class ChartCliTest : public testing::CliTest {
  protected:
    ChartCliTest() {
        WriteBytes(folder.file("rotenone.mrv"), testing::RotenoneLineFile());
        WriteBytes(folder.file("strainB.mrv"), testing::RotenoneLineFile());
    }
    // The width and height of a PNG file, from its header.
    std::pair<int, int> pngSize(const std::string& name) const {
        const std::string png = bytes(name);
        auto word = [&png](std::size_t at) {
            return (static_cast<unsigned char>(png[at]) << 24) |
                   (static_cast<unsigned char>(png[at + 1]) << 16) |
                   (static_cast<unsigned char>(png[at + 2]) << 8) |
                   static_cast<unsigned char>(png[at + 3]);
        };
        if (png.size() < 24 || png.compare(1, 3, "PNG") != 0)
            return {0, 0};
        return {static_cast<int>(word(16)), static_cast<int>(word(20))};
    }
    // The value of an attribute of the <svg> element.
    std::string svgAttribute(const std::string& name, const std::string& attribute) const {
        const std::string svg = bytes(name);
        const std::size_t element = svg.find("<svg");
        const std::size_t at = svg.find(" " + attribute + "=\"", element);
        if (element == std::string::npos || at == std::string::npos)
            return {};
        const std::size_t from = at + attribute.size() + 3;
        return svg.substr(from, svg.find('"', from) - from);
    }
};

TEST_F(ChartCliTest, ReportWritesTheChartBesideTheSameText) {
    const CliResult plain = RunCli({"report", "rotenone.mrv"}, folder.path());
    const CliResult svg =
        RunCli({"report", "rotenone.mrv", "--chart", "rotenone.svg"}, folder.path());
    EXPECT_EQ(svg.out, plain.out);
    EXPECT_EQ(svg.err, "");
    EXPECT_EQ(svg.status, 0);
    const std::string picture = bytes("rotenone.svg");
    EXPECT_EQ(picture.rfind("<?xml", 0), 0u);
    EXPECT_NE(picture.find(">Probit<"), std::string::npos);
    EXPECT_NE(picture.find(">Response percentage<"), std::string::npos);
    EXPECT_NE(picture.find(">Con.  (mg / L)<"), std::string::npos);
    // The chart of the results window at its least size, one and a half times:
    // the chart's frame is 9000 by 6400 twips there, 13500 by 9600 in the picture,
    // 900 by 640 dots at 96 dots to the inch.
    EXPECT_EQ(svgAttribute("rotenone.svg", "viewBox"), "0 0 900 640");

    ASSERT_EQ(RunCli({"report", "rotenone.mrv", "--chart", "rotenone.png"}, folder.path()).status,
              0);
    EXPECT_EQ(pngSize("rotenone.png"), std::make_pair(900, 640));
    ASSERT_EQ(RunCli({"report", "rotenone.mrv", "--chart", "rotenone.pdf"}, folder.path()).status,
              0);
    EXPECT_EQ(bytes("rotenone.pdf").rfind("%PDF-", 0), 0u);
    ASSERT_EQ(RunCli({"report", "rotenone.mrv", "--chart", "ROTENONE.BMP"}, folder.path()).status,
              0);
    EXPECT_EQ(bytes("ROTENONE.BMP").rfind("BM", 0), 0u);
}

TEST_F(ChartCliTest, ANameOfAnotherKindIsRefusedBeforeAnythingRuns) {
    const CliResult result =
        RunCli({"report", "rotenone.mrv", "--chart", "rotenone.txt"}, folder.path());
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "report: the chart's file \"rotenone.txt\" must end in .svg, .png, .pdf or .bmp\n");
    EXPECT_EQ(result.status, 2);
    EXPECT_FALSE(std::filesystem::exists(folder.file("rotenone.txt")));
    const CliResult compare =
        RunCli({"compare", "--chart", "lines.gif", "rotenone.mrv", "strainB.mrv"}, folder.path());
    EXPECT_EQ(compare.out, "");
    EXPECT_EQ(compare.err,
              "compare: the chart's file \"lines.gif\" must end in .svg, .png, .pdf or .bmp\n");
    EXPECT_EQ(compare.status, 2);
}

TEST_F(ChartCliTest, ChartWithoutANameIsWrongUsage) {
    const CliResult result = RunCli({"report", "rotenone.mrv", "--chart"}, folder.path());
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.rfind("Usage: morvane-cli COMMAND [ARGUMENTS]\n", 0), 0u);
    EXPECT_EQ(result.status, 2);
}

TEST_F(ChartCliTest, AFolderOfThatNameIsToldAndAnOldFileStays) {
    std::filesystem::create_directory(folder.file("taken.svg"));
    const CliResult folderResult =
        RunCli({"report", "rotenone.mrv", "--chart", "taken.svg"}, folder.path());
    EXPECT_EQ(folderResult.status, 1);
    EXPECT_EQ(folderResult.err.rfind("An error occurred while saving this file.\n", 0), 0u);
    EXPECT_TRUE(std::filesystem::is_directory(folder.file("taken.svg")));
}

TEST_F(ChartCliTest, AFolderThatCantBeWrittenKeepsItsOldPicture) {
    std::filesystem::create_directory(folder.file("locked"));
    WriteBytes(folder.file("locked/old.png"), "old picture");
    std::filesystem::permissions(folder.file("locked"), std::filesystem::perms::owner_read |
                                                            std::filesystem::perms::owner_exec);
    const CliResult locked =
        RunCli({"report", "rotenone.mrv", "--chart", "locked/old.png"}, folder.path());
    std::filesystem::permissions(folder.file("locked"), std::filesystem::perms::owner_all);
    if (locked.status == 0)
        GTEST_SKIP() << "the tests run with the rights to write anywhere";
    EXPECT_EQ(bytes("locked/old.png"), "old picture");
    EXPECT_EQ(locked.status, 1);
    EXPECT_EQ(locked.err.rfind("An error occurred while saving this file.\n", 0), 0u);
}

// A disk that fills while the picture is written, played by a file-size limit of
// 4 kilobytes: the picture is larger, the failure is told and the old file stays.
TEST_F(ChartCliTest, AFullDiskIsToldAndTheOldPictureStays) {
    WriteBytes(folder.file("old.png"), "old picture");
    const std::string command = "cd " + testing::ShellWord(folder.path()) +
                                " && ulimit -f 4 && exec " + testing::ShellWord(MORVANE_CLI_PATH) +
                                " report rotenone.mrv --chart old.png >/dev/null 2>err.txt";
    const int raw = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(raw));
    EXPECT_EQ(WEXITSTATUS(raw), 1);
    EXPECT_EQ(bytes("err.txt").rfind("An error occurred while saving this file.\n", 0), 0u);
    EXPECT_EQ(bytes("old.png"), "old picture");
    // Nothing of the attempt is left beside it.
    int files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.path()))
        ++files;
    EXPECT_EQ(files, 4);  // the two line files, the old picture and err.txt
}

TEST_F(ChartCliTest, CompareWritesTheWorkbookAndTheChartOfTheLines) {
    const CliResult plain = RunCli({"compare", "rotenone.mrv", "strainB.mrv"}, folder.path());
    ASSERT_EQ(plain.status, 0);
    const CliResult result = RunCli(
        {"compare", "--xlsx", "lines.xlsx", "--chart", "lines.svg", "rotenone.mrv", "strainB.mrv"},
        folder.path());
    EXPECT_EQ(result.out, plain.out);
    EXPECT_EQ(result.err, plain.err);
    EXPECT_EQ(result.status, 0);
    const std::string book = bytes("lines.xlsx");
    ASSERT_GT(book.size(), 4u);
    EXPECT_EQ(book.substr(0, 4), std::string("PK\x03\x04", 4));
    RunCli({"compare", "--xlsx", "again.xlsx", "rotenone.mrv", "strainB.mrv"}, folder.path());
    EXPECT_EQ(bytes("again.xlsx"), book);
    const std::string svg = bytes("lines.svg");
    EXPECT_NE(svg.find(">1- rotenone<"), std::string::npos);
    EXPECT_NE(svg.find(">2- strainB<"), std::string::npos);
    EXPECT_NE(svg.find(">Probit<"), std::string::npos);
}

TEST_F(ChartCliTest, AFailedComparisonWritesNoFiles) {
    WriteBytes(folder.file("broken.mrv"), "not a line file");
    const CliResult result =
        RunCli({"compare", "--xlsx", "lines.xlsx", "rotenone.mrv", "broken.mrv"}, folder.path());
    EXPECT_EQ(result.status, 1);
    EXPECT_FALSE(std::filesystem::exists(folder.file("lines.xlsx")));
}

}  // namespace
}  // namespace morvane
