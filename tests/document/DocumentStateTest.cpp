// The states of the document through its life: no document, new, saved or opened,
// changed after opening, an older file just opened; and what ResetLine leaves.
#include "DocumentTestSupport.h"

namespace morvane::testing {
namespace {

using DocumentStateTest = DocumentTest;

struct State {
    std::string FilePath;
    std::string FileTitle;
    int Modified;
    bool CommandSaveEnabled;
};

State StateOf(const LineDocument& doc) {
    return State{doc.file().FilePath(), doc.file().FileTitle(), doc.file().Modified(),
                 doc.file().CommandSaveEnabled()};
}

void ExpectState(const LineDocument& doc, const State& want) {
    const State have = StateOf(doc);
    EXPECT_EQ(have.FilePath, want.FilePath);
    EXPECT_EQ(have.FileTitle, want.FileTitle);
    EXPECT_EQ(have.Modified, want.Modified);
    EXPECT_EQ(have.CommandSaveEnabled, want.CommandSaveEnabled);
}

TEST_F(DocumentStateTest, NoDocumentAtTheStart) {
    EXPECT_EQ(doc.file().Caption(), "Morvane");
    EXPECT_EQ(doc.Grid1().rows(), 2);
    EXPECT_EQ(doc.Grid1().cols(), 3);
    EXPECT_EQ(doc.Grid1().columnWidth(0), 300);
    EXPECT_EQ(doc.Grid1().columnWidth(2), 1000);
    EXPECT_EQ(doc.Grid2().rows(), 2);
    EXPECT_EQ(doc.Grid2().cols(), 4);
    ExpectState(doc, {"", "", 0, false});
    EXPECT_FALSE(doc.main().CommandInfFormEnabled);
    EXPECT_FALSE(doc.main().CommandChgangeOptionsEnabled);
}

TEST_F(DocumentStateTest, NewNotSavedThenChangedByTheFirstRow) {
    StartLine(DataType::RespondedAndNonResponded);
    ExpectState(doc, {"", "New file", 0, false});
    Type("5", "1", "9");
    ExpectState(doc, {"", "New file", 1, true});
}

TEST_F(DocumentStateTest, SavedOrOpened) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("5", "1", "9");
    doc.setTextDose("");
    const std::string path = folder.file("state.mrv");
    port.saveAnswers.push_back(path);
    doc.CommandSave();
    ExpectState(doc, {path, "state.mrv", 0, false});
    LineDocument opened(shared, port, folder.path());
    ASSERT_TRUE(opened.OpenLineFile(path));
    ExpectState(opened, {path, "state.mrv", 0, false});
}

TEST_F(DocumentStateTest, ChangedAfterOpening) {
    ASSERT_TRUE(doc.OpenLineFile(FixturePath("worked-type1.mrv")));
    doc.setGrid1Current(1, kTotalColumns.total);
    port.answers.push_back(Answer::Ok);
    doc.CommandDel();
    ExpectState(doc, {FixturePath("worked-type1.mrv"), "worked-type1.mrv", 1, true});
}

TEST_F(DocumentStateTest, OlderFileJustOpened) {
    ASSERT_TRUE(doc.OpenLineFile(FixturePath("older-type1.mrv")));
    ExpectState(doc, {FixturePath("older-type1.mrv"), "older-type1.mrv", 0, true});
    EXPECT_EQ(doc.file().OlderVersionFile(), 1);
}

TEST_F(DocumentStateTest, ResetLineEmptiesTheDocument) {
    ASSERT_TRUE(doc.OpenLineFile(FixturePath("worked-type1.mrv")));
    doc.setTextDose("3");
    doc.setText1input("4");
    doc.setText2input("5");
    doc.setImportFile("/somewhere/data.txt");
    doc.setImportRowRefused(1);
    doc.ResetLine();
    const MainForm& m = doc.main();
    const LineFile& file = doc.file();
    const DataTable& table = doc.table();
    EXPECT_EQ(file.Caption(), "Morvane");
    EXPECT_EQ(file.FileTitle(), "");
    EXPECT_EQ(file.FilePath(), "");
    EXPECT_EQ(table.TextDose(), "");
    EXPECT_EQ(table.Text1input(), "");
    EXPECT_EQ(table.Text2input(), "");
    EXPECT_EQ(m.TextName, "");
    EXPECT_EQ(m.ImportFile, "");
    EXPECT_EQ(table.ImportRowRefused(), 0);
    EXPECT_EQ(file.OlderVersionFile(), 0);
    EXPECT_EQ(shared.DoseWord, "");
    EXPECT_EQ(shared.UnitWord, "");
    EXPECT_EQ(shared.EstimateWord, "");
    EXPECT_EQ(doc.notes(), NotesSheet{});
    EXPECT_EQ(doc.Grid1().dump(), "\t\t\n\t\t");
    EXPECT_EQ(doc.Grid1().back(1, dosecol::FirstValue), std::nullopt);
    EXPECT_EQ(doc.Grid2().dump(), "\t\t\t\n\t\t\t");
    EXPECT_EQ(doc.Grid2().back(1, responsecol::Total), std::nullopt);
    EXPECT_EQ(file.Modified(), 0);
    EXPECT_FALSE(file.CommandSaveEnabled());
    EXPECT_FALSE(m.CommandInfFormEnabled);
    EXPECT_FALSE(m.CommandChgangeOptionsEnabled);
    EXPECT_FALSE(doc.CalculateEnabled());
}

TEST_F(DocumentStateTest, TheObserverHearsOfChangesAndFocus) {
    StartLine(DataType::RespondedAndNonResponded);
    const int before = observer.changes;
    Type("5", "1", "9");
    EXPECT_GT(observer.changes, before);
    ASSERT_FALSE(observer.focus.empty());
    EXPECT_EQ(observer.focus.back(), Focus::TextDose);
    EXPECT_EQ(observer.shown, 1);
    EXPECT_EQ(observer.hidden, 1);
}

TEST_F(DocumentStateTest, CheckCoClickSendsTheFocusBackToTheDose) {
    StartLine(DataType::RespondedAndNonResponded, "hour");
    doc.setCheckCo(true);
    EXPECT_EQ(doc.table().CheckCo(), 1);
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
}

TEST_F(DocumentStateTest, TheInputWindowHiddenTakesTheFocusNowhere) {
    doc.setMainVisible(false);
    doc.CommandNew();
    doc.fileOptionsControls().setComboUnit1("mg", shared);
    doc.FileOptionsOK();
    EXPECT_EQ(doc.main().focus, Focus::None);
    EXPECT_EQ(doc.file().Caption(), "Morvane, New file");
}

}  // namespace
}  // namespace morvane::testing
