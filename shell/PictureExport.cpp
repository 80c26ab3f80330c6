#include "shell/PictureExport.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "core/Fault.h"
#include "results/ChartPicture.h"
#include "shell/DrawingPainter.h"

namespace morvane {
namespace {

constexpr double kMetresPerInch = 0.0254;

int Dots(double twips, double dotsPerInch) {
    return std::max(1, static_cast<int>(std::lround(twips / kTwipsPerInch * dotsPerInch)));
}

std::string BytesOf(const QByteArray& bytes) {
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

}  // namespace

double PictureTextMeasurer::textWidth(std::string_view text) const {
    QImage device(1, 1, QImage::Format_RGB32);
    const int dotsPerMetre = static_cast<int>(std::lround(kPictureDotsPerInch / kMetresPerInch));
    device.setDotsPerMeterX(dotsPerMetre);
    device.setDotsPerMeterY(dotsPerMetre);
    const QFontMetricsF metrics(ToQFont(TextFont{"", kPictureFontPoints}), &device);
    double widest = 0;
    for (const QString& line :
         QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).split('\n'))
        widest = std::max(widest, metrics.horizontalAdvance(line));
    return widest / kPictureDotsPerInch * kTwipsPerInch;
}

QImage DrawingImage(const Drawing& drawing, double dotsPerInch) {
    QImage image(Dots(drawing.width(), dotsPerInch), Dots(drawing.height(), dotsPerInch),
                 QImage::Format_RGB32);
    if (image.isNull())
        throw Fault("the picture is too large for the memory");
    const int dotsPerMetre = static_cast<int>(std::lround(dotsPerInch / kMetresPerInch));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    PaintDrawing(painter, drawing);
    return image;
}

std::string EncodePicture(const Drawing& drawing, PictureFormat format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    switch (format) {
        case PictureFormat::Bmp:
        case PictureFormat::Png:
            if (!DrawingImage(drawing).save(&buffer, format == PictureFormat::Bmp ? "BMP" : "PNG"))
                throw Fault("the picture could not be encoded");
            break;
        case PictureFormat::Svg: {
            QSvgGenerator svg;
            svg.setOutputDevice(&buffer);
            svg.setResolution(static_cast<int>(kPictureDotsPerInch));
            svg.setSize(QSize(Dots(drawing.width(), kPictureDotsPerInch),
                              Dots(drawing.height(), kPictureDotsPerInch)));
            svg.setViewBox(QRect(QPoint(0, 0), svg.size()));
            svg.setTitle("Morvane chart");
            QPainter painter;
            if (!painter.begin(&svg))
                throw Fault("the picture could not be encoded");
            PaintDrawing(painter, drawing);
            painter.end();
            break;
        }
        case PictureFormat::Pdf: {
            QPdfWriter pdf(&buffer);
            pdf.setCreator("Morvane");
            pdf.setResolution(1200);
            const QSizeF inches(drawing.width() / kTwipsPerInch, drawing.height() / kTwipsPerInch);
            pdf.setPageSize(QPageSize(inches, QPageSize::Inch, "Chart", QPageSize::ExactMatch));
            pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
            QPainter painter;
            if (!painter.begin(&pdf))
                throw Fault("the picture could not be encoded");
            PaintDrawing(painter, drawing);
            painter.end();
            break;
        }
    }
    return BytesOf(bytes);
}

}  // namespace morvane
