#include "shell/RtvoutWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "relative/RelativeExport.h"
#include "results/ResultsExport.h"
#include "results/ResultsWorkbook.h"
#include "shell/CustomLineDialog.h"
#include "shell/PictureExport.h"
#include "shell/Program.h"
#include "shell/ResultsFrame.h"
#include "shell/RtvinWindow.h"
#include "shell/Twips.h"
#include "shell/WidgetPieces.h"

namespace morvane {
namespace {

constexpr double kLegendSampleWidth = 700;
constexpr double kLegendSampleHeight = 240;
// Alignments of the grid: right-centre for numbers, centre-centre for the marks.
constexpr Alignment kRightCentre = 7;
constexpr Alignment kCentreCentre = 4;

}  // namespace

RtvoutWindow::RtvoutWindow(Program& program, RtvinWindow& rtvin, Rtvout& rtvout)
    : QWidget(nullptr),
      program_(program),
      rtvinWindow_(rtvin),
      rtvout_(&rtvout),
      measurer_(*this),
      chart_(std::make_unique<MultiLineChart>(rtvout, program.shared())) {
    setObjectName("Rtvout");
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle("Relative results");

    MakeResultsTabs(*this, tab1_, tablesPage_, graphPage_);
    buildTablesTab(tablesPage_);
    buildGraphTab(graphPage_);
    MakeResultsButtons(*this, {&command5_, &command9_, &command10_, &command11_, &command15_});
    command9_->setShortcut(QKeySequence::Print);
    likelihood_ = new LineRatiosPanel(program_.port());
    likelihood_->setObjectName("LineRatiosPanel");
    tab1_->addTab(likelihood_, "Maximum likelihood");
    command10_->setToolTip("Copy tables");
    // Both files are offered every time, whichever tab shows.
    connect(command5_, &QPushButton::clicked, this, [this] {
        if (!rtvout_)
            return;
        SaveSpreadsheet(
            program_.port(), [this] { return RelativeTableText(*rtvout_); },
            [this] {
                return ComposeResultsWorkbook(RelativeTableText(*rtvout_), TextTable(0, 0), {});
            });
        SaveChartBitmap(
            program_.port(), [this] { return printing_->picture(); }, EncodePicture);
    });
    // The chart is drawn at the size of its tab, also while the tab is not showing.
    printing_ = std::make_unique<RtvoutPrinting>(*this, program_, [this] {
        graphPage_->layout()->activate();
        redrawFigure();
    });
    connect(command9_, &QPushButton::clicked, this, [this] {
        if (rtvout_)
            printing_->Command9();
    });
    connect(command10_, &QPushButton::clicked, this, [this] {
        if (!rtvout_)
            return;
        if (tab1_->currentIndex() == 0) {
            QApplication::clipboard()->setText(QString::fromStdString(RelativeTableText(*rtvout_)));
            return;
        }
        if (tab1_->currentWidget() == likelihood_) {
            QApplication::clipboard()->setText(QString::fromStdString(likelihood_->tablesText()));
            return;
        }
        QApplication::clipboard()->setImage(DrawingImage(printing_->picture()));
    });
    connect(tab1_, &QTabWidget::currentChanged, this, [this](int tab) {
        const QString caption = tab == 1 ? "Copy graphic" : "Copy tables";
        command10_->setText(caption);
        command10_->setToolTip(caption);
        if (tab == 1)
            redrawFigure();
    });
    connect(command11_, &QPushButton::clicked, this, [this] {
        if (rtvout_)
            rtvout_->BackRequestedRelative = true;
        close();
    });
    connect(command15_, &QPushButton::clicked, this, [this] {
        program_.openHelp(tab1_->currentIndex() == 1 ? "Hrtvoutg.htm" : "Hrtvoutt.htm");
    });

    setMinimumSize(PixelsX(*this, MinFormWidth - kWindowFrameWidth),
                   PixelsY(*this, MinFormHeight - kWindowFrameHeight));
    resize(minimumSize());
}

RtvoutWindow::~RtvoutWindow() {
    grid1_->setTable(nullptr);
}

void RtvoutWindow::detach() {
    grid1_->setTable(nullptr);
    rtvout_ = nullptr;
}

void RtvoutWindow::buildTablesTab(QWidget* page) {
    image1_ = new QToolButton(page);
    image1_->setIcon(FitColumnsIcon());
    image1_->setToolTip("Auto resize columns width");
    image1_->setAutoRaise(true);
    connect(image1_, &QToolButton::clicked, this, [this] { sizeColumns(); });

    grid1_ = new TextTableView(page);
    grid1_->setObjectName("Grid1");
    grid1_->setFillWidth(true);
    measurer_.setWidget(*grid1_);
    alignColumns();
    grid1_->setTable(&rtvout_->Grid1);

    label1_ = new QLabel(page);
    label1_->setObjectName("Label1");
    label1_->setText(QString::fromStdString(rtvout_->Label1));
    label1_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text3_ = new QLineEdit(page);
    text3_->setObjectName("Text3");
    text3_->setPlaceholderText("Your note on the table");
    auto* column = new QVBoxLayout(page);
    column->addWidget(image1_, 0, Qt::AlignLeft);
    column->addWidget(grid1_, 1);
    column->addSpacing(PixelsY(*this, 125));
    column->addWidget(label1_);
    column->addWidget(text3_);
    connect(text3_, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (rtvout_)
            rtvout_->Text3 = text.toStdString();
    });
}

void RtvoutWindow::alignColumns() {
    // Numbers stand right-aligned; the marks of the test of differences centred.
    TextTable& grid = rtvout_->Grid1;
    const ResultColumns& columns = rtvout_->columns;
    for (int col = 2; col < grid.cols(); ++col)
        grid.setColumnAlignment(col, kRightCentre);
    for (std::size_t i = 1; i < columns.PairColumns.size(); ++i) {
        const int col = columns.PairColumns[i];
        if (col > 0 && col < grid.cols())
            grid.setColumnAlignment(col, kCentreCentre);
    }
}

void RtvoutWindow::buildGraphTab(QWidget* page) {
    chartWidget_ = new MultiChartWidget(page);
    connect(chartWidget_, &MultiChartWidget::resized, this, [this] { redrawFigure(); });
    text2_ = new QLineEdit(page);
    text2_->setObjectName("Text2");
    text2_->setAlignment(Qt::AlignCenter);
    text2_->setPlaceholderText("Title of the dose axis");

    frame2_ = new QGroupBox("(X) axis scale", page);
    auto* f2 = new QGridLayout(frame2_);
    checkAutoCycles_ = new QCheckBox("Auto", frame2_);
    checkAutoCycles_->setChecked(true);
    label21_ = new QLabel("Cycles", frame2_);
    comboCycles_ = new QComboBox(frame2_);
    for (int n = MultiLineChart::kMinCycles; n <= MultiLineChart::kMaxCycles; ++n)
        comboCycles_->addItem(QString::number(n));
    comboCycles_->setEnabled(false);
    f2->addWidget(checkAutoCycles_, 0, 0, 1, 2);
    f2->addWidget(label21_, 1, 0);
    f2->addWidget(comboCycles_, 1, 1);

    checkLineNo_ = new QCheckBox("Line numbers", page);
    checkLineNo_->setChecked(true);
    checkLineBlack_ = new QCheckBox("All black", page);

    frame1_ = new QGroupBox("Display", page);
    auto* f1 = new QVBoxLayout(frame1_);
    check1_ = new QCheckBox(QString::fromStdString(rtvout_->Check1.caption), frame1_);
    check2_ = new QCheckBox(QString::fromStdString(rtvout_->Check2.caption), frame1_);
    f1->addWidget(check1_);
    f1->addWidget(check2_);

    comLineColor_ = new QPushButton("Change line color and stile", page);
    grid3_ = new QTableWidget(page);
    grid3_->setObjectName("Grid3");
    grid3_->setColumnCount(2);
    grid3_->horizontalHeader()->hide();
    grid3_->verticalHeader()->hide();
    grid3_->horizontalHeader()->setStretchLastSection(true);
    grid3_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid3_->setSelectionMode(QAbstractItemView::SingleSelection);
    grid3_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid3_->setIconSize(
        QSize(PixelsX(*this, kLegendSampleWidth), PixelsY(*this, kLegendSampleHeight)));
    grid3_->verticalHeader()->setDefaultSectionSize(PixelsY(*this, kLegendSampleHeight + 60));

    // The plot takes what the options beside it leave; the title of the dose axis
    // stands under the plot.
    auto* row = new QHBoxLayout(page);
    auto* left = new QVBoxLayout;
    left->addWidget(chartWidget_, 1);
    auto* title = new QHBoxLayout;
    title->addSpacing(PixelsX(*this, MultiLineChart::kFigureLeft));
    title->addWidget(text2_, 1);
    title->addSpacing(PixelsX(*this, MultiLineChart::kFigureRight));
    left->addLayout(title);
    row->addLayout(left, 1);
    auto* side = new QWidget(page);
    side->setFixedWidth(PixelsX(*this, 3000));
    auto* options = new QVBoxLayout(side);
    options->setContentsMargins(0, 0, 0, 0);
    options->addWidget(frame2_);
    options->addWidget(checkLineNo_);
    options->addWidget(checkLineBlack_);
    options->addWidget(frame1_);
    options->addWidget(comLineColor_);
    options->addWidget(grid3_, 1);
    row->addWidget(side);

    UserPort& port = program_.port();
    connect(checkAutoCycles_, &QCheckBox::clicked, this, [this, &port](bool on) {
        chartCommand([this, &port, on] { chart_->clickAutoCycles(on, port); });
    });
    connect(comboCycles_, &QComboBox::activated, this, [this, &port](int index) {
        const std::string text = comboCycles_->itemText(index).toStdString();
        chartCommand([this, &port, text] { chart_->clickCycles(text, port); });
    });
    connect(checkLineNo_, &QCheckBox::clicked, this, [this, &port](bool on) {
        chartCommand([this, &port, on] { chart_->clickLineNumbers(on, port); });
    });
    connect(checkLineBlack_, &QCheckBox::clicked, this, [this, &port](bool on) {
        chartCommand([this, &port, on] { chart_->clickAllBlack(on, port); });
    });
    connect(check1_, &QCheckBox::clicked, this,
            [this](bool on) { chartCommand([this, on] { chart_->clickDropLines(on); }); });
    connect(check2_, &QCheckBox::clicked, this,
            [this](bool on) { chartCommand([this, on] { chart_->clickDropValues(on); }); });
    connect(comLineColor_, &QPushButton::clicked, this, [this] {
        if (CustomLineDialog* dialog = openCustomLine())
            dialog->open();
    });
    connect(grid3_, &QTableWidget::currentCellChanged, this, [this](int row, int, int, int) {
        if (refreshing_ || row < 0)
            return;
        const QTableWidgetItem* item = grid3_->item(row, 0);
        comLineColor_->setToolTip("Change " + (item ? item->text() : QString()) + " color");
    });
    connect(grid3_, &QTableWidget::cellDoubleClicked, this, [this] { comLineColor_->click(); });
}

CustomLineDialog* RtvoutWindow::openCustomLine() {
    if (!rtvout_ || grid3_->rowCount() == 0)
        return nullptr;
    const int line = std::max(0, grid3_->currentRow()) + 1;
    if (line >= static_cast<int>(rtvout_->LineColors.size()))
        return nullptr;
    auto* dialog = new CustomLineDialog(rtvout_->LineColors[static_cast<std::size_t>(line)],
                                        rtvout_->LineStyles[static_cast<std::size_t>(line)], this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    setEnabled(false);
    dialog->setEnabled(true);
    connect(dialog, &QDialog::accepted, this, [this, dialog, line] {
        const std::uint32_t color = dialog->chosenColor();
        const int style = dialog->chosenStyle();
        chartCommand([this, line, color, style] {
            chart_->ApplyCustomLine(line, color, style, program_.port());
        });
    });
    connect(dialog, &QDialog::finished, this, [this] { setEnabled(true); });
    return dialog;
}

void RtvoutWindow::chartCommand(const std::function<void()>& action) {
    if (!rtvout_ || refreshing_)
        return;
    program_.run([&] {
        chart_->setPlotSize(
            chartWidget_->widthTwips() - MultiLineChart::kFigureLeft - MultiLineChart::kFigureRight,
            chartWidget_->heightTwips() - MultiLineChart::kFigureTop -
                MultiLineChart::kFigureBottom);
        action();
    });
    redrawFigure();
}

void RtvoutWindow::redrawFigure() {
    if (!rtvout_ || chartWidget_->width() <= 0)
        return;
    program_.run([this] {
        chartWidget_->setFigure(chart_->figure(chartWidget_->widthTwips(),
                                               chartWidget_->heightTwips(), std::string(),
                                               program_.port()));
    });
    showControls();
    showLegend();
}

void RtvoutWindow::showControls() {
    refreshing_ = true;
    checkAutoCycles_->setChecked(chart_->autoCycles());
    comboCycles_->setEnabled(chart_->cyclesEnabled());
    const int index = comboCycles_->findText(QString::fromStdString(chart_->cyclesText()));
    if (index >= 0)
        comboCycles_->setCurrentIndex(index);
    checkLineNo_->setChecked(chart_->lineNumbers());
    checkLineBlack_->setChecked(chart_->allBlack());
    check1_->setChecked(rtvout_->Check1.checked);
    check1_->setText(QString::fromStdString(rtvout_->Check1.caption));
    check2_->setChecked(rtvout_->Check2.checked);
    check2_->setEnabled(rtvout_->Check2.enabled && rtvout_->Check1.checked);
    check2_->setText(QString::fromStdString(rtvout_->Check2.caption));
    refreshing_ = false;
}

void RtvoutWindow::showLegend() {
    refreshing_ = true;
    const std::vector<LegendRow>& legend = chart_->legend();
    const int current = std::max(0, grid3_->currentRow());
    grid3_->setRowCount(static_cast<int>(legend.size()));
    for (int row = 0; row < static_cast<int>(legend.size()); ++row) {
        const LegendRow& entry = legend[static_cast<std::size_t>(row)];
        auto* name = new QTableWidgetItem(QString::fromStdString(entry.text));
        grid3_->setItem(row, 0, name);
        auto* sample = new QTableWidgetItem;
        sample->setIcon(QIcon(LineSamplePixmap(*this, entry.color, entry.style, kLegendSampleWidth,
                                               kLegendSampleHeight)));
        grid3_->setItem(row, 1, sample);
    }
    grid3_->resizeColumnToContents(0);
    grid3_->setColumnWidth(1, PixelsX(*this, kLegendSampleWidth + 120));
    if (!legend.empty()) {
        grid3_->setCurrentCell(std::min(current, static_cast<int>(legend.size()) - 1), 0);
        comLineColor_->setToolTip("Change " + grid3_->item(grid3_->currentRow(), 0)->text() +
                                  " color");
    }
    refreshing_ = false;
}

void RtvoutWindow::sizeColumns() {
    if (!rtvout_)
        return;
    grid1_->hide();
    SizeResultColumns(*rtvout_, measurer_);
    grid1_->refresh();
    grid1_->show();
}

void RtvoutWindow::afterCalculation() {
    if (!rtvout_)
        return;
    label1_->setText(QString::fromStdString(rtvout_->Label1));
    std::vector<std::pair<std::string, std::string>> lines;
    const TextTable& files = rtvinWindow_.rtvin().Grid1;
    for (int row = 1; row < files.rows(); ++row) {
        if (!files.text(row, linecol::Path).empty())
            lines.emplace_back(files.text(row, linecol::Name), files.text(row, linecol::Path));
    }
    likelihood_->setLines(lines);
    grid1_->refresh();
    sizeColumns();
    arrange();
    redrawFigure();
}

void RtvoutWindow::focusNote() {
    text2_->setFocus(Qt::OtherFocusReason);
    text3_->setFocus(Qt::OtherFocusReason);
}

void RtvoutWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!isMinimized())
        arrange();
}

void RtvoutWindow::arrange() {
    auto place = [this](QWidget* w, double left, double top, double wide, double high) {
        w->setGeometry(PixelsX(*this, left), PixelsY(*this, top),
                       PixelsX(*this, std::max(0.0, wide)), PixelsY(*this, std::max(0.0, high)));
    };
    const double inner = TwipsX(*this, width());
    const double innerHeight = TwipsY(*this, height());
    const double tabWidth = inner - 200;
    const double tabHeight = innerHeight - 1100;
    place(tab1_, 100, 100, tabWidth, tabHeight);
    const double buttonsTop = 100 + tabHeight + 200;
    double x = 100;
    for (QPushButton* b : {command5_, command9_, command10_, command11_}) {
        place(b, x, buttonsTop, 2200, 480);
        x += 2300;
    }
    place(command15_, x, buttonsTop, 900, 480);
}

void RtvoutWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (program_.ended())
        return;
    if (!rtvout_ || !rtvout_->BackRequestedRelative) {
        // Closing the results by their frame ends the program.
        program_.endProgram();
        return;
    }
    hide();
    detach();
    rtvinWindow_.returnFromResults(*this);
}

}  // namespace morvane
