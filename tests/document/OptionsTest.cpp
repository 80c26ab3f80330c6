// The options of a line: the rules of the "New Line" dialog, its OK with the visible
// and hidden branches and the "Miss units" question, Cancel, the defaults file, and
// "Change options".
#include "DocumentTestSupport.h"
#include "document/DefaultsFile.h"

namespace morvane::testing {
namespace {

class OptionsTest : public DocumentTest {
  protected:
    FileOptions& dialog() { return doc.fileOptionsControls(); }
    std::string DefaultsPath() const { return DefaultsFilePath(folder.path()); }
};

TEST_F(OptionsTest, TheDialogStartsWithTheFirstDataTypeAndAlphaFiveHundredths) {
    FileOptions fresh;
    EXPECT_EQ(fresh.controls.ComboDataType, 0);
    EXPECT_EQ(fresh.controls.Combo7, "0.05");
    EXPECT_EQ(fresh.TAlpha(), 1);
    EXPECT_FALSE(fresh.Visible);
}

TEST_F(OptionsTest, AWordBeginningWithMinSelectsTimeButACapitalMDoesNot) {
    dialog().setComboUnit1("minutes", shared);
    EXPECT_EQ(dialog().controls.FactorOption, 3);
    EXPECT_EQ(shared.DoseWord, "Time");
    dialog().setComboUnit1("Minutes", shared);
    EXPECT_EQ(dialog().controls.FactorOption, 1);
    dialog().setComboUnit1("sec", shared);
    EXPECT_EQ(dialog().controls.FactorOption, 3);
    dialog().setComboUnit1("mi", shared);
    EXPECT_EQ(dialog().controls.FactorOption, 1);
}

TEST_F(OptionsTest, AMassIsADoseAndAMassPerVolumeAConcentration) {
    dialog().setComboUnit1("ug", shared);
    EXPECT_EQ(dialog().controls.FactorOption, 1);
    EXPECT_EQ(dialog().LabelUnits, "ug");
    dialog().setComboUnit2("ml", shared);
    EXPECT_EQ(dialog().controls.FactorOption, 2);
    EXPECT_EQ(dialog().LabelUnits, "ug / ml");
    // Typed back with the second unit still there, the first unit keeps "Con.".
    dialog().setComboUnit1("mg", shared);
    EXPECT_EQ(dialog().controls.FactorOption, 2);
    EXPECT_EQ(dialog().LabelUnits, "mg / ml");
}

TEST_F(OptionsTest, RatiosAndTimesEmptyTheSecondUnit) {
    dialog().setComboUnit1("ug", shared);
    dialog().setComboUnit2("ml", shared);
    dialog().setComboUnit1("ppm", shared);
    EXPECT_EQ(dialog().controls.ComboUnit2, "");
    EXPECT_EQ(dialog().controls.FactorOption, 2);
    EXPECT_EQ(dialog().LabelUnits, "ppm");
    dialog().setComboUnit2("L", shared);
    dialog().setComboUnit1("week", shared);
    EXPECT_EQ(dialog().controls.ComboUnit2, "");
    EXPECT_EQ(dialog().controls.FactorOption, 3);
    EXPECT_EQ(dialog().LabelUnits, "week");
}

TEST_F(OptionsTest, NoFirstUnitMeansDoseAndNoLabel) {
    dialog().setComboUnit1("", shared);
    dialog().setComboUnit2("ml", shared);
    EXPECT_EQ(dialog().LabelUnits, "");
    EXPECT_EQ(dialog().controls.FactorOption, 1);
}

TEST_F(OptionsTest, ConAndTimePutTheirCaptionInDoseWordAndAreHighlighted) {
    shared.DoseWord = "before";
    dialog().selectOption(FactorOption::Dose, shared);
    EXPECT_EQ(shared.DoseWord, "before");
    EXPECT_EQ(dialog().HighlightedOption, FactorOption::Dose);
    dialog().selectOption(FactorOption::Con, shared);
    EXPECT_EQ(shared.DoseWord, "Con.");
    dialog().selectOption(FactorOption::Time, shared);
    EXPECT_EQ(shared.DoseWord, "Time");
    EXPECT_EQ(dialog().HighlightedOption, FactorOption::Time);
    dialog().endHighlight();
    EXPECT_EQ(dialog().HighlightedOption, FactorOption::None);
}

TEST_F(OptionsTest, WeightingIsEnabledForCountsOnly) {
    dialog().setDataType(DataType::ResponsePercentage);
    EXPECT_FALSE(dialog().Check2Enabled());
    dialog().setDataType(DataType::TotalAndResponded);
    EXPECT_TRUE(dialog().Check2Enabled());
}

TEST_F(OptionsTest, LeavingTheCustomBoxesEmptyTakesTheirFirstEntry) {
    dialog().controls.Combo5 = "";
    dialog().controls.Combo6 = "";
    dialog().leaveCombo5();
    dialog().leaveCombo6();
    EXPECT_EQ(dialog().controls.Combo5, "Dose");
    EXPECT_EQ(dialog().controls.Combo6, "LD");
    dialog().controls.Combo5 = "Temp.";
    dialog().leaveCombo5();
    EXPECT_EQ(dialog().controls.Combo5, "Temp.");
}

TEST_F(OptionsTest, TimeOnTheFirstTabShowsTheControlBoxAndDoseAndConHideIt) {
    StartLine(DataType::RespondedAndNonResponded, "hour");
    EXPECT_TRUE(doc.table().layout().CheckCoVisible);
    EXPECT_EQ(shared.DoseWord, "Time");
    EXPECT_EQ(shared.EstimateWord, "LT");
    EXPECT_EQ(doc.Grid2().cols(), 5);
    StartLine(DataType::RespondedAndNonResponded, "mg");
    EXPECT_FALSE(doc.table().layout().CheckCoVisible);
    EXPECT_EQ(shared.EstimateWord, "LD");
    StartLine(DataType::RespondedAndNonResponded, "ppm");
    EXPECT_FALSE(doc.table().layout().CheckCoVisible);
    EXPECT_EQ(shared.EstimateWord, "LC");
    EXPECT_EQ(doc.Grid2().cols(), 4);
}

TEST_F(OptionsTest, OnTheSecondTabOnlyTheControlFlagDecides) {
    StartCustomLine(DataType::RespondedAndNonResponded, false, "Time", "LT", "hour");
    EXPECT_FALSE(doc.table().layout().CheckCoVisible);
    StartCustomLine(DataType::RespondedAndNonResponded, true, "Dose", "LD", "mg");
    EXPECT_TRUE(doc.table().layout().CheckCoVisible);
    EXPECT_EQ(doc.fileOptions().controls.FactorOption, 1);
    EXPECT_EQ(doc.fileOptions().controls.ComboUnit1, "");
}

TEST_F(OptionsTest, TheAbbreviationOfTheFirstTabIsAlwaysLdLcOrLt) {
    doc.CommandNew();
    dialog().controls.Combo6 = "RD";
    dialog().controls.Combo5 = "Temp.";
    dialog().controls.Text5 = "C";
    dialog().controls.Check3 = 1;
    dialog().setComboUnit1("ppt", shared);
    doc.FileOptionsOK();
    EXPECT_EQ(shared.EstimateWord, "LC");
    EXPECT_EQ(shared.DoseWord, "Con.");
    EXPECT_EQ(shared.UnitWord, "ppt");
    EXPECT_EQ(doc.fileOptions().controls.Combo5, "Dose");
    EXPECT_EQ(doc.fileOptions().controls.Combo6, "LD");
    EXPECT_EQ(doc.fileOptions().controls.Text5, "");
    EXPECT_EQ(doc.fileOptions().controls.Check3, 0);

    StartCustomLine(DataType::RespondedAndNonResponded, false, "Con.", "RC", "ppm");
    EXPECT_EQ(shared.EstimateWord, "RC");
    EXPECT_EQ(shared.DoseWord, "Con.");
    EXPECT_EQ(shared.UnitWord, "ppm");
}

TEST_F(OptionsTest, TheDataTypeSetsUpTheInputCellsAndTheTable) {
    StartLine(DataType::RespondedAndNonResponded);
    EXPECT_TRUE(doc.table().layout().Text2inputVisible);
    EXPECT_EQ(doc.table().layout().Text1inputTip, "Responded");
    EXPECT_EQ(doc.table().layout().Text2inputTip, "Non responded");
    EXPECT_EQ(doc.table().layout().TotalColumn, 4);
    EXPECT_EQ(doc.table().layout().PercentColumn, 5);
    EXPECT_EQ(doc.table().layout().CommandAcceptLeft, 3350);
    EXPECT_EQ(doc.table().layout().CommandDelLeft, 5325);
    StartLine(DataType::TotalAndResponded);
    EXPECT_EQ(doc.table().layout().Text1inputTip, "Total number");
    EXPECT_EQ(doc.table().layout().Text2inputTip, "Responded");
    EXPECT_EQ(Row(doc.Grid1(), 0), "|Dose\n(mg)|Total|Responded|Response\n%|");
    EXPECT_EQ(doc.table().layout().TotalColumn, 2);
    EXPECT_EQ(doc.table().layout().PercentColumn, 4);
    StartLine(DataType::ResponsePercentage);
    EXPECT_FALSE(doc.table().layout().Text2inputVisible);
    EXPECT_EQ(doc.table().layout().Text1inputTip, "Response %");
    EXPECT_EQ(Row(doc.Grid1(), 0), "|Dose\n(mg)|Response\n%|");
    EXPECT_EQ(doc.table().layout().TotalColumn, 2);  // left as it was
    EXPECT_EQ(doc.table().layout().PercentColumn, 2);
    EXPECT_EQ(doc.table().layout().CommandAcceptLeft, 2350);
    EXPECT_EQ(doc.table().layout().CommandEditLeft, 3350);
    EXPECT_EQ(doc.table().layout().CommandDelLeft, 4325);
    EXPECT_EQ(doc.Grid1().currentRow(), 1);
    EXPECT_EQ(doc.Grid1().currentCol(), dosecol::FirstValue);
    EXPECT_EQ(doc.main().focus, Focus::TextDose);
    EXPECT_TRUE(doc.main().Enabled);
}

TEST_F(OptionsTest, MissUnitsAsksAndNoStaysInTheDialogWithTheDocumentReset) {
    StartLine(DataType::RespondedAndNonResponded);
    Type("1", "2", "8");
    port.answers.push_back(Answer::No);  // don't save
    doc.CommandNew();
    dialog().setComboUnit1("", shared);
    port.answers.push_back(Answer::No);
    doc.FileOptionsOK();
    const Message& q = port.messages.back();
    EXPECT_EQ(q.text, "You didn't set the Dose unit\ndo you want to continue?");
    EXPECT_EQ(q.title, "Miss units");
    EXPECT_EQ(q.buttons, Buttons::YesNo);
    EXPECT_TRUE(doc.fileOptions().Visible);
    EXPECT_EQ(doc.main().focus, Focus::ComboUnit1);
    // The document was reset before the question.
    EXPECT_EQ(doc.file().Caption(), "Morvane");
    EXPECT_EQ(doc.Grid1().rows(), 2);
    EXPECT_EQ(doc.Grid1().cols(), 3);

    port.answers.push_back(Answer::Yes);
    doc.FileOptionsOK();
    EXPECT_FALSE(doc.fileOptions().Visible);
    EXPECT_EQ(Row(doc.Grid1(), 0), "|Dose\n()|Responded|Non responded|Total|Response\n%|");
    EXPECT_EQ(shared.UnitWord, "");
}

TEST_F(OptionsTest, MissUnitsOnTheSecondTabPutsTheFocusInTheUnitBox) {
    doc.CommandNew();
    dialog().controls.Tab1 = 1;
    dialog().controls.Combo5 = "Temp.";
    dialog().controls.Text5 = "";
    port.answers.push_back(Answer::No);
    doc.FileOptionsOK();
    EXPECT_EQ(port.messages.back().text, "You didn't set the Temp. unit\ndo you want to continue?");
    EXPECT_EQ(doc.main().focus, Focus::Text5);
}

TEST_F(OptionsTest, OpeningAFileWithoutUnitsAsksNothing) {
    std::string bytes = ReadBytes(FixturePath("worked-type1.mrv"));
    bytes.replace(bytes.find("\"ug\",\"ml\""), 9, "\"\",\"\"");
    const std::string path = folder.file("no-units.mrv");
    WriteBytes(path, bytes);
    ASSERT_TRUE(doc.OpenLineFile(path));
    EXPECT_TRUE(port.messages.empty());
    EXPECT_EQ(shared.UnitWord, "");
    EXPECT_EQ(doc.Grid2().text(0, responsecol::Dose), "Con.\n()");
}

TEST_F(OptionsTest, CancelOfNewKeepsTheDocumentItsOptionsAndItsWords) {
    ASSERT_TRUE(doc.OpenLineFile(FixturePath("worked-type1.mrv")));
    // Defaults of another kind wait in the defaults file.
    FileOptions defaults;
    defaults.controls.ComboDataType = 2;
    defaults.controls.FactorOption = 3;
    defaults.controls.ComboUnit1 = "day";
    FieldWriter record;
    WriteOptionsRecord(record, defaults.controls);
    WriteBytes(DefaultsPath(), record.bytes());

    const TextTable grid1 = doc.Grid1();
    const LineOptions options = doc.fileOptions().controls;
    doc.setImportAfterNew(1);
    doc.CommandNew();
    EXPECT_EQ(doc.fileOptions().controls.ComboDataType, 2);  // the defaults are in the dialog
    EXPECT_EQ(shared.DoseWord, "Time");
    doc.FileOptionsCancel();
    EXPECT_FALSE(doc.fileOptions().Visible);
    EXPECT_TRUE(doc.main().Enabled);
    EXPECT_EQ(doc.main().ImportAfterNew, 0);
    EXPECT_TRUE(SameCells(doc.Grid1(), grid1));
    EXPECT_EQ(doc.fileOptions().controls, options);
    EXPECT_EQ(shared.DoseWord, "Con.");
    EXPECT_EQ(shared.UnitWord, "ug / ml");
    EXPECT_EQ(doc.file().FileTitle(), "worked-type1.mrv");
    EXPECT_EQ(observer.hidden, 1);
}

TEST_F(OptionsTest, OkWithAnImportWaitingSendsItOn) {
    doc.setImportAfterNew(1);
    StartLine(DataType::RespondedAndNonResponded);
    EXPECT_EQ(doc.main().ImportAfterNew, 0);
    EXPECT_EQ(doc.main().PendingCommand, MainCommand::New);
    EXPECT_EQ(observer.imports, 1);
}

TEST_F(OptionsTest, TheDialogsChannel) {
    doc.CommandNew();
    doc.FileOptionsText1("2");
    EXPECT_FALSE(doc.fileOptions().Visible);
    doc.fileOptionsControls().Visible = true;
    doc.fileOptionsControls().setComboUnit1("mg", shared);
    doc.FileOptionsText1("1");
    EXPECT_FALSE(doc.fileOptions().Visible);
    EXPECT_EQ(doc.file().Caption(), "Morvane, New file");
    doc.FileOptionsText1("4");  // no code: nothing
    EXPECT_EQ(doc.file().Caption(), "Morvane, New file");
}

TEST_F(OptionsTest, DefaultsAreSavedFromTheVisibleDialogWhenAsked) {
    doc.CommandNew();
    dialog().setDataType(DataType::TotalAndResponded);
    dialog().setComboUnit1("ug", shared);
    dialog().setComboUnit2("L", shared);
    dialog().controls.Combo7 = "0.01";
    dialog().controls.Check2 = 1;
    dialog().controls.Check4 = 1;
    doc.FileOptionsOK();
    EXPECT_EQ(ReadBytes(DefaultsPath()),
              "1,0,\"ug\",\"L\",2,\"Dose\",\"LD\",\"\",0,\"0.01\",1,1\r\n");

    // The next New loads them into the dialog.
    LineDocument other(shared, port, folder.path());
    other.CommandNew();
    EXPECT_EQ(other.fileOptions().controls.ComboDataType, 1);
    EXPECT_EQ(other.fileOptions().controls.ComboUnit2, "L");
    EXPECT_EQ(other.fileOptions().controls.FactorOption, 2);
    EXPECT_EQ(other.fileOptions().LabelUnits, "ug / L");
    EXPECT_EQ(other.fileOptions().controls.Combo7, "0.01");
    EXPECT_EQ(other.fileOptions().controls.Check4, 1);
}

TEST_F(OptionsTest, DefaultsAreNeverSavedWhileAFileIsOpened) {
    const std::string path = folder.file("check4.mrv");
    std::string bytes = ReadBytes(FixturePath("worked-type1.mrv"));
    bytes.replace(bytes.find("0,0\r\n4,6"), 3, "0,1");
    WriteBytes(path, bytes);
    ASSERT_TRUE(doc.OpenLineFile(path));
    EXPECT_EQ(doc.fileOptions().controls.Check4, 1);
    EXPECT_FALSE(std::filesystem::exists(DefaultsPath()));
}

TEST_F(OptionsTest, SaveAndLoadDefaultsButtons) {
    dialog().setDataType(DataType::ResponsePercentage);
    dialog().setComboUnit1("%", shared);
    doc.SaveOptionDefaults();
    EXPECT_EQ(ReadBytes(DefaultsPath()),
              "2,0,\"%\",\"\",2,\"Dose\",\"LD\",\"\",0,\"0.05\",0,0\r\n");
    dialog().setDataType(DataType::RespondedAndNonResponded);
    dialog().setComboUnit1("mg", shared);
    doc.LoadOptionDefaults();
    EXPECT_EQ(dialog().controls.ComboDataType, 2);
    EXPECT_EQ(dialog().controls.ComboUnit1, "%");
    EXPECT_EQ(dialog().controls.FactorOption, 2);
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(OptionsTest, NoDefaultsFileLeavesTheControlsSilently) {
    dialog().setComboUnit1("mg", shared);
    const LineOptions before = dialog().controls;
    doc.LoadOptionDefaults();
    EXPECT_EQ(dialog().controls, before);
    EXPECT_TRUE(port.messages.empty());
}

TEST_F(OptionsTest, ADamagedDefaultsFileTellsAndKeepsWhatWasRead) {
    WriteBytes(DefaultsPath(), "2,1,\"ppm\",\"\",2,\"Temp.\",\"XX\",\"");
    doc.LoadOptionDefaults();
    EXPECT_EQ(LastMessage(),
              "An error occurred when loading default\nplease check your option and reset your "
              "default");
    EXPECT_EQ(dialog().controls.ComboDataType, 2);
    EXPECT_EQ(dialog().controls.Tab1, 1);
    EXPECT_EQ(dialog().controls.ComboUnit1, "ppm");
    EXPECT_EQ(dialog().controls.Combo5, "Temp.");
    EXPECT_EQ(dialog().controls.Combo6, "XX");
    EXPECT_EQ(dialog().controls.Combo7, "0.05");
}

TEST_F(OptionsTest, ADefaultsFileOfNonsenseTellsToo) {
    WriteBytes(DefaultsPath(), "\x01\xff garbage,\n");
    doc.LoadOptionDefaults();
    EXPECT_EQ(port.messages.size(), 1u);
    WriteBytes(DefaultsPath(), "5,0,\"\",\"\",1,\"\",\"\",\"\",0,\"0.05\",0,0\r\n");
    doc.LoadOptionDefaults();
    EXPECT_EQ(port.messages.size(), 2u);
    EXPECT_EQ(dialog().controls.ComboDataType, 0);  // no data type 5
}

TEST_F(OptionsTest, DefaultsLiveInTheProgramFolderOrElseInTheUserConfiguration) {
    EXPECT_EQ(DefaultsFilePath(folder.path()), folder.path() + "/ldDef");
    EXPECT_EQ(DefaultsFilePath(folder.path() + "/"), folder.path() + "/ldDef");
    TempFolder config;
    const char* saved = std::getenv("XDG_CONFIG_HOME");
    const std::string savedText = saved ? saved : "";
    ::setenv("XDG_CONFIG_HOME", config.path().c_str(), 1);
    EXPECT_EQ(UserConfigFolder(), config.path() + "/morvane");
    const std::string installed = folder.file("not-there");
    EXPECT_EQ(DefaultsFilePath(installed), config.path() + "/morvane/ldDef");

    // Saved and loaded in the same place.
    LineDocument installedDoc(shared, port, installed);
    installedDoc.fileOptionsControls().setDataType(DataType::TotalAndResponded);
    installedDoc.SaveOptionDefaults();
    EXPECT_TRUE(std::filesystem::exists(config.path() + "/morvane/ldDef"));
    LineDocument again(shared, port, installed);
    again.LoadOptionDefaults();
    EXPECT_EQ(again.fileOptions().controls.ComboDataType, 1);
    EXPECT_TRUE(port.messages.empty());

    ::unsetenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    if (home) {
        EXPECT_EQ(UserConfigFolder(), std::string(home) + "/.config/morvane");
    }
    if (saved)
        ::setenv("XDG_CONFIG_HOME", savedText.c_str(), 1);
}

TEST_F(OptionsTest, AFailedSaveOfTheDefaultsIsTold) {
    TempFolder config;
    const char* saved = std::getenv("XDG_CONFIG_HOME");
    const std::string savedText = saved ? saved : "";
    const std::string blocked = config.file("file-not-folder");
    WriteBytes(blocked, "x");
    ::setenv("XDG_CONFIG_HOME", blocked.c_str(), 1);
    LineDocument installedDoc(shared, port, folder.file("not-there"));
    installedDoc.SaveOptionDefaults();
    EXPECT_EQ(LastMessage(), "An error occurred when saving default\nNot a directory");
    if (saved)
        ::setenv("XDG_CONFIG_HOME", savedText.c_str(), 1);
    else
        ::unsetenv("XDG_CONFIG_HOME");
}

TEST_F(OptionsTest, ChangeOptionsRewritesTheWordsAndMarksTheFile) {
    StartLine(DataType::RespondedAndNonResponded, "hour");
    Type("2", "3", "7");
    doc.setTextDose("");
    const ChangeOptionsValues opened = doc.OpenChangeOptions();
    EXPECT_FALSE(doc.main().Enabled);
    EXPECT_EQ(opened.Combo5, "Time");
    EXPECT_EQ(opened.Text5, "hour");
    EXPECT_EQ(opened.Combo6, "LT");
    EXPECT_EQ(opened.Combo7, "0.05");
    doc.ChangeOptionsOK(ChangeOptionsValues{"Exposure", "h", "LE", "0.01"});
    EXPECT_TRUE(doc.main().Enabled);
    EXPECT_EQ(shared.DoseWord, "Exposure");
    EXPECT_EQ(shared.UnitWord, "h");
    EXPECT_EQ(shared.EstimateWord, "LE");
    EXPECT_EQ(doc.fileOptions().controls.Tab1, 1);
    EXPECT_EQ(doc.fileOptions().controls.Combo5, "Exposure");
    EXPECT_EQ(doc.fileOptions().TAlpha(), 2);
    EXPECT_EQ(doc.Grid1().text(0, dosecol::Dose), "Exposure\n(h)");
    EXPECT_EQ(doc.Grid2().text(0, responsecol::Dose), "Exposure\n(h)");
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
    EXPECT_TRUE(doc.table().layout().CheckCoVisible);  // the table keeps its shape

    doc.OpenChangeOptions();
    doc.ChangeOptionsCancel();
    EXPECT_TRUE(doc.main().Enabled);
    EXPECT_EQ(shared.DoseWord, "Exposure");
}

TEST_F(OptionsTest, ATimeFileSavedAfterChangeOptionsReopensWithoutTheControlBox) {
    StartLine(DataType::RespondedAndNonResponded, "hour");
    Type("2", "1", "9", true);
    Type("2", "4", "6");
    doc.setTextDose("");
    doc.ChangeOptionsOK(ChangeOptionsValues{"Time", "hour", "LT", "0.05"});
    const std::string path = folder.file("time.mrv");
    port.saveAnswers.push_back(path);
    doc.CommandSave();
    EXPECT_NE(
        ReadBytes(path).find("\r\n0,1,\"hour\",\"\",3,\"Time\",\"LT\",\"hour\",0,\"0.05\",0,0\r\n"),
        std::string::npos);

    LineDocument other(shared, port, folder.path());
    ASSERT_TRUE(other.OpenLineFile(path));
    EXPECT_FALSE(other.table().layout().CheckCoVisible);
    EXPECT_EQ(Row(other.Grid1(), 1), "C|2|1|9|10|10.000|1.00695555006C");
    EXPECT_EQ(other.Grid1().back(1, dosecol::FirstValue), kControlColor);
    EXPECT_EQ(other.Grid2().cols(), 4);
}

}  // namespace
}  // namespace morvane::testing
