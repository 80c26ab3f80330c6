// "Save results into files" and "Copy graphic" of the results window after a typed
// calculation: both dialogs every time, the .xls file holding the copied tables'
// text, the chart picture as BMP, PNG, SVG and PDF at one and a half times the chart,
// and the chart on the clipboard.

#include <QClipboard>
#include <QFile>
#include <QImage>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "ShellTestSupport.h"
#include "results/ChartPicture.h"
#include "shell/PictureExport.h"
#include "shell/ResultsWindow.h"

using namespace morvane;
using namespace morvane::testing;

class ResultsExportWindowTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    ResultsWindow* results = nullptr;

    template <class T>
    T* child(const char* name) const {
        return NamedChild<T>(results, name, "the results window");
    }

    QByteArray fileBytes(const QString& name) const { return FileBytes(f->path(name)); }

    // The picture's expected size in pixels: the chart frame at one and a half times,
    // at 96 dots to the inch.
    QSize pictureSize() const {
        const ChartLayout& layout = child<ChartWidget>("PictureFig")->chartLayout();
        return QSize(qRound(layout.PictureFig.width * kPictureScale / 15),
                     qRound(layout.PictureFig.height * kPictureScale / 15));
    }

  private slots:
    void init() { StartResults(f, results); }
    void cleanup() { EndProgram(f); }

    void saveOnTheTablesTabOffersBothFilesAndCancellingTheFirstKeepsTheSecond() {
        QCOMPARE(child<QTabWidget>("Tab1")->currentIndex(), 0);
        f->port.saveAnswers.push_back(std::nullopt);
        f->port.saveAnswers.push_back(f->path("chart.bmp").toStdString());
        Click(child<QPushButton>("Command5"));
        QCOMPARE(f->port.saveDialogs.size(), std::size_t{2});
        QCOMPARE(QString::fromStdString(f->port.saveDialogs[0].title),
                 QString("Save results as spreadsheet"));
        QCOMPARE(QString::fromStdString(f->port.saveDialogs[1].title),
                 QString("Save chart as bmp file"));
        QVERIFY(f->port.messages.empty());
        QImage bmp;
        QVERIFY(bmp.loadFromData(fileBytes("chart.bmp"), "BMP"));
        QCOMPARE(bmp.size(), pictureSize());
        QVERIFY(!QFile::exists(f->path("results.xls")));
    }

    void spreadsheetFileHoldsTheTablesTextAndPicturesFollowTheExtension() {
        const char* names[] = {"chart.png", "chart.svg", "chart.pdf"};
        for (const char* picture : names) {
            f->port.saveAnswers.push_back(f->path("results.xls").toStdString());
            if (QFile::exists(f->path("results.xls")))
                f->port.answers.push_back(Answer::Yes);
            f->port.saveAnswers.push_back(f->path(picture).toStdString());
            Click(child<QPushButton>("Command5"));
        }
        QCOMPARE(fileBytes("results.xls"),
                 QByteArray::fromStdString(results->results().ResultsText()));
        QVERIFY(fileBytes("results.xls").contains("Slope"));
        QCOMPARE(f->port.texts(),
                 QStringList({"File with the same name \"results.xls\" already exist.\nDo you "
                              "want to replace the existing file?",
                              "File with the same name \"results.xls\" already exist.\nDo you "
                              "want to replace the existing file?"}));
        QImage png;
        QVERIFY(png.loadFromData(fileBytes("chart.png"), "PNG"));
        QCOMPARE(png.size(), pictureSize());
        const QByteArray svg = fileBytes("chart.svg");
        QVERIFY(svg.startsWith("<?xml"));
        QVERIFY(svg.contains("<svg"));
        QVERIFY(svg.contains("Probit"));
        QVERIFY(fileBytes("chart.pdf").startsWith("%PDF-"));
        // The pictures of the documentation, when asked for.
        const QString docs = qEnvironmentVariable("MORVANE_EXPORT_PICTURES");
        if (!docs.isEmpty()) {
            QFile::remove(docs + "/exported-chart.svg");
            QFile::remove(docs + "/exported-chart.png");
            QVERIFY(QFile::copy(f->path("chart.svg"), docs + "/exported-chart.svg"));
            QVERIFY(QFile::copy(f->path("chart.png"), docs + "/exported-chart.png"));
        }
    }

    void workbookNameWritesARealWorkbook() {
        f->port.saveAnswers.push_back(f->path("results.xlsx").toStdString());
        f->port.saveAnswers.push_back(std::nullopt);
        Click(child<QPushButton>("Command5"));
        const QByteArray book = fileBytes("results.xlsx");
        QVERIFY(book.startsWith("PK\x03\x04"));
        QVERIFY(book.contains("xl/worksheets/sheet2.xml"));
        QVERIFY(f->port.messages.empty());
    }

    void copyGraphicPutsThePictureOnTheClipboard() {
        child<QTabWidget>("Tab1")->setCurrentIndex(1);
        QCOMPARE(child<QPushButton>("Command10")->text(), QString("Copy graphic"));
        QApplication::clipboard()->clear();
        Click(child<QPushButton>("Command10"));
        const QImage image = QApplication::clipboard()->image();
        QCOMPARE(image.size(), pictureSize());
        // The frame's boxes stand from 1000 to 1008 twips from the left, that is at
        // pixel 67, and the picture is white beyond them.
        QVERIFY(qGray(image.pixel(67, 100)) < 128);
        QCOMPARE(qGray(image.pixel(72, 100)), 255);
        QVERIFY(f->port.messages.empty());
    }
};

QTEST_MAIN(ResultsExportWindowTest)
#include "ResultsExportWindowTest.moc"
