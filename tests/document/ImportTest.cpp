// The rows of an import: text records and sheet rows through AcceptRow, with every
// end of the data and every message.
#include <gtest/gtest.h>

#include "DocumentTestSupport.h"
#include "document/Import.h"

namespace morvane::testing {
namespace {

struct TypedRow {
    std::string dose, first, second;
    bool control = false;
};

class ImportTest : public DocumentTest {
  protected:
    // The tables the import made equal those of the same rows typed into a new line of
    // the same options.
    void ExpectSameAsTyped(DataType type, const std::vector<TypedRow>& rows,
                           bool controlEach = false) {
        const TextTable grid1 = doc.Grid1();
        const TextTable grid2 = doc.Grid2();
        const std::size_t before = port.messages.size();
        if (controlEach)
            StartCustomLine(type, true);
        else
            StartLine(type);
        for (const TypedRow& row : rows)
            Type(row.dose, row.first, row.second, row.control);
        EXPECT_EQ(port.messages.size(), before + 1) << "only the save question";
        EXPECT_TRUE(SameCells(grid1, doc.Grid1()));
        EXPECT_TRUE(SameCells(grid2, doc.Grid2()));
    }
};

TEST_F(ImportTest, ContentTellsTheKindOfFile) {
    EXPECT_EQ(SniffImportFormat("1,2,3\r\n"), ImportFormat::Text);
    EXPECT_EQ(SniffImportFormat(""), ImportFormat::Text);
    EXPECT_EQ(SniffImportFormat(std::string("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1rest", 12)),
              ImportFormat::Xls);
    EXPECT_EQ(SniffImportFormat(std::string("PK\x03\x04", 4) + std::string(26, 'x') +
                                "[Content_Types].xml"),
              ImportFormat::Xlsx);
    EXPECT_EQ(SniffImportFormat(std::string("PK\x03\x04", 4) + std::string(26, 'x') +
                                "mimetypeapplication/vnd.oasis.opendocument.spreadsheet"),
              ImportFormat::Ods);
    EXPECT_EQ(SniffImportFormat(std::string("\x7F"
                                            "ELF\x02\x01",
                                            6)),
              ImportFormat::Unknown);
    EXPECT_EQ(SniffImportFormat(std::string("1,2\0,3", 6)), ImportFormat::Unknown);
}

TEST_F(ImportTest, TextRecordsGoInAsTyped) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome =
        ImportTextRecords(doc, port, "1,2,18\r\n2,\"5\",15\r\n4 , 9 , 11\n8,15,5\r\n");
    EXPECT_EQ(outcome.rowsTaken, 4);
    EXPECT_FALSE(outcome.failed);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_EQ(doc.Grid1().rows(), 6);
    EXPECT_EQ(doc.table().Text1input(), "");
    EXPECT_EQ(doc.table().ImportRowRefused(), 0);
    ExpectSameAsTyped(DataType::RespondedAndNonResponded,
                      {{"1", "2", "18"}, {"2", "5", "15"}, {"4", "9", "11"}, {"8", "15", "5"}});
}

TEST_F(ImportTest, FieldsMaySpreadOverLinesAsTheyLike) {
    StartLine(DataType::TotalAndResponded);
    EXPECT_EQ(ImportTextRecords(doc, port, "1\n20\n2\n2,20,6\n4,20\n13").rowsTaken, 3);
    ExpectSameAsTyped(DataType::TotalAndResponded,
                      {{"1", "20", "2"}, {"2", "20", "6"}, {"4", "20", "13"}});
}

TEST_F(ImportTest, ResponsePercentageRecordsHaveTwoFields) {
    StartLine(DataType::ResponsePercentage);
    EXPECT_EQ(ImportTextRecords(doc, port, "1,10\r\n2,25.5\r\n4,60\r\n").rowsTaken, 3);
    ExpectSameAsTyped(DataType::ResponsePercentage, {{"1", "10"}, {"2", "25.5"}, {"4", "60"}});
}

TEST_F(ImportTest, LastRecordWithTooFewFieldsIsDropped) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome = ImportTextRecords(doc, port, "1,2,18\r\n2,5,15\r\n4,9\r\n");
    EXPECT_EQ(outcome.rowsTaken, 2);
    EXPECT_FALSE(outcome.failed);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.Grid1().rows(), 4);
}

TEST_F(ImportTest, EmptyTextFileTakesNothingAndSaysNothing) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome = ImportTextRecords(doc, port, "");
    EXPECT_EQ(outcome.rowsTaken, 0);
    EXPECT_FALSE(outcome.failed);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_EQ(doc.Grid1().rows(), 2);
}

TEST_F(ImportTest, HeaderLineInTextIsNoNumberAndStopsWithItsField) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome = ImportTextRecords(doc, port, "Dose,Dead,Alive\r\n1,2,18\r\n");
    EXPECT_EQ(outcome.rowsTaken, 0);
    EXPECT_TRUE(outcome.failed);
    EXPECT_EQ(
        LastMessage(),
        "An error occurred when opening this file.\n\"Dose\" is not a number (line 1, field 1)");
    EXPECT_EQ(doc.Grid1().rows(), 2);
}

TEST_F(ImportTest, TextInTheLastFieldIsReportedToo) {
    StartLine(DataType::RespondedAndNonResponded);
    const ImportOutcome outcome = ImportTextRecords(doc, port, "1,2,18\r\n2,5,abc");
    EXPECT_EQ(outcome.rowsTaken, 1);
    EXPECT_TRUE(outcome.failed);
    EXPECT_EQ(
        LastMessage(),
        "An error occurred when opening this file.\n\"abc\" is not a number (line 2, field 3)");
    EXPECT_EQ(doc.Grid1().rows(), 3);
}

TEST_F(ImportTest, RefusedTextRowEndsTheImportAndKeepsEarlierRows) {
    StartLine(DataType::ResponsePercentage);
    const ImportOutcome outcome = ImportTextRecords(doc, port, "1,10\r\n2,120\r\n4,60\r\n");
    EXPECT_EQ(outcome.rowsTaken, 1);
    EXPECT_TRUE(outcome.failed);
    EXPECT_EQ(port.texts(),
              (std::vector<std::string>{"Illogic data, Response Percentage can't exceed 100"}));
    EXPECT_EQ(doc.table().ImportRowRefused(), 0);
    ExpectSameAsTyped(DataType::ResponsePercentage, {{"1", "10"}});
}

TEST_F(ImportTest, LabelColumnMarksControlRows) {
    StartCustomLine(DataType::RespondedAndNonResponded, true);
    ASSERT_TRUE(doc.ControlPerTreatment());
    const ImportOutcome outcome = ImportTextRecords(
        doc, port, "C,1,1,19\r\nT,1,5,15\r\nc,2,2,18\r\n\"x\",2,9,11\r\nT,4,15,5\r\n");
    EXPECT_EQ(outcome.rowsTaken, 5);
    EXPECT_TRUE(port.messages.empty());
    ExpectSameAsTyped(DataType::RespondedAndNonResponded,
                      {{"1", "1", "19", true},
                       {"1", "5", "15", false},
                       {"2", "2", "18", true},
                       {"2", "9", "11", false},
                       {"4", "15", "5", false}},
                      true);
}

TEST_F(ImportTest, SheetRowsGoInAsTypedUntilTheFirstEmptyRow) {
    StartLine(DataType::RespondedAndNonResponded);
    const Sheet sheet{{{"1", "2", "18"}, {"2", "5", "15"}, {"4", "9", "11"}, {}, {"8", "15", "5"}}};
    const ImportOutcome outcome = ImportSheetRows(doc, port, sheet, false);
    EXPECT_EQ(outcome.rowsTaken, 3);
    EXPECT_FALSE(outcome.failed);
    EXPECT_TRUE(port.messages.empty());
    ExpectSameAsTyped(DataType::RespondedAndNonResponded,
                      {{"1", "2", "18"}, {"2", "5", "15"}, {"4", "9", "11"}});
}

TEST_F(ImportTest, SheetHeaderIsSkippedOnlyWhenTicked) {
    const Sheet sheet{{{"Dose", "Dead", "Alive"}, {"1", "2", "18"}, {"2", "5", "15"}}};
    StartLine(DataType::RespondedAndNonResponded);
    EXPECT_EQ(ImportSheetRows(doc, port, sheet, true).rowsTaken, 2);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.Grid1().rows(), 4);

    StartLine(DataType::RespondedAndNonResponded);
    const std::size_t before = port.messages.size();
    const ImportOutcome outcome = ImportSheetRows(doc, port, sheet, false);
    EXPECT_EQ(outcome.rowsTaken, 0);
    EXPECT_TRUE(outcome.failed);
    ASSERT_EQ(port.messages.size(), before + 1);
    EXPECT_EQ(LastMessage(),
              "An error occurred when opening this file.\n"
              "\"Dose\" is not a number");
    // A failing reading leaves an empty document.
    EXPECT_EQ(doc.Grid1().cols(), 3);
    EXPECT_EQ(doc.file().Modified(), 0);
}

TEST_F(ImportTest, PartlyEmptySheetRowStopsWithItsNumber) {
    StartLine(DataType::TotalAndResponded);
    const Sheet sheet{{{"1", "20", "2"}, {"2", "20", "6"}, {"4", "", "13"}, {"8", "20", "19"}}};
    const ImportOutcome outcome = ImportSheetRows(doc, port, sheet, false);
    EXPECT_EQ(outcome.rowsTaken, 2);
    EXPECT_TRUE(outcome.failed);
    EXPECT_EQ(port.texts(),
              (std::vector<std::string>{
                  "Morvane can't continue importing data\nthere is an empty cell in row no. 3"}));
    ExpectSameAsTyped(DataType::TotalAndResponded, {{"1", "20", "2"}, {"2", "20", "6"}});
}

TEST_F(ImportTest, RowNumberOfAGapCountsTheHeader) {
    StartLine(DataType::ResponsePercentage);
    const Sheet sheet{{{"Dose", "%"}, {"1", "10"}, {"", "20"}}};
    ImportSheetRows(doc, port, sheet, true);
    EXPECT_EQ(LastMessage(),
              "Morvane can't continue importing data\nthere is an empty cell in row no. 3");
}

TEST_F(ImportTest, RefusedSheetRowEndsTheImport) {
    StartLine(DataType::ResponsePercentage);
    const Sheet sheet{{{"1", "10"}, {"2", "150"}, {"4", "60"}}};
    const ImportOutcome outcome = ImportSheetRows(doc, port, sheet, false);
    EXPECT_EQ(outcome.rowsTaken, 1);
    EXPECT_TRUE(outcome.failed);
    EXPECT_EQ(port.texts(),
              (std::vector<std::string>{"Illogic data, Response Percentage can't exceed 100"}));
    ExpectSameAsTyped(DataType::ResponsePercentage, {{"1", "10"}});
}

TEST_F(ImportTest, SheetLabelColumnCountsAsACell) {
    StartCustomLine(DataType::ResponsePercentage, true);
    const Sheet sheet{{{"C", "1", "5"}, {"T", "1", "30"}, {"", "2", "50"}}};
    const ImportOutcome outcome = ImportSheetRows(doc, port, sheet, false);
    EXPECT_EQ(outcome.rowsTaken, 2);
    EXPECT_EQ(LastMessage(),
              "Morvane can't continue importing data\nthere is an empty cell in row no. 3");
    ExpectSameAsTyped(DataType::ResponsePercentage, {{"1", "5", "", true}, {"1", "30", "", false}},
                      true);
}

TEST_F(ImportTest, DecimalCommaInASheetCellIsNoNumber) {
    StartLine(DataType::ResponsePercentage);
    const Sheet sheet{{{"1", "10"}, {"2", "25,5"}}};
    const ImportOutcome outcome = ImportSheetRows(doc, port, sheet, false);
    EXPECT_TRUE(outcome.failed);
    EXPECT_EQ(LastMessage(), "An error occurred when opening this file.\n\"25,5\" is not a number");
    EXPECT_EQ(doc.Grid1().rows(), 2);
}

TEST_F(ImportTest, ExcelOptionsHintNamesTheColumns) {
    StartLine(DataType::TotalAndResponded);
    EXPECT_EQ(
        ExcelOptionsHint(doc, shared.DoseWord),
        "Target file must contains 3 columns, i.e.\n" + shared.DoseWord + ", Total and Responded");
    StartLine(DataType::ResponsePercentage);
    EXPECT_EQ(ExcelOptionsHint(doc, "Dose"),
              "Target file must contains 2 columns, i.e.\nDose, Response percentage");
}

}  // namespace
}  // namespace morvane::testing
