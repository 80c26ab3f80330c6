#include "shell/ImportProgressDialog.h"

#include "shell/QtUserPort.h"

namespace morvane {

ImportProgressDialog::ImportProgressDialog(QWidget* parent, int delayMs)
    : dialog_(
          new QProgressDialog(QString("Importing data..."), QString("Cancel"), 0, 1000, parent)) {
    dialog_->setObjectName("ImportProgress");
    dialog_->setWindowTitle(kApplicationTitle);
    // Modal: setValue handles the events, and only the dialog takes input meanwhile.
    dialog_->setWindowModality(Qt::ApplicationModal);
    dialog_->setMinimumDuration(delayMs);
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->setValue(0);
}

ImportProgressDialog::~ImportProgressDialog() {
    delete dialog_.data();
}

ImportProgress ImportProgressDialog::progress() {
    return [this](int permille) {
        if (!dialog_)
            return false;
        dialog_->setValue(permille);
        return !dialog_->wasCanceled();
    };
}

}  // namespace morvane
