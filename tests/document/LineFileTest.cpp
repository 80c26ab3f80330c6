// The line file: the worked file written byte for byte from typed rows and read back,
// round trips for every layout, and the edge cases of the format.
#include "DocumentTestSupport.h"

namespace morvane::testing {
namespace {

class LineFileTest : public DocumentTest {
  protected:
    // The two rows of the worked file, typed: a control at dose 0 and a treatment at
    // dose 10, as totals and responded, in micrograms per millilitre.
    void TypeWorkedExample() {
        StartLine(DataType::TotalAndResponded, "ug", "ml");
        Type("0", "20", "1");
        Type("10", "20", "16");
        doc.setTextName("Treatment A");
        InfForm notes = doc.OpenNotesSheet();
        notes.setText2("Target");
        notes.setText3("01 / 02 / 2003");
        doc.NotesOK(notes);
    }

    std::string SaveAs(const std::string& name) {
        const std::string path = folder.file(name);
        port.saveAnswers.push_back(path);
        doc.CommandSave();
        return path;
    }
};

TEST_F(LineFileTest, WorkedFileOfTypeOneIsWrittenByteForByteFromTypedRows) {
    TypeWorkedExample();
    EXPECT_EQ(shared.DoseWord, "Con.");
    EXPECT_EQ(shared.UnitWord, "ug / ml");
    const std::string path = SaveAs("worked.mrv");
    EXPECT_EQ(ReadBytes(path), ReadBytes(FixturePath("worked-type1.mrv")));
    EXPECT_TRUE(port.texts().empty()) << port.texts().front();
}

TEST_F(LineFileTest, WorkedFileReadsBackIntoTheSameGrids) {
    TypeWorkedExample();
    const TextTable typed1 = doc.Grid1();
    const TextTable typed2 = doc.Grid2();

    LineDocument other(shared, port, folder.path());
    ASSERT_TRUE(other.OpenLineFile(FixturePath("worked-type1.mrv")));
    EXPECT_EQ(other.Grid1().dump(), typed1.dump());
    EXPECT_EQ(other.Grid2().dump(), typed2.dump());
    EXPECT_TRUE(SameCells(other.Grid1(), typed1));
    EXPECT_TRUE(SameCells(other.Grid2(), typed2));
    EXPECT_EQ(other.notes().TreatmentName, "Treatment A");
    EXPECT_EQ(other.notes().ExperimentDate, "01 / 02 / 2003");
    EXPECT_EQ(other.main().TextName, "Treatment A");
    EXPECT_EQ(other.file().FileTitle(), "worked-type1.mrv");
    EXPECT_EQ(other.file().Caption(), "Morvane, worked-type1.mrv");
    EXPECT_EQ(other.file().Modified(), 0);
    EXPECT_FALSE(other.file().CommandSaveEnabled());
    EXPECT_EQ(Row(other.Grid1(), 1), "C|0|20|1|5.000|0.00000000000C");
    EXPECT_EQ(other.Grid1().back(1, dosecol::FirstValue), kControlColor);
    EXPECT_EQ(Row(other.Grid2(), 1), "0|20|5.000|0.000");
    EXPECT_EQ(Row(other.Grid2(), 2), "10|20|80.000|78.947");
}

// ---- Round trips: every data type, with and without a control for each treatment,
// with and without replicates weighting.

struct Layout {
    DataType dataType;
    bool controlEach;
    bool weighting;
};

class RoundTripTest : public LineFileTest, public ::testing::WithParamInterface<Layout> {};

TEST_P(RoundTripTest, SavedLineReadsBackIntoTheSameDocument) {
    const Layout layout = GetParam();
    StartCustomLine(layout.dataType, layout.controlEach, "Con.", "RC", "ppm");
    SetWeighting(layout.weighting);
    const bool two = layout.dataType != DataType::ResponsePercentage;
    Type("0.5", "40", two ? "12" : "", false);
    Type("2", "40", two ? "20" : "", false);
    Type("2", "30", two ? "21" : "", false);
    Type("12.5", "35", two ? "30" : "", false);
    Type("1E-05", "30", two ? "3" : "", false);
    if (layout.controlEach) {
        Type("2", "40", two ? "4" : "", true);
        Type("12.5", "30", two ? "3" : "", true);
    } else {
        Type("0", "40", two ? "4" : "", false);
        Type("0", "45", two ? "2" : "", false);
    }
    doc.setTextDose("");
    doc.setTextName("Round trip, layout " + std::to_string(static_cast<int>(layout.dataType)));
    InfForm notes = doc.OpenNotesSheet();
    notes.setText2("Culex pipiens");
    notes.setText3("03 / 04 / 2005");
    notes.setText4("first line\r\nsecond line, with a comma");
    doc.NotesOK(notes);
    const std::string path = SaveAs("round.mrv");
    ASSERT_EQ(doc.file().Modified(), 0);

    SharedRegisters otherShared;
    ScriptedUserPort otherPort;
    LineDocument other(otherShared, otherPort, folder.path());
    ASSERT_TRUE(other.OpenLineFile(path)) << otherPort.texts().back();
    EXPECT_TRUE(otherPort.messages.empty());
    EXPECT_TRUE(SameCells(other.Grid1(), doc.Grid1()));
    EXPECT_TRUE(SameCells(other.Grid2(), doc.Grid2()));
    EXPECT_EQ(other.fileOptions().controls, doc.fileOptions().controls);
    EXPECT_EQ(other.notes(), doc.notes());
    EXPECT_EQ(other.ControlPerTreatment(), layout.controlEach);
    EXPECT_EQ(other.CalculateEnabled(), doc.CalculateEnabled());
    EXPECT_EQ(otherShared.DoseWord, "Con.");
    EXPECT_EQ(otherShared.UnitWord, "ppm");
    EXPECT_EQ(otherShared.EstimateWord, "RC");
    // What was read writes the very bytes of the file again.
    EXPECT_EQ(WriteLineFile(other.fileOptions().controls, other.Grid1(), other.notes()),
              ReadBytes(path));
}

INSTANTIATE_TEST_SUITE_P(EveryLayout, RoundTripTest,
                         ::testing::Values(Layout{DataType::RespondedAndNonResponded, false, false},
                                           Layout{DataType::RespondedAndNonResponded, false, true},
                                           Layout{DataType::RespondedAndNonResponded, true, false},
                                           Layout{DataType::RespondedAndNonResponded, true, true},
                                           Layout{DataType::TotalAndResponded, false, false},
                                           Layout{DataType::TotalAndResponded, false, true},
                                           Layout{DataType::TotalAndResponded, true, false},
                                           Layout{DataType::TotalAndResponded, true, true},
                                           Layout{DataType::ResponsePercentage, false, false},
                                           Layout{DataType::ResponsePercentage, false, true},
                                           Layout{DataType::ResponsePercentage, true, false},
                                           Layout{DataType::ResponsePercentage, true, true}));

// ---- The edge cases of the format.

TEST_F(LineFileTest, AnEmptyTableIsStoredAsTwoRowsAndTheNotesOnly) {
    StartLine(DataType::RespondedAndNonResponded, "mg");
    doc.setTextName("Empty");
    const std::string path = SaveAs("empty.mrv");
    EXPECT_EQ(
        ReadBytes(path),
        "2,\"\",\"\",\"\",\"\",\"\"\r\n0,0,\"mg\",\"\",1,\"Dose\",\"LD\",\"\",0,\"0.05\",0,0\r\n"
        "2,7\r\n\"Empty\",\"\",\"\",\"\"\r\n");
    LineDocument other(shared, port, folder.path());
    ASSERT_TRUE(other.OpenLineFile(path));
    EXPECT_EQ(other.Grid1().rows(), 2);
    EXPECT_EQ(other.Grid1().cols(), 7);
    EXPECT_EQ(other.notes().TreatmentName, "Empty");
}

TEST_F(LineFileTest, ADoubleQuoteInANoteIsWrittenAsItStandsAndSpoilsReading) {
    StartLine(DataType::ResponsePercentage);
    Type("5", "50");
    doc.setTextName("Dose \"A\", second");
    // Saving refuses the quote; the writer itself writes it as it stands.
    const std::string path = folder.file("quote.mrv");
    WriteBytes(path, WriteLineFile(doc.fileOptions().controls, doc.Grid1(), doc.notes()));
    const std::string bytes = ReadBytes(path);
    EXPECT_NE(bytes.find("\"Dose \"A\", second\",\"\",\"\",\"\"\r\n"), std::string::npos);
    LineDocument other(shared, port, folder.path());
    ASSERT_TRUE(other.OpenLineFile(path));
    // The name ends at its second quote, and what follows the comma inside it takes the
    // place of the next note.
    EXPECT_EQ(other.notes().TreatmentName, "Dose ");
    EXPECT_EQ(other.notes().TreatedTarget, "second\"");
}

TEST_F(LineFileTest, RowsOutOfOrderInTheFileAreSortedByTheNextAcceptedRowAlsoAfterADelete) {
    auto row = [](const std::string& dose, const std::string& responded,
                  const std::string& percent) {
        return "\"T\",\"" + dose + "\",\"20\",\"" + responded + "\",\"" + percent + "\",\"" +
               SortKey(NumberOf(dose), "T") + "\",";
    };
    const std::string path = folder.file("unordered.mrv");
    WriteBytes(path,
               "2,\"\",\"\",\"\",\"\",\"\"\r\n"
               "1,0,\"ug\",\"ml\",2,\"Dose\",\"LD\",\"\",0,\"0.05\",0,0\r\n"
               "5,6\r\n" +
                   row("20", "16", "80.000") + row("10", "10", "50.000") + row("5", "4", "20.000") +
                   "\"\",\"\",\"\",\"\"\r\n");
    ASSERT_TRUE(doc.OpenLineFile(path));
    EXPECT_EQ(doc.Grid1().text(1, dosecol::Dose), "20");  // as the file has them
    doc.setGrid1Current(1, dosecol::FirstValue);
    port.answers.push_back(Answer::Ok);
    doc.CommandDel();
    EXPECT_EQ(doc.Grid1().text(1, dosecol::Dose), "10");
    Type("30", "20", "10");
    ASSERT_EQ(doc.Grid1().rows(), 5);
    EXPECT_EQ(doc.Grid1().text(1, dosecol::Dose), "5");
    EXPECT_EQ(doc.Grid1().text(2, dosecol::Dose), "10");
    EXPECT_EQ(doc.Grid1().text(3, dosecol::Dose), "30");
}

TEST_F(LineFileTest, AFirstFieldOfOneSelectsTheOlderLayoutAndAnyOtherTheCurrent) {
    std::string bytes = ReadBytes(FixturePath("worked-type1.mrv"));
    bytes[0] = '7';
    const std::string path = folder.file("seven.mrv");
    WriteBytes(path, bytes);
    ASSERT_TRUE(doc.OpenLineFile(path));
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.Grid1().rows(), 4);

    bytes[0] = '1';
    WriteBytes(path, bytes);
    EXPECT_FALSE(doc.OpenLineFile(path));
    ASSERT_EQ(port.messages.size(), 2u);
    EXPECT_EQ(port.messages[0].text, OlderVersionLines("seven.mrv"));
    EXPECT_EQ(port.messages[0].text,
              "\"seven.mrv\" file belongs to older version.\nWhen you save this file, it'll be "
              "saved according to current version format.\nSo it'll not be accessible by the older "
              "version.");
    EXPECT_EQ(port.messages[1].text.rfind("An error occurred while opening this file.\n", 0), 0u);
    EXPECT_EQ(doc.file().Caption(), "Morvane");
}

TEST_F(LineFileTest, MoreThan32767RowsCannotBeReadBack) {
    StartLine(DataType::ResponsePercentage);
    for (int i = 0; i < 32769; ++i) {
        doc.setTextDose(std::to_string(1 + i % 40));
        doc.setText1input("50");
        ASSERT_TRUE(doc.AcceptRow());
    }
    doc.RebuildResponseTable();
    // Saving refuses such a table; the writer itself writes the count as it is.
    const std::string path = folder.file("large.mrv");
    WriteBytes(path, WriteLineFile(doc.fileOptions().controls, doc.Grid1(), doc.notes()));
    EXPECT_NE(ReadBytes(path).find("\r\n32771,4\r\n"), std::string::npos);
    port.messages.clear();
    LineDocument other(shared, port, folder.path());
    EXPECT_FALSE(other.OpenLineFile(path));
    EXPECT_EQ(LastMessage(),
              "An error occurred while opening this file.\nthe number 32771 is too large for its "
              "field (line 3, field 1)");
    EXPECT_EQ(other.Grid1().rows(), 2);
    EXPECT_EQ(other.Grid1().cols(), 3);
}

TEST_F(LineFileTest, The32767RowsThatFitAreReadBack) {
    StartLine(DataType::ResponsePercentage);
    for (int i = 0; i < 32765; ++i) {
        doc.setTextDose(std::to_string(1 + i % 40));
        doc.setText1input("50");
        ASSERT_TRUE(doc.AcceptRow());
    }
    doc.RebuildResponseTable();
    const std::string path = SaveAs("fits.mrv");
    LineDocument other(shared, port, folder.path());
    ASSERT_TRUE(other.OpenLineFile(path));
    EXPECT_EQ(other.Grid1().rows(), 32767);
    EXPECT_TRUE(SameCells(other.Grid2(), doc.Grid2()));
}

// ---- The older layout.

TEST_F(LineFileTest, AnOlderFileIsReadIntoTheSameRowsAsTypedOnes) {
    StartLine(DataType::TotalAndResponded, "ug", "ml");
    Type("0", "20", "1");
    Type("1", "20", "4");
    Type("1", "20", "6");
    Type("10", "20", "16");

    SharedRegisters otherShared;
    ScriptedUserPort otherPort;
    LineDocument other(otherShared, otherPort, folder.path());
    ASSERT_TRUE(other.OpenLineFile(FixturePath("older-type1.mrv")));
    ASSERT_EQ(otherPort.messages.size(), 1u);
    EXPECT_EQ(otherPort.messages[0].text, OlderVersionLines("older-type1.mrv"));
    EXPECT_TRUE(SameCells(other.Grid1(), doc.Grid1()));
    EXPECT_TRUE(SameCells(other.Grid2(), doc.Grid2()));
    EXPECT_EQ(Row(other.Grid1(), 3), "T|1|20|6|30.000|1.00000000000T");
    EXPECT_EQ(otherShared.DoseWord, "Con.");
    EXPECT_EQ(otherShared.UnitWord, "ug / ml");
    EXPECT_EQ(other.notes().TreatmentName, "Old treatment");
    EXPECT_EQ(other.notes().MoreInformation, "kept");
    EXPECT_EQ(other.main().TextName, "Old treatment");
    EXPECT_EQ(other.file().OlderVersionFile(), 1);
    EXPECT_EQ(other.file().FileTitle(), "older-type1.mrv");
    EXPECT_EQ(other.file().FilePath(), FixturePath("older-type1.mrv"));
    EXPECT_EQ(other.file().Caption(), "Morvane, older-type1.mrv");
    // The state of an older file just opened: nothing unsaved, Save still enabled.
    EXPECT_EQ(other.file().Modified(), 0);
    EXPECT_TRUE(other.file().CommandSaveEnabled());
    EXPECT_TRUE(other.main().CommandInfFormEnabled);
    EXPECT_TRUE(other.main().CommandChgangeOptionsEnabled);
    EXPECT_TRUE(other.main().TextNameEnabled);
}

TEST_F(LineFileTest, AnOlderTimeFileTakesTheControlsOfItsSecondTable) {
    StartLine(DataType::RespondedAndNonResponded, "hour");
    SetWeighting(true);
    doc.fileOptionsControls().controls.Combo7 = "0.10";
    Type("1", "3", "17");
    Type("2", "8", "12");
    Type("4", "15", "5");
    Type("1", "1", "19", true);
    Type("2", "2", "18", true);
    LineDocument other(shared, port, folder.path());
    ASSERT_TRUE(other.OpenLineFile(FixturePath("older-time.mrv")));
    EXPECT_TRUE(other.ControlPerTreatment());
    EXPECT_TRUE(SameCells(other.Grid1(), doc.Grid1()));
    EXPECT_TRUE(SameCells(other.Grid2(), doc.Grid2()));
    EXPECT_EQ(Row(other.Grid2(), 1), "1|20|15.000|5.000|10.526");
    EXPECT_EQ(other.table().CheckCo(), 0);
    EXPECT_EQ(other.fileOptions().TAlpha(), 0);
    EXPECT_EQ(other.fileOptions().controls.Check2, 1);
}

TEST_F(LineFileTest, AnOlderFileWithAnEmptySecondValueEndsInTheOpeningError) {
    EXPECT_FALSE(doc.OpenLineFile(FixturePath("older-missing-value.mrv")));
    ASSERT_EQ(port.messages.size(), 2u);
    EXPECT_EQ(port.messages[1].text,
              "An error occurred while opening this file.\n\"\" is not a number");
    EXPECT_EQ(doc.Grid1().rows(), 2);
    EXPECT_EQ(doc.Grid1().cols(), 3);
    EXPECT_EQ(doc.file().OlderVersionFile(), 0);
    EXPECT_EQ(doc.file().Caption(), "Morvane");
    EXPECT_EQ(doc.file().FilePath(), "");
}

TEST_F(LineFileTest, AnOlderFileIsSavedInTheCurrentLayout) {
    const std::string path = folder.file("older-copy.mrv");
    WriteBytes(path, ReadBytes(FixturePath("older-type1.mrv")));
    ASSERT_TRUE(doc.OpenLineFile(path));
    const TextTable rows = doc.Grid1();
    doc.CommandSave();  // its path is known: written over without a dialog
    EXPECT_TRUE(port.saveDialogs.empty());
    EXPECT_EQ(doc.file().OlderVersionFile(), 0);
    EXPECT_EQ(ReadBytes(path).substr(0, 18), "2,\"\",\"\",\"\",\"\",\"\"\r\n");
    LineDocument again(shared, port, folder.path());
    port.messages.clear();
    ASSERT_TRUE(again.OpenLineFile(path));
    EXPECT_TRUE(port.messages.empty());
    EXPECT_TRUE(SameCells(again.Grid1(), rows));
    EXPECT_EQ(again.file().OlderVersionFile(), 0);
}

// ---- The silent reading of the comparison of lines.

TEST_F(LineFileTest, BatchReadingLoadsTheLineAndRebuildsWithoutAWord) {
    shared.BatchName = "Line A";
    ASSERT_TRUE(doc.OpenLineForBatch(FixturePath("worked-type1.mrv")));
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(Row(doc.Grid2(), 2), "10|20|80.000|78.947");
    EXPECT_EQ(doc.file().FileTitle(), "New file");
    EXPECT_EQ(doc.file().FilePath(), "");
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_EQ(doc.notes().TreatmentName, "Treatment A");
    EXPECT_EQ(shared.BatchFailed, 0);
}

TEST_F(LineFileTest, BatchReadingReportsAFailureOnlyInTheBatchRegisters) {
    shared.BatchName = "Line B";
    EXPECT_FALSE(doc.OpenLineForBatch(folder.file("missing.mrv")));
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(shared.BatchFailed, 1);
    EXPECT_EQ(shared.BatchMessage,
              "An error occurred while opening Line B\nNo such file or directory");
}

TEST_F(LineFileTest, BatchReadingOfAnOlderFileTakesOnlyItsFirstTable) {
    shared.BatchName = "Old timed line";
    ASSERT_TRUE(doc.OpenLineForBatch(FixturePath("older-time.mrv")));
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.Grid1().rows(), 5);  // three treatments, no controls
    for (int r = 1; r <= 3; ++r)
        EXPECT_EQ(doc.Grid1().text(r, dosecol::Label), "T");
    EXPECT_EQ(Row(doc.Grid2(), 1), "1|20|15.000||15.000");
    EXPECT_EQ(shared.BatchFailed, 0);
}

TEST_F(LineFileTest, BatchReadingOfADamagedOlderFileEmptiesTheDocument) {
    shared.BatchName = "Broken";
    EXPECT_FALSE(doc.OpenLineForBatch(FixturePath("older-missing-value.mrv")));
    EXPECT_EQ(shared.BatchFailed, 1);
    EXPECT_EQ(shared.BatchMessage, "An error occurred while opening Broken\n\"\" is not a number");
    EXPECT_EQ(doc.Grid1().cols(), 3);
}

}  // namespace
}  // namespace morvane::testing
