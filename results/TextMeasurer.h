#pragma once
// How the results window measures the width of a cell's text when it fits its
// columns. The desktop shell measures in the window's font with the toolkit; the
// tests and morvane-cli, which never show a column, use a fixed width per character.
// Widths only size columns: they never reach the exported text.

#include <string_view>

namespace morvane {

class TextMeasurer {
  public:
    virtual ~TextMeasurer() = default;
    // Width of the text in twips. A text of several lines (joined by line feeds)
    // measures as its widest line.
    virtual double textWidth(std::string_view text) const = 0;
};

// Every character of a line takes the same width.
class FixedWidthTextMeasurer : public TextMeasurer {
  public:
    explicit FixedWidthTextMeasurer(double twipsPerCharacter = 120)
        : twipsPerCharacter_(twipsPerCharacter) {}
    double textWidth(std::string_view text) const override;

  private:
    double twipsPerCharacter_;
};

}  // namespace morvane
