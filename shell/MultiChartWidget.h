#pragma once
// The plot of the multi-line chart on the "Graph" tab of the relative results: it
// paints the figure that the chart logic (relative/MultiLineChart.h) made, the plot
// with its labels and axis titles, at the widget's size.

#include <QPixmap>
#include <QWidget>
#include <functional>

#include "core/Drawing.h"

namespace morvane {

// A sample of a line's pen on a small picture, as the legend and "Customize line"
// show it: a segment across the middle of a picture of the given size in twips.
QPixmap LineSamplePixmap(const QWidget& widget, Color color, PenStyle style, double widthTwips,
                         double heightTwips);

class MultiChartWidget : public QWidget {
    Q_OBJECT
  public:
    explicit MultiChartWidget(QWidget* parent = nullptr);

    // The figure to paint; its size is in twips.
    void setFigure(Drawing figure);
    const Drawing& figure() const { return figure_; }
    // The widget's size in twips, the size a figure for it should have.
    double widthTwips() const;
    double heightTwips() const;
    // Paints the figure on any painter at its device's resolution.
    void paintFigure(QPainter& painter) const;

  signals:
    // The widget changed its size: the figure is to be made again.
    void resized();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    Drawing figure_;
};

}  // namespace morvane
