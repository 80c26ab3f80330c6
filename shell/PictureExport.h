#pragma once
// A drawing (core/Drawing.h) as a picture file or a clipboard image: a bitmap at a
// resolution of the caller's choice, or a vector picture (SVG, PDF) of the drawing's
// size in inches. Everything is painted by the one painter of shell/DrawingPainter.h.
// This needs a running QGuiApplication (fonts), but no window.

#include <QImage>
#include <string>

#include "core/Drawing.h"
#include "results/ResultsExport.h"
#include "results/TextMeasurer.h"

namespace morvane {

// The resolution of a bitmap picture, as a screen of the program counts it.
inline constexpr double kPictureDotsPerInch = 96;

// Measures texts in the picture's font (results/ChartPicture.h) at the picture's
// resolution.
class PictureTextMeasurer : public TextMeasurer {
  public:
    double textWidth(std::string_view text) const override;
};

// The drawing painted on a white image of its size at the resolution.
QImage DrawingImage(const Drawing& drawing, double dotsPerInch = kPictureDotsPerInch);

// The bytes of the picture file in the format. Throws Fault when the picture cannot
// be made.
std::string EncodePicture(const Drawing& drawing, PictureFormat format);

}  // namespace morvane
