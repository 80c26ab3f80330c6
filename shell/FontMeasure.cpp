#include "shell/FontMeasure.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <cmath>
#include <cstdio>
#include <memory>

#include "shell/DrawingPainter.h"

namespace morvane {
namespace {

// Measures at a fine resolution, where a font's widths are not rounded to pixels.
constexpr double kMeasureDotsPerInch = 1200;

}  // namespace

double PrintFontMeasure(std::string_view text, const TextFont& font) {
    static const QImage device = [] {
        QImage image(1, 1, QImage::Format_RGB32);
        const int dotsPerMetre = static_cast<int>(std::lround(kMeasureDotsPerInch / 0.0254));
        image.setDotsPerMeterX(dotsPerMetre);
        image.setDotsPerMeterY(dotsPerMetre);
        return image;
    }();
    const QFontMetricsF metrics(ToQFont(font), &device);
    const QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return metrics.horizontalAdvance(line) / kMeasureDotsPerInch * kTwipsPerInch;
}

void EnsureFontSupport() {
    if (QGuiApplication::instance() != nullptr)
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The toolkit's notes about its environment are no concern of the tool's user:
    // standard error carries the tool's own messages only.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            fprintf(stderr, "%s\n", qPrintable(text));
    });
    static int argc = 1;
    static char name[] = "morvane-cli";
    static char* argv[] = {name, nullptr};
    static std::unique_ptr<QGuiApplication> application =
        std::make_unique<QGuiApplication>(argc, argv);
}

}  // namespace morvane
