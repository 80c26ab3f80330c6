// Grid2, the response table: pooling of replicates, weighting, the control row and
// Abbott's correction, the letters and bands, the matched layout, and the enabling of
// Calculate.
#include "DocumentTestSupport.h"

namespace morvane::testing {
namespace {

class ResponseTableTest : public DocumentTest {
  protected:
    // A line file of the current layout with the given Grid1 data rows (cells joined
    // by "|"), written and opened.
    void OpenRows(const LineOptions& options, int cols, const std::vector<std::string>& rows) {
        TextTable grid(static_cast<int>(rows.size()) + 2, cols);
        for (std::size_t r = 0; r < rows.size(); ++r) {
            std::string cells = rows[r];
            for (int c = 0; c < cols; ++c) {
                const std::size_t bar = cells.find('|');
                grid.setText(static_cast<int>(r) + 1, c, cells.substr(0, bar));
                cells = bar == std::string::npos ? "" : cells.substr(bar + 1);
            }
        }
        const std::string path = folder.file("rows.mrv");
        WriteBytes(path, WriteLineFile(options, grid, NotesSheet{}));
        ASSERT_TRUE(doc.OpenLineFile(path)) << LastMessage();
    }
};

TEST_F(ResponseTableTest, TwoReplicatesAtOneDoseMakeOneResponseRow) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("10", "4", "6");
    Type("10", "6", "4");
    EXPECT_EQ(doc.Grid1().rows(), 4);
    EXPECT_EQ(doc.Grid2().rows(), 3);
    EXPECT_EQ(Row(doc.Grid2(), 1), "|||");
    EXPECT_EQ(Row(doc.Grid2(), 2), "10|20|50.000|50.000");
}

TEST_F(ResponseTableTest, HeadingsOfTheUnpairedLayout) {
    StartLine(DataType::RespondedAndNonResponded, "mg");
    EXPECT_EQ(Row(doc.Grid2(), 0), "Dose\n(mg)|Total|Response\n%|Corrected\nResponse\n%");
    EXPECT_EQ(Row(doc.Grid1(), 0), "|Dose\n(mg)|Responded|Non responded|Total|Response\n%|");
    EXPECT_EQ(doc.Grid2().rowHeight(0), 600);
    EXPECT_EQ(doc.Grid1().rowHeight(0), 500);
    EXPECT_EQ(doc.Grid1().columnWidth(0), 300);
    EXPECT_EQ(doc.Grid1().columnWidth(1), 1000);
    EXPECT_EQ(doc.Grid1().columnWidth(6), 0);
    EXPECT_EQ(doc.Grid2().columnAlignment(2), 2);
}

TEST_F(ResponseTableTest, WithoutWeightingReplicatesCountEqually) {
    StartLine(DataType::TotalAndResponded);
    Type("10", "10", "1");
    Type("10", "90", "81");
    EXPECT_EQ(Row(doc.Grid2(), 2), "10|100|50.000|50.000");
}

TEST_F(ResponseTableTest, WithWeightingReplicatesCountByTheirTotals) {
    StartLine(DataType::TotalAndResponded);
    SetWeighting(true);
    Type("10", "10", "1");
    Type("10", "90", "81");
    EXPECT_EQ(Row(doc.Grid2(), 2), "10|100|82.000|82.000");
}

TEST_F(ResponseTableTest, PercentagesAreNeverWeightedAndCountAHundredEach) {
    StartLine(DataType::ResponsePercentage);
    SetWeighting(true);
    EXPECT_FALSE(doc.fileOptions().Check2Enabled());
    EXPECT_FALSE(doc.fileOptions().ReplicatesWeighting());
    Type("10", "20");
    Type("10", "60");
    EXPECT_EQ(Row(doc.Grid2(), 2), "10|200|40.000|40.000");
}

TEST_F(ResponseTableTest, ZeroDoseIsTheControlAndPoolsIntoRowOne) {
    StartLine(DataType::TotalAndResponded);
    Type("0", "20", "2");
    Type("0", "20", "4");
    Type("5", "20", "10");
    const TextTable& g1 = doc.Grid1();
    EXPECT_EQ(g1.text(1, dosecol::Label), "C");
    EXPECT_EQ(g1.text(2, dosecol::Label), "C");
    EXPECT_EQ(g1.back(1, kTotalColumns.total), kControlColor);
    EXPECT_EQ(g1.back(2, kTotalColumns.sortKey()), kControlColor);
    EXPECT_EQ(Row(doc.Grid2(), 1), "0|40|15.000|0.000");
    // (50 - 15) / (100 - 15) x 100
    EXPECT_EQ(Row(doc.Grid2(), 2), "5|20|50.000|41.176");
    EXPECT_EQ(doc.Grid2().back(1, responsecol::Total), kControlColor);
    EXPECT_EQ(doc.Grid2().back(1, responsecol::Corrected), kControlColor);
}

TEST_F(ResponseTableTest, WithoutControlsRowOneStaysEmptyAndTreatmentsStartAtRowTwo) {
    StartLine(DataType::ResponsePercentage);
    Type("5", "30");
    EXPECT_EQ(Row(doc.Grid2(), 1), "|||");
    EXPECT_EQ(Row(doc.Grid2(), 2), "5|100|30.000|30.000");
}

TEST_F(ResponseTableTest, OnePointOneAndNinetyNineNineAreShownInTheDefaultColour) {
    StartLine(DataType::ResponsePercentage);
    Type("1", "0.1");
    Type("2", "0.09");
    Type("3", "99.9");
    Type("4", "99.91");
    const TextTable& g = doc.Grid2();
    EXPECT_EQ(g.text(2, responsecol::Corrected), "0.100");
    EXPECT_EQ(g.fore(2, responsecol::Corrected), std::nullopt);
    EXPECT_EQ(g.text(3, responsecol::Corrected), "0.090");
    EXPECT_EQ(g.fore(3, responsecol::Corrected), kRed);
    EXPECT_EQ(g.fore(4, responsecol::Corrected), std::nullopt);
    EXPECT_EQ(g.text(5, responsecol::Corrected), "99.910");
    EXPECT_EQ(g.fore(5, responsecol::Corrected), kRed);
}

TEST_F(ResponseTableTest, TheControlRowKeepsTheDefaultLetters) {
    StartLine(DataType::ResponsePercentage);
    Type("0", "0");
    Type("5", "0.05");
    EXPECT_EQ(Row(doc.Grid2(), 1), "0|100|0.000|0.000");
    EXPECT_EQ(doc.Grid2().fore(1, responsecol::Corrected), std::nullopt);
    EXPECT_EQ(doc.Grid2().fore(2, responsecol::Corrected), kRed);
}

TEST_F(ResponseTableTest, TreatmentsAreBandedByDose) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("0", "1", "9");
    Type("1", "2", "8");
    Type("1", "3", "7");
    Type("2", "4", "6");
    Type("3", "5", "5");
    const TextTable& g1 = doc.Grid1();
    EXPECT_EQ(g1.back(1, dosecol::FirstValue), kControlColor);
    EXPECT_EQ(g1.back(2, dosecol::FirstValue), std::nullopt);
    EXPECT_EQ(g1.back(3, kCountsColumns.sortKey()), std::nullopt);
    EXPECT_EQ(g1.back(4, dosecol::FirstValue), kBandColor);
    EXPECT_EQ(g1.back(4, kCountsColumns.sortKey()), kBandColor);
    EXPECT_EQ(g1.back(4, dosecol::Dose), std::nullopt);
    EXPECT_EQ(g1.back(5, dosecol::FirstValue), std::nullopt);
    const TextTable& g2 = doc.Grid2();
    EXPECT_EQ(g2.back(2, responsecol::Total), std::nullopt);
    EXPECT_EQ(g2.back(3, responsecol::Total), kBandColor);
    EXPECT_EQ(g2.back(3, responsecol::Corrected), kBandColor);
    EXPECT_EQ(g2.back(4, responsecol::Response), std::nullopt);
}

TEST_F(ResponseTableTest, CalculateNeedsThreeDosesBesideTheControlRow) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("1", "2", "8");
    Type("2", "4", "6");
    EXPECT_FALSE(doc.CalculateEnabled());
    Type("3", "5", "5");
    EXPECT_TRUE(doc.CalculateEnabled());
    EXPECT_EQ(doc.Grid2().rows(), 5);
}

TEST_F(ResponseTableTest, DeletingTheLastDataRowEmptiesGrid2AndDisablesCalculate) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("1", "2", "8");
    Type("2", "4", "6");
    Type("3", "5", "5");
    ASSERT_TRUE(doc.CalculateEnabled());
    for (int i = 0; i < 3; ++i) {
        doc.setGrid1Current(1, 2);
        port.answers.push_back(Answer::Ok);
        doc.CommandDel();
    }
    EXPECT_EQ(doc.Grid1().rows(), 2);
    EXPECT_EQ(doc.Grid2().rows(), 2);
    EXPECT_EQ(Row(doc.Grid2(), 1), "|||");
    EXPECT_FALSE(doc.CalculateEnabled());
    EXPECT_FALSE(doc.table().CalculateEnabled());
}

TEST_F(ResponseTableTest, UnpairedDosesAreGroupedByTheirText) {
    LineOptions options;
    options.ComboDataType = 2;
    OpenRows(options, 4, {"T|10|20.000|1.02329299228T", "T|10.0|40.000|1.02329299228T"});
    EXPECT_EQ(doc.Grid2().rows(), 4);
    EXPECT_EQ(Row(doc.Grid2(), 2), "10|100|20.000|20.000");
    EXPECT_EQ(Row(doc.Grid2(), 3), "10.0|100|40.000|40.000");
}

TEST_F(ResponseTableTest, MatchedDosesAreGroupedByTheirNumber) {
    LineOptions options;
    options.ComboDataType = 2;
    options.FactorOption = 3;  // "Time": a control with each treatment
    options.ComboUnit1 = "hour";
    OpenRows(options, 4, {"T|10|20.000|1.02329299228T", "T|10.0|40.000|1.02329299228T"});
    ASSERT_TRUE(doc.ControlPerTreatment());
    EXPECT_EQ(doc.Grid2().rows(), 2);
    EXPECT_EQ(Row(doc.Grid2(), 1), "10|200|30.000||30.000");
}

TEST_F(ResponseTableTest, MatchedLayoutCorrectsEachDoseByItsOwnControl) {
    StartLine(DataType::TotalAndResponded, "hour");
    EXPECT_EQ(Row(doc.Grid2(), 0),
              "Time\n(hour)|Total|Treated response\n%|Control response\n%|Corrected\nResponse\n%");
    Type("1", "20", "1", true);  // control 5%
    Type("1", "20", "9");        // 45%
    Type("2", "20", "10");       // 50%, no control of its own
    Type("4", "20", "4", true);  // control only
    const TextTable& g = doc.Grid2();
    ASSERT_EQ(g.rows(), 4);
    EXPECT_EQ(Row(g, 1), "1|20|45.000|5.000|42.105");
    EXPECT_EQ(Row(g, 2), "2|20|50.000||50.000");
    EXPECT_EQ(Row(g, 3), "4|||20.000|");
    EXPECT_EQ(g.back(1, matchedcol::Control), kControlColor);
    EXPECT_EQ(g.back(2, matchedcol::Control), kControlColor);
    EXPECT_EQ(g.back(3, matchedcol::Control), kControlColor);
    EXPECT_TRUE(doc.CalculateEnabled());
}

TEST_F(ResponseTableTest, MatchedWeightsAreWholeNumbersRoundedAtEveryAddition) {
    StartLine(DataType::TotalAndResponded, "hour");
    SetWeighting(true);
    Type("5", "10.5", "5.25");  // 50%
    Type("5", "10.5", "10.5");  // 100%
    // 50 x 10.5 + 100 x 10.5 = 1575 over the weights 10.5 -> 10, then 20.5 -> 20.
    EXPECT_EQ(Row(doc.Grid2(), 1), "5|21|78.750||78.750");
}

TEST_F(ResponseTableTest, MatchedWeightsAboveTheSixteenBitsStopTheAcceptWithAMessage) {
    StartLine(DataType::TotalAndResponded, "hour");
    SetWeighting(true);
    Type("5", "30000", "10");
    port.messages.clear();
    Type("5", "3000", "10");
    EXPECT_EQ(LastMessage(),
              "Morvane stopped this command:\nthe replicates of the dose 5 weigh more than 32767 "
              "together (an overflow).\nThe data were left as they were.");
    EXPECT_EQ(doc.Grid1().rows(), 3);
    EXPECT_EQ(doc.table().Text1input(), "3000");
}

TEST_F(ResponseTableTest, AControlOfAHundredPercentIsRefusedAndTheDocumentStays) {
    StartLine(DataType::ResponsePercentage);
    Type("1", "10");
    Type("2", "20");
    const TextTable grid1 = doc.Grid1();
    const TextTable grid2 = doc.Grid2();
    port.messages.clear();
    Type("0", "100");
    EXPECT_EQ(LastMessage(),
              "Morvane stopped this command:\nthe control response is 100%, so no response can be "
              "corrected for it (a division by zero).\nThe data were left as they were.");
    EXPECT_TRUE(SameCells(doc.Grid1(), grid1));
    EXPECT_TRUE(SameCells(doc.Grid2(), grid2));
    EXPECT_EQ(doc.table().TextDose(), "0");
    EXPECT_EQ(doc.table().Text1input(), "100");
}

TEST_F(ResponseTableTest, AMatchedControlOfAHundredPercentIsRefusedToo) {
    StartLine(DataType::ResponsePercentage, "hour");
    Type("3", "40");
    Type("3", "100", "", true);
    EXPECT_EQ(LastMessage(),
              "Morvane stopped this command:\nthe control response is 100%, so no response can be "
              "corrected for it (a division by zero).\nThe data were left as they were.");
    EXPECT_EQ(doc.Grid1().rows(), 3);
}

TEST_F(ResponseTableTest, RebuildThrowsAndLeavesGrid2AsItWas) {
    StartLine(DataType::ResponsePercentage);
    Type("5", "30");
    const TextTable before = doc.Grid2();
    doc.setTextDose("0");
    doc.setText1input("100");
    ASSERT_TRUE(doc.AcceptRow());
    EXPECT_THROW(doc.RebuildResponseTable(), Fault);
    EXPECT_TRUE(SameCells(doc.Grid2(), before));
}

// A control of 100% taken by the import's AcceptRow, which does not rebuild Grid2:
// removing the treatment leaves nothing that can be corrected.
class HundredPercentControlTest : public ResponseTableTest {
  protected:
    void SetUp() override {
        StartLine(DataType::ResponsePercentage);
        Type("5", "30");
        doc.setTextDose("0");
        doc.setText1input("100");
        ASSERT_TRUE(doc.AcceptRow());
        doc.setGrid1Current(2, dosecol::FirstValue);  // the treatment; the control sorts first
        grid1 = doc.Grid1();
        grid2 = doc.Grid2();
        port.messages.clear();
        observer.focus.clear();
    }

    const char* const kStopped =
        "Morvane stopped this command:\nthe control response is 100%, so no response can be "
        "corrected for it (a division by zero).\nThe data were left as they were.";
    TextTable grid1, grid2;
};

TEST_F(HundredPercentControlTest, DeleteIsStoppedAndTheDocumentStays) {
    port.answers.push_back(Answer::Ok);
    doc.CommandDel();
    EXPECT_EQ(port.messages.front().text,
              "Do you want to delete the selected row with the response value 30.000?");
    EXPECT_EQ(LastMessage(), kStopped);
    EXPECT_TRUE(SameCells(doc.Grid1(), grid1));
    EXPECT_TRUE(SameCells(doc.Grid2(), grid2));
    EXPECT_EQ(doc.table().RowsWereRemoved(), 0);
    EXPECT_TRUE(observer.focus.empty());
}

TEST_F(HundredPercentControlTest, EditIsStoppedAndTheInputCellsStayEmpty) {
    doc.CommandEdit();
    EXPECT_EQ(LastMessage(), kStopped);
    EXPECT_TRUE(SameCells(doc.Grid1(), grid1));
    EXPECT_TRUE(SameCells(doc.Grid2(), grid2));
    EXPECT_EQ(doc.table().TextDose(), "");
    EXPECT_EQ(doc.table().Text1input(), "");
    EXPECT_EQ(doc.table().RowsWereRemoved(), 0);
    EXPECT_TRUE(observer.focus.empty());
}

TEST_F(ResponseTableTest, ClearResponseTablePaintsTheControlCells) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("5", "3", "7");
    doc.ClearResponseTable();
    EXPECT_EQ(doc.Grid2().rows(), 2);
    EXPECT_EQ(Row(doc.Grid2(), 1), "|||");
    EXPECT_EQ(doc.Grid2().back(1, responsecol::Dose), std::nullopt);
    EXPECT_EQ(doc.Grid2().back(1, responsecol::Total), kControlColor);
    EXPECT_EQ(doc.Grid2().back(1, responsecol::Corrected), kControlColor);
}

TEST_F(ResponseTableTest, CalculationInputIsTheResponseTable) {
    StartCustomLine(DataType::RespondedAndNonResponded, true, "Temp.", "RT", "C");
    Type("5", "3", "7");
    const CalculationInput input = doc.calculationInput();
    EXPECT_EQ(&input.responses, &doc.Grid2());
    EXPECT_TRUE(input.controlPerTreatment);
    EXPECT_EQ(input.tAlpha, 1);
    EXPECT_EQ(input.fileTitle, "New file");
}

}  // namespace
}  // namespace morvane::testing
