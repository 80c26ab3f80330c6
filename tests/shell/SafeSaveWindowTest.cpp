// The careful save and the careful opening as the desktop user meets them: a click on
// Save over a read-only file and a click on Open of a pipe show the message that says
// why, and the window keeps its document.

#include <sys/stat.h>

#include <QTest>

#include "ShellTestSupport.h"

using namespace morvane;
using namespace morvane::testing;

class SafeSaveWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void saveOverAReadOnlyFileIsRefused() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        NewLine(f);
        TypeAssay(main);
        const QString path = f.path("locked.mrv");
        {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("old content");
        }
        QVERIFY(::chmod(path.toLocal8Bit().constData(), 0444) == 0);
        f.port.saveAnswers.push_back(path.toStdString());
        f.port.answers.push_back(Answer::Yes);  // replace the file of that name
        Click(main.CommandSave());
        QCOMPARE(f.port.lastText(),
                 QString("An error occurred while saving this file.\nThe file \"locked.mrv\" is "
                         "read-only. Save it under another name, or make it writable first."));
        QVERIFY(main.CommandSave()->isEnabled());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("old content"));
        QVERIFY(f.port.failures.isEmpty());
    }

    void openOfAPipeIsRefusedAtOnce() {
        ShellFixture f;
        MainWindow& main = f.program->mainWindow();
        QVERIFY(ShowActive(main));
        const QString path = f.path("waiting.mrv");
        QVERIFY(::mkfifo(path.toLocal8Bit().constData(), 0644) == 0);
        f.port.openAnswers.push_back(path.toStdString());
        Click(main.CommandOpen());
        QCOMPARE(f.port.lastText(),
                 QString("An error occurred while opening this file.\n\"waiting.mrv\" is a pipe, "
                         "not a file. Only plain files can be opened or saved."));
        QVERIFY(f.port.failures.isEmpty());
    }
};

QTEST_MAIN(SafeSaveWindowTest)
#include "SafeSaveWindowTest.moc"
