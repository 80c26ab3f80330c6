// The notes sheet: the date shortcut, the flag of a changed note, and what OK does to
// the document.
#include <regex>

#include "DocumentTestSupport.h"

namespace morvane::testing {
namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;
using std::chrono::year_month_day;

using NotesSheetTest = DocumentTest;

TEST_F(NotesSheetTest, ZeroDaysAgoIsToday) {
    InfForm form;
    form.setText5("0");
    ASSERT_TRUE(form.DateShortcut(year_month_day{year{2024}, month{3}, day{5}}));
    EXPECT_EQ(form.Text3(), "05 / 03 / 2024");
    EXPECT_EQ(form.NotesChanged(), 1);
}

TEST_F(NotesSheetTest, DaysAgoCountBackOverMonthsAndYears) {
    InfForm form;
    form.setText5("5");
    ASSERT_TRUE(form.DateShortcut(year_month_day{year{2024}, month{3}, day{5}}));
    EXPECT_EQ(form.Text3(), "29 / 02 / 2024");
    form.setText5("366");
    ASSERT_TRUE(form.DateShortcut(year_month_day{year{2024}, month{3}, day{5}}));
    EXPECT_EQ(form.Text3(), "05 / 03 / 2023");
}

TEST_F(NotesSheetTest, TodayComesFromTheClock) {
    InfForm form;
    ASSERT_TRUE(form.DateShortcut());
    EXPECT_TRUE(std::regex_match(form.Text3(), std::regex(R"(\d\d / \d\d / \d\d\d\d)")));
    EXPECT_EQ(form.Text5(), "0");
}

TEST_F(NotesSheetTest, DaysBeyondTheCalendarChangeNothing) {
    InfForm form;
    form.setText5("99999999");
    EXPECT_FALSE(form.DateShortcut(year_month_day{year{2024}, month{3}, day{5}}));
    form.setText5("800000");
    EXPECT_FALSE(form.DateShortcut(year_month_day{year{2024}, month{3}, day{5}}));
    EXPECT_EQ(form.Text3(), "");
    EXPECT_EQ(form.NotesChanged(), 0);
}

TEST_F(NotesSheetTest, DaysAgoTakesDigitsOnlyAndAnEmptyBoxBecomesZero) {
    EXPECT_TRUE(InfForm::Text5KeyAllowed('7'));
    EXPECT_TRUE(InfForm::Text5KeyAllowed(8));
    EXPECT_TRUE(InfForm::Text5KeyAllowed(13));
    EXPECT_FALSE(InfForm::Text5KeyAllowed('-'));
    EXPECT_FALSE(InfForm::Text5KeyAllowed('.'));
    InfForm form;
    form.setText5("");
    form.leaveText5();
    EXPECT_EQ(form.Text5(), "0");
}

TEST_F(NotesSheetTest, FillingTheBoxesIsNoChangeButEditingIs) {
    InfForm form(NotesSheet{"A", "B", "C", "D"});
    EXPECT_EQ(form.Text1(), "A");
    EXPECT_EQ(form.Text4(), "D");
    EXPECT_EQ(form.NotesChanged(), 0);
    form.setText2("B");
    EXPECT_EQ(form.NotesChanged(), 0);
    form.setText4("D, more");
    EXPECT_EQ(form.NotesChanged(), 1);
    EXPECT_EQ(form.notes(), (NotesSheet{"A", "B", "C", "D, more"}));
}

TEST_F(NotesSheetTest, OkStoresTheNotesAndSetsTheTreatmentName) {
    StartLine(DataType::RespondedAndNonResponded);
    InfForm form = doc.OpenNotesSheet();
    EXPECT_FALSE(doc.main().Enabled);
    form.setText1("Deltamethrin");
    form.setText2("Aedes");
    doc.NotesOK(form);
    EXPECT_TRUE(doc.main().Enabled);
    EXPECT_EQ(doc.notes().TreatmentName, "Deltamethrin");
    EXPECT_EQ(doc.notes().TreatedTarget, "Aedes");
    EXPECT_EQ(doc.main().TextName, "Deltamethrin");
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
}

TEST_F(NotesSheetTest, OkMarksTheFileChangedThroughTheNameEvenWithoutAChangedNote) {
    port.openAnswers.push_back(FixturePath("worked-type1.mrv"));
    doc.CommandOpen();
    ASSERT_EQ(doc.file().Modified(), 0);
    InfForm form = doc.OpenNotesSheet();
    EXPECT_EQ(form.NotesChanged(), 0);
    doc.NotesOK(form);
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
}

TEST_F(NotesSheetTest, CancelStoresNothing) {
    StartLine(DataType::RespondedAndNonResponded);
    InfForm form = doc.OpenNotesSheet();
    form.setText3("yesterday");
    doc.NotesCancel();
    EXPECT_TRUE(doc.main().Enabled);
    EXPECT_EQ(doc.notes().ExperimentDate, "");
    EXPECT_EQ(doc.file().Modified(), 0);
}

TEST_F(NotesSheetTest, TheSheetShowsANameChangedInTheWindow) {
    StartLine(DataType::RespondedAndNonResponded);
    doc.setTextName("Typed in the window");
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
    const InfForm form = doc.OpenNotesSheet();
    EXPECT_EQ(form.Text1(), "Typed in the window");
}

TEST_F(NotesSheetTest, ADoubleQuoteInANoteSpoilsTheFile) {
    StartLine(DataType::ResponsePercentage);
    Type("5", "40");
    InfForm form = doc.OpenNotesSheet();
    form.setText2("the \"wild\", strain");
    doc.NotesOK(form);
    // Saving refuses the quote; the writer itself writes it as it stands.
    const std::string path = folder.file("spoiled.mrv");
    WriteBytes(path, WriteLineFile(doc.fileOptions().controls, doc.Grid1(), doc.notes()));
    LineDocument other(shared, port, folder.path());
    ASSERT_TRUE(other.OpenLineFile(path));
    EXPECT_EQ(other.notes().TreatedTarget, "the ");
    EXPECT_EQ(other.notes().ExperimentDate, "strain\"");
    EXPECT_EQ(other.notes().MoreInformation, "");
}

}  // namespace
}  // namespace morvane::testing
