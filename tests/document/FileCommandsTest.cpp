// New, Open, Save, Relative and closing: the "save changes" question in its four
// places, the command left waiting for a save, the save dialog with its suggested name
// and the replace question, the messages of failed saves and openings, and the states
// of the document.
#include <sys/resource.h>

#include <csignal>

#include "DocumentTestSupport.h"

namespace morvane::testing {
namespace {

class FileCommandsTest : public DocumentTest {
  protected:
    // A new line with two rows typed: unsaved changes.
    void TypeTwoRows() {
        StartLine(DataType::TotalAndResponded, "mg");
        Type("1", "20", "5");
        Type("2", "20", "10");
        doc.setTextDose("");
    }

    static std::string SaveChangesText(const std::string& title) {
        return "Do you want to save changes to \n" + title + "?";
    }
};

TEST_F(FileCommandsTest, NewDocumentState) {
    StartLine(DataType::RespondedAndNonResponded);
    EXPECT_EQ(doc.file().FilePath(), "");
    EXPECT_EQ(doc.file().FileTitle(), "New file");
    EXPECT_EQ(doc.file().Caption(), "Morvane, New file");
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_FALSE(doc.file().CommandSaveEnabled());
    EXPECT_TRUE(doc.main().CommandInfFormEnabled);
    EXPECT_TRUE(doc.main().CommandChgangeOptionsEnabled);
    EXPECT_TRUE(doc.main().TextNameEnabled);
    Type("1", "2", "8");
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
}

TEST_F(FileCommandsTest, SaveAsksForANameAndGivesTheSavedState) {
    TypeTwoRows();
    doc.setTextName("My line");
    const std::string path = folder.file("line.mrv");
    port.saveAnswers.push_back(path);
    doc.CommandSave();
    ASSERT_EQ(port.saveDialogs.size(), 1u);
    EXPECT_EQ(port.saveDialogs[0].title, "Save Morvane file");
    EXPECT_EQ(port.saveDialogs[0].filter, "Morvane files (*.mrv)|*.mrv");
    EXPECT_EQ(port.saveDialogs[0].fileName, "My line");
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.file().FilePath(), path);
    EXPECT_EQ(doc.file().FileTitle(), "line.mrv");
    EXPECT_EQ(doc.file().Caption(), "Morvane, line.mrv");
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_FALSE(doc.file().CommandSaveEnabled());

    // Changed after saving: the file is written over without a dialog or a question.
    Type("3", "20", "15");
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
    EXPECT_EQ(doc.file().FileTitle(), "line.mrv");
    doc.setTextDose("");
    doc.CommandSave();
    EXPECT_EQ(port.saveDialogs.size(), 1u);
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.file().Modified(), 0);
    LineDocument other(shared, port, folder.path());
    ASSERT_TRUE(other.OpenLineFile(path));
    EXPECT_EQ(other.Grid1().rows(), 5);
}

TEST_F(FileCommandsTest, TheSuggestedNameLosesTheCharactersAFileNameCantHold) {
    EXPECT_EQ(CleanFileName("a**b"), "a*b");
    EXPECT_EQ(CleanFileName("a/b:c"), "abc");
    EXPECT_EQ(CleanFileName("?"), "");
    EXPECT_EQ(CleanFileName("\"|<>*?:\\/"), "|>?\\");
    EXPECT_EQ(CleanFileName("plain name"), "plain name");

    TypeTwoRows();
    doc.setTextName("a**b");
    port.saveAnswers.push_back(std::nullopt);
    doc.CommandSave();
    EXPECT_EQ(port.saveDialogs.back().fileName, "a*b");
    EXPECT_EQ(doc.file().TextFileName(), "a*b");
}

TEST_F(FileCommandsTest, ATreatmentNameOfARefusedCharacterLeavesNoSuggestedName) {
    TypeTwoRows();
    doc.setTextName(":");
    port.saveAnswers.push_back(std::nullopt);
    doc.CommandSave();
    EXPECT_EQ(port.saveDialogs.back().fileName, "");
}

TEST_F(FileCommandsTest, DataLeftInTheInputCellsIsAskedAbout) {
    TypeTwoRows();
    doc.setText2input("4");
    doc.setPendingCommand(MainCommand::Open);
    port.answers.push_back(Answer::Cancel);
    doc.CommandSave();
    ASSERT_EQ(port.messages.size(), 1u);
    EXPECT_EQ(port.messages[0].text,
              "You still have a data in input cells\nData in input cells will not be included in "
              "the file.\nDo you want to continue and ignore these data?");
    EXPECT_EQ(port.messages[0].buttons, Buttons::OkCancel);
    EXPECT_EQ(port.messages[0].defaultAnswer, Answer::Cancel);
    EXPECT_TRUE(port.saveDialogs.empty());
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::None);
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
    EXPECT_EQ(doc.file().Modified(), 1);

    port.answers.push_back(Answer::Ok);
    port.saveAnswers.push_back(folder.file("kept.mrv"));
    doc.CommandSave();
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_EQ(doc.table().Text2input(), "4");
}

TEST_F(FileCommandsTest, TheDoseCellAloneIsNotLookedAt) {
    TypeTwoRows();
    doc.setTextDose("5");
    port.saveAnswers.push_back(folder.file("dose.mrv"));
    doc.CommandSave();
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(doc.file().Modified(), 0);
}

TEST_F(FileCommandsTest, NoToReplaceShowsTheDialogAgainAndCancelDropsThePendingCommand) {
    const std::string existing = folder.file("taken.mrv");
    WriteBytes(existing, "old content");
    TypeTwoRows();
    port.answers.push_back(Answer::Yes);  // save changes before New
    port.saveAnswers.push_back(existing);
    port.answers.push_back(Answer::No);  // don't replace
    port.saveAnswers.push_back(std::nullopt);
    doc.CommandNew();
    ASSERT_EQ(port.messages.size(), 2u);
    const Message& replace = port.messages[1];
    EXPECT_EQ(replace.text,
              "File with the same name \"taken.mrv\" already exist.\nDo you want to replace the "
              "existing file?");
    EXPECT_EQ(replace.buttons, Buttons::YesNo);
    EXPECT_EQ(replace.icon, Icon::Critical);
    EXPECT_EQ(replace.defaultAnswer, Answer::No);
    ASSERT_EQ(port.saveDialogs.size(), 2u);
    EXPECT_EQ(port.saveDialogs[1].title, "Save Morvane file");
    EXPECT_EQ(port.saveDialogs[1].filter, "Morvane files (*.mrv)|*.mrv");
    EXPECT_EQ(ReadBytes(existing), "old content");
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::None);
    EXPECT_EQ(doc.file().FilePath(), "");
    EXPECT_EQ(doc.file().FileTitle(), "New file");
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_FALSE(doc.fileOptions().Visible);  // New did not go on
    EXPECT_EQ(observer.shown, 1);             // only the first New of TypeTwoRows
}

TEST_F(FileCommandsTest, YesToReplaceWritesOverTheFile) {
    const std::string existing = folder.file("taken.mrv");
    WriteBytes(existing, "old content");
    TypeTwoRows();
    port.saveAnswers.push_back(existing);
    port.answers.push_back(Answer::Yes);
    doc.CommandSave();
    EXPECT_EQ(ReadBytes(existing).substr(0, 2), "2,");
    EXPECT_EQ(doc.file().Modified(), 0);
}

TEST_F(FileCommandsTest, ANameOutsideTheLineFilePatternIsNotAskedAbout) {
    const std::string existing = folder.file("taken.txt");
    WriteBytes(existing, "old content");
    TypeTwoRows();
    port.saveAnswers.push_back(existing);
    doc.CommandSave();
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(ReadBytes(existing).substr(0, 2), "2,");
}

// Limits the size of the files this process may write while it lives, so that a write
// fails even for a user whom no permission stops.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &saved_);
        oldHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = saved_;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &saved_);
        std::signal(SIGXFSZ, oldHandler_);
    }

  private:
    rlimit saved_{};
    void (*oldHandler_)(int) = nullptr;
};

TEST_F(FileCommandsTest, AFailedSaveLeavesTheOldFileAndTheState) {
    const std::string path = folder.file("kept.mrv");
    TypeTwoRows();
    port.saveAnswers.push_back(path);
    doc.CommandSave();
    const std::string saved = ReadBytes(path);
    Type("3", "20", "15");
    doc.setTextDose("");
    doc.setPendingCommand(MainCommand::Open);
    {
        FileSizeLimit limit(16);
        doc.CommandSave();
    }
    EXPECT_EQ(LastMessage(), "An error occurred while saving this file.\nFile too large");
    EXPECT_EQ(ReadBytes(path), saved);
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::None);
    EXPECT_EQ(doc.file().FilePath(), path);
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        (void)entry;
        ++files;
    }
    EXPECT_EQ(files, 1);  // no temporary file is left behind
}

TEST_F(FileCommandsTest, AFailedSaveKeepsAPendingRelative) {
    TypeTwoRows();
    doc.setPendingCommand(MainCommand::Relative);
    port.saveAnswers.push_back(folder.file("no-such-folder/line.mrv"));
    doc.CommandSave();
    EXPECT_EQ(LastMessage(),
              "An error occurred while saving this file.\nNo such file or directory");
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::Relative);
    EXPECT_EQ(doc.file().Modified(), 1);
}

TEST_F(FileCommandsTest, ACancelledSaveDropsNewAndOpenButKeepsRelative) {
    TypeTwoRows();
    doc.setPendingCommand(MainCommand::New);
    port.saveAnswers.push_back(std::nullopt);
    doc.CommandSave();
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::None);
    EXPECT_TRUE(port.messages.empty());
    doc.setPendingCommand(MainCommand::Relative);
    port.saveAnswers.push_back(std::nullopt);
    doc.CommandSave();
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::Relative);
}

TEST_F(FileCommandsTest, TheSaveChangesQuestion) {
    TypeTwoRows();
    port.answers.push_back(Answer::Cancel);
    doc.CommandOpen();
    ASSERT_EQ(port.messages.size(), 1u);
    const Message& q = port.messages[0];
    EXPECT_EQ(q.text, "Do you want to save changes to \nNew file?");
    EXPECT_EQ(q.title, "save changes");
    EXPECT_EQ(q.buttons, Buttons::YesNoCancel);
    EXPECT_EQ(q.icon, Icon::Question);
    EXPECT_TRUE(port.openDialogs.empty());
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
    EXPECT_EQ(doc.Grid1().rows(), 4);
}

TEST_F(FileCommandsTest, NoQuestionWithoutUnsavedChanges) {
    StartLine(DataType::RespondedAndNonResponded);
    port.openAnswers.push_back(std::nullopt);
    doc.CommandOpen();
    EXPECT_TRUE(port.messages.empty());
    ASSERT_EQ(port.openDialogs.size(), 1u);
    EXPECT_EQ(port.openDialogs[0].title, "Open Morvane file");
    EXPECT_EQ(port.openDialogs[0].filter, "Morvane files (*.mrv)|*.mrv");
    EXPECT_EQ(port.openDialogs[0].fileName, "");
    // Cancelled: the document stays as it was.
    EXPECT_EQ(doc.file().Caption(), "Morvane, New file");
    EXPECT_EQ(doc.Grid1().cols(), 7);
}

TEST_F(FileCommandsTest, NoToTheQuestionGoesOnWithoutSaving) {
    TypeTwoRows();
    port.answers.push_back(Answer::No);
    port.openAnswers.push_back(FixturePath("worked-type1.mrv"));
    doc.CommandOpen();
    EXPECT_TRUE(port.saveDialogs.empty());
    EXPECT_EQ(doc.file().FileTitle(), "worked-type1.mrv");
}

TEST_F(FileCommandsTest, YesRunsTheCommandOnlyAfterASuccessfulSave) {
    TypeTwoRows();
    port.answers.push_back(Answer::Yes);
    port.saveAnswers.push_back(std::nullopt);
    doc.CommandOpen();
    EXPECT_TRUE(port.openDialogs.empty());
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::None);
    EXPECT_EQ(doc.file().Modified(), 1);

    const std::string path = folder.file("first.mrv");
    port.answers.push_back(Answer::Yes);
    port.saveAnswers.push_back(path);
    port.openAnswers.push_back(FixturePath("worked-type1.mrv"));
    doc.CommandOpen();
    EXPECT_EQ(port.openDialogs.size(), 1u);
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::None);
    EXPECT_EQ(doc.file().FileTitle(), "worked-type1.mrv");
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_EQ(ReadBytes(path).substr(0, 2), "2,");
}

TEST_F(FileCommandsTest, YesOnNewSavesThenShowsTheOptions) {
    TypeTwoRows();
    port.answers.push_back(Answer::Yes);
    port.saveAnswers.push_back(folder.file("before-new.mrv"));
    doc.CommandNew();
    EXPECT_TRUE(doc.fileOptions().Visible);
    EXPECT_EQ(observer.shown, 2);
    EXPECT_FALSE(doc.main().Enabled);
}

TEST_F(FileCommandsTest, CancelOnNewDropsAWaitingImport) {
    TypeTwoRows();
    doc.setImportAfterNew(1);
    port.answers.push_back(Answer::Cancel);
    doc.CommandNew();
    EXPECT_EQ(doc.main().ImportAfterNew, 0);
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
    EXPECT_FALSE(doc.fileOptions().Visible);
}

TEST_F(FileCommandsTest, RelativeAsksAndThenLeavesForTheComparison) {
    TypeTwoRows();
    port.answers.push_back(Answer::No);
    doc.CommandRelative();
    EXPECT_EQ(observer.relative, 1);
    port.answers.push_back(Answer::Cancel);
    doc.CommandRelative();
    EXPECT_EQ(observer.relative, 1);
    port.answers.push_back(Answer::Yes);
    port.saveAnswers.push_back(folder.file("rel.mrv"));
    doc.CommandRelative();
    EXPECT_EQ(observer.relative, 2);
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::None);
}

TEST_F(FileCommandsTest, ClosingAsksAndSavesBeforeTheEnd) {
    StartLine(DataType::RespondedAndNonResponded);
    EXPECT_TRUE(doc.QueryClose());  // nothing unsaved: no question
    EXPECT_TRUE(port.messages.empty());
    doc.setText1input("5");  // data in the input cells alone ask nothing
    EXPECT_TRUE(doc.QueryClose());
    doc.setText1input("");

    TypeTwoRows();
    port.answers.push_back(Answer::Cancel);
    EXPECT_FALSE(doc.QueryClose());
    port.answers.push_back(Answer::No);
    EXPECT_TRUE(doc.QueryClose());
    EXPECT_EQ(observer.ends, 0);

    port.answers.push_back(Answer::Yes);
    port.saveAnswers.push_back(std::nullopt);
    EXPECT_FALSE(doc.QueryClose());  // the save was cancelled: nothing closes
    EXPECT_EQ(doc.main().ClosingAfterSave, 0);
    EXPECT_EQ(observer.ends, 0);

    port.answers.push_back(Answer::Yes);
    port.saveAnswers.push_back(folder.file("closing.mrv"));
    EXPECT_FALSE(doc.QueryClose());
    EXPECT_EQ(observer.ends, 1);
    EXPECT_EQ(doc.file().Modified(), 0);
}

TEST_F(FileCommandsTest, CodeSeventeenClosesThroughTheQuestion) {
    TypeTwoRows();
    port.answers.push_back(Answer::Cancel);
    doc.TextMsg("17");
    EXPECT_EQ(observer.ends, 0);
    port.answers.push_back(Answer::No);
    doc.TextMsg("17");
    EXPECT_EQ(observer.ends, 1);
}

TEST_F(FileCommandsTest, AnOlderDocumentLeadsTheQuestionWithItsWarning) {
    ASSERT_TRUE(doc.OpenLineFile(FixturePath("older-type1.mrv")));
    doc.setTextName("Changed");
    port.messages.clear();
    port.answers.push_back(Answer::Cancel);
    doc.CommandNew();
    ASSERT_EQ(port.messages.size(), 1u);
    EXPECT_EQ(port.messages[0].text,
              OlderVersionLines("older-type1.mrv") + "\n" + SaveChangesText("older-type1.mrv"));
}

TEST_F(FileCommandsTest, AnOlderFileOpenedByAPendingOpenLosesItsMarkAtOnce) {
    TypeTwoRows();
    port.answers.push_back(Answer::Yes);
    port.saveAnswers.push_back(folder.file("saved-first.mrv"));
    port.openAnswers.push_back(FixturePath("older-type1.mrv"));
    doc.CommandOpen();
    EXPECT_EQ(doc.file().FileTitle(), "older-type1.mrv");
    EXPECT_EQ(doc.file().OlderVersionFile(), 0);
}

TEST_F(FileCommandsTest, ChangedAfterOpeningState) {
    port.openAnswers.push_back(FixturePath("worked-type1.mrv"));
    doc.CommandOpen();
    EXPECT_EQ(doc.file().FilePath(), FixturePath("worked-type1.mrv"));
    EXPECT_EQ(doc.file().FileTitle(), "worked-type1.mrv");
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_FALSE(doc.file().CommandSaveEnabled());
    doc.setTextDose("20");
    doc.setText1input("20");
    doc.setText2input("18");
    doc.CommandAccept();
    EXPECT_EQ(doc.file().FilePath(), FixturePath("worked-type1.mrv"));
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
}

TEST_F(FileCommandsTest, AMissingFileGivesTheOpeningMessageAndAnEmptyDocument) {
    TypeTwoRows();
    port.answers.push_back(Answer::No);
    port.openAnswers.push_back(folder.file("gone.mrv"));
    doc.CommandOpen();
    EXPECT_EQ(LastMessage(),
              "An error occurred while opening this file.\nNo such file or directory");
    EXPECT_EQ(doc.file().Caption(), "Morvane");
    EXPECT_EQ(doc.file().FileTitle(), "");
    EXPECT_EQ(doc.Grid1().rows(), 2);
    EXPECT_EQ(doc.Grid1().cols(), 3);
    EXPECT_EQ(doc.Grid2().rows(), 2);
    EXPECT_EQ(doc.Grid2().cols(), 4);
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_FALSE(doc.file().CommandSaveEnabled());
    EXPECT_FALSE(doc.main().CommandInfFormEnabled);
    EXPECT_FALSE(doc.main().CommandChgangeOptionsEnabled);
    EXPECT_FALSE(doc.CalculateEnabled());
}

TEST_F(FileCommandsTest, AFolderIsNoLineFile) {
    EXPECT_FALSE(doc.OpenLineFile(folder.path()));
    EXPECT_EQ(LastMessage(), "An error occurred while opening this file.\nIs a directory");
}

TEST_F(FileCommandsTest, TextMsgRunsItsCodesAndIgnoresOtherTexts) {
    TypeTwoRows();
    const TextTable grid1 = doc.Grid1();
    const std::string caption = doc.file().Caption();
    doc.TextMsg("");
    doc.TextMsg("10");
    doc.TextMsg(" 1");
    doc.TextMsg("x");
    EXPECT_TRUE(SameCells(doc.Grid1(), grid1));
    EXPECT_EQ(doc.file().Caption(), caption);
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(port.messages.empty());

    shared.WorkValue = 1234.5678;
    doc.TextMsg("7");  // FormatTwoLevels
    EXPECT_EQ(shared.WorkText, "1234.568");
    shared.WorkValue = 0.5;
    doc.TextMsg("9");  // FormatFourLevels
    EXPECT_EQ(shared.WorkText, "0.50");
    doc.TextMsg("3");
    doc.TextMsg("6");
    EXPECT_EQ(observer.spreadsheets, 1);
    EXPECT_EQ(observer.calculations, 1);
    doc.TextMsg("4");
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::New);
    EXPECT_EQ(observer.imports, 1);
    doc.TextMsg("2");
    EXPECT_EQ(doc.file().FileTitle(), "New file");
    doc.TextMsg("1");
    EXPECT_EQ(doc.file().Caption(), "Morvane");
    EXPECT_EQ(doc.Grid1().cols(), 3);
}

TEST_F(FileCommandsTest, CodeEightAcceptsTheInputCellsAndCodeFiveRebuilds) {
    StartLine(DataType::ResponsePercentage);
    doc.setTextDose("4");
    doc.setText1input("25");
    doc.TextMsg("8");
    EXPECT_EQ(doc.Grid1().rows(), 3);
    EXPECT_EQ(doc.Grid2().rows(), 2);
    doc.TextMsg("5");
    EXPECT_EQ(Row(doc.Grid2(), 2), "4|100|25.000|25.000");
}

}  // namespace
}  // namespace morvane::testing
