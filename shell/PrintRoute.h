#pragma once
// The way of printed pages to paper: the jobs of one press of "Print" are composed
// for the default printer's page, shown in a print preview, and printed from there.
// Each job sets its own orientation; its pages follow each other, and each job
// begins on a new sheet, so that the copies come out one after another. Without any
// printer the user is told so, and the same pages can be saved as a PDF document.
//
// A test sends the pages to a PDF file of its choosing instead, without dialogs.

#include <QDialog>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "core/UserPort.h"
#include "results/PrintLayout.h"
#include "shell/FontMeasure.h"

class QPagedPaintDevice;

namespace morvane {

inline constexpr const char* kNoPrinter =
    "No printer is installed.\nThe pages can be saved as a PDF document instead.";

class PrintRoute {
  public:
    // The pages of one job for a page of the given size in twips.
    using Compose = std::function<std::vector<Drawing>(double width, double height)>;
    struct Job {
        PageOrientation orientation = PageOrientation::Portrait;
        Compose compose;
    };

    void add(PageOrientation orientation, Compose compose);
    bool empty() const { return jobs_.empty(); }
    const std::vector<Job>& jobs() const { return jobs_; }

    // Prints the jobs: a preview on the default printer, or the PDF route without a
    // printer. Returns whether anything was printed or saved.
    bool run(QWidget* parent, UserPort& port) const;

    // Paints every job on the device, each from a new page in its orientation.
    void paint(QPagedPaintDevice& device) const;
    // The jobs as the bytes of a PDF document; throws Fault when it can't be made.
    std::string pdf() const;

    // For tests: every route writes a PDF document to this file, without a preview
    // (none: the ordinary routes).
    static void setPdfOutput(std::optional<QString> path);
    // For the pictures of the documentation: the preview is made, even without a
    // printer, and handed to the hook instead of being shown and printed.
    static void setPreviewHook(std::function<void(QDialog& preview)> hook);

  private:
    std::vector<Job> jobs_;
};

}  // namespace morvane
