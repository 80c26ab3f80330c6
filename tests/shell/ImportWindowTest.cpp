// Import in the input window by clicks: the options dialog first, then the file
// dialog, then for a workbook FormExcelOptions with the workbook's sheets.

#include <QComboBox>
#include <QFile>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "ShellTestSupport.h"
#include "document/Import.h"
#include "shell/ExcelOptionsDialog.h"
#include "shell/MainWindow.h"
#include "shell/OptionsDialog.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

std::string DataFile(const std::string& name) {
    return std::string(MORVANE_IMPORT_DATA) + "/" + name;
}

}  // namespace

class ImportWindowTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ShellFixture> f;
    MainWindow* main = nullptr;

    // Import, then the options dialog's OK with a unit typed in.
    void ImportThroughOptions() {
        Click(main->CommandImport());
        OptionsDialog& options = f->program->optionsDialog();
        QVERIFY(options.isVisible());
        TypeInto(options.ComboUnit1()->lineEdit(), "mg");
        Click(options.Command1());
        QVERIFY(!options.isVisible());
    }
    int DataRows() const { return f->program->document().Grid1().rows() - 2; }

  private slots:
    void init() { StartProgram(f, main); }
    void cleanup() { EndProgram(f); }

    void textFileIsReadAfterTheOptionsAndTheFileDialog() {
        f->port.openAnswers.push_back(DataFile("counts.csv"));
        ImportThroughOptions();
        QCOMPARE(f->port.openDialogs.size(), std::size_t{1});
        QCOMPARE(Text(f->port.openDialogs[0].title),
                 QString("Import data from Text or Excel file"));
        QVERIFY(Text(f->port.openDialogs[0].filter).startsWith("All data files ("));
        QCOMPARE(DataRows(), 4);
        QCOMPARE(main->Grid1()->cellText(1, dosecol::Dose), QString("1"));
        QCOMPARE(f->program->document().file().Modified(), 1);
        QVERIFY(f->port.messages.empty());
    }

    void fileDialogOpensWithTheFilterChosenInTheLastImport() {
        f->port.openAnswers.push_back(DataFile("counts.csv"));
        f->port.openFilterChoices.push_back(6);
        ImportThroughOptions();
        QCOMPARE(DataRows(), 4);
        f->port.answers.push_back(Answer::No);  // the "save changes" question of the new line
        f->port.openAnswers.push_back(std::nullopt);
        ImportThroughOptions();
        QCOMPARE(f->port.openDialogs.size(), std::size_t{2});
        QCOMPARE(f->port.openDialogs[0].filterIndex, 0);
        QCOMPARE(f->port.openDialogs[1].filterIndex, 6);
    }

    // A long import shows its progress bar (here at once), and its Cancel leaves the new
    // line empty.
    void cancelOfTheProgressBarLeavesTheNewLineEmpty() {
        const QString path = f->path("many.csv");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (int r = 0; r < 30000; ++r)
            file.write(QString("%1,%2,20\r\n").arg(1 + r % 40).arg(r % 19).toLatin1());
        file.close();
        f->program->setImportProgressDelay(1);
        f->port.openAnswers.push_back(path.toStdString());
        bool seen = false;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            for (QWidget* w : QApplication::topLevelWidgets()) {
                auto* bar = qobject_cast<QProgressDialog*>(w);
                if (!bar || !bar->isVisible() || bar->objectName() != "ImportProgress" || seen)
                    continue;
                seen = true;
                QCOMPARE(bar->labelText(), QString("Importing data..."));
                const auto buttons = bar->findChildren<QPushButton*>();
                QCOMPARE(buttons.size(), 1);
                QCOMPARE(buttons[0]->text(), QString("Cancel"));
                Click(buttons[0]);
            }
        });
        watch.start(0);
        ImportThroughOptions();
        watch.stop();
        QVERIFY(seen);
        QCOMPARE(DataRows(), 0);
        QCOMPARE(f->program->document().Grid1().cols(), 7);  // laid out for two counts
        QCOMPARE(f->program->document().file().Modified(), 0);
        QVERIFY(f->port.messages.empty());
        QVERIFY(main->CommandNew()->isEnabled());
        // The line takes the next import whole.
        f->port.answers.push_back(Answer::No);
        f->port.openAnswers.push_back(DataFile("counts.csv"));
        ImportThroughOptions();
        QCOMPARE(DataRows(), 4);
    }

    void cancelledFileDialogKeepsTheNewEmptyLine() {
        f->port.openAnswers.push_back(std::nullopt);
        ImportThroughOptions();
        QCOMPARE(DataRows(), 0);
        QVERIFY(f->port.messages.empty());
    }

    void workbookAsksForItsSheet() {
        f->port.openAnswers.push_back(DataFile("xlwt-counts.xls"));
        ImportThroughOptions();
        ExcelOptionsDialog* excel = f->program->excelOptionsDialog();
        QVERIFY(excel && excel->isVisible());
        QCOMPARE(excel->windowTitle(), QString("Excel options"));
        QCOMPARE(excel->Combo2()->count(), 2);
        QCOMPARE(excel->Combo2()->itemText(1), QString("Data"));
        QCOMPARE(excel->Combo2()->currentText(), QString("Notes"));
        QCOMPARE(excel->Label2()->text(), "Target file must contains 3 columns, i.e.\n" +
                                              Text(f->program->shared().DoseWord) +
                                              ", Responded and Non responded");
        QVERIFY(!f->program->document().main().Enabled);
        QVERIFY(!main->CommandNew()->isEnabled());
        excel->Combo2()->setCurrentIndex(1);
        Click(excel->Check1());
        Click(excel->Command1());
        QVERIFY(!excel->isVisible());
        QVERIFY(f->program->document().main().Enabled);
        QVERIFY(main->CommandNew()->isEnabled());
        QCOMPARE(DataRows(), 4);
        QCOMPARE(
            f->port.lastText(),
            QString("Morvane can't continue importing data\nthere is an empty cell in row no. 6"));
    }

    void channelCodeThreeReadsOnlyAChosenSheet() {
        f->port.openAnswers.push_back(DataFile("xlwt-counts.xls"));
        ImportThroughOptions();
        ExcelOptionsDialog* excel = f->program->excelOptionsDialog();
        excel->Combo2()->setCurrentIndex(1);
        Click(excel->Check1());
        Click(excel->Command1());
        QCOMPARE(DataRows(), 4);
        // The choice was read once: the code again, with no sheet chosen, does nothing.
        const std::size_t told = f->port.messages.size();
        f->program->document().TextMsg("3");
        QCOMPARE(DataRows(), 4);
        QCOMPARE(f->port.messages.size(), told);
    }

    void emptySheetNameIsRefusedAndCancelLeavesTheLineEmpty() {
        f->port.openAnswers.push_back(DataFile("openpyxl-counts.xlsx"));
        ImportThroughOptions();
        ExcelOptionsDialog* excel = f->program->excelOptionsDialog();
        QVERIFY(excel && excel->isVisible());
        excel->Combo2()->lineEdit()->clear();
        Click(excel->Command1());
        QCOMPARE(f->port.lastText(), QString("Please select or type sheet name."));
        QVERIFY(excel->isVisible());
        Click(excel->Command2());
        QVERIFY(!excel->isVisible());
        QCOMPARE(DataRows(), 0);
    }

    void typedSheetThatIsNotThereResetsTheLine() {
        f->port.openAnswers.push_back(DataFile("openpyxl-counts.xlsx"));
        ImportThroughOptions();
        ExcelOptionsDialog* excel = f->program->excelOptionsDialog();
        TypeInto(excel->Combo2()->lineEdit(), "Sheet9");
        Click(excel->Command1());
        QCOMPARE(f->port.lastText(), QString("An error occurred when opening this file.\n"
                                             "there is no sheet named \"Sheet9\" in this file"));
        QCOMPARE(f->program->document().Grid1().cols(), 3);
    }

    void fileOfAnotherKind() {
        f->port.openAnswers.push_back(DataFile("garbage.xls"));
        ImportThroughOptions();
        QCOMPARE(f->port.lastText(), QString("Can not open this type of files"));
    }
};

QTEST_MAIN(ImportWindowTest)
#include "ImportWindowTest.moc"
