#pragma once
// The progress of an import that takes a while: a bar with Cancel, shown when the
// import has run for the delay (half a second) and is not about to end. While it is
// up, each step of the progress lets the program handle its events, so the window
// repaints and Cancel can be pressed; the other windows take no input meanwhile.

#include <QPointer>
#include <QProgressDialog>

#include "document/Import.h"

namespace morvane {

class ImportProgressDialog {
  public:
    static constexpr int kDelayMs = 500;

    ImportProgressDialog(QWidget* parent, int delayMs);
    ~ImportProgressDialog();
    ImportProgressDialog(const ImportProgressDialog&) = delete;
    ImportProgressDialog& operator=(const ImportProgressDialog&) = delete;

    // The progress to hand to the import: false once Cancel was pressed.
    ImportProgress progress();

  private:
    QPointer<QProgressDialog> dialog_;
};

}  // namespace morvane
