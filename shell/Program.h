#pragma once
// The running desktop program: the shared registers, the line document, and the
// windows over them, created on first use as the program's forms are. It listens to
// the document and routes what the document asks for (the options dialog, the end
// of the program, the focus) to the windows, and it moves the input window and the
// results window into each other's place.
//
// Every command of a window runs through run(), which lets the windows follow the
// document afterwards and only then moves the keyboard focus, so that no focus
// change reaches into the document while one of its commands is running.

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSettings>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "calculators/ProbitConverter.h"
#include "core/SharedRegisters.h"
#include "core/UserPort.h"
#include "document/ImportWorkbook.h"
#include "document/LineDocument.h"
#include "results/ResultsLayout.h"

namespace morvane {

class MainWindow;
class OptionsDialog;
class ChangeOptionsDialog;
class ExcelOptionsDialog;
class NotesDialog;
class ResultsWindow;
class HelpWindow;
class ProbitDialog;
class ReductionWindow;
class PredictionWindow;
class RtvinWindow;
class RecentFiles;

// The frame of a window around its inside, in twips: the sizes that the layout
// rules give for a window count its borders and title bar.
inline constexpr double kWindowFrameWidth = 120;
inline constexpr double kWindowFrameHeight = 400;

// Gives the window the place of another: maximised when that one is, else its place
// and size. Does not show it.
void TakePlaceOf(QWidget& window, const QWidget& other);

class Program : public QObject, public DocumentObserver {
    Q_OBJECT
  public:
    // The port and the program folder (with a trailing slash) are the program's; the
    // port must outlive it. With settings, the recent files and the sizes of the
    // windows outlast the run (the settings must outlive the program); without, the
    // program remembers nothing.
    Program(UserPort& port, QString programFolder, QSettings* settings = nullptr);
    ~Program() override;

    SharedRegisters& shared() { return shared_; }
    LineDocument& document() { return document_; }
    UserPort& port() { return port_; }
    const QString& ProgramFolder() const { return programFolder_; }

    MainWindow& mainWindow() { return *main_; }
    RecentFiles& recentFiles() { return *recent_; }
    QSettings* settings() const { return settings_; }

    // Opens a line file named without the open dialog (the command line, a drop, the
    // recent files): the save-changes question, then the file; the messages are those
    // of Open. True when the file was opened.
    bool openFile(const QString& path);
    // The file named on the command line: it opens as soon as the input window shows,
    // so that its messages stand over that window.
    void openAtStart(const QString& path);
    // F1: the help of the window in front, through that window's own Help button.
    void helpInFront();
    OptionsDialog& optionsDialog();
    HelpWindow& helpWindow();
    ProbitDialog& probitDialog();
    ChangeOptionsDialog* changeOptionsDialog() const;
    ExcelOptionsDialog* excelOptionsDialog() const;
    // How long an import runs before its progress bar shows (tests show it at once).
    void setImportProgressDelay(int ms) { importProgressDelay_ = ms; }
    NotesDialog* notesDialog() const;
    ResultsWindow* resultsWindow() const;
    RtvinWindow* rtvinWindow() const;

    // Runs a command of a window, then lets every window follow the document and moves
    // the focus where the command asked.
    void run(const std::function<void()>& command);
    // The windows follow the document.
    void settle();

    // The buttons of the input window that open other windows.
    void calculate();                    // CommandCalc
    void openHelp(const QString& page);  // a help page of the program folder
    void openProbit();                   // CommandProbit
    void openNotes();                    // CommandInf_form
    void openChangeOptions();            // CommandChgangeOptions
    // CommandImport: a new line first (the question, the options dialog), then the
    // file dialog, then the reading; a workbook asks for its sheet in FormExcelOptions.
    void commandImport();
    // FormExcelOptions' OK: the sheet of the workbook read into the new line.
    void importSheet(const std::string& path, const std::string& sheet, bool header);
    void openReduction();   // CommandControl: a fresh Reduction % window
    void openPrediction();  // Command1: a fresh extrapolation window
    ReductionWindow* reductionWindow() const;
    PredictionWindow* predictionWindow() const;

    // The results window is going: the input window takes its place and comes back.
    void returnToInput(const QWidget& from);
    // The comparison window goes back: the input window takes its place with a new
    // empty line.
    void leaveComparison(const QWidget& from);

    // Ends the program: every window closes without a further question.
    void endProgram();
    bool ended() const { return ended_; }

    // DocumentObserver
    void documentChanged() override;
    void focusRequested(Focus focus) override;
    void optionsDialogShown() override;
    void optionsDialogHidden() override;
    void relativeRequested() override;
    void importRequested() override;
    void spreadsheetReadRequested() override;
    void calculateFileRequested() override;
    void programEndRequested() override;

  signals:
    void programEnded();

  private:
    void applyFocus();

    UserPort& port_;
    QString programFolder_;
    QSettings* settings_;
    RecentFiles* recent_;
    SharedRegisters shared_;
    LineDocument document_;
    ProbitConverter converter_;
    MainWindow* main_ = nullptr;
    QPointer<OptionsDialog> options_;
    QPointer<ChangeOptionsDialog> changeOptions_;
    QPointer<ExcelOptionsDialog> excelOptions_;
    // The workbook and sheet that the sheet options chose, until code 3 reads them.
    struct PendingSheet {
        std::string path;
        SheetChoice sheet;
    };
    std::optional<PendingSheet> pendingSheet_;
    int importFilterIndex_ = 0;  // the import's last filter, kept for the run
    int importProgressDelay_ = 500;
    void importWithProgress(const std::string& path, const SheetChoice& choice);
    QPointer<NotesDialog> notes_;
    QPointer<ResultsWindow> results_;
    QPointer<HelpWindow> help_;
    QPointer<ProbitDialog> probit_;
    QPointer<ReductionWindow> reduction_;
    QPointer<PredictionWindow> prediction_;
    QPointer<RtvinWindow> rtvin_;
    Focus pendingFocus_ = Focus::None;
    int depth_ = 0;
    bool ended_ = false;
    bool settling_ = false;
};

}  // namespace morvane
