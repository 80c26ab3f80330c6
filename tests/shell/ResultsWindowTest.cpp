// The results window driven by clicks and keys after a calculation typed into the
// input window: the query panels, the marks of the chart, the line limits with each
// of their messages, the cycles, column fitting, copying and the size rule.

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

#include "ShellTestSupport.h"
#include "core/NumberText.h"
#include "shell/HelpWindow.h"
#include "shell/ResultsWindow.h"
#include "shell/Twips.h"

using namespace morvane;
using namespace morvane::testing;

class ResultsWindowTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    ResultsWindow* results = nullptr;

    int estimateRows() const { return results->results().tables().Grid2.rows(); }

    // The control of the results window by its name; a missing one ends the test run.
    template <class T>
    T* child(const char* name) const {
        return NamedChild<T>(results, name, "the results window");
    }

  private slots:
    void init() { StartResults(f, results); }
    void cleanup() { EndProgram(f); }

    void captionsFollowTheLineWords() {
        QCOMPARE(child<QTabWidget>("SSTab2")->tabText(0).replace('\n', ' '),
                 QString("Calculate any LD value"));
        QCOMPARE(child<QTabWidget>("SSTab2")->tabText(1).replace('\n', ' '),
                 QString("Calculate Response of any Dose"));
        QCOMPARE(child<QCheckBox>("Check3")->text(), QString("LD value"));
        QCOMPARE(child<ChartWidget>("PictureFig")->Text7()->text(), QString("Dose  (mg)"));
        QCOMPARE(child<QPushButton>("Command5")->text(), QString("Save results into files"));
        QCOMPARE(child<QPushButton>("Command11")->text(), QString("back to Input tabls"));
        QCOMPARE(child<QToolButton>("Image1")->toolTip(), QString("Auto resize columns width"));
    }

    void estimateQueryIsAddedToTheTable() {
        QVERIFY(!child<QPushButton>("Command3")->isEnabled());
        TypeInto(child<QLineEdit>("Text3"), "50");
        QVERIFY(child<QPushButton>("Command3")->isEnabled());
        Click(child<QPushButton>("Command3"));
        // The same estimate as the standard row of 50%.
        const QString dose = child<TextTableView>("Grid2")->cellText(3, estimatecol::Dose);
        QCOMPARE(child<QLabel>("Label6")->text(), dose + " mg");
        QCOMPARE(child<QLabel>("Label19")->text(),
                 child<TextTableView>("Grid2")->cellText(3, estimatecol::Lower));
        QCOMPARE(child<QLabel>("Label20")->text(),
                 child<TextTableView>("Grid2")->cellText(3, estimatecol::Upper));
        QVERIFY(!child<QPushButton>("Command3")->isEnabled());
        QVERIFY(child<QPushButton>("Command4")->isEnabled());
        const int before = estimateRows();
        Click(child<QPushButton>("Command4"));
        QCOMPARE(estimateRows(), before + 1);
        QCOMPARE(child<TextTableView>("Grid2")->cellText(before, estimatecol::Percent),
                 QString("50"));
        QCOMPARE(child<TextTableView>("Grid2")->cellText(before, estimatecol::Dose), dose);
        QCOMPARE(child<TextTableView>("Grid2")->cellText(before, estimatecol::Lower),
                 child<TextTableView>("Grid2")->cellText(3, estimatecol::Lower));
        QVERIFY(!child<QPushButton>("Command4")->isEnabled());
    }

    void responseQueryIsAddedToTheTable() {
        child<QTabWidget>("SSTab2")->setCurrentIndex(1);
        TypeInto(child<QLineEdit>("Text2"), "4");
        Click(child<QPushButton>("Command1"));
        const QString label = child<QLabel>("Label3")->text();
        QVERIFY(label.endsWith(" %"));
        const double percent = NumberOf(label.chopped(2).toStdString());
        QVERIFY(percent > 40 && percent < 60);
        const int before = estimateRows();
        Click(child<QPushButton>("Command2"));
        QCOMPARE(estimateRows(), before + 1);
        QCOMPARE(child<TextTableView>("Grid2")->cellText(before, estimatecol::Percent),
                 Text(FormatNumber(percent, "0.00")));
        QCOMPARE(child<TextTableView>("Grid2")->cellText(before, estimatecol::Dose), QString("4"));
        QVERIFY(!child<TextTableView>("Grid2")->cellText(before, estimatecol::Lower).isEmpty());
    }

    void queryOutOfScaleIsRefused() {
        TypeInto(child<QLineEdit>("Text3"), "99.95");
        Click(child<QPushButton>("Command3"));
        QCOMPARE(f->port.lastText(), QString("This value is out of scale"));
        QVERIFY(child<QLineEdit>("Text3")->hasFocus());
        QVERIFY(!child<QPushButton>("Command4")->isEnabled());
    }

    void queryBoxesTakeOnlyNumbers() {
        TypeInto(child<QLineEdit>("Text3"), "1a2-b,3.4");
        QCOMPARE(child<QLineEdit>("Text3")->text(), QString("12,3.4"));
    }

    void marksAreAddedAndDeleted() {
        child<QTabWidget>("Tab1")->setCurrentIndex(1);
        QCOMPARE(child<QLineEdit>("Text6")->text(), QString("50"));
        Click(child<QPushButton>("Command7"));
        QCOMPARE(child<QListWidget>("List1")->count(), 1);
        QCOMPARE(child<QListWidget>("List1")->item(0)->text(), QString("50"));
        QCOMPARE(child<QLineEdit>("Text6")->text(), QString());
        QVERIFY(!child<QPushButton>("Command7")->isEnabled());
        QVERIFY(child<QPushButton>("Command8")->isEnabled());
        TypeInto(child<QLineEdit>("Text6"), "90");
        PressEnter(child<QLineEdit>("Text6"));
        QCOMPARE(child<QListWidget>("List1")->count(), 2);
        // The drop lines of both marks stand on the plot.
        const std::string plot = results->chart().drawing().dump();
        QVERIFY(plot.find("text") != std::string::npos);

        QTest::mouseClick(child<QListWidget>("List1")->viewport(), Qt::LeftButton, {},
                          child<QListWidget>("List1")
                              ->visualItemRect(child<QListWidget>("List1")->item(0))
                              .center());
        QCOMPARE(results->chart().selectedMark(), 0);
        Click(child<QPushButton>("Command8"));
        QCOMPARE(child<QListWidget>("List1")->count(), 1);
        QCOMPARE(child<QListWidget>("List1")->item(0)->text(), QString("90"));
        Click(child<QPushButton>("Command8"));
        QCOMPARE(child<QListWidget>("List1")->count(), 0);
        QVERIFY(!child<QPushButton>("Command8")->isEnabled());
    }

    void markOutOfScaleIsRefused() {
        child<QTabWidget>("Tab1")->setCurrentIndex(1);
        child<QLineEdit>("Text6")->selectAll();
        TypeInto(child<QLineEdit>("Text6"), "99.5");
        Click(child<QPushButton>("Command7"));
        QCOMPARE(f->port.lastText(), QString("This value is out of scale"));
        QCOMPARE(child<QListWidget>("List1")->count(), 0);
        QVERIFY(child<QLineEdit>("Text6")->hasFocus());
    }

    void adjustRangeWithEachMessage() {
        child<QTabWidget>("Tab1")->setCurrentIndex(1);
        Click(child<QRadioButton>("Option2"));
        QVERIFY(f->port.messages.empty());
        QVERIFY(results->chart().adjustRange());
        QVERIFY(!child<QPushButton>("Command6")->isEnabled());

        TypeInto(child<QLineEdit>("Text4"), "0.5");
        QVERIFY(child<QPushButton>("Command6")->isEnabled());
        PressEnter(child<QLineEdit>("Text4"));
        QCOMPARE(f->port.lastText(), QString("1st point is out of scale"));
        QVERIFY(child<QRadioButton>("Option1")->isChecked());
        QVERIFY(child<QLineEdit>("Text4")->hasFocus());

        TypeInto(child<QLineEdit>("Text4"), "20");
        TypeInto(child<QLineEdit>("Text5"), "99.5");
        Click(child<QRadioButton>("Option2"));
        QCOMPARE(f->port.lastText(), QString("2nd point is out of scale"));
        QVERIFY(child<QRadioButton>("Option1")->isChecked());
        QVERIFY(child<QLineEdit>("Text5")->hasFocus());

        TypeInto(child<QLineEdit>("Text4"), "60");
        TypeInto(child<QLineEdit>("Text5"), "40");
        Click(child<QRadioButton>("Option2"));
        QCOMPARE(f->port.lastText(), QString("1st point is greater than 2nd point!"));
        QVERIFY(child<QLineEdit>("Text4")->hasFocus());

        TypeInto(child<QLineEdit>("Text5"), "80");
        Click(child<QRadioButton>("Option2"));
        QCOMPARE(f->port.messages.size(), std::size_t{3});
        QVERIFY(child<QRadioButton>("Option2")->isChecked());
        // One segment from the 60% point to the 80% point.
        const std::string plot = results->chart().drawing().dump();
        QCOMPARE(std::count(plot.begin(), plot.end(), '\n'), 2);
    }

    void manualCycles() {
        child<QTabWidget>("Tab1")->setCurrentIndex(1);
        QVERIFY(!child<QComboBox>("ComboCycles")->isEnabled());
        Click(child<QCheckBox>("CheckAutoCycles"));
        QVERIFY(child<QComboBox>("ComboCycles")->isEnabled());
        const int index = child<QComboBox>("ComboCycles")->findText("11");
        QVERIFY(index >= 0);
        child<QComboBox>("ComboCycles")->setFocus();
        child<QComboBox>("ComboCycles")->setCurrentIndex(index);
        emit child<QComboBox>("ComboCycles")->activated(index);
        QCOMPARE(results->chart().cycles(), 11);
        QCOMPARE(results->chart().doseLabel(0).caption, std::string());
        QCOMPARE(results->chart().rightEndLabel().caption, std::string());
        Click(child<QCheckBox>("CheckAutoCycles"));
        QVERIFY(!child<QComboBox>("ComboCycles")->isEnabled());
        QVERIFY(results->chart().cycles() != 11);
    }

    void observedPointsAreShownOnRequest() {
        child<QTabWidget>("Tab1")->setCurrentIndex(1);
        Click(child<QCheckBox>("Check2"));
        const std::string plot = results->chart().drawing().dump();
        QCOMPARE(std::count(plot.begin(), plot.end(), 'p'), 5);  // five "point" lines
    }

    void fittingColumnsAndCopying() {
        child<TextTableView>("Grid1")->setColumnWidth(datacol::Treated, 10);
        Click(child<QToolButton>("Image1"));
        QVERIFY(child<TextTableView>("Grid1")->columnWidth(datacol::Treated) > 30);
        Click(child<QPushButton>("Command10"));
        QCOMPARE(QApplication::clipboard()->text(), Text(results->results().ResultsText()));
        QVERIFY(QApplication::clipboard()->text().contains("Slope"));
        child<QTabWidget>("Tab1")->setCurrentIndex(1);
        QCOMPARE(child<QPushButton>("Command10")->text(), QString("Copy graphic"));
        child<QTabWidget>("Tab1")->setCurrentIndex(0);
        QCOMPARE(child<QPushButton>("Command10")->text(), QString("Copy tables"));
    }

    void noticeOfALargeG() {
        ResultsTables& tables = results->results().tables();
        tables.Text8 =
            "Upper and lower limits will be calculated only for the data of which g is "
            "less than 0.4.   See help for more details.";
        tables.Grid2ToolTip = tables.Text8;
        results->showTables();
        QCOMPARE(child<QLabel>("Text8")->text(), Text(tables.Text8));
        QCOMPARE(child<TextTableView>("Grid2")->toolTip(), Text(tables.Text8));
    }

    void markBoxWritesThePlainNumberOnLeaving() {
        child<QTabWidget>("Tab1")->setCurrentIndex(1);
        TypeInto(child<QLineEdit>("Text6"), "05");
        child<QLineEdit>("Text4")->setFocus(Qt::TabFocusReason);
        QCOMPARE(child<QLineEdit>("Text6")->text(), QString("5"));
        QCOMPARE(results->chart().markPercent(), std::string("5"));
    }

    void axisTitleShowsItsBorderOnlyWithTheFocus() {
        child<QTabWidget>("Tab1")->setCurrentIndex(1);
        QLineEdit* title = child<ChartWidget>("PictureFig")->Text7();
        QVERIFY(!title->hasFrame());
        title->setFocus(Qt::MouseFocusReason);
        QVERIFY(title->hasFrame());
        child<QLineEdit>("Text6")->setFocus(Qt::TabFocusReason);
        QVERIFY(!title->hasFrame());
    }

    void sizeRule() {
        QCOMPARE(results->minimumWidth(), PixelsX(*results, MinFormWidth - kWindowFrameWidth));
        results->resize(results->minimumWidth() + 150, results->minimumHeight() + 90);
        const double tabWidth = TwipsX(*results, results->width()) + kWindowFrameWidth - 200;
        QCOMPARE(child<QTabWidget>("Tab1")->width(), PixelsX(*results, tabWidth));
        QCOMPARE(child<TextTableView>("Grid1")->width(), PixelsX(*results, tabWidth - 4600));
        QCOMPARE(child<TextTableView>("Grid22")->width(), PixelsX(*results, tabWidth / 2 - 335));
    }

    void helpOpensOnTheMainPage() {
        QFile page(f->path("Hmain.htm"));
        QVERIFY(page.open(QIODevice::WriteOnly));
        page.write("<html><body><h1>Morvane</h1></body></html>");
        page.close();
        Click(child<QPushButton>("Command15"));
        QCOMPARE(f->program->helpWindow().HelpPage(), f->path("Hmain.htm"));
        QVERIFY(f->program->helpWindow().isVisible());
    }
};

QTEST_MAIN(ResultsWindowTest)
#include "ResultsWindowTest.moc"
