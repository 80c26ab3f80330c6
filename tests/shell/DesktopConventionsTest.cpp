// What users of a desktop program expect of the input window: a menu bar that reaches
// every button with the usual shortcuts, a status bar and a title that tell the
// document, recent files and window sizes that outlast the run, line files opened when
// named or dropped, and numbers typed with the decimal comma of the locale.

#include <QDropEvent>
#include <QFile>
#include <QLocale>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>
#include <QUrl>

#include "ShellTestSupport.h"
#include "core/NumberText.h"
#include "shell/HelpWindow.h"
#include "shell/LocaleNumbers.h"
#include "shell/MainMenu.h"
#include "shell/ProbitDialog.h"
#include "shell/RecentFiles.h"
#include "shell/ResultsWindow.h"
#include "shell/RtvinWindow.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

// Saves the typed line under the name, through the menu's Save.
void SaveAs(ShellFixture& f, MainWindow& main, const QString& name) {
    f.port.saveAnswers.push_back(f.path(name).toStdString());
    main.menu().action("actionSave")->trigger();
}

// Drops the files on the window as a file manager does.
bool Drop(QWidget& window, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPoint at = window.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(QPointF(at), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    return drop.isAccepted();
}

}  // namespace

class DesktopConventionsTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    MainWindow* main = nullptr;

  private slots:
    void init() { StartProgram(f, main); }
    void cleanup() { EndProgram(f); }

    void menusReachEveryButton() {
        const QStringList menus = [this] {
            QStringList titles;
            for (QAction* a : main->menu().menuBar()->actions())
                titles << a->text().remove('&');
            return titles;
        }();
        QCOMPARE(menus, QStringList({"File", "Edit", "Analysis", "Tools", "Help"}));
        NewLine(*f);
        TypeRow(*main, "1", "2", "18");
        TypeRow(*main, "2", "5", "15");
        TypeRow(*main, "4", "10", "10");
        main->Grid1()->setFocus();
        const std::pair<const char*, QAbstractButton*> pairs[] = {
            {"actionSave", main->CommandSave()},
            {"actionNotes", main->CommandInf_form()},
            {"actionOptions", main->CommandChgangeOptions()},
            {"actionCalculate", main->CommandCalc()},
            {"actionEdit", main->CommandEdit()},
            {"actionDelete", main->CommandDel()},
            {"actionAccept", main->CommandAccept()},
            {"actionNew", main->CommandNew()},
            {"actionOpen", main->CommandOpen()},
            {"actionImport", main->CommandImport()},
            {"actionCompare", main->CommandRelative()},
            {"actionProbit", main->CommandProbit()},
            {"actionReduction", main->CommandControl()},
            {"actionFitLine", main->Command1()},
        };
        for (const auto& [name, button] : pairs) {
            QAction* action = main->menu().action(name);
            QVERIFY2(action, name);
            main->refresh();
            QCOMPARE(action->isEnabled(), button->isEnabled());
        }
        // A command of the menu runs as its button: Delete of the menu deletes the row.
        QCOMPARE(main->Grid1()->cellText(3, 1), QString("4"));
        QTest::mouseClick(main->Grid1()->viewport(), Qt::LeftButton, {},
                          main->Grid1()->cellRect(3, 2).center());
        QSignalSpy deleted(main->CommandDel(), &QAbstractButton::clicked);
        f->port.answers.push_back(Answer::Ok);
        main->menu().action("actionDelete")->trigger();
        QCOMPARE(deleted.count(), 1);
        QCOMPARE(main->Grid1()->cellText(3, 1), QString());
    }

    void shortcutsRunTheCommands() {
        // Ctrl+N: a new line through the options dialog.
        QTest::keyClick(main->TextDose(), Qt::Key_N, Qt::ControlModifier);
        OptionsDialog& options = f->program->optionsDialog();
        QVERIFY(options.isVisible());
        TypeInto(options.ComboUnit1()->lineEdit(), "mg");
        Click(options.Command1());
        TypeRow(*main, "2", "5", "15");
        // Ctrl+S: the save dialog of Save.
        f->port.saveAnswers.push_back(f->path("first.mrv").toStdString());
        QTest::keyClick(main->TextDose(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(f->port.saveDialogs.size(), std::size_t{1});
        QCOMPARE(main->windowTitle(), QString("Morvane, first.mrv[*]"));
        // Ctrl+Shift+S: the save dialog again, under a new name.
        f->port.saveAnswers.push_back(f->path("second.mrv").toStdString());
        QTest::keyClick(main->TextDose(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(f->port.saveDialogs.size(), std::size_t{2});
        QCOMPARE(main->windowTitle(), QString("Morvane, second.mrv[*]"));
        QCOMPARE(FileBytes(f->path("first.mrv")), FileBytes(f->path("second.mrv")));
        // Ctrl+O: the open dialog.
        f->port.openAnswers.push_back(std::nullopt);
        QTest::keyClick(main->TextDose(), Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(f->port.openDialogs.size(), std::size_t{1});
        // F1: the help of the input window.
        QTest::keyClick(main->TextDose(), Qt::Key_F1);
        QVERIFY(f->program->helpWindow().isVisible());
        QVERIFY(f->program->helpWindow().HelpPage().endsWith("/Hmain.htm"));
        f->program->helpWindow().close();
        // Ctrl+Q: the window closes, after the question when there is something to save.
        TypeRow(*main, "4", "10", "10");
        f->port.answers.push_back(Answer::Cancel);
        QVERIFY(ShowActive(*main));
        QTest::keyClick(main->TextDose(), Qt::Key_Q, Qt::ControlModifier);
        QCOMPARE(Text(f->port.messages.back().title), QString("save changes"));
        QVERIFY(!f->program->ended());
        f->port.answers.push_back(Answer::No);
        QTest::keyClick(main->TextDose(), Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(f->program->ended());
    }

    // Ctrl+P is the Print button of the results window.
    void ctrlPPrintsInTheResultsWindow() {
        NewLine(*f);
        TypeAssay(*main);
        Click(main->CommandCalc());
        ResultsWindow* results = f->program->resultsWindow();
        QVERIFY(results);
        QVERIFY(ShowActive(*results));
        auto* print = results->findChild<QPushButton*>("Command9");
        QVERIFY(print);
        QSignalSpy printed(print, &QAbstractButton::clicked);
        QTest::keyClick(results->findChild<QLineEdit*>("Text3"), Qt::Key_P, Qt::ControlModifier);
        QTRY_COMPARE(printed.count(), 1);  // the button shows itself pressed first
    }

    void saveAsCancelledKeepsTheFile() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        SaveAs(*f, *main, "kept.mrv");
        TypeRow(*main, "4", "10", "10");
        f->port.saveAnswers.push_back(std::nullopt);
        main->menu().action("actionSaveAs")->trigger();
        QCOMPARE(main->windowTitle(), QString("Morvane, kept.mrv[*]"));
        QVERIFY(main->isWindowModified());
        QVERIFY(main->CommandSave()->isEnabled());
        // The next Save writes the same file without a dialog.
        main->menu().action("actionSave")->trigger();
        QCOMPARE(f->port.saveDialogs.size(), std::size_t{2});
        QVERIFY(!main->isWindowModified());
    }

    void f1IsTheHelpOfTheWindowInFront() {
        f->port.openAnswers.push_back(std::nullopt);
        Click(main->CommandRelative());
        RtvinWindow* rtvin = f->program->rtvinWindow();
        QVERIFY(rtvin);
        QVERIFY(ShowActive(*rtvin));
        QTest::keyClick(rtvin, Qt::Key_F1);
        QVERIFY(f->program->helpWindow().isVisible());
        QVERIFY(f->program->helpWindow().HelpPage().endsWith("/Hrtvin.htm"));
    }

    void statusBarAndTitleTellTheDocument() {
        QCOMPARE(main->menu().statusText(), QString("No file  |  0 rows"));
        QCOMPARE(main->windowTitle(), QString("Morvane[*]"));
        QVERIFY(!main->isWindowModified());
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        QCOMPARE(main->menu().statusText(), QString("New file  |  1 row  |  modified"));
        QVERIFY(main->isWindowModified());
        TypeRow(*main, "4", "10", "10");
        QCOMPARE(main->menu().statusText(), QString("New file  |  2 rows  |  modified"));
        SaveAs(*f, *main, "assay.mrv");
        QCOMPARE(main->menu().statusText(), QString("assay.mrv  |  2 rows"));
        QCOMPARE(main->windowTitle(), QString("Morvane, assay.mrv[*]"));
        QVERIFY(!main->isWindowModified());
        QVERIFY(main->menu().statusBar()->isVisible());
        QVERIFY(main->menu().statusBar()->geometry().bottom() == main->height() - 1);
    }

    void aDroppedLineFileOpens() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        SaveAs(*f, *main, "dropped.mrv");
        Click(main->CommandNew());
        Click(f->program->optionsDialog().Command1());
        TypeRow(*main, "8", "1", "1");
        // Another kind of file is not taken.
        QVERIFY(!Drop(*main, {QUrl::fromLocalFile(f->path("notes.txt"))}));
        // The line file: the question of Open first.
        f->port.answers.push_back(Answer::Cancel);
        QVERIFY(Drop(*main, {QUrl::fromLocalFile(f->path("dropped.mrv"))}));
        QCOMPARE(Text(f->port.messages.back().title), QString("save changes"));
        QCOMPARE(main->Grid1()->cellText(1, 1), QString("8"));
        f->port.answers.push_back(Answer::No);
        QVERIFY(Drop(*main, {QUrl::fromLocalFile(f->path("dropped.mrv"))}));
        QCOMPARE(main->windowTitle(), QString("Morvane, dropped.mrv[*]"));
        QCOMPARE(main->Grid1()->cellText(1, 1), QString("2"));
    }

    // The command line's file opens as Open opens it, with Open's message on failure.
    void aNamedFileOpensWithOpensMessages() {
        const QString missing = f->path("missing.mrv");
        QVERIFY(!f->program->openFile(missing));
        QVERIFY(f->port.lastText().startsWith("An error occurred while opening this file.\n"));
        QCOMPARE(f->port.messages.back().icon, Icon::Critical);
        QCOMPARE(main->windowTitle(), QString("Morvane[*]"));
        QFile bad(f->path("bad.mrv"));
        QVERIFY(bad.open(QIODevice::WriteOnly));
        bad.write("not a line file");
        bad.close();
        QVERIFY(!f->program->openFile(f->path("bad.mrv")));
        QVERIFY(f->port.lastText().startsWith("An error occurred while opening this file.\n"));
    }

    void recentFilesOutlastTheRun() {
        QTemporaryDir dir;
        const QString ini = dir.filePath("morvane.ini");
        {
            QSettings settings(ini, QSettings::IniFormat);
            ShellFixture g;
            g.program = std::make_unique<Program>(g.port, g.folder.path() + "/", &settings);
            MainWindow& input = g.program->mainWindow();
            QVERIFY(ShowActive(input));
            QVERIFY(!input.findChild<QWidget*>("StartPage")->isVisible());
            QVERIFY(!input.menu().recentMenu()->isEnabled());
            NewLine(g);
            TypeRow(input, "2", "5", "15");
            SaveAs(g, input, "one.mrv");
            TypeRow(input, "4", "10", "10");
            input.menu().action("actionSave")->trigger();
            g.port.saveAnswers.push_back(g.path("two.mrv").toStdString());
            input.menu().action("actionSaveAs")->trigger();
            QCOMPARE(g.program->recentFiles().files(),
                     QStringList({g.path("two.mrv"), g.path("one.mrv")}));
            QCOMPARE(input.menu().recentMenu()->actions().size(), 2);
            QCOMPARE(input.menu().recentMenu()->actions()[0]->text(), QString("&1 two.mrv"));
            input.resize(input.width() + 120, input.height() + 80);
            const QSize size = input.size();
            g.program->endProgram();
            QVERIFY2(g.port.failures.isEmpty(), qPrintable(g.port.failures.join("; ")));
            {
                QSettings again(ini, QSettings::IniFormat);
                ShellFixture h;
                h.program = std::make_unique<Program>(h.port, h.folder.path() + "/", &again);
                MainWindow& next = h.program->mainWindow();
                QCOMPARE(next.size(), size);
                QVERIFY(ShowActive(next));
                QCOMPARE(next.menu().recentMenu()->actions().size(), 2);
                // The start page lists them; a click opens one.
                QVERIFY(next.findChild<QWidget*>("StartPage")->isVisible());
                QListWidget* list = next.recentList();
                QCOMPARE(list->count(), 2);
                QCOMPARE(list->item(1)->text(), "one.mrv    " + g.folder.path());
                QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                                  list->visualItemRect(list->item(1)).center());
                QCOMPARE(next.windowTitle(), QString("Morvane, one.mrv[*]"));
                QCOMPARE(next.Grid1()->cellText(2, 1), QString("4"));
                QVERIFY(!next.findChild<QWidget*>("StartPage")->isVisible());
                QCOMPARE(h.program->recentFiles().files().first(), g.path("one.mrv"));
                // And the menu opens the other.
                next.menu().recentMenu()->actions()[1]->trigger();
                QCOMPARE(next.windowTitle(), QString("Morvane, two.mrv[*]"));
                h.program->endProgram();
            }
        }
    }

    // `morvane FILE.mrv`: the file opens once the input window shows.
    void theCommandLinesFileOpensWhenTheWindowShows() {
        NewLine(*f);
        TypeRow(*main, "2", "5", "15");
        SaveAs(*f, *main, "named.mrv");
        ShellFixture g;
        MainWindow& input = g.program->mainWindow();
        g.program->openAtStart(f->path("named.mrv"));
        QTest::qWait(20);
        QCOMPARE(input.windowTitle(), QString("Morvane[*]"));
        QVERIFY(ShowActive(input));
        QTRY_COMPARE(input.windowTitle(), QString("Morvane, named.mrv[*]"));
        QCOMPARE(input.Grid1()->cellText(1, 1), QString("2"));
        QVERIFY(g.port.messages.empty());
        g.program->endProgram();
    }

    void recentFilesKeepTheLastTen() {
        RecentFiles recent;
        for (int i = 1; i <= 12; ++i)
            recent.add(QString("/lines/%1.mrv").arg(i));
        QCOMPARE(recent.files().size(), 10);
        QCOMPARE(recent.files().first(), QString("/lines/12.mrv"));
        QCOMPARE(recent.files().last(), QString("/lines/3.mrv"));
        recent.add("/lines/5.mrv");
        QCOMPARE(recent.files().size(), 10);
        QCOMPARE(recent.files().first(), QString("/lines/5.mrv"));
        QCOMPARE(recent.files().count("/lines/5.mrv"), 1);
        recent.remove("/lines/5.mrv");
        QCOMPARE(recent.files().size(), 9);
    }

    void decimalCommaOfTheLocaleIsTyped() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        UseLocaleDecimalSeparator();
        QCOMPARE(TypedDecimalSeparator(), ',');
        NewLine(*f);
        TypeRow(*main, "2,5", "5", "15");
        TypeRow(*main, "0,5", "1", "19");
        TypeRow(*main, "10", "18", "2");
        QCOMPARE(main->Grid1()->cellText(1, 1), QString("0.5"));
        QCOMPARE(main->Grid1()->cellText(2, 1), QString("2.5"));
        SaveAs(*f, *main, "comma.mrv");
        // The file is the file of the same line typed with points.
        QLocale::setDefault(QLocale::c());
        UseLocaleDecimalSeparator();
        QCOMPARE(TypedDecimalSeparator(), '.');
        ShellFixture g;
        MainWindow& other = g.program->mainWindow();
        QVERIFY(ShowActive(other));
        NewLine(g);
        TypeRow(other, "2.5", "5", "15");
        TypeRow(other, "0.5", "1", "19");
        TypeRow(other, "10", "18", "2");
        g.port.saveAnswers.push_back(f->path("point.mrv").toStdString());
        Click(other.CommandSave());
        QCOMPARE(FileBytes(f->path("comma.mrv")), FileBytes(f->path("point.mrv")));
        g.program->endProgram();
        QVERIFY(ShowActive(*main));
        // A query of the results window, typed with the comma.
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        UseLocaleDecimalSeparator();
        Click(main->CommandCalc());
        ResultsWindow* results = f->program->resultsWindow();
        QVERIFY(results);
        QVERIFY(ShowActive(*results));
        auto* text3 = results->findChild<QLineEdit*>("Text3");
        TypeInto(text3, "50,5");
        Click(results->findChild<QPushButton*>("Command3"));
        QVERIFY(!results->findChild<QLabel*>("Label6")->text().isEmpty());
        QCOMPARE(text3->text(), QString("50.5"));
        QLocale::setDefault(QLocale::c());
        UseLocaleDecimalSeparator();
    }
};

QTEST_MAIN(DesktopConventionsTest)
#include "DesktopConventionsTest.moc"
