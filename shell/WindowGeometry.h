#pragma once
// Windows that keep their size and place between runs: the place is read from the
// program's settings when the watch begins and written back each time the window is
// hidden or closed.

#include <QString>

class QSettings;
class QWidget;

namespace morvane {

enum class KeepPlace { SizeAndPosition, SizeOnly };

// Restores the window's remembered geometry now and remembers it again whenever the
// window goes. With SizeOnly the window keeps its size and maximised state but is
// placed by the program (the input window is centred at start, the help viewer opens
// beside the window that asked). The settings must outlive the window.
void RememberGeometry(QWidget& window, QSettings& settings, const QString& key, KeepPlace keep);

}  // namespace morvane
