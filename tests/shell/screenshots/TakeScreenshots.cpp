// Takes the screenshots of the documentation: the input window with an assay typed
// in, the options dialog, the results window on both tabs, and the comparison: the
// table of files, the relative results and the chart of 3 and of 20 lines. Run it under a
// virtual X server of 1280 by 800 pixels with the folder for the pictures:
//   xvfb-run -a -s "-screen 0 1280x800x24" build/tests/shell/shell_screenshots docs/screenshots

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QPixmap>
#include <QTest>
#include <cstdio>

#include "RelativeTestSupport.h"
#include "ShellTestSupport.h"
#include "shell/MainWindow.h"
#include "shell/OptionsDialog.h"
#include "shell/ResultsWindow.h"
#include "shell/RtvinWindow.h"
#include "shell/RtvoutWindow.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

bool Save(QWidget& window, const QString& folder, const QString& name) {
    QApplication::processEvents();
    QTest::qWait(200);
    const QString path = folder + "/" + name;
    const bool saved = window.grab().save(path);
    std::printf("%s %s\n", saved ? "wrote" : "could not write", qPrintable(path));
    return saved;
}

void EnterRow(MainWindow& main, const QString& dose, const QString& first, const QString& second) {
    TypeInto(main.TextDose(), dose);
    PressEnter(main.TextDose());
    QTest::keyClicks(main.Text1input(), first);
    PressEnter(main.Text1input());
    QTest::keyClicks(main.Text2input(), second);
    PressEnter(main.Text2input());
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: shell_screenshots <folder>\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(folder);
    ShellFixture f;
    MainWindow& main = f.program->mainWindow();
    main.resize(1040, 680);
    main.move(40, 40);
    ShowActive(main);

    Click(main.CommandNew());
    OptionsDialog& options = f.program->optionsDialog();
    options.move(300, 160);
    TypeInto(options.ComboUnit1()->lineEdit(), "ug");
    TypeInto(options.ComboUnit2()->lineEdit(), "ml");
    Click(options.Check2());
    QTest::qWait(1200);  // the red highlight of the chosen factor type ends
    bool ok = Save(options, folder, "options.png");
    Click(options.Command1());
    // Without a window manager the input window must be made active again by hand.
    ShowActive(main);

    TypeInto(main.TextName(), "Malathion on Culex pipiens larvae");
    EnterRow(main, "0", "1", "24");
    EnterRow(main, "0", "0", "25");
    EnterRow(main, "0.5", "3", "22");
    EnterRow(main, "0.5", "2", "23");
    EnterRow(main, "1", "6", "19");
    EnterRow(main, "1", "8", "17");
    EnterRow(main, "2", "13", "12");
    EnterRow(main, "2", "11", "14");
    EnterRow(main, "4", "18", "7");
    EnterRow(main, "4", "20", "5");
    EnterRow(main, "8", "24", "1");
    EnterRow(main, "8", "23", "2");
    ok = Save(main, folder, "main.png") && ok;

    Click(main.CommandCalc());
    ResultsWindow* results = f.program->resultsWindow();
    if (!results) {
        std::fprintf(stderr, "the calculation did not open the results window\n");
        return 1;
    }
    ShowActive(*results);
    TypeInto(results->Text3(), "10");
    Click(results->Command3());
    Click(results->Command4());
    results->SSTab2()->setCurrentIndex(1);
    TypeInto(results->Text2(), "3");
    Click(results->Command1());
    Click(results->Command2());
    Click(results->Image1());
    ok = Save(*results, folder, "results-tables.png") && ok;

    results->Tab1()->setCurrentIndex(1);
    Click(results->Check2());
    TypeInto(results->Text6(), "90");
    Click(results->Command7());
    ok = Save(*results, folder, "results-graph.png") && ok;
    if (!f.port.failures.isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(f.port.failures.join("; ")));
    f.program->endProgram();

    // The comparison of field strains, in a program of its own.
    ShellFixture c;
    const QStringList strains = WriteStrainFiles(c.folder.path(), 20);
    MainWindow& input = c.program->mainWindow();
    input.resize(1040, 680);
    input.move(40, 40);
    ShowActive(input);
    for (int i = 0; i < 3; ++i)
        c.port.openAnswers.push_back(strains[i].toStdString());
    c.port.openAnswers.push_back(std::nullopt);
    Click(input.CommandRelative());
    RtvinWindow* rtvin = c.program->rtvinWindow();
    if (!rtvin) {
        std::fprintf(stderr, "the comparison window did not open\n");
        return 1;
    }
    ShowActive(*rtvin);
    ok = Save(*rtvin, folder, "rtvin.png") && ok;
    Click(rtvin->Command4());
    RtvoutWindow* rtvout = rtvin->resultsWindow();
    if (!rtvout) {
        std::fprintf(stderr, "the comparison did not open its results\n");
        return 1;
    }
    ShowActive(*rtvout);
    ok = Save(*rtvout, folder, "relative-tables.png") && ok;
    rtvout->Tab1()->setCurrentIndex(1);
    Click(rtvout->Check1());
    Click(rtvout->Check2());
    ok = Save(*rtvout, folder, "relative-graph-3.png") && ok;
    Click(rtvout->Command11());
    ShowActive(*rtvin);
    std::vector<std::string> more;
    for (int i = 3; i < strains.size(); ++i)
        more.push_back(strains[i].toStdString());
    rtvin->addFiles(more);
    Click(rtvin->Command4());
    rtvout = rtvin->resultsWindow();
    if (!rtvout)
        return 1;
    ShowActive(*rtvout);
    rtvout->Tab1()->setCurrentIndex(1);
    ok = Save(*rtvout, folder, "relative-graph-20.png") && ok;
    if (!c.port.failures.isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(c.port.failures.join("; ")));
    c.program->endProgram();
    return ok ? 0 : 1;
}
