#include "shell/CaptionTabs.h"

#include <QFontMetrics>
#include <algorithm>

namespace morvane {
namespace {

// Room around a caption, in pixels: beside it, and above and below it.
constexpr int kSideRoom = 12;
constexpr int kLineRoom = 10;

}  // namespace

QSize CaptionTabBar::tabSizeHint(int index) const {
    QSize size = QTabBar::tabSizeHint(index);
    const QRect text =
        fontMetrics().boundingRect(QRect(0, 0, 4000, 4000), Qt::AlignCenter, tabText(index));
    size.setWidth(std::max(size.width(), text.width() + 2 * kSideRoom));
    size.setHeight(std::max(size.height(), text.height() + 2 * kLineRoom));
    return size;
}

CaptionTabWidget::CaptionTabWidget(QWidget* parent) : QTabWidget(parent) {
    setTabBar(new CaptionTabBar(this));
}

}  // namespace morvane
