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

#include "core/LineFit.h"
#include "core/NumberText.h"
#include "results/ChartPicture.h"
#include "results/LikelihoodChartLine.h"
#include "results/ResultsExport.h"
#include "results/ResultsLayout.h"
#include "results/ResultsWorkbook.h"
#include "shell/CaptionTabs.h"
#include "shell/PictureExport.h"
#include "shell/Program.h"
#include "shell/ResultsFrame.h"
#include "shell/Twips.h"
#include "shell/WidgetPieces.h"

namespace morvane {
namespace {

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

    MakeResultsTabs(*this, tab1_, tablesPage_, graphPage_);
    buildTablesTab(tablesPage_);
    buildGraphTab(graphPage_);
    MakeResultsButtons(*this, {&command5_, &command9_, &command10_, &command11_, &command15_});
    command9_->setShortcut(QKeySequence::Print);
    likelihood_ = new LikelihoodTab;
    likelihood_->setObjectName("LikelihoodTab");
    tab1_->addTab(likelihood_, "Maximum likelihood");
    chart_->setExtraLine([this](Drawing& drawing, double plotHeight) {
        if (likelihood_->lineShown())
            AppendLikelihoodLine(drawing, *chart_, plotHeight, likelihood_->report().fit,
                                 program_.shared().fit.DoseScale);
    });
    connect(likelihood_, &LikelihoodTab::lineChanged, this, [this] {
        chart_->RedrawChart();
        showChart();
    });
    connect(command5_, &QPushButton::clicked, this, [this] { saveResultsIntoFiles(); });
    printing_ = std::make_unique<LinePrinting>(*this, program_);
    connect(command9_, &QPushButton::clicked, this, [this] { printing_->Command9(); });
    connect(command10_, &QPushButton::clicked, this, [this] {
        if (tab1_->currentIndex() == 0) {
            QApplication::clipboard()->setText(
                QString::fromStdString(results_->ComposeResultsText()));
        } else if (tab1_->currentWidget() == likelihood_) {
            QApplication::clipboard()->setText(QString::fromStdString(likelihood_->tablesText()));
        } else {
            QApplication::clipboard()->setImage(DrawingImage(composeChartPicture()));
        }
    });
    connect(tab1_, &QTabWidget::currentChanged, this,
            [this](int tab) { command10_->setText(tab == 1 ? "Copy graphic" : "Copy tables"); });
    connect(command11_, &QPushButton::clicked, this, [this] {
        results_->Command11();
        close();
    });
    connect(command15_, &QPushButton::clicked, this, [this] { program_.openHelp("Hmain.htm"); });

    nameWidgets();
    setMinimumSize(PixelsX(*this, MinFormWidth - kWindowFrameWidth),
                   PixelsY(*this, MinFormHeight - kWindowFrameHeight));
    resize(minimumSize());
}

// Both files are offered every time, whichever tab shows: cancelling the first
// dialog does not cancel the second.
void ResultsWindow::saveResultsIntoFiles() {
    SaveSpreadsheet(
        program_.port(), [this] { return results_->ComposeResultsText(); },
        [this] {
            return ComposeResultsWorkbook(results_->ComposeResultsText(), results_->tables().Grid1,
                                          results_->HeadingSingle());
        });
    SaveChartBitmap(
        program_.port(), [this] { return composeChartPicture(); }, EncodePicture);
}

Drawing ResultsWindow::composeChartPicture() {
    const PictureTextMeasurer measurer;
    return ComposeChartPicture(*chart_, chartWidget_->chartLayout(),
                               chartWidget_->Text7()->text().toStdString(), program_.shared(),
                               measurer);
}

void ResultsWindow::nameWidgets() {
    tab1_->setObjectName("Tab1");
    text8_->setObjectName("Text8");
    image1_->setObjectName("Image1");
    sstab2_->setObjectName("SSTab2");
    text3_->setObjectName("Text3");
    command3_->setObjectName("Command3");
    label6_->setObjectName("Label6");
    label19_->setObjectName("Label19");
    label20_->setObjectName("Label20");
    command4_->setObjectName("Command4");
    text2_->setObjectName("Text2");
    command1_->setObjectName("Command1");
    label3_->setObjectName("Label3");
    command2_->setObjectName("Command2");
    checkAutoCycles_->setObjectName("CheckAutoCycles");
    comboCycles_->setObjectName("ComboCycles");
    option1_->setObjectName("Option1");
    option2_->setObjectName("Option2");
    text4_->setObjectName("Text4");
    text5_->setObjectName("Text5");
    command6_->setObjectName("Command6");
    check2_->setObjectName("Check2");
    check3_->setObjectName("Check3");
    text6_->setObjectName("Text6");
    command7_->setObjectName("Command7");
    list1_->setObjectName("List1");
    command8_->setObjectName("Command8");
    command5_->setObjectName("Command5");
    command9_->setObjectName("Command9");
    command10_->setObjectName("Command10");
    command11_->setObjectName("Command11");
    command15_->setObjectName("Command15");
    label1_->setObjectName("Label1");
    label4_->setObjectName("Label4");
    label9_->setObjectName("Label9");
    label14_->setObjectName("Label14");
    label17_->setObjectName("Label17");
    label18_->setObjectName("Label18");
    frame1_->setObjectName("Frame1");
    frame5_->setObjectName("Frame5");
    frame6_->setObjectName("Frame6");
}

// The views let go of the tables and the chart before the results that hold them go.
ResultsWindow::~ResultsWindow() {
    grid1_->setTable(nullptr);
    grid22_->setTable(nullptr);
    grid2_->setTable(nullptr);
    delete tab1_;
}

void ResultsWindow::place(QWidget* widget, const LayoutRect& rect) {
    widget->setGeometry(PixelsX(*this, rect.left), PixelsY(*this, rect.top),
                        PixelsX(*this, rect.width), PixelsY(*this, rect.height));
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
    for (TextTableView* grid : {grid1_, grid22_, grid2_})
        grid->setFillWidth(true);
    text8_ = new QLabel(page);
    text8_->setWordWrap(true);
    text8_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    text8_->setStyleSheet("color: rgb(170,0,0);");
    cyclesNote_ = new QLabel(page);
    cyclesNote_->setObjectName("LabelCyclesNote");
    cyclesNote_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    cyclesNote_->setStyleSheet("color: rgb(90,58,0);");

    sstab2_ = new CaptionTabWidget(page);
    sstab2_->addTab(buildEstimatePanel(), "Calculate any value");
    sstab2_->addTab(buildResponsePanel(), "Calculate Response");
    connectQueries();
}

// "Calculate any value": the dose of any percent, with its limits.
QWidget* ResultsWindow::buildEstimatePanel() {
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
    return estimate;
}

// "Calculate Response": the response percent of any dose.
QWidget* ResultsWindow::buildResponsePanel() {
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
    return response;
}

void ResultsWindow::connectQueries() {
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
    buildCyclesFrame(page);
    buildLimitsFrame(page);
    buildMarksFrame(page);
    for (FilteredLineEdit* box : {text4_, text5_, text6_})
        box->setKeyFilter([](char key) { return ResultQueries::NumberBoxAcceptsKey(key); });
    showChart();
}

// "(X) axis scale": Auto, or the number of cycles the user picks.
void ResultsWindow::buildCyclesFrame(QWidget* page) {
    frame1_ = new QGroupBox("(X) axis scale", page);
    checkAutoCycles_ = new QCheckBox("Auto", frame1_);
    comboCycles_ = new QComboBox(frame1_);
    for (int n = 2; n <= 15; ++n)
        comboCycles_->addItem(QString::number(n));
    auto* f1 = new QGridLayout(frame1_);
    f1->addWidget(checkAutoCycles_, 0, 0, 1, 2);
    f1->addWidget(new QLabel("Cycles", frame1_), 1, 0);  // Label21
    f1->addWidget(comboCycles_, 1, 1);

    connect(checkAutoCycles_, &QCheckBox::clicked, this,
            [this](bool on) { chartAction([on](LogProbitChart& c) { c.clickAutoCycles(on); }); });
    connect(comboCycles_, &QComboBox::activated, this, [this](int index) {
        const std::string text = comboCycles_->itemText(index).toStdString();
        chartAction([text](LogProbitChart& c) { c.clickCycles(text); });
    });
}

// "Line limits": the actual range of the data, or a range between two percents.
void ResultsWindow::buildLimitsFrame(QWidget* page) {
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

    connect(option1_, &QRadioButton::clicked, this,
            [this] { chartAction([](LogProbitChart& c) { c.clickActualRange(); }); });
    connect(option2_, &QRadioButton::clicked, this, [this] {
        chartCommand([this](LogProbitChart& c) { return c.clickAdjustRange(program_.port()); });
    });
    connect(command6_, &QPushButton::clicked, this, [this] {
        chartCommand([this](LogProbitChart& c) { return c.clickLimitsOk(program_.port()); });
    });
    connect(text4_, &QLineEdit::textEdited, this, [this](const QString& t) {
        chartAction([t](LogProbitChart& c) { c.setLowPercent(t.toStdString()); });
    });
    connect(text5_, &QLineEdit::textEdited, this, [this](const QString& t) {
        chartAction([t](LogProbitChart& c) { c.setHighPercent(t.toStdString()); });
    });
    for (FilteredLineEdit* box : {text4_, text5_}) {
        connect(box, &FilteredLineEdit::enterPressed, this, [this] {
            chartCommand([this](LogProbitChart& c) { return c.enterInLimits(program_.port()); });
        });
    }
    connect(text4_, &FilteredLineEdit::focusLeft, this,
            [this] { numberBoxLeft(ChartFocus::LowPercent); });
    connect(text5_, &FilteredLineEdit::focusLeft, this,
            [this] { numberBoxLeft(ChartFocus::HighPercent); });
}

// "Show on the graph": the observed points, the estimates of the marks, and the
// marks themselves, added by percent and deleted from the list.
void ResultsWindow::buildMarksFrame(QWidget* page) {
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

    connect(check2_, &QCheckBox::clicked, this,
            [this](bool on) { chartAction([on](LogProbitChart& c) { c.clickShowPoints(on); }); });
    connect(check3_, &QCheckBox::clicked, this, [this](bool on) {
        chartAction([on](LogProbitChart& c) { c.clickShowEstimates(on); });
    });
    connect(text6_, &QLineEdit::textEdited, this, [this](const QString& t) {
        chartAction([t](LogProbitChart& c) { c.setMarkPercent(t.toStdString()); });
    });
    connect(text6_, &FilteredLineEdit::enterPressed, this, [this] {
        chartCommand([this](LogProbitChart& c) { return c.enterInMarkPercent(program_.port()); });
    });
    connect(text6_, &FilteredLineEdit::focusLeft, this,
            [this] { numberBoxLeft(ChartFocus::MarkPercent); });
    connect(command7_, &QPushButton::clicked, this, [this] {
        chartCommand([this](LogProbitChart& c) { return c.addMark(program_.port()); });
    });
    connect(list1_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        const int row = list1_->row(item);
        chartAction([row](LogProbitChart& c) { c.clickMark(row); });
    });
    connect(command8_, &QPushButton::clicked, this,
            [this] { chartAction([](LogProbitChart& c) { c.deleteMark(); }); });
}

// Leaving a number box of the chart for another control of this window runs the
// chart's rule for it.
void ResultsWindow::numberBoxLeft(ChartFocus box) {
    if (refreshing_)
        return;
    QWidget* next = QApplication::focusWidget();
    if (!next || next->window() != this)
        return;
    chartCommand([this, box](LogProbitChart& c) { return c.leaveNumberBox(box, program_.port()); });
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

void ResultsWindow::chartAction(const std::function<void(LogProbitChart&)>& action) {
    chartCommand([&action](LogProbitChart& c) {
        action(c);
        return ChartFocus::None;
    });
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
    // The note stands in the strip above the tables; its whole text is its tool tip.
    const std::string note = UnsettledCyclesNote(program_.shared().fit);
    cyclesNote_->setText(note.empty() ? QString()
                                      : "Cycles unsettled after 21 passes: see \"Maximum "
                                        "likelihood\".");
    cyclesNote_->setToolTip(QString::fromStdString(note));
    const LineDocument& document = program_.document();
    const std::string& title = document.file().FileTitle();
    likelihood_->setLine(title.ends_with(".mrv") ? title.substr(0, title.size() - 4) : title,
                         document.Grid1(), document.fileOptions().controls.dataType(),
                         program_.shared().EstimateWord, program_.shared().UnitWord);
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
    const double tabStrip = TwipsY(*this, tab1_->tabBar()->sizeHint().height());
    const ResultsLayout l = ArrangeResults(TwipsX(*this, width()) + kWindowFrameWidth,
                                           TwipsY(*this, height()) + kWindowFrameHeight,
                                           MinFormWidth, MinFormHeight, tabStrip);
    place(tab1_, l.Tab1);
    place(image1_, l.Image1);
    place(grid1_, l.Grid1);
    place(sstab2_, l.SSTab2);
    place(grid22_, l.Grid22);
    place(grid2_, l.Grid2);
    place(text8_, l.Text8);
    place(cyclesNote_, {l.Image1.right() + 120, l.Image1.top,
                        l.Grid1.right() - l.Image1.right() - 120, l.Image1.height});

    const ChartLayout chart = ArrangeChart(l.Tab1.width, l.Tab1.height);
    chartWidget_->setChartLayout(chart);
    QGroupBox* const frames[] = {frame1_, frame5_, frame6_};
    std::array<double, 3> needed{};
    for (std::size_t i = 0; i < needed.size(); ++i)
        needed[i] = TwipsY(*this, frames[i]->sizeHint().height());
    auto stacked = StackOptionFrames(chart, needed);
    // The last frame ends within the page: its list of marks takes the room left.
    LayoutRect& marks = stacked.back();
    const double pageBottom = l.Tab1.height - tabStrip - 120;
    marks.height = std::max(TwipsY(*this, frame6_->minimumSizeHint().height()),
                            std::min(marks.height, pageBottom - marks.top));
    for (std::size_t i = 0; i < stacked.size(); ++i)
        place(frames[i], stacked[i]);
    chart_->RedrawChart();
    showChart();

    QPushButton* const buttons[] = {command5_, command9_, command10_, command11_, command15_};
    for (std::size_t i = 0; i < l.Buttons.size(); ++i)
        place(buttons[i], l.Buttons[i]);
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
