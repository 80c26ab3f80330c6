#include "shell/PredictionWindow.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolTip>
#include <QVBoxLayout>
#include <exception>

#include "shell/Twips.h"
#include "shell/WidgetPieces.h"

namespace morvane {
namespace {

using Box = LinePredictor::Box;
using Button = LinePredictor::Button;

QLabel* Heading(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    return label;
}

// Moves the focus to the box under a box on the down arrow.
class DownArrowFilter : public QObject {
  public:
    DownArrowFilter(std::function<void()> down, QObject* parent)
        : QObject(parent), down_(std::move(down)) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            auto* key = static_cast<QKeyEvent*>(event);
            if (key->key() == Qt::Key_Down && key->modifiers() == Qt::NoModifier) {
                down_();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    std::function<void()> down_;
};

}  // namespace

PredictionWindow::PredictionWindow(ProbitTables& probit, UserPort& port,
                                   std::function<void()> closed, std::function<void()> help,
                                   QWidget* parent)
    : QDialog(parent), calculator_(probit, port), port_(port), closed_(std::move(closed)) {
    setWindowTitle("Extrapolation & Interpolation");
    setModal(false);
    for (int i = 0; i < static_cast<int>(boxes_.size()); ++i)
        boxes_[i] = makeBox(static_cast<Box>(i));
    makeButton(Button::Command2, "Predict  >>");
    makeButton(Button::Command3, "Predict  <<");
    makeButton(Button::Command6, "Predict  >>");
    makeButton(Button::Command5, "Predict  <<");

    // The panel "Two points".
    auto* two = new QGroupBox("Two points", this);
    auto* g1 = new QGridLayout(two);
    g1->addWidget(Heading("Dose", two), 0, 1);
    g1->addWidget(Heading("Response %", two), 0, 3);
    g1->addWidget(new QLabel("1st   Point", two), 1, 0);
    g1->addWidget(box(Box::Text1), 1, 1);
    g1->addWidget(box(Box::Text2), 1, 3);
    g1->addWidget(new QLabel("2nd  Point", two), 2, 0);
    g1->addWidget(box(Box::Text3), 2, 1);
    g1->addWidget(box(Box::Text4), 2, 3);
    label5_ = new QLabel("Slope is", two);
    label6_ = new QLabel(two);
    label6_->setObjectName("Label6");
    QFont bold = label6_->font();
    bold.setBold(true);
    label6_->setFont(bold);
    label9_ = new QLabel(two);
    label9_->hide();
    auto* slopeRow = new QHBoxLayout;
    slopeRow->addWidget(label5_);
    slopeRow->addWidget(label6_);
    slopeRow->addStretch(1);
    g1->addLayout(slopeRow, 3, 1, 1, 3);
    g1->addWidget(Heading("Dose", two), 4, 1);
    g1->addWidget(Heading("Response %", two), 4, 3);
    g1->addWidget(box(Box::Text5), 5, 1, 2, 1, Qt::AlignVCenter);
    g1->addWidget(button(Button::Command2), 5, 2);
    g1->addWidget(button(Button::Command3), 6, 2);
    g1->addWidget(box(Box::Text6), 5, 3, 2, 1, Qt::AlignVCenter);
    g1->setRowStretch(7, 1);

    // The panel "One point & slop".
    auto* one = new QGroupBox("One point && slop", this);
    auto* g2 = new QGridLayout(one);
    g2->addWidget(Heading("Dose", one), 0, 1);
    g2->addWidget(Heading("Response %", one), 0, 3);
    g2->addWidget(new QLabel("Point on the line", one), 1, 0);
    g2->addWidget(box(Box::Text7), 1, 1);
    g2->addWidget(box(Box::Text8), 1, 3);
    g2->addWidget(new QLabel("Slope", one), 2, 0);
    g2->addWidget(box(Box::Text9), 2, 1);
    label16_ = new QLabel(one);
    label16_->hide();
    g2->addWidget(Heading("Dose", one), 4, 1);
    g2->addWidget(Heading("Response %", one), 4, 3);
    g2->addWidget(box(Box::Text11), 5, 1, 2, 1, Qt::AlignVCenter);
    g2->addWidget(button(Button::Command6), 5, 2);
    g2->addWidget(button(Button::Command5), 6, 2);
    g2->addWidget(box(Box::Text10), 5, 3, 2, 1, Qt::AlignVCenter);
    g2->setRowMinimumHeight(3, PixelsY(*this, 300));
    g2->setRowStretch(7, 1);

    help_ = new QPushButton("Help", this);
    help_->setAutoDefault(false);
    connect(help_, &QPushButton::clicked, this, [help = std::move(help)] {
        if (help)
            help();
    });
    auto* panels = new QHBoxLayout;
    panels->addWidget(two, 1);
    panels->addWidget(one, 1);
    auto* helpRow = new QHBoxLayout;
    helpRow->addStretch(1);
    helpRow->addWidget(help_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(panels, 1);
    layout->addLayout(helpRow);
    refresh();
}

FilteredLineEdit* PredictionWindow::makeBox(Box box) {
    auto* edit = new FilteredLineEdit(this);
    edit->setObjectName(LinePredictor::BoxName(box));
    edit->setMinimumWidth(PixelsX(*edit, 1300));
    edit->setArrowSignals(true);
    edit->setKeyFilter([edit](char key) {
        if (LinePredictor::KeyAllowed(key))
            return true;
        QToolTip::showText(edit->mapToGlobal(QPoint(0, edit->height())),
                           LinePredictor::kOnlyNumbers, edit);
        return false;
    });
    connect(edit, &QLineEdit::textChanged, this, [this, box](const QString& text) {
        if (refreshing_)
            return;
        calculator_.setText(box, text.toStdString());
        refresh();
    });
    connect(edit, &FilteredLineEdit::enterPressed, this,
            [this, box] { moveTo(LinePredictor::NextBox(box)); });
    connect(edit, &FilteredLineEdit::rightArrowAtEnd, this,
            [this, box] { moveTo(LinePredictor::NextBox(box)); });
    edit->installEventFilter(
        new DownArrowFilter([this, box] { moveTo(LinePredictor::BoxBelow(box)); }, edit));
    connect(edit, &FilteredLineEdit::focusLeft, this, [this, box] { boxLeft(box); });
    return edit;
}

QPushButton* PredictionWindow::makeButton(Button which, const QString& caption) {
    auto* push = new QPushButton(caption, this);
    push->setAutoDefault(false);
    buttons_[static_cast<int>(which)] = push;
    connect(push, &QPushButton::clicked, this, [this, which] { press(which); });
    return push;
}

void PredictionWindow::focusBox(Box box) {
    boxes_[static_cast<int>(box)]->setFocus(Qt::OtherFocusReason);
}

// A box that is disabled can't take the focus: the move doesn't happen.
void PredictionWindow::moveTo(std::optional<Box> box) {
    if (box && calculator_.enabled(*box))
        focusBox(*box);
}

void PredictionWindow::boxLeft(Box box) {
    if (refreshing_)
        return;
    LeaveBoxWithin(
        *this, [&] { return calculator_.leave(box); }, [&] { refresh(); }, [&] { focusBox(box); });
}

void PredictionWindow::press(Button button) {
    std::optional<Box> focus;
    try {
        focus = calculator_.press(button);
    } catch (const std::exception& e) {
        // No press ends the program: what stopped it is told, the boxes stay.
        port_.tellError(std::string("Morvane stopped this calculation:\n") + e.what());
    }
    refresh();
    if (focus)
        focusBox(*focus);
}

void PredictionWindow::refresh() {
    refreshing_ = true;
    for (int i = 0; i < static_cast<int>(boxes_.size()); ++i) {
        const Box box = static_cast<Box>(i);
        const QString text = QString::fromStdString(calculator_.text(box));
        if (boxes_[i]->text() != text)
            boxes_[i]->setText(text);
        boxes_[i]->setEnabled(calculator_.enabled(box));
    }
    for (int i = 0; i < static_cast<int>(buttons_.size()); ++i)
        buttons_[i]->setEnabled(calculator_.enabled(static_cast<Button>(i)));
    label5_->setVisible(calculator_.Label5Visible());
    label6_->setText(QString::fromStdString(calculator_.Label6()));
    label9_->setText(QString::fromStdString(calculator_.Label9()));
    label16_->setText(QString::fromStdString(calculator_.Label16()));
    refreshing_ = false;
}

void PredictionWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    focusBox(Box::Text1);
}

// The close box, Escape and every other way of closing end here: the window unloads.
void PredictionWindow::reject() {
    QDialog::reject();
    if (closed_)
        closed_();
}

}  // namespace morvane
