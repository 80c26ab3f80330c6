#include "shell/WidgetPieces.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>

namespace morvane {

QIcon FitColumnsIcon() {
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(40, 60, 100), 1.6));
    p.drawLine(3, 4, 3, 18);
    p.drawLine(19, 4, 19, 18);
    p.drawLine(6, 11, 16, 11);
    p.drawLine(6, 11, 9, 8);
    p.drawLine(6, 11, 9, 14);
    p.drawLine(16, 11, 13, 8);
    p.drawLine(16, 11, 13, 14);
    return QIcon(pixmap);
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
