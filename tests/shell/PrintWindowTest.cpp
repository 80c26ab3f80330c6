// "Print" of the results window after a typed calculation: the dialog "print" with
// its boxes, previews and copies, and the pages it prints, read back from a PDF file
// with poppler-utils.

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "PrintSupport.h"
#include "ShellTestSupport.h"
#include "shell/PrintDialog.h"
#include "shell/ResultsWindow.h"

using namespace morvane;
using namespace morvane::testing;

class PrintWindowTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    ResultsWindow* results = nullptr;

    PrintDialog* openPrint() {
        Click(results->findChild<QPushButton*>("Command9"));
        PrintDialog* dialog = results->printing().dialog();
        if (dialog == nullptr)
            qFatal("Print opened no dialog");
        return dialog;
    }

  private slots:
    void init() {
        StartResults(f, results);
        QVERIFY(results);
        PrintRoute::setPdfOutput(f->path("printed.pdf"));
    }
    void cleanup() {
        PrintRoute::setPdfOutput(std::nullopt);
        EndProgram(f);
    }

    void printOpensTheDialogAndCancelGivesTheWindowBack() {
        PrintDialog* dialog = openPrint();
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->windowTitle(), QString("print"));
        QCOMPARE(dialog->objectName(), QString("print1"));
        QVERIFY(!results->isEnabled());
        QVERIFY(dialog->isEnabled());
        QCOMPARE(dialog->Check1()->text(), QString("Print"));
        QCOMPARE(dialog->Check3()->text(), QString("Print header"));
        QCOMPARE(dialog->Option1()->text(), QString("Portrait"));
        QCOMPARE(dialog->Option3()->text(), QString("Landscape"));
        QCOMPARE(dialog->Command2()->text(), QString("Cancel"));
        Click(dialog->Command2());
        QVERIFY(!dialog->isVisible());
        QVERIFY(results->isEnabled());
        QVERIFY(!QFile::exists(f->path("printed.pdf")));
    }

    void checksEnableTheirGroupsAndOptionsSwapThePreviews() {
        PrintDialog* dialog = openPrint();
        QVERIFY(dialog->Picture2()->isVisible());
        QVERIFY(!dialog->Picture1()->isVisible());
        QVERIFY(dialog->Picture4()->isVisible());
        QVERIFY(!dialog->Picture3()->isVisible());
        Click(dialog->Option2());
        QVERIFY(dialog->Picture1()->isVisible());
        QVERIFY(!dialog->Picture2()->isVisible());
        Click(dialog->Option4());
        QVERIFY(dialog->Picture3()->isVisible());
        Click(dialog->Check1());
        QVERIFY(!dialog->Text1()->isEnabled());
        QVERIFY(!dialog->Option1()->isEnabled());
        QVERIFY(!dialog->Option2()->isEnabled());
        QVERIFY(!dialog->Check3()->isEnabled());
        QVERIFY(dialog->Text2()->isEnabled());
        Click(dialog->Check1());
        QVERIFY(dialog->Text1()->isEnabled());
        Click(dialog->Command2());
    }

    void copiesBoxesTakeDigitsOnlyAndEmptyBecomesZero() {
        PrintDialog* dialog = openPrint();
        QVERIFY(ShowActive(*dialog));
        dialog->Text1()->setFocus();
        dialog->Text1()->selectAll();
        QTest::keyClicks(dialog->Text1(), "a-2.x");
        QCOMPARE(dialog->Text1()->text(), QString("2"));
        QTest::keyClick(dialog->Text1(), Qt::Key_Backspace);
        dialog->Text2()->setFocus();
        QCOMPARE(dialog->Text1()->text(), QString("0"));
        QCOMPARE(results->printing().form().Text1, std::string("0"));
        Click(dialog->Command2());
    }

    void bothUncheckedOnlyClosesTheDialog() {
        PrintDialog* dialog = openPrint();
        Click(dialog->Check1());
        Click(dialog->Check2());
        Click(dialog->Command1());
        QVERIFY(!dialog->isVisible());
        QVERIFY(results->isEnabled());
        QVERIFY(!QFile::exists(f->path("printed.pdf")));
    }

    void copiesOfTheTablesThenTheChartEachInItsOrientation() {
        PrintDialog* dialog = openPrint();
        TypeInto(dialog->Text1(), "2");
        Click(dialog->Command1());
        QVERIFY(!dialog->isVisible());
        QVERIFY(results->isEnabled());
        const QString pdf = f->path("printed.pdf");
        QVERIFY(QFile::exists(pdf));
        // The tables fit one portrait page; two copies, then the chart in landscape.
        QCOMPARE(PdfPages(pdf), 3);
        QCOMPARE(PdfPageSizes(pdf), QStringList({"595x842", "595x842", "842x595"}));
        const QString tables = PdfText(pdf, 1);
        QCOMPARE(tables, PdfText(pdf, 2));
        const LineResults& line = results->results();
        // The three tables in order: headings of the data, the statistics, the
        // estimates.
        const qsizetype heading = tables.indexOf(QString::fromStdString(line.HeadingFirst()[0]));
        const qsizetype slope = tables.indexOf("Slope");
        const qsizetype chi = tables.indexOf(QString::fromUtf8(kChiSquareText));
        const qsizetype estimate =
            tables.indexOf(QString::fromStdString(line.tables().Grid2.text(2, 0)), slope);
        QVERIFY(heading >= 0);
        QVERIFY(slope > heading);
        QVERIFY(chi > slope);
        QVERIFY(estimate > chi);
        for (int r = 1; r < line.tables().Grid1.rows(); ++r)
            QVERIFY(tables.contains(QString::fromStdString(line.tables().Grid1.text(r, 2))));
        const QString chart = PdfText(pdf, 3);
        QVERIFY(chart.contains("Response percentage") || chart.contains("Probit"));
        QVERIFY(chart.contains(results->chartWidget()->Text7()->text().simplified()));
        QCOMPARE(Count(chart, "Slope"), 0);
        QVERIFY(f->port.messages.empty());
        // The printed page of the documentation, when asked for.
        const QString docs = qEnvironmentVariable("MORVANE_EXPORT_PICTURES");
        if (!docs.isEmpty()) {
            QFile::remove(docs + "/printed-results.pdf");
            QVERIFY(QFile::copy(pdf, docs + "/printed-results.pdf"));
        }
    }

    void chartInPortraitAlone() {
        PrintDialog* dialog = openPrint();
        Click(dialog->Check1());
        Click(dialog->Option4());
        TypeInto(dialog->Text2(), "3");
        Click(dialog->Command1());
        const QString pdf = f->path("printed.pdf");
        QCOMPARE(PdfPages(pdf), 3);
        QCOMPARE(PdfPageSizes(pdf), QStringList({"595x842", "595x842", "595x842"}));
        QCOMPARE(PdfText(pdf, 1), PdfText(pdf, 3));
    }

    void withoutAPrinterThePagesCanBeSavedAsPdf() {
        if (!QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("this machine has a printer");
        PrintRoute::setPdfOutput(std::nullopt);
        PrintDialog* dialog = openPrint();
        Click(dialog->Check2());
        f->port.saveAnswers.push_back(f->path("saved.pdf").toStdString());
        Click(dialog->Command1());
        QCOMPARE(f->port.texts(), QStringList({kNoPrinter}));
        QCOMPARE(f->port.saveDialogs.size(), std::size_t{1});
        QCOMPARE(QString::fromStdString(f->port.saveDialogs[0].title),
                 QString("Save the pages as PDF"));
        QCOMPARE(PdfPages(f->path("saved.pdf")), 1);
        QVERIFY(PdfText(f->path("saved.pdf")).contains("Slope"));
        // Cancelling the save prints nothing and says nothing more.
        f->port.saveAnswers.push_back(std::nullopt);
        dialog = openPrint();
        Click(dialog->Command1());
        QCOMPARE(f->port.texts(), QStringList({kNoPrinter, kNoPrinter}));
        QVERIFY(results->isEnabled());
    }

    void aFolderOfTheChosenNameIsToldAndNothingIsLost() {
        if (!QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("this machine has a printer");
        PrintRoute::setPdfOutput(std::nullopt);
        QVERIFY(QDir(f->folder.path()).mkdir("taken.pdf"));
        PrintDialog* dialog = openPrint();
        Click(dialog->Check2());
        f->port.saveAnswers.push_back(f->path("taken.pdf").toStdString());
        Click(dialog->Command1());
        QCOMPARE(f->port.messages.size(), std::size_t{2});
        QVERIFY(f->port.lastText().startsWith("An error occurred while saving this file.\n"));
        QVERIFY(QFileInfo(f->path("taken.pdf")).isDir());
    }
};

QTEST_MAIN(PrintWindowTest)
#include "PrintWindowTest.moc"
