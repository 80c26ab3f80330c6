#include "shell/MultiChartWidget.h"

#include <QPainter>
#include <QResizeEvent>

#include "shell/DrawingPainter.h"
#include "shell/Twips.h"

namespace morvane {

QPixmap LineSamplePixmap(const QWidget& widget, Color color, PenStyle style, double widthTwips,
                         double heightTwips) {
    QPixmap pixmap(std::max(1, PixelsX(widget, widthTwips)),
                   std::max(1, PixelsY(widget, heightTwips)));
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
    painter.fillRect(rect(), QColor(248, 249, 251));
    paintFigure(painter);
}

void MultiChartWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    emit resized();
}

}  // namespace morvane
