#pragma once
// The width of a text on paper or in a picture, in twips, measured with the toolkit's
// fonts at a fine resolution. Needs a running QGuiApplication, but no window.

#include <string_view>

#include "core/Drawing.h"

namespace morvane {

double PrintFontMeasure(std::string_view text, const TextFont& font);

// Starts a QGuiApplication without a screen when none runs, for the command-line tool
// that draws pictures.
void EnsureFontSupport();

}  // namespace morvane
