// "Save results into files" as logic: the two save dialogs, the replace question for
// a name that is taken (case included), No opening the dialog again, a silent cancel,
// and a failed write that tells the user and leaves the old file as it was.

#include "results/ResultsExport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "document/FileBytes.h"
#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

class ResultsExportTest : public ::testing::Test {
  protected:
    ResultsExportTest() {
        folder = fs::temp_directory_path() /
                 ("morvane-export-" +
                  std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    ~ResultsExportTest() override { fs::remove_all(folder); }

    std::string path(const std::string& name) const { return (folder / name).string(); }
    void writeFile(const std::string& name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
    }

    static std::string replaceQuestion(const std::string& title) {
        return "File with the same name \"" + title +
               "\" already exist.\nDo you want to replace the existing file?";
    }

    fs::path folder;
    testing::ScriptedUserPort port;
    int composed = 0;
    std::function<std::string()> compose = [this] {
        ++composed;
        return std::string("Dose\tLog\n1\t0");
    };
    std::function<std::string()> workbook = [] { return std::string("PK workbook"); };
};

TEST_F(ResultsExportTest, SpreadsheetDialogAndTextWrittenAsItIs) {
    port.saveAnswers.push_back(path("a.xls"));
    EXPECT_TRUE(SaveSpreadsheet(port, compose, workbook));
    ASSERT_EQ(port.saveDialogs.size(), 1u);
    EXPECT_EQ(port.saveDialogs[0].title, "Save results as spreadsheet");
    EXPECT_EQ(port.saveDialogs[0].filter,
              "Excel files (*.xls)|*.xls|Excel workbooks (*.xlsx)|*.xlsx");
    EXPECT_EQ(port.saveDialogs[0].fileName, "");
    EXPECT_EQ(ReadFileBytes(path("a.xls")), "Dose\tLog\n1\t0");
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(ResultsExportTest, CancelIsSilentAndComposesNothing) {
    port.saveAnswers.push_back(std::nullopt);
    EXPECT_FALSE(SaveSpreadsheet(port, compose, workbook));
    EXPECT_EQ(composed, 0);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(ResultsExportTest, TakenNameAsksWithNoAsDefaultAndNoOpensTheDialogAgain) {
    writeFile("old.xls", "old");
    port.saveAnswers.push_back(path("old.xls"));
    port.answers.push_back(Answer::No);
    port.saveAnswers.push_back(path("old.xls"));
    port.answers.push_back(Answer::Yes);
    EXPECT_TRUE(SaveSpreadsheet(port, compose, workbook));
    EXPECT_EQ(port.saveDialogs.size(), 2u);
    ASSERT_EQ(port.messages.size(), 2u);
    EXPECT_EQ(port.messages[0].text, replaceQuestion("old.xls"));
    EXPECT_EQ(port.messages[0].buttons, Buttons::YesNo);
    EXPECT_EQ(port.messages[0].icon, Icon::Critical);
    EXPECT_EQ(port.messages[0].defaultAnswer, Answer::No);
    EXPECT_EQ(ReadFileBytes(path("old.xls")), "Dose\tLog\n1\t0");
}

TEST_F(ResultsExportTest, NoThenCancelKeepsTheOldFile) {
    writeFile("old.xls", "old");
    port.saveAnswers.push_back(path("old.xls"));
    port.answers.push_back(Answer::No);
    port.saveAnswers.push_back(std::nullopt);
    EXPECT_FALSE(SaveSpreadsheet(port, compose, workbook));
    EXPECT_EQ(ReadFileBytes(path("old.xls")), "old");
}

TEST_F(ResultsExportTest, NameIsComparedWithCaseSoAnotherCaseIsNotAsked) {
    writeFile("Old.xls", "old");
    port.saveAnswers.push_back(path("old.xls"));
    EXPECT_TRUE(SaveSpreadsheet(port, compose, workbook));
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(ReadFileBytes(path("Old.xls")), "old");
}

TEST_F(ResultsExportTest, AFolderOfThatNameFailsWithTheMessageAndStaysAFolder) {
    fs::create_directory(folder / "dir.xls");
    port.saveAnswers.push_back(path("dir.xls"));
    EXPECT_FALSE(SaveSpreadsheet(port, compose, workbook));
    ASSERT_EQ(port.messages.size(), 1u);
    const std::string& text = port.messages[0].text;
    EXPECT_EQ(text.rfind("An error occurred while saving this file.\n", 0), 0u) << text;
    EXPECT_GT(text.size(), std::string("An error occurred while saving this file.\n").size());
    EXPECT_TRUE(fs::is_directory(folder / "dir.xls"));
}

TEST_F(ResultsExportTest, ChartIsComposedBeforeItsDialogAndEncodedByTheExtension) {
    std::vector<std::string> order;
    auto composeChart = [&] {
        order.push_back("compose");
        Drawing d(3000, 2000);
        d.line(0, 0, 10, 10);
        return d;
    };
    auto encode = [&](const Drawing& d, PictureFormat format) {
        order.push_back("encode");
        return std::to_string(static_cast<int>(format)) + ":" + d.dump();
    };
    port.saveAnswers.push_back(path("chart.bmp"));
    port.saveAnswers.push_back(path("chart.SVG"));
    EXPECT_TRUE(SaveChartBitmap(port, composeChart, encode));
    EXPECT_TRUE(SaveChartBitmap(port, composeChart, encode));
    EXPECT_EQ(order, (std::vector<std::string>{"compose", "encode", "compose", "encode"}));
    EXPECT_EQ(port.saveDialogs[0].title, "Save chart as bmp file");
    EXPECT_EQ(port.saveDialogs[0].filter,
              "Bitmap files (*.bmp)|*.bmp|PNG pictures (*.png)|*.png|"
              "SVG pictures (*.svg)|*.svg|PDF documents (*.pdf)|*.pdf");
    EXPECT_EQ(ReadFileBytes(path("chart.bmp")), "0:line 0 0 10 10 w1\n");
    EXPECT_EQ(ReadFileBytes(path("chart.SVG")), "2:line 0 0 10 10 w1\n");
}

TEST_F(ResultsExportTest, TakenBitmapAsksAndAFailedEncodingKeepsTheOldFile) {
    writeFile("chart.bmp", "old");
    port.saveAnswers.push_back(path("chart.bmp"));
    port.answers.push_back(Answer::Yes);
    auto encode = [](const Drawing&, PictureFormat) -> std::string {
        throw Fault("the picture is too large");
    };
    EXPECT_FALSE(SaveChartBitmap(
        port, [] { return Drawing(10, 10); }, encode));
    EXPECT_EQ(port.texts(),
              (std::vector<std::string>{
                  replaceQuestion("chart.bmp"),
                  "An error occurred while saving this file.\nthe picture is too large"}));
    EXPECT_EQ(ReadFileBytes(path("chart.bmp")), "old");
}

TEST_F(ResultsExportTest, WorkbookNameGetsTheWorkbookAndItsOwnReplaceQuestion) {
    writeFile("old.xls", "old");
    writeFile("old.xlsx", "old");
    port.saveAnswers.push_back(path("new.XLSX"));
    port.saveAnswers.push_back(path("old.xlsx"));
    port.answers.push_back(Answer::Yes);
    EXPECT_TRUE(SaveSpreadsheet(port, compose, workbook));
    EXPECT_TRUE(SaveSpreadsheet(port, compose, workbook));
    EXPECT_EQ(port.texts(), std::vector<std::string>{replaceQuestion("old.xlsx")});
    EXPECT_EQ(ReadFileBytes(path("new.XLSX")), "PK workbook");
    EXPECT_EQ(ReadFileBytes(path("old.xlsx")), "PK workbook");
    EXPECT_EQ(ReadFileBytes(path("old.xls")), "old");
    EXPECT_EQ(composed, 0);
}

TEST(PictureFormats, ExtensionPicksTheFormatWithoutRegardToCase) {
    EXPECT_EQ(PictureFormatOf("/a/b.bmp"), PictureFormat::Bmp);
    EXPECT_EQ(PictureFormatOf("b.PNG"), PictureFormat::Png);
    EXPECT_EQ(PictureFormatOf("b.svg"), PictureFormat::Svg);
    EXPECT_EQ(PictureFormatOf("b.Pdf"), PictureFormat::Pdf);
    EXPECT_EQ(PictureFormatOf("b.jpg"), std::nullopt);
}

}  // namespace
}  // namespace morvane
