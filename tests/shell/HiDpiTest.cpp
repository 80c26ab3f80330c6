// The chart and the tables at a device pixel ratio of 2 (QT_SCALE_FACTOR=2): the
// drawing is painted in logical coordinates on a device of twice the pixels, and the
// legend's samples are bitmaps made at the screen's ratio, so that nothing is blown
// up from half the pixels.

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QTest>

#include "ShellTestSupport.h"
#include "shell/ChartWidget.h"
#include "shell/DrawingPainter.h"
#include "shell/MultiChartWidget.h"
#include "shell/ResultsWindow.h"
#include "shell/Twips.h"
#include "shell/WidgetPieces.h"

using namespace morvane;
using namespace morvane::testing;

class HiDpiTest : public QObject {
    Q_OBJECT

  private slots:
    void screenHasTwoDevicePixelsALogicalOne() {
        QWidget widget;
        widget.resize(200, 100);
        widget.show();
        QCOMPARE(widget.devicePixelRatioF(), 2.0);
    }

    void lineSamplesAreMadeAtTheScreensRatio() {
        QWidget widget;
        widget.show();
        const QPixmap sample =
            LineSamplePixmap(widget, Color{200, 0, 0}, PenStyle::Solid, 700, 240);
        QCOMPARE(sample.devicePixelRatio(), 2.0);
        QCOMPARE(sample.width(), 2 * PixelsX(widget, 700));
        QCOMPARE(sample.height(), 2 * PixelsY(widget, 240));
        // The sample's line crosses the middle in full device pixels of its colour.
        const QImage image = sample.toImage();
        QCOMPARE(QColor(image.pixel(image.width() / 2, image.height() / 2)).red(), 200);
    }

    // The fit-columns button's icon is drawn at each usual ratio, not blown up from
    // its 22 pixels: at ratio 2 it is a 44-pixel picture made for that ratio.
    void theFitColumnsIconIsDrawnAtTheScreensRatio() {
        const QIcon icon = FitColumnsIcon();
        QCOMPARE(icon.availableSizes(),
                 (QList<QSize>{QSize(22, 22), QSize(44, 44), QSize(66, 66)}));
        const QPixmap sharp = icon.pixmap(QSize(22, 22), 2.0);
        QCOMPARE(sharp.size(), QSize(44, 44));
        QCOMPARE(sharp.devicePixelRatio(), 2.0);
    }

    // A slanted line of a drawing is smoothed: pixels beside it take shades between
    // the line's colour and the ground.
    void linesAreAntiAliased() {
        QImage image(QSize(100, 100), QImage::Format_RGB32);
        image.fill(Qt::white);
        Drawing d(1500, 1500);
        d.line(0, 0, 1500, 700);
        QPainter painter(&image);
        PaintDrawing(painter, d);
        painter.end();
        int shades = 0;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                const int l = QColor(image.pixel(x, y)).lightness();
                if (l > 40 && l < 215)
                    ++shades;
            }
        }
        QVERIFY2(shades > 50, qPrintable(QString::number(shades)));
    }

    void chartIsPaintedOnTwiceThePixels() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        NewLine(f);
        TypeAssay(main);
        Click(main.CommandCalc());
        ResultsWindow* results = f.program->resultsWindow();
        QVERIFY(results);
        QVERIFY(ShowActive(*results));
        auto* chart = results->findChild<ChartWidget*>("PictureFig");
        QVERIFY(chart);
        const QPixmap shot = chart->grab();
        QCOMPARE(shot.devicePixelRatio(), 2.0);
        QCOMPARE(shot.width(), 2 * chart->width());
        // The plot's frame, one logical pixel wide on its left edge, is dark on the
        // device pixels of that edge and nowhere blurred over four of them.
        const QImage image = shot.toImage();
        const QRect plot = chart->plotRect();
        const int y = 2 * plot.center().y();
        int dark = 0;
        for (int x = 2 * plot.left() - 3; x <= 2 * plot.left() + 3; ++x) {
            if (QColor(image.pixel(x, y)).lightness() < 140)
                ++dark;
        }
        QVERIFY2(dark >= 1 && dark <= 3, qPrintable(QString::number(dark)));
        QVERIFY2(f.port.failures.isEmpty(), qPrintable(f.port.failures.join("; ")));
    }
};

int main(int argc, char** argv) {
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication app(argc, argv);
    HiDpiTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "HiDpiTest.moc"
