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

TEST_F(ImportWorkbookTest, FileDialogOpensWithTheFilterChosenLast) {
    int filterIndex = 0;
    port.openAnswers = {DataFile("counts.csv"), std::nullopt, DataFile("xlwt-counts.xls")};
    port.openFilterChoices = {6, 2};
    EXPECT_EQ(ChooseImportFile(port, filterIndex), DataFile("counts.csv"));
    EXPECT_EQ(filterIndex, 6);
    // A cancelled dialog keeps the choice before it.
    EXPECT_EQ(ChooseImportFile(port, filterIndex), std::nullopt);
    EXPECT_EQ(filterIndex, 6);
    EXPECT_EQ(ChooseImportFile(port, filterIndex), DataFile("xlwt-counts.xls"));
    EXPECT_EQ(filterIndex, 2);
    ASSERT_EQ(port.openDialogs.size(), 3u);
    EXPECT_EQ(port.openDialogs[0].filterIndex, 0);
    EXPECT_EQ(port.openDialogs[1].filterIndex, 6);
    EXPECT_EQ(port.openDialogs[2].filterIndex, 6);
    EXPECT_EQ(port.openDialogs[0].title, "Import data from Text or Excel file");
    EXPECT_EQ(port.openDialogs[0].filter,
              "All data files (*.txt *.csv *.xls *.xlsx *.ods)|*.txt *.csv *.xls *.xlsx *.ods|"
              "Excel Files (*.xls)|*.xls|Excel Files (*.xlsx)|*.xlsx|"
              "OpenDocument spreadsheets (*.ods)|*.ods|Text Files (*.txt)|*.txt|"
              "CSV Files (*.csv)|*.csv");
}

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

// The counts of tests/data/import/make/Data.csv, a header and five rows, as each
// program or library wrote them (make/make-real.sh).
TEST_F(ImportWorkbookTest, WorkbooksWrittenByProgramsAndLibraries) {
    const std::vector<std::string> typed =
        TypedRows(DataType::RespondedAndNonResponded, {{"0.5", "1", "19"},
                                                       {"1", "3", "17"},
                                                       {"2.5", "8", "12"},
                                                       {"5", "14", "6"},
                                                       {"10", "19", "1"}});
    for (const char* name :
         {"libreoffice-counts.xls", "libreoffice-counts.xlsx", "libreoffice-counts.ods",
          "gnumeric-counts.xls", "gnumeric-counts.xlsx", "gnumeric-counts.ods",
          "openpyxl-header-counts.xlsx", "xlwt-header-counts.xls", "libxlsxwriter-counts.xlsx"}) {
        SCOPED_TRACE(name);
        StartLine(DataType::RespondedAndNonResponded);
        port.messages.clear();
        const ImportOutcome outcome = ImportDataFile(doc, port, DataFile(name), {"", true});
        EXPECT_EQ(outcome.rowsTaken, 5);
        EXPECT_FALSE(outcome.failed);
        EXPECT_EQ(port.texts(), std::vector<std::string>{});
        EXPECT_EQ(DataRows(), typed);
        std::vector<std::string> doses;
        for (int r = 1; r < doc.Grid1().rows() - 1; ++r)
            doses.push_back(doc.Grid1().text(r, dosecol::Dose));
        EXPECT_EQ(doses, (std::vector<std::string>{"0.5", "1", "2.5", "5", "10"}));
    }
}

TEST_F(ImportWorkbookTest, SheetNamesAsTheProgramsWroteThem) {
    EXPECT_EQ(WorkbookSheetNames(DataFile("gnumeric-counts.xlsx"), ImportFormat::Xlsx),
              std::vector<std::string>{"Data.csv"});
    EXPECT_EQ(WorkbookSheetNames(DataFile("libreoffice-counts.ods"), ImportFormat::Ods),
              std::vector<std::string>{"Data"});
    EXPECT_EQ(WorkbookSheetNames(DataFile("gnumeric-counts.xls"), ImportFormat::Xls),
              std::vector<std::string>{"Data.csv"});
}

// The reader finds the sheet of strict-namespace.xlsx but none of its cells: an error,
// not an empty line.
TEST_F(ImportWorkbookTest, SheetReadEmptyWhileTheFileHoldsCellsIsAnError) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome =
        ImportDataFile(doc, port, DataFile("strict-namespace.xlsx"), {"Data", true});
    EXPECT_EQ(outcome.rowsTaken, 0);
    EXPECT_TRUE(outcome.failed);
    EXPECT_EQ(port.texts(),
              std::vector<std::string>{
                  "An error occurred when opening this file.\nthe workbook holds cells that "
                  "could not be read; it may be written in a form that Morvane does not read"});
    EXPECT_EQ(doc.Grid1().cols(), 3);
    EXPECT_THROW(WorkbookSheetNames(DataFile("strict-namespace.xlsx"), ImportFormat::Xlsx),
                 ImportError);
}

// A stop asked by the progress leaves the new line as the options dialog laid it out.
TEST_F(ImportWorkbookTest, StoppedImportLeavesTheNewLineEmpty) {
    StartLine(DataType::RespondedAndNonResponded);
    const int columns = doc.Grid1().cols();
    std::string text;
    for (int r = 0; r < 1000; ++r)
        text += std::to_string(1 + r % 40) + "," + std::to_string(r % 19) + ",20\n";
    std::vector<int> told;
    const ImportOutcome outcome = ImportTextRecords(doc, port, text, [&](int permille) {
        told.push_back(permille);
        return told.size() < 2;
    });
    EXPECT_EQ(told.size(), 2u);
    std::size_t after256 = 0;  // the bytes of the first 256 records
    for (int r = 0; r < 256; ++r)
        after256 = text.find('\n', after256) + 1;
    EXPECT_EQ(told[0], static_cast<int>(after256 * 1000 / text.size()));
    EXPECT_TRUE(outcome.cancelled);
    EXPECT_FALSE(outcome.failed);
    EXPECT_EQ(outcome.rowsTaken, 0);
    EXPECT_EQ(doc.Grid1().rows(), 2);
    EXPECT_EQ(doc.Grid1().cols(), columns);
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_TRUE(port.messages.empty());
    // The line takes typed rows again.
    Type("1", "2", "18");
    EXPECT_EQ(doc.Grid1().rows(), 3);
    EXPECT_EQ(doc.Grid1().text(1, dosecol::Dose), "1");
}

}  // namespace
}  // namespace morvane::testing
