#pragma once
// A tab control whose captions always show in full: captions of two lines, and the
// captions of the tabs that are not chosen, which the style draws a little lower,
// get the room they need.

#include <QTabBar>
#include <QTabWidget>

namespace morvane {

class CaptionTabBar : public QTabBar {
    Q_OBJECT
  public:
    explicit CaptionTabBar(QWidget* parent = nullptr) : QTabBar(parent) {}

  protected:
    QSize tabSizeHint(int index) const override;
};

class CaptionTabWidget : public QTabWidget {
    Q_OBJECT
  public:
    explicit CaptionTabWidget(QWidget* parent = nullptr);
};

}  // namespace morvane
