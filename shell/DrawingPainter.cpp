#include "shell/DrawingPainter.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPen>
#include <cmath>
#include <type_traits>
#include <variant>

namespace morvane {
namespace {

Qt::PenStyle ToQtPenStyle(PenStyle style) {
    switch (style) {
        case PenStyle::Solid:
            return Qt::SolidLine;
        case PenStyle::Dash:
            return Qt::DashLine;
        case PenStyle::Dot:
            return Qt::DotLine;
        case PenStyle::DashDot:
            return Qt::DashDotLine;
        case PenStyle::DashDotDot:
            return Qt::DashDotDotLine;
    }
    return Qt::SolidLine;
}

bool Finite(double a, double b) {
    return std::isfinite(a) && std::isfinite(b);
}

// Twips to device pixels.
class Mapper {
  public:
    Mapper(const QPaintDevice& device, QPointF offset)
        : sx_(device.logicalDpiX() / kTwipsPerInch),
          sy_(device.logicalDpiY() / kTwipsPerInch),
          penScale_(device.logicalDpiX() / 96.0),
          offset_(offset) {}
    QPointF point(double x, double y) const {
        return {(x + offset_.x()) * sx_, (y + offset_.y()) * sy_};
    }
    double penWidth(int units) const { return units * penScale_; }

  private:
    double sx_, sy_, penScale_;
    QPointF offset_;
};

void PaintText(QPainter& painter, const Mapper& map, const draw::Text& t) {
    QFont font = ToQFont(t.font);
    painter.setFont(font);
    painter.setPen(ToQColor(t.color));
    const QFontMetricsF metrics(font, painter.device());
    const QString text = QString::fromStdString(t.text);
    const double width = metrics.horizontalAdvance(text);
    double dx = 0;
    if (t.horizontal == HorizontalAnchor::Centre)
        dx = -width / 2;
    if (t.horizontal == HorizontalAnchor::Right)
        dx = -width;
    double dy = metrics.ascent();
    if (t.vertical == VerticalAnchor::Middle)
        dy = metrics.ascent() - metrics.height() / 2;
    if (t.vertical == VerticalAnchor::Bottom)
        dy = -metrics.descent();
    const QPointF at = map.point(t.x, t.y);
    painter.save();
    painter.translate(at);
    if (t.angle != 0)
        painter.rotate(-t.angle);
    painter.drawText(QPointF(dx, dy), text);
    painter.restore();
}

}  // namespace

QColor ToQColor(Color color) {
    return QColor(color.red, color.green, color.blue);
}

QFont ToQFont(const TextFont& font) {
    QFont f;
    if (!font.family.empty())
        f.setFamily(QString::fromStdString(font.family));
    f.setPointSizeF(font.points);
    f.setBold(font.bold);
    f.setItalic(font.italic);
    f.setUnderline(font.underline);
    return f;
}

void PaintDrawing(QPainter& painter, const Drawing& drawing, QPointF offsetTwips,
                  bool fillOnClear) {
    const QPaintDevice* device = painter.device();
    if (!device)
        return;
    const Mapper map(*device, offsetTwips);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    for (const DrawOp& op : drawing.ops()) {
        std::visit(
            [&](const auto& o) {
                using T = std::decay_t<decltype(o)>;
                if constexpr (std::is_same_v<T, draw::Clear>) {
                    if (!fillOnClear)
                        return;
                    painter.fillRect(
                        QRectF(map.point(0, 0), map.point(drawing.width(), drawing.height())),
                        ToQColor(o.back));
                } else if constexpr (std::is_same_v<T, draw::Line>) {
                    if (!Finite(o.x1, o.y1) || !Finite(o.x2, o.y2))
                        return;
                    QPen pen(ToQColor(o.color), map.penWidth(o.width), ToQtPenStyle(o.style),
                             Qt::FlatCap);
                    painter.setPen(pen);
                    QPointF from = map.point(o.x1, o.y1), to = map.point(o.x2, o.y2);
                    // A level or upright line of odd width stands on the middle of its
                    // pixels, so that it is drawn sharp rather than smeared over two.
                    if (static_cast<int>(std::lround(map.penWidth(o.width))) % 2 == 1) {
                        if (from.y() == to.y())
                            from.ry() = to.ry() = std::floor(from.y()) + 0.5;
                        if (from.x() == to.x())
                            from.rx() = to.rx() = std::floor(from.x()) + 0.5;
                    }
                    painter.drawLine(from, to);
                } else if constexpr (std::is_same_v<T, draw::Box>) {
                    if (!Finite(o.x1, o.y1) || !Finite(o.x2, o.y2))
                        return;
                    const QRectF rect =
                        QRectF(map.point(o.x1, o.y1), map.point(o.x2, o.y2)).normalized();
                    if (o.filled) {
                        painter.fillRect(rect, ToQColor(o.color));
                    } else {
                        painter.setPen(
                            QPen(ToQColor(o.color), map.penWidth(o.width), ToQtPenStyle(o.style)));
                        painter.setBrush(Qt::NoBrush);
                        painter.drawRect(rect);
                    }
                } else if constexpr (std::is_same_v<T, draw::Point>) {
                    if (!Finite(o.x, o.y))
                        return;
                    const double d = map.penWidth(o.width);
                    painter.setPen(Qt::NoPen);
                    painter.setBrush(ToQColor(o.color));
                    painter.drawEllipse(map.point(o.x, o.y), d / 2 + 0.5, d / 2 + 0.5);
                    painter.setBrush(Qt::NoBrush);
                } else if constexpr (std::is_same_v<T, draw::Text>) {
                    if (!Finite(o.x, o.y))
                        return;
                    PaintText(painter, map, o);
                }
            },
            op);
    }
    painter.restore();
}

}  // namespace morvane
