#pragma once
// Small pieces that several windows build the same way.

#include <QIcon>
#include <QLabel>
#include <QWidget>
#include <functional>

namespace morvane {

// The icon of the buttons that fit the columns of a table to their texts: two arrows
// apart, a column made to fit.
QIcon FitColumnsIcon();

// Makes a label's font bold.
void MakeBold(QLabel& label);

// A bold label that shows a result: it can be selected with the mouse but not edited.
QLabel* ValueLabel(QWidget* parent);

// Leaving a box for another control of the same window rewrites its number (leave) and
// shows the window again (refresh); a text that is no number was told by leave, and
// the box takes the focus back (refocus). Leaving for another window changes nothing.
void LeaveBoxWithin(const QWidget& window, const std::function<bool()>& leave,
                    const std::function<void()>& refresh, const std::function<void()>& refocus);

}  // namespace morvane
