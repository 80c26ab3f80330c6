#pragma once
// Twips, 1440 to the logical inch, are the unit of every size the logic gives (column
// widths, row heights, window sizes, chart coordinates). The windows map them to
// pixels at the logical resolution of their screen, so that they keep their
// proportions at any screen scale.

#include <QPaintDevice>
#include <QWidget>
#include <cmath>

namespace morvane {

inline constexpr double kTwipsPerInchQt = 1440.0;

// Pixels per twip of a device, horizontally and vertically.
inline double PixelsPerTwipX(const QPaintDevice& device) {
    return device.logicalDpiX() / kTwipsPerInchQt;
}
inline double PixelsPerTwipY(const QPaintDevice& device) {
    return device.logicalDpiY() / kTwipsPerInchQt;
}

// Whole pixels for a width or a height in twips.
inline int PixelsX(const QPaintDevice& device, double twips) {
    return static_cast<int>(std::lround(twips * PixelsPerTwipX(device)));
}
inline int PixelsY(const QPaintDevice& device, double twips) {
    return static_cast<int>(std::lround(twips * PixelsPerTwipY(device)));
}

// Twips for a length in pixels.
inline double TwipsX(const QPaintDevice& device, int pixels) {
    return pixels / PixelsPerTwipX(device);
}
inline double TwipsY(const QPaintDevice& device, int pixels) {
    return pixels / PixelsPerTwipY(device);
}

}  // namespace morvane
