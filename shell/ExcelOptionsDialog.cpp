#include "shell/ExcelOptionsDialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "document/Import.h"
#include "shell/Program.h"
#include "shell/Twips.h"

namespace morvane {

ExcelOptionsDialog::ExcelOptionsDialog(Program& program, QWidget* parent)
    : QDialog(parent), program_(program) {
    setWindowTitle("Excel options");
    setModal(false);
    combo2_ = new QComboBox(this);
    combo2_->setEditable(true);
    combo2_->setInsertPolicy(QComboBox::NoInsert);
    combo2_->setToolTip("Select or type the name of the sheet that contains the data");
    check1_ = new QCheckBox("First row contains header", this);
    check1_->setToolTip("Ignore first row when it contains headers");
    label2_ = new QLabel(this);
    auto* form = new QFormLayout;
    form->addRow("Use sheet:", combo2_);
    form->addRow(check1_);
    form->addRow(label2_);
    command1_ = new QPushButton("OK", this);
    command2_ = new QPushButton("Cancel", this);
    command1_->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(command1_);
    buttons->addWidget(command2_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);
    setMinimumWidth(PixelsX(*this, 4500));

    connect(command1_, &QPushButton::clicked, this, [this] {
        const std::string sheet = combo2_->currentText().toStdString();
        if (sheet.empty()) {
            program_.port().tell(kNoSheetName);
            return;
        }
        const bool header = check1_->isChecked();
        unload();
        program_.importSheet(path_, sheet, header);
    });
    connect(command2_, &QPushButton::clicked, this, [this] { reject(); });
}

void ExcelOptionsDialog::open(const std::string& path, const std::vector<std::string>& sheets,
                              const std::string& hint) {
    path_ = path;
    combo2_->clear();
    for (const std::string& name : sheets)
        combo2_->addItem(QString::fromStdString(name));
    combo2_->setCurrentIndex(sheets.empty() ? -1 : 0);
    check1_->setChecked(false);
    label2_->setText(QString::fromStdString(hint));
    program_.run([this] { program_.document().setMainEnabled(false); });
    show();
    raise();
    activateWindow();
}

void ExcelOptionsDialog::unload() {
    QDialog::hide();
    program_.run([this] { program_.document().setMainEnabled(true); });
}

void ExcelOptionsDialog::reject() {
    if (isVisible())
        unload();
}

}  // namespace morvane
