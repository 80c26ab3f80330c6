#include "shell/MultiChartWidget.h"

#include <QPainter>
#include <QResizeEvent>
#include <cmath>

#include "shell/DrawingPainter.h"
#include "shell/Twips.h"

namespace morvane {

QPixmap LineSamplePixmap(const QWidget& widget, Color color, PenStyle style, double widthTwips,
                         double heightTwips) {
    // Made at the screen's device pixel ratio, so that the sample is sharp on a screen
    // of high density; the painter keeps counting in logical pixels.
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap pixmap(
        std::max(1, static_cast<int>(std::lround(PixelsX(widget, widthTwips) * ratio))),
        std::max(1, static_cast<int>(std::lround(PixelsY(widget, heightTwips) * ratio))));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    Drawing sample(widthTwips, heightTwips);
    sample.setPenStyle(style);
    sample.setPenWidth(2);
    sample.line(60, heightTwips / 2, widthTwips - 60, heightTwips / 2, color);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing, true);
    PaintDrawing(painter, sample);
    return pixmap;
}

MultiChartWidget::MultiChartWidget(QWidget* parent) : QWidget(parent) {
    setObjectName("Picture1");
}

void MultiChartWidget::setFigure(Drawing figure) {
    figure_ = std::move(figure);
    update();
}

double MultiChartWidget::widthTwips() const {
    return TwipsX(*this, width());
}

double MultiChartWidget::heightTwips() const {
    return TwipsY(*this, height());
}

void MultiChartWidget::paintFigure(QPainter& painter) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    PaintDrawing(painter, figure_);
    painter.restore();
}

void MultiChartWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintFigure(painter);
}

void MultiChartWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    emit resized();
}

}  // namespace morvane
