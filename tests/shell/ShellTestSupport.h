#pragma once
// What the window tests share: the scripted user port (tests/support), a program in
// a folder of its own, and the user's gestures (a click, typing into a box, a key).

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

#include "RelativeTestSupport.h"
#include "core/UserPort.h"
#include "shell/MainWindow.h"
#include "shell/OptionsDialog.h"
#include "shell/Program.h"
#include "shell/ResultsWindow.h"
#include "shell/RtvinWindow.h"
#include "shell/RtvoutWindow.h"
#include "support/QtScriptedPort.h"

namespace morvane::testing {

// A program in a temporary folder of its own, with the scripted port.
struct ShellFixture {
    QTemporaryDir folder;
    QtScriptedPort port;
    std::unique_ptr<Program> program;

    ShellFixture() { program = std::make_unique<Program>(port, folder.path() + "/"); }
    QString path(const QString& name) const { return folder.path() + "/" + name; }
};

// The start of a window test: a new program, its input window shown and active.
inline void StartProgram(std::unique_ptr<ShellFixture>& f, MainWindow*& main);

// The end of a window test: nothing was asked that the test did not answer.
inline void EndProgram(std::unique_ptr<ShellFixture>& f) {
    QVERIFY2(f->port.failures.isEmpty(), qPrintable(f->port.failures.join("; ")));
    f.reset();
}

// Shows a window and waits until it is the active one, so that it takes the focus.
inline bool ShowActive(QWidget& window) {
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    return QTest::qWaitForWindowActive(&window);
}

inline void StartProgram(std::unique_ptr<ShellFixture>& f, MainWindow*& main) {
    f = std::make_unique<ShellFixture>();
    main = &f->program->mainWindow();
    QVERIFY(ShowActive(*main));
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

// The start of a results window test: the assay typed into a new line and calculated,
// the results window shown and active.
inline void StartResults(std::unique_ptr<ShellFixture>& f, ResultsWindow*& results) {
    f = std::make_unique<ShellFixture>();
    MainWindow& main = f->program->mainWindow();
    QVERIFY(ShowActive(main));
    NewLine(*f);
    TypeAssay(main);
    Click(main.CommandCalc());
    results = f->program->resultsWindow();
    QVERIFY(results);
    QVERIFY(ShowActive(*results));
}

// The start of a comparison window test: count strain files written into the test's
// folder, opened in the comparison window and compared, the results window shown and
// active. The paths of the files are given back.
inline void StartComparison(std::unique_ptr<ShellFixture>& f, RtvoutWindow*& out,
                            QStringList* paths = nullptr, int count = 3) {
    f = std::make_unique<ShellFixture>();
    const QStringList files = WriteStrainFiles(f->folder.path(), count);
    if (paths != nullptr)
        *paths = files;
    QVERIFY(ShowActive(f->program->mainWindow()));
    for (const QString& path : files)
        f->port.openAnswers.push_back(path.toStdString());
    f->port.openAnswers.push_back(std::nullopt);
    Click(f->program->mainWindow().CommandRelative());
    RtvinWindow* rtvin = f->program->rtvinWindow();
    QVERIFY(rtvin);
    QVERIFY(ShowActive(*rtvin));
    Click(rtvin->Command4());
    out = rtvin->resultsWindow();
    QVERIFY(out);
    QVERIFY(ShowActive(*out));
}

// The child of a window or panel by its type and object name; a missing one ends the
// test run, naming what was looked in.
template <class T>
T* NamedChild(const QObject* parent, const char* name, const char* where) {
    T* widget = parent->findChild<T*>(name);
    if (widget == nullptr)
        qFatal("%s has no %s named %s", where, T::staticMetaObject.className(), name);
    return widget;
}

// The whole contents of a file, or nothing when it cannot be read.
inline QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace morvane::testing
