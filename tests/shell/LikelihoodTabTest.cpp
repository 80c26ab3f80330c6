// The results window's tab "Maximum likelihood", driven by clicks after a calculation
// typed into the input window: the tables, the model and natural-response choices, the
// percents, a refused value, the line on the chart and the copy of the tables.
//
// The assay is TypeAssay's (doses 1, 2, 4, 8, 16; 2, 5, 10, 15, 19 of 20 responding).
// R 4 gives for it, with glm(cbind(r, n - r) ~ log10(dose), family = binomial(link)):
// probit a = -1.36920650813005 (se 0.279141888599162), b = 2.34755595395702 (se
// 0.400675029955492), Pearson chi-square 0.294580552601036, LD50 3.83043111251596;
// logit a = -2.32718505523807, b = 3.97467151233110, LD50 3.85038134833891.

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "ShellTestSupport.h"
#include "results/LikelihoodChartLine.h"
#include "shell/LikelihoodTab.h"
#include "shell/ResultsWindow.h"

using namespace morvane;
using namespace morvane::testing;

class LikelihoodTabTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    ResultsWindow* results = nullptr;

    template <class T>
    T* child(const char* name) const {
        return NamedChild<T>(results, name, "the results window");
    }
    QString cell(const char* grid, int row, int col) const {
        return child<TextTableView>(grid)->cellText(row, col);
    }
    int likelihoodSegments() const {
        int count = 0;
        for (const DrawOp& op : results->chart().drawing().ops()) {
            if (const auto* line = std::get_if<draw::Line>(&op);
                line && line->color == kLikelihoodLineColor)
                ++count;
        }
        return count;
    }

  private slots:
    void init() {
        StartResults(f, results);
        QVERIFY(results);
        auto* tabs = child<QTabWidget>("Tab1");
        QCOMPARE(tabs->tabText(2), QString("Maximum likelihood"));
        tabs->setCurrentIndex(2);
    }
    void cleanup() { EndProgram(f); }

    void theProbitTablesAgreeWithR() {
        QCOMPARE(cell("GridParameters", 1, 0), QString("Intercept"));
        QCOMPARE(cell("GridParameters", 1, 1), QString("-1.36921"));
        QCOMPARE(cell("GridParameters", 1, 2), QString("0.279142"));
        QCOMPARE(cell("GridParameters", 2, 1), QString("2.34756"));
        QCOMPARE(cell("GridParameters", 2, 2), QString("0.400675"));
        QCOMPARE(cell("GridGoodness", 1, 0), QString("Chi-square"));
        QCOMPARE(cell("GridGoodness", 1, 1), QString("0.294581"));
        QCOMPARE(cell("GridGoodness", 2, 1), QString("3"));
        QCOMPARE(cell("GridEstimates", 0, 0), QString("LD"));
        QCOMPARE(cell("GridEstimates", 2, 0), QString("50"));
        QCOMPARE(cell("GridEstimates", 2, 1), QString("3.83043"));
        QCOMPARE(child<QLabel>("LabelMessage")->text(),
                 QString("The data agree with the line (chi-square not significant): the limits "
                         "use the normal deviate, without h."));
        QCOMPARE(cell("GridGoodness", 5, 0), QString("Iterations"));
    }

    void theLogitModelAndOwnPercentsByClicks() {
        child<QComboBox>("ComboModel")->setCurrentIndex(1);
        auto* percents = child<QLineEdit>("TextPercents");
        percents->selectAll();
        QTest::keyClicks(percents, "50 90");
        Click(child<QPushButton>("CommandFit"));
        QCOMPARE(cell("GridParameters", 1, 1), QString("-2.32719"));
        QCOMPARE(cell("GridParameters", 2, 1), QString("3.97467"));
        QCOMPARE(child<TextTableView>("GridEstimates")->table()->rows(), 3);
        QCOMPARE(cell("GridEstimates", 1, 1), QString("3.85038"));
        QCOMPARE(cell("GridEstimates", 2, 0), QString("90"));
    }

    void aFixedNaturalResponseAndARefusedValue() {
        child<QComboBox>("ComboNatural")->setCurrentIndex(2);
        auto* value = child<QLineEdit>("TextNatural");
        QVERIFY(value->isEnabled());
        QTest::keyClicks(value, "1.5");
        Click(child<QPushButton>("CommandFit"));
        QCOMPARE(child<QLabel>("LabelMessage")->text(),
                 QString("The natural response must be a proportion from 0 up to, not including, "
                         "1."));
        QCOMPARE(child<TextTableView>("GridParameters")->table()->rows(), 0);
        value->selectAll();
        QTest::keyClicks(value, "0.05");
        Click(child<QPushButton>("CommandFit"));
        QCOMPARE(cell("GridParameters", 3, 0), QString("Natural response"));
        QCOMPARE(cell("GridParameters", 3, 1), QString("0.05"));
        QCOMPARE(cell("GridParameters", 3, 2), QString("fixed"));
    }

    void theLineGoesOnTheChartAndOffAgain() {
        QCOMPARE(likelihoodSegments(), 0);
        Click(child<QCheckBox>("CheckShowLine"));
        QVERIFY(likelihoodSegments() > 20);
        Click(child<QCheckBox>("CheckShowLine"));
        QCOMPARE(likelihoodSegments(), 0);
    }

    void copyTablesGivesTheTablesOfTheTab() {
        Click(child<QPushButton>("Command10"));
        const QString text = QApplication::clipboard()->text();
        QVERIFY2(
            text.startsWith("Maximum likelihood probit: New file\nNatural response: none\n\n"
                            "Parameter\tEstimate\tStandard error\nIntercept\t-1.36921\t0.279142\n"),
            qPrintable(text));
    }

    void theClassicalTablesHaveNoCyclesNote() {
        QCOMPARE(child<QLabel>("LabelCyclesNote")->text(), QString());
    }

    // A line whose classical cycles swing until their limit: the note stands above the
    // classical tables, outside them, with the whole text as its tool tip; the figures are
    // those of the last pass.
    void aLineWhoseCyclesStopAtTheirLimitGetsTheNote() {
        f = std::make_unique<ShellFixture>();
        MainWindow& main = f->program->mainWindow();
        QVERIFY(ShowActive(main));
        NewLine(*f);
        TypeRow(main, "1", "2", "18");
        TypeRow(main, "8", "8", "42");
        TypeRow(main, "12", "5", "5");
        TypeRow(main, "25", "18", "7");
        TypeRow(main, "32", "19", "1");
        Click(main.CommandCalc());
        results = f->program->resultsWindow();
        QVERIFY(results);
        QVERIFY(ShowActive(*results));
        QCOMPARE(child<QLabel>("LabelCyclesNote")->text(),
                 QString("Cycles unsettled after 21 passes: see \"Maximum likelihood\"."));
        QCOMPARE(child<QLabel>("LabelCyclesNote")->toolTip(),
                 QString("Note: the cycles of the fit stopped at their limit of 21 passes without "
                         "settling; the figures above are those of the last pass. The maximum "
                         "likelihood analysis (the \"Maximum likelihood\" tab, or morvane-cli fit) "
                         "fits the line without the rounding of the tables."));
        QVERIFY(child<QLabel>("LabelCyclesNote")->isVisible());
        if (!qEnvironmentVariableIsEmpty("MORVANE_NOTE_SHOT"))
            results->grab().save(qEnvironmentVariable("MORVANE_NOTE_SHOT"));
    }
};

QTEST_MAIN(LikelihoodTabTest)
#include "LikelihoodTabTest.moc"
