// The tables and captions of the results window, the comparison windows, the notes
// sheet and the input window follow the size of their windows and are never cut:
// the columns of a table fill its view at the default size and when the window
// grows, numbers stand on the right of their cells, the captions of the query tabs
// and the labels of the notes sheet have the room they need.

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "RelativeTestSupport.h"
#include "ShellTestSupport.h"
#include "core/ResultsTables.h"
#include "shell/NotesDialog.h"
#include "shell/ResultsWindow.h"
#include "shell/RtvinWindow.h"
#include "shell/RtvoutWindow.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

// The columns that show, from the first to the right edge of the last, in pixels.
int ColumnsWidth(const TextTableView& view) {
    int right = 0;
    for (int c = 0; c < view.model()->columnCount(); ++c) {
        if (!view.isColumnHidden(c))
            right = std::max(right, view.columnViewportPosition(c) + view.columnWidth(c));
    }
    return right;
}

Qt::Alignment Horizontal(const TextTableView& view, int row, int col) {
    return view.model()
               ->data(view.model()->index(row, col), Qt::TextAlignmentRole)
               .value<Qt::Alignment>() &
           Qt::AlignHorizontal_Mask;
}

}  // namespace

class TablesLayoutTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;

    ResultsWindow* calculate() {
        MainWindow& main = f->program->mainWindow();
        if (!ShowActive(main))
            return nullptr;
        NewLine(*f);
        TypeAssay(main);
        Click(main.CommandCalc());
        ResultsWindow* results = f->program->resultsWindow();
        if (results)
            ShowActive(*results);
        return results;
    }

    // Every column of the view lies in it, and together they fill it.
    static void expectFilled(const TextTableView* view) {
        QVERIFY(view);
        QApplication::processEvents();
        QVERIFY2(
            ColumnsWidth(*view) == view->viewport()->width(),
            qPrintable(
                view->objectName() +
                QString(": %1 in %2").arg(ColumnsWidth(*view)).arg(view->viewport()->width())));
        QVERIFY(view->horizontalScrollBar()->maximum() == 0);
    }

  private slots:
    void init() { f = std::make_unique<ShellFixture>(); }
    void cleanup() { EndProgram(f); }

    void resultsTablesFillTheirWindowAndFollowItsSize() {
        ResultsWindow* results = calculate();
        QVERIFY(results);
        const char* const grids[] = {"Grid1", "Grid22", "Grid2"};
        for (const char* name : grids)
            expectFilled(results->findChild<TextTableView*>(name));
        const int before = results->findChild<TextTableView*>("Grid1")->viewport()->width();
        const int gap = results->results().tables().Grid2.columnWidth(estimatecol::Gap);
        results->resize(1500, 950);
        QApplication::processEvents();
        QVERIFY(results->findChild<TextTableView*>("Grid1")->viewport()->width() > before + 300);
        for (const char* name : grids)
            expectFilled(results->findChild<TextTableView*>(name));
        // The table's own widths stay as the calculation set them.
        QCOMPARE(results->results().tables().Grid2.columnWidth(estimatecol::Gap), gap);
    }

    void numbersStandRightAndTextsLeft() {
        ResultsWindow* results = calculate();
        QVERIFY(results);
        const auto* grid1 = results->findChild<TextTableView*>("Grid1");
        // The data table puts every column on the left; its numbers show on the right.
        QCOMPARE(Horizontal(*grid1, 0, datacol::Dose), Qt::AlignRight);
        QCOMPARE(Horizontal(*grid1, 0, datacol::LogDose), Qt::AlignRight);
        const auto* grid22 = results->findChild<TextTableView*>("Grid22");
        QCOMPARE(grid22->cellText(0, 0), QString("Slope"));
        QCOMPARE(Horizontal(*grid22, 0, 0), Qt::AlignLeft);
        QCOMPARE(Horizontal(*grid22, 0, 1), Qt::AlignRight);
        QVERIFY(grid22->cellText(0, 2).startsWith("+/-"));
        QCOMPARE(Horizontal(*grid22, 0, 2), Qt::AlignLeft);
        const auto* grid2 = results->findChild<TextTableView*>("Grid2");
        QCOMPARE(Horizontal(*grid2, 1, estimatecol::Dose), Qt::AlignRight);
    }

    void queryTabCaptionsShowInFull() {
        ResultsWindow* results = calculate();
        QVERIFY(results);
        QTabBar* bar = results->findChild<QTabWidget*>("SSTab2")->tabBar();
        for (int i = 0; i < bar->count(); ++i) {
            const QRect text = bar->fontMetrics().boundingRect(QRect(0, 0, 4000, 4000),
                                                               Qt::AlignCenter, bar->tabText(i));
            QVERIFY(bar->tabText(i).contains('\n'));
            QVERIFY2(
                bar->tabRect(i).height() >= text.height() + 16,
                qPrintable(QString("%1 < %2").arg(bar->tabRect(i).height()).arg(text.height())));
            QVERIFY(bar->tabRect(i).width() >= text.width() + 16);
        }
    }

    // The list of marks and its frame lie inside the "Graph" page at the default
    // size, with room for a mark of five characters.
    void listOfMarksShowsInFull() {
        ResultsWindow* results = calculate();
        QVERIFY(results);
        results->findChild<QTabWidget*>("Tab1")->setCurrentIndex(1);
        QApplication::processEvents();
        auto* frame = results->findChild<QWidget*>("Frame6");
        auto* list = results->findChild<QWidget*>("List1");
        QVERIFY(frame && list);
        const QWidget* page = frame->parentWidget();
        QVERIFY2(page->rect().contains(frame->geometry()),
                 qPrintable(QString("%1 %2").arg(frame->geometry().bottom()).arg(page->height())));
        QVERIFY(frame->rect().contains(list->geometry()));
        QVERIFY(list->width() >= list->fontMetrics().horizontalAdvance("99.99") + 8);
        QVERIFY(list->height() >= 4 * list->fontMetrics().height());
    }

    void comparisonTablesFillTheirWindows() {
        const QStringList strains = WriteStrainFiles(f->folder.path(), 3);
        for (const QString& path : strains)
            f->port.openAnswers.push_back(path.toStdString());
        f->port.openAnswers.push_back(std::nullopt);
        QVERIFY(ShowActive(f->program->mainWindow()));
        Click(f->program->mainWindow().CommandRelative());
        RtvinWindow* rtvin = f->program->rtvinWindow();
        QVERIFY(rtvin);
        QVERIFY(ShowActive(*rtvin));
        expectFilled(rtvin->Grid1());
        Click(rtvin->Command4());
        RtvoutWindow* out = rtvin->resultsWindow();
        QVERIFY(out);
        QVERIFY(ShowActive(*out));
        expectFilled(out->Grid1());
        const int before = out->Grid1()->viewport()->width();
        out->resize(1500, 950);
        QApplication::processEvents();
        QVERIFY(out->Grid1()->viewport()->width() > before + 300);
        expectFilled(out->Grid1());
    }

    void notesSheetLabelsAreNotCut() {
        QVERIFY(ShowActive(f->program->mainWindow()));
        NewLine(*f);
        Click(f->program->mainWindow().CommandInf_form());
        NotesDialog* notes = f->program->notesDialog();
        QVERIFY(notes);
        QApplication::processEvents();
        const QList<QLabel*> labels = notes->findChildren<QLabel*>();
        QCOMPARE(labels.size(), 5);
        for (const QLabel* label : labels) {
            QVERIFY2(label->sizeHint().width() <= label->width(), qPrintable(label->text()));
            QVERIFY2(label->sizeHint().height() <= label->height(), qPrintable(label->text()));
        }
        // Each box begins after its label.
        for (const QLabel* label : labels) {
            for (const QLineEdit* box : notes->findChildren<QLineEdit*>()) {
                if (box->geometry().intersects(label->geometry()))
                    QFAIL(qPrintable(label->text() + " is covered by a box"));
            }
        }
        Click(notes->findChild<QPushButton*>(QString(), Qt::FindDirectChildrenOnly));
    }

    void captionsOfTheInputCellsKeepAGapToTheirBoxes() {
        MainWindow& main = f->program->mainWindow();
        QVERIFY(ShowActive(main));
        NewLine(*f);
        QLabel* caption = nullptr;
        for (QLabel* label : main.findChildren<QLabel*>()) {
            if (label->text() == "Responded")
                caption = label;
        }
        QVERIFY(caption);
        QCOMPARE(main.Text1input()->toolTip(), caption->text());
        const QRect box = main.Text1input()->geometry();
        const QRect label = caption->geometry();
        QVERIFY2(label.bottom() + 2 < box.top(),
                 qPrintable(QString("%1 %2").arg(label.bottom()).arg(box.top())));
        QVERIFY(caption->sizeHint().height() <= label.height());
    }
};

QTEST_MAIN(TablesLayoutTest)
#include "TablesLayoutTest.moc"
