#include "shell/ChangeOptionsDialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "document/FileOptions.h"
#include "shell/Program.h"
#include "shell/QuoteGuard.h"
#include "shell/Twips.h"

namespace morvane {
namespace {

QComboBox* EditableCombo(QWidget* parent, std::initializer_list<const char*> items) {
    auto* combo = new QComboBox(parent);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    for (const char* item : items)
        combo->addItem(item);
    return combo;
}

}  // namespace

ChangeOptionsDialog::ChangeOptionsDialog(Program& program, QWidget* parent)
    : QDialog(parent), program_(program) {
    setWindowTitle("Change options");
    setModal(false);
    combo5_ = EditableCombo(this, {"Dose", "Con.", "Time", "Temp."});
    combo6_ = EditableCombo(this, {"LD", "LC", "LT", "RD", "RC", "RT"});
    text5_ = new QLineEdit(this);
    combo7_ = EditableCombo(this, {kAlphaTexts[0], kAlphaTexts[1], kAlphaTexts[2]});
    combo7_->setToolTip("Probability of T value");
    for (QComboBox* box : {combo5_, combo6_, combo7_})
        RefuseQuotes(box, program_.port());
    RefuseQuotes(text5_, program_.port());
    auto* form = new QFormLayout;
    form->addRow("Factor type:", combo5_);
    form->addRow("Abbreviation :", combo6_);
    form->addRow("Unit :", text5_);
    form->addRow("Alpha", combo7_);
    ok_ = new QPushButton("OK", this);
    cancel_ = new QPushButton("Cancel", this);
    ok_->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok_);
    buttons->addWidget(cancel_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);
    setMinimumWidth(PixelsX(*this, 4500));

    connect(ok_, &QPushButton::clicked, this, [this] {
        const ChangeOptionsValues values{
            combo5_->currentText().toStdString(), text5_->text().toStdString(),
            combo6_->currentText().toStdString(), combo7_->currentText().toStdString()};
        program_.run([&] { program_.document().ChangeOptionsOK(values); });
        QDialog::accept();
    });
    connect(cancel_, &QPushButton::clicked, this, [this] { reject(); });
}

void ChangeOptionsDialog::open() {
    ChangeOptionsValues values;
    program_.run([&] { values = program_.document().OpenChangeOptions(); });
    combo5_->setCurrentText(QString::fromStdString(values.Combo5));
    text5_->setText(QString::fromStdString(values.Text5));
    combo6_->setCurrentText(QString::fromStdString(values.Combo6));
    combo7_->setCurrentText(QString::fromStdString(values.Combo7));
    show();
    raise();
    activateWindow();
}

void ChangeOptionsDialog::reject() {
    if (isVisible())
        program_.run([this] { program_.document().ChangeOptionsCancel(); });
    QDialog::reject();
}

}  // namespace morvane
