#include "shell/ReductionWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "shell/Twips.h"
#include "shell/WidgetPieces.h"

namespace morvane {
namespace {

using Box = ReductionCalculator::Box;
using Tab = ReductionCalculator::Tab;

constexpr double kCheck1FrameCleared = 1000;  // twips
constexpr double kCheck1FrameTicked = 2000;

int IndexOf(Box box) {
    return static_cast<int>(box);
}

QLabel* Note(const QString& text, QWidget* parent) {
    auto* note = new QLabel(text, parent);
    QFont f = note->font();
    f.setItalic(true);
    note->setFont(f);
    return note;
}

QLabel* GuideCell(const QString& text, QWidget* parent) {
    auto* cell = new QLabel(text, parent);
    cell->setFrameShape(QFrame::Box);
    cell->setAlignment(Qt::AlignCenter);
    cell->setMargin(6);
    return cell;
}

}  // namespace

ReductionWindow::ReductionWindow(UserPort& port, std::function<void()> closed,
                                 std::function<void()> help, QWidget* parent)
    : QDialog(parent), calculator_(port), closed_(std::move(closed)) {
    setWindowTitle("Reduction %");
    setModal(false);
    tabs_ = new QTabWidget(this);
    tabs_->setObjectName("Tab1");
    auto* outer = new QVBoxLayout(this);
    outer->addWidget(tabs_);

    makeBox(Box::Text9, "treated", "Population in treated plot after treatment");
    makeBox(Box::Text10, "control", "Population in control plot after treatment");
    makeBox(Box::Text4, "n. t. before", "Population in treated plot before treatment");
    makeBox(Box::Text5, "n. co. before", "Population in control plot before treatment");
    makeBox(Box::Text6, "n. t. after", "Population in treated plot after treatment");
    makeBox(Box::Text7, "n. co. after", "Population in control plot after treatment");
    makeBox(Box::Text1, "treated", "Mortality % in treated plot");
    makeBox(Box::Text2, "control", "Mortality % in control plot");
    makeBox(Box::Text12, "Mortality % in treated plot", "Mortality % in treated plot");
    makeBox(Box::Text13, " Change% in control plot", "Change % in control plot population");

    // Tab 0: Abbott.
    auto* abbott = new QWidget;
    auto* abbottLayout = new QVBoxLayout(abbott);
    abbottLayout->addWidget(
        FormulaRow({FormulaText("Corrected % = 100 *  (1  -"),
                    new FractionWidget("n  in t after treatment", "n  in co after treatment"),
                    FormulaText(")")}));
    abbottLayout->addWidget(
        Note("Where :   n = insect population ,     t = treated ,     co = control  ", abbott));
    tabs_->addTab(makeFormulaTab(Tab::Abbott, abbott),
                  ReductionCalculator::TabCaption(Tab::Abbott));

    // Tab 1: Henderson - Tilton.
    auto* henderson = new QWidget;
    auto* hendersonLayout = new QVBoxLayout(henderson);
    hendersonLayout->addWidget(
        FormulaRow({FormulaText("Corrected % = 100 *  (1  -"),
                    new FractionWidget("n  in co before treatment *  n  in T after treatment",
                                       "n  in Co after treatment *  n  in T before treatment"),
                    FormulaText(")")}));
    hendersonLayout->addWidget(
        Note(" Where :   n = Insect population ,     T = treated ,     Co = control  ", henderson));
    tabs_->addTab(makeFormulaTab(Tab::HendersonTilton, henderson),
                  ReductionCalculator::TabCaption(Tab::HendersonTilton));

    // Tab 2: Schneider - Orelli.
    auto* schneider = new QWidget;
    auto* schneiderLayout = new QVBoxLayout(schneider);
    schneiderLayout->addWidget(FormulaRow(
        {FormulaText("Corrected % ="),
         new FractionWidget("M % in t  -  M% in co", "100  -  M% in co"), FormulaText("* 100")}));
    schneiderLayout->addWidget(
        Note("Where :   M = Mortality,     t = treated ,     co = control  ", schneider));
    tabs_->addTab(makeFormulaTab(Tab::SchneiderOrelli, schneider),
                  ReductionCalculator::TabCaption(Tab::SchneiderOrelli));

    // Tab 3: Sun - Shepard, with the further formula behind Check1.
    tabs_->addTab(makeFormulaTab(Tab::SunShepard, makeSunShepardFormula()),
                  ReductionCalculator::TabCaption(Tab::SunShepard));

    tabs_->addTab(makeGuideTab(), ReductionCalculator::TabCaption(Tab::Guide));

    help_ = new QPushButton("Help", this);
    help_->setAutoDefault(false);
    auto* helpRow = new QHBoxLayout;
    helpRow->addStretch(1);
    helpRow->addWidget(help_);
    outer->addLayout(helpRow);
    connect(help_, &QPushButton::clicked, this, [help = std::move(help)] {
        if (help)
            help();
    });

    connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) {
        if (const auto first = ReductionCalculator::FirstBox(static_cast<Tab>(tab)))
            focusBox(*first);
    });
    resize(PixelsX(*this, 10200), PixelsY(*this, 8200));
}

QWidget* ReductionWindow::makeSunShepardFormula() {
    auto* sun = new QWidget;
    auto* layout = new QVBoxLayout(sun);
    layout->addWidget(FormulaRow({FormulaText("Corrected % ="),
                                  new FractionWidget("Mortality % in treated plot  +  Change % "
                                                     "in control plot population",
                                                     "100  +  Change % in control plot population"),
                                  FormulaText("* 100")}));
    check1Frame_ = new QFrame(sun);
    check1Frame_->setFrameShape(QFrame::StyledPanel);
    auto* frameLayout = new QVBoxLayout(check1Frame_);
    check1_ = new QCheckBox(
        "Click hear to see how to calculate change % in control plot population.", check1Frame_);
    check1_->setObjectName("Check1");
    frameLayout->addWidget(check1_);
    check1Further_ = new QWidget(check1Frame_);
    auto* furtherLayout = new QVBoxLayout(check1Further_);
    furtherLayout->setContentsMargins(0, 0, 0, 0);
    furtherLayout->addWidget(
        FormulaRow({FormulaText("Change % in control plot population = ("),
                    new FractionWidget("n in co after treatment - n in co befor treatment",
                                       "n in co befor treatment"),
                    FormulaText(") * 100")}));
    furtherLayout->addWidget(Note(
        "Where :   n = insect population ,     t = treated ,     co = control  ", check1Further_));
    frameLayout->addWidget(check1Further_);
    frameLayout->addStretch(1);
    check1Further_->hide();
    check1Frame_->setFixedHeight(PixelsY(*check1Frame_, kCheck1FrameCleared));
    layout->addWidget(check1Frame_);
    connect(check1_, &QCheckBox::toggled, this, [this](bool ticked) {
        check1Frame_->setFixedHeight(
            PixelsY(*check1Frame_, ticked ? kCheck1FrameTicked : kCheck1FrameCleared));
        check1Further_->setVisible(ticked);
    });
    return sun;
}

QWidget* ReductionWindow::makeFormulaTab(Tab tab, QWidget* formula) {
    const int index = static_cast<int>(tab);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* formulaBox = new QGroupBox(page);
    auto* formulaLayout = new QVBoxLayout(formulaBox);
    formula->setParent(formulaBox);
    formulaLayout->addWidget(formula);
    layout->addWidget(formulaBox);

    auto* inputs = new QGridLayout;
    int col = 0;
    for (Box box : ReductionCalculator::Boxes(tab)) {
        inputs->addWidget(labels_[IndexOf(box)], 0, col);
        inputs->addWidget(boxes_[IndexOf(box)], 1, col);
        ++col;
    }
    ok_[index] = new QPushButton("OK >", page);
    inputs->addWidget(ok_[index], 1, col);
    inputs->setColumnStretch(col + 1, 1);
    layout->addLayout(inputs);

    grids_[index] = new TextTableView(page);
    grids_[index]->setTable(&calculator_.grid(tab));
    grids_[index]->setMinimumHeight(PixelsY(*page, 1800));
    layout->addWidget(grids_[index], 1);

    auto* buttons = new QHBoxLayout;
    erase_[index] = new QPushButton("Erase all", page);
    copy_[index] = new QPushButton("Copy table", page);
    buttons->addWidget(erase_[index]);
    buttons->addWidget(copy_[index]);
    buttons->addStretch(1);
    layout->addLayout(buttons);

    connect(ok_[index], &QPushButton::clicked, this, [this, tab] { runOK(tab); });
    connect(erase_[index], &QPushButton::clicked, this, [this, tab] {
        const Box focus = calculator_.EraseAll(tab);
        refresh();
        focusBox(focus);
    });
    connect(copy_[index], &QPushButton::clicked, this, [this, tab] {
        TextTableView* view = grid(tab);
        view->hide();
        QClipboard* clipboard = QApplication::clipboard();
        clipboard->clear();
        clipboard->setText(QString::fromStdString(calculator_.CopyTable(tab)));
        view->show();
    });
    return page;
}

QWidget* ReductionWindow::makeGuideTab() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    label26_ = new QLabel(
        "There are 4 formulas available to calculate Reduction %. \n"
        "The selection of proper formula is depending on two factors:\n"
        "1-Trial condition (infestation or population stability and homogeneity).\n"
        "2-The data in your hand (live individuals or dead individuals).\n"
        "The following table will help you to use the proper formula.",
        page);
    label26_->setObjectName("Label26");
    layout->addWidget(label26_);

    auto* table = new QGridLayout;
    table->setSpacing(0);
    QLabel* heading = GuideCell("Available data", page);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    table->addWidget(heading, 0, 1, 1, 2);
    table->addWidget(GuideCell("uniform population ", page), 1, 1);
    table->addWidget(GuideCell("non-uniform population", page), 1, 2);
    table->addWidget(GuideCell("Infestation or\nlive individuals", page), 2, 0);
    table->addWidget(GuideCell("Mortality or\ndead individuals", page), 3, 0);
    label28_ = new LinkLabel("Abbott", page);
    label31_ = new LinkLabel("Henderson-Tilton", page);
    label29_ = new LinkLabel("Schneider-Orelli", page);
    label32_ = new LinkLabel("Sun-Shepard", page);
    const std::pair<LinkLabel*, Tab> links[] = {{label28_, Tab::Abbott},
                                                {label31_, Tab::HendersonTilton},
                                                {label29_, Tab::SchneiderOrelli},
                                                {label32_, Tab::SunShepard}};
    for (const auto& [link, tab] : links) {
        link->setFrameShape(QFrame::Box);
        link->setMargin(6);
        connect(link, &LinkLabel::clicked, this,
                [this, tab] { tabs_->setCurrentIndex(static_cast<int>(tab)); });
    }
    table->addWidget(label28_, 2, 1);
    table->addWidget(label31_, 2, 2);
    table->addWidget(label29_, 3, 1);
    table->addWidget(label32_, 3, 2);
    auto* tableRow = new QHBoxLayout;
    tableRow->addLayout(table);
    tableRow->addStretch(1);
    layout->addLayout(tableRow);
    layout->addStretch(1);
    return page;
}

void ReductionWindow::makeBox(Box box, const QString& label, const QString& tip) {
    auto* edit = new FilteredLineEdit(this);
    edit->setObjectName(ReductionCalculator::BoxName(box));
    edit->setKeyFilter([](char key) { return ReductionCalculator::KeyAllowed(key); });
    edit->setArrowSignals(true);
    edit->setToolTip(tip);
    edit->setMinimumWidth(PixelsX(*edit, 1300));
    boxes_[IndexOf(box)] = edit;
    labels_[IndexOf(box)] = new QLabel(label, this);
    connect(edit, &QLineEdit::textChanged, this, [this, box](const QString& text) {
        if (!refreshing_)
            calculator_.setText(box, text.toStdString());
    });
    connect(edit, &FilteredLineEdit::enterPressed, this, [this, box] {
        if (ReductionCalculator::IsLastBox(box))
            runOK(ReductionCalculator::TabOf(box));
        else
            focusBox(*ReductionCalculator::NextBox(box));
    });
    connect(edit, &FilteredLineEdit::rightArrowAtEnd, this, [this, box] {
        if (const auto next = ReductionCalculator::NextBox(box))
            focusBox(*next);
    });
    connect(edit, &FilteredLineEdit::leftArrowAtStart, this, [this, box] {
        if (const auto previous = ReductionCalculator::PreviousBox(box))
            focusBox(*previous);
    });
    connect(edit, &FilteredLineEdit::focusLeft, this, [this, box] { boxLeft(box); });
}

FilteredLineEdit* ReductionWindow::box(Box box) const {
    return boxes_[IndexOf(box)];
}

void ReductionWindow::focusBox(Box box) {
    boxes_[IndexOf(box)]->setFocus(Qt::OtherFocusReason);
}

// Leaving a box for another control of this window rewrites its number; a text that
// is no number is told and keeps the focus.
void ReductionWindow::boxLeft(Box box) {
    if (refreshing_)
        return;
    LeaveBoxWithin(
        *this, [&] { return calculator_.leave(box); }, [&] { refresh(); }, [&] { focusBox(box); });
}

void ReductionWindow::runOK(Tab tab) {
    const Box focus = calculator_.OK(tab);
    refresh();
    focusBox(focus);
}

void ReductionWindow::refresh() {
    refreshing_ = true;
    for (int i = 0; i < static_cast<int>(boxes_.size()); ++i) {
        const QString text = QString::fromStdString(calculator_.text(static_cast<Box>(i)));
        if (boxes_[i]->text() != text)
            boxes_[i]->setText(text);
    }
    for (TextTableView* view : grids_)
        view->refresh();
    refreshing_ = false;
}

void ReductionWindow::open() {
    refresh();
    tabs_->setCurrentIndex(static_cast<int>(Tab::Guide));
    show();
    raise();
    activateWindow();
}

// The close box, Escape and every other way of closing end here: the window unloads.
void ReductionWindow::reject() {
    QDialog::reject();
    if (closed_)
        closed_();
}

}  // namespace morvane
