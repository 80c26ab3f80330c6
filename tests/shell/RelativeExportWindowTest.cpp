// "Save results into files" of the comparison window: the table text in the .xls
// file (the text that "Copy tables" gives), both dialogs every time, the replace
// question, and the chart picture in the format of its name.

#include <QFile>
#include <QImage>
#include <QTest>

#include "RelativeTestSupport.h"
#include "ShellTestSupport.h"
#include "relative/RelativeExport.h"
#include "relative/RelativePrinting.h"
#include "shell/MultiChartWidget.h"
#include "shell/RtvinWindow.h"
#include "shell/RtvoutWindow.h"

using namespace morvane;
using namespace morvane::testing;

class RelativeExportWindowTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    RtvoutWindow* out = nullptr;

    QByteArray fileBytes(const QString& name) const { return FileBytes(f->path(name)); }

  private slots:
    void init() {
        StartComparison(f, out);
        QVERIFY(out);
    }
    void cleanup() {
        EndProgram(f);
        out = nullptr;
    }

    // The chart's picture is composed afresh from the chart of the "Graph" tab, at one
    // and a half times its plot, with the legend beside it.
    void tableTextAndChartGoIntoTheirFiles() {
        out->Tab1()->setCurrentIndex(1);
        const Drawing picture = out->printing().picture();
        QCOMPARE(picture.height(),
                 kLinePictureTop + out->chart().plotHeight() * kLinePictureScale + 800 + 600);
        const QSize chartSize(qRound(picture.width() / 15), qRound(picture.height() / 15));
        f->port.saveAnswers.push_back(f->path("strains.xls").toStdString());
        f->port.saveAnswers.push_back(f->path("strains.png").toStdString());
        Click(out->Command5());
        QCOMPARE(f->port.saveDialogs.size(), std::size_t{2});
        QCOMPARE(QString::fromStdString(f->port.saveDialogs[0].title),
                 QString("Save results as spreadsheet"));
        QCOMPARE(QString::fromStdString(f->port.saveDialogs[1].title),
                 QString("Save chart as bmp file"));
        QCOMPARE(fileBytes("strains.xls"),
                 QByteArray::fromStdString(RelativeTableText(out->rtvout())));
        QImage png;
        QVERIFY(png.loadFromData(fileBytes("strains.png"), "PNG"));
        QCOMPARE(png.size(), chartSize);
        QVERIFY(f->port.messages.empty());
    }

    void takenNameAsksAndNoOpensTheDialogAgainThenCancelKeepsTheOldFile() {
        QFile old(f->path("strains.xls"));
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("old");
        old.close();
        f->port.saveAnswers.push_back(f->path("strains.xls").toStdString());
        f->port.answers.push_back(Answer::No);
        f->port.saveAnswers.push_back(std::nullopt);
        f->port.saveAnswers.push_back(std::nullopt);
        Click(out->Command5());
        QCOMPARE(f->port.saveDialogs.size(), std::size_t{3});
        QCOMPARE(f->port.texts(),
                 QStringList({"File with the same name \"strains.xls\" already "
                              "exist.\nDo you want to replace the existing file?"}));
        QCOMPARE(fileBytes("strains.xls"), QByteArray("old"));
    }
};

QTEST_MAIN(RelativeExportWindowTest)
#include "RelativeExportWindowTest.moc"
