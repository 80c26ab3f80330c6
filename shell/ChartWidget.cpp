#include "shell/ChartWidget.h"

#include <QEvent>
#include <QPainter>

#include "results/ChartFigure.h"
#include "shell/DrawingPainter.h"
#include "shell/Twips.h"

namespace morvane {
namespace {

QRectF TwipRect(const QPaintDevice& d, double left, double top, double width, double height) {
    return QRectF(left * PixelsPerTwipX(d), top * PixelsPerTwipY(d), width * PixelsPerTwipX(d),
                  height * PixelsPerTwipY(d));
}

QRectF TwipRect(const QPaintDevice& d, const LayoutRect& r) {
    return TwipRect(d, r.left, r.top, r.width, r.height);
}

}  // namespace

ChartWidget::ChartWidget(LogProbitChart& chart, QWidget* parent) : QWidget(parent), chart_(chart) {
    setObjectName("PictureFig");
    text7_ = new QLineEdit(this);
    text7_->setObjectName("Text7");
    text7_->setAlignment(Qt::AlignCenter);
    text7_->setFrame(false);
    text7_->setStyleSheet("background: transparent;");
    QFont title = text7_->font();
    title.setBold(true);
    text7_->setFont(title);
    text7_->installEventFilter(this);
    setAutoFillBackground(false);
}

// The title has no border until it has the focus, so that it reads as a title and
// can still be retyped in place.
bool ChartWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched == text7_) {
        if (event->type() == QEvent::FocusIn) {
            text7_->setFrame(true);
            text7_->setStyleSheet({});
        } else if (event->type() == QEvent::FocusOut) {
            text7_->setFrame(false);
            text7_->setStyleSheet("background: transparent;");
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ChartWidget::setChartLayout(const ChartLayout& layout) {
    layout_ = layout;
    const LayoutRect& fig = layout.PictureFig;
    setGeometry(TwipRect(*this, fig).toRect());
    text7_->setGeometry(TwipRect(*this, layout.Text7).toRect());
    chart_.setPlotSize(layout.Picture1.width, layout.Picture1.height);
    chart_.setPercentStripHeight(layout.Picture3.height);
    update();
}

QRect ChartWidget::plotRect() const {
    return TwipRect(*this, layout_.Picture1).toRect();
}

void ChartWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintFigure(painter);
}

void ChartWidget::paintFigure(QPainter& painter) const {
    PaintDrawing(painter, ComposeChartFigure(chart_, layout_));
}

}  // namespace morvane
