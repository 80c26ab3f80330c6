// The results window driven by clicks and keys after a calculation typed into the
// input window: the query panels, the marks of the chart, the line limits with each
// of their messages, the cycles, column fitting, copying and the size rule.

#include <QClipboard>
#include <QListWidget>
#include <QTest>

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

  private slots:
    void init() {
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
    void cleanup() {
        QVERIFY2(f->port.failures.isEmpty(), qPrintable(f->port.failures.join("; ")));
        f.reset();
    }

    void captionsFollowTheLineWords() {
        QCOMPARE(results->SSTab2()->tabText(0).replace('\n', ' '),
                 QString("Calculate any LD value"));
        QCOMPARE(results->SSTab2()->tabText(1).replace('\n', ' '),
                 QString("Calculate Response of any Dose"));
        QCOMPARE(results->Check3()->text(), QString("LD value"));
        QCOMPARE(results->PictureFig()->Text7()->text(), QString("Dose  (mg)"));
        QCOMPARE(results->Command5()->text(), QString("Save results into files"));
        QCOMPARE(results->Command11()->text(), QString("back to Input tabls"));
        QCOMPARE(results->Image1()->toolTip(), QString("Auto resize columns width"));
    }

    void estimateQueryIsAddedToTheTable() {
        QVERIFY(!results->Command3()->isEnabled());
        TypeInto(results->Text3(), "50");
        QVERIFY(results->Command3()->isEnabled());
        Click(results->Command3());
        // The same estimate as the standard row of 50%.
        const QString dose = results->Grid2()->cellText(3, estimatecol::Dose);
        QCOMPARE(results->Label6()->text(), dose + " mg");
        QCOMPARE(results->Label19()->text(), results->Grid2()->cellText(3, estimatecol::Lower));
        QCOMPARE(results->Label20()->text(), results->Grid2()->cellText(3, estimatecol::Upper));
        QVERIFY(!results->Command3()->isEnabled());
        QVERIFY(results->Command4()->isEnabled());
        const int before = estimateRows();
        Click(results->Command4());
        QCOMPARE(estimateRows(), before + 1);
        QCOMPARE(results->Grid2()->cellText(before, estimatecol::Percent), QString("50"));
        QCOMPARE(results->Grid2()->cellText(before, estimatecol::Dose), dose);
        QCOMPARE(results->Grid2()->cellText(before, estimatecol::Lower),
                 results->Grid2()->cellText(3, estimatecol::Lower));
        QVERIFY(!results->Command4()->isEnabled());
    }

    void responseQueryIsAddedToTheTable() {
        results->SSTab2()->setCurrentIndex(1);
        TypeInto(results->Text2(), "4");
        Click(results->Command1());
        const QString label = results->Label3()->text();
        QVERIFY(label.endsWith(" %"));
        const double percent = NumberOf(label.chopped(2).toStdString());
        QVERIFY(percent > 40 && percent < 60);
        const int before = estimateRows();
        Click(results->Command2());
        QCOMPARE(estimateRows(), before + 1);
        QCOMPARE(results->Grid2()->cellText(before, estimatecol::Percent),
                 Text(FormatNumber(percent, "0.00")));
        QCOMPARE(results->Grid2()->cellText(before, estimatecol::Dose), QString("4"));
        QVERIFY(!results->Grid2()->cellText(before, estimatecol::Lower).isEmpty());
    }

    void queryOutOfScaleIsRefused() {
        TypeInto(results->Text3(), "99.95");
        Click(results->Command3());
        QCOMPARE(f->port.lastText(), QString("This value is out of scale"));
        QVERIFY(results->Text3()->hasFocus());
        QVERIFY(!results->Command4()->isEnabled());
    }

    void queryBoxesTakeOnlyNumbers() {
        TypeInto(results->Text3(), "1a2-b,3.4");
        QCOMPARE(results->Text3()->text(), QString("12,3.4"));
    }

    void marksAreAddedAndDeleted() {
        results->Tab1()->setCurrentIndex(1);
        QCOMPARE(results->Text6()->text(), QString("50"));
        Click(results->Command7());
        QCOMPARE(results->List1()->count(), 1);
        QCOMPARE(results->List1()->item(0)->text(), QString("50"));
        QCOMPARE(results->Text6()->text(), QString());
        QVERIFY(!results->Command7()->isEnabled());
        QVERIFY(results->Command8()->isEnabled());
        TypeInto(results->Text6(), "90");
        PressEnter(results->Text6());
        QCOMPARE(results->List1()->count(), 2);
        // The drop lines of both marks stand on the plot.
        const std::string plot = results->chart().drawing().dump();
        QVERIFY(plot.find("text") != std::string::npos);

        QTest::mouseClick(results->List1()->viewport(), Qt::LeftButton, {},
                          results->List1()->visualItemRect(results->List1()->item(0)).center());
        QCOMPARE(results->chart().selectedMark(), 0);
        Click(results->Command8());
        QCOMPARE(results->List1()->count(), 1);
        QCOMPARE(results->List1()->item(0)->text(), QString("90"));
        Click(results->Command8());
        QCOMPARE(results->List1()->count(), 0);
        QVERIFY(!results->Command8()->isEnabled());
    }

    void markOutOfScaleIsRefused() {
        results->Tab1()->setCurrentIndex(1);
        results->Text6()->selectAll();
        TypeInto(results->Text6(), "99.5");
        Click(results->Command7());
        QCOMPARE(f->port.lastText(), QString("This value is out of scale"));
        QCOMPARE(results->List1()->count(), 0);
        QVERIFY(results->Text6()->hasFocus());
    }

    void adjustRangeWithEachMessage() {
        results->Tab1()->setCurrentIndex(1);
        Click(results->Option2());
        QVERIFY(f->port.messages.empty());
        QVERIFY(results->chart().adjustRange());
        QVERIFY(!results->Command6()->isEnabled());

        TypeInto(results->Text4(), "0.5");
        QVERIFY(results->Command6()->isEnabled());
        PressEnter(results->Text4());
        QCOMPARE(f->port.lastText(), QString("1st point is out of scale"));
        QVERIFY(results->Option1()->isChecked());
        QVERIFY(results->Text4()->hasFocus());

        TypeInto(results->Text4(), "20");
        TypeInto(results->Text5(), "99.5");
        Click(results->Option2());
        QCOMPARE(f->port.lastText(), QString("2nd point is out of scale"));
        QVERIFY(results->Option1()->isChecked());
        QVERIFY(results->Text5()->hasFocus());

        TypeInto(results->Text4(), "60");
        TypeInto(results->Text5(), "40");
        Click(results->Option2());
        QCOMPARE(f->port.lastText(), QString("1st point is greater than 2nd point!"));
        QVERIFY(results->Text4()->hasFocus());

        TypeInto(results->Text5(), "80");
        Click(results->Option2());
        QCOMPARE(f->port.messages.size(), std::size_t{3});
        QVERIFY(results->Option2()->isChecked());
        // One segment from the 60% point to the 80% point.
        const std::string plot = results->chart().drawing().dump();
        QCOMPARE(std::count(plot.begin(), plot.end(), '\n'), 2);
    }

    void manualCycles() {
        results->Tab1()->setCurrentIndex(1);
        QVERIFY(!results->ComboCycles()->isEnabled());
        Click(results->CheckAutoCycles());
        QVERIFY(results->ComboCycles()->isEnabled());
        const int index = results->ComboCycles()->findText("11");
        QVERIFY(index >= 0);
        results->ComboCycles()->setFocus();
        results->ComboCycles()->setCurrentIndex(index);
        emit results->ComboCycles()->activated(index);
        QCOMPARE(results->chart().cycles(), 11);
        QCOMPARE(results->chart().doseLabel(0).caption, std::string());
        QCOMPARE(results->chart().rightEndLabel().caption, std::string());
        Click(results->CheckAutoCycles());
        QVERIFY(!results->ComboCycles()->isEnabled());
        QVERIFY(results->chart().cycles() != 11);
    }

    void observedPointsAreShownOnRequest() {
        results->Tab1()->setCurrentIndex(1);
        Click(results->Check2());
        const std::string plot = results->chart().drawing().dump();
        QCOMPARE(std::count(plot.begin(), plot.end(), 'p'), 5);  // five "point" lines
    }

    void fittingColumnsAndCopying() {
        results->Grid1()->setColumnWidth(datacol::Treated, 10);
        Click(results->Image1());
        QVERIFY(results->Grid1()->columnWidth(datacol::Treated) > 30);
        Click(results->Command10());
        QCOMPARE(QApplication::clipboard()->text(), Text(results->results().ResultsText()));
        QVERIFY(QApplication::clipboard()->text().contains("Slope"));
        results->Tab1()->setCurrentIndex(1);
        QCOMPARE(results->Command10()->text(), QString("Copy graphic"));
        results->Tab1()->setCurrentIndex(0);
        QCOMPARE(results->Command10()->text(), QString("Copy tables"));
    }

    void noticeOfALargeG() {
        ResultsTables& tables = results->results().tables();
        tables.Text8 =
            "Upper and lower limits will be calculated only for the data of which g is "
            "less than 0.4.   See help for more details.";
        tables.Grid2ToolTip = tables.Text8;
        results->showTables();
        QCOMPARE(results->Text8()->text(), Text(tables.Text8));
        QCOMPARE(results->Grid2()->toolTip(), Text(tables.Text8));
    }

    void markBoxWritesThePlainNumberOnLeaving() {
        results->Tab1()->setCurrentIndex(1);
        TypeInto(results->Text6(), "05");
        results->Text4()->setFocus(Qt::TabFocusReason);
        QCOMPARE(results->Text6()->text(), QString("5"));
        QCOMPARE(results->chart().markPercent(), std::string("5"));
    }

    void axisTitleShowsItsBorderOnlyWithTheFocus() {
        results->Tab1()->setCurrentIndex(1);
        QLineEdit* title = results->PictureFig()->Text7();
        QVERIFY(!title->hasFrame());
        title->setFocus(Qt::MouseFocusReason);
        QVERIFY(title->hasFrame());
        results->Text6()->setFocus(Qt::TabFocusReason);
        QVERIFY(!title->hasFrame());
    }

    void sizeRule() {
        QCOMPARE(results->minimumWidth(), PixelsX(*results, MinFormWidth - kWindowFrameWidth));
        results->resize(results->minimumWidth() + 150, results->minimumHeight() + 90);
        const double tabWidth = TwipsX(*results, results->width()) + kWindowFrameWidth - 200;
        QCOMPARE(results->Tab1()->width(), PixelsX(*results, tabWidth));
        QCOMPARE(results->Grid1()->width(), PixelsX(*results, tabWidth - 4600));
        QCOMPARE(results->Grid22()->width(), PixelsX(*results, tabWidth / 2 - 335));
    }

    void helpOpensOnTheMainPage() {
        QFile page(f->path("Hmain.htm"));
        QVERIFY(page.open(QIODevice::WriteOnly));
        page.write("<html><body><h1>Morvane</h1></body></html>");
        page.close();
        Click(results->Command15());
        QCOMPARE(f->program->helpWindow().HelpPage(), f->path("Hmain.htm"));
        QVERIFY(f->program->helpWindow().isVisible());
    }
};

QTEST_MAIN(ResultsWindowTest)
#include "ResultsWindowTest.moc"
