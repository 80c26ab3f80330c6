#pragma once
// Paints a drawing (core/Drawing.h) with a QPainter on any device: a window, an
// image, the printer or a PDF. Twips become pixels at 1440 per logical inch of the
// device, pen units at 15 twips, font sizes stay points of the device. Operations
// with a coordinate that is not finite are left out.

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPointF>

#include "core/Drawing.h"

namespace morvane {

QColor ToQColor(Color color);
// The font of a drawing's text on the device.
QFont ToQFont(const TextFont& font);

// Paints the operations at an offset in twips. A Clear fills the drawing's own
// size (width and height) from the offset, unless fillOnClear is false because the
// caller has prepared the ground itself.
void PaintDrawing(QPainter& painter, const Drawing& drawing, QPointF offsetTwips = {},
                  bool fillOnClear = true);

}  // namespace morvane
