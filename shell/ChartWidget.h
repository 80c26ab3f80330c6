#pragma once
// The frame of the log-probit chart (PictureFig) on the "Graph" tab: the plot area
// with the chart's drawing, the label strips around it, the rotated titles of the
// percent and probit axes, and the dose axis title Text7, which the user may retype
// in place. Everything it paints is one drawing made by the chart logic
// (results/ChartFigure.h) over the tab's layout (results/ChartLayout.h).

#include <QLineEdit>
#include <QWidget>

#include "results/Chart.h"
#include "results/ChartLayout.h"

namespace morvane {

class ChartWidget : public QWidget {
    Q_OBJECT
  public:
    ChartWidget(LogProbitChart& chart, QWidget* parent = nullptr);

    // Places the frame and its parts; the plot's size goes to the chart.
    void setChartLayout(const ChartLayout& layout);
    const ChartLayout& chartLayout() const { return layout_; }

    QLineEdit* Text7() const { return text7_; }
    // The plot area's place in the widget, in pixels.
    QRect plotRect() const;

    // Paints the whole frame, as the chart logic composes it (results/ChartFigure.h),
    // on a painter whose device is at least as large as the frame.
    void paintFigure(QPainter& painter) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    LogProbitChart& chart_;
    ChartLayout layout_;
    QLineEdit* text7_;
};

}  // namespace morvane
