#include "shell/QtTextMeasurer.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>

#include "shell/Twips.h"

namespace morvane {

double QtTextMeasurer::textWidth(std::string_view text) const {
    // Most cells of a large comparison are empty: no need to ask the font.
    if (text.empty())
        return 0;
    const QFontMetricsF metrics(widget_->font(), widget_);
    double widest = 0;
    const QString all = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (const QString& line : all.split('\n'))
        widest = std::max(widest, metrics.horizontalAdvance(line));
    return widest / PixelsPerTwipX(*widget_);
}

}  // namespace morvane
