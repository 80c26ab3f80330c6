#include "shell/NotesDialog.h"

#include <QResizeEvent>
#include <algorithm>

#include "shell/Program.h"
#include "shell/QuoteGuard.h"
#include "shell/Twips.h"

namespace morvane {
namespace {

constexpr double kLabelLeft = 150;
constexpr double kBoxLeft = 1700;
constexpr double kLabelWidth = 1500;
constexpr double kLabelRoom = 60;
constexpr double kRowHeight = 330;
constexpr double kStartWidth = 8400;
constexpr double kStartHeight = 4500;

}  // namespace

NotesDialog::NotesDialog(Program& program, QWidget* parent) : QDialog(parent), program_(program) {
    setWindowTitle("Information sheet");
    setModal(false);
    label1_ = new QLabel("Treatment name", this);
    label2_ = new QLabel("Treated target", this);
    label3_ = new QLabel("Experiment date", this);
    label4_ = new QLabel("More information", this);
    label5_ = new QLabel("days ago", this);
    text1_ = new QLineEdit(this);
    text2_ = new QLineEdit(this);
    text3_ = new QLineEdit(this);
    text4_ = new QPlainTextEdit(this);
    text5_ = new FilteredLineEdit(this);
    for (QLineEdit* box : {text1_, text2_, text3_})
        RefuseQuotes(box, program_.port());
    RefuseQuotes(text4_, program_.port());
    text5_->setKeyFilter([](char key) { return InfForm::Text5KeyAllowed(key); });
    text5_->setToolTip("Days before today");
    shortcut_ = new QPushButton("OK >>", this);
    ok_ = new QPushButton("OK", this);
    cancel_ = new QPushButton("Cancel", this);

    connect(text1_, &QLineEdit::textEdited, this,
            [this](const QString& t) { form_.setText1(t.toStdString()); });
    connect(text2_, &QLineEdit::textEdited, this,
            [this](const QString& t) { form_.setText2(t.toStdString()); });
    connect(text3_, &QLineEdit::textEdited, this,
            [this](const QString& t) { form_.setText3(t.toStdString()); });
    connect(text4_, &QPlainTextEdit::textChanged, this, [this] {
        if (!refreshing_)
            form_.setText4(text4_->toPlainText().toStdString());
    });
    connect(text5_, &QLineEdit::textEdited, this,
            [this](const QString& t) { form_.setText5(t.toStdString()); });
    connect(text5_, &FilteredLineEdit::focusLeft, this, [this] {
        form_.leaveText5();
        showForm();
    });
    auto dateShortcut = [this] {
        if (!form_.DateShortcut())
            program_.port().tell("The number of days is too large for a date.");
        showForm();
    };
    connect(text5_, &FilteredLineEdit::enterPressed, this, dateShortcut);
    connect(shortcut_, &QPushButton::clicked, this, dateShortcut);
    connect(ok_, &QPushButton::clicked, this, [this] {
        program_.run([this] { program_.document().NotesOK(form_); });
        QDialog::accept();
    });
    connect(cancel_, &QPushButton::clicked, this, [this] { reject(); });
    resize(PixelsX(*this, kStartWidth), PixelsY(*this, kStartHeight));
    setMinimumSize(PixelsX(*this, 6500), PixelsY(*this, 3600));
}

void NotesDialog::place(QWidget* widget, double left, double top, double width, double height) {
    widget->setGeometry(PixelsX(*this, left), PixelsY(*this, top), PixelsX(*this, width),
                        PixelsY(*this, height));
}

void NotesDialog::open() {
    program_.run([this] { form_ = program_.document().OpenNotesSheet(); });
    showForm();
    show();
    raise();
    activateWindow();
    text1_->setFocus(Qt::OtherFocusReason);
}

void NotesDialog::showForm() {
    refreshing_ = true;
    auto set = [](QLineEdit* edit, const std::string& text) {
        if (edit->text() != QString::fromStdString(text))
            edit->setText(QString::fromStdString(text));
    };
    set(text1_, form_.Text1());
    set(text2_, form_.Text2());
    set(text3_, form_.Text3());
    set(text5_, form_.Text5());
    if (text4_->toPlainText() != QString::fromStdString(form_.Text4()))
        text4_->setPlainText(QString::fromStdString(form_.Text4()));
    refreshing_ = false;
}

// The boxes of the name and the target are as wide as the form less 2000 twips, the
// date less a further 2250 to leave room for its shortcut; the rest follows.
void NotesDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    const double width = TwipsX(*this, event->size().width()) + kWindowFrameWidth;
    const double height = TwipsY(*this, event->size().height());
    const double wide = width - 2000;
    // The labels are as wide as the longest of them needs in the font of the desktop,
    // and the boxes begin after them.
    double labelWidth = kLabelWidth;
    for (QLabel* label : {label1_, label2_, label3_, label4_})
        labelWidth = std::max(labelWidth, TwipsX(*this, label->sizeHint().width()) + kLabelRoom);
    const double boxLeft = std::max(kBoxLeft, kLabelLeft + labelWidth + kLabelRoom);
    const double labelHeight = std::max(kRowHeight, TwipsY(*this, label1_->sizeHint().height()));
    place(label1_, kLabelLeft, 150, labelWidth, labelHeight);
    place(text1_, boxLeft, 150, wide, kRowHeight);
    place(label2_, kLabelLeft, 600, labelWidth, labelHeight);
    place(text2_, boxLeft, 600, wide, kRowHeight);
    place(label3_, kLabelLeft, 1050, labelWidth, labelHeight);
    place(text3_, boxLeft, 1050, wide - 2250, kRowHeight);
    const double shortcutLeft = boxLeft + wide - 2250 + 100;
    const double daysWidth = std::max(800.0, TwipsX(*this, label5_->sizeHint().width()) + 40);
    place(text5_, shortcutLeft, 1050, 500, kRowHeight);
    place(label5_, shortcutLeft + 550, 1050, daysWidth, labelHeight);
    place(shortcut_, shortcutLeft + 550 + daysWidth, 1035, 800, kRowHeight + 30);
    place(label4_, kLabelLeft, 1500, labelWidth, labelHeight);
    const double buttonsTop = height - 550;
    place(text4_, boxLeft, 1500, wide, buttonsTop - 1500 - 150);
    place(ok_, boxLeft + wide - 2100, buttonsTop, 1000, 400);
    place(cancel_, boxLeft + wide - 1000, buttonsTop, 1000, 400);
}

void NotesDialog::reject() {
    if (isVisible())
        program_.run([this] { program_.document().NotesCancel(); });
    QDialog::reject();
}

}  // namespace morvane
