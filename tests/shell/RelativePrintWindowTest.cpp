// "Print" of the relative results window after a comparison of three strains: the
// dialog print2 with its design values, and the table and chart it prints, read back
// from a PDF file with poppler-utils.

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "PrintSupport.h"
#include "RelativeTestSupport.h"
#include "ShellTestSupport.h"
#include "relative/RelativeExport.h"
#include "relative/RelativePrinting.h"
#include "shell/PrintDialog.h"
#include "shell/RtvinWindow.h"
#include "shell/RtvoutWindow.h"

using namespace morvane;
using namespace morvane::testing;

class RelativePrintWindowTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    RtvoutWindow* out = nullptr;

    PrintDialog* openPrint() {
        Click(out->Command9());
        PrintDialog* dialog = out->printing().dialog();
        if (dialog == nullptr)
            qFatal("Print opened no dialog");
        return dialog;
    }

  private slots:
    void init() {
        StartComparison(f, out);
        QVERIFY(out);
        PrintRoute::setPdfOutput(f->path("printed.pdf"));
    }
    void cleanup() {
        PrintRoute::setPdfOutput(std::nullopt);
        EndProgram(f);
        out = nullptr;
    }

    void dialogOpensWithItsDesignValues() {
        PrintDialog* dialog = openPrint();
        QCOMPARE(dialog->objectName(), QString("print2"));
        QCOMPARE(dialog->windowTitle(), QString("print"));
        QVERIFY(!out->isEnabled());
        QVERIFY(dialog->Check1()->isChecked());
        QVERIFY(dialog->Check2()->isChecked());
        QVERIFY(dialog->Option2()->isChecked());
        QVERIFY(dialog->Option3()->isChecked());
        QCOMPARE(dialog->Text1()->text(), QString("1"));
        QCOMPARE(dialog->Text2()->text(), QString("1"));
        QVERIFY(dialog->Check3() == nullptr);
        QVERIFY(dialog->findChild<QLabel*>() != nullptr);
        bool copys = false;
        for (QLabel* label : dialog->findChildren<QLabel*>())
            copys = copys || label->text() == "no. of copys:";
        QVERIFY(copys);
        Click(dialog->Command2());
        QVERIFY(out->isEnabled());
        QVERIFY(!QFile::exists(f->path("printed.pdf")));
    }

    void threeCopiesOfTheTableThenTheChart() {
        out->Text3()->setText("strains of the spring");
        out->rtvout().Text3 = "strains of the spring";
        PrintDialog* dialog = openPrint();
        TypeInto(dialog->Text1(), "3");
        Click(dialog->Command1());
        QVERIFY(!dialog->isVisible());
        QVERIFY(out->isEnabled());
        const QString pdf = f->path("printed.pdf");
        QCOMPARE(PdfPages(pdf), 4);
        QCOMPARE(PdfPageSizes(pdf), QStringList({"842x595", "842x595", "842x595", "842x595"}));
        const QString table = PdfText(pdf, 1);
        QCOMPARE(PdfText(pdf, 2), table);
        QCOMPARE(PdfText(pdf, 3), table);
        const TextTable& grid = out->rtvout().Grid1;
        const qsizetype header = table.indexOf(QString::fromStdString(grid.text(0, 1)));
        const qsizetype first = table.indexOf(QString::fromStdString(grid.text(1, 1)));
        const qsizetype caption =
            table.indexOf(QString::fromStdString(out->rtvout().Label1).simplified().left(20));
        const qsizetype note = table.indexOf("strains of the spring");
        QVERIFY(header >= 0);
        QVERIFY(first > header);
        QVERIFY(caption > first);
        QVERIFY(note > caption);
        QCOMPARE(Count(table, "strains of the spring"), 1);
        const QString chart = PdfText(pdf, 4);
        for (int r = 1; r < grid.rows(); ++r)
            QVERIFY(chart.contains(QString::fromStdString(grid.text(r, 1))));
        QVERIFY(chart.contains("Probit"));
        const QString docs = qEnvironmentVariable("MORVANE_EXPORT_PICTURES");
        if (!docs.isEmpty()) {
            QFile::remove(docs + "/printed-comparison.pdf");
            QVERIFY(QFile::copy(pdf, docs + "/printed-comparison.pdf"));
        }
    }

    // "Copy graphic" puts the comparison's own chart picture on the clipboard, at one
    // and a half times the plot with the legend beside it; "Copy tables" the text.
    void copyGraphicPutsTheChartPictureOnTheClipboard() {
        out->Tab1()->setCurrentIndex(1);
        QCOMPARE(out->Command10()->text(), QString("Copy graphic"));
        Click(out->Command10());
        const QImage image = QApplication::clipboard()->image();
        const Drawing picture = out->printing().picture();
        QCOMPARE(image.size(), QSize(qRound(picture.width() / 15), qRound(picture.height() / 15)));
        QCOMPARE(picture.height(),
                 kLinePictureTop + out->chart().plotHeight() * kLinePictureScale + 800 + 600);
        out->Tab1()->setCurrentIndex(0);
        Click(out->Command10());
        QCOMPARE(QApplication::clipboard()->text(),
                 QString::fromStdString(RelativeTableText(out->rtvout())));
    }

    void bothOffPrintsNothing() {
        PrintDialog* dialog = openPrint();
        Click(dialog->Check1());
        Click(dialog->Check2());
        QVERIFY(!dialog->Text1()->isEnabled());
        QVERIFY(!dialog->Option3()->isEnabled());
        Click(dialog->Command1());
        QVERIFY(!dialog->isVisible());
        QVERIFY(!QFile::exists(f->path("printed.pdf")));
        // The dialog keeps its settings for the next time.
        dialog = openPrint();
        QVERIFY(!dialog->Check1()->isChecked());
        Click(dialog->Command2());
    }
};

QTEST_MAIN(RelativePrintWindowTest)
#include "RelativePrintWindowTest.moc"
