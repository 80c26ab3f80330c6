// How the windows behave toward a user: the keys go to the box of the query tab that
// shows, the close box of a side window closes that window only, message boxes carry
// the icon that fits them, and the help viewer opens beside the window that asked.

#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include "ShellTestSupport.h"
#include "shell/HelpWindow.h"
#include "shell/PredictionWindow.h"
#include "shell/QtUserPort.h"
#include "shell/ReductionWindow.h"
#include "shell/ResultsWindow.h"
#include "shell/RtvinWindow.h"
#include "shell/WindowPlacement.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

// What a message box showed before it was answered.
struct SeenBox {
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    bool seen = false;
};

// Answers the next message box that opens with its default button, noting its text and
// icon.
void AnswerNextBox(SeenBox& seen) {
    QTimer::singleShot(0, [&seen] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            AnswerNextBox(seen);
            return;
        }
        seen.seen = true;
        seen.text = box->text();
        seen.icon = box->icon();
        QTest::keyClick(box, Qt::Key_Return);
    });
}

}  // namespace

class WindowBehaviourTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    MainWindow* main = nullptr;

    ResultsWindow* calculate() {
        NewLine(*f);
        TypeAssay(*main);
        Click(main->CommandCalc());
        ResultsWindow* results = f->program->resultsWindow();
        if (results != nullptr)
            ShowActive(*results);
        return results;
    }

  private slots:
    void init() { StartProgram(f, main); }
    void cleanup() { EndProgram(f); }

    // A change of query tab gives the focus to the box that stands on the other tab: the
    // percent box on "Calculate Response of any ...", the dose box on "Calculate any ...".
    // The program keeps this order as it has always had it, so the keys typed right after
    // the change land in the hidden box.
    void aQueryTabChangeKeepsTheFocusOrderOfTheProgram() {
        ResultsWindow* results = calculate();
        QVERIFY(results);
        auto* tabs = results->findChild<QTabWidget*>("SSTab2");
        auto* text2 = results->findChild<QLineEdit*>("Text2");
        auto* text3 = results->findChild<QLineEdit*>("Text3");
        QTabBar* bar = tabs->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
        QCOMPARE(tabs->currentIndex(), 1);
        QCOMPARE(QApplication::focusWidget(), text3);
        QTest::keyClicks(QApplication::focusWidget(), "50");
        QCOMPARE(text3->text(), QString("50"));
        QCOMPARE(text2->text(), QString());
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(0).center());
        QCOMPARE(tabs->currentIndex(), 0);
        QCOMPARE(QApplication::focusWidget(), text2);
        QTest::keyClicks(QApplication::focusWidget(), "4");
        QCOMPARE(text2->text(), QString("4"));
        QCOMPARE(text3->text(), QString("50"));
    }

    void closingACalculatorClosesOnlyIt() {
        Click(main->CommandControl());
        ReductionWindow* reduction = f->program->reductionWindow();
        QVERIFY(reduction && reduction->isVisible());
        QVERIFY(!main->contentEnabled());
        QVERIFY(reduction->close());
        QVERIFY(!f->program->ended());
        QVERIFY(main->isVisible());
        QVERIFY(main->contentEnabled());

        Click(main->Command1());
        PredictionWindow* prediction = f->program->predictionWindow();
        QVERIFY(prediction && prediction->isVisible());
        QVERIFY(prediction->close());
        QVERIFY(!f->program->ended());
        QVERIFY(main->isVisible());
        QVERIFY(main->contentEnabled());
    }

    void closingTheHelpClosesOnlyIt() {
        Click(main->Command15());
        HelpWindow& help = f->program->helpWindow();
        QVERIFY(help.isVisible());
        QVERIFY(help.close());
        QVERIFY(!f->program->ended());
        QVERIFY(main->isVisible());
        // The help of the results window, too.
        ResultsWindow* results = calculate();
        QVERIFY(results);
        Click(results->findChild<QPushButton*>("Command15"));
        QVERIFY(help.isVisible());
        QVERIFY(help.close());
        QVERIFY(!f->program->ended());
        QVERIFY(results->isVisible());
    }

    // The results window's close box with unsaved data leaves through the input window
    // and its save question; a Cancel there keeps the program and the data.
    void closingTheResultsWithUnsavedDataAsksFirst() {
        ResultsWindow* results = calculate();
        QVERIFY(results);
        f->port.answers.push_back(Answer::Cancel);
        QVERIFY(results->close());
        QCOMPARE(Text(f->port.messages.back().title), QString("save changes"));
        QVERIFY(!f->program->ended());
        QVERIFY(main->isVisible());
        QCOMPARE(main->Grid1()->cellText(1, 1), QString("1"));
    }

    // With nothing unsaved the results window's close box ends the program, as the
    // input window's does.
    void closingTheResultsWithNothingUnsavedEnds() {
        ResultsWindow* results = calculate();
        QVERIFY(results);
        f->port.saveAnswers.push_back(f->path("assay.mrv").toStdString());
        f->program->run([this] { f->program->document().CommandSave(); });
        QVERIFY(!main->CommandSave()->isEnabled());
        QVERIFY(results->close());
        QVERIFY(f->program->ended());
    }

    void messageBoxesCarryTheFittingIcon() {
        QtUserPort port;
        SeenBox seen;
        AnswerNextBox(seen);
        port.tell("Saved.");
        QVERIFY(seen.seen);
        QCOMPARE(seen.icon, QMessageBox::Information);
        AnswerNextBox(seen = {});
        port.warn("invaled value!");
        QCOMPARE(seen.text, QString("invaled value!"));
        QCOMPARE(seen.icon, QMessageBox::Warning);
        AnswerNextBox(seen = {});
        port.tellError("An error occurred while saving this file.\nDisk full");
        QCOMPARE(seen.icon, QMessageBox::Critical);
        AnswerNextBox(seen = {});
        QCOMPARE(port.ask(Message{"Go on?", Buttons::YesNo, Icon::None, Answer::Yes}), Answer::Yes);
        QCOMPARE(seen.icon, QMessageBox::Question);
    }

    // The boxes of a real session: the question of a line without unit, the warning of
    // a refused double quote.
    void theProgramsBoxesCarryTheirIcons() {
        QTemporaryDir folder;
        QtUserPort port;
        Program program(port, folder.path() + "/");
        MainWindow& input = program.mainWindow();
        port.setParent(&input);
        QVERIFY(ShowActive(input));
        Click(input.CommandNew());
        OptionsDialog& options = program.optionsDialog();
        QVERIFY(options.isVisible());
        SeenBox seen;
        AnswerNextBox(seen);
        Click(options.Command1());
        QVERIFY(seen.seen);
        QCOMPARE(seen.text, QString("You didn't set the Dose unit\ndo you want to continue?"));
        QCOMPARE(seen.icon, QMessageBox::Question);
        QVERIFY(input.TextName()->isEnabled());
        AnswerNextBox(seen = {});
        TypeInto(input.TextName(), "a\"");
        QTRY_VERIFY(seen.seen);
        QCOMPARE(seen.icon, QMessageBox::Warning);
        QCOMPARE(input.TextName()->text(), QString("a"));
        program.endProgram();
    }

    void helpOpensBesideTheWindowThatAsked() {
        const QRect screen = main->screen()->availableGeometry();
        main->move(screen.topLeft() + QPoint(30, 20));
        Click(main->Command15());
        HelpWindow& help = f->program->helpWindow();
        QVERIFY(help.isVisible());
        // The viewer's frame is taken to be as wide as the asker's.
        const QSize frame = help.size() + (main->frameGeometry().size() - main->size());
        QCOMPARE(help.pos(), PlaceBeside(frame, main->frameGeometry(), screen));
        QVERIFY(help.pos() != screen.topLeft());
    }

    void placeBesideTakesTheRoomThereIs() {
        const QRect screen(0, 0, 1600, 1000);
        // Room on the right.
        QCOMPARE(PlaceBeside(QSize(500, 400), QRect(100, 100, 600, 500), screen), QPoint(708, 100));
        // Room on the left only.
        QCOMPARE(PlaceBeside(QSize(500, 400), QRect(900, 200, 600, 500), screen), QPoint(392, 200));
        // No room: over the asker, a little down and right, within the screen.
        QCOMPARE(PlaceBeside(QSize(800, 600), QRect(300, 100, 1000, 700), screen),
                 QPoint(340, 140));
        QCOMPARE(PlaceBeside(QSize(800, 600), QRect(700, 380, 900, 600), screen), QPoint(740, 400));
    }
};

QTEST_MAIN(WindowBehaviourTest)
#include "WindowBehaviourTest.moc"
