#include "shell/ResultsWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QResizeEvent>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdlib>

#include "core/NumberText.h"
#include "shell/Program.h"
#include "shell/Twips.h"

namespace morvane {
namespace {

constexpr double kTabLeft = 60;
constexpr double kTabTop = 60;
constexpr double kGridLeft = 120;
constexpr double kGrid1Top = 440;
constexpr double kButtonHeight = 420;

// The icon of Image1: two arrows apart, a column made to fit.
QIcon FitColumnsIcon() {
    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(40, 60, 100), 1.6));
    p.drawLine(3, 4, 3, 18);
    p.drawLine(19, 4, 19, 18);
    p.drawLine(6, 11, 16, 11);
    p.drawLine(6, 11, 9, 8);
    p.drawLine(6, 11, 9, 14);
    p.drawLine(16, 11, 13, 8);
    p.drawLine(16, 11, 13, 14);
    return QIcon(pixmap);
}

// A tab caption on two lines, broken at the space nearest its middle, so that both
// captions of the narrow query panel can be read in full.
QString TwoLines(const std::string& caption) {
    QString text = QString::fromStdString(caption);
    const int middle = static_cast<int>(text.size()) / 2;
    int best = -1;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] == ' ' && (best < 0 || std::abs(i - middle) < std::abs(best - middle)))
            best = i;
    }
    if (best > 0)
        text[best] = '\n';
    return text;
}

QLabel* ValueLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    QFont f = label->font();
    f.setBold(true);
    label->setFont(f);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

}  // namespace

ResultsWindow::ResultsWindow(Program& program)
    : QWidget(nullptr),
      program_(program),
      measurer_(*this),
      results_(std::make_unique<LineResults>(program.shared(), program.port(), measurer_)) {
    setObjectName("OutPut");
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle("Results");
    chart_ = std::make_unique<LogProbitChart>(results_->tables().Grid1, program.shared());

    tab1_ = new QTabWidget(this);
    tablesPage_ = new QWidget;
    graphPage_ = new QWidget;
    tab1_->addTab(tablesPage_, "Tables");
    tab1_->addTab(graphPage_, "Graph");
    buildTablesTab(tablesPage_);
    buildGraphTab(graphPage_);

    command5_ = new QPushButton("Save results into files", this);
    command9_ = new QPushButton("Print", this);
    command10_ = new QPushButton("Copy tables", this);
    command11_ = new QPushButton("back to Input tabls", this);
    command15_ = new QPushButton("Help", this);
    connect(command5_, &QPushButton::clicked, this,
            [this] { program_.laterVersion("Saving the results into files"); });
    connect(command9_, &QPushButton::clicked, this,
            [this] { program_.laterVersion("Printing the results"); });
    connect(command10_, &QPushButton::clicked, this, [this] {
        if (tab1_->currentIndex() == 0) {
            QApplication::clipboard()->setText(
                QString::fromStdString(results_->ComposeResultsText()));
        } else {
            program_.laterVersion("Copying the chart");
        }
    });
    connect(tab1_, &QTabWidget::currentChanged, this,
            [this](int tab) { command10_->setText(tab == 1 ? "Copy graphic" : "Copy tables"); });
    connect(command11_, &QPushButton::clicked, this, [this] {
        results_->Command11();
        close();
    });
    connect(command15_, &QPushButton::clicked, this, [this] { program_.openHelp("Hmain.htm"); });

    setMinimumSize(PixelsX(*this, MinFormWidth - kWindowFrameWidth),
                   PixelsY(*this, MinFormHeight - kWindowFrameHeight));
    resize(minimumSize());
}

// The views let go of the tables and the chart before the results that hold them go.
ResultsWindow::~ResultsWindow() {
    grid1_->setTable(nullptr);
    grid22_->setTable(nullptr);
    grid2_->setTable(nullptr);
    delete tab1_;
}

void ResultsWindow::place(QWidget* widget, double left, double top, double width, double height) {
    widget->setGeometry(PixelsX(*this, left), PixelsY(*this, top), PixelsX(*this, width),
                        PixelsY(*this, height));
}

void ResultsWindow::buildTablesTab(QWidget* page) {
    image1_ = new QToolButton(page);
    image1_->setIcon(FitColumnsIcon());
    image1_->setToolTip("Auto resize columns width");
    image1_->setAutoRaise(true);
    connect(image1_, &QToolButton::clicked, this, [this] {
        grid1_->hide();
        results_->FitDataColumns();
        grid1_->refresh();
        grid1_->show();
    });

    grid1_ = new TextTableView(page);
    grid22_ = new TextTableView(page);
    grid2_ = new TextTableView(page);
    grid1_->setObjectName("Grid1");
    grid22_->setObjectName("Grid22");
    grid2_->setObjectName("Grid2");
    measurer_.setWidget(*grid1_);
    grid1_->setTable(&results_->tables().Grid1);
    grid22_->setTable(&results_->tables().Grid22);
    grid2_->setTable(&results_->tables().Grid2);
    // The statistics table has no heading row of its own: its first row is "Slope".
    grid22_->setHeadingRow(false);
    text8_ = new QLabel(page);
    text8_->setWordWrap(true);
    text8_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    text8_->setStyleSheet("color: rgb(170,0,0);");

    sstab2_ = new QTabWidget(page);
    auto* estimate = new QWidget;
    auto* e = new QGridLayout(estimate);
    label4_ = new QLabel(estimate);
    text3_ = new FilteredLineEdit(estimate);
    command3_ = new QPushButton("is", estimate);
    label6_ = ValueLabel(estimate);
    label14_ = new QLabel("Lower limit", estimate);
    label19_ = ValueLabel(estimate);
    label18_ = new QLabel("Upper limit", estimate);
    label20_ = ValueLabel(estimate);
    command4_ = new QPushButton("Add to list >>", estimate);
    e->addWidget(label4_, 0, 0, 1, 4);
    e->addWidget(text3_, 1, 0, 1, 2);
    e->addWidget(new QLabel("%", estimate), 1, 2);
    e->addWidget(command3_, 1, 3);
    e->addWidget(label6_, 2, 0, 1, 4);
    e->addWidget(label14_, 3, 0);
    e->addWidget(label19_, 3, 1, 1, 3);
    e->addWidget(label18_, 4, 0);
    e->addWidget(label20_, 4, 1, 1, 3);
    e->addWidget(command4_, 5, 2, 1, 2);
    e->setRowStretch(6, 1);
    e->setColumnStretch(1, 1);
    sstab2_->addTab(estimate, "Calculate any value");

    auto* response = new QWidget;
    auto* r = new QGridLayout(response);
    label1_ = new QLabel("The responce of", response);
    text2_ = new FilteredLineEdit(response);
    label9_ = new QLabel(response);
    command1_ = new QPushButton("is", response);
    label3_ = ValueLabel(response);
    command2_ = new QPushButton("Add to list >>", response);
    r->addWidget(label1_, 0, 0, 1, 4);
    r->addWidget(text2_, 1, 0, 1, 2);
    r->addWidget(label9_, 1, 2);
    r->addWidget(command1_, 1, 3);
    r->addWidget(label3_, 2, 0, 1, 4);
    r->addWidget(command2_, 3, 2, 1, 2);
    r->setRowStretch(4, 1);
    r->setColumnStretch(1, 1);
    sstab2_->addTab(response, "Calculate Response");

    for (FilteredLineEdit* box : {text2_, text3_}) {
        box->setKeyFilter([](char key) { return ResultQueries::NumberBoxAcceptsKey(key); });
        box->setMinimumWidth(PixelsX(*box, 900));
    }
    connect(text3_, &QLineEdit::textEdited, this, [this](const QString& t) {
        query([t](ResultQueries& q) { q.setText3(t.toStdString()); });
    });
    connect(text2_, &QLineEdit::textEdited, this, [this](const QString& t) {
        query([t](ResultQueries& q) { q.setText2(t.toStdString()); });
    });
    connect(text3_, &FilteredLineEdit::enterPressed, this,
            [this] { query([](ResultQueries& q) { q.Text3Enter(); }); });
    connect(text2_, &FilteredLineEdit::enterPressed, this,
            [this] { query([](ResultQueries& q) { q.Text2Enter(); }); });
    connect(text3_, &FilteredLineEdit::focusLeft, this,
            [this] { query([](ResultQueries& q) { q.Text3LostFocus(); }); });
    connect(text2_, &FilteredLineEdit::focusLeft, this,
            [this] { query([](ResultQueries& q) { q.Text2LostFocus(); }); });
    connect(command3_, &QPushButton::clicked, this,
            [this] { query([](ResultQueries& q) { q.Command3(); }); });
    // A row added to the estimates is fitted like the others, so that it can be read.
    connect(command4_, &QPushButton::clicked, this, [this] {
        query([this](ResultQueries& q) {
            q.Command4();
            results_->FitEstimateColumns();
        });
    });
    connect(command1_, &QPushButton::clicked, this,
            [this] { query([](ResultQueries& q) { q.Command1(); }); });
    connect(command2_, &QPushButton::clicked, this, [this] {
        query([this](ResultQueries& q) {
            q.Command2();
            results_->FitEstimateColumns();
        });
    });
    connect(sstab2_, &QTabWidget::tabBarClicked, this, [this](int tab) {
        if (tab < 0 || tab == sstab2_->currentIndex())
            return;
        sstab2_->setCurrentIndex(tab);
        query([this, tab](ResultQueries& q) { q.SSTab2Click(tab, isVisible()); });
    });
}

void ResultsWindow::buildGraphTab(QWidget* page) {
    chartWidget_ = new ChartWidget(*chart_, page);
    connect(chartWidget_->Text7(), &QLineEdit::returnPressed, this,
            [this] { chartWidget_->setFocus(); });

    frame1_ = new QGroupBox("(X) axis scale", page);
    checkAutoCycles_ = new QCheckBox("Auto", frame1_);
    comboCycles_ = new QComboBox(frame1_);
    for (int n = 2; n <= 15; ++n)
        comboCycles_->addItem(QString::number(n));
    auto* f1 = new QGridLayout(frame1_);
    f1->addWidget(checkAutoCycles_, 0, 0, 1, 2);
    f1->addWidget(new QLabel("Cycles", frame1_), 1, 0);  // Label21
    f1->addWidget(comboCycles_, 1, 1);

    frame5_ = new QGroupBox("Line limits", page);
    option1_ = new QRadioButton("Actual range", frame5_);
    option2_ = new QRadioButton("Adjust range", frame5_);
    text4_ = new FilteredLineEdit(frame5_);
    text5_ = new FilteredLineEdit(frame5_);
    command6_ = new QPushButton("OK", frame5_);
    auto* f5 = new QGridLayout(frame5_);
    f5->addWidget(option1_, 0, 0, 1, 3);
    f5->addWidget(option2_, 1, 0, 1, 3);
    f5->addWidget(text4_, 2, 0);
    f5->addWidget(new QLabel("-", frame5_), 2, 1, Qt::AlignCenter);
    f5->addWidget(text5_, 2, 2);
    f5->addWidget(command6_, 3, 0, 1, 3);

    frame6_ = new QGroupBox("Show on the graph", page);
    check2_ = new QCheckBox("Actual points", frame6_);
    check3_ = new QCheckBox("LD value", frame6_);
    label17_ = new QLabel(frame6_);
    text6_ = new FilteredLineEdit(frame6_);
    command7_ = new QPushButton("Add", frame6_);
    list1_ = new QListWidget(frame6_);
    command8_ = new QPushButton("delete", frame6_);
    auto* f6 = new QGridLayout(frame6_);
    f6->addWidget(check2_, 0, 0, 1, 3);
    f6->addWidget(check3_, 1, 0, 1, 3);
    f6->addWidget(label17_, 2, 0);
    f6->addWidget(text6_, 2, 1);
    f6->addWidget(command7_, 2, 2);
    f6->addWidget(list1_, 3, 0, 1, 2);
    f6->addWidget(command8_, 3, 2, Qt::AlignTop);

    for (FilteredLineEdit* box : {text4_, text5_, text6_}) {
        box->setKeyFilter([](char key) { return ResultQueries::NumberBoxAcceptsKey(key); });
    }
    connect(checkAutoCycles_, &QCheckBox::clicked, this, [this](bool on) {
        chartCommand([on](LogProbitChart& c) {
            c.clickAutoCycles(on);
            return ChartFocus::None;
        });
    });
    connect(comboCycles_, &QComboBox::activated, this, [this](int index) {
        const std::string text = comboCycles_->itemText(index).toStdString();
        chartCommand([text](LogProbitChart& c) {
            c.clickCycles(text);
            return ChartFocus::None;
        });
    });
    connect(option1_, &QRadioButton::clicked, this, [this] {
        chartCommand([](LogProbitChart& c) {
            c.clickActualRange();
            return ChartFocus::None;
        });
    });
    connect(option2_, &QRadioButton::clicked, this, [this] {
        chartCommand([this](LogProbitChart& c) { return c.clickAdjustRange(program_.port()); });
    });
    connect(command6_, &QPushButton::clicked, this, [this] {
        chartCommand([this](LogProbitChart& c) { return c.clickLimitsOk(program_.port()); });
    });
    connect(text4_, &QLineEdit::textEdited, this, [this](const QString& t) {
        chartCommand([t](LogProbitChart& c) {
            c.setLowPercent(t.toStdString());
            return ChartFocus::None;
        });
    });
    connect(text5_, &QLineEdit::textEdited, this, [this](const QString& t) {
        chartCommand([t](LogProbitChart& c) {
            c.setHighPercent(t.toStdString());
            return ChartFocus::None;
        });
    });
    for (FilteredLineEdit* box : {text4_, text5_}) {
        connect(box, &FilteredLineEdit::enterPressed, this, [this] {
            chartCommand([this](LogProbitChart& c) { return c.enterInLimits(program_.port()); });
        });
        connect(box, &FilteredLineEdit::focusLeft, this, [this, box] { numberBoxLeft(box, true); });
    }
    connect(check2_, &QCheckBox::clicked, this, [this](bool on) {
        chartCommand([on](LogProbitChart& c) {
            c.clickShowPoints(on);
            return ChartFocus::None;
        });
    });
    connect(check3_, &QCheckBox::clicked, this, [this](bool on) {
        chartCommand([on](LogProbitChart& c) {
            c.clickShowEstimates(on);
            return ChartFocus::None;
        });
    });
    connect(text6_, &QLineEdit::textEdited, this, [this](const QString& t) {
        chartCommand([t](LogProbitChart& c) {
            c.setMarkPercent(t.toStdString());
            return ChartFocus::None;
        });
    });
    connect(text6_, &FilteredLineEdit::enterPressed, this, [this] {
        chartCommand([this](LogProbitChart& c) { return c.enterInMarkPercent(program_.port()); });
    });
    connect(text6_, &FilteredLineEdit::focusLeft, this, [this] { numberBoxLeft(text6_, false); });
    connect(command7_, &QPushButton::clicked, this, [this] {
        chartCommand([this](LogProbitChart& c) { return c.addMark(program_.port()); });
    });
    connect(list1_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        const int row = list1_->row(item);
        chartCommand([row](LogProbitChart& c) {
            c.clickMark(row);
            return ChartFocus::None;
        });
    });
    connect(command8_, &QPushButton::clicked, this, [this] {
        chartCommand([](LogProbitChart& c) {
            c.deleteMark();
            return ChartFocus::None;
        });
    });
    showChart();
}

// Leaving a number box of the chart: its text becomes the plain text of its number.
// A text that is no number keeps the focus; the limit boxes say so.
void ResultsWindow::numberBoxLeft(FilteredLineEdit* box, bool tellInvalid) {
    if (refreshing_)
        return;
    QWidget* next = QApplication::focusWidget();
    if (!next || next->window() != this)
        return;
    const std::string text = box->text().toStdString();
    if (text.empty())
        return;
    const auto value = ParseNumber(text);
    if (!value) {
        if (tellInvalid)
            program_.port().tell("invaled value!");
        box->setFocus(Qt::OtherFocusReason);
        return;
    }
    const QString plain = QString::fromStdString(PlainText(*value));
    if (plain == box->text())
        return;
    box->setText(plain);
    emit box->textEdited(plain);
}

void ResultsWindow::query(const std::function<void(ResultQueries&)>& action) {
    if (refreshing_)
        return;
    program_.run([&] { action(results_->queries()); });
    grid2_->refresh();
    showPanels();
    switch (results_->queries().panels().focus) {
        case QueryFocus::Text2:
            text2_->setFocus(Qt::OtherFocusReason);
            break;
        case QueryFocus::Text3:
            text3_->setFocus(Qt::OtherFocusReason);
            break;
        case QueryFocus::Command2:
            command2_->setFocus(Qt::OtherFocusReason);
            break;
        case QueryFocus::Command4:
            command4_->setFocus(Qt::OtherFocusReason);
            break;
        case QueryFocus::Unchanged:
            break;
    }
}

void ResultsWindow::showPanels() {
    refreshing_ = true;
    const QueryPanels& p = results_->queries().panels();
    sstab2_->setTabText(0, TwoLines(p.SSTab2Caption0));
    sstab2_->setTabText(1, TwoLines(p.SSTab2Caption1));
    label4_->setText(QString::fromStdString(p.Label4));
    if (text3_->text() != QString::fromStdString(p.Text3))
        text3_->setText(QString::fromStdString(p.Text3));
    command3_->setEnabled(p.Command3Enabled);
    label6_->setText(QString::fromStdString(p.Label6));
    label14_->setText(QString::fromStdString(p.Label14));
    label14_->setVisible(p.Label14Visible);
    label19_->setText(QString::fromStdString(p.Label19));
    label18_->setText(QString::fromStdString(p.Label18));
    label18_->setVisible(p.Label18Visible);
    label20_->setText(QString::fromStdString(p.Label20));
    command4_->setEnabled(p.Command4Enabled);
    label1_->setText(QString::fromStdString(p.Label1));
    if (text2_->text() != QString::fromStdString(p.Text2))
        text2_->setText(QString::fromStdString(p.Text2));
    label9_->setText(QString::fromStdString(p.Label9));
    command1_->setEnabled(p.Command1Enabled);
    label3_->setText(QString::fromStdString(p.Label3));
    label3_->setVisible(p.Label3Visible);
    command2_->setEnabled(p.Command2Enabled);
    refreshing_ = false;
}

void ResultsWindow::chartCommand(const std::function<ChartFocus(LogProbitChart&)>& action) {
    if (refreshing_)
        return;
    ChartFocus focus = ChartFocus::None;
    program_.run([&] { focus = action(*chart_); });
    showChart();
    switch (focus) {
        case ChartFocus::LowPercent:
            text4_->setFocus(Qt::OtherFocusReason);
            break;
        case ChartFocus::HighPercent:
            text5_->setFocus(Qt::OtherFocusReason);
            break;
        case ChartFocus::MarkPercent:
            text6_->setFocus(Qt::OtherFocusReason);
            break;
        case ChartFocus::None:
            break;
    }
}

void ResultsWindow::showChart() {
    refreshing_ = true;
    const LogProbitChart& c = *chart_;
    checkAutoCycles_->setChecked(c.autoCycles());
    comboCycles_->setEnabled(c.cyclesEnabled());
    const int index = comboCycles_->findText(QString::fromStdString(c.cyclesText()));
    if (index >= 0)
        comboCycles_->setCurrentIndex(index);
    option1_->setChecked(!c.adjustRange());
    option2_->setChecked(c.adjustRange());
    auto set = [](QLineEdit* edit, const std::string& text) {
        if (edit->text() != QString::fromStdString(text))
            edit->setText(QString::fromStdString(text));
    };
    set(text4_, c.lowPercent());
    set(text5_, c.highPercent());
    set(text6_, c.markPercent());
    command6_->setEnabled(c.limitsOkEnabled());
    check2_->setChecked(c.showPoints());
    check3_->setChecked(c.showEstimates());
    command7_->setEnabled(c.addMarkEnabled());
    if (list1_->count() != static_cast<int>(c.marks().size()) || [&] {
            for (int i = 0; i < list1_->count(); ++i)
                if (list1_->item(i)->text().toStdString() != c.marks()[static_cast<std::size_t>(i)])
                    return true;
            return false;
        }()) {
        list1_->clear();
        for (const std::string& mark : c.marks())
            list1_->addItem(QString::fromStdString(mark));
    }
    list1_->setCurrentRow(c.selectedMark());
    command8_->setEnabled(c.deleteMarkEnabled());
    chartWidget_->update();
    refreshing_ = false;
}

void ResultsWindow::showTables() {
    const ResultsTables& tables = results_->tables();
    setWindowTitle(QString::fromStdString(tables.Caption));
    grid1_->refresh();
    grid22_->refresh();
    grid2_->refresh();
    text8_->setText(QString::fromStdString(tables.Text8));
    grid2_->setToolTip(QString::fromStdString(tables.Grid2ToolTip));
    showPanels();
}

void ResultsWindow::Activate() {
    chart_->RedrawChart();
    results_->Activate();
    const WordCaptions& captions = results_->captions();
    label17_->setText(QString::fromStdString(captions.Label17));
    check3_->setText(QString::fromStdString(captions.Check3));
    chartWidget_->Text7()->setText(QString::fromStdString(captions.Text7));
    showPanels();
    showChart();
}

void ResultsWindow::arrange() {
    if (isMinimized())
        return;
    tab1_->hide();
    double formWidth = TwipsX(*this, width()) + kWindowFrameWidth;
    double formHeight = TwipsY(*this, height()) + kWindowFrameHeight;
    if (formHeight < MinFormHeight)
        formHeight = MinFormHeight;
    if (formWidth < MinFormWidth)
        formWidth = MinFormWidth;
    const double tabWidth = formWidth - 200;
    const double tabHeight = formHeight - 1200;
    place(tab1_, kTabLeft, kTabTop, tabWidth, tabHeight);

    // The pages begin under the tab strip, whose height the rules do not count: the
    // lower tables end where the page ends.
    auto inPage = [this](QWidget* w, double left, double top, double width, double height) {
        place(w, left, top, width, height);
    };
    const double pageHeight = tabHeight - TwipsY(*this, tab1_->tabBar()->sizeHint().height()) - 60;
    const double grid1Width = tabWidth - 4600;
    const double grid1Height = tabHeight / 2 - 555;
    inPage(image1_, kGridLeft, 40, 360, 360);
    inPage(grid1_, kGridLeft, kGrid1Top, grid1Width, grid1Height);
    const double grid1Right = kGridLeft + grid1Width;
    const double sstabLeft = grid1Right + 150;
    inPage(sstab2_, sstabLeft, 40, tabWidth - 150 - sstabLeft, grid1Height + kGrid1Top - 40);
    const double lowerTop = kGrid1Top + grid1Height + 105;
    const double lowerHeight = std::min(tabHeight - grid1Height - 855, pageHeight - lowerTop - 90);
    const double grid22Width = tabWidth / 2 - 335;
    inPage(grid22_, kGridLeft, lowerTop, grid22Width, lowerHeight);
    const double grid2Left = kGridLeft + grid22Width + 210;
    inPage(grid2_, grid2Left, lowerTop, tabWidth / 2 - 275, lowerHeight);
    inPage(text8_, kGridLeft + 75, lowerTop + lowerHeight - 675, grid22Width - 150, 600);

    const ChartLayout chart = ArrangeChart(tabWidth, tabHeight);
    chartWidget_->setChartLayout(chart);
    // The frames keep their left edge from the layout and stand one under the other,
    // each at least as high as its controls need.
    double frameTop = chart.Frame1.top;
    const std::pair<QGroupBox*, const LayoutRect*> frames[] = {
        {frame1_, &chart.Frame1}, {frame5_, &chart.Frame5}, {frame6_, &chart.Frame6}};
    for (const auto& [frame, rect] : frames) {
        const double height = std::max(rect->height, TwipsY(*this, frame->sizeHint().height()));
        place(frame, rect->left, frameTop, rect->width, height);
        frameTop += height + 100;
    }
    chart_->RedrawChart();
    showChart();

    const double buttonsTop = kTabTop + tabHeight + 120;
    double left = kTabLeft;
    const std::pair<QPushButton*, double> buttons[] = {{command5_, 2300},
                                                       {command9_, 1000},
                                                       {command10_, 1500},
                                                       {command11_, 2000},
                                                       {command15_, 900}};
    for (const auto& [button, width] : buttons) {
        place(button, left, buttonsTop, width, kButtonHeight);
        left += width + 120;
    }
    tab1_->show();
}

void ResultsWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void ResultsWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Activate();
}

void ResultsWindow::closeEvent(QCloseEvent* event) {
    if (program_.ended()) {
        event->accept();
        return;
    }
    const bool saveEnabled = program_.document().file().CommandSaveEnabled();
    switch (results_->Unload(saveEnabled)) {
        case ResultsCloseAction::EndProgram:
            event->accept();
            program_.endProgram();
            return;
        case ResultsCloseAction::LeaveWithSaveQuestion:
            hide();
            program_.returnToInput(*this);
            program_.run([this] { program_.document().TextMsg(TextMsgCode::Closing); });
            event->accept();
            return;
        case ResultsCloseAction::BackToInput:
            event->accept();
            program_.returnToInput(*this);
            return;
    }
}

}  // namespace morvane
