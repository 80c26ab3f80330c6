#pragma once
// Measures the text of a table cell in a window's font, in twips, for the column
// fitting of the results window.

#include <QFont>
#include <QWidget>

#include "results/TextMeasurer.h"

namespace morvane {

class QtTextMeasurer : public TextMeasurer {
  public:
    // The widget gives the font and the resolution; it must outlive the measurer.
    explicit QtTextMeasurer(const QWidget& widget) : widget_(&widget) {}
    // Measures in another widget's font from now on, such as a table's.
    void setWidget(const QWidget& widget) { widget_ = &widget; }
    double textWidth(std::string_view text) const override;

  private:
    const QWidget* widget_;
};

}  // namespace morvane
