#include "shell/Program.h"

#include <QApplication>
#include <QFileInfo>
#include <QPushButton>
#include <QTimer>
#include <exception>

#include "core/LineCalculation.h"
#include "document/FileBytes.h"
#include "document/ImportWorkbook.h"
#include "shell/ChangeOptionsDialog.h"
#include "shell/ExcelOptionsDialog.h"
#include "shell/HelpWindow.h"
#include "shell/ImportProgressDialog.h"
#include "shell/MainWindow.h"
#include "shell/NotesDialog.h"
#include "shell/OptionsDialog.h"
#include "shell/PredictionWindow.h"
#include "shell/ProbitDialog.h"
#include "shell/RecentFiles.h"
#include "shell/ReductionWindow.h"
#include "shell/ResultsWindow.h"
#include "shell/RtvinWindow.h"
#include "shell/WindowGeometry.h"
#include "shell/WindowPlacement.h"

namespace morvane {

void TakePlaceOf(QWidget& window, const QWidget& other) {
    if (other.isMaximized()) {
        window.setWindowState(Qt::WindowMaximized);
        return;
    }
    window.setWindowState(Qt::WindowNoState);
    window.setGeometry(other.geometry());
}

Program::Program(UserPort& port, QString programFolder, QSettings* settings)
    : port_(port),
      programFolder_(std::move(programFolder)),
      settings_(settings),
      recent_(new RecentFiles(settings, this)),
      document_(shared_, port, programFolder_.toStdString()),
      converter_(shared_.probit) {
    document_.setObserver(this);
    main_ = new MainWindow(*this);
    if (settings_)
        RememberGeometry(*main_, *settings_, "main", KeepPlace::SizeOnly);
}

Program::~Program() {
    document_.setObserver(nullptr);
    ended_ = true;
    delete results_.data();
    delete rtvin_.data();
    delete help_.data();
    delete main_;  // the dialogs are its children
}

ChangeOptionsDialog* Program::changeOptionsDialog() const {
    return changeOptions_.data();
}
NotesDialog* Program::notesDialog() const {
    return notes_.data();
}
ResultsWindow* Program::resultsWindow() const {
    return results_.data();
}
RtvinWindow* Program::rtvinWindow() const {
    return rtvin_.data();
}

OptionsDialog& Program::optionsDialog() {
    if (!options_)
        options_ = new OptionsDialog(*this, main_);
    return *options_;
}

HelpWindow& Program::helpWindow() {
    if (!help_) {
        help_ = new HelpWindow(port_);
        if (settings_)
            RememberGeometry(*help_, *settings_, "help", KeepPlace::SizeOnly);
    }
    return *help_;
}

ProbitDialog& Program::probitDialog() {
    if (!probit_) {
        probit_ = new ProbitDialog(
            converter_,
            [this] {
                document_.setMainEnabled(true);
                settle();
            },
            main_);
    }
    return *probit_;
}

void Program::run(const std::function<void()>& command) {
    ++depth_;
    try {
        command();
    } catch (const std::exception& e) {
        // No command ends the program: what stopped it is told, the data stay.
        port_.tellError(std::string("Morvane stopped this command:\n") + e.what());
    }
    --depth_;
    if (depth_ == 0) {
        settle();
        applyFocus();
    }
}

void Program::settle() {
    if (settling_ || ended_)
        return;
    settling_ = true;
    main_->refresh();
    if (options_ && options_->isVisible())
        options_->refresh();
    settling_ = false;
}

void Program::applyFocus() {
    const Focus focus = pendingFocus_;
    pendingFocus_ = Focus::None;
    if (focus == Focus::None || ended_)
        return;
    if (focus == Focus::ComboUnit1 || focus == Focus::Text5) {
        if (options_)
            options_->focusControl(focus);
        return;
    }
    main_->focusControl(focus);
}

void Program::calculate() {
    if (!results_)
        results_ = new ResultsWindow(*this);
    ResultsWindow& window = *results_;
    CalculationOutcome outcome = CalculationOutcome::Refused;
    run([&] {
        LineResults& results = window.results();
        outcome = CalculateLine(document_.calculationInput(), shared_, results.tables(), port_,
                                results.channel());
    });
    if (outcome != CalculationOutcome::Completed)
        return;
    // The results window takes the input window's place; the input window stays
    // disabled until the results window gives it back.
    window.showTables();
    TakePlaceOf(window, *main_);
    document_.setMainEnabled(false);
    document_.setMainVisible(false);
    main_->hide();
    window.show();
    window.raise();
    window.activateWindow();
    settle();
}

void Program::returnToInput(const QWidget& from) {
    if (ended_)
        return;
    TakePlaceOf(*main_, from);
    document_.setMainVisible(true);
    document_.setMainEnabled(true);
    main_->show();
    main_->raise();
    main_->activateWindow();
    settle();
}

void Program::openHelp(const QString& page) {
    HelpWindow& viewer = helpWindow();
    // The viewer opens beside the window that asked for it.
    const QWidget* asker = QApplication::activeWindow();
    if (asker == nullptr || asker == &viewer)
        asker = main_->isVisible() ? main_ : nullptr;
    if (asker != nullptr && !viewer.isVisible())
        MoveBeside(viewer, *asker);
    OpenHelp(viewer, programFolder_, page, port_);
}

bool Program::openFile(const QString& path) {
    if (!main_->isVisible() || !main_->contentEnabled())
        return false;
    bool opened = false;
    run([&] { opened = document_.CommandOpenFile(path.toStdString()); });
    if (opened)
        recent_->add(path);
    else if (!QFileInfo::exists(path))
        recent_->remove(path);
    return opened;
}

namespace {

// Runs its action once, after the first showing of the window it watches.
class OnFirstShow : public QObject {
  public:
    OnFirstShow(QWidget& window, std::function<void()> action)
        : QObject(&window), action_(std::move(action)) {
        window.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            QTimer::singleShot(0, parent(), action_);
            deleteLater();
        }
        return false;
    }

  private:
    std::function<void()> action_;
};

}  // namespace

void Program::openAtStart(const QString& path) {
    if (main_->isVisible()) {
        openFile(path);
        return;
    }
    new OnFirstShow(*main_, [this, path] { openFile(path); });
}

void Program::helpInFront() {
    QWidget* front = QApplication::activeWindow();
    if (front == nullptr)
        front = main_;
    for (QPushButton* button : front->findChildren<QPushButton*>()) {
        if (button->text().remove('&') == "Help" && button->isVisible() && button->isEnabled()) {
            button->click();
            return;
        }
    }
}

void Program::openProbit() {
    document_.setMainEnabled(false);
    settle();
    probitDialog().open();
}

void Program::openNotes() {
    if (!notes_)
        notes_ = new NotesDialog(*this, main_);
    notes_->open();
}

ExcelOptionsDialog* Program::excelOptionsDialog() const {
    return excelOptions_.data();
}

void Program::commandImport() {
    if (document_.main().PendingCommand == MainCommand::None) {
        // The options dialog comes first; its OK sends the import on (importRequested).
        run([this] {
            document_.setImportAfterNew(1);
            document_.CommandNew();
        });
        return;
    }
    document_.setPendingCommand(MainCommand::None);
    const std::optional<std::string> path = ChooseImportFile(port_, importFilterIndex_);
    if (!path)
        return;  // the new empty line stays
    std::string head;
    try {
        head = ReadFileBytes(*path).substr(0, 4096);
    } catch (const std::exception&) {
        // The reading below tells why.
    }
    const ImportFormat format = SniffImportFormat(head);
    if (format == ImportFormat::Text || format == ImportFormat::Unknown) {
        importWithProgress(*path, SheetChoice{});
        return;
    }
    std::vector<std::string> sheets;
    try {
        sheets = WorkbookSheetNames(*path, format);
    } catch (const std::exception& e) {
        run([&] {
            document_.ResetLine();
            port_.tell(std::string(kImportOpenError) + "\n" + e.what());
        });
        return;
    }
    if (!excelOptions_)
        excelOptions_ = new ExcelOptionsDialog(*this, main_);
    excelOptions_->open(*path, sheets, ExcelOptionsHint(document_, shared_.DoseWord));
}

// The sheet options' OK leaves the choice here and starts the read through the
// document's channel (code 3), as the options dialog of a workbook always did.
void Program::importSheet(const std::string& path, const std::string& sheet, bool header) {
    pendingSheet_ = PendingSheet{path, SheetChoice{sheet, header}};
    document_.TextMsg(TextMsgCode::SpreadsheetRead);
}

void Program::openChangeOptions() {
    if (!changeOptions_)
        changeOptions_ = new ChangeOptionsDialog(*this, main_);
    changeOptions_->open();
}

ReductionWindow* Program::reductionWindow() const {
    return reduction_.data();
}
PredictionWindow* Program::predictionWindow() const {
    return prediction_.data();
}

// The calculators unload when they close: each opening starts with empty boxes and
// tables, and the input window is enabled again.
void Program::openReduction() {
    document_.setMainEnabled(false);
    settle();
    reduction_ = new ReductionWindow(
        port_,
        [this] {
            reduction_->deleteLater();
            document_.setMainEnabled(true);
            settle();
        },
        [this] { openHelp(ReductionWindow::kHelpPage); }, main_);
    if (settings_)
        RememberGeometry(*reduction_, *settings_, "reduction", KeepPlace::SizeAndPosition);
    reduction_->open();
}

void Program::openPrediction() {
    document_.setMainEnabled(false);
    settle();
    prediction_ = new PredictionWindow(
        shared_.probit, port_,
        [this] {
            prediction_->deleteLater();
            document_.setMainEnabled(true);
            settle();
        },
        [this] { openHelp(PredictionWindow::kHelpPage); }, main_);
    if (settings_)
        RememberGeometry(*prediction_, *settings_, "prediction", KeepPlace::SizeAndPosition);
    prediction_->show();
    prediction_->raise();
    prediction_->activateWindow();
}

void Program::endProgram() {
    if (ended_)
        return;
    ended_ = true;
    for (QWidget* window :
         std::initializer_list<QWidget*>{probit_.data(), reduction_.data(), prediction_.data(),
                                         notes_.data(), changeOptions_.data(), options_.data(),
                                         help_.data(), results_.data(), rtvin_.data(), main_}) {
        if (window)
            window->close();
    }
    emit programEnded();
}

void Program::documentChanged() {
    if (depth_ == 0)
        settle();
}

void Program::focusRequested(Focus focus) {
    pendingFocus_ = focus;
    if (depth_ == 0)
        applyFocus();
}

void Program::optionsDialogShown() {
    OptionsDialog& dialog = optionsDialog();
    dialog.refresh();
    dialog.show();
    dialog.raise();
    dialog.activateWindow();
}

void Program::optionsDialogHidden() {
    if (options_)
        options_->hide();
}

void Program::relativeRequested() {
    // The comparison window takes the input window's place and asks for files at once.
    if (!rtvin_)
        rtvin_ = new RtvinWindow(*this);
    TakePlaceOf(*rtvin_, *main_);
    document_.setMainEnabled(false);
    document_.setMainVisible(false);
    main_->hide();
    rtvin_->show();
    rtvin_->raise();
    rtvin_->activateWindow();
    rtvin_->TextMsg("2");
}

void Program::leaveComparison(const QWidget& from) {
    if (ended_)
        return;
    // The comparison window goes with its table; the next comparison opens a new one.
    rtvin_ = nullptr;
    run([this] { document_.TextMsg("1"); });
    returnToInput(from);
}

void Program::importRequested() {
    commandImport();
}

// Code 3 with no sheet chosen has nothing to read.
void Program::spreadsheetReadRequested() {
    if (!pendingSheet_)
        return;
    const PendingSheet choice = std::move(*pendingSheet_);
    pendingSheet_.reset();
    importWithProgress(choice.path, choice.sheet);
}

// The reading of an import, with a progress bar when it takes a while.
void Program::importWithProgress(const std::string& path, const SheetChoice& choice) {
    run([&] {
        ImportProgressDialog bar(main_, importProgressDelay_);
        ImportDataFile(document_, port_, path, choice, bar.progress());
    });
}

// The comparison calculates each line through its own calculator (DocumentLineCalculator),
// not through code 6 of the channel: nothing here is asked of the window.
void Program::calculateFileRequested() {}

void Program::programEndRequested() {
    endProgram();
}

}  // namespace morvane
