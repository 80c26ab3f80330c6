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
#include "shell/PredictionWindow.h"
#include "shell/ReductionWindow.h"
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

// The two calculators: the guide and a formula of Reduction %, and both panels of the
// extrapolation window with a prediction each.
bool CalculatorScreenshots(ShellFixture& f, const QString& folder) {
    using RBox = ReductionCalculator::Box;
    using RTab = ReductionCalculator::Tab;
    using PBox = LinePredictor::Box;
    MainWindow& main = f.program->mainWindow();
    Click(main.CommandControl());
    ReductionWindow& reduction = *f.program->reductionWindow();
    reduction.move(120, 80);
    ShowActive(reduction);
    bool ok = Save(reduction, folder, "reduction-guide.png");
    QTest::mouseClick(reduction.Label31(), Qt::LeftButton);
    const char* const plots[][4] = {
        {"112", "98", "35", "104"}, {"86", "91", "12", "95"}, {"140", "133", "61", "128"}};
    for (const auto& plot : plots) {
        TypeInto(reduction.box(RBox::Text4), plot[0]);
        TypeInto(reduction.box(RBox::Text5), plot[1]);
        TypeInto(reduction.box(RBox::Text6), plot[2]);
        TypeInto(reduction.box(RBox::Text7), plot[3]);
        PressEnter(reduction.box(RBox::Text7));
    }
    ok = Save(reduction, folder, "reduction.png") && ok;
    reduction.Tab1()->setCurrentIndex(static_cast<int>(RTab::SunShepard));
    TypeInto(reduction.box(RBox::Text12), "64");
    TypeInto(reduction.box(RBox::Text13), "-12.5");
    PressEnter(reduction.box(RBox::Text13));
    Click(reduction.Check1());
    ok = Save(reduction, folder, "reduction-sun.png") && ok;
    reduction.close();

    ShowActive(main);
    Click(main.Command1());
    PredictionWindow& predict = *f.program->predictionWindow();
    predict.move(120, 120);
    ShowActive(predict);
    TypeInto(predict.box(PBox::Text1), "0.5");
    TypeInto(predict.box(PBox::Text2), "12");
    TypeInto(predict.box(PBox::Text3), "8");
    TypeInto(predict.box(PBox::Text4), "93");
    TypeInto(predict.box(PBox::Text5), "2.5");
    Click(predict.button(LinePredictor::Button::Command2));
    TypeInto(predict.box(PBox::Text7), "2.4");
    TypeInto(predict.box(PBox::Text8), "50");
    TypeInto(predict.box(PBox::Text9), "1.85");
    TypeInto(predict.box(PBox::Text10), "90");
    Click(predict.button(LinePredictor::Button::Command5));
    ok = Save(predict, folder, "predict.png") && ok;
    predict.close();
    return ok;
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
    ok = CalculatorScreenshots(f, folder) && ok;
    ShowActive(main);

    Click(main.CommandCalc());
    ResultsWindow* results = f.program->resultsWindow();
    if (!results) {
        std::fprintf(stderr, "the calculation did not open the results window\n");
        return 1;
    }
    ShowActive(*results);
    TypeInto(results->findChild<QLineEdit*>("Text3"), "10");
    Click(results->findChild<QPushButton*>("Command3"));
    Click(results->findChild<QPushButton*>("Command4"));
    results->findChild<QTabWidget*>("SSTab2")->setCurrentIndex(1);
    TypeInto(results->findChild<QLineEdit*>("Text2"), "3");
    Click(results->findChild<QPushButton*>("Command1"));
    Click(results->findChild<QPushButton*>("Command2"));
    Click(results->findChild<QToolButton*>("Image1"));
    ok = Save(*results, folder, "results-tables.png") && ok;

    results->findChild<QTabWidget*>("Tab1")->setCurrentIndex(1);
    Click(results->findChild<QCheckBox*>("Check2"));
    TypeInto(results->findChild<QLineEdit*>("Text6"), "90");
    Click(results->findChild<QPushButton*>("Command7"));
    ok = Save(*results, folder, "results-graph.png") && ok;
    results->findChild<QTabWidget*>("Tab1")->setCurrentIndex(2);
    Click(results->findChild<QCheckBox*>("CheckShowLine"));
    ok = Save(*results, folder, "results-likelihood.png") && ok;
    results->findChild<QTabWidget*>("Tab1")->setCurrentIndex(1);
    ok = Save(*results, folder, "results-graph-likelihood.png") && ok;
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
    rtvout->Tab1()->setCurrentIndex(2);
    ok = Save(*rtvout, folder, "relative-likelihood.png") && ok;
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
