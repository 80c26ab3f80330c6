#include "shell/WindowPlacement.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace morvane {
namespace {

constexpr int kGap = 8;
constexpr int kCascade = 40;

}  // namespace

QPoint PlaceBeside(const QSize& size, const QRect& asker, const QRect& screen) {
    const bool roomRight = asker.right() + kGap + size.width() <= screen.right() + 1;
    const bool roomLeft = asker.left() - kGap - size.width() >= screen.left();
    int x = asker.left() + kCascade;
    int y = asker.top() + kCascade;
    if (roomRight || roomLeft) {
        x = roomRight ? asker.right() + 1 + kGap : asker.left() - kGap - size.width();
        y = asker.top();
    }
    x = std::clamp(x, screen.left(), std::max(screen.left(), screen.right() + 1 - size.width()));
    y = std::clamp(y, screen.top(), std::max(screen.top(), screen.bottom() + 1 - size.height()));
    return {x, y};
}

void MoveBeside(QWidget& window, const QWidget& asker) {
    const QScreen* screen = asker.screen();
    if (screen == nullptr)
        return;
    const QRect askerFrame = asker.frameGeometry();
    // A window not yet shown has no frame: it will get one like the asker's.
    const QSize frameExtra = asker.frameGeometry().size() - asker.size();
    const QPoint corner =
        PlaceBeside(window.size() + frameExtra, askerFrame, screen->availableGeometry());
    window.move(corner);
}

}  // namespace morvane
