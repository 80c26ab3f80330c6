// Takes the screenshots of the input window as a desktop program: with its menu bar and
// status bar at the default size and filling the screen, the start page with the
// recent files, and at the device pixel ratio of 2 the results window beside. Run it under a
// virtual X server with the folder for the pictures, once plainly and once at a device pixel ratio
// of 2:
//   xvfb-run -a -s "-screen 0 1600x1000x24" build/tests/shell/shell_desktop_screenshots
//   docs/screenshots
//   QT_SCALE_FACTOR=2 xvfb-run -a -s "-screen 0 3200x2000x24"
//       build/tests/shell/shell_desktop_screenshots docs/screenshots -scale2
// A second argument is added to the names of the pictures.

#include <QApplication>
#include <QDir>
#include <QMenuBar>
#include <QPixmap>
#include <QScreen>
#include <QSettings>
#include <QTabWidget>
#include <QTest>
#include <cstdio>

#include "ScreenshotSupport.h"
#include "ShellTestSupport.h"
#include "shell/MainMenu.h"
#include "shell/RecentFiles.h"
#include "shell/ResultsWindow.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

void TypeLine(ShellFixture& f, MainWindow& main) {
    NewLine(f, "ug");
    ShowActive(main);
    TypeInto(main.TextName(), "Malathion on Culex pipiens larvae");
    const char* rows[][3] = {{"0", "1", "24"},   {"0", "0", "25"},  {"0.5", "3", "22"},
                             {"0.5", "2", "23"}, {"1", "6", "19"},  {"1", "8", "17"},
                             {"2", "13", "12"},  {"2", "11", "14"}, {"4", "18", "7"},
                             {"4", "20", "5"},   {"8", "24", "1"},  {"8", "23", "2"}};
    for (const auto& row : rows)
        EnterRow(main, row[0], row[1], row[2]);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: shell_desktop_screenshots <folder> [name suffix]\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QString suffix = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
    QDir().mkpath(folder);
    auto name = [&](const char* base) { return folder + "/" + base + suffix + ".png"; };
    bool ok = true;

    QTemporaryDir settingsFolder;
    QSettings settings(settingsFolder.filePath("morvane.ini"), QSettings::IniFormat);
    ShellFixture f;
    f.program = std::make_unique<Program>(f.port, f.folder.path() + "/", &settings);
    MainWindow& main = f.program->mainWindow();
    main.move(40, 40);
    ShowActive(main);

    // The start page, with the files of earlier runs.
    for (const char* file : {"Permethrin, field strain.mrv", "Malathion, lab strain.mrv",
                             "Deltamethrin 2024.mrv", "Temephos larvae.mrv"}) {
        QFile line(f.path(file));
        line.open(QIODevice::WriteOnly);
        f.program->recentFiles().add(f.path(file));
    }
    main.refresh();
    if (suffix.isEmpty())
        ok = SaveGrab(main, name("main-start")) && ok;

    TypeLine(f, main);
    f.port.saveAnswers.push_back(f.path("Malathion on Culex.mrv").toStdString());
    Click(main.CommandSave());
    // A change after the save: the status bar and the title mark it.
    TypeInto(main.TextName(), "Malathion on Culex pipiens larvae, 24 h");
    main.Grid1()->setFocus();
    ok = SaveGrab(main, name("main-default")) && ok;

    if (suffix.isEmpty()) {
        // The File menu open over the window, as the screen shows it.
        QMenuBar* bar = main.menu().menuBar();
        QMenu* file = bar->actions().first()->menu();
        file->popup(bar->mapToGlobal(bar->actionGeometry(bar->actions().first()).bottomLeft()));
        QTest::qWait(400);
        const QRect area = main.frameGeometry();
        const QPixmap picture =
            main.screen()->grabWindow(0, area.x(), area.y(), area.width(), area.height());
        const bool saved = picture.save(name("main-menu"));
        std::printf("%s %s\n", saved ? "wrote" : "could not write", qPrintable(name("main-menu")));
        ok = saved && ok;
        file->hide();
    }

    // Filling the screen, as a maximised window does.
    const QRect screen = main.screen()->availableGeometry();
    const QRect before = main.geometry();
    main.setGeometry(screen);
    ok = SaveGrab(main, name("main-maximised")) && ok;
    main.setGeometry(before);

    // The results beside, at the device pixel ratio of 2 only: the plain pictures of the
    // results window are those of shell_screenshots.
    if (!suffix.isEmpty()) {
        Click(main.CommandCalc());
        ResultsWindow* results = f.program->resultsWindow();
        if (results == nullptr) {
            std::fprintf(stderr, "the calculation did not open the results window\n");
            return 1;
        }
        ShowActive(*results);
        ok = SaveGrab(*results, name("results-tables")) && ok;
        results->findChild<QTabWidget*>("Tab1")->setCurrentIndex(1);
        ok = SaveGrab(*results, name("results-graph")) && ok;
    }
    if (!f.port.failures.isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(f.port.failures.join("; ")));
    f.program->endProgram();
    return ok ? 0 : 1;
}
