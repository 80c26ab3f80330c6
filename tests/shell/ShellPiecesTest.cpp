// The smaller windows and pieces of the desktop program: the splash and its timing,
// the help viewer, the probit converter, the notes sheet, "Change options", the
// painter of drawings, the table view and the file filters of the dialogs.

#include <QDate>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QTest>

#include "ShellTestSupport.h"
#include "core/Drawing.h"
#include "shell/ChangeOptionsDialog.h"
#include "shell/DrawingPainter.h"
#include "shell/HelpWindow.h"
#include "shell/LogoWindow.h"
#include "shell/NotesDialog.h"
#include "shell/ProbitDialog.h"
#include "shell/QtUserPort.h"
#include "shell/TextTableView.h"
#include "shell/Twips.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

void WritePage(const QString& path, const QString& body) {
    QFile page(path);
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write(("<html><body>" + body + "</body></html>").toUtf8());
}

}  // namespace

class ShellPiecesTest : public QObject {
    Q_OBJECT

  private slots:
    void splashShowsTheMainWindowAfterTheSeventhFrameAndASecond() {
        QWidget main;
        main.resize(400, 300);
        QPointer<LogoWindow> logo = new LogoWindow([&]() -> QWidget* { return &main; });
        QElapsedTimer clock;
        clock.start();
        logo->start();
        QVERIFY(logo->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(logo && logo->mainWindow() != nullptr, 5000);
        // Loaded at the seventh frame: 500 ms before the first, then 100 ms each.
        QCOMPARE(logo->frameCounter(), LogoWindow::kFrames);
        QVERIFY(clock.elapsed() >= 500 + 7 * 100 - 20);
        QVERIFY(!main.isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(main.isVisible(), 5000);
        QVERIFY(clock.elapsed() >= 500 + 7 * 100 + 1000 - 20);
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        QCOMPARE(main.x(), screen.left() + (screen.width() - main.width()) / 2);
        QCOMPARE(main.y(), screen.top() + (screen.height() - main.height()) / 2);
        QTRY_VERIFY(logo.isNull());
    }

    void splashFramesDiffer() {
        const QSize size(480, 280);
        QImage first = LogoWindow::Frame(0, size).toImage();
        for (int i = 1; i < LogoWindow::kFrames; ++i) {
            QImage frame = LogoWindow::Frame(i, size).toImage();
            QVERIFY(frame != first);
            first = frame;
        }
    }

    void helpHomeReturnsToThePageItWasOpenedWith() {
        QTemporaryDir folder;
        const QString dir = folder.path() + "/";
        WritePage(dir + "Hmain.htm", "<h1>Main</h1>");
        WritePage(dir + "Hnew.htm", "<h1>New line</h1>");
        QtScriptedPort port;
        HelpWindow help(port);
        OpenHelp(help, dir, "Hnew.htm", port);
        QCOMPARE(help.HelpPage(), dir + "Hnew.htm");
        QVERIFY(help.WB1()->toPlainText().contains("New line"));
        help.WB1()->setSource(QUrl::fromLocalFile(dir + "Hmain.htm"));
        QVERIFY(help.WB1()->toPlainText().contains("Main"));
        Click(help.Command1());  // Back
        QVERIFY(help.WB1()->toPlainText().contains("New line"));
        help.WB1()->setSource(QUrl::fromLocalFile(dir + "Hmain.htm"));
        Click(help.Command2());  // Home
        QVERIFY(help.WB1()->toPlainText().contains("New line"));
        QCOMPARE(help.currentPage(), dir + "Hnew.htm");
        Click(help.Command3());  // About
        QCOMPARE(Text(port.messages.back().title), QString("About"));
        QVERIFY(port.lastText().startsWith("Morvane"));
    }

    void helpOpensAtItsSizeAndASmallWindowKeepsTheBrowser() {
        QtScriptedPort port;
        HelpWindow help(port);
        QCOMPARE(help.width(), PixelsX(help, 11700 - kWindowFrameWidth));
        QCOMPARE(help.height(), PixelsY(help, 8400 - kWindowFrameHeight));
        help.show();
        help.resize(PixelsX(help, 9000), PixelsY(help, 6000));
        const QSize browser = help.WB1()->size();
        QCOMPARE(browser.width(), PixelsX(help, 9000 + kWindowFrameWidth - 300));
        help.resize(PixelsX(help, 7000), PixelsY(help, 1500));
        QCOMPARE(help.WB1()->size(), browser);
    }

    void missingHelpPageShowsTheBrowsersNotice() {
        QtScriptedPort port;
        HelpWindow help(port);
        QVERIFY(help.navigate("/nowhere/Hrtvin.htm"));
        QVERIFY(help.WB1()->toPlainText().contains("could not be found"));
        QVERIFY(port.messages.empty());
    }

    void probitConverterWindow() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        Click(main.CommandProbit());
        ProbitDialog& probit = f.program->probitDialog();
        QVERIFY(probit.isVisible());
        QCOMPARE(probit.windowTitle(), QString("Probit"));
        QVERIFY(!main.contentEnabled());
        QVERIFY(f.program->shared().probit.visible());
        TypeInto(probit.Text1(), "0.05");
        QCOMPARE(probit.Label1()->text(), QString("out of scale"));
        TypeInto(probit.Text1(), "5a0");
        QCOMPARE(probit.Text1()->text(), QString("50"));
        QCOMPARE(probit.Label1()->text(), QString("5"));
        TypeInto(probit.Text2(), "8.1");
        QCOMPARE(probit.Label2()->text(), QString("out of scale"));
        probit.Tab1()->setCurrentIndex(1);
        TypeInto(probit.Text3(), "5");
        TypeInto(probit.Text4(), "150");
        QCOMPARE(probit.Text4()->text(), QString("100"));
        TypeInto(probit.Text4(), "0");
        QCOMPARE(probit.Text4()->text(), QString());
        QCOMPARE(probit.Label12()->text(), QString("3.7467"));
        probit.close();
        QVERIFY(!probit.isVisible());
        QVERIFY(main.contentEnabled());
        QVERIFY(!f.program->shared().probit.visible());
        // Opened again, the boxes are empty.
        Click(main.CommandProbit());
        QCOMPARE(probit.Text1()->text(), QString());
        QCOMPARE(probit.Label1()->text(), QString());
        probit.close();
    }

    void notesSheet() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        NewLine(f);
        TypeInto(main.TextName(), "Permethrin");
        QVERIFY(main.CommandInf_form()->isEnabled());
        Click(main.CommandInf_form());
        NotesDialog* notes = f.program->notesDialog();
        QVERIFY(notes && notes->isVisible());
        QCOMPARE(notes->windowTitle(), QString("Information sheet"));
        QCOMPARE(notes->Text1()->text(), QString("Permethrin"));
        QVERIFY(!main.contentEnabled());
        TypeInto(notes->Text2(), "Aedes aegypti");
        TypeInto(notes->Text5(), "0x");
        QCOMPARE(notes->Text5()->text(), QString("0"));
        Click(notes->Command3());
        QCOMPARE(notes->Text3()->text(), QDate::currentDate().toString("dd / MM / yyyy"));
        Click(notes->Command1());
        QVERIFY(!notes->isVisible());
        QVERIFY(main.contentEnabled());
        QCOMPARE(Text(f.program->document().notes().TreatedTarget), QString("Aedes aegypti"));
        QVERIFY(main.CommandSave()->isEnabled());
    }

    void notesOkMarksTheFileChangedThroughTheTreatmentName() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        NewLine(f);
        f.port.saveAnswers.push_back(f.path("saved.mrv").toStdString());
        Click(main.CommandSave());
        QVERIFY(!main.CommandSave()->isEnabled());
        Click(main.CommandInf_form());
        Click(f.program->notesDialog()->Command1());
        QVERIFY(main.CommandSave()->isEnabled());
    }

    void notesSheetWidthsFollowTheWindow() {
        ShellFixture f;
        Click(f.program->mainWindow().CommandInf_form());
        f.program->openNotes();
        NotesDialog* notes = f.program->notesDialog();
        notes->resize(PixelsX(*notes, 9000), PixelsY(*notes, 5000));
        const double width = TwipsX(*notes, notes->width()) + kWindowFrameWidth;
        QCOMPARE(notes->Text1()->width(), PixelsX(*notes, width - 2000));
        QCOMPARE(notes->Text3()->width(), PixelsX(*notes, width - 2000 - 2250));
        Click(notes->Command2());
    }

    void changeOptionsRewritesTheHeadings() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        NewLine(f);
        Click(main.CommandChgangeOptions());
        ChangeOptionsDialog* change = f.program->changeOptionsDialog();
        QVERIFY(change && change->isVisible());
        QCOMPARE(change->windowTitle(), QString("Change options"));
        QCOMPARE(change->Combo5()->currentText(), QString("Dose"));
        QCOMPARE(change->Text5()->text(), QString("mg"));
        QCOMPARE(change->Combo7()->currentText(), QString("0.05"));
        change->Combo5()->setCurrentText("Con.");
        TypeInto(change->Text5(), "ppm");
        Click(change->OK());
        QVERIFY(!change->isVisible());
        QCOMPARE(main.Grid1()->cellText(0, dosecol::Dose), QString("Con.\n(ppm)"));
        QVERIFY(main.CommandSave()->isEnabled());
        QVERIFY(main.contentEnabled());
    }

    void painterMapsTwipsToPixels() {
        QImage image(200, 200, QImage::Format_RGB32);
        image.setDotsPerMeterX(3780);  // 96 dots per inch: 15 twips a pixel
        image.setDotsPerMeterY(3780);
        Drawing drawing(3000, 3000);
        drawing.clear();
        drawing.line(0, 720, 1440, 720);
        drawing.setPenWidth(3);
        drawing.point(2000, 2000, kRed);
        {
            QPainter painter(&image);
            PaintDrawing(painter, drawing);
        }
        QVERIFY(qGray(image.pixel(48, 48)) < 100);   // on the line, half an inch down
        QVERIFY(qGray(image.pixel(48, 40)) > 240);   // above it
        QVERIFY(qGray(image.pixel(100, 48)) > 240);  // beyond its end at one inch
        const QColor dot = image.pixelColor(133, 133);
        QVERIFY(dot.red() > 200 && dot.green() < 80);
    }

    void painterLeavesOutWhatIsNotFinite() {
        QImage image(50, 50, QImage::Format_RGB32);
        image.fill(Qt::white);
        Drawing drawing(750, 750);
        drawing.line(0, 0, std::numeric_limits<double>::infinity(), 300);
        QPainter painter(&image);
        PaintDrawing(painter, drawing);
        painter.end();
        for (int x = 0; x < 50; ++x)
            QCOMPARE(image.pixelColor(x, 2), QColor(Qt::white));
    }

    void tableViewShowsTheTable() {
        TextTable table(3, 3);
        table.setText(0, 1, "Response\n%");
        table.setText(1, 1, "12.000");
        table.setFore(1, 1, kRed);
        table.setBack(2, 0, Color{200, 255, 200});
        table.setColumnWidth(0, 300);
        table.setColumnWidth(1, 1000);
        table.setColumnWidth(2, 0);
        table.setRowHeight(0, 500);
        TextTableView view;
        view.setTable(&table);
        view.show();
        QCOMPARE(view.model()->rowCount(), 2);
        QCOMPARE(view.cellText(0, 1), QString("Response\n%"));
        QCOMPARE(view.cellText(1, 1), QString("12.000"));
        QVERIFY(view.isColumnHidden(2));
        QVERIFY(!view.isColumnHidden(1));
        QVERIFY(view.columnWidth(1) >= PixelsX(view, 1000));
        QCOMPARE(view.model()->data(view.model()->index(0, 1), Qt::ForegroundRole).value<QColor>(),
                 QColor(255, 0, 0));
        QCOMPARE(view.model()->data(view.model()->index(1, 0), Qt::BackgroundRole).value<QColor>(),
                 QColor(200, 255, 200));
        table.setText(2, 1, "new");
        view.refresh();
        QCOMPARE(view.cellText(2, 1), QString("new"));
    }

    void fileFiltersOfTheDialogs() {
        QCOMPARE(QtFileFilter("Morvane files (*.mrv)|*.mrv"), QString("Morvane files (*.mrv)"));
        QCOMPARE(QtFileFilter("Text|*.txt;*.csv|All files|*.*"),
                 QString("Text (*.txt *.csv);;All files (*.*)"));
    }
};

QTEST_MAIN(ShellPiecesTest)
#include "ShellPiecesTest.moc"
