// Takes the screenshots of the documentation: the input window with an assay typed
// in, the options dialog, the results window on both tabs, and the comparison: the
// table of files, the relative results and the chart of 3 and of 20 lines; the dialog
// "print", its preview and printed pages, and the exported SVG chart rendered. Run it
// under a virtual X server of 1600 by 1000 pixels with the folder for the pictures, and
// once more at a scale factor of 2 with the suffix "-hidpi" for the pictures of that run:
//   xvfb-run -a -s "-screen 0 1600x1000x24" build/tests/shell/shell_screenshots docs/screenshots
//   QT_SCALE_FACTOR=2 xvfb-run -a -s "-screen 0 3200x2000x24"
//       build/tests/shell/shell_screenshots /tmp/hidpi -hidpi

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>

#include "RelativeTestSupport.h"
#include "ScreenshotSupport.h"
#include "ShellTestSupport.h"
#include "results/ChartPicture.h"
#include "shell/MainWindow.h"
#include "shell/OptionsDialog.h"
#include "shell/PictureExport.h"
#include "shell/PredictionWindow.h"
#include "shell/PrintDialog.h"
#include "shell/ReductionWindow.h"
#include "shell/ResultsWindow.h"
#include "shell/RtvinWindow.h"
#include "shell/RtvoutWindow.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

// Added before ".png" of every name: "-hidpi" when taken at a scale factor of 2.
QString g_suffix;

bool Save(QWidget& window, const QString& folder, QString name) {
    name.replace(".png", g_suffix + ".png");
    return SaveGrab(window, folder + "/" + name);
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

// One page of what print() prints to a PDF document, as a picture at 60 dots to the
// inch.
bool PrintedPage(const QString& folder, const char* name, int page,
                 const std::function<void()>& print) {
    QTemporaryDir pages;
    const QString pdf = pages.path() + "/printed.pdf";
    PrintRoute::setPdfOutput(pdf);
    print();
    PrintRoute::setPdfOutput(std::nullopt);
    const int status = QProcess::execute(
        "pdftoppm", {"-png", "-r", "60", "-f", QString::number(page), "-l", QString::number(page),
                     "-singlefile", pdf, folder + "/" + name});
    std::printf("%s %s/%s.png\n", status == 0 ? "wrote" : "could not write", qPrintable(folder),
                name);
    return status == 0;
}

// The dialog "print", its preview, and the pages it prints to a PDF document, as
// pictures; the exported SVG chart rendered to a picture.
bool PrintScreenshots(ResultsWindow& results, SharedRegisters& shared, const QString& folder) {
    Click(results.findChild<QPushButton*>("Command9"));
    PrintDialog* dialog = results.printing().dialog();
    if (!dialog)
        return false;
    dialog->move(200, 200);
    ShowActive(*dialog);
    bool ok = Save(*dialog, folder, "print-dialog.png");
    PrintRoute::setPreviewHook([&](QDialog& preview) {
        preview.resize(1100, 820);
        preview.show();
        QTest::qWait(600);
        ok = Save(preview, folder, "print-preview.png") && ok;
        preview.reject();
    });
    Click(dialog->Command1());
    PrintRoute::setPreviewHook(nullptr);
    QTemporaryDir pages;
    const QString pdf = pages.path() + "/printed.pdf";
    PrintRoute::setPdfOutput(pdf);
    Click(results.findChild<QPushButton*>("Command9"));
    Click(results.printing().dialog()->Command1());
    PrintRoute::setPdfOutput(std::nullopt);
    for (const auto& [page, name] :
         {std::pair{1, "printed-tables"}, std::pair{2, "printed-chart"}}) {
        const int status = QProcess::execute(
            "pdftoppm", {"-png", "-r", "60", "-f", QString::number(page), "-l",
                         QString::number(page), "-singlefile", pdf, folder + "/" + name});
        std::printf("%s %s/%s.png\n", status == 0 ? "wrote" : "could not write", qPrintable(folder),
                    name);
        ok = status == 0 && ok;
    }
    // The SVG chart as a browser shows it.
    const Drawing chart = ComposeChartPicture(results.chart(), results.chartWidget()->chartLayout(),
                                              results.chartWidget()->Text7()->text().toStdString(),
                                              shared, PictureTextMeasurer());
    const std::string svg = EncodePicture(chart, PictureFormat::Svg);
    QSvgRenderer renderer(QByteArray::fromStdString(svg));
    QImage image(renderer.defaultSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    const bool saved = image.save(folder + "/exported-chart-svg.png");
    std::printf("%s %s/exported-chart-svg.png\n", saved ? "wrote" : "could not write",
                qPrintable(folder));
    return saved && ok;
}

// The window at the size of the screen, as a maximised window shows it, taken under
// the name with "-max"; then back at its size.
bool SaveMaximised(QWidget& window, const QString& folder, QString name) {
    const QRect before = window.geometry();
    window.setGeometry(window.screen()->availableGeometry());
    name.replace(".png", "-max.png");
    const bool ok = Save(window, folder, name);
    window.setGeometry(before);
    QApplication::processEvents();
    return ok;
}

// The input window of a fixture, shown at the size of the pictures.
MainWindow& ShowInput(ShellFixture& f) {
    MainWindow& main = f.program->mainWindow();
    main.resize(1040, 680);
    main.move(40, 40);
    ShowActive(main);
    return main;
}

// A shallow line over four decades, with its points and three marks: the cycles of
// its slope leave room at the right, as the rule of the cycles gives it.
bool DecadesScreenshot(const QString& folder) {
    ShellFixture f;
    MainWindow& main = ShowInput(f);
    Click(main.CommandNew());
    TypeInto(f.program->optionsDialog().ComboUnit1()->lineEdit(), "mg");
    Click(f.program->optionsDialog().Command1());
    ShowActive(main);
    TypeInto(main.TextName(), "Permethrin on Aedes aegypti, field strain");
    const char* const rows[][3] = {{"0.01", "4", "46"},
                                   {"0.1", "9", "41"},
                                   {"1", "17", "33"},
                                   {"10", "29", "21"},
                                   {"100", "38", "12"}};
    for (const auto& row : rows)
        EnterRow(main, row[0], row[1], row[2]);
    Click(main.CommandCalc());
    ResultsWindow* results = f.program->resultsWindow();
    if (!results)
        return false;
    ShowActive(*results);
    results->findChild<QTabWidget*>("Tab1")->setCurrentIndex(1);
    Click(results->findChild<QCheckBox*>("Check2"));
    for (const char* mark : {"25", "50", "75"}) {
        TypeInto(results->findChild<QLineEdit*>("Text6"), mark);
        Click(results->findChild<QPushButton*>("Command7"));
    }
    bool ok = Save(*results, folder, "results-graph-decades.png");
    ok = SaveMaximised(*results, folder, "results-graph-decades.png") && ok;
    f.program->endProgram();
    return ok;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: shell_screenshots <folder> [suffix]\n");
        return 2;
    }
    if (argc > 2)
        g_suffix = QString::fromLocal8Bit(argv[2]);
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(folder);
    ShellFixture f;
    MainWindow& main = ShowInput(f);

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
    ok = SaveMaximised(*results, folder, "results-tables.png") && ok;

    results->findChild<QTabWidget*>("Tab1")->setCurrentIndex(1);
    Click(results->findChild<QCheckBox*>("Check2"));
    TypeInto(results->findChild<QLineEdit*>("Text6"), "90");
    Click(results->findChild<QPushButton*>("Command7"));
    ok = Save(*results, folder, "results-graph.png") && ok;
    ok = PrintScreenshots(*results, f.program->shared(), folder) && ok;
    ok = SaveMaximised(*results, folder, "results-graph.png") && ok;
    results->findChild<QTabWidget*>("Tab1")->setCurrentIndex(2);
    Click(results->findChild<QCheckBox*>("CheckShowLine"));
    ok = Save(*results, folder, "results-likelihood.png") && ok;
    results->findChild<QTabWidget*>("Tab1")->setCurrentIndex(1);
    ok = Save(*results, folder, "results-graph-likelihood.png") && ok;
    if (!f.port.failures.isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(f.port.failures.join("; ")));
    f.program->endProgram();
    ok = DecadesScreenshot(folder) && ok;

    // The comparison of field strains, in a program of its own.
    ShellFixture c;
    const QStringList strains = WriteStrainFiles(c.folder.path(), 20);
    MainWindow& input = ShowInput(c);
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
    ok = SaveMaximised(*rtvout, folder, "relative-tables.png") && ok;
    rtvout->Tab1()->setCurrentIndex(1);
    Click(rtvout->Check1());
    Click(rtvout->Check2());
    ok = Save(*rtvout, folder, "relative-graph-3.png") && ok;
    ok = PrintedPage(folder, "printed-comparison-chart", 2,
                     [&] {
                         Click(rtvout->Command9());
                         Click(rtvout->printing().dialog()->Command1());
                     }) &&
         ok;
    ok = SaveMaximised(*rtvout, folder, "relative-graph-3.png") && ok;
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
    ok = SaveMaximised(*rtvout, folder, "relative-graph-20.png") && ok;
    if (!c.port.failures.isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(c.port.failures.join("; ")));
    c.program->endProgram();
    return ok ? 0 : 1;
}
