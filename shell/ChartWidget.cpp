#include "shell/ChartWidget.h"

#include <QEvent>
#include <QPainter>

#include "shell/DrawingPainter.h"
#include "shell/Twips.h"

namespace morvane {
namespace {

constexpr double kLabelPoints = 7.5;

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
    const QPaintDevice& d = *painter.device();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    painter.fillRect(TwipRect(d, 0, 0, layout_.PictureFig.width, layout_.PictureFig.height),
                     QColor(248, 249, 251));
    painter.fillRect(TwipRect(d, layout_.Picture1), Qt::white);
    paintRuling(painter);
    paintPlot(painter);
    paintTicks(painter);
    paintLabels(painter);
    paintAxisTitles(painter);
    painter.restore();
}

// The ruling of the paper: faint lines at the percent labels and the cycles.
void ChartWidget::paintRuling(QPainter& painter) const {
    const QPaintDevice& d = *painter.device();
    const LayoutRect& plot = layout_.Picture1;
    painter.setPen(QPen(QColor(222, 226, 234), 1));
    for (const double y : chart_.PercentRulings()) {
        painter.drawLine(TwipRect(d, plot.left, plot.top + y, plot.width, 0).topLeft(),
                         TwipRect(d, plot.right(), plot.top + y, 0, 0).topLeft());
    }
    for (const LogProbitChart::CycleRule& rule : chart_.CycleRulings()) {
        const double x = plot.left + rule.x;
        painter.drawLine(TwipRect(d, x, plot.top, 0, 0).topLeft(),
                         TwipRect(d, x, plot.bottom(), 0, 0).topLeft());
    }
}

// The plot: the chart's drawing, clipped to its area as the surface clips it, in a
// frame.
void ChartWidget::paintPlot(QPainter& painter) const {
    const LayoutRect& plot = layout_.Picture1;
    const QRectF plotArea = TwipRect(*painter.device(), plot);
    painter.save();
    painter.setClipRect(plotArea);
    PaintDrawing(painter, chart_.drawing(), QPointF(plot.left, plot.top), false);
    painter.restore();
    painter.setPen(QPen(QColor(60, 66, 80), 1.2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(plotArea);
}

// Tick marks at the inner cycle boundaries.
void ChartWidget::paintTicks(QPainter& painter) const {
    const QPaintDevice& d = *painter.device();
    const LayoutRect& plot = layout_.Picture1;
    painter.setPen(QPen(QColor(40, 40, 40), 1.2));
    for (const LogProbitChart::CycleRule& rule : chart_.CycleRulings()) {
        const double x = plot.left + rule.x;
        painter.drawLine(TwipRect(d, x, plot.top + rule.tickTop, 0, 0).topLeft(),
                         TwipRect(d, x, plot.bottom(), 0, 0).topLeft());
    }
}

// The labels of the three strips: doses under the plot, percents to its left,
// probits to its right.
void ChartWidget::paintLabels(QPainter& painter) const {
    const QPaintDevice& d = *painter.device();
    painter.setFont(ToQFont(TextFont{"", kLabelPoints}));
    painter.setPen(QColor(30, 34, 44));
    auto drawLabel = [&](const ChartLabel& label, const LayoutRect& strip,
                         Qt::Alignment alignment) {
        if (label.caption.empty())
            return;
        const QRectF r =
            TwipRect(d, strip.left + label.left, strip.top + label.top, label.width, label.height);
        // A little room beyond the label's box, away from the plot.
        const double left = alignment & Qt::AlignRight ? -20 : alignment & Qt::AlignLeft ? 0 : -20;
        const double right = alignment & Qt::AlignLeft ? 20 : alignment & Qt::AlignRight ? 0 : 20;
        painter.drawText(r.adjusted(left, -4, right, 4), alignment | Qt::AlignVCenter,
                         QString::fromStdString(label.caption));
    };
    const LayoutRect& doses = layout_.Picture2;
    for (int i = 0; i < LogProbitChart::kDoseLabels; ++i)
        drawLabel(chart_.doseLabel(i), doses, Qt::AlignHCenter);
    drawLabel(chart_.leftEndLabel(), doses, Qt::AlignHCenter);
    drawLabel(chart_.rightEndLabel(), doses, Qt::AlignHCenter);
    for (int i = 0; i < LogProbitChart::kPercentLabels; ++i)
        drawLabel(chart_.percentLabel(i), layout_.Picture3, Qt::AlignRight);
    for (int j = 0; j < LogProbitChart::kProbitLabels; ++j)
        drawLabel(chart_.probitLabel(j), layout_.Picture4, Qt::AlignLeft);
}

// The titles of the two vertical axes, turned to read upward.
void ChartWidget::paintAxisTitles(QPainter& painter) const {
    QFont titleFont = ToQFont(TextFont{"", kLabelPoints});
    titleFont.setBold(true);
    titleFont.setPointSizeF(8.5);
    painter.setFont(titleFont);
    auto drawTurned = [&](const LayoutRect& r, const QString& text) {
        const QRectF area = TwipRect(*painter.device(), r);
        painter.save();
        painter.translate(area.center());
        painter.rotate(-90);
        painter.drawText(QRectF(-area.height() / 2, -area.width() / 2, area.height(), area.width()),
                         Qt::AlignCenter, text);
        painter.restore();
    };
    drawTurned(layout_.Pictprcent, "Response percentage");
    drawTurned(layout_.Pictprob, "Probit");
}

}  // namespace morvane
