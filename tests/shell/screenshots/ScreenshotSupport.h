#pragma once
// What the screenshot tools share: saving a window's picture, and typing a replicate
// into the input window. They run outside a Qt Test run, so nothing here may use
// QVERIFY or QCOMPARE.

#include <QApplication>
#include <QString>
#include <QTest>
#include <QWidget>
#include <cstdio>

#include "ShellTestSupport.h"
#include "shell/MainWindow.h"

namespace morvane::testing {

// Lets the window settle, saves its picture at path and says so on standard output
// with its size and device pixel ratio.
inline bool SaveGrab(QWidget& window, const QString& path) {
    QApplication::processEvents();
    QTest::qWait(300);
    const bool saved = window.grab().save(path);
    std::printf("%s %s (%d x %d, ratio %.0f)\n", saved ? "wrote" : "could not write",
                qPrintable(path), window.width(), window.height(), window.devicePixelRatioF());
    return saved;
}

// One replicate typed as a user types it: the dose, Enter, the counts, Enter.
inline void EnterRow(MainWindow& main, const QString& dose, const QString& first,
                     const QString& second) {
    TypeInto(main.TextDose(), dose);
    PressEnter(main.TextDose());
    QTest::keyClicks(main.Text1input(), first);
    PressEnter(main.Text1input());
    QTest::keyClicks(main.Text2input(), second);
    PressEnter(main.Text2input());
}

}  // namespace morvane::testing
