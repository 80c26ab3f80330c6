// Rows typed into the input cells: Accept's checks and messages in their order, the
// limits and texts of AcceptRow, the leave-focus rules, the sort key and the order of
// rows, Edit and Delete.
#include "DocumentTestSupport.h"
#include "document/InputKeys.h"

namespace morvane::testing {
namespace {

using DataEntryTest = DocumentTest;

const char* const kExtremeTail = "\nMorvane can't operate with these extreme values";

TEST_F(DataEntryTest, EmptyNewTableHasOnlyTheEmptyLastRow) {
    StartLine(DataType::RespondedAndNonResponded);
    EXPECT_EQ(doc.Grid1().rows(), 2);
    EXPECT_EQ(doc.Grid1().cols(), 7);
    EXPECT_EQ(Row(doc.Grid1(), 1), "||||||");
    EXPECT_EQ(doc.Grid2().rows(), 2);
    EXPECT_EQ(doc.Grid2().cols(), 4);
}

TEST_F(DataEntryTest, AcceptWritesTheRowOfEachDataType) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("10", "7", "3");
    EXPECT_EQ(Row(doc.Grid1(), 1), "T|10|7|3|10|70.000|1.02329299228T");
    StartLine(DataType::TotalAndResponded);
    Type("10", "20", "16");
    EXPECT_EQ(Row(doc.Grid1(), 1), "T|10|20|16|80.000|1.02329299228T");
    StartLine(DataType::ResponsePercentage);
    Type("10", "33.3333");
    EXPECT_EQ(Row(doc.Grid1(), 1), "T|10|33.333|1.02329299228T");
    EXPECT_EQ(doc.Grid1().rows(), 3);
    EXPECT_EQ(Row(doc.Grid1(), 2), "|||");
}

TEST_F(DataEntryTest, AcceptKeepsTheDoseAndEmptiesTheCounts) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("10", "7", "3");
    EXPECT_EQ(doc.table().TextDose(), "10");
    EXPECT_EQ(doc.table().Text1input(), "");
    EXPECT_EQ(doc.table().Text2input(), "");
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
}

TEST_F(DataEntryTest, AcceptRefusesAnEmptyDose) {
    StartLine(DataType::RespondedAndNonResponded);
    doc.setText1input("5");
    doc.setText2input("5");
    doc.CommandAccept();
    EXPECT_EQ(LastMessage(), "Missing data");
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
    EXPECT_EQ(doc.Grid1().rows(), 2);
    EXPECT_EQ(doc.table().Text1input(), "5");
}

TEST_F(DataEntryTest, AcceptLimitsAreOneEFortyAndOneEMinusEight) {
    StartLine(DataType::RespondedAndNonResponded, "ppm");  // a concentration: the word is "Con."
    Type("2e40", "1", "1");
    EXPECT_EQ(LastMessage(), std::string("Con. value is verrry high.") + kExtremeTail);
    Type("1e40", "1", "1");
    EXPECT_EQ(doc.Grid1().rows(), 3);
    Type("5e-9", "1", "1");
    EXPECT_EQ(LastMessage(), std::string("Con. value is verrry low.") + kExtremeTail);
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
    Type("1e-8", "1", "1");
    EXPECT_EQ(doc.Grid1().rows(), 4);
    EXPECT_EQ(port.messages.size(), 2u);
}

TEST_F(DataEntryTest, ZeroDoseIsRefusedWhenEachTreatmentHasAControl) {
    StartLine(DataType::RespondedAndNonResponded, "hour");
    ASSERT_TRUE(doc.table().layout().CheckCoVisible);
    Type("0", "1", "9", true);
    EXPECT_EQ(LastMessage(),
              "Cant accept 0 value when you have control associated each treatment.");
    EXPECT_EQ(doc.Grid1().rows(), 2);
}

TEST_F(DataEntryTest, TypeTwoChecksMissingAndAbove100) {
    StartLine(DataType::ResponsePercentage);
    doc.setTextDose("5");
    doc.CommandAccept();
    EXPECT_EQ(LastMessage(), "Missing data");
    EXPECT_EQ(doc.main().focus, Focus::Text1input);
    Type("5", "100.5");
    EXPECT_EQ(LastMessage(), "Illogic data, Response percentage can't exceed 100");
    EXPECT_EQ(doc.main().focus, Focus::Text1input);
    Type("5", "100");
    EXPECT_EQ(Row(doc.Grid1(), 1), "T|5|100.000|1.01622459127T");
}

TEST_F(DataEntryTest, TypeOneChecksInOrder) {
    StartLine(DataType::TotalAndResponded);
    Type("5", "", "3");
    EXPECT_EQ(LastMessage(), "Missing data");
    EXPECT_EQ(doc.main().focus, Focus::Text1input);
    Type("5", "", "");
    EXPECT_EQ(doc.main().focus, Focus::Text1input);  // the first cell first
    Type("5", "3", "");
    EXPECT_EQ(LastMessage(), "Missing data");
    EXPECT_EQ(doc.main().focus, Focus::Text2input);
    Type("5", "3", "4");
    EXPECT_EQ(LastMessage(), "Illogic data, Responded can't be greater than total");
    EXPECT_EQ(doc.main().focus, Focus::Text1input);
    Type("5", "0", "0");
    EXPECT_EQ(LastMessage(), "Nil value can't be accepted as total number of individuals.");
    EXPECT_EQ(doc.Grid1().rows(), 2);
}

TEST_F(DataEntryTest, TypeZeroChecksMissingAndNilSum) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("5", "3", "");
    EXPECT_EQ(LastMessage(), "Missing data");
    EXPECT_EQ(doc.main().focus, Focus::Text2input);
    Type("5", "0", "0");
    EXPECT_EQ(LastMessage(), "Nil value can't be accepted as total number of individuals.");
    EXPECT_EQ(doc.main().focus, Focus::Text1input);
    Type("5", "0", "10");
    EXPECT_EQ(Row(doc.Grid1(), 1), "T|5|0|10|10|0.000|1.01622459127T");
}

TEST_F(DataEntryTest, TheDoseIsCheckedBeforeTheCounts) {
    StartLine(DataType::TotalAndResponded);
    Type("1e41", "3", "4");
    EXPECT_EQ(LastMessage(), std::string("Dose value is verrry high.") + kExtremeTail);
}

TEST_F(DataEntryTest, LeavingACellWritesTheTextOfItsValue) {
    StartLine(DataType::RespondedAndNonResponded);
    doc.setTextDose("10.0");
    EXPECT_TRUE(doc.leaveTextDose());
    EXPECT_EQ(doc.table().TextDose(), "10");
    doc.setTextDose("1E-05");
    EXPECT_TRUE(doc.leaveTextDose());
    EXPECT_EQ(doc.table().TextDose(), "0.00001");
    doc.setText1input("007.50");
    EXPECT_TRUE(doc.leaveText1input());
    EXPECT_EQ(doc.table().Text1input(), "7.5");
    doc.setText2input("");
    EXPECT_TRUE(doc.leaveText2input());
    EXPECT_EQ(doc.table().Text2input(), "");
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(DataEntryTest, ANegativeDoseIsEmptiedWithoutAWord) {
    StartLine(DataType::RespondedAndNonResponded);
    doc.setTextDose("-5");
    EXPECT_TRUE(doc.leaveTextDose());
    EXPECT_EQ(doc.table().TextDose(), "");
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(DataEntryTest, TextThatIsNoNumberIsAnInvaledValue) {
    StartLine(DataType::RespondedAndNonResponded);
    doc.setText1input("1.2.3");
    EXPECT_FALSE(doc.leaveText1input());
    EXPECT_EQ(LastMessage(), "invaled value!");
    EXPECT_EQ(doc.main().focus, Focus::Text1input);
    EXPECT_EQ(doc.table().Text1input(), "1.2.3");
    doc.setText2input(".");
    EXPECT_FALSE(doc.leaveText2input());
    EXPECT_EQ(doc.main().focus, Focus::Text2input);
}

TEST_F(DataEntryTest, ACommaPassesTheKeyFilterAndTheConversionDecides) {
    EXPECT_TRUE(InputKeyAllowed(InputCell::TextDose, ','));
    EXPECT_FALSE(InputKeyAllowed(InputCell::Text1input, ','));
    StartLine(DataType::RespondedAndNonResponded);
    doc.setTextDose("1,5");
    EXPECT_FALSE(doc.leaveTextDose());
    EXPECT_EQ(LastMessage(), "invaled value!");
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
}

TEST_F(DataEntryTest, KeyFiltersTakeExponentsInTheDoseOnly) {
    for (char key : std::string("0123456789.Ee-,"))
        EXPECT_TRUE(InputKeyAllowed(InputCell::TextDose, key)) << key;
    for (char key : std::string("Ee-,+ x"))
        EXPECT_FALSE(InputKeyAllowed(InputCell::Text2input, key)) << key;
    EXPECT_TRUE(InputKeyAllowed(InputCell::Text1input, kBackspace));
    EXPECT_TRUE(InputKeyAllowed(InputCell::Text1input, kEnter));
    EXPECT_FALSE(InputKeyAllowed(InputCell::TextDose, '+'));
}

TEST_F(DataEntryTest, ArrowsAndEnterMoveThroughTheCells) {
    EXPECT_EQ(EnterKey(InputCell::TextDose, true), KeyMove::ToText1input);
    EXPECT_EQ(EnterKey(InputCell::Text1input, true), KeyMove::ToText2input);
    EXPECT_EQ(EnterKey(InputCell::Text1input, false), KeyMove::RunAccept);
    EXPECT_EQ(EnterKey(InputCell::Text2input, true), KeyMove::RunAccept);
    EXPECT_EQ(RightArrowAtEnd(InputCell::TextDose, true), KeyMove::ToText1input);
    EXPECT_EQ(RightArrowAtEnd(InputCell::Text1input, false), KeyMove::ToCommandAccept);
    EXPECT_EQ(RightArrowAtEnd(InputCell::Text2input, true), KeyMove::ToCommandAccept);
    EXPECT_EQ(LeftArrowAtStart(InputCell::TextDose), KeyMove::None);
    EXPECT_EQ(LeftArrowAtStart(InputCell::Text1input), KeyMove::ToTextDose);
    EXPECT_EQ(LeftArrowAtStart(InputCell::Text2input), KeyMove::ToText1input);
}

TEST_F(DataEntryTest, RowsAreSortedByDoseWithControlsFirst) {
    StartLine(DataType::RespondedAndNonResponded, "hour");
    Type("100", "5", "5");
    Type("2", "1", "9");
    Type("10", "4", "6");
    Type("10", "0", "10", true);
    Type("0.5", "1", "9");
    const TextTable& g = doc.Grid1();
    EXPECT_EQ(Row(g, 1), "T|0.5|1|9|10|10.000|0.99309249544T");
    EXPECT_EQ(Row(g, 2), "T|2|1|9|10|10.000|1.00695555006T");
    EXPECT_EQ(Row(g, 3), "C|10|0|10|10|0.000|1.02329299228C");
    EXPECT_EQ(Row(g, 4), "T|10|4|6|10|40.000|1.02329299228T");
    EXPECT_EQ(Row(g, 5), "T|100|5|5|10|50.000|1.04712854805T");
    EXPECT_EQ(g.back(3, dosecol::FirstValue), kControlColor);
    EXPECT_EQ(g.back(3, kCountsColumns.sortKey()), kControlColor);
    EXPECT_EQ(g.back(3, dosecol::Dose), std::nullopt);
}

TEST_F(DataEntryTest, ReplicatesOfOneDoseKeepTheOrderTheyCameIn) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("10", "1", "9");
    Type("20", "2", "8");
    Type("10", "3", "7");
    EXPECT_EQ(doc.Grid1().text(1, dosecol::FirstValue), "1");
    EXPECT_EQ(doc.Grid1().text(2, dosecol::FirstValue), "3");
    EXPECT_EQ(doc.Grid1().text(3, dosecol::FirstValue), "2");
}

TEST_F(DataEntryTest, AcceptRowHasTheImportLimitsAndTexts) {
    StartLine(DataType::RespondedAndNonResponded);
    doc.setTextDose("1e45");
    doc.setText1input("3");
    doc.setText2input("7");
    EXPECT_TRUE(doc.AcceptRow());           // an imported dose of 1e+45 is taken
    EXPECT_EQ(doc.table().TextDose(), "");  // all three cells are emptied
    EXPECT_EQ(doc.table().Text1input(), "");
    doc.setTextDose("1e51");
    doc.setText1input("3");
    doc.setText2input("7");
    EXPECT_FALSE(doc.AcceptRow());
    EXPECT_EQ(LastMessage(), std::string("Dose value is verrry high or verry low.") + kExtremeTail);
    EXPECT_EQ(doc.table().ImportRowRefused(), 1);
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
    doc.setTextDose("1e-51");
    EXPECT_FALSE(doc.AcceptRow());
    EXPECT_EQ(LastMessage(), std::string("Dose value is verrry high or verry low.") + kExtremeTail);
    doc.setTextDose("1e-50");
    EXPECT_TRUE(doc.AcceptRow());

    // A typed dose of 1e+45 is refused.
    Type("1e45", "3", "7");
    EXPECT_EQ(LastMessage(), std::string("Dose value is verrry high.") + kExtremeTail);
}

TEST_F(DataEntryTest, AcceptRowWritesButDoesNotRebuild) {
    StartLine(DataType::RespondedAndNonResponded);
    for (const char* dose : {"1", "2", "3"}) {
        doc.setTextDose(dose);
        doc.setText1input("3");
        doc.setText2input("7");
        ASSERT_TRUE(doc.AcceptRow());
    }
    EXPECT_EQ(doc.Grid1().rows(), 5);
    EXPECT_EQ(doc.Grid2().rows(), 2);
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
    doc.RebuildResponseTable();
    EXPECT_EQ(doc.Grid2().rows(), 5);
}

TEST_F(DataEntryTest, AcceptRowPercentTextHasTheCapitalLetter) {
    StartLine(DataType::ResponsePercentage);
    doc.setTextDose("5");
    doc.setText1input("101");
    EXPECT_FALSE(doc.AcceptRow());
    EXPECT_EQ(LastMessage(), "Illogic data, Response Percentage can't exceed 100");
    EXPECT_EQ(doc.main().focus, Focus::Text1input);
}

TEST_F(DataEntryTest, AcceptRowHasNoMissingDataMessageButFailsOnAnEmptyCell) {
    StartLine(DataType::TotalAndResponded);
    doc.setTextDose("5");
    doc.setText1input("10");
    doc.setText2input("");
    EXPECT_THROW(doc.AcceptRow(), Fault);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.Grid1().rows(), 2);
}

TEST_F(DataEntryTest, AcceptRowChecksResponded) {
    StartLine(DataType::TotalAndResponded);
    doc.setTextDose("5");
    doc.setText1input("10");
    doc.setText2input("11");
    EXPECT_FALSE(doc.AcceptRow());
    EXPECT_EQ(LastMessage(), "Illogic data, Responded can't be greater than total");
    doc.setText1input("0");
    doc.setText2input("0");
    EXPECT_FALSE(doc.AcceptRow());
    EXPECT_EQ(LastMessage(), "Nil value can't be accepted as total number of individuals.");
}

TEST_F(DataEntryTest, EditMovesTheRowBackToTheCells) {
    StartLine(DataType::RespondedAndNonResponded, "hour");
    Type("10", "4", "6", true);
    Type("20", "5", "5");
    doc.setGrid1Current(1, dosecol::SecondValue);
    doc.CommandEdit();
    EXPECT_EQ(doc.table().TextDose(), "10");
    EXPECT_EQ(doc.table().Text1input(), "4");
    EXPECT_EQ(doc.table().Text2input(), "6");
    EXPECT_EQ(doc.table().CheckCo(), 1);
    EXPECT_EQ(doc.main().focus, Focus::Text1input);
    EXPECT_EQ(doc.table().RowsWereRemoved(), 1);
    EXPECT_EQ(doc.Grid1().rows(), 3);
    EXPECT_EQ(doc.Grid1().text(1, dosecol::Dose), "20");

    // Accepting it again sets every row's height.
    doc.CommandAccept();
    EXPECT_EQ(doc.table().RowsWereRemoved(), 0);
    EXPECT_EQ(doc.Grid1().rows(), 4);
    for (int r = 1; r < doc.Grid1().rows(); ++r)
        EXPECT_EQ(doc.Grid1().rowHeight(r), 240);
    EXPECT_EQ(doc.Grid1().rowHeight(0), 500);
}

TEST_F(DataEntryTest, EditOfAPercentRowGivesTheValueBack) {
    StartLine(DataType::ResponsePercentage);
    Type("10", "33.3");
    doc.setGrid1Current(1, dosecol::FirstValue);
    doc.CommandEdit();
    EXPECT_EQ(doc.table().TextDose(), "10");
    EXPECT_EQ(doc.table().Text1input(), "33.3");
}

TEST_F(DataEntryTest, EditOnTheEmptyLastRowDoesNothing) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("10", "4", "6");
    doc.setGrid1Current(2, dosecol::FirstValue);
    doc.setTextDose("");
    doc.CommandEdit();
    EXPECT_EQ(doc.Grid1().rows(), 3);
    EXPECT_EQ(doc.table().TextDose(), "");
    EXPECT_EQ(doc.table().RowsWereRemoved(), 0);
}

TEST_F(DataEntryTest, DeleteAsksWithTheResponseText) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("10", "4", "6");
    Type("20", "5", "5");
    doc.setGrid1Current(2, dosecol::Dose);
    port.answers.push_back(Answer::Cancel);
    doc.CommandDel();
    ASSERT_EQ(port.messages.size(), 1u);
    const Message& q = port.messages.back();
    EXPECT_EQ(q.text, "Do you want to delete the selected row with the response value 50.000?");
    EXPECT_EQ(q.buttons, Buttons::OkCancel);
    EXPECT_EQ(q.icon, Icon::Question);
    EXPECT_EQ(q.defaultAnswer, Answer::Cancel);
    EXPECT_EQ(doc.Grid1().rows(), 4);
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
    EXPECT_EQ(doc.Grid1().currentCol(), dosecol::Dose);  // the column is given back

    port.answers.push_back(Answer::Ok);
    doc.CommandDel();
    EXPECT_EQ(doc.Grid1().rows(), 3);
    EXPECT_EQ(doc.Grid1().text(1, dosecol::Dose), "10");
    EXPECT_EQ(doc.table().RowsWereRemoved(), 1);
}

TEST_F(DataEntryTest, DeleteOnTheEmptyLastRowOnlyMovesTheFocus) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("10", "4", "6");
    doc.setGrid1Current(2, dosecol::FirstValue);
    doc.CommandDel();
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.Grid1().rows(), 3);
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
}

TEST_F(DataEntryTest, AcceptWithoutALineIsRefusedPlainly) {
    doc.setTextDose("10");
    doc.setText1input("4");
    doc.setText2input("6");
    doc.CommandAccept();
    EXPECT_EQ(LastMessage(),
              "There is no line to take this row.\nStart a new file or open one first.");
    EXPECT_EQ(doc.Grid1().rows(), 2);
    EXPECT_EQ(doc.Grid1().cols(), 3);
}

TEST_F(DataEntryTest, SortKeysSqueezeTheDoses) {
    EXPECT_EQ(SortKey(10, "T"), "1.02329299228T");
    EXPECT_EQ(SortKey(0, "C"), "0.00000000000C");
    EXPECT_EQ(SortKey(1e-50, "T"), "0.31622776602T");
    EXPECT_EQ(SortKey(1e50, "T"), "3.16227766017T");
}

}  // namespace
}  // namespace morvane::testing
