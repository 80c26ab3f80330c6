#pragma once
// The comparison's chart picture and printing, for the relative results window: the
// picture of the chart file and of "Copy graphic" (relative/RelativePrinting.h), and
// "Print" with its dialog print2, whose codes 5 (the table) and 6 (the chart) compose
// the pages for the printer's page.

#include <functional>
#include <memory>

#include "results/PrintLayout.h"
#include "shell/PrintDialog.h"

namespace morvane {

class Program;
class RtvoutWindow;

class RtvoutPrinting {
  public:
    // redraw draws the chart afresh at the size of the "Graph" tab.
    RtvoutPrinting(RtvoutWindow& window, Program& program, std::function<void()> redraw);
    ~RtvoutPrinting();

    // The chart as a picture, drawn afresh first.
    Drawing picture();
    // "Print": the dialog opens and the window waits, disabled.
    void Command9();
    // The window's channel for the print codes: 5 the table, 6 the chart.
    void Text1(int code, PrintRoute& route);

    PrintForm& form() { return form_; }
    PrintDialog* dialog() const { return dialog_.get(); }

  private:
    RtvoutWindow& window_;
    Program& program_;
    std::function<void()> redraw_;
    PrintForm form_{PrintFormKind::Print2};
    std::unique_ptr<PrintDialog> dialog_;
};

}  // namespace morvane
