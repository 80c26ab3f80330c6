// The comparison windows driven by clicks and keys: the table of files with each of
// its rules and messages, files dropped onto it, the batch with its progress bar,
// Cancel and its failures, the relative results tables, which agree text for text
// with morvane-cli compare on the same files, the chart's options and "Customize
// line", and the way back to the input window.

#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>
#include <QProcess>
#include <QProgressBar>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "RelativeTestSupport.h"
#include "ShellTestSupport.h"
#include "relative/LinePens.h"
#include "relative/RelativeExport.h"
#include "shell/CustomLineDialog.h"
#include "shell/HelpWindow.h"
#include "shell/RtvinWindow.h"
#include "shell/RtvoutWindow.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

QStringList Items(const QComboBox* combo) {
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    return items;
}

QStringList Items(const QListWidget* list) {
    QStringList items;
    for (int i = 0; i < list->count(); ++i)
        items << list->item(i)->text();
    return items;
}

void ClickCell(TextTableView* view, int row, int col) {
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->cellRect(row, col).center());
}

// Leaves a box as a user does, by clicking into another.
void Leave(QWidget* to) {
    to->setFocus(Qt::MouseFocusReason);
    QApplication::processEvents();
}

struct CliRun {
    QString out;
    QString err;
    int exitCode = -1;
};

CliRun RunCli(const QStringList& args) {
    QProcess process;
    process.start(MORVANE_CLI, QStringList{"compare"} + args);
    process.waitForFinished(60000);
    return CliRun{QString::fromUtf8(process.readAllStandardOutput()),
                  QString::fromUtf8(process.readAllStandardError()), process.exitCode()};
}

}  // namespace

class RelativeWindowsTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<ShellFixture> f;
    RtvinWindow* rtvin = nullptr;
    QStringList files;

    // The comparison window opened from the input window, with the files chosen in
    // its first dialog.
    void open(const QStringList& chosen) {
        for (const QString& path : chosen)
            f->port.openAnswers.push_back(path.toStdString());
        f->port.openAnswers.push_back(std::nullopt);
        Click(f->program->mainWindow().CommandRelative());
        rtvin = f->program->rtvinWindow();
        QVERIFY(rtvin);
        QVERIFY(ShowActive(*rtvin));
    }
    RtvoutWindow* calculate() {
        Click(rtvin->Command4());
        RtvoutWindow* out = rtvin->resultsWindow();
        if (out)
            ShowActive(*out);
        return out;
    }
    QString cell(int row, int col) const { return rtvin->Grid1()->cellText(row, col); }

  private slots:
    void init() {
        f = std::make_unique<ShellFixture>();
        files = WriteStrainFiles(f->folder.path(), 5);
        QVERIFY(ShowActive(f->program->mainWindow()));
    }
    void cleanup() {
        EndProgram(f);
        rtvin = nullptr;
    }

    void opensInMainsPlaceAndAsksForFiles() {
        MainWindow& main = f->program->mainWindow();
        const QRect place = main.geometry();
        open({});
        QCOMPARE(rtvin->windowTitle(), QString("Relative toxicity"));
        QCOMPARE(f->port.openDialogs.size(), std::size_t{1});
        QCOMPARE(Text(f->port.openDialogs[0].title), QString("Open Morvane file"));
        QCOMPARE(Text(f->port.openDialogs[0].filter), QString("Morvane files (*.mrv)|*.mrv"));
        QVERIFY(!main.isVisible());
        QCOMPARE(rtvin->geometry(), place);
        // Cancelling the first dialog leaves the empty table: one blank row.
        QCOMPARE(rtvin->Grid1()->model()->rowCount(), 1);
        QCOMPARE(cell(1, 0), QString());
        QCOMPARE(cell(0, 0), QString("no."));
        QCOMPARE(cell(0, 1), QString("Line name"));
        QCOMPARE(cell(0, 2), QString("File path"));
        for (QPushButton* b : {rtvin->Command4(), rtvin->Command6(), rtvin->Command8(),
                               rtvin->Command9(), rtvin->Command2(), rtvin->Command3()})
            QVERIFY(!b->isEnabled());
        QVERIFY(rtvin->Command1()->isEnabled());
        QCOMPARE(Items(rtvin->Combo3()), (QStringList{"1st one", "Last one"}));
        QCOMPARE(rtvin->Text1()->text(), QString("50"));
        QCOMPARE(rtvin->Combo2()->currentText(), QString("0.05"));
        QCOMPARE(Items(rtvin->List1()), QStringList{"90"});
        QCOMPARE(rtvin->Text4()->text(), QString("20"));
        QCOMPARE(rtvin->Text3()->text(), QString("80"));
        QVERIFY(rtvin->Check3()->isChecked() && rtvin->Check1()->isChecked());
        QVERIFY(!rtvin->Check7()->isChecked());
    }

    void firstFileFillsTheBlankRowAndLaterOnesAppend() {
        open({files[0], files[1], files[1]});
        QCOMPARE(rtvin->Grid1()->model()->rowCount(), 3);
        QCOMPARE(cell(1, 0), QString("1"));
        QCOMPARE(cell(1, 1), QString("strain01"));
        QCOMPARE(cell(1, 2), files[0]);
        QCOMPARE(cell(3, 0), QString("3"));
        // The same file twice: two rows of one name, both in the lists.
        QCOMPARE(Items(rtvin->Combo3()),
                 (QStringList{"1st one", "strain01", "strain02", "strain02", "Last one"}));
        QCOMPARE(Items(rtvin->Combo4()), Items(rtvin->Combo3()));
        for (QPushButton* b :
             {rtvin->Command4(), rtvin->Command6(), rtvin->Command8(), rtvin->Command9()})
            QVERIFY(b->isEnabled());
        // The columns are sized to their content: the whole path can be read.
        const int pathWidth = rtvin->Grid1()->fontMetrics().horizontalAdvance(files[0]);
        QVERIFY(rtvin->Grid1()->columnWidth(2) >= pathWidth);
    }

    void removingTheOnlyRowKeepsItsNumber() {
        open({files[0]});
        Click(rtvin->Command6());
        QCOMPARE(rtvin->Grid1()->model()->rowCount(), 1);
        QCOMPARE(cell(1, 0), QString("1"));
        QCOMPARE(cell(1, 1), QString());
        QVERIFY(!rtvin->Command4()->isEnabled());
        QVERIFY(!rtvin->Command6()->isEnabled());
        // The next file sees a numbered row and appends beneath the blank one, which
        // the lists skip.
        rtvin->addFiles({files[1].toStdString()});
        QCOMPARE(rtvin->Grid1()->model()->rowCount(), 2);
        QCOMPARE(cell(2, 1), QString("strain02"));
        QCOMPARE(Items(rtvin->Combo3()), (QStringList{"1st one", "strain02", "Last one"}));
    }

    void removingRowOneSelectsRowOneAgain() {
        open({files[0], files[1], files[2]});
        ClickCell(rtvin->Grid1(), 1, 2);
        QCOMPARE(rtvin->Command6()->toolTip(), QString("Remove strain01"));
        QCOMPARE(rtvin->Command9()->toolTip(), QString("Rename strain01"));
        Click(rtvin->Command6());
        QCOMPARE(rtvin->Grid1()->model()->rowCount(), 2);
        QCOMPARE(cell(1, 0), QString("1"));
        QCOMPARE(cell(1, 1), QString("strain02"));
        QCOMPARE(cell(2, 0), QString("2"));
        QCOMPARE(rtvin->rtvin().Grid1.currentRow(), 1);
        QCOMPARE(rtvin->Command6()->toolTip(), QString("Remove strain02"));
    }

    void removingAllAsksFirst() {
        open({files[0], files[1]});
        f->port.answers.push_back(Answer::Cancel);
        Click(rtvin->Command8());
        QCOMPARE(f->port.lastText(), QString("That will delete all lines in the table"));
        QCOMPARE(f->port.messages.back().buttons, Buttons::OkCancel);
        QCOMPARE(rtvin->Grid1()->model()->rowCount(), 2);
        f->port.answers.push_back(Answer::Ok);
        Click(rtvin->Command8());
        QCOMPARE(rtvin->Grid1()->model()->rowCount(), 1);
        QCOMPARE(cell(1, 0), QString());
        QCOMPARE(Items(rtvin->Combo3()), (QStringList{"1 st one", "Last one"}));
        QCOMPARE(Items(rtvin->Combo4()), (QStringList{"Last one", "1 st one"}));
        QVERIFY(!rtvin->Command4()->isEnabled());
        QVERIFY(!rtvin->Command9()->isEnabled());
    }

    void renamingALine() {
        open({files[0], files[1]});
        ClickCell(rtvin->Grid1(), 2, 1);
        f->port.inputAnswers.push_back(std::string("Field 7"));
        Click(rtvin->Command9());
        QCOMPARE(cell(2, 1), QString("Field 7"));
        QCOMPARE(Items(rtvin->Combo4()),
                 (QStringList{"1st one", "strain01", "Field 7", "Last one"}));
        // An empty answer changes nothing.
        f->port.inputAnswers.push_back(std::string());
        Click(rtvin->Command9());
        QCOMPARE(cell(2, 1), QString("Field 7"));
    }

    void sortedPercentMustLieBetweenOneAndNinetyNine() {
        open({files[0]});
        TypeInto(rtvin->Text1(), "99.5");
        Leave(rtvin->Text4());
        QCOMPARE(f->port.lastText(), QString("Sorted LD value msut be between 1 and 99"));
        QVERIFY(rtvin->Text1()->hasFocus());
        TypeInto(rtvin->Text1(), "99");
        Leave(rtvin->Text4());
        QCOMPARE(f->port.messages.size(), std::size_t{1});
        QCOMPARE(rtvin->Frame4()->title(), QString("Sorted LD (99)"));
        // The upper end of the lines follows, red for two seconds.
        QCOMPARE(rtvin->Text3()->text(), QString("99"));
        QCOMPARE(rtvin->Text3()->palette().color(QPalette::Text), QColor(255, 0, 0));
        QVERIFY(rtvin->Timer1()->isActive());
        QTRY_VERIFY_WITH_TIMEOUT(
            rtvin->Text3()->palette().color(QPalette::Text) != QColor(255, 0, 0), 4000);
        TypeInto(rtvin->Text1(), "1");
        Leave(rtvin->Text4());
        QCOMPARE(f->port.messages.size(), std::size_t{1});
        TypeInto(rtvin->Text1(), "0.5");
        Leave(rtvin->Text4());
        QCOMPARE(f->port.messages.size(), std::size_t{2});
        QCOMPARE(f->port.lastText(), QString("Sorted LD value msut be between 1 and 99"));
    }

    void abbreviationRewritesTheCaptions() {
        open({});
        rtvin->Combo1()->setFocus();
        rtvin->Combo1()->lineEdit()->selectAll();
        QTest::keyClicks(rtvin->Combo1()->lineEdit(), "LC");
        PressEnter(rtvin->Combo1()->lineEdit());
        QCOMPARE(rtvin->Label1()->text(), QString("Sort according LC"));
        QCOMPARE(rtvin->Frame2()->title(), QString("Add LC to table"));
        QCOMPARE(rtvin->Frame4()->title(), QString("Sorted LC (50)"));
        QCOMPARE(rtvin->Label6()->text(), QString("From LC"));
        QCOMPARE(rtvin->Label5()->text(), QString("To LC"));
        // An empty abbreviation becomes LD.
        rtvin->Combo1()->lineEdit()->selectAll();
        QTest::keyClick(rtvin->Combo1()->lineEdit(), Qt::Key_Backspace);
        PressEnter(rtvin->Combo1()->lineEdit());
        QCOMPARE(rtvin->Combo1()->currentText(), QString("LD"));
        QCOMPARE(rtvin->Label5()->text(), QString("To LD"));
    }

    void equalLineLimitsStopTheComparison() {
        open({files[0], files[1]});
        TypeInto(rtvin->Text4(), "80");
        Leave(rtvin->Text1());
        Click(rtvin->Command4());
        QCOMPARE(f->port.lastText(), QString("LD value of the 1st point of lines limits (80)\n"
                                             "must be less than  2nd point (80)"));
        QVERIFY(!rtvin->resultsWindow());
        QVERIFY(rtvin->isVisible());
        QVERIFY(rtvin->Text4()->hasFocus());
        QVERIFY(rtvin->Command4()->isEnabled());
    }

    void lineLimitsOutOfRange() {
        open({});
        TypeInto(rtvin->Text3(), "100");
        Leave(rtvin->Text1());
        QCOMPARE(f->port.lastText(), QString("LD value of Line limits msut be between 1 and 99"));
        QVERIFY(rtvin->Text3()->hasFocus());
    }

    void keyFiltersDropOtherKeys() {
        open({});
        TypeInto(rtvin->Text3(), "7a,5");
        QCOMPARE(rtvin->Text3()->text(), QString("75"));
        TypeInto(rtvin->Text1(), "4x5.5");
        QCOMPARE(rtvin->Text1()->text(), QString("45.5"));
    }

    void limitsEnableTheSignificance() {
        open({});
        Click(rtvin->Check3());
        QVERIFY(!rtvin->Check1()->isEnabled());
        QVERIFY(!rtvin->Check1()->isChecked());
        QVERIFY(!rtvin->Combo2()->isEnabled());
        Click(rtvin->Check3());
        QVERIFY(rtvin->Check1()->isEnabled());
        QVERIFY(rtvin->Check1()->isChecked());
        QVERIFY(rtvin->Combo2()->isEnabled());
        Click(rtvin->Check4());
        QVERIFY(!rtvin->Combo3()->isEnabled());
        Click(rtvin->Check5());
        QVERIFY(!rtvin->Combo4()->isEnabled());
    }

    void furtherPercentages() {
        open({});
        QVERIFY(!rtvin->Command2()->isEnabled());
        TypeInto(rtvin->Text2(), "99.95");
        QVERIFY(rtvin->Command2()->isEnabled());
        Click(rtvin->Command2());
        QCOMPARE(f->port.lastText(), QString("This value is out of scale"));
        QVERIFY(rtvin->Text2()->hasFocus());
        TypeInto(rtvin->Text2(), "0.5");
        PressEnter(rtvin->Text2());
        QCOMPARE(Items(rtvin->List1()), (QStringList{"90", "0.5"}));
        TypeInto(rtvin->Text2(), "99.5");
        PressEnter(rtvin->Text2());
        QCOMPARE(Items(rtvin->List1()), (QStringList{"90", "0.5", "99.5"}));
        QCOMPARE(rtvin->Text2()->text(), QString());
        QVERIFY(!rtvin->Command2()->isEnabled());
        rtvin->List1()->setCurrentRow(0);
        QVERIFY(rtvin->Command3()->isEnabled());
        Click(rtvin->Command3());
        QCOMPARE(Items(rtvin->List1()), (QStringList{"0.5", "99.5"}));
        QVERIFY(!rtvin->Command3()->isEnabled());
    }

    void filesDroppedOntoTheTable() {
        open({files[0]});
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(files[1]), QUrl::fromLocalFile(f->path("notes.txt")),
                      QUrl::fromLocalFile(files[2])});
        QWidget* viewport = rtvin->Grid1()->viewport();
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(viewport, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(viewport, &drop);
        QCOMPARE(rtvin->Grid1()->model()->rowCount(), 3);
        QCOMPARE(cell(2, 1), QString("strain02"));
        QCOMPARE(cell(3, 1), QString("strain03"));
        QCOMPARE(cell(3, 2), files[2]);
        // Only line files are taken.
        QMimeData text;
        text.setUrls({QUrl::fromLocalFile(f->path("notes.txt"))});
        QDragEnterEvent refused(QPoint(10, 10), Qt::CopyAction, &text, Qt::LeftButton, {});
        refused.ignore();
        QApplication::sendEvent(viewport, &refused);
        QVERIFY(!refused.isAccepted());
    }

    void resultsAgreeWithTheCommandLine() {
        open({files[3], files[0], files[2], files[1]});
        Click(rtvin->Check7());
        TypeInto(rtvin->Text2(), "95");
        Click(rtvin->Command2());
        // The index against a named line, the RR against the last.
        rtvin->Combo3()->setCurrentIndex(2);
        emit rtvin->Combo3()->activated(2);
        rtvin->Combo4()->setCurrentIndex(rtvin->Combo4()->count() - 1);
        emit rtvin->Combo4()->activated(rtvin->Combo4()->count() - 1);
        QSignalSpy bar(rtvin->Bar1(), &QProgressBar::valueChanged);
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        QVERIFY(out->isVisible());
        QVERIFY(!rtvin->isVisible());
        QCOMPARE(out->windowTitle(), QString("Relative results"));
        // The bar advanced once a file, reaching 100 at the start of the last.
        QStringList values;
        for (const QList<QVariant>& v : bar)
            values << v.at(0).toString();
        QCOMPARE(values, (QStringList{"0", "25", "50", "75", "100"}));
        QCOMPARE(rtvin->Command7()->text(), QString("Opening and calculating strain02"));
        QVERIFY(!rtvin->Picture1()->isVisible());

        const CliRun cli =
            RunCli({"--slope-error", "--add", "90", "--add", "95", "--index-ref", "strain01",
                    "--rr-ref", "last", files[3], files[0], files[2], files[1]});
        QCOMPARE(cli.exitCode, 0);
        QCOMPARE(QString::fromStdString(RelativeTableText(out->rtvout())), cli.out);
        // What the window shows, cell for cell.
        const QStringList lines = cli.out.split('\n');
        const int rows = out->Grid1()->model()->rowCount();
        QCOMPARE(rows, 4);
        for (int r = 0; r <= rows; ++r) {
            const QStringList cells = lines[r].split('\t');
            for (int c = 0; c < cells.size(); ++c)
                QCOMPARE(out->Grid1()->cellText(r, c), cells[c]);
        }
        QCOMPARE(out->Label1()->text(), lines[rows + 2]);
        // The last one is the last line after the sort.
        QCOMPARE(out->Label1()->text(),
                 " Index compared with strain01       Resistance Ratio (RR) compared with " +
                     out->Grid1()->cellText(rows, 1));
        // Numbers right-aligned, the marks of the test centred.
        const QModelIndex estimate = out->Grid1()->model()->index(0, 2);
        QCOMPARE(
            out->Grid1()->model()->data(estimate, Qt::TextAlignmentRole).value<Qt::Alignment>() &
                Qt::AlignHorizontal_Mask,
            Qt::AlignRight);
        const QModelIndex mark = out->Grid1()->model()->index(0, 5);
        QCOMPARE(out->Grid1()->model()->data(mark, Qt::TextAlignmentRole).value<Qt::Alignment>() &
                     Qt::AlignHorizontal_Mask,
                 Qt::AlignHCenter);
        // The hidden key is never shown.
        QVERIFY(out->Grid1()->isColumnHidden(out->rtvout().columns.SortKeyColumn));
        QVERIFY(out->Text3()->hasFocus());
    }

    void aSingleLineIsItsOwnReference() {
        open({files[2]});
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        QCOMPARE(rtvin->Bar1()->value(), 100);
        const Rtvout& r = out->rtvout();
        QCOMPARE(Text(r.Grid1.text(1, r.columns.IndexColumn)), QString("100.000"));
        QCOMPARE(Text(r.Grid1.text(1, r.columns.RatioColumn)), QString("1.000"));
    }

    void cancelEndsTheBatchAndKeepsTheTable() {
        open({files[0], files[1], files[2]});
        const std::string before = rtvin->rtvin().Grid1.dump();
        QTimer::singleShot(0, rtvin, [this] {
            QVERIFY(rtvin->running());
            QVERIFY(rtvin->CancelButton()->isVisible());
            QVERIFY(rtvin->CancelButton()->isEnabled());
            QVERIFY(!rtvin->Command4()->isEnabled());
            Click(rtvin->CancelButton());
        });
        Click(rtvin->Command4());
        QVERIFY(!rtvin->running());
        QVERIFY(!rtvin->resultsWindow());
        QVERIFY(!rtvin->rtvin().rtvoutLoaded());
        QVERIFY(rtvin->isVisible());
        QVERIFY(!rtvin->Picture1()->isVisible());
        QVERIFY(rtvin->Command4()->isEnabled());
        QCOMPARE(rtvin->rtvin().Grid1.dump(), before);
        QVERIFY(f->port.messages.empty());
    }

    void aFileThatFailsEndsTheBatchWithTheMessageOfTheCommandLine() {
        QDir().mkdir(f->path("folder.mrv"));
        QFile junk(f->path("junk.mrv"));
        QVERIFY(junk.open(QIODevice::WriteOnly));
        junk.write("this is not a line file\n");
        junk.close();
        const QStringList broken[] = {
            {files[0], files[1]},               // strain02 vanishes below
            {files[0], f->path("folder.mrv")},  // a directory
            {files[0], f->path("junk.mrv")},    // not a line file
        };
        for (int k = 0; k < 3; ++k) {
            open(broken[k]);
            if (k == 0)
                QVERIFY(QFile::remove(files[1]));
            const std::string before = rtvin->rtvin().Grid1.dump();
            const std::size_t told = f->port.messages.size();
            QVERIFY(!calculate());
            QCOMPARE(f->port.messages.size(), told + 1);
            const CliRun cli = RunCli(broken[k]);
            if (k == 1) {
                // A folder named on the command line is a usage error there, told before
                // any file is read; in the table it is a file that fails to open.
                QCOMPARE(cli.exitCode, 2);
                QVERIFY(cli.err.contains("\" is a folder; compare wants line files."));
                QVERIFY(f->port.lastText().startsWith("An error occurred while opening folder"));
            } else {
                QCOMPARE(cli.exitCode, 1);
                QCOMPARE(f->port.lastText() + "\n", cli.err);
            }
            QVERIFY(f->port.lastText().startsWith("An error occurred while opening ") ||
                    f->port.lastText().startsWith("Can't calculate ") ||
                    f->port.lastText().startsWith("Data in the file "));
            QVERIFY(rtvin->isVisible());
            QVERIFY(rtvin->Command4()->isEnabled());
            QCOMPARE(rtvin->rtvin().Grid1.dump(), before);
            Click(rtvin->Command11());
            QVERIFY(f->program->mainWindow().isVisible());
        }
        QVERIFY(f->port.texts()[0].startsWith("An error occurred while opening strain02\n"));
    }

    void unitsThatDifferAreToldAfterTheResults() {
        const QStringList mixed = WriteStrainFiles(f->folder.path(), 3, "mixed", {"mg", "", "ppm"});
        open(mixed);
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        QCOMPARE(
            f->port.texts(),
            QStringList{"units in your files are not similar, that may mean illogic comparison"});
        Click(out->Command11());
        QVERIFY(rtvin->isVisible());
        // Files without units beside one with units are neutral.
        Click(rtvin->Command6());
        rtvin->addFiles({mixed[1].toStdString()});
        f->port.messages.clear();
        QVERIFY(calculate());
        QVERIFY(f->port.messages.empty());
    }

    void backToTheTableAndBackToTheInput() {
        open({files[0], files[1]});
        TypeInto(rtvin->Text2(), "95");
        Click(rtvin->Command2());
        const std::string table = rtvin->rtvin().Grid1.dump();
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        const QRect place = out->geometry();
        Click(out->Command11());
        QVERIFY(rtvin->isVisible());
        QCOMPARE(rtvin->geometry(), place);
        QCOMPARE(rtvin->rtvin().Grid1.dump(), table);
        QCOMPARE(Items(rtvin->List1()), (QStringList{"90", "95"}));
        QVERIFY(!rtvin->rtvin().rtvoutLoaded());
        // A second comparison starts anew.
        QVERIFY(calculate());
        Click(rtvin->resultsWindow()->Command11());
        Click(rtvin->Command11());
        MainWindow& main = f->program->mainWindow();
        QVERIFY(main.isVisible());
        QVERIFY(main.contentEnabled());
        QVERIFY(!f->program->ended());
        QCOMPARE(f->program->shared().LowerLimit, 0.0);
        QCOMPARE(f->program->shared().UpperLimit, 0.0);
        // The input window holds a new empty line.
        QCOMPARE(main.Grid1()->model()->rowCount(), f->program->document().Grid1().rows() - 1);
        QVERIFY(f->program->document().file().FilePath().empty());
    }

    void closingTheResultsByTheirFrameEndsTheProgram() {
        open({files[0], files[1]});
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        out->close();
        QVERIFY(f->program->ended());
    }

    void closingTheTableByItsFrameEndsTheProgram() {
        open({files[0]});
        rtvin->close();
        QVERIFY(f->program->ended());
    }

    void chartOptions() {
        open({files[0], files[1], files[2]});
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        out->Tab1()->setCurrentIndex(1);
        QCOMPARE(out->Command10()->text(), QString("Copy graphic"));
        QCOMPARE(out->Command10()->toolTip(), QString("Copy graphic"));
        MultiLineChart& chart = out->chart();
        QVERIFY(!chart.drawing().empty());
        QCOMPARE(out->Grid3()->rowCount(), 3);
        QCOMPARE(out->Grid3()->item(0, 0)->text(), QString("1- strain01"));
        QCOMPARE(out->ComLineColor()->toolTip(), QString("Change 1- strain01 color"));
        QCOMPARE(out->ComboCycles()->currentText(), Text(chart.cyclesText()));
        QVERIFY(!out->ComboCycles()->isEnabled());
        Click(out->CheckAutoCycles());
        QVERIFY(out->ComboCycles()->isEnabled());
        out->ComboCycles()->setCurrentIndex(out->ComboCycles()->findText("6"));
        emit out->ComboCycles()->activated(out->ComboCycles()->findText("6"));
        QCOMPARE(chart.cycles(), 6);
        // The values go with the drop lines.
        QVERIFY(!out->Check2()->isEnabled());
        QCOMPARE(out->Check1()->text(), QString("LD50"));
        Click(out->Check1());
        QVERIFY(out->Check2()->isEnabled());
        Click(out->Check2());
        QVERIFY(out->rtvout().Check2.checked);
        Click(out->CheckLineBlack());
        QVERIFY(chart.allBlack());
        Click(out->CheckLineNo());
        QVERIFY(!chart.lineNumbers());
        // Help by tab.
        Click(out->Command15());
        QCOMPARE(f->program->helpWindow().HelpPage(), f->path("Hrtvoutg.htm"));
        out->Tab1()->setCurrentIndex(0);
        QCOMPARE(out->Command10()->text(), QString("Copy tables"));
        Click(out->Command15());
        QCOMPARE(f->program->helpWindow().HelpPage(), f->path("Hrtvoutt.htm"));
    }

    void customizingALine() {
        open({files[0], files[1], files[2]});
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        out->Tab1()->setCurrentIndex(1);
        out->Grid3()->setCurrentCell(1, 0);
        QCOMPARE(out->ComLineColor()->toolTip(), QString("Change 2- strain02 color"));
        const std::uint32_t before = out->rtvout().LineColors[2];
        CustomLineDialog* dialog = out->openCustomLine();
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), QString("Customize line"));
        QCOMPARE(dialog->chosenColor(), before);
        QCOMPARE(dialog->chosenStyle(), 1);
        QVERIFY(!out->isEnabled());
        dialog->clickPatch(4);
        QVERIFY(!dialog->Shape1()->isHidden());
        dialog->clickStyle(3);
        Click(dialog->Command3());  // Cancel
        QCOMPARE(out->rtvout().LineColors[2], before);
        QVERIFY(out->isEnabled());

        dialog = out->openCustomLine();
        dialog->clickPatch(4);
        dialog->clickStyle(3);
        Click(dialog->Command2());  // OK
        QVERIFY(out->isEnabled());
        QCOMPARE(out->rtvout().LineColors[2], PaletteColor(4));
        QCOMPARE(out->rtvout().LineStyles[2], std::int16_t{3});
        QCOMPARE(out->chart().legend()[1].color, ColorOfRgb(PaletteColor(4)));
        // The pen survives a redraw.
        Click(out->CheckLineNo());
        QCOMPARE(out->chart().legend()[1].style, PenStyle::DashDot);

        // "Customize color" takes any colour; its Cancel changes nothing.
        dialog = out->openCustomLine();
        dialog->chooseColor = [](std::uint32_t) { return std::optional<std::uint32_t>(0x123456); };
        Click(dialog->Command1());
        QVERIFY(dialog->Shape1()->isHidden());
        QCOMPARE(dialog->chosenColor(), 0x123456u);
        dialog->chooseColor = [](std::uint32_t) { return std::optional<std::uint32_t>(); };
        Click(dialog->Command1());
        QCOMPARE(dialog->chosenColor(), 0x123456u);
        Click(dialog->Command2());
        QCOMPARE(out->rtvout().LineColors[2], 0x123456u);

        // A new comparison gives the lines their pens anew.
        Click(out->Command11());
        out = calculate();
        QVERIFY(out);
        QCOMPARE(out->rtvout().LineColors[2], before);
    }

    void everyOptionOffLeavesNameAndEstimate() {
        open({files[0], files[1]});
        Click(rtvin->Check3());
        Click(rtvin->Check4());
        Click(rtvin->Check5());
        Click(rtvin->Check2());
        rtvin->List1()->setCurrentRow(0);
        Click(rtvin->Command3());
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        const TextTable& grid = out->rtvout().Grid1;
        QCOMPARE(grid.cols(), 4);
        QCOMPARE(out->Grid1()->cellText(0, 0), QString("No"));
        QCOMPARE(out->Grid1()->cellText(0, 1), QString("Line name"));
        QCOMPARE(out->Grid1()->cellText(0, 2), QString("LD50"));
        QVERIFY(out->Grid1()->isColumnHidden(3));
        QCOMPARE(out->Label1()->text(), QString());
        const CliRun cli = RunCli(
            {"--no-limits", "--no-index", "--no-rr", "--no-slope", "--no-add", files[0], files[1]});
        QCOMPARE(QString::fromStdString(RelativeTableText(out->rtvout())), cli.out);
    }

    void aBlankRowFailsToOpen() {
        open({files[0]});
        Click(rtvin->Command6());
        rtvin->addFiles({files[1].toStdString()});
        QVERIFY(!calculate());
        QVERIFY(f->port.lastText().startsWith("An error occurred while opening \n"));
        QCOMPARE(rtvin->Grid1()->model()->rowCount(), 2);
    }

    void sizingTheColumns() {
        open({files[0], files[1]});
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        Rtvout& r = out->rtvout();
        r.Grid1.setText(1, 1, "A line with a rather long name");
        Click(out->Image1());
        const int nameWidth = r.Grid1.columnWidth(1);
        QVERIFY(nameWidth > 1300);
        QCOMPARE(r.Grid1.columnWidth(r.columns.SortKeyColumn), 0);
        QVERIFY(out->Grid1()->columnWidth(1) >
                out->Grid1()->fontMetrics().horizontalAdvance("A line with a rather long name"));
    }

    void tablesFollowTheWindowsSize() {
        open({files[0], files[1]});
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        const QSize grid = out->Grid1()->size();
        out->resize(out->width() + 200, out->height() + 150);
        QApplication::processEvents();
        QCOMPARE(out->Grid1()->width(), grid.width() + 200);
        QCOMPARE(out->Grid1()->height(), grid.height() + 150);
    }

    void aThousandLinesStayUsable() {
        const QStringList many = WriteStrainFiles(f->folder.path(), 1, "one");
        open({});
        std::vector<std::string> paths(1000, many[0].toStdString());
        rtvin->addFiles(paths);
        QCOMPARE(rtvin->Grid1()->model()->rowCount(), 1000);
        RtvoutWindow* out = calculate();
        QVERIFY(out);
        QCOMPARE(out->Grid1()->model()->rowCount(), 1000);
        // The table scrolls; the chart draws every line and its legend.
        QVERIFY(out->Grid1()->verticalScrollBar()->maximum() > 0);
        out->Tab1()->setCurrentIndex(1);
        QCOMPARE(out->chart().legend().size(), std::size_t{1000});
        QCOMPARE(out->Grid3()->rowCount(), 1000);
    }
};

QTEST_MAIN(RelativeWindowsTest)
#include "RelativeWindowsTest.moc"
