#include "shell/FilteredLineEdit.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace morvane {

FilteredLineEdit::FilteredLineEdit(QWidget* parent) : QLineEdit(parent) {}

void FilteredLineEdit::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (enter) {
        if (filter_ && !filter_(13)) {
            event->accept();
            return;
        }
        event->accept();
        emit enterPressed();
        return;
    }
    if (arrowSignals_ && event->modifiers() == Qt::NoModifier) {
        if (key == Qt::Key_Right && cursorPosition() == text().size() && !hasSelectedText()) {
            event->accept();
            emit rightArrowAtEnd();
            return;
        }
        if (key == Qt::Key_Left && cursorPosition() == 0 && !hasSelectedText()) {
            event->accept();
            emit leftArrowAtStart();
            return;
        }
    }
    if (filter_) {
        if (key == Qt::Key_Backspace) {
            if (!filter_(8)) {
                event->accept();
                return;
            }
        } else {
            const QString typed = event->text();
            if (!typed.isEmpty() && typed.at(0).isPrint() &&
                !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
                const QChar c = typed.at(0);
                if (c.unicode() > 127 || !filter_(static_cast<char>(c.unicode()))) {
                    event->accept();
                    return;
                }
            }
        }
    }
    QLineEdit::keyPressEvent(event);
}

void FilteredLineEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    selectAll();
    // A click that brought the focus would put the cursor at its place and undo the
    // selection; the press that follows keeps it.
    selectOnClick_ = event->reason() == Qt::MouseFocusReason;
    emit focusEntered();
}

void FilteredLineEdit::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    if (selectOnClick_) {
        selectOnClick_ = false;
        selectAll();
    }
}

void FilteredLineEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
        return;
    emit focusLeft();
}

}  // namespace morvane
