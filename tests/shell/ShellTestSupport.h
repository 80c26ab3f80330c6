#pragma once
// What the window tests share: a user port with scripted answers that never opens a
// window, a program in a folder of its own, and the user's gestures (a click, typing
// into a box, a key).

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>

#include "core/UserPort.h"
#include "shell/MainWindow.h"
#include "shell/OptionsDialog.h"
#include "shell/Program.h"

namespace morvane::testing {

// Every message is recorded; a question takes the next queued answer, and a question
// or a dialog with nothing queued is noted in failures.
class QtScriptedPort : public UserPort {
  public:
    std::vector<Message> messages;
    std::deque<Answer> answers;
    std::deque<std::optional<std::string>> openAnswers, saveAnswers, inputAnswers;
    std::vector<FileDialog> openDialogs, saveDialogs;
    std::deque<int> openFilterChoices;
    QStringList failures;

    Answer ask(const Message& message) override {
        messages.push_back(message);
        if (message.buttons == Buttons::Ok)
            return Answer::Ok;
        if (answers.empty()) {
            failures << QString::fromStdString("unexpected question: " + message.text);
            return message.defaultAnswer;
        }
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<std::string> openFileName(const FileDialog& dialog) override {
        openDialogs.push_back(dialog);
        std::optional<std::string> answer = next(openAnswers, "open dialog");
        // The filter the user picks before choosing a file; none queued leaves it.
        if (answer && dialog.chosenFilter && !openFilterChoices.empty()) {
            *dialog.chosenFilter = openFilterChoices.front();
            openFilterChoices.pop_front();
        }
        return answer;
    }
    std::optional<std::string> saveFileName(const FileDialog& dialog) override {
        saveDialogs.push_back(dialog);
        return next(saveAnswers, "save dialog");
    }
    std::optional<std::string> inputBox(const InputRequest&) override {
        return next(inputAnswers, "input box");
    }

    // The texts of the messages so far.
    QStringList texts() const {
        QStringList out;
        for (const Message& m : messages)
            out << QString::fromStdString(m.text);
        return out;
    }
    QString lastText() const {
        return messages.empty() ? QString() : QString::fromStdString(messages.back().text);
    }

  private:
    std::optional<std::string> next(std::deque<std::optional<std::string>>& queue,
                                    const char* what) {
        if (queue.empty()) {
            failures << QString("unexpected ") + what;
            return std::nullopt;
        }
        auto answer = queue.front();
        queue.pop_front();
        return answer;
    }
};

// A program in a temporary folder of its own, with the scripted port.
struct ShellFixture {
    QTemporaryDir folder;
    QtScriptedPort port;
    std::unique_ptr<Program> program;

    ShellFixture() { program = std::make_unique<Program>(port, folder.path() + "/"); }
    QString path(const QString& name) const { return folder.path() + "/" + name; }
};

// Shows a window and waits until it is the active one, so that it takes the focus.
inline bool ShowActive(QWidget& window) {
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    return QTest::qWaitForWindowActive(&window);
}

// A click where a user clicks: check boxes and option buttons on their mark, other
// buttons in their middle.
inline void Click(QAbstractButton* button) {
    if (qobject_cast<QCheckBox*>(button) || qobject_cast<QRadioButton*>(button)) {
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    } else {
        QTest::mouseClick(button, Qt::LeftButton);
    }
}

// Gives the box the focus as a click would, selects its whole text as a user does to
// retype it, then types the text.
inline void TypeInto(QWidget* box, const QString& text) {
    box->setFocus(Qt::MouseFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(box))
        edit->selectAll();
    QTest::keyClicks(box, text);
}

inline void PressEnter(QWidget* widget) {
    QTest::keyClick(widget, Qt::Key_Return);
}

inline QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

// A new line through the options dialog, with a unit typed into the first unit box.
inline void NewLine(ShellFixture& f, const QString& unit = "mg") {
    MainWindow& main = f.program->mainWindow();
    Click(main.CommandNew());
    OptionsDialog& options = f.program->optionsDialog();
    QVERIFY(options.isVisible());
    if (!unit.isEmpty())
        TypeInto(options.ComboUnit1()->lineEdit(), unit);
    Click(options.Command1());
}

// One replicate typed as a user types it: the dose, Enter, the counts, Enter.
inline void TypeRow(MainWindow& main, const QString& dose, const QString& first,
                    const QString& second) {
    TypeInto(main.TextDose(), dose);
    PressEnter(main.TextDose());
    QVERIFY(main.Text1input()->hasFocus());
    QTest::keyClicks(main.Text1input(), first);
    PressEnter(main.Text1input());
    QVERIFY(main.Text2input()->hasFocus());
    QTest::keyClicks(main.Text2input(), second);
    PressEnter(main.Text2input());
    QVERIFY(main.TextDose()->hasFocus());
}

// Five doses of an assay, responded and non responded out of 20.
inline void TypeAssay(MainWindow& main) {
    TypeRow(main, "1", "2", "18");
    TypeRow(main, "2", "5", "15");
    TypeRow(main, "4", "10", "10");
    TypeRow(main, "8", "15", "5");
    TypeRow(main, "16", "19", "1");
}

}  // namespace morvane::testing
