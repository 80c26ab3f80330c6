#pragma once
// Printing from the results window of one line: its dialog "print" (print1), and the
// print codes of the window's channel, 3 for the tables and 4 for the chart, which
// compose the pages of results/PrintLayout.h for the printer's page.

#include <memory>

#include "results/PrintLayout.h"
#include "shell/PrintDialog.h"

namespace morvane {

class Program;
class ResultsWindow;

class LinePrinting {
  public:
    LinePrinting(ResultsWindow& window, Program& program);
    ~LinePrinting();

    // "Print": the dialog opens and the window waits, disabled.
    void Command9();
    PrintForm& form() { return form_; }
    PrintDialog* dialog() const { return dialog_.get(); }

  private:
    void print(int code);

    ResultsWindow& window_;
    Program& program_;
    PrintForm form_{PrintFormKind::Print1};
    std::unique_ptr<PrintDialog> dialog_;
    PrintRoute* route_ = nullptr;
};

}  // namespace morvane
