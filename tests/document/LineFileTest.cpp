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
        StartLine(1, "ug", "ml");
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

    LineDocument other(shared, port, folder.path);
    ASSERT_TRUE(other.OpenLineFile(FixturePath("worked-type1.mrv")));
    EXPECT_EQ(other.Grid1().dump(), typed1.dump());
    EXPECT_EQ(other.Grid2().dump(), typed2.dump());
    EXPECT_TRUE(SameCells(other.Grid1(), typed1));
    EXPECT_TRUE(SameCells(other.Grid2(), typed2));
    EXPECT_EQ(other.notes().TreatmentName, "Treatment A");
    EXPECT_EQ(other.notes().ExperimentDate, "01 / 02 / 2003");
    EXPECT_EQ(other.main().TextName, "Treatment A");
    EXPECT_EQ(other.main().FileTitle, "worked-type1.mrv");
    EXPECT_EQ(other.main().Caption, "Morvane, worked-type1.mrv");
    EXPECT_EQ(other.main().Modified, 0);
    EXPECT_FALSE(other.main().CommandSaveEnabled);
    EXPECT_EQ(Row(other.Grid1(), 1), "C|0|20|1|5.000|0.00000000000C");
    EXPECT_EQ(other.Grid1().back(1, 2), kControlColor);
    EXPECT_EQ(Row(other.Grid2(), 1), "0|20|5.000|0.000");
    EXPECT_EQ(Row(other.Grid2(), 2), "10|20|80.000|78.947");
}

}  // namespace
}  // namespace morvane::testing
