// The table of lines and the options of the comparison window, driven through its
// event handlers as a user drives the window.
#include "relative/Rtvin.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include "support/ScriptedUserPort.h"

namespace morvane {
namespace {

using testing::ScriptedUserPort;

// Adds the files one dialog after the other, then cancels.
void AddFiles(Rtvin& rtvin, ScriptedUserPort& port, std::initializer_list<const char*> paths) {
    for (const char* path : paths)
        port.openAnswers.push_back(std::string(path));
    port.openAnswers.push_back(std::nullopt);
    rtvin.Command1Click(port);
}

std::vector<std::string> Items(const ListControl& list) {
    return list.items;
}

TEST(Rtvin, LoadsWithItsInitialTableAndOptions) {
    Rtvin rtvin;
    EXPECT_EQ(rtvin.Grid1.dump(), "no.\tLine name\tFile path\n\t\t");
    EXPECT_EQ(rtvin.Grid1.columnWidth(linecol::Number), 400);
    EXPECT_EQ(rtvin.Grid1.columnWidth(linecol::Name), 1300);
    EXPECT_EQ(rtvin.Grid1.columnWidth(linecol::Path), 4700);
    EXPECT_EQ(rtvin.Grid1.currentRow(), 1);
    EXPECT_EQ(rtvin.Grid1.currentCol(), 2);
    EXPECT_EQ(rtvin.Combo1.text, "LD");
    EXPECT_EQ(Items(rtvin.Combo1), (std::vector<std::string>{"LD", "LC", "LT", "RD", "RC", "RT"}));
    EXPECT_EQ(rtvin.Text1.text, "50");
    EXPECT_TRUE(rtvin.Check3.checked);
    EXPECT_TRUE(rtvin.Check1.checked);
    EXPECT_TRUE(rtvin.Check1.enabled);
    EXPECT_EQ(rtvin.Combo2.selectedText(), "0.05");
    EXPECT_TRUE(rtvin.Check4.checked);
    EXPECT_EQ(rtvin.Combo3.selectedText(), "1st one");
    EXPECT_TRUE(rtvin.Check5.checked);
    EXPECT_EQ(rtvin.Combo4.selectedText(), "1st one");
    EXPECT_TRUE(rtvin.Check2.checked);
    EXPECT_FALSE(rtvin.Check7.checked);
    EXPECT_EQ(Items(rtvin.List1), (std::vector<std::string>{"90"}));
    EXPECT_EQ(rtvin.Text2.text, "");
    EXPECT_EQ(rtvin.Text4.text, "20");
    EXPECT_EQ(rtvin.Text3.text, "80");
    EXPECT_EQ(rtvin.Label1, "Sort according LD");
    EXPECT_EQ(rtvin.Frame2, "Add LD values");
    EXPECT_EQ(rtvin.Label6, "From LD");
    EXPECT_EQ(rtvin.Label5, "To LD");
    EXPECT_TRUE(rtvin.Command1.enabled);
    for (const CommandButton* b : {&rtvin.Command2, &rtvin.Command3, &rtvin.Command4,
                                   &rtvin.Command6, &rtvin.Command8, &rtvin.Command9})
        EXPECT_FALSE(b->enabled);
    EXPECT_FALSE(rtvin.rtvoutLoaded());
}

TEST(Rtvin, FirstFileFillsTheBlankRowAndLaterFilesAppend) {
    Rtvin rtvin;
    ScriptedUserPort port;
    AddFiles(rtvin, port, {"/data/field strain.mrv"});
    EXPECT_EQ(rtvin.Grid1.rows(), 2);
    EXPECT_EQ(rtvin.Grid1.dump(),
              "no.\tLine name\tFile path\n1\tfield strain\t/data/field strain.mrv");
    ASSERT_EQ(port.openDialogs.size(), 2u);
    EXPECT_EQ(port.openDialogs[0].title, "Open Morvane file");
    EXPECT_EQ(port.openDialogs[0].filter, "Morvane files (*.mrv)|*.mrv");
    EXPECT_EQ(port.openDialogs[0].fileName, "");
    for (const CommandButton* b :
         {&rtvin.Command4, &rtvin.Command6, &rtvin.Command8, &rtvin.Command9})
        EXPECT_TRUE(b->enabled);
    EXPECT_EQ(Items(rtvin.Combo3),
              (std::vector<std::string>{"1st one", "field strain", "Last one"}));

    AddFiles(rtvin, port, {"/data/lab.mrv", "/data/season 2.mrv"});
    EXPECT_EQ(rtvin.Grid1.dump(),
              "no.\tLine name\tFile path\n1\tfield strain\t/data/field strain.mrv\n"
              "2\tlab\t/data/lab.mrv\n3\tseason 2\t/data/season 2.mrv");
    EXPECT_EQ(Items(rtvin.Combo4),
              (std::vector<std::string>{"1st one", "field strain", "lab", "season 2", "Last one"}));
    EXPECT_TRUE(port.messages.empty());
}

TEST(Rtvin, CancellingTheFirstDialogLeavesTheTableAndRefreshesTheLists) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Combo3.listIndex = 1;  // "Last one"
    AddFiles(rtvin, port, {});
    EXPECT_EQ(rtvin.Grid1.dump(), "no.\tLine name\tFile path\n\t\t");
    EXPECT_FALSE(rtvin.Command4.enabled);
    EXPECT_EQ(rtvin.Combo3.listIndex, 0);
    EXPECT_EQ(Items(rtvin.Combo3), (std::vector<std::string>{"1st one", "Last one"}));
}

TEST(Rtvin, TheChannelRefreshesTheListsOrOpensTheDialog) {
    Rtvin rtvin;
    ScriptedUserPort port;
    port.openAnswers = {std::string("/x/a line.mrv"), std::nullopt};
    rtvin.TextMsg("2", port);
    EXPECT_EQ(rtvin.Grid1.text(1, linecol::Name), "a line");
    rtvin.Grid1.setText(1, linecol::Name, "renamed in place");
    rtvin.TextMsg("3", port);  // no such code
    EXPECT_EQ(Items(rtvin.Combo3), (std::vector<std::string>{"1st one", "a line", "Last one"}));
    rtvin.TextMsg("1", port);
    EXPECT_EQ(Items(rtvin.Combo3),
              (std::vector<std::string>{"1st one", "renamed in place", "Last one"}));
}

TEST(Rtvin, ATitleTooShortToLoseItsExtensionStopsTheLoopWithTheOpeningMessage) {
    Rtvin rtvin;
    ScriptedUserPort port;
    port.openAnswers = {std::string("/x/ok.mrv"), std::string("/x/ab"),
                        std::string("/x/never.mrv")};
    rtvin.Command1Click(port);
    ASSERT_EQ(port.texts().size(), 1u);
    EXPECT_EQ(port.texts()[0], std::string("An error was occurred while opening this file.\n") +
                                   std::strerror(EINVAL));
    // The row was started, its name never written, and the lists not refreshed.
    EXPECT_EQ(rtvin.Grid1.dump(), "no.\tLine name\tFile path\n1\tok\t/x/ok.mrv\n2\t\t");
    EXPECT_EQ(Items(rtvin.Combo3), (std::vector<std::string>{"1st one", "Last one"}));
    EXPECT_EQ(port.openAnswers.size(), 1u);
}

TEST(Rtvin, RemovingTheOnlyRowLeavesANumberedBlankRowAndTheNextFileAppends) {
    Rtvin rtvin;
    ScriptedUserPort port;
    AddFiles(rtvin, port, {"/d/only.mrv"});
    rtvin.Grid1Click(1);
    rtvin.Command6Click();
    EXPECT_EQ(rtvin.Grid1.dump(), "no.\tLine name\tFile path\n1\t\t");
    for (const CommandButton* b :
         {&rtvin.Command4, &rtvin.Command6, &rtvin.Command8, &rtvin.Command9})
        EXPECT_FALSE(b->enabled);
    EXPECT_EQ(Items(rtvin.Combo3), (std::vector<std::string>{"1st one", "Last one"}));

    AddFiles(rtvin, port, {"/d/next.mrv"});
    EXPECT_EQ(rtvin.Grid1.dump(), "no.\tLine name\tFile path\n1\t\t\n2\tnext\t/d/next.mrv");
    // The blank row is skipped by the lists.
    EXPECT_EQ(Items(rtvin.Combo3), (std::vector<std::string>{"1st one", "next", "Last one"}));
}

TEST(Rtvin, RemovingARowMovesTheLaterOnesUpAndKeepsTheNumbers) {
    Rtvin rtvin;
    ScriptedUserPort port;
    AddFiles(rtvin, port, {"/d/a.mrv", "/d/b.mrv", "/d/c.mrv"});
    rtvin.Grid1Click(2);
    EXPECT_EQ(rtvin.Command6.hint, "Remove b");
    EXPECT_EQ(rtvin.Command9.hint, "Rename b");
    rtvin.Command6Click();
    EXPECT_EQ(rtvin.Grid1.dump(), "no.\tLine name\tFile path\n1\ta\t/d/a.mrv\n2\tc\t/d/c.mrv");
    EXPECT_EQ(rtvin.Grid1.currentRow(), 1);
    EXPECT_EQ(rtvin.Grid1.currentCol(), 2);
    EXPECT_EQ(rtvin.Command6.hint, "Remove a");
    EXPECT_EQ(Items(rtvin.Combo4), (std::vector<std::string>{"1st one", "a", "c", "Last one"}));
}

TEST(Rtvin, RemovingRowOneOfSeveralSelectsRowOneAgain) {
    Rtvin rtvin;
    ScriptedUserPort port;
    AddFiles(rtvin, port, {"/d/a.mrv", "/d/b.mrv", "/d/c.mrv"});
    rtvin.Grid1Click(1);
    rtvin.Command6Click();
    EXPECT_EQ(rtvin.Grid1.currentRow(), 1);
    EXPECT_EQ(rtvin.Command6.hint, "Remove b");
    EXPECT_EQ(rtvin.Grid1.dump(), "no.\tLine name\tFile path\n1\tb\t/d/b.mrv\n2\tc\t/d/c.mrv");
}

TEST(Rtvin, TwoFilesOfOneTitleGiveTwoRowsOfOneName) {
    Rtvin rtvin;
    ScriptedUserPort port;
    AddFiles(rtvin, port, {"/2023/strain.mrv", "/2024/strain.mrv"});
    EXPECT_EQ(rtvin.Grid1.text(1, linecol::Name), "strain");
    EXPECT_EQ(rtvin.Grid1.text(2, linecol::Name), "strain");
    EXPECT_EQ(Items(rtvin.Combo3),
              (std::vector<std::string>{"1st one", "strain", "strain", "Last one"}));
    EXPECT_EQ(Items(rtvin.Combo4),
              (std::vector<std::string>{"1st one", "strain", "strain", "Last one"}));
}

TEST(Rtvin, ClearingAsksFirstAndLeavesItsOwnOddLists) {
    Rtvin rtvin;
    ScriptedUserPort port;
    AddFiles(rtvin, port, {"/d/a.mrv", "/d/b.mrv"});
    port.answers.push_back(Answer::Cancel);
    rtvin.Command8Click(port);
    EXPECT_EQ(rtvin.Grid1.rows(), 3);
    ASSERT_EQ(port.messages.size(), 1u);
    EXPECT_EQ(port.messages[0].text, "That will delete all lines in the table");
    EXPECT_EQ(port.messages[0].buttons, Buttons::OkCancel);

    port.answers.push_back(Answer::Ok);
    rtvin.Command8Click(port);
    EXPECT_EQ(rtvin.Grid1.dump(), "no.\tLine name\tFile path\n\t\t");
    EXPECT_EQ(Items(rtvin.Combo3), (std::vector<std::string>{"1 st one", "Last one"}));
    EXPECT_EQ(Items(rtvin.Combo4), (std::vector<std::string>{"Last one", "1 st one"}));
    EXPECT_EQ(rtvin.Combo3.listIndex, 0);
    EXPECT_EQ(rtvin.Combo4.listIndex, 0);
    for (const CommandButton* b :
         {&rtvin.Command4, &rtvin.Command6, &rtvin.Command8, &rtvin.Command9})
        EXPECT_FALSE(b->enabled);
    // The column 0 is blank again, so the next file fills row 1.
    AddFiles(rtvin, port, {"/d/c.mrv"});
    EXPECT_EQ(rtvin.Grid1.dump(), "no.\tLine name\tFile path\n1\tc\t/d/c.mrv");
}

TEST(Rtvin, RenamingWritesTheAnswerAndRefreshesTheLists) {
    Rtvin rtvin;
    ScriptedUserPort port;
    AddFiles(rtvin, port, {"/d/a.mrv", "/d/b.mrv"});
    rtvin.Grid1Click(2);
    rtvin.Combo3.listIndex = 2;
    port.inputAnswers = {std::string("")};
    rtvin.Command9Click(port);
    EXPECT_EQ(rtvin.Grid1.text(2, linecol::Name), "b");
    EXPECT_EQ(rtvin.Combo3.listIndex, 2);
    ASSERT_EQ(port.inputs.size(), 1u);
    EXPECT_EQ(port.inputs[0].prompt, "Set the new line name ");
    EXPECT_EQ(port.inputs[0].title, "New line name");
    EXPECT_EQ(port.inputs[0].defaultText, "b");

    port.inputAnswers = {std::string("Susceptible lab strain")};
    rtvin.Command9Click(port);
    EXPECT_EQ(rtvin.Grid1.text(2, linecol::Name), "Susceptible lab strain");
    EXPECT_EQ(rtvin.Grid1.text(2, linecol::Path), "/d/b.mrv");
    EXPECT_EQ(rtvin.Combo3.listIndex, 0);
    EXPECT_EQ(Items(rtvin.Combo3),
              (std::vector<std::string>{"1st one", "a", "Susceptible lab strain", "Last one"}));
}

TEST(Rtvin, AnEmptyAbbreviationBecomesLDAndTheCaptionsFollowIt) {
    Rtvin rtvin;
    rtvin.Combo1.text = "";
    rtvin.Combo1LostFocus();
    EXPECT_EQ(rtvin.Combo1.text, "LD");

    rtvin.Combo1.text = "LC";
    rtvin.Combo1LostFocus();
    EXPECT_EQ(rtvin.Label1, "Sort according LC");
    EXPECT_EQ(rtvin.Frame2, "Add LC to table");
    EXPECT_EQ(rtvin.Label4, "LC");
    EXPECT_EQ(rtvin.Frame4, "Sorted LC (50)");
    EXPECT_EQ(rtvin.Label6, "From LC");
    EXPECT_EQ(rtvin.Label5, "To LC");
    // Writing the results window's captions loads it.
    ASSERT_TRUE(rtvin.rtvoutLoaded());
    EXPECT_EQ(rtvin.rtvout()->Check1.caption, "LC 50");
    EXPECT_EQ(rtvin.rtvout()->Check2.caption, "LC 50 values");
}

TEST(Rtvin, SortedPercentageOneAndNinetyNinePassHalfAndNinetyNineAndAHalfFail) {
    for (const char* good : {"99", "1"}) {
        Rtvin rtvin;
        ScriptedUserPort port;
        rtvin.Text1.text = good;
        rtvin.Text1LostFocus(port);
        EXPECT_TRUE(port.messages.empty()) << good;
        EXPECT_EQ(rtvin.focus, RtvinFocus::Unchanged);
        EXPECT_EQ(rtvin.Frame4, std::string("Sorted LD (") + good + ")");
    }
    for (const char* bad : {"0.5", "99.5"}) {
        Rtvin rtvin;
        ScriptedUserPort port;
        rtvin.Text1.text = bad;
        rtvin.Text1LostFocus(port);
        EXPECT_EQ(port.texts(),
                  (std::vector<std::string>{"Sorted LD value msut be between 1 and 99"}));
        EXPECT_EQ(rtvin.focus, RtvinFocus::Text1);
        EXPECT_EQ(rtvin.Frame4, "Sorted LD (50)");
        EXPECT_FALSE(rtvin.rtvoutLoaded());
    }
}

TEST(Rtvin, ARefusedSortedPercentageIsRewrittenAsItsPlainNumber) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Combo1.text = "LT";
    rtvin.Text1.text = "0.50";
    rtvin.Text1LostFocus(port);
    EXPECT_EQ(port.texts(), (std::vector<std::string>{"Sorted LT value msut be between 1 and 99"}));
    EXPECT_EQ(rtvin.Text1.text, "0.5");
}

TEST(Rtvin, SortedPercentageThatIsNoNumberIsInvaled) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Text1.text = "1.2.3";
    rtvin.Text1LostFocus(port);
    EXPECT_EQ(port.texts(), (std::vector<std::string>{"invaled value!"}));
    EXPECT_EQ(rtvin.Text1.text, "1.2.3");
}

TEST(Rtvin, RaisingTheSortedPercentageAboveToMovesToRedForTwoSeconds) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Text3.text = "30";
    rtvin.Text1.text = "60.0";
    rtvin.Text1LostFocus(port);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(rtvin.Text3.text, "60.0");
    EXPECT_EQ(rtvin.Text3.fore, kRed);
    EXPECT_TRUE(rtvin.Timer1Enabled);
    EXPECT_EQ(Rtvin::kTimer1Interval, 2000);
    // The captions take the text as typed; the field is then rewritten.
    EXPECT_EQ(rtvin.Frame4, "Sorted LD (60.0)");
    EXPECT_EQ(rtvin.rtvout()->Check1.caption, "LD 60.0");
    EXPECT_EQ(rtvin.rtvout()->Check2.caption, "LD 60.0 value");
    EXPECT_EQ(rtvin.Text1.text, "60");
    rtvin.Timer1Tick();
    EXPECT_EQ(rtvin.Text3.fore, rtvin.Text1.fore);
    EXPECT_FALSE(rtvin.Timer1Enabled);
}

TEST(Rtvin, ToAtOrAboveTheSortedPercentageStaysAsItIs) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Text3.text = "60";
    rtvin.Text1.text = "60";
    rtvin.Text1LostFocus(port);
    EXPECT_EQ(rtvin.Text3.text, "60");
    EXPECT_FALSE(rtvin.Text3.fore);
    EXPECT_FALSE(rtvin.Timer1Enabled);
}

TEST(Rtvin, ToIsRewrittenAsAWholeNumberAndMustLieBetweenOneAndNinetyNine) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Text3.text = "0080";
    rtvin.Text3LostFocus(port);
    EXPECT_EQ(rtvin.Text3.text, "80");
    EXPECT_TRUE(port.messages.empty());

    rtvin.Combo1.text = "LC";
    rtvin.Text3.text = "100";
    rtvin.Text3LostFocus(port);
    EXPECT_EQ(port.texts(),
              (std::vector<std::string>{"LC value of Line limits msut be between 1 and 99"}));
    EXPECT_EQ(rtvin.focus, RtvinFocus::Text3);

    rtvin.focus = RtvinFocus::Unchanged;
    rtvin.Text3.text = "";
    rtvin.Text3LostFocus(port);
    EXPECT_EQ(port.texts().back(), "invaled value!");
    EXPECT_EQ(rtvin.focus, RtvinFocus::Text3);
}

TEST(Rtvin, FromKeepsAFractionAndDoesNotTakeTheFocusBackOnAnInvalidText) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Text4.text = "20.50";
    rtvin.Text4LostFocus(port);
    EXPECT_EQ(rtvin.Text4.text, "20.5");
    EXPECT_TRUE(port.messages.empty());

    rtvin.Text4.text = "0.5";
    rtvin.Text4LostFocus(port);
    EXPECT_EQ(port.texts(),
              (std::vector<std::string>{"LD value of Line limits msut be between 1 and 99"}));
    EXPECT_EQ(rtvin.focus, RtvinFocus::Text4);

    rtvin.focus = RtvinFocus::Unchanged;
    rtvin.Text4.text = "";
    rtvin.Text4LostFocus(port);
    EXPECT_EQ(port.texts().back(), "invaled value!");
    EXPECT_EQ(rtvin.focus, RtvinFocus::Unchanged);
}

TEST(Rtvin, EqualLineLimitsFailTheCheck) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Text4.text = "80";
    rtvin.Text3.text = "80";
    rtvin.CheckLineLimits(port);
    EXPECT_TRUE(rtvin.LimitsInvalid);
    EXPECT_EQ(port.texts(),
              (std::vector<std::string>{"LD value of the 1st point of lines limits (80)\n"
                                        "must be less than  2nd point (80)"}));
}

TEST(Rtvin, LineLimitsAreComparedAsWholeNumbers) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Text4.text = "79.5";  // 80 at a half to the even neighbour
    rtvin.Text3.text = "80";
    rtvin.CheckLineLimits(port);
    EXPECT_TRUE(rtvin.LimitsInvalid);
    EXPECT_EQ(
        port.texts().back(),
        "LD value of the 1st point of lines limits (79.5)\nmust be less than  2nd point (80)");

    Rtvin other;
    other.Text4.text = "79.4";
    other.Text3.text = "80";
    other.CheckLineLimits(port);
    EXPECT_FALSE(other.LimitsInvalid);
    EXPECT_EQ(port.messages.size(), 1u);
}

TEST(Rtvin, FurtherPercentagesTakeHalfAndNinetyNineAndAHalf) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Text2Change("0.5");
    EXPECT_TRUE(rtvin.Command2.enabled);
    rtvin.Command2Click(port);
    EXPECT_EQ(rtvin.Text2.text, "");
    EXPECT_FALSE(rtvin.Command2.enabled);
    rtvin.Text2Change("99.5");
    rtvin.Text2KeyPress(kReturnKey, port);
    EXPECT_EQ(Items(rtvin.List1), (std::vector<std::string>{"90", "0.5", "99.5"}));
    EXPECT_TRUE(port.messages.empty());
}

TEST(Rtvin, FurtherPercentagesOutsideTheScaleAreRefused) {
    for (const char* bad : {"0.05", "99.95"}) {
        Rtvin rtvin;
        ScriptedUserPort port;
        rtvin.Text2Change(bad);
        rtvin.Command2Click(port);
        EXPECT_EQ(port.texts(), (std::vector<std::string>{"This value is out of scale"}));
        EXPECT_EQ(rtvin.focus, RtvinFocus::Text2);
        EXPECT_EQ(rtvin.Text2.text, bad);
        EXPECT_EQ(Items(rtvin.List1), (std::vector<std::string>{"90"}));
    }
}

TEST(Rtvin, AFurtherPercentageGoesInAsTypedAndIsRewrittenOnlyWhenTheFieldIsLeft) {
    Rtvin rtvin;
    ScriptedUserPort port;
    rtvin.Text2Change("95.0");
    rtvin.Command2Click(port);
    rtvin.Text2Change("99.00");
    rtvin.Text2LostFocus();
    EXPECT_EQ(rtvin.Text2.text, "99");
    rtvin.Command2Click(port);
    EXPECT_EQ(Items(rtvin.List1), (std::vector<std::string>{"90", "95.0", "99"}));
}

TEST(Rtvin, DeletingAFurtherPercentageNeedsASelection) {
    Rtvin rtvin;
    rtvin.List1Click(0);
    EXPECT_TRUE(rtvin.Command3.enabled);
    rtvin.Command3Click();
    EXPECT_TRUE(rtvin.List1.items.empty());
    EXPECT_FALSE(rtvin.Command3.enabled);
}

TEST(Rtvin, LimitsCheckBoxRulesSignificanceAndAlpha) {
    Rtvin rtvin;
    rtvin.Check3Click(false);
    EXPECT_FALSE(rtvin.Check1.checked);
    EXPECT_FALSE(rtvin.Check1.enabled);
    EXPECT_FALSE(rtvin.Combo2.enabled);
    rtvin.Check3Click(true);
    EXPECT_TRUE(rtvin.Check1.checked);
    EXPECT_TRUE(rtvin.Check1.enabled);
    EXPECT_TRUE(rtvin.Combo2.enabled);
    rtvin.Check4Click(false);
    EXPECT_FALSE(rtvin.Combo3.enabled);
    rtvin.Check5Click(false);
    EXPECT_FALSE(rtvin.Combo4.enabled);
    rtvin.Check5Click(true);
    EXPECT_TRUE(rtvin.Combo4.enabled);
}

TEST(Rtvin, KeyFiltersOfTheFields) {
    EXPECT_TRUE(Rtvin::KeyAccepted(RtvinFocus::Text1, '7'));
    EXPECT_TRUE(Rtvin::KeyAccepted(RtvinFocus::Text1, ','));
    EXPECT_TRUE(Rtvin::KeyAccepted(RtvinFocus::Text1, '.'));
    EXPECT_TRUE(Rtvin::KeyAccepted(RtvinFocus::Text1, kBackspaceKey));
    EXPECT_FALSE(Rtvin::KeyAccepted(RtvinFocus::Text1, '-'));
    EXPECT_FALSE(Rtvin::KeyAccepted(RtvinFocus::Text1, kReturnKey));
    EXPECT_TRUE(Rtvin::KeyAccepted(RtvinFocus::Text2, kReturnKey));
    EXPECT_FALSE(Rtvin::KeyAccepted(RtvinFocus::Text2, 'e'));
    EXPECT_TRUE(Rtvin::KeyAccepted(RtvinFocus::Text3, '0'));
    EXPECT_FALSE(Rtvin::KeyAccepted(RtvinFocus::Text3, '.'));
    EXPECT_FALSE(Rtvin::KeyAccepted(RtvinFocus::Text4, ','));
    EXPECT_TRUE(Rtvin::KeyAccepted(RtvinFocus::Text4, kBackspaceKey));
}

TEST(Rtvin, BackToInputZeroesTheLastLimitsAndClosingByTheFrameEndsTheProgram) {
    SharedRegisters shared;
    shared.LowerLimit = 1.5;
    shared.UpperLimit = 2.5;
    Rtvin closing;
    EXPECT_FALSE(closing.Unload(shared));
    EXPECT_EQ(shared.UpperLimit, 2.5);

    Rtvin back;
    back.Command11Click();
    EXPECT_TRUE(back.Unload(shared));
    EXPECT_FALSE(back.ReturningToInput);
    EXPECT_EQ(shared.LowerLimit, 0);
    EXPECT_EQ(shared.UpperLimit, 0);
}

}  // namespace
}  // namespace morvane
