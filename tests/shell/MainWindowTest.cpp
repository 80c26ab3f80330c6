// The input window driven by clicks and keys: a line set up through the options
// dialog, rows typed into the input cells, the road to the results window and back,
// the "save changes" question with each answer, "Miss units", and Open and Save
// through scripted file dialogs.

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

#include "ShellTestSupport.h"
#include "core/NumberText.h"
#include "shell/MainWindow.h"
#include "shell/OptionsDialog.h"
#include "shell/ResultsWindow.h"
#include "shell/RtvinWindow.h"
#include "shell/Twips.h"

using namespace morvane;
using namespace morvane::testing;

class MainWindowTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    MainWindow* main = nullptr;

  private slots:
    void init() { StartProgram(f, main); }
    void cleanup() { EndProgram(f); }

    void startsWithNoDocument() {
        QCOMPARE(main->windowTitle(), QString("Morvane[*]"));
        QVERIFY(!main->CommandSave()->isEnabled());
        QVERIFY(!main->CommandCalc()->isEnabled());
        QVERIFY(!main->CommandInf_form()->isEnabled());
        QCOMPARE(main->CommandOpen()->toolTip(), QString("Open Morvane file"));
        QCOMPARE(main->CommandSave()->toolTip(), QString("Save Morvane file"));
        QCOMPARE(main->CommandRelative()->toolTip(), QString("Open Morvane files"));
        QCOMPARE(main->CommandImport()->toolTip(), QString("Import data from Text or Excel file"));
        QCOMPARE(main->CommandChgangeOptions()->toolTip(), QString("File option"));
        QCOMPARE(main->CommandInf_form()->toolTip(), QString("Notes sheet"));
        QCOMPARE(main->CommandNew()->text(), QString("New file"));
        QCOMPARE(main->CommandProbit()->text(), QString("Probit"));
        QCOMPARE(main->CommandControl()->text(), QString("Reduction %"));
        QCOMPARE(main->Command1()->text(), QString("Fit line"));
        QCOMPARE(main->Command15()->text(), QString("Help"));
        QCOMPARE(main->CommandCalc()->text(), QString("Calculate"));
    }

    void newLineSetsUpTheTables() {
        NewLine(*f);
        QCOMPARE(main->windowTitle(), QString("Morvane, New file[*]"));
        QVERIFY(!f->program->optionsDialog().isVisible());
        QVERIFY(main->contentEnabled());
        QVERIFY(main->TextDose()->hasFocus());
        QCOMPARE(main->Grid1()->cellText(0, dosecol::Dose), QString("Dose\n(mg)"));
        QCOMPARE(main->Grid1()->cellText(0, dosecol::FirstValue), QString("Responded"));
        QCOMPARE(main->Grid1()->cellText(0, kCountsColumns.percent), QString("Response\n%"));
        QCOMPARE(main->Grid2()->cellText(0, responsecol::Corrected),
                 QString("Corrected\nResponse\n%"));
        // The sort key column has width 0 and is never seen.
        QVERIFY(main->Grid1()->isColumnHidden(6));
        QVERIFY(!main->Grid1()->isColumnHidden(5));
        QCOMPARE(main->Text1input()->toolTip(), QString("Responded"));
        QCOMPARE(main->Text2input()->toolTip(), QString("Non responded"));
        QVERIFY(main->CommandInf_form()->isEnabled());
        QVERIFY(main->CommandChgangeOptions()->isEnabled());
    }

    void keyFiltersOfTheInputCells() {
        NewLine(*f);
        TypeInto(main->TextDose(), "1e-3x,-");
        QCOMPARE(main->TextDose()->text(), QString("1e-3,-"));
        TypeInto(main->Text1input(), "12e-.5");
        QCOMPARE(main->Text1input()->text(), QString("12.5"));
    }

    void arrowsMoveBetweenTheCells() {
        NewLine(*f);
        TypeInto(main->TextDose(), "5");
        QTest::keyClick(main->TextDose(), Qt::Key_End);
        QTest::keyClick(main->TextDose(), Qt::Key_Right);
        QVERIFY(main->Text1input()->hasFocus());
        QTest::keyClick(main->Text1input(), Qt::Key_Home);
        QTest::keyClick(main->Text1input(), Qt::Key_Left);
        QVERIFY(main->TextDose()->hasFocus());
        main->Text2input()->setFocus();
        QTest::keyClick(main->Text2input(), Qt::Key_Right);
        QVERIFY(main->CommandAccept()->hasFocus());
    }

    void cellsSelectTheirWholeTextOnFocus() {
        NewLine(*f);
        TypeRow(*main, "25", "3", "17");
        main->Text1input()->setFocus(Qt::TabFocusReason);
        main->TextDose()->setFocus(Qt::TabFocusReason);
        QCOMPARE(main->TextDose()->selectedText(), QString("25"));
    }

    void negativeDoseIsEmptiedWithoutAWord() {
        NewLine(*f);
        TypeInto(main->TextDose(), "-4");
        PressEnter(main->TextDose());
        QCOMPARE(main->TextDose()->text(), QString());
        QVERIFY(f->port.messages.empty());
        TypeInto(main->TextDose(), "2.50");
        PressEnter(main->TextDose());
        QCOMPARE(main->TextDose()->text(), QString("2.5"));
    }

    void customizedUnitsAndAControlForEachTreatment() {
        Click(main->CommandNew());
        OptionsDialog& options = f->program->optionsDialog();
        options.Tab1()->setCurrentIndex(1);
        options.Combo5()->lineEdit()->selectAll();
        TypeInto(options.Combo5()->lineEdit(), "Temp.");
        options.Combo6()->lineEdit()->selectAll();
        TypeInto(options.Combo6()->lineEdit(), "RT");
        TypeInto(options.Text5(), "C");
        Click(options.Check3());
        Click(options.Command1());
        QVERIFY(!options.isVisible());
        QVERIFY(main->CheckCo()->isVisible());
        QCOMPARE(main->Grid1()->cellText(0, dosecol::Dose), QString("Temp.\n(C)"));
        QCOMPARE(Text(f->program->shared().EstimateWord), QString("RT"));
        QCOMPARE(main->Grid2()->cellText(0, matchedcol::Treated), QString("Treated response\n%"));
    }

    void emptiedFactorBoxTakesItsFirstEntryOnLeaving() {
        Click(main->CommandNew());
        OptionsDialog& options = f->program->optionsDialog();
        QVERIFY(ShowActive(options));
        options.Tab1()->setCurrentIndex(1);
        options.Combo5()->lineEdit()->setFocus(Qt::MouseFocusReason);
        options.Combo5()->lineEdit()->selectAll();
        QTest::keyClick(options.Combo5()->lineEdit(), Qt::Key_Delete);
        QCOMPARE(options.Combo5()->currentText(), QString());
        options.Text5()->setFocus(Qt::TabFocusReason);
        QCOMPARE(options.Combo5()->currentText(), QString("Dose"));
        Click(options.Command2());
    }

    void leavingADoseThatIsNoNumberTellsTheUser() {
        NewLine(*f);
        TypeInto(main->TextDose(), "1e");
        main->Text1input()->setFocus(Qt::TabFocusReason);
        QCOMPARE(f->port.lastText(), QString("invaled value!"));
        QVERIFY(main->TextDose()->hasFocus());
    }

    void rowsGoIntoTheTablesSortedByDose() {
        NewLine(*f);
        TypeRow(*main, "10", "10", "10");
        TypeRow(*main, "1", "2", "18");
        TypeRow(*main, "1", "4", "16");
        QCOMPARE(main->Grid1()->cellText(1, dosecol::Dose), QString("1"));
        QCOMPARE(main->Grid1()->cellText(2, dosecol::Dose), QString("1"));
        QCOMPARE(main->Grid1()->cellText(3, dosecol::Dose), QString("10"));
        QCOMPARE(main->Grid1()->cellText(1, dosecol::Label), QString("T"));
        QCOMPARE(main->Grid1()->cellText(1, kCountsColumns.percent), QString("10.000"));
        QCOMPARE(main->Grid1()->cellText(3, kCountsColumns.percent), QString("50.000"));
        // Two replicates of dose 1 pool into one row of Grid2.
        QCOMPARE(main->Grid2()->cellText(2, responsecol::Dose), QString("1"));
        QCOMPARE(main->Grid2()->cellText(2, responsecol::Total), QString("40"));
        QCOMPARE(main->Grid2()->cellText(2, responsecol::Response), QString("15.000"));
        QCOMPARE(main->Grid2()->cellText(3, responsecol::Dose), QString("10"));
        QVERIFY(main->CommandSave()->isEnabled());
        QVERIFY(!main->CommandCalc()->isEnabled());
        // The dose stays for the next replicate; the counts are emptied.
        QCOMPARE(main->TextDose()->text(), QString("1"));
        QCOMPARE(main->Text1input()->text(), QString());
    }

    void missingDataIsRefusedWithAMessage() {
        NewLine(*f);
        TypeInto(main->TextDose(), "3");
        Click(main->CommandAccept());
        QCOMPARE(f->port.lastText(), QString("Missing data"));
        QVERIFY(main->Text1input()->hasFocus());
        QCOMPARE(main->Grid1()->model()->rowCount(), 1);
    }

    void editAndDeleteARow() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        TypeRow(*main, "4", "10", "10");
        main->Grid1()->setFocus();
        QTest::mouseClick(main->Grid1()->viewport(), Qt::LeftButton, {},
                          main->Grid1()->cellRect(1, dosecol::FirstValue).center());
        f->port.answers.push_back(Answer::Ok);
        Click(main->CommandDel());
        QCOMPARE(f->port.lastText(),
                 QString("Do you want to delete the selected row with the response value 25.000?"));
        QCOMPARE(main->Grid1()->cellText(1, dosecol::Dose), QString("4"));
        // A double click: the first click, then the second as a double click.
        const QPoint cell = main->Grid1()->cellRect(1, dosecol::FirstValue).center();
        QTest::mouseClick(main->Grid1()->viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(main->Grid1()->viewport(), Qt::LeftButton, {}, cell);
        QCOMPARE(main->TextDose()->text(), QString("4"));
        QCOMPARE(main->Text1input()->text(), QString("10"));
        QCOMPARE(main->Text2input()->text(), QString("10"));
        QCOMPARE(main->Grid1()->model()->rowCount(), 1);
    }

    void roadOfOneCalculation() {
        NewLine(*f);
        TypeAssay(*main);
        QVERIFY(main->CommandCalc()->isEnabled());
        const QRect place = main->geometry();
        Click(main->CommandCalc());

        ResultsWindow* results = f->program->resultsWindow();
        QVERIFY(results);
        QVERIFY(results->isVisible());
        QVERIFY(!main->isVisible());
        QCOMPARE(results->geometry(), place);
        QCOMPARE(results->windowTitle(), QString("Results, New file"));
        // The data table: doses as typed, log doses, observed responses.
        const TextTableView* data = results->findChild<TextTableView*>("Grid1");
        QCOMPARE(data->cellText(1, datacol::Dose), QString("1"));
        QCOMPARE(data->cellText(5, datacol::Dose), QString("16"));
        QCOMPARE(data->cellText(2, datacol::LogDose), QString("0.3010"));
        QCOMPARE(data->cellText(3, datacol::Observed), QString("50.000"));
        QCOMPARE(data->cellText(0, datacol::Observed), QString("Observed\nresponse %"));
        // The statistics and the estimates, as the calculation left them.
        const FitResult& fit = f->program->shared().fit;
        const TextTableView* stats = results->findChild<TextTableView*>("Grid22");
        QCOMPARE(stats->cellText(statrow::Slope, statcol::Name), QString("Slope"));
        QCOMPARE(stats->cellText(statrow::Slope, statcol::Value),
                 Text(FormatNumber(fit.Slope, "0.0000")));
        QCOMPARE(stats->cellText(statrow::ChiSquare, statcol::Name),
                 QString::fromUtf8("\u03c7\u00b2"));
        const TextTableView* estimates = results->findChild<TextTableView*>("Grid2");
        QCOMPARE(estimates->cellText(0, estimatecol::Percent), QString("LD"));
        QCOMPARE(estimates->cellText(2, estimatecol::Percent), QString("25"));
        QCOMPARE(estimates->cellText(7, estimatecol::Percent), QString("99"));
        QCOMPARE(estimates->cellText(3, estimatecol::Dose),
                 Text(results->results().tables().Grid2.text(3, estimatecol::Dose)));
        QVERIFY(!estimates->cellText(3, estimatecol::Dose).isEmpty());
        QCOMPARE(results->findChild<QTabWidget*>("Tab1")->tabText(0), QString("Tables"));
        QCOMPARE(results->findChild<QTabWidget*>("Tab1")->tabText(1), QString("Graph"));

        // Back to the input: the input window takes the results window's place.
        results->resize(results->width() + 40, results->height() + 30);
        const QRect back = results->geometry();
        Click(results->findChild<QPushButton*>("Command11"));
        QVERIFY(main->isVisible());
        QVERIFY(main->contentEnabled());
        QCOMPARE(main->geometry(), back);
        QTRY_VERIFY(f->program->resultsWindow() == nullptr);
        QCOMPARE(main->Grid1()->cellText(5, dosecol::Dose), QString("16"));
    }

    void closingResultsWithNothingUnsavedEndsTheProgram() {
        NewLine(*f);
        TypeAssay(*main);
        f->port.saveAnswers.push_back(f->path("assay.mrv").toStdString());
        Click(main->CommandSave());
        Click(main->CommandCalc());
        ResultsWindow* results = f->program->resultsWindow();
        QVERIFY(results);
        QSignalSpy ended(f->program.get(), &Program::programEnded);
        results->close();
        QVERIFY(f->program->ended());
        QCOMPARE(ended.count(), 1);
    }

    void closingResultsWithUnsavedChangesAsksOnTheInputWindow() {
        NewLine(*f);
        TypeAssay(*main);
        Click(main->CommandCalc());
        ResultsWindow* results = f->program->resultsWindow();
        QVERIFY(results);
        f->port.answers.push_back(Answer::Cancel);
        results->close();
        QCOMPARE(f->port.messages.back().title, std::string("save changes"));
        QVERIFY(!f->program->ended());
        QVERIFY(main->isVisible());
        QVERIFY(main->contentEnabled());
    }

    void saveChangesCancelKeepsEverything() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        f->port.answers.push_back(Answer::Cancel);
        Click(main->CommandNew());
        const Message& question = f->port.messages.back();
        QCOMPARE(Text(question.text), QString("Do you want to save changes to \nNew file?"));
        QCOMPARE(Text(question.title), QString("save changes"));
        QVERIFY(question.buttons == Buttons::YesNoCancel);
        QVERIFY(!f->program->optionsDialog().isVisible());
        QCOMPARE(main->Grid1()->cellText(1, dosecol::Dose), QString("2"));
        QVERIFY(main->TextDose()->hasFocus());
    }

    void saveChangesNoGoesOnAndCancelledOptionsKeepTheDocument() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        f->port.answers.push_back(Answer::No);
        Click(main->CommandNew());
        OptionsDialog& options = f->program->optionsDialog();
        QVERIFY(options.isVisible());
        QVERIFY(!main->CommandNew()->isEnabled());
        Click(options.Command2());
        QVERIFY(!options.isVisible());
        QVERIFY(main->CommandNew()->isEnabled());
        QCOMPARE(main->Grid1()->cellText(1, dosecol::Dose), QString("2"));
        QCOMPARE(main->windowTitle(), QString("Morvane, New file[*]"));
    }

    void saveChangesYesSavesThenRunsThePendingNew() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        f->port.answers.push_back(Answer::Yes);
        const QString file = f->path("first.mrv");
        f->port.saveAnswers.push_back(file.toStdString());
        Click(main->CommandNew());
        QVERIFY(QFile::exists(file));
        // The pending New ran after the save, without a second question.
        QCOMPARE(f->port.messages.size(), std::size_t{1});
        QVERIFY(f->program->optionsDialog().isVisible());
        QCOMPARE(f->program->document().main().PendingCommand, MainCommand::None);
        Click(f->program->optionsDialog().Command2());
    }

    void saveChangesYesWithTheSaveDialogCancelledDropsTheNew() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        f->port.answers.push_back(Answer::Yes);
        f->port.saveAnswers.push_back(std::nullopt);
        Click(main->CommandNew());
        QVERIFY(!f->program->optionsDialog().isVisible());
        QCOMPARE(f->program->document().main().PendingCommand, MainCommand::None);
        QVERIFY(main->CommandSave()->isEnabled());
    }

    void saveChangesYesBeforeOpenOpensAfterTheSave() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        const QString file = f->path("kept.mrv");
        f->port.saveAnswers.push_back(file.toStdString());
        Click(main->CommandSave());
        QCOMPARE(main->windowTitle(), QString("Morvane, kept.mrv[*]"));
        TypeRow(*main, "4", "10", "10");
        f->port.answers.push_back(Answer::Yes);
        f->port.openAnswers.push_back(file.toStdString());
        Click(main->CommandOpen());
        QCOMPARE(f->port.openDialogs.size(), std::size_t{1});
        QCOMPARE(main->Grid1()->cellText(2, dosecol::Dose), QString("4"));
        QVERIFY(!main->CommandSave()->isEnabled());
    }

    void closingAsksAndEachAnswerDoesItsPart() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        f->port.answers.push_back(Answer::Cancel);
        QVERIFY(!main->close());
        QVERIFY(main->isVisible());
        QVERIFY(!f->program->ended());

        const QString file = f->path("closing.mrv");
        f->port.answers.push_back(Answer::Yes);
        f->port.saveAnswers.push_back(file.toStdString());
        main->close();
        QVERIFY(QFile::exists(file));
        QVERIFY(f->program->ended());
    }

    void closingWithNoEndsWithoutSaving() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        f->port.answers.push_back(Answer::No);
        QVERIFY(main->close());
        QVERIFY(f->program->ended());
        QVERIFY(f->port.saveDialogs.empty());
    }

    void missUnitsNoStaysInTheDialog() {
        Click(main->CommandNew());
        OptionsDialog& options = f->program->optionsDialog();
        f->port.answers.push_back(Answer::No);
        Click(options.Command1());
        const Message& question = f->port.messages.back();
        QCOMPARE(Text(question.title), QString("Miss units"));
        QCOMPARE(Text(question.text),
                 QString("You didn't set the Dose unit\ndo you want to continue?"));
        QVERIFY(options.isVisible());
        QTRY_VERIFY(options.ComboUnit1()->hasFocus() ||
                    options.ComboUnit1()->lineEdit()->hasFocus());
        f->port.answers.push_back(Answer::Yes);
        Click(options.Command1());
        QVERIFY(!options.isVisible());
        QCOMPARE(main->windowTitle(), QString("Morvane, New file[*]"));
        QCOMPARE(main->Grid1()->cellText(0, dosecol::Dose), QString("Dose\n()"));
    }

    void unitsChooseTheFactorType() {
        Click(main->CommandNew());
        OptionsDialog& options = f->program->optionsDialog();
        TypeInto(options.ComboUnit1()->lineEdit(), "ug");
        QVERIFY(options.Option1()->isChecked());
        QCOMPARE(options.LabelUnits()->text(), QString("ug"));
        TypeInto(options.ComboUnit2()->lineEdit(), "ml");
        QVERIFY(options.Option2()->isChecked());
        QCOMPARE(options.LabelUnits()->text(), QString("ug / ml"));
        // The chosen factor type shows red until the highlight's second ends.
        QVERIFY(options.Option2()->styleSheet().contains("255"));
        QVERIFY(options.Timer1().isActive());
        QTRY_VERIFY_WITH_TIMEOUT(options.Option2()->styleSheet().isEmpty(), 3000);
        options.ComboUnit1()->lineEdit()->selectAll();
        TypeInto(options.ComboUnit1()->lineEdit(), "minutes");
        QVERIFY(options.Option3()->isChecked());
        Click(options.Command1());
        QVERIFY(main->CheckCo()->isVisible());
        QCOMPARE(main->Grid2()->cellText(0, matchedcol::Control), QString("Control response\n%"));
    }

    void dataTypeOfPercentagesHidesTheSecondCell() {
        Click(main->CommandNew());
        OptionsDialog& options = f->program->optionsDialog();
        TypeInto(options.ComboUnit1()->lineEdit(), "mg");
        options.ComboDataType()->setCurrentIndex(2);
        QVERIFY(!options.Check2()->isEnabled());
        Click(options.Command1());
        QVERIFY(!main->Text2input()->isVisible());
        QCOMPARE(main->Text1input()->toolTip(), QString("Response %"));
        TypeInto(main->TextDose(), "3");
        PressEnter(main->TextDose());
        QTest::keyClicks(main->Text1input(), "40");
        PressEnter(main->Text1input());
        QCOMPARE(main->Grid1()->cellText(1, kPercentColumns.percent), QString("40.000"));
    }

    void saveAsDefaultAndLoadDefault() {
        Click(main->CommandNew());
        OptionsDialog& options = f->program->optionsDialog();
        TypeInto(options.ComboUnit1()->lineEdit(), "ppm");
        options.Combo7()->setCurrentIndex(2);
        Click(options.Command3());
        QVERIFY(QFile::exists(f->path("ldDef")));
        options.Combo7()->setCurrentIndex(0);
        options.ComboUnit1()->lineEdit()->selectAll();
        TypeInto(options.ComboUnit1()->lineEdit(), "mg");
        Click(options.Command5());
        QCOMPARE(options.Combo7()->currentText(), QString("0.01"));
        QCOMPARE(options.ComboUnit1()->currentText(), QString("ppm"));
        QVERIFY(options.Option2()->isChecked());
        Click(options.Command2());
    }

    void openAndSaveThroughTheFileDialogs() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        TypeRow(*main, "8", "15", "5");
        const QString file = f->path("assay.mrv");
        f->port.saveAnswers.push_back(file.toStdString());
        Click(main->CommandSave());
        QCOMPARE(f->port.saveDialogs.size(), std::size_t{1});
        QCOMPARE(Text(f->port.saveDialogs[0].title), QString("Save Morvane file"));
        QVERIFY(QFile::exists(file));
        QVERIFY(!main->CommandSave()->isEnabled());

        NewLine(*f);
        QCOMPARE(main->Grid1()->model()->rowCount(), 1);
        f->port.openAnswers.push_back(file.toStdString());
        Click(main->CommandOpen());
        QCOMPARE(Text(f->port.openDialogs.back().title), QString("Open Morvane file"));
        QCOMPARE(main->windowTitle(), QString("Morvane, assay.mrv[*]"));
        QCOMPARE(main->Grid1()->cellText(1, dosecol::Dose), QString("2"));
        QCOMPARE(main->Grid1()->cellText(2, dosecol::Dose), QString("8"));
        QCOMPARE(main->Grid1()->cellText(2, kCountsColumns.percent), QString("75.000"));
        QCOMPARE(main->Grid1()->cellText(0, 1), QString("Dose\n(mg)"));

        // A cancelled open leaves the document as it was.
        f->port.openAnswers.push_back(std::nullopt);
        Click(main->CommandOpen());
        QCOMPARE(main->Grid1()->cellText(2, 1), QString("8"));
    }

    void treatmentNameReachesTheNotes() {
        NewLine(*f);
        TypeInto(main->TextName(), "Malathion");
        QVERIFY(main->CommandSave()->isEnabled());
        QCOMPARE(Text(f->program->document().notes().TreatmentName), QString("Malathion"));
    }

    void windowNeverGetsSmallerThanTheLeastSize() {
        main->resize(200, 150);
        QCOMPARE(main->width(), PixelsX(*main, MinFormWidth - kWindowFrameWidth));
        // The menu bar and the status bar come on top of the least size of the rules.
        QCOMPARE(main->height(),
                 PixelsY(*main, MinFormHeight - kWindowFrameHeight) + main->barsHeight());
        QCOMPARE(main->content()->height(), PixelsY(*main, MinFormHeight - kWindowFrameHeight));
        main->resize(main->minimumWidth() + 300, main->minimumHeight() + 200);
        QTRY_COMPARE(
            main->Grid1()->height(),
            PixelsY(*main, TwipsY(*main, main->content()->height()) + kWindowFrameHeight - 1900));
        QVERIFY(main->Grid2()->x() > main->Grid1()->x() + main->Grid1()->width());
        QCOMPARE(main->CommandCalc()->x(), main->Grid2()->x());
        QCOMPARE(main->CommandCalc()->width(), main->Grid2()->width());
    }

    void saveChangesBeforeTheComparisonWindow() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        f->port.answers.push_back(Answer::Cancel);
        Click(main->CommandRelative());
        QCOMPARE(Text(f->port.messages.back().title), QString("save changes"));
        QCOMPARE(f->port.messages.size(), std::size_t{1});
        f->port.answers.push_back(Answer::No);
        // The comparison window takes the input window's place and asks for files.
        f->port.openAnswers.push_back(std::nullopt);
        Click(main->CommandRelative());
        QCOMPARE(f->port.messages.size(), std::size_t{2});
        QVERIFY(f->program->rtvinWindow());
        QVERIFY(f->program->rtvinWindow()->isVisible());
        QCOMPARE(f->port.openDialogs.size(), std::size_t{1});
        QCOMPARE(Text(f->port.openDialogs.back().title), QString("Open Morvane file"));
        QVERIFY(!main->isVisible());
    }

    void minimisedWindowKeepsItsLayout() {
        NewLine(*f);
        const QRect grid = main->Grid1()->geometry();
        main->showMinimized();
        if (!main->isMinimized())
            QSKIP("this platform does not minimise windows");
        main->ArrangeMainWindow();
        QCOMPARE(main->Grid1()->geometry(), grid);
        main->showNormal();
    }
};

QTEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
