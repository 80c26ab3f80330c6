#pragma once
// Where a window opens that another window asked for: beside the asker, not at the
// screen's corner.

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

namespace morvane {

// The top-left corner for a window of the size opened for the asker: to the asker's
// right when the screen has room there, else to its left, else over the asker a little
// down and to the right; always kept within the screen's free area.
QPoint PlaceBeside(const QSize& size, const QRect& asker, const QRect& screen);

// Moves the window beside the asker, on the asker's screen.
void MoveBeside(QWidget& window, const QWidget& asker);

}  // namespace morvane
