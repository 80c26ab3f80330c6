#pragma once
// A one-line text box with the input discipline of the program's number cells: a key
// filter that drops the characters the cell does not take, the whole text selected
// when the box gets the focus, and signals for Enter, for the arrows at the ends of
// the text and for leaving the box. Leaving is told only when the focus goes to
// another control of the program, not when a message box or another window comes up.

#include <QLineEdit>
#include <functional>

namespace morvane {

class FilteredLineEdit : public QLineEdit {
    Q_OBJECT
  public:
    explicit FilteredLineEdit(QWidget* parent = nullptr);

    // Whether the box takes a character; Backspace is 8 and Enter 13. None: all.
    void setKeyFilter(std::function<bool(char)> filter) { filter_ = std::move(filter); }
    // Whether the arrow keys at the ends of the text are told instead of moving on.
    void setArrowSignals(bool on) { arrowSignals_ = on; }

  signals:
    void enterPressed();
    void rightArrowAtEnd();
    void leftArrowAtStart();
    void focusLeft();
    void focusEntered();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    std::function<bool(char)> filter_;
    bool arrowSignals_ = false;
    bool selectOnClick_ = false;
};

}  // namespace morvane
