// Takes the screenshots of the import for the documentation: the file dialog as the
// import opens it, then the sheet options of a workbook. Run it under a virtual X
// server with the folder for the pictures:
//   xvfb-run -a -s "-screen 0 1280x800x24" build/tests/shell/shell_import_screenshots
//   docs/screenshots

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>

#include "ScreenshotSupport.h"
#include "ShellTestSupport.h"
#include "shell/ExcelOptionsDialog.h"
#include "shell/MainWindow.h"
#include "shell/OptionsDialog.h"
#include "shell/QtUserPort.h"

using namespace morvane;
using namespace morvane::testing;

namespace {

// A folder of data files to import, copied from the import test files.
QString DataFolder(const QTemporaryDir& temp) {
    const QString folder = temp.path() + "/Bioassays";
    QDir().mkpath(folder);
    const QString data = MORVANE_IMPORT_DATA;
    QFile::copy(data + "/counts.csv", folder + "/field-2024.csv");
    QFile::copy(data + "/xlwt-counts.xls", folder + "/greenhouse-2023.xls");
    QFile::copy(data + "/libreoffice-counts.ods", folder + "/larvae-assay.ods");
    QFile::copy(data + "/openpyxl-counts.xlsx", folder + "/cage-trial.xlsx");
    QFile::copy(data + "/handmade-percent.ods", folder + "/percentages.ods");
    return folder;
}

// The scripted port, whose file dialog is shown as the program shows it,
// photographed and answered with a workbook.
class ScreenshotPort : public QtScriptedPort {
  public:
    QString folder;
    QString picture;
    bool saved = false;

    std::optional<std::string> openFileName(const FileDialog& dialog) override {
        QFileDialog window(nullptr, QString::fromStdString(dialog.title), folder,
                           QtFileFilter(dialog.filter));
        window.setOption(QFileDialog::DontUseNativeDialog);
        window.setViewMode(QFileDialog::List);
        window.resize(760, 440);
        window.move(120, 90);
        window.show();
        saved = SaveGrab(window, picture);
        window.close();
        return (folder + "/greenhouse-2023.xls").toStdString();
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: shell_import_screenshots <folder>\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(folder);
    QTemporaryDir programFolder;
    ScreenshotPort port;
    port.folder = DataFolder(programFolder);
    port.picture = folder + "/import-file-dialog.png";
    Program program(port, programFolder.path() + "/");
    MainWindow& main = program.mainWindow();
    main.resize(1040, 680);
    main.move(40, 40);
    ShowActive(main);

    Click(main.CommandImport());
    OptionsDialog& options = program.optionsDialog();
    TypeInto(options.ComboUnit1()->lineEdit(), "mg");
    Click(options.Command1());
    ExcelOptionsDialog* excel = program.excelOptionsDialog();
    if (!port.saved || !excel || !excel->isVisible()) {
        std::fprintf(stderr, "the import did not reach the sheet options\n");
        return 1;
    }
    excel->move(360, 240);
    excel->Combo2()->setCurrentIndex(1);
    Click(excel->Check1());
    return SaveGrab(*excel, folder + "/import-sheet-options.png") ? 0 : 1;
}
