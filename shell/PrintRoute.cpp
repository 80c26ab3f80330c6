#include "shell/PrintRoute.h"

#include <QBuffer>
#include <QFile>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <utility>

#include "core/Fault.h"
#include "results/ResultsExport.h"
#include "shell/DrawingPainter.h"

namespace morvane {
namespace {

std::optional<QString>& PdfOutput() {
    static std::optional<QString> path;
    return path;
}

std::function<void(QDialog&)>& PreviewHook() {
    static std::function<void(QDialog&)> hook;
    return hook;
}

QPageLayout::Orientation ToQtOrientation(PageOrientation orientation) {
    return orientation == PageOrientation::Landscape ? QPageLayout::Landscape
                                                     : QPageLayout::Portrait;
}

}  // namespace

void PrintRoute::add(PageOrientation orientation, Compose compose) {
    jobs_.push_back(Job{orientation, std::move(compose)});
}

void PrintRoute::paint(QPagedPaintDevice& device) const {
    QPainter painter;
    bool first = true;
    for (const Job& job : jobs_) {
        // A device that can't change its page in the middle of a document (the
        // preview) keeps it; the job's pages are then turned onto the sheet, as a
        // printer turns a landscape page onto its paper.
        const QPageLayout::Orientation wanted = ToQtOrientation(job.orientation);
        if (device.pageLayout().orientation() != wanted ||
            device.pageLayout().margins() != QMarginsF(0, 0, 0, 0)) {
            QPageLayout layout = device.pageLayout();
            layout.setOrientation(wanted);
            layout.setMargins(QMarginsF(0, 0, 0, 0));
            device.setPageLayout(layout);
        }
        const QPageLayout layout = device.pageLayout();
        const bool turned = layout.orientation() != wanted;
        const QRectF paper = layout.fullRectPoints();
        double width = paper.width() * kTwipsPerPoint;
        double height = paper.height() * kTwipsPerPoint;
        if (turned)
            std::swap(width, height);
        const std::vector<Drawing> pages = job.compose(width, height);
        for (const Drawing& page : pages) {
            if (first) {
                if (!painter.begin(&device))
                    throw Fault("the printer could not be started");
                first = false;
            } else {
                device.newPage();
            }
            painter.save();
            if (turned) {
                painter.translate(painter.device()->width(), 0);
                painter.rotate(90);
            }
            PaintDrawing(painter, page);
            painter.restore();
        }
    }
    if (painter.isActive())
        painter.end();
}

std::string PrintRoute::pdf() const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setCreator("Morvane");
        writer.setTitle("Probit analysis results");
        writer.setResolution(1200);
        writer.setPageSize(QPageSize(QPrinterInfo::defaultPrinter().isNull()
                                         ? QPageSize::A4
                                         : QPrinterInfo::defaultPrinter().defaultPageSize()));
        paint(writer);
    }
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

bool PrintRoute::run(QWidget* parent, UserPort& port) const {
    if (jobs_.empty())
        return false;
    if (PreviewHook()) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setFullPage(true);
        QPrintPreviewDialog preview(&printer, parent);
        preview.setWindowTitle("Print preview");
        QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                         [this](QPrinter* device) { paint(*device); });
        PreviewHook()(preview);
        return false;
    }
    if (PdfOutput() || QPrinterInfo::availablePrinterNames().isEmpty()) {
        std::optional<std::string> path;
        if (PdfOutput()) {
            path = PdfOutput()->toStdString();
        } else {
            port.tell(kNoPrinter);
            path = AskExportFile(
                port, FileDialog{"Save the pages as PDF", "PDF documents (*.pdf)|*.pdf", "", ""},
                ".pdf");
        }
        if (!path)
            return false;
        std::string bytes;
        try {
            bytes = pdf();
        } catch (const Fault& failure) {
            port.tell(std::string(kSaveFailed) + "\n" + failure.what());
            return false;
        }
        return WriteExportFile(port, *path, bytes);
    }
    QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    printer.setFullPage(true);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle("Print preview");
    bool failed = false;
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [this, &failed](QPrinter* device) {
                         try {
                             paint(*device);
                         } catch (const Fault&) {
                             failed = true;
                         }
                     });
    const bool printed = preview.exec() == QDialog::Accepted;
    if (failed)
        port.tell("The pages could not be printed.");
    return printed && !failed;
}

void PrintRoute::setPdfOutput(std::optional<QString> path) {
    PdfOutput() = std::move(path);
}

void PrintRoute::setPreviewHook(std::function<void(QDialog&)> hook) {
    PreviewHook() = std::move(hook);
}

}  // namespace morvane
