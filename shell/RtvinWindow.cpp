#include "shell/RtvinWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QResizeEvent>
#include <QUrl>
#include <QVBoxLayout>
#include <deque>

#include "relative/DocumentLineCalculator.h"
#include "results/LineResults.h"
#include "shell/Program.h"
#include "shell/QtTextMeasurer.h"
#include "shell/QtUserPort.h"
#include "shell/RtvoutWindow.h"
#include "shell/Twips.h"

namespace morvane {
namespace {

constexpr double kGridLeft = 120;
constexpr double kGridTop = 600;
constexpr double kOptionsWidth = 3700;

// The program's port, with the file dialog answered from a list: the files chosen at
// once in a multi-select dialog, or dropped onto the table, go through the add loop
// one by one, and the loop ends as with the dialog's Cancel.
class ListedFilesPort : public UserPort {
  public:
    ListedFilesPort(UserPort& port, const std::vector<std::string>& files)
        : port_(port), files_(files.begin(), files.end()) {}
    Answer ask(const Message& message) override { return port_.ask(message); }
    std::optional<std::string> openFileName(const FileDialog&) override {
        if (files_.empty())
            return std::nullopt;
        std::string next = std::move(files_.front());
        files_.pop_front();
        return next;
    }
    std::optional<std::string> saveFileName(const FileDialog& dialog) override {
        return port_.saveFileName(dialog);
    }
    std::optional<std::string> inputBox(const InputRequest& request) override {
        return port_.inputBox(request);
    }

  private:
    UserPort& port_;
    std::deque<std::string> files_;
};

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

void SetItems(QComboBox* combo, const ListControl& list) {
    QStringList items;
    for (const std::string& item : list.items)
        items << Q(item);
    QStringList shown;
    for (int i = 0; i < combo->count(); ++i)
        shown << combo->itemText(i);
    if (shown != items) {
        combo->clear();
        combo->addItems(items);
    }
    if (list.listIndex != combo->currentIndex() && list.listIndex < combo->count())
        combo->setCurrentIndex(list.listIndex);
    combo->setEnabled(list.enabled);
}

void SetCheck(QCheckBox* box, const CheckBox& check) {
    box->setChecked(check.checked);
    box->setEnabled(check.enabled);
}

void SetText(QLineEdit* box, const TextBox& text) {
    if (box->text() != Q(text.text))
        box->setText(Q(text.text));
    QPalette palette = box->palette();
    palette.setColor(QPalette::Text, text.fore
                                         ? QColor(text.fore->red, text.fore->green, text.fore->blue)
                                         : QApplication::palette().color(QPalette::Text));
    box->setPalette(palette);
}

bool IsLineFile(const QString& path) {
    return path.endsWith(".mrv", Qt::CaseInsensitive);
}

}  // namespace

RtvinWindow::RtvinWindow(Program& program) : QWidget(nullptr), program_(program) {
    setObjectName("rtvin");
    setWindowTitle("Relative toxicity");
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    build();
    setMinimumSize(PixelsX(*this, MinFormWidth - kWindowFrameWidth),
                   PixelsY(*this, MinFormHeight - kWindowFrameHeight));
    resize(minimumSize());
    refresh();
}

RtvoutWindow* RtvinWindow::resultsWindow() const {
    return rtvout_.data();
}

RtvinWindow::~RtvinWindow() {
    delete rtvout_.data();
    grid1_->setTable(nullptr);
}

void RtvinWindow::build() {
    command1_ = new QPushButton("Add files...", this);
    command1_->setToolTip(Q(rtvin_.Command1.hint));
    command6_ = new QPushButton("Remove", this);
    command8_ = new QPushButton("Remove all", this);
    command8_->setToolTip(Q(rtvin_.Command8.hint));
    command9_ = new QPushButton("Rename...", this);
    command11_ = new QPushButton("back to Input tabls", this);
    command15_ = new QPushButton("Help", this);
    command4_ = new QPushButton("Calculate", this);
    QFont bold = command4_->font();
    bold.setBold(true);
    command4_->setFont(bold);

    grid1_ = new TextTableView(this);
    grid1_->setObjectName("Grid1");
    grid1_->setFillWidth(true);
    grid1_->setTable(&rtvin_.Grid1);
    grid1_->setAcceptDrops(true);
    grid1_->viewport()->setAcceptDrops(true);
    grid1_->viewport()->installEventFilter(this);

    options_ = new QWidget(this);
    auto* column = new QVBoxLayout(options_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);

    frame1_ = new QGroupBox("Options", options_);
    auto* f1 = new QGridLayout(frame1_);
    label2_ = new QLabel("Abbreviation", frame1_);
    combo1_ = new QComboBox(frame1_);
    combo1_->setEditable(true);
    label1_ = new QLabel(frame1_);
    text1_ = new FilteredLineEdit(frame1_);
    check3_ = new QCheckBox("Lower && upper limits", frame1_);
    check1_ = new QCheckBox("Significant differences", frame1_);
    label3_ = new QLabel("Alpha", frame1_);
    combo2_ = new QComboBox(frame1_);
    check4_ = new QCheckBox("Toxicity index", frame1_);
    label7_ = new QLabel("Compared with", frame1_);
    combo3_ = new QComboBox(frame1_);
    check5_ = new QCheckBox("Resistance Ratio (RR)", frame1_);
    label8_ = new QLabel("Compared with", frame1_);
    combo4_ = new QComboBox(frame1_);
    check2_ = new QCheckBox("Slope", frame1_);
    check7_ = new QCheckBox("+/-", frame1_);
    int r = 0;
    f1->addWidget(label2_, r, 0);
    f1->addWidget(combo1_, r++, 1, 1, 2);
    f1->addWidget(label1_, r, 0);
    f1->addWidget(text1_, r, 1);
    f1->addWidget(new QLabel("%", frame1_), r++, 2);
    frame4_ = new QGroupBox(frame1_);
    auto* f4 = new QGridLayout(frame4_);
    f4->addWidget(check3_, 0, 0, 1, 2);
    f4->addWidget(check1_, 1, 0, 1, 2);
    f4->addWidget(label3_, 2, 0);
    f4->addWidget(combo2_, 2, 1);
    f1->addWidget(frame4_, r++, 0, 1, 3);
    f1->addWidget(check4_, r++, 0, 1, 3);
    f1->addWidget(label7_, r, 0);
    f1->addWidget(combo3_, r++, 1, 1, 2);
    f1->addWidget(check5_, r++, 0, 1, 3);
    f1->addWidget(label8_, r, 0);
    f1->addWidget(combo4_, r++, 1, 1, 2);
    f1->addWidget(check2_, r, 0);
    f1->addWidget(check7_, r++, 1, 1, 2);
    f1->setColumnStretch(1, 1);
    column->addWidget(frame1_);

    frame2_ = new QGroupBox(options_);
    auto* f2 = new QGridLayout(frame2_);
    label4_ = new QLabel(frame2_);
    text2_ = new FilteredLineEdit(frame2_);
    command2_ = new QPushButton("Add", frame2_);
    list1_ = new QListWidget(frame2_);
    list1_->setMaximumHeight(PixelsY(*this, 900));
    command3_ = new QPushButton("delete", frame2_);
    f2->addWidget(label4_, 0, 0);
    f2->addWidget(text2_, 0, 1);
    f2->addWidget(command2_, 0, 2);
    f2->addWidget(list1_, 1, 1, 2, 1);
    f2->addWidget(command3_, 1, 2);
    column->addWidget(frame2_);

    frame6_ = new QGroupBox("Llines limits", options_);
    auto* f6 = new QGridLayout(frame6_);
    label6_ = new QLabel(frame6_);
    text4_ = new FilteredLineEdit(frame6_);
    label5_ = new QLabel(frame6_);
    text3_ = new FilteredLineEdit(frame6_);
    f6->addWidget(label6_, 0, 0);
    f6->addWidget(text4_, 0, 1);
    f6->addWidget(label5_, 1, 0);
    f6->addWidget(text3_, 1, 1);
    column->addWidget(frame6_);
    column->addStretch(1);

    // The progress panel of a running comparison.
    picture1_ = new QWidget(this);
    picture1_->setObjectName("Picture1");
    picture1_->setAutoFillBackground(true);
    auto* panel = new QHBoxLayout(picture1_);
    command7_ = new QLabel(picture1_);
    command7_->setObjectName("Command7");
    bar1_ = new QProgressBar(picture1_);
    bar1_->setObjectName("Bar1");
    bar1_->setRange(0, 100);
    cancel_ = new QPushButton("Cancel", picture1_);
    panel->addWidget(command7_, 2);
    panel->addWidget(bar1_, 3);
    panel->addWidget(cancel_);
    picture1_->hide();

    timer1_ = new QTimer(this);
    timer1_->setInterval(Rtvin::kTimer1Interval);
    connect(timer1_, &QTimer::timeout, this, [this] {
        timer1_->stop();
        act([this] { rtvin_.Timer1Tick(); });
    });

    // Key filters: the window drops what a field does not take.
    auto filter = [](RtvinFocus field) {
        return [field](char key) { return Rtvin::KeyAccepted(field, key); };
    };
    text1_->setKeyFilter(filter(RtvinFocus::Text1));
    text2_->setKeyFilter(filter(RtvinFocus::Text2));
    text3_->setKeyFilter(filter(RtvinFocus::Text3));
    text4_->setKeyFilter(filter(RtvinFocus::Text4));

    UserPort& port = program_.port();
    connect(command1_, &QPushButton::clicked, this, [this] { chooseFiles(); });
    connect(command6_, &QPushButton::clicked, this,
            [this] { act([this] { rtvin_.Command6Click(); }); });
    connect(command8_, &QPushButton::clicked, this,
            [this, &port] { act([this, &port] { rtvin_.Command8Click(port); }); });
    connect(command9_, &QPushButton::clicked, this,
            [this, &port] { act([this, &port] { rtvin_.Command9Click(port); }); });
    connect(command2_, &QPushButton::clicked, this,
            [this, &port] { act([this, &port] { rtvin_.Command2Click(port); }); });
    connect(command3_, &QPushButton::clicked, this,
            [this] { act([this] { rtvin_.Command3Click(); }); });
    connect(command4_, &QPushButton::clicked, this, [this] { calculate(); });
    connect(command11_, &QPushButton::clicked, this, [this] { goBack(); });
    connect(command15_, &QPushButton::clicked, this, [this] { program_.openHelp("Hrtvin.htm"); });
    connect(cancel_, &QPushButton::clicked, this, [this] { cancelBatch(); });

    connect(grid1_, &TextTableView::cellSelected, this,
            [this](int row, int) { act([this, row] { rtvin_.Grid1Click(row); }); });
    connect(grid1_, &TextTableView::cellDoubleClicked, this, [this](int row, int) {
        if (!command9_->isEnabled())
            return;
        act([this, row] { rtvin_.Grid1Click(row); });
        command9_->click();
    });

    connect(combo1_->lineEdit(), &QLineEdit::editingFinished, this, [this] {
        act([this] {
            rtvin_.Combo1.text = combo1_->currentText().toStdString();
            rtvin_.Combo1LostFocus();
        });
    });
    connect(combo1_, &QComboBox::activated, this, [this](int index) {
        act([this, index] {
            rtvin_.Combo1.listIndex = index;
            rtvin_.Combo1.text = combo1_->itemText(index).toStdString();
            rtvin_.Combo1LostFocus();
        });
    });
    auto leave = [this](FilteredLineEdit* box, TextBox& field, auto handler) {
        connect(box, &FilteredLineEdit::focusLeft, this, [this, box, &field, handler] {
            if (refreshing_ || running_)
                return;
            act([box, &field, handler] {
                field.text = box->text().toStdString();
                handler();
            });
        });
    };
    leave(text1_, rtvin_.Text1, [this, &port] {
        const bool upperWasRed = rtvin_.Timer1Enabled;
        rtvin_.Text1LostFocus(port);
        if (rtvin_.Timer1Enabled && !upperWasRed)
            timer1_->start();
    });
    leave(text3_, rtvin_.Text3, [this, &port] { rtvin_.Text3LostFocus(port); });
    leave(text4_, rtvin_.Text4, [this, &port] { rtvin_.Text4LostFocus(port); });
    connect(text2_, &FilteredLineEdit::focusLeft, this, [this] {
        if (!refreshing_ && !running_)
            act([this] { rtvin_.Text2LostFocus(); });
    });
    connect(text2_, &QLineEdit::textEdited, this, [this](const QString& text) {
        act([this, text] { rtvin_.Text2Change(text.toStdString()); });
    });
    connect(text2_, &FilteredLineEdit::enterPressed, this,
            [this, &port] { act([this, &port] { rtvin_.Text2KeyPress(kReturnKey, port); }); });

    connect(check3_, &QCheckBox::clicked, this,
            [this](bool on) { act([this, on] { rtvin_.Check3Click(on); }); });
    connect(check1_, &QCheckBox::clicked, this,
            [this](bool on) { act([this, on] { rtvin_.Check1.checked = on; }); });
    connect(check4_, &QCheckBox::clicked, this,
            [this](bool on) { act([this, on] { rtvin_.Check4Click(on); }); });
    connect(check5_, &QCheckBox::clicked, this,
            [this](bool on) { act([this, on] { rtvin_.Check5Click(on); }); });
    connect(check2_, &QCheckBox::clicked, this,
            [this](bool on) { act([this, on] { rtvin_.Check2.checked = on; }); });
    connect(check7_, &QCheckBox::clicked, this,
            [this](bool on) { act([this, on] { rtvin_.Check7.checked = on; }); });
    connect(combo2_, &QComboBox::activated, this,
            [this](int i) { act([this, i] { rtvin_.Combo2.listIndex = i; }); });
    connect(combo3_, &QComboBox::activated, this,
            [this](int i) { act([this, i] { rtvin_.Combo3.listIndex = i; }); });
    connect(combo4_, &QComboBox::activated, this,
            [this](int i) { act([this, i] { rtvin_.Combo4.listIndex = i; }); });
    connect(list1_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!refreshing_)
            act([this, row] { rtvin_.List1Click(row); });
    });
}

void RtvinWindow::act(const std::function<void()>& handler) {
    if (refreshing_)
        return;
    program_.run(handler);
    refresh();
    const RtvinFocus focus = rtvin_.focus;
    rtvin_.focus = RtvinFocus::Unchanged;
    QWidget* target = nullptr;
    switch (focus) {
        case RtvinFocus::Grid1:
            target = grid1_;
            break;
        case RtvinFocus::Combo1:
            target = combo1_;
            break;
        case RtvinFocus::Text1:
            target = text1_;
            break;
        case RtvinFocus::Text2:
            target = text2_;
            break;
        case RtvinFocus::Text3:
            target = text3_;
            break;
        case RtvinFocus::Text4:
            target = text4_;
            break;
        case RtvinFocus::Unchanged:
            break;
    }
    if (target)
        target->setFocus(Qt::OtherFocusReason);
}

void RtvinWindow::refresh() {
    if (refreshing_)
        return;
    refreshing_ = true;
    grid1_->refresh();
    grid1_->fitColumnToContents(1);
    grid1_->fitColumnToContents(2);
    auto button = [](QPushButton* b, const CommandButton& c) {
        b->setEnabled(c.enabled);
        if (!c.hint.empty())
            b->setToolTip(Q(c.hint));
    };
    button(command1_, rtvin_.Command1);
    button(command2_, rtvin_.Command2);
    button(command3_, rtvin_.Command3);
    button(command4_, rtvin_.Command4);
    button(command6_, rtvin_.Command6);
    button(command8_, rtvin_.Command8);
    button(command9_, rtvin_.Command9);

    SetItems(combo1_, rtvin_.Combo1);
    if (combo1_->currentText() != Q(rtvin_.Combo1.text))
        combo1_->setEditText(Q(rtvin_.Combo1.text));
    SetItems(combo2_, rtvin_.Combo2);
    SetItems(combo3_, rtvin_.Combo3);
    SetItems(combo4_, rtvin_.Combo4);
    SetCheck(check1_, rtvin_.Check1);
    SetCheck(check2_, rtvin_.Check2);
    SetCheck(check3_, rtvin_.Check3);
    SetCheck(check4_, rtvin_.Check4);
    SetCheck(check5_, rtvin_.Check5);
    SetCheck(check7_, rtvin_.Check7);
    SetText(text1_, rtvin_.Text1);
    SetText(text2_, rtvin_.Text2);
    SetText(text3_, rtvin_.Text3);
    SetText(text4_, rtvin_.Text4);

    QStringList items;
    for (const std::string& item : rtvin_.List1.items)
        items << Q(item);
    QStringList shown;
    for (int i = 0; i < list1_->count(); ++i)
        shown << list1_->item(i)->text();
    if (items != shown) {
        list1_->clear();
        list1_->addItems(items);
    }
    if (list1_->currentRow() != rtvin_.List1.listIndex)
        list1_->setCurrentRow(rtvin_.List1.listIndex);

    label1_->setText(Q(rtvin_.Label1));
    frame2_->setTitle(Q(rtvin_.Frame2));
    label4_->setText(Q(rtvin_.Label4));
    frame4_->setTitle(Q(rtvin_.Frame4));
    label6_->setText(Q(rtvin_.Label6));
    label5_->setText(Q(rtvin_.Label5));
    refreshing_ = false;
}

void RtvinWindow::setContentEnabled(bool enabled) {
    for (QWidget* w :
         std::initializer_list<QWidget*>{grid1_, options_, command1_, command6_, command8_,
                                         command9_, command4_, command11_, command15_})
        w->setEnabled(enabled);
    if (enabled)
        refresh();
}

void RtvinWindow::TextMsg(const std::string& code) {
    if (code == "2") {
        chooseFiles();
        return;
    }
    act([this, code] { rtvin_.TextMsg(code, program_.port()); });
}

void RtvinWindow::chooseFiles() {
    UserPort& port = program_.port();
    if (dynamic_cast<QtUserPort*>(&port)) {
        // Many files at once: the add loop then takes them one after the other.
        const QStringList chosen = QFileDialog::getOpenFileNames(
            this, "Open Morvane file", QString(), QtFileFilter("Morvane files (*.mrv)|*.mrv"));
        std::vector<std::string> paths;
        for (const QString& path : chosen)
            paths.push_back(path.toStdString());
        addFiles(paths);
        return;
    }
    act([this, &port] { rtvin_.Command1Click(port); });
}

void RtvinWindow::addFiles(const std::vector<std::string>& paths) {
    act([this, &paths] {
        ListedFilesPort listed(program_.port(), paths);
        rtvin_.Command1Click(listed);
    });
}

std::vector<std::string> RtvinWindow::droppedFiles(const QMimeData* data) const {
    std::vector<std::string> paths;
    if (!data || !data->hasUrls())
        return paths;
    for (const QUrl& url : data->urls()) {
        const QString path = url.toLocalFile();
        if (!path.isEmpty() && IsLineFile(path))
            paths.push_back(QFileInfo(path).absoluteFilePath().toStdString());
    }
    return paths;
}

void RtvinWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!running_ && !droppedFiles(event->mimeData()).empty())
        event->acceptProposedAction();
}

void RtvinWindow::dropEvent(QDropEvent* event) {
    const std::vector<std::string> paths = droppedFiles(event->mimeData());
    if (running_ || paths.empty())
        return;
    event->acceptProposedAction();
    addFiles(paths);
}

bool RtvinWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == grid1_->viewport()) {
        switch (event->type()) {
            case QEvent::DragEnter:
            case QEvent::DragMove: {
                auto* drag = static_cast<QDragMoveEvent*>(event);
                if (!running_ && !droppedFiles(drag->mimeData()).empty()) {
                    drag->acceptProposedAction();
                    return true;
                }
                break;
            }
            case QEvent::Drop:
                dropEvent(static_cast<QDropEvent*>(event));
                return true;
            default:
                break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void RtvinWindow::calculate() {
    if (running_)
        return;
    // Each comparison starts from a new results window.
    if (rtvout_) {
        rtvout_->detach();
        delete rtvout_.data();
    }
    running_ = true;
    cancelRequested_ = false;
    setContentEnabled(false);
    bar1_->setValue(0);
    command7_->clear();
    picture1_->show();
    picture1_->raise();

    SharedRegisters& shared = program_.shared();
    const QtTextMeasurer measurer(*this);
    LineResults results(shared, program_.port(), measurer);
    DocumentLineCalculator calculator(program_.document(), results);
    BatchHooks hooks;
    hooks.progress = [this](const BatchProgress& p) {
        command7_->setText(Q(p.caption));
        bar1_->setValue(p.bar);
        // The bar and caption repaint, and the program answers, while the batch runs.
        command7_->repaint();
        bar1_->repaint();
        QApplication::processEvents();
    };
    hooks.cancelled = [this] { return cancelRequested_; };
    hooks.showResults = [this] { showResults(); };
    BatchOutcome outcome = BatchOutcome::Failed;
    program_.run(
        [&] { outcome = RunComparison(rtvin_, shared, calculator, program_.port(), hooks); });
    running_ = false;
    picture1_->hide();
    setContentEnabled(true);
    if (outcome == BatchOutcome::LimitsInvalid)
        text4_->setFocus(Qt::OtherFocusReason);
    if (outcome == BatchOutcome::Shown && rtvout_) {
        rtvout_->focusNote();
    } else if (outcome != BatchOutcome::Shown && !rtvin_.enabled) {
        // A fault outside the comparison's own failures: the table stays as it was.
        rtvin_.UnloadRtvout();
        rtvin_.enabled = true;
        rtvin_.panelVisible = false;
    }
}

void RtvinWindow::showResults() {
    Rtvout* out = rtvin_.rtvout();
    if (!out)
        return;
    picture1_->hide();
    rtvout_ = new RtvoutWindow(program_, *this, *out);
    TakePlaceOf(*rtvout_, *this);
    hide();
    rtvout_->show();
    rtvout_->raise();
    rtvout_->activateWindow();
    rtvout_->afterCalculation();
}

void RtvinWindow::returnFromResults(QWidget& from) {
    TakePlaceOf(*this, from);
    rtvin_.UnloadRtvout();
    show();
    raise();
    activateWindow();
    act([this] { rtvin_.Grid1Click(rtvin_.Grid1.currentRow()); });
}

void RtvinWindow::goBack() {
    if (running_)
        return;
    rtvin_.Command11Click();
    close();
}

void RtvinWindow::closeEvent(QCloseEvent* event) {
    if (running_) {
        // Closing ends the comparison first; the window stays.
        cancelBatch();
        event->ignore();
        return;
    }
    if (program_.ended()) {
        event->accept();
        return;
    }
    const bool back = rtvin_.Unload(program_.shared());
    event->accept();
    if (!back) {
        // Closing this window by its frame ends the program.
        program_.endProgram();
        return;
    }
    program_.leaveComparison(*this);
}

// Coming to the front shows the hints of the selected row, as a click on it does.
void RtvinWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !running_ && !refreshing_)
        act([this] { rtvin_.Grid1Click(rtvin_.Grid1.currentRow()); });
}

void RtvinWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!isMinimized())
        arrange();
}

void RtvinWindow::arrange() {
    const double inner = TwipsX(*this, width());
    const double innerHeight = TwipsY(*this, height());
    auto place = [this](QWidget* w, double left, double top, double wide, double high) {
        w->setGeometry(PixelsX(*this, left), PixelsY(*this, top), PixelsX(*this, wide),
                       PixelsY(*this, high));
    };
    const double gridWidth = std::max(2000.0, inner - 4000);
    const double gridHeight = std::max(1500.0, innerHeight - 2900);
    double x = kGridLeft;
    for (QPushButton* b : {command1_, command6_, command9_, command8_}) {
        place(b, x, 120, 1350, 400);
        x += 1410;
    }
    place(grid1_, kGridLeft, kGridTop, gridWidth, gridHeight);
    place(options_, kGridLeft + gridWidth + 150, 120,
          std::min(kOptionsWidth, inner - gridWidth - 330), innerHeight - 240);
    const double bottom = kGridTop + gridHeight + 200;
    place(command4_, kGridLeft, bottom, 1800, 480);
    place(command11_, kGridLeft + 1900, bottom, 2000, 480);
    place(command15_, kGridLeft + 4000, bottom, 900, 480);
    place(picture1_, kGridLeft, bottom + 600, gridWidth, 520);
}

}  // namespace morvane
