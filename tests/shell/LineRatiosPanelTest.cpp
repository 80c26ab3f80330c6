// The comparison window's tab "Maximum likelihood", driven by clicks after a
// comparison of three saved lines: the ratio table, the tests between the lines, a
// refused percent, the reference chosen, and "Copy tables" on the tab, which gives
// exactly what morvane-cli fit prints for the same files (whose figures are checked
// against R in the logic tests).

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "RelativeTestSupport.h"
#include "ShellTestSupport.h"
#include "shell/LineRatiosPanel.h"
#include "shell/RtvinWindow.h"
#include "shell/RtvoutWindow.h"

using namespace morvane;
using namespace morvane::testing;

class LineRatiosPanelTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    QStringList files;
    RtvoutWindow* out = nullptr;
    LineRatiosPanel* panel = nullptr;

    template <class T>
    T* child(const char* name) const {
        return NamedChild<T>(panel, name, "the panel");
    }
    QString cell(const char* grid, int row, int col) const {
        return child<TextTableView>(grid)->cellText(row, col);
    }
    QString fitOutput(const QStringList& args) const {
        QProcess process;
        process.start(MORVANE_CLI, QStringList{"fit"} + files + args);
        process.waitForFinished(60000);
        return QString::fromUtf8(process.readAllStandardOutput());
    }

  private slots:
    void init() {
        StartComparison(f, out, &files);
        QVERIFY(out);
        QCOMPARE(out->Tab1()->tabText(2), QString("Maximum likelihood"));
        out->Tab1()->setCurrentIndex(2);
        panel = out->findChild<LineRatiosPanel*>("LineRatiosPanel");
        QVERIFY(panel);
    }
    void cleanup() { EndProgram(f); }

    void theTablesOfTheComparison() {
        QCOMPARE(cell("GridRatios", 0, 1), QString("LD50"));
        QCOMPARE(cell("GridRatios", 1, 0), QString("strain01"));
        QCOMPARE(cell("GridRatios", 1, 5), QString("reference"));
        QCOMPARE(cell("GridRatios", 2, 0), QString("strain02"));
        QCOMPARE(cell("GridRatios", 3, 0), QString("strain03"));
        QCOMPARE(cell("GridTests", 1, 0), QString("Parallelism"));
        QCOMPARE(cell("GridTests", 1, 2), QString("2"));
        QCOMPARE(cell("GridTests", 2, 0), QString("Equality"));
        QCOMPARE(cell("GridTests", 2, 2), QString("4"));
        QCOMPARE(child<QComboBox>("ComboReference")->count(), 3);
    }

    void copyTablesGivesWhatTheCommandLinePrints() {
        Click(out->Command10());
        QCOMPARE(QApplication::clipboard()->text(), fitOutput({"--percent", "50"}));
    }

    void anotherReferencePercentAndModel() {
        child<QComboBox>("ComboReference")->setCurrentIndex(1);
        child<QComboBox>("ComboModel")->setCurrentIndex(1);
        auto* percent = child<QLineEdit>("TextPercent");
        percent->selectAll();
        QTest::keyClicks(percent, "90");
        Click(child<QPushButton>("CommandCompare"));
        QCOMPARE(cell("GridRatios", 0, 1), QString("LD90"));
        QCOMPARE(cell("GridRatios", 1, 0), QString("strain02"));
        Click(out->Command10());
        QCOMPARE(QApplication::clipboard()->text(),
                 fitOutput({"--percent", "90", "--reference", "2", "--model", "logit"}));
    }

    void aPercentThatIsRefused() {
        auto* percent = child<QLineEdit>("TextPercent");
        percent->selectAll();
        QTest::keyClicks(percent, "100");
        Click(child<QPushButton>("CommandCompare"));
        QCOMPARE(child<QLabel>("LabelMessage")->text(),
                 QString("A percent must lie above 0 and below 100: 100"));
        QCOMPARE(child<TextTableView>("GridRatios")->table()->rows(), 0);
    }
};

QTEST_MAIN(LineRatiosPanelTest)
#include "LineRatiosPanelTest.moc"
