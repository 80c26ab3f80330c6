#include "shell/WidgetPieces.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>

namespace morvane {

// Drawn once for each usual screen scale, so that the icon stays sharp on a
// high-density screen: Qt picks the pixmap whose device pixel ratio fits.
QIcon FitColumnsIcon() {
    QIcon icon;
    for (int scale = 1; scale <= 3; ++scale) {
        QPixmap pixmap(22 * scale, 22 * scale);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(QColor(40, 60, 100), 1.6));
        p.drawLine(QLineF(3, 4, 3, 18));
        p.drawLine(QLineF(19, 4, 19, 18));
        p.drawLine(QLineF(6, 11, 16, 11));
        p.drawLine(QLineF(6, 11, 9, 8));
        p.drawLine(QLineF(6, 11, 9, 14));
        p.drawLine(QLineF(16, 11, 13, 8));
        p.drawLine(QLineF(16, 11, 13, 14));
        p.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

void MakeBold(QLabel& label) {
    QFont font = label.font();
    font.setBold(true);
    label.setFont(font);
}

QLabel* ValueLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    MakeBold(*label);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

void LeaveBoxWithin(const QWidget& window, const std::function<bool()>& leave,
                    const std::function<void()>& refresh, const std::function<void()>& refocus) {
    QWidget* next = QApplication::focusWidget();
    if (!next || next->window() != &window)
        return;
    const bool ok = leave();
    refresh();
    if (!ok)
        refocus();
}

}  // namespace morvane
