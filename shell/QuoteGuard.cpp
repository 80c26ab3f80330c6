#include "shell/QuoteGuard.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextCursor>
#include <QTimer>
#include <QValidator>
#include <algorithm>
#include <memory>

#include "core/UserPort.h"
#include "document/TextFields.h"

namespace morvane {
namespace {

void TellRefusal(UserPort& port) {
    port.warn(kDoubleQuoteRefused);
}

// A line edit asks its validator after each edit and takes the edit back when it is
// refused, before any handler of its edits runs; it then tells inputRejected. A text
// set by the program is not taken back, so a quote read from a damaged file stays
// until the user takes it out.
class QuoteValidator : public QValidator {
  public:
    explicit QuoteValidator(QObject* parent) : QValidator(parent) {}

    State validate(QString& input, int&) const override {
        return TextFieldTakes("", input.toStdString()) ? Acceptable : Invalid;
    }
};

}  // namespace

void RefuseQuotes(QLineEdit* edit, UserPort& port) {
    edit->setValidator(new QuoteValidator(edit));
    // Told once the key or paste has been handled, not from inside the box's event.
    QObject::connect(edit, &QLineEdit::inputRejected, edit, [edit, &port] {
        QTimer::singleShot(0, edit, [&port] { TellRefusal(port); });
    });
}

void RefuseQuotes(QComboBox* editableCombo, UserPort& port) {
    if (QLineEdit* edit = editableCombo->lineEdit())
        RefuseQuotes(edit, port);
}

// A multi-line box has no validator: the text it had before the edit is put back at
// once, which its own change handlers see as one more change.
void RefuseQuotes(QPlainTextEdit* edit, UserPort& port) {
    auto accepted = std::make_shared<QString>(edit->toPlainText());
    auto restoring = std::make_shared<bool>(false);
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [edit, &port, accepted, restoring] {
        if (*restoring)
            return;
        const QString now = edit->toPlainText();
        if (TextFieldTakes(accepted->toStdString(), now.toStdString())) {
            *accepted = now;
            return;
        }
        // The cursor goes back to where the refused text began.
        const int inserted = static_cast<int>(now.size() - accepted->size());
        const int position = std::clamp(edit->textCursor().position() - std::max(inserted, 0), 0,
                                        static_cast<int>(accepted->size()));
        *restoring = true;
        edit->setPlainText(*accepted);
        *restoring = false;
        QTextCursor cursor = edit->textCursor();
        cursor.setPosition(position);
        edit->setTextCursor(cursor);
        QTimer::singleShot(0, edit, [&port] { TellRefusal(port); });
    });
}

}  // namespace morvane
