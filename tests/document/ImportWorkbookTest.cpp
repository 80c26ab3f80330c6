// Imports of files written by spreadsheet programs and libraries, read by their
// content, with the messages of files that can't be read.
#include <gtest/gtest.h>

#include "DocumentTestSupport.h"
#include "document/ImportWorkbook.h"

namespace morvane::testing {
namespace {

std::string DataFile(const std::string& name) {
    return std::string(MORVANE_IMPORT_DATA) + "/" + name;
}

class ImportWorkbookTest : public DocumentTest {
  protected:
    // Grid1's data rows as "dose|first|second" of the visible columns 1 to 3.
    std::vector<std::string> DataRows() const {
        std::vector<std::string> out;
        for (int r = 1; r < doc.Grid1().rows() - 1; ++r)
            out.push_back(Row(doc.Grid1(), r));
        return out;
    }
    std::vector<std::string> TypedRows(DataType type,
                                       const std::vector<std::vector<std::string>>& rows) {
        StartLine(type);
        for (const auto& row : rows)
            Type(row[0], row[1], row.size() > 2 ? row[2] : "");
        return DataRows();
    }
};

TEST_F(ImportWorkbookTest, SheetNamesInTheirOrder) {
    EXPECT_EQ(WorkbookSheetNames(DataFile("xlwt-counts.xls"), ImportFormat::Xls),
              (std::vector<std::string>{"Notes", "Data"}));
    EXPECT_EQ(WorkbookSheetNames(DataFile("openpyxl-counts.xlsx"), ImportFormat::Xlsx),
              (std::vector<std::string>{"Data", "Other"}));
    EXPECT_EQ(WorkbookSheetNames(DataFile("handmade-percent.ods"), ImportFormat::Ods),
              (std::vector<std::string>{"Percent"}));
}

TEST_F(ImportWorkbookTest, XlsWithHeaderStopsAtTheGap) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome =
        ImportDataFile(doc, port, DataFile("xlwt-counts.xls"), {"Data", true});
    EXPECT_EQ(outcome.rowsTaken, 4);
    EXPECT_EQ(port.texts(),
              (std::vector<std::string>{
                  "Morvane can't continue importing data\nthere is an empty cell in row no. 6"}));
    const std::vector<std::string> imported = DataRows();
    EXPECT_EQ(imported,
              TypedRows(DataType::RespondedAndNonResponded,
                        {{"1", "2", "18"}, {"2", "5", "15"}, {"4", "9", "11"}, {"8", "15", "5"}}));
}

TEST_F(ImportWorkbookTest, XlsxFirstSheetWhenNoneIsNamed) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome = ImportDataFile(doc, port, DataFile("openpyxl-counts.xlsx"), {});
    EXPECT_EQ(outcome.rowsTaken, 4);
    EXPECT_FALSE(outcome.failed);
    EXPECT_TRUE(port.messages.empty());
    const std::vector<std::string> imported = DataRows();
    EXPECT_EQ(imported,
              TypedRows(DataType::RespondedAndNonResponded,
                        {{"1", "2", "18"}, {"2", "5", "15"}, {"4", "9", "11"}, {"8", "15", "5"}}));
}

TEST_F(ImportWorkbookTest, OdsPercentages) {
    StartLine(DataType::ResponsePercentage);
    const ImportOutcome outcome =
        ImportDataFile(doc, port, DataFile("handmade-percent.ods"), {"Percent", true});
    EXPECT_EQ(outcome.rowsTaken, 3);
    EXPECT_TRUE(port.messages.empty());
    const std::vector<std::string> imported = DataRows();
    EXPECT_EQ(imported,
              TypedRows(DataType::ResponsePercentage, {{"1", "10"}, {"2", "25.5"}, {"4", "60"}}));
}

TEST_F(ImportWorkbookTest, CsvIsReadByItsContentWhateverItsName) {
    StartLine(DataType::RespondedAndNonResponded);
    EXPECT_EQ(ImportDataFile(doc, port, DataFile("counts.csv"), {"Ignored", true}).rowsTaken, 4);
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(ImportWorkbookTest, SheetThatIsNotThereResetsTheDocument) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome =
        ImportDataFile(doc, port, DataFile("xlwt-counts.xls"), {"Sheet1", false});
    EXPECT_TRUE(outcome.failed);
    EXPECT_EQ(LastMessage(),
              "An error occurred when opening this file.\nthere is no sheet named \"Sheet1\" in "
              "this file");
    EXPECT_EQ(doc.Grid1().cols(), 3);
    StartLine(DataType::RespondedAndNonResponded);
    ImportDataFile(doc, port, DataFile("openpyxl-counts.xlsx"), {"data", false});
    EXPECT_EQ(
        LastMessage(),
        "An error occurred when opening this file.\nthere is no sheet named \"data\" in this file");
}

TEST_F(ImportWorkbookTest, TextInANumberColumnOfAWorkbook) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome =
        ImportDataFile(doc, port, DataFile("openpyxl-text-in-number.xlsx"), {});
    EXPECT_TRUE(outcome.failed);
    EXPECT_EQ(LastMessage(), "An error occurred when opening this file.\n\"five\" is not a number");
    EXPECT_EQ(doc.Grid1().rows(), 2);
}

TEST_F(ImportWorkbookTest, FilesThatCanNotBeRead) {
    StartLine(DataType::RespondedAndNonResponded);
    ImportDataFile(doc, port, DataFile("garbage.xls"), {});
    EXPECT_EQ(LastMessage(), "Can not open this type of files");
    ImportDataFile(doc, port, DataFile("truncated.xls"), {});
    EXPECT_EQ(LastMessage().rfind("An error occurred when opening this file.\n", 0), 0u)
        << LastMessage();
    ImportDataFile(doc, port, DataFile("truncated.xlsx"), {});
    EXPECT_EQ(LastMessage().rfind(
                  "An error occurred when opening this file.\nthe workbook can not be read", 0),
              0u)
        << LastMessage();
    EXPECT_EQ(doc.Grid1().cols(), 3);
    ImportDataFile(doc, port, DataFile("no-such-file.csv"), {});
    EXPECT_EQ(LastMessage(), "No such file or directory");
}

TEST_F(ImportWorkbookTest, EmptyFileIsAnEmptyTextFile) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome = ImportDataFile(doc, port, DataFile("empty.xlsx"), {});
    EXPECT_EQ(outcome.rowsTaken, 0);
    EXPECT_FALSE(outcome.failed);
    EXPECT_TRUE(port.messages.empty());
}

}  // namespace
}  // namespace morvane::testing
