#include "shell/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMenuBar>
#include <QMimeData>
#include <QResizeEvent>
#include <QStatusBar>
#include <QStyle>
#include <QVBoxLayout>

#include "shell/MainMenu.h"
#include "shell/Program.h"
#include "shell/QuoteGuard.h"
#include "shell/RecentFiles.h"
#include "shell/Twips.h"

namespace morvane {
namespace {

// Design places of the controls above the tables, in twips.
constexpr double kToolTop = 60;
constexpr double kToolHeight = 420;
constexpr double kCaptionTop = 520;  // a gap of 40 over the cells
constexpr double kCaptionHeight = 210;
constexpr double kCellTop = 770;
constexpr double kCellHeight = 360;
constexpr double kCellWidth = 950;
constexpr double kDoseLeft = 350;
constexpr double kText1Left = 1350;
constexpr double kText2Left = 2350;
constexpr double kCheckCoLeft = 6350;
constexpr double kNameLeft = 7400;
constexpr double kPicture1Left = 150;
constexpr double kPicture1Top = 1180;
constexpr double kCalcHeight = 450;

QPushButton* IconButton(QWidget* parent, QStyle::StandardPixmap icon, const char* tip) {
    auto* button = new QPushButton(parent);
    button->setIcon(parent->style()->standardIcon(icon));
    button->setIconSize(QSize(20, 20));
    button->setToolTip(tip);
    return button;
}

}  // namespace

MainWindow::MainWindow(Program& program) : QWidget(nullptr), program_(program) {
    setObjectName("main");
    setWindowTitle("Morvane");
    LineDocument& doc = program_.document();
    // Every control stands on one panel, which is disabled while a child window is
    // open; the child windows themselves stay enabled.
    content_ = new QWidget(this);
    QWidget* const panel = content_;

    commandNew_ = new QPushButton("New file", panel);
    commandOpen_ = IconButton(panel, QStyle::SP_DialogOpenButton, "Open Morvane file");
    commandSave_ = IconButton(panel, QStyle::SP_DialogSaveButton, "Save Morvane file");
    commandRelative_ = IconButton(panel, QStyle::SP_DirOpenIcon, "Open Morvane files");
    commandImport_ = IconButton(panel, QStyle::SP_ArrowDown, "Import data from Text or Excel file");
    commandChangeOptions_ = IconButton(panel, QStyle::SP_FileDialogDetailedView, "File option");
    commandNotes_ = IconButton(panel, QStyle::SP_FileDialogInfoView, "Notes sheet");
    commandProbit_ = new QPushButton("Probit", panel);
    commandControl_ = new QPushButton("Reduction %", panel);
    commandFitLine_ = new QPushButton("Fit line", panel);
    commandHelp_ = new QPushButton("Help", panel);
    double left = kDoseLeft - 250;
    const std::pair<QPushButton*, double> toolbar[] = {
        {commandNew_, 1000},     {commandOpen_, 480},   {commandSave_, 480},
        {commandRelative_, 480}, {commandImport_, 480}, {commandChangeOptions_, 480},
        {commandNotes_, 480},    {commandProbit_, 900}, {commandControl_, 1300},
        {commandFitLine_, 1000}, {commandHelp_, 900}};
    for (const auto& [button, width] : toolbar) {
        place(button, left, kToolTop, width, kToolHeight);
        left += width + (button == commandNew_ || button == commandNotes_ ? 200 : 60);
    }

    doseLabel_ = new QLabel(panel);
    text1Label_ = new QLabel(panel);
    text2Label_ = new QLabel(panel);
    nameLabel_ = new QLabel("Treatment name", panel);
    for (QLabel* label : {doseLabel_, text1Label_, text2Label_, nameLabel_}) {
        QFont f = label->font();
        f.setPointSizeF(7.5);
        label->setFont(f);
        label->setStyleSheet("color: #404654;");
    }
    // The captions may reach over the gap to the next cell, and the last one over the
    // buttons' column.
    place(doseLabel_, kDoseLeft, kCaptionTop, kText1Left - kDoseLeft, kCaptionHeight);
    place(text1Label_, kText1Left, kCaptionTop, kText2Left - kText1Left, kCaptionHeight);
    place(text2Label_, kText2Left, kCaptionTop, 1500, kCaptionHeight);
    place(nameLabel_, kNameLeft, kCaptionTop, 2500, kCaptionHeight);

    textDose_ = makeCell(InputCell::TextDose);
    text1input_ = makeCell(InputCell::Text1input);
    text2input_ = makeCell(InputCell::Text2input);
    place(textDose_, kDoseLeft, kCellTop, kCellWidth, kCellHeight);
    place(text1input_, kText1Left, kCellTop, kCellWidth, kCellHeight);
    place(text2input_, kText2Left, kCellTop, kCellWidth, kCellHeight);
    checkCo_ = new QCheckBox("Control", panel);
    checkCo_->setToolTip("The row is a control");
    place(checkCo_, kCheckCoLeft, kCellTop, kCellWidth, kCellHeight);
    commandAccept_ = new QPushButton("Accept", panel);
    commandEdit_ = new QPushButton("Edit", panel);
    commandDel_ = new QPushButton("Delete", panel);
    commandAccept_->setToolTip("Add the row to the table");
    commandEdit_->setToolTip("Move the selected row back to the input cells");
    commandDel_->setToolTip("Delete the selected row");
    textName_ = new QLineEdit(panel);
    RefuseQuotes(textName_, program_.port());

    picture1_ = new QWidget(panel);
    grid1_ = new TextTableView(picture1_);
    grid2_ = new TextTableView(picture1_);
    grid1_->setObjectName("Grid1");
    grid2_->setObjectName("Grid2");
    grid1_->setTable(&doc.Grid1());
    grid2_->setTable(&doc.Grid2());
    commandCalc_ = new QPushButton("Calculate", picture1_);
    QFont calcFont = commandCalc_->font();
    calcFont.setBold(true);
    commandCalc_->setFont(calcFont);

    // The buttons.
    connect(commandNew_, &QPushButton::clicked, this,
            [this] { program_.run([this] { program_.document().CommandNew(); }); });
    connect(commandOpen_, &QPushButton::clicked, this,
            [this] { program_.run([this] { program_.document().CommandOpen(); }); });
    connect(commandSave_, &QPushButton::clicked, this,
            [this] { program_.run([this] { program_.document().CommandSave(); }); });
    connect(commandRelative_, &QPushButton::clicked, this,
            [this] { program_.run([this] { program_.document().CommandRelative(); }); });
    connect(commandImport_, &QPushButton::clicked, this, [this] { program_.commandImport(); });
    connect(commandChangeOptions_, &QPushButton::clicked, this,
            [this] { program_.openChangeOptions(); });
    connect(commandNotes_, &QPushButton::clicked, this, [this] { program_.openNotes(); });
    connect(commandProbit_, &QPushButton::clicked, this, [this] { program_.openProbit(); });
    connect(commandControl_, &QPushButton::clicked, this, [this] { program_.openReduction(); });
    connect(commandFitLine_, &QPushButton::clicked, this, [this] { program_.openPrediction(); });
    connect(commandHelp_, &QPushButton::clicked, this, [this] { program_.openHelp("Hmain.htm"); });
    connect(commandCalc_, &QPushButton::clicked, this, [this] { program_.calculate(); });
    connect(commandAccept_, &QPushButton::clicked, this,
            [this] { program_.run([this] { program_.document().CommandAccept(); }); });
    connect(commandEdit_, &QPushButton::clicked, this,
            [this] { program_.run([this] { program_.document().CommandEdit(); }); });
    connect(commandDel_, &QPushButton::clicked, this,
            [this] { program_.run([this] { program_.document().CommandDel(); }); });
    connect(checkCo_, &QCheckBox::clicked, this, [this](bool ticked) {
        program_.run([this, ticked] { program_.document().setCheckCo(ticked); });
    });
    connect(textName_, &QLineEdit::textEdited, this, [this](const QString& text) {
        program_.run([this, text] { program_.document().setTextName(text.toStdString()); });
    });
    connect(grid1_, &TextTableView::cellSelected, this, [this](int row, int col) {
        if (!refreshing_)
            program_.document().setGrid1Current(row, col);
    });
    connect(grid1_, &TextTableView::cellDoubleClicked, this, [this](int row, int col) {
        program_.run([this, row, col] {
            program_.document().setGrid1Current(row, col);
            program_.document().CommandEdit();
        });
    });

    // The start page stands over the tables while there is no line: the files opened
    // last, each opened by a click.
    startPage_ = new QWidget(picture1_);
    startPage_->setObjectName("StartPage");
    startPage_->setAutoFillBackground(true);
    auto* startLayout = new QVBoxLayout(startPage_);
    auto* recentCaption = new QLabel("Recent files", startPage_);
    QFont captionFont = recentCaption->font();
    captionFont.setBold(true);
    recentCaption->setFont(captionFont);
    recentList_ = new QListWidget(startPage_);
    recentList_->setObjectName("RecentList");
    recentList_->setSpacing(3);
    recentList_->setIconSize(QSize(24, 24));
    startLayout->addWidget(recentCaption);
    startLayout->addWidget(recentList_);
    startPage_->hide();
    connect(recentList_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
        program_.openFile(item->data(Qt::UserRole).toString());
    });
    connect(recentList_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        program_.openFile(item->data(Qt::UserRole).toString());
    });

    menu_ = new MainMenu(*this, program_);
    connect(&program_.recentFiles(), &RecentFiles::changed, this, [this] {
        menu_->refreshRecent();
        refresh();
    });
    menu_->refreshRecent();
    setAcceptDrops(true);

    setMinimumSize(PixelsX(*this, MinFormWidth - kWindowFrameWidth),
                   PixelsY(*this, MinFormHeight - kWindowFrameHeight) + barsHeight());
    resize(minimumSize());
    refresh();
}

int MainWindow::barsHeight() const {
    return menu_->menuBar()->sizeHint().height() + menu_->statusBar()->sizeHint().height();
}

void MainWindow::place(QWidget* widget, double left, double top, double width, double height) {
    widget->setGeometry(PixelsX(*this, left), PixelsY(*this, top), PixelsX(*this, width),
                        PixelsY(*this, height));
}

FilteredLineEdit* MainWindow::makeCell(InputCell cell) {
    auto* edit = new FilteredLineEdit(content_);
    edit->setKeyFilter([cell](char key) { return InputKeyAllowed(cell, key); });
    edit->setArrowSignals(true);
    connect(edit, &QLineEdit::textEdited, this, [this, cell](const QString& text) {
        LineDocument& doc = program_.document();
        if (cell == InputCell::TextDose)
            doc.setTextDose(text.toStdString());
        if (cell == InputCell::Text1input)
            doc.setText1input(text.toStdString());
        if (cell == InputCell::Text2input)
            doc.setText2input(text.toStdString());
    });
    connect(edit, &FilteredLineEdit::enterPressed, this,
            [this, cell] { moveBy(EnterKey(cell, text2inputVisible())); });
    connect(edit, &FilteredLineEdit::rightArrowAtEnd, this,
            [this, cell] { moveBy(RightArrowAtEnd(cell, text2inputVisible())); });
    connect(edit, &FilteredLineEdit::leftArrowAtStart, this,
            [this, cell] { moveBy(LeftArrowAtStart(cell)); });
    connect(edit, &FilteredLineEdit::focusLeft, this, [this, cell] { leaveCell(cell); });
    return edit;
}

bool MainWindow::text2inputVisible() const {
    return program_.document().table().layout().Text2inputVisible;
}

void MainWindow::moveBy(KeyMove move) {
    switch (move) {
        case KeyMove::None:
            return;
        case KeyMove::ToTextDose:
            textDose_->setFocus(Qt::OtherFocusReason);
            return;
        case KeyMove::ToText1input:
            text1input_->setFocus(Qt::OtherFocusReason);
            return;
        case KeyMove::ToText2input:
            text2input_->setFocus(Qt::OtherFocusReason);
            return;
        case KeyMove::ToCommandAccept:
            commandAccept_->setFocus(Qt::OtherFocusReason);
            return;
        case KeyMove::RunAccept:
            program_.run([this] { program_.document().CommandAccept(); });
            return;
    }
}

// Leaving a cell for another control of this window converts its text; a message
// box or another window taking the focus is no leaving.
void MainWindow::leaveCell(InputCell cell) {
    if (refreshing_ || !contentEnabled_ || !isVisible())
        return;
    QWidget* next = QApplication::focusWidget();
    if (!next || next->window() != this)
        return;
    program_.run([this, cell] {
        LineDocument& doc = program_.document();
        if (cell == InputCell::TextDose)
            doc.leaveTextDose();
        if (cell == InputCell::Text1input)
            doc.leaveText1input();
        if (cell == InputCell::Text2input)
            doc.leaveText2input();
    });
}

void MainWindow::refresh() {
    refreshing_ = true;
    const LineDocument& doc = program_.document();
    const MainForm& form = doc.main();
    const DataTable& table = doc.table();
    const EntryLayout& layout = table.layout();
    const LineFile& file = doc.file();
    const SharedRegisters& shared = program_.shared();
    // The caption, with the mark of unsaved changes that the desktop shows.
    setWindowTitle(QString::fromStdString(file.Caption()) + "[*]");
    setWindowModified(file.Modified() != 0 && !file.FileTitle().empty());

    auto setText = [](QLineEdit* edit, const std::string& text) {
        const QString value = QString::fromStdString(text);
        if (edit->text() != value)
            edit->setText(value);
    };
    setText(textDose_, table.TextDose());
    setText(text1input_, table.Text1input());
    setText(text2input_, table.Text2input());
    setText(textName_, form.TextName);
    text2input_->setVisible(layout.Text2inputVisible);
    text2Label_->setVisible(layout.Text2inputVisible);
    text1input_->setToolTip(QString::fromStdString(layout.Text1inputTip));
    text2input_->setToolTip(QString::fromStdString(layout.Text2inputTip));
    text1Label_->setText(QString::fromStdString(layout.Text1inputTip));
    text2Label_->setText(QString::fromStdString(layout.Text2inputTip));
    doseLabel_->setText(QString::fromStdString(shared.DoseWord));
    textDose_->setToolTip(QString::fromStdString(shared.DoseWord));
    checkCo_->setVisible(layout.CheckCoVisible);
    checkCo_->setChecked(table.CheckCo() == 1);
    place(commandAccept_, layout.CommandAcceptLeft, kCellTop, kCellWidth, kCellHeight);
    place(commandEdit_, layout.CommandEditLeft, kCellTop, kCellWidth, kCellHeight);
    place(commandDel_, layout.CommandDelLeft, kCellTop, kCellWidth, kCellHeight);

    commandSave_->setEnabled(file.CommandSaveEnabled());
    commandNotes_->setEnabled(form.CommandInfFormEnabled);
    commandChangeOptions_->setEnabled(form.CommandChgangeOptionsEnabled);
    textName_->setEnabled(form.TextNameEnabled);
    commandCalc_->setEnabled(table.CalculateEnabled());
    picture1_->setVisible(form.Picture1Visible);
    setContentEnabled(form.Enabled);

    grid1_->refresh();
    grid2_->refresh();
    // Each file opened or saved joins the recent files.
    if (!file.FilePath().empty() && file.Modified() == 0)
        program_.recentFiles().add(QString::fromStdString(file.FilePath()));
    const QStringList& recent = program_.recentFiles().files();
    if (recentList_->count() != recent.size() ||
        (!recent.isEmpty() && recentList_->item(0)->data(Qt::UserRole).toString() != recent[0])) {
        recentList_->clear();
        for (const QString& path : recent) {
            auto* item = new QListWidgetItem(
                style()->standardIcon(QStyle::SP_FileIcon),
                QFileInfo(path).fileName() + "    " + QFileInfo(path).absolutePath(), recentList_);
            item->setToolTip(path);
            item->setData(Qt::UserRole, path);
        }
    }
    startPage_->setVisible(file.FileTitle().empty() && !recent.isEmpty());
    menu_->refresh();
    refreshing_ = false;
}

// The child windows (the dialogs that disabled this one) stay enabled: only the
// window's own controls are.
void MainWindow::setContentEnabled(bool enabled) {
    contentEnabled_ = enabled;
    content_->setEnabled(enabled);
}

void MainWindow::focusControl(Focus focus) {
    if (!isVisible() || !contentEnabled_)
        return;
    switch (focus) {
        case Focus::TextDose:
            textDose_->setFocus(Qt::OtherFocusReason);
            break;
        case Focus::Text1input:
            text1input_->setFocus(Qt::OtherFocusReason);
            break;
        case Focus::Text2input:
            text2input_->setFocus(Qt::OtherFocusReason);
            break;
        case Focus::CommandAccept:
            commandAccept_->setFocus(Qt::OtherFocusReason);
            break;
        default:
            break;
    }
}

void MainWindow::ArrangeMainWindow() {
    if (isMinimized())
        return;
    picture1_->hide();
    // The window's sizes as the rules count them, frame included.
    // The menu bar and the status bar stand outside the sizes of the rules, as the frame.
    double formWidth = TwipsX(*this, content_->width()) + kWindowFrameWidth;
    double formHeight = TwipsY(*this, content_->height()) + kWindowFrameHeight;
    if (formHeight <= MinFormHeight)
        formHeight = MinFormHeight;
    if (formWidth <= MinFormWidth)
        formWidth = MinFormWidth;
    const double pictureHeight = formHeight - 1400;
    const double grid1Height = pictureHeight - 500;
    const double grid2Height = pictureHeight - 1100;
    const double grid2Top = 0;
    const double calcTop = grid2Height + grid2Top + 50;
    const double pictureWidth = formWidth - 425;
    const double grid1Width = pictureWidth / 2 + 90;
    const double grid2Left = grid1Width + 200;
    const double grid2Width = pictureWidth / 2 - 375;
    place(picture1_, kPicture1Left, kPicture1Top, pictureWidth, pictureHeight);
    auto inside = [this](QWidget* w, double l, double t, double wd, double h) {
        w->setGeometry(PixelsX(*this, l), PixelsY(*this, t), PixelsX(*this, wd), PixelsY(*this, h));
    };
    inside(grid1_, 0, 0, grid1Width, grid1Height);
    inside(grid2_, grid2Left, grid2Top, grid2Width, grid2Height);
    inside(commandCalc_, grid2Left, calcTop, grid2Width, kCalcHeight);
    const double nameWidth = formWidth - kWindowFrameWidth - kNameLeft - 200;
    place(textName_, kNameLeft, kCellTop, nameWidth, kCellHeight);
    startPage_->setGeometry(0, 0, PixelsX(*this, pictureWidth), PixelsY(*this, grid1Height));
    picture1_->setVisible(program_.document().main().Picture1Visible);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int barHeight = menu_->menuBar()->sizeHint().height();
    const int statusHeight = menu_->statusBar()->sizeHint().height();
    menu_->menuBar()->setGeometry(0, 0, width(), barHeight);
    content_->setGeometry(0, barHeight, width(), height() - barHeight - statusHeight);
    menu_->statusBar()->setGeometry(0, height() - statusHeight, width(), statusHeight);
    ArrangeMainWindow();
}

void MainWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && !isMinimized())
        ArrangeMainWindow();
}

namespace {

// The line file among the dropped ones: the first local file named *.mrv.
QString DroppedLineFile(const QMimeData* data) {
    if (data == nullptr || !data->hasUrls())
        return {};
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile() && url.toLocalFile().endsWith(".mrv", Qt::CaseInsensitive))
            return url.toLocalFile();
    }
    return {};
}

}  // namespace

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (contentEnabled_ && !DroppedLineFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

// A line file dropped on the window opens as Open opens it, after the same question.
void MainWindow::dropEvent(QDropEvent* event) {
    const QString path = DroppedLineFile(event->mimeData());
    if (path.isEmpty() || !contentEnabled_)
        return;
    event->acceptProposedAction();
    program_.openFile(path);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (program_.ended()) {
        event->accept();
        return;
    }
    // A window that a child window has disabled does not close.
    if (!contentEnabled_) {
        event->ignore();
        return;
    }
    bool mayClose = false;
    program_.run([&] { mayClose = program_.document().QueryClose(); });
    if (program_.ended()) {
        event->accept();
        return;
    }
    if (!mayClose) {
        event->ignore();
        return;
    }
    event->accept();
    program_.endProgram();
}

}  // namespace morvane
