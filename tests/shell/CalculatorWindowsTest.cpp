// The two calculator windows driven by clicks and keys: Reduction % (its tabs, the
// guide's links, the keys of its boxes, OK, "Erase all", "Copy table", Check1 and the
// drawn fractions) and Extrapolation & Interpolation (both panels, the reactions of
// the boxes, the keys, the predictions and every message). Both disable the input
// window while they are open.

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QToolTip>

#include "ShellTestSupport.h"
#include "shell/FormulaWidgets.h"
#include "shell/HelpWindow.h"
#include "shell/MainWindow.h"
#include "shell/PredictionWindow.h"
#include "shell/ReductionWindow.h"
#include "shell/Twips.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

using RBox = ReductionCalculator::Box;
using RTab = ReductionCalculator::Tab;
using PBox = LinePredictor::Box;
using PButton = LinePredictor::Button;

const QString kIllegalSlope =
    "Your data Revealed an illegal slope\nit has an infinite or almost infinite value\nso your "
    "data can't be calculated";

}  // namespace

class CalculatorWindowsTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    MainWindow* main = nullptr;

    ReductionWindow& openReduction() {
        Click(main->CommandControl());
        ReductionWindow* window = f->program->reductionWindow();
        window->activateWindow();
        QApplication::setActiveWindow(window);
        return *window;
    }
    PredictionWindow& openPrediction() {
        Click(main->Command1());
        PredictionWindow* window = f->program->predictionWindow();
        window->activateWindow();
        QApplication::setActiveWindow(window);
        return *window;
    }
    // Types into the box that has the focus.
    static void Keys(QWidget* box, const QString& text) { QTest::keyClicks(box, text); }

  private slots:
    void init() { StartProgram(f, main); }
    void cleanup() { EndProgram(f); }

    // Reduction %

    void reductionOpensOnTheGuideAndDisablesTheInputWindow() {
        ReductionWindow& w = openReduction();
        QVERIFY(w.isVisible());
        QCOMPARE(w.windowTitle(), QString("Reduction %"));
        QCOMPARE(w.Tab1()->currentIndex(), 4);
        QVERIFY(!main->contentEnabled());
        const QStringList captions{"Abbott", "Henderson - Tilton", "Schneider - Orelli",
                                   "Sun - Shepard", "Guide"};
        for (int i = 0; i < 5; ++i)
            QCOMPARE(w.Tab1()->tabText(i), captions[i]);
        for (RTab tab :
             {RTab::Abbott, RTab::HendersonTilton, RTab::SchneiderOrelli, RTab::SunShepard}) {
            QCOMPARE(w.okButton(tab)->text(), QString("OK >"));
            QCOMPARE(w.eraseButton(tab)->text(), QString("Erase all"));
            QCOMPARE(w.copyButton(tab)->text(), QString("Copy table"));
        }
        QCOMPARE(w.box(RBox::Text9)->toolTip(),
                 QString("Population in treated plot after treatment"));
        QCOMPARE(w.box(RBox::Text10)->toolTip(),
                 QString("Population in control plot after treatment"));
        QCOMPARE(w.Label26()->text(),
                 QString("There are 4 formulas available to calculate Reduction %. \n"
                         "The selection of proper formula is depending on two factors:\n"
                         "1-Trial condition (infestation or population stability and "
                         "homogeneity).\n"
                         "2-The data in your hand (live individuals or dead individuals).\n"
                         "The following table will help you to use the proper formula."));
        QCOMPARE(w.grid(RTab::Abbott)->cellText(0, 3), QString("corrected %"));
        w.close();
        QVERIFY(main->contentEnabled());
    }

    void reductionUnloadsWhenClosed() {
        ReductionWindow& first = openReduction();
        first.Tab1()->setCurrentIndex(0);
        TypeInto(first.box(RBox::Text9), "20");
        TypeInto(first.box(RBox::Text10), "80");
        Click(first.okButton(RTab::Abbott));
        QCOMPARE(first.grid(RTab::Abbott)->cellText(1, 3), QString("75.00"));
        first.close();
        QApplication::processEvents();
        ReductionWindow& second = openReduction();
        QCOMPARE(second.box(RBox::Text9)->text(), QString());
        QCOMPARE(second.calculator().grid(RTab::Abbott).rows(), 2);
        second.close();
    }

    void guideLinksLeadToTheirTabs() {
        ReductionWindow& w = openReduction();
        QVERIFY(ShowActive(w));
        const std::pair<LinkLabel*, int> links[] = {
            {w.Label28(), 0}, {w.Label31(), 1}, {w.Label29(), 2}, {w.Label32(), 3}};
        const QStringList texts{"Abbott", "Henderson-Tilton", "Schneider-Orelli", "Sun-Shepard"};
        const RBox firsts[] = {RBox::Text9, RBox::Text4, RBox::Text1, RBox::Text12};
        int i = 0;
        for (const auto& [link, tab] : links) {
            w.Tab1()->setCurrentIndex(4);
            QCOMPARE(link->text(), texts[i]);
            QTest::mouseMove(link);
            QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
            QApplication::sendEvent(link, &enter);
            QCOMPARE(link->cursor().shape(), Qt::PointingHandCursor);
            QTest::mouseClick(link, Qt::LeftButton);
            QCOMPARE(w.Tab1()->currentIndex(), tab);
            QVERIFY(!link->testAttribute(Qt::WA_SetCursor));
            QVERIFY(w.box(firsts[i])->hasFocus());
            ++i;
        }
        w.close();
    }

    void abbottByKeys() {
        ReductionWindow& w = openReduction();
        QVERIFY(ShowActive(w));
        w.Tab1()->setCurrentIndex(0);
        QVERIFY(w.box(RBox::Text9)->hasFocus());
        Keys(w.box(RBox::Text9), "2a0");  // the letter is dropped
        QCOMPARE(w.box(RBox::Text9)->text(), QString("20"));
        PressEnter(w.box(RBox::Text9));
        QVERIFY(w.box(RBox::Text10)->hasFocus());
        Keys(w.box(RBox::Text10), "80");
        PressEnter(w.box(RBox::Text10));  // Enter in the last box runs OK
        QCOMPARE(w.grid(RTab::Abbott)->cellText(1, 0), QString("1"));
        QCOMPARE(w.grid(RTab::Abbott)->cellText(1, 1), QString("20"));
        QCOMPARE(w.grid(RTab::Abbott)->cellText(1, 2), QString("80"));
        QCOMPARE(w.grid(RTab::Abbott)->cellText(1, 3), QString("75.00"));
        // The focus is back in the first box, its text selected for the next value.
        QVERIFY(w.box(RBox::Text9)->hasFocus());
        QCOMPARE(w.box(RBox::Text9)->selectedText(), QString("20"));
        Keys(w.box(RBox::Text9), "120");
        QTest::keyClick(w.box(RBox::Text9), Qt::Key_Right);  // at the end: the next box
        QVERIFY(w.box(RBox::Text10)->hasFocus());
        QCOMPARE(w.box(RBox::Text10)->selectedText(), QString("80"));
        QTest::keyClick(w.box(RBox::Text10), Qt::Key_Home);
        QTest::keyClick(w.box(RBox::Text10), Qt::Key_Left);  // at the start: the previous
        QVERIFY(w.box(RBox::Text9)->hasFocus());
        Click(w.okButton(RTab::Abbott));
        QCOMPARE(w.grid(RTab::Abbott)->cellText(2, 0), QString("2"));
        QCOMPARE(w.grid(RTab::Abbott)->cellText(2, 3), QString("-50.00"));
        QVERIFY(f->port.messages.empty());
        w.close();
    }

    void reductionKeysAndLeaving() {
        ReductionWindow& w = openReduction();
        QVERIFY(ShowActive(w));
        w.Tab1()->setCurrentIndex(3);
        QVERIFY(w.box(RBox::Text12)->hasFocus());
        Keys(w.box(RBox::Text12), "-1x,5.0+");
        QCOMPARE(w.box(RBox::Text12)->text(), QString("-1,5.0"));
        TypeInto(w.box(RBox::Text12), "007.50");
        QTest::keyClick(w.box(RBox::Text12), Qt::Key_Tab);
        QCOMPARE(w.box(RBox::Text12)->text(), QString("7.5"));
        QVERIFY(w.box(RBox::Text13)->hasFocus());
        Keys(w.box(RBox::Text13), "1,5");
        w.box(RBox::Text12)->setFocus(Qt::MouseFocusReason);
        QCOMPARE(f->port.lastText(), QString("invaled value!"));
        QVERIFY(w.box(RBox::Text13)->hasFocus());
        QCOMPARE(w.box(RBox::Text13)->text(), QString("1,5"));
        w.close();
    }

    void reductionChecksByClicks() {
        ReductionWindow& w = openReduction();
        QVERIFY(ShowActive(w));
        w.Tab1()->setCurrentIndex(2);
        TypeInto(w.box(RBox::Text1), "100");
        TypeInto(w.box(RBox::Text2), "0");
        Click(w.okButton(RTab::SchneiderOrelli));
        QCOMPARE(w.grid(RTab::SchneiderOrelli)->cellText(1, 3), QString("100.00"));
        TypeInto(w.box(RBox::Text2), "100");
        Click(w.okButton(RTab::SchneiderOrelli));
        QCOMPARE(f->port.messages.size(), size_t(1));
        QCOMPARE(Text(f->port.messages[0].text), QString("control value must be tween 0 and 100"));
        QCOMPARE(Text(f->port.messages[0].title), QString("invaled value!"));
        QVERIFY(w.box(RBox::Text2)->hasFocus());
        QCOMPARE(w.calculator().grid(RTab::SchneiderOrelli).rows(), 3);

        w.Tab1()->setCurrentIndex(3);
        TypeInto(w.box(RBox::Text12), "40");
        TypeInto(w.box(RBox::Text13), "-100");
        PressEnter(w.box(RBox::Text13));
        QCOMPARE(f->port.lastText(), QString("invaled value!"));
        TypeInto(w.box(RBox::Text13), "100");
        PressEnter(w.box(RBox::Text13));
        QCOMPARE(f->port.lastText(), QString(" Change% in control plot value mustn't be = 100"));
        QCOMPARE(w.calculator().grid(RTab::SunShepard).rows(), 2);

        w.Tab1()->setCurrentIndex(1);
        QVERIFY(w.box(RBox::Text4)->hasFocus());
        Keys(w.box(RBox::Text4), "100");
        PressEnter(w.box(RBox::Text4));
        Keys(w.box(RBox::Text5), "120");
        PressEnter(w.box(RBox::Text5));
        Keys(w.box(RBox::Text6), "30");
        PressEnter(w.box(RBox::Text6));
        QVERIFY(w.box(RBox::Text7)->hasFocus());
        Keys(w.box(RBox::Text7), "0");
        PressEnter(w.box(RBox::Text7));
        QCOMPARE(f->port.lastText(), QString("Can't accept 0 value"));
        QVERIFY(w.box(RBox::Text7)->hasFocus());
        Keys(w.box(RBox::Text7), "90");
        PressEnter(w.box(RBox::Text7));
        QCOMPARE(w.grid(RTab::HendersonTilton)->cellText(1, 5), QString("60.00"));
        w.close();
    }

    void eraseAllAndCopyTable() {
        ReductionWindow& w = openReduction();
        QVERIFY(ShowActive(w));
        w.Tab1()->setCurrentIndex(2);
        TypeInto(w.box(RBox::Text1), "55");
        TypeInto(w.box(RBox::Text2), "10");
        Click(w.okButton(RTab::SchneiderOrelli));
        w.Tab1()->setCurrentIndex(3);
        TypeInto(w.box(RBox::Text12), "40");
        TypeInto(w.box(RBox::Text13), "20");
        Click(w.okButton(RTab::SunShepard));
        Click(w.copyButton(RTab::SunShepard));
        QCOMPARE(QApplication::clipboard()->text(),
                 QString("\tM% in t\tChange% in co\tcorrected %\n1\t40\t20\t50.00\n\t\t\t\n"));
        QVERIFY(w.grid(RTab::SunShepard)->isVisible());
        Click(w.eraseButton(RTab::SunShepard));
        // Sun-Shepard's "Erase all" empties the Schneider-Orelli boxes, not its own.
        QCOMPARE(w.box(RBox::Text1)->text(), QString());
        QCOMPARE(w.box(RBox::Text2)->text(), QString());
        QCOMPARE(w.box(RBox::Text12)->text(), QString("40"));
        QCOMPARE(w.box(RBox::Text13)->text(), QString("20"));
        QVERIFY(w.box(RBox::Text12)->hasFocus());
        QCOMPARE(w.grid(RTab::SunShepard)->cellText(1, 0), QString());
        Click(w.okButton(RTab::SunShepard));
        QCOMPARE(w.grid(RTab::SunShepard)->cellText(1, 0), QString("1"));

        w.Tab1()->setCurrentIndex(2);
        Click(w.eraseButton(RTab::SchneiderOrelli));
        QCOMPARE(w.calculator().CopyTable(RTab::SchneiderOrelli),
                 std::string("\tM% in t.\tM% in co.\tcorrected %\n\t\t\t\n"));
        QVERIFY(w.box(RBox::Text1)->hasFocus());
        w.close();
    }

    void check1OpensTheFurtherFormula() {
        ReductionWindow& w = openReduction();
        QVERIFY(ShowActive(w));
        w.Tab1()->setCurrentIndex(3);
        QCOMPARE(
            w.Check1()->text(),
            QString("Click hear to see how to calculate change % in control plot population."));
        QCOMPARE(w.Check1Frame()->height(), PixelsY(*w.Check1Frame(), 1000));
        Click(w.Check1());
        QVERIFY(w.Check1()->isChecked());
        QCOMPARE(w.Check1Frame()->height(), PixelsY(*w.Check1Frame(), 2000));
        bool shown = false;
        for (FractionWidget* fraction : w.Check1Frame()->findChildren<FractionWidget*>()) {
            shown = fraction->isVisible() &&
                    fraction->numerator()->text() ==
                        "n in co after treatment - n in co befor treatment" &&
                    fraction->denominator()->text() == "n in co befor treatment";
        }
        QVERIFY(shown);
        Click(w.Check1());
        QCOMPARE(w.Check1Frame()->height(), PixelsY(*w.Check1Frame(), 1000));
        w.close();
    }

    void formulasAreDrawnAsFractions() {
        ReductionWindow& w = openReduction();
        QVERIFY(ShowActive(w));
        const QStringList numerators{
            "n  in t after treatment", "n  in co before treatment *  n  in T after treatment",
            "M % in t  -  M% in co",
            "Mortality % in treated plot  +  Change % in control plot population"};
        const QStringList denominators{
            "n  in co after treatment", "n  in Co after treatment *  n  in T before treatment",
            "100  -  M% in co", "100  +  Change % in control plot population"};
        for (int tab = 0; tab < 4; ++tab) {
            w.Tab1()->setCurrentIndex(tab);
            QApplication::processEvents();
            FractionWidget* fraction = w.Tab1()->widget(tab)->findChild<FractionWidget*>();
            QVERIFY(fraction);
            QCOMPARE(fraction->numerator()->text(), numerators[tab]);
            QCOMPARE(fraction->denominator()->text(), denominators[tab]);
            // The rule lies between the terms and is as wide as the wider one.
            QVERIFY(fraction->rule()->isVisible());
            QCOMPARE(fraction->rule()->height(), 1);
            QVERIFY(fraction->rule()->geometry().top() >=
                    fraction->numerator()->geometry().bottom());
            QVERIFY(fraction->denominator()->geometry().top() >=
                    fraction->rule()->geometry().bottom());
            QVERIFY(fraction->rule()->width() >= fraction->numerator()->sizeHint().width());
            QVERIFY(fraction->rule()->width() >= fraction->denominator()->sizeHint().width());
        }
        w.close();
    }

    void abbottZeroTreatedIsAFullReduction() {
        ReductionWindow& w = openReduction();
        QVERIFY(ShowActive(w));
        QTest::mouseClick(w.Label28(), Qt::LeftButton);
        Keys(w.box(RBox::Text9), "0");
        PressEnter(w.box(RBox::Text9));
        Keys(w.box(RBox::Text10), "50");
        Click(w.okButton(RTab::Abbott));
        QCOMPARE(w.grid(RTab::Abbott)->cellText(1, 3), QString("100.00"));
        TypeInto(w.box(RBox::Text9), "-5");
        Click(w.okButton(RTab::Abbott));
        QCOMPARE(Text(f->port.messages.back().text),
                 QString("treated value must be greater than 0"));
        QCOMPARE(Text(f->port.messages.back().title), QString("invaled value!"));
        QVERIFY(w.box(RBox::Text9)->hasFocus());
        QCOMPARE(w.calculator().grid(RTab::Abbott).rows(), 3);
        w.close();
    }

    void helpOpensTheCalculatorsPages() {
        ReductionWindow& reduction = openReduction();
        Click(reduction.helpButton());
        QCOMPARE(f->program->helpWindow().HelpPage(), f->path("Hreduction.htm"));
        QVERIFY(f->program->helpWindow().isVisible());
        reduction.close();
        PredictionWindow& prediction = openPrediction();
        Click(prediction.helpButton());
        QCOMPARE(f->program->helpWindow().HelpPage(), f->path("Hpredict.htm"));
        prediction.close();
        f->program->helpWindow().close();
    }

    // Extrapolation & Interpolation

    void predictionOpensAndDisablesTheInputWindow() {
        PredictionWindow& w = openPrediction();
        QVERIFY(w.isVisible());
        QCOMPARE(w.windowTitle(), QString("Extrapolation & Interpolation"));
        QVERIFY(!main->contentEnabled());
        for (PBox box : {PBox::Text5, PBox::Text6, PBox::Text10, PBox::Text11})
            QVERIFY(!w.box(box)->isEnabled());
        for (PButton button :
             {PButton::Command2, PButton::Command3, PButton::Command5, PButton::Command6})
            QVERIFY(!w.button(button)->isEnabled());
        QCOMPARE(w.button(PButton::Command2)->text(), QString("Predict  >>"));
        QCOMPARE(w.button(PButton::Command3)->text(), QString("Predict  <<"));
        QVERIFY(!w.Label9()->isVisible());
        QVERIFY(!w.Label16()->isVisible());
        w.close();
        QVERIFY(main->contentEnabled());
    }

    void twoPointsByKeys() {
        PredictionWindow& w = openPrediction();
        QVERIFY(ShowActive(w));
        QVERIFY(w.box(PBox::Text1)->hasFocus());
        Keys(w.box(PBox::Text1), "1");
        PressEnter(w.box(PBox::Text1));
        QVERIFY(w.box(PBox::Text2)->hasFocus());
        Keys(w.box(PBox::Text2), "16");
        QTest::keyClick(w.box(PBox::Text2), Qt::Key_Right);
        QVERIFY(w.box(PBox::Text3)->hasFocus());
        Keys(w.box(PBox::Text3), "10");
        PressEnter(w.box(PBox::Text3));
        QVERIFY(!w.Label5()->isVisible());
        Keys(w.box(PBox::Text4), "84");
        QVERIFY(w.Label5()->isVisible());
        QCOMPARE(w.Label5()->text(), QString("Slope is"));
        QCOMPARE(w.Label6()->text(), QString("1.989"));
        QCOMPARE(w.Label9()->text(), QString("4.0055"));
        QVERIFY(w.box(PBox::Text5)->isEnabled());
        PressEnter(w.box(PBox::Text4));
        QVERIFY(w.box(PBox::Text5)->hasFocus());
        QVERIFY(!w.button(PButton::Command2)->isEnabled());
        Keys(w.box(PBox::Text5), "3.16");
        QVERIFY(w.button(PButton::Command2)->isEnabled());
        Click(w.button(PButton::Command2));
        QCOMPARE(w.box(PBox::Text6)->text(), QString("49.9752"));
        QVERIFY(w.button(PButton::Command3)->isEnabled());
        TypeInto(w.box(PBox::Text6), "90");
        Click(w.button(PButton::Command3));
        QCOMPARE(w.box(PBox::Text5)->text(), QString("13.943"));
        QVERIFY(f->port.messages.empty());
        // A change of a point empties the predictions.
        TypeInto(w.box(PBox::Text3), "100");
        QCOMPARE(w.box(PBox::Text5)->text(), QString());
        QCOMPARE(w.box(PBox::Text6)->text(), QString());
        QVERIFY(!w.button(PButton::Command2)->isEnabled());
        QCOMPARE(w.Label6()->text(), QString("0.995"));
        // An emptied point: no line.
        w.box(PBox::Text3)->clear();
        QVERIFY(!w.box(PBox::Text5)->isEnabled());
        QCOMPARE(w.Label6()->text(), QString());
        w.close();
    }

    void pointAndSlopeAndTheDownArrow() {
        PredictionWindow& w = openPrediction();
        QVERIFY(ShowActive(w));
        QTest::keyClick(w.box(PBox::Text1), Qt::Key_Down);
        QVERIFY(w.box(PBox::Text3)->hasFocus());
        TypeInto(w.box(PBox::Text7), "10");
        QTest::keyClick(w.box(PBox::Text7), Qt::Key_Down);
        QVERIFY(w.box(PBox::Text9)->hasFocus());
        Keys(w.box(PBox::Text9), "2");
        TypeInto(w.box(PBox::Text8), "50");
        QVERIFY(w.box(PBox::Text10)->isEnabled());
        QVERIFY(w.box(PBox::Text11)->isEnabled());
        QCOMPARE(w.Label16()->text(), QString("3"));
        TypeInto(w.box(PBox::Text11), "20");
        Click(w.button(PButton::Command6));
        QCOMPARE(w.box(PBox::Text10)->text(), QString("72.6419"));
        TypeInto(w.box(PBox::Text10), "84");
        Click(w.button(PButton::Command5));
        QCOMPARE(w.box(PBox::Text11)->text(), QString("31.423"));
        QVERIFY(f->port.messages.empty());
        w.close();
    }

    void anIllegalSlopeKeepsTheLineBefore() {
        PredictionWindow& w = openPrediction();
        QVERIFY(ShowActive(w));
        TypeInto(w.box(PBox::Text1), "1");
        TypeInto(w.box(PBox::Text2), "016");
        TypeInto(w.box(PBox::Text3), "10");
        QCOMPARE(w.box(PBox::Text2)->text(), QString("16"));  // rewritten on leaving
        TypeInto(w.box(PBox::Text4), "84");
        TypeInto(w.box(PBox::Text3), "1");
        QCOMPARE(f->port.lastText(), kIllegalSlope);
        QCOMPARE(w.Label6()->text(), QString("1.989"));
        QVERIFY(w.box(PBox::Text5)->isEnabled());
        // A response of 0.5 in the predict box is out of scale, though the tables
        // reach 0.1.
        TypeInto(w.box(PBox::Text6), "0.5");
        Click(w.button(PButton::Command3));
        QCOMPARE(f->port.lastText(), QString("This point is out of scale"));
        QCOMPARE(w.box(PBox::Text5)->text(), QString());
        w.close();
    }

    void predictionKeysShowTheTip() {
        PredictionWindow& w = openPrediction();
        QVERIFY(ShowActive(w));
        Keys(w.box(PBox::Text1), "1-a.5");
        QCOMPARE(w.box(PBox::Text1)->text(), QString("1.5"));
        QCOMPARE(QToolTip::text(), QString("only numbers"));
        w.close();
    }

    void predictionMessages() {
        PredictionWindow& w = openPrediction();
        QVERIFY(ShowActive(w));
        // A point's response out of 1 to 99, on leaving its box.
        TypeInto(w.box(PBox::Text2), "0.5");
        w.box(PBox::Text3)->setFocus(Qt::MouseFocusReason);
        QCOMPARE(f->port.lastText(),
                 QString("1st point give an invaled value\nMorvane can't calculate it"));
        QVERIFY(w.box(PBox::Text2)->hasFocus());
        TypeInto(w.box(PBox::Text2), "16");
        TypeInto(w.box(PBox::Text4), "99.50");
        w.box(PBox::Text1)->setFocus(Qt::MouseFocusReason);
        QCOMPARE(w.box(PBox::Text4)->text(), QString("99.5"));
        QCOMPARE(f->port.lastText(),
                 QString("2nd point give an invaled value\nMorvane can't calculate it"));
        TypeInto(w.box(PBox::Text4), "84");
        // Equal doses: the illegal slope, nothing else.
        TypeInto(w.box(PBox::Text1), "5");
        TypeInto(w.box(PBox::Text3), "5");
        QCOMPARE(f->port.lastText(), kIllegalSlope);
        QVERIFY(!w.box(PBox::Text5)->isEnabled());
        TypeInto(w.box(PBox::Text1), "1");
        TypeInto(w.box(PBox::Text3), "10");
        QCOMPARE(w.Label6()->text(), QString("1.989"));
        // Out of scale both ways.
        TypeInto(w.box(PBox::Text6), "99.5");
        Click(w.button(PButton::Command3));
        QCOMPARE(f->port.lastText(), QString("This point is out of scale"));
        TypeInto(w.box(PBox::Text5), "50.9");
        Click(w.button(PButton::Command2));
        QCOMPARE(f->port.lastText(), QString("This point is out of scale"));
        QVERIFY(w.box(PBox::Text5)->hasFocus());
        // A dose of 0.
        TypeInto(w.box(PBox::Text5), "0");
        Click(w.button(PButton::Command2));
        QCOMPARE(f->port.lastText(),
                 QString("A dose of 0 has no logarithm\nMorvane can't calculate it"));
        TypeInto(w.box(PBox::Text7), "0");
        w.box(PBox::Text8)->setFocus(Qt::MouseFocusReason);
        QCOMPARE(f->port.lastText(),
                 QString("A dose of 0 has no logarithm\nMorvane can't calculate it"));
        QVERIFY(w.box(PBox::Text7)->hasFocus());
        // A flat line.
        TypeInto(w.box(PBox::Text7), "10");
        TypeInto(w.box(PBox::Text8), "50");
        TypeInto(w.box(PBox::Text9), "0");
        TypeInto(w.box(PBox::Text10), "60");
        Click(w.button(PButton::Command5));
        QCOMPARE(f->port.lastText(),
                 QString("The slope of this line is 0: every dose gives the same response\n"
                         "Morvane can't calculate a dose from it"));
        QVERIFY(w.isVisible());
        w.close();
    }
};

QTEST_MAIN(CalculatorWindowsTest)
#include "CalculatorWindowsTest.moc"
