#pragma once
// The multi-line chart of a comparison: every compared line on one log-probit paper,
// on the common dose scale of the comparison, each a straight segment from its probit
// at "From" to its probit at "To", in its own colour and pen style, numbered by rank
// at both ends, with a legend of one row a line, and drop lines from the sorted
// percentage to the dose axis with the estimates beside them.
//
// This is the chart as logic: it reads the hidden store of the results window
// (Rtvout::Grid2) and its pens and leaves
//   - the drawing of the plot area (Picture1), in twips, origin top left;
//   - the labels of the axes, in twips relative to the plot's top left corner;
//   - the legend rows and their sample lines;
//   - the hidden coordinate table Grid4 (plain text of doubles, as the chart keeps it).
// figure() joins plot, labels and axis titles into one drawing, which the window
// paints and which an export or a print can paint the same way.
//
// Texts never cover each other: the numbers at the line ends and the estimates of
// the drop lines are set in rows, each text in the first row where it meets no text
// already placed, the rows running away from the lines into the empty bands of the
// paper (under "From", over "To", up from the dose axis). In the figure the dose
// labels at the ends of the axis go first and an inner one that would touch a
// neighbour is left out; the paper has minor ticks at 2 to 9 times each power of ten.
//
// The chart keeps references to the results window and the registers it was made
// with; both must outlive it.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/Drawing.h"
#include "core/SharedRegisters.h"
#include "core/TextTable.h"
#include "core/UserPort.h"
#include "relative/Rtvout.h"
#include "results/Chart.h"
#include "results/ChartText.h"

namespace morvane {

// A label of an axis: caption and the point it is centred on, in twips from the top
// left corner of the plot (dose labels stand under it, percent labels to the left,
// probit labels to the right).
struct AxisLabel {
    std::string caption;
    double x = 0;
    double y = 0;
};

// One row of the legend (Grid3): "i- name" and the pen of the line.
struct LegendRow {
    std::string text;
    Color color;
    PenStyle style = PenStyle::Solid;
};

// A colour of the palette as 0xRRGGBB, and back.
Color ColorOfRgb(std::uint32_t rgb);
std::uint32_t RgbOfColor(Color color);
// The pen style of a line's style number 0 to 4; others draw solid.
PenStyle PenStyleOfNumber(int style);

class MultiLineChart {
  public:
    static constexpr int kMinCycles = 2;
    static constexpr int kMaxCycles = 15;
    static constexpr double kNumberPoints = 7.5;
    static constexpr double kLabelPoints = 7.5;

    // The dose scale is the largest of the lines', which the comparison left in
    // shared.fit.DoseScale; the chart keeps it.
    MultiLineChart(Rtvout& rtvout, SharedRegisters& shared);

    // The size of the plot area (Picture1) in twips.
    void setPlotSize(double width, double height);
    double plotWidth() const { return scale_.plotWidth; }
    double plotHeight() const { return scale_.plotHeight; }

    // A redraw: SetRelativeXAxis, ComputeLineCoordinates, DrawLines. The warning on
    // too many cycles goes through the port, once in the life of the chart.
    void Redraw(UserPort& port);
    void SetRelativeXAxis(UserPort& port);
    void ComputeLineCoordinates();
    void DrawLines();

    // The controls of the tab.
    void clickAutoCycles(bool checked, UserPort& port);         // CheckAutoCycles
    void clickCycles(const std::string& text, UserPort& port);  // ComboCycles
    void clickLineNumbers(bool checked, UserPort& port);        // CheckLineNo
    void clickAllBlack(bool checked, UserPort& port);           // CheckLineBlack
    void clickDropLines(bool checked);                          // Check1
    void clickDropValues(bool checked);                         // Check2
    // FormCustomLine's OK: the pen of line `line` (from 1), then a redraw.
    void ApplyCustomLine(int line, std::uint32_t color, int style, UserPort& port);

    bool autoCycles() const { return autoCycles_; }
    bool cyclesEnabled() const { return !autoCycles_; }
    const std::string& cyclesText() const { return cyclesText_; }
    bool lineNumbers() const { return lineNumbers_; }
    bool allBlack() const { return allBlack_; }
    bool wideRangeWarned() const { return wideRangeWarned_; }
    int cycles() const { return scale_.cycles; }
    double cycleWidth() const { return scale_.cycleWidth; }
    double cycleShift() const { return scale_.cycleShift; }
    double logOrigin() const { return scale_.logOrigin; }
    std::int32_t doseScale() const { return doseScale_; }

    const Drawing& drawing() const { return drawing_; }
    const TextTable& Grid4() const { return grid4_; }
    const std::vector<LegendRow>& legend() const { return legend_; }
    // The sample line of a legend row, as drawn on PicLines: 700 by 240 twips.
    Drawing LegendSample(int row) const;

    // Axis labels after SetRelativeXAxis: dose labels at the inner cycle boundaries
    // (Label8, blank ones left out) and at the ends (Label10, Label11), percents
    // (Label12) and probits (Label13).
    const std::vector<AxisLabel>& doseLabels() const { return doseLabels_; }
    const std::vector<AxisLabel>& percentLabels() const { return percentLabels_; }
    const std::vector<AxisLabel>& probitLabels() const { return probitLabels_; }
    const std::string& leftEndCaption() const { return label10_; }
    const std::string& rightEndCaption() const { return label11_; }

    // The whole figure at the given size: the plot with its ruling and frame, the
    // labels of the three axes and their titles, the dose axis titled `doseTitle`.
    // The plot is made to fit and the chart is redrawn at that size.
    Drawing figure(double width, double height, const std::string& doseTitle, UserPort& port);
    // The margins of the figure around the plot, in twips.
    static constexpr double kFigureLeft = 900;
    static constexpr double kFigureRight = 800;
    static constexpr double kFigureTop = 200;
    static constexpr double kFigureBottom = 700;

  private:
    static constexpr int kInnerDoseLabels = 14;  // Label8, 0..13
    // The heights of the probits of From, To and the sorted percentage (Grid4 row 0).
    struct Heights {
        double from = 0;
        double to = 0;
        double sorted = 0;
    };

    // The steps of SetRelativeXAxis.
    void PlaceYLabels();
    double ShiftRangeIntoFirstCycle();
    void ChooseCycles(double o, UserPort& port);
    void PlaceDoseLabels(std::array<std::string, kInnerDoseLabels>& label8, double d);
    // The steps of DrawLines.
    void DrawLine(int i, const Heights& y);
    void PlaceLineTexts(int count, const Heights& y);
    // The parts of the figure.
    void FigureRuling(Drawing& fig) const;
    void FigurePlotLines(Drawing& fig) const;
    void FigureFrame(Drawing& fig) const;
    void FigureLabels(Drawing& fig, TextPlacer& placer) const;
    void FigurePlotTexts(Drawing& fig, TextPlacer& placer) const;
    void FigureTitles(Drawing& fig, const std::string& doseTitle) const;

    double probitOf(const std::string& percentText);
    int lines() const;
    Color penColor(int line) const;

    Rtvout& rtvout_;
    SharedRegisters& shared_;
    std::int32_t doseScale_ = 1;

    bool autoCycles_ = true;
    std::string cyclesText_;
    bool lineNumbers_ = true;
    bool allBlack_ = false;
    bool wideRangeWarned_ = false;

    ChartScale scale_;
    Drawing drawing_;
    TextTable grid4_{1, 3};
    std::vector<LegendRow> legend_;
    std::vector<AxisLabel> doseLabels_;
    std::vector<AxisLabel> percentLabels_;
    std::vector<AxisLabel> probitLabels_;
    std::string label10_;
    std::string label11_;
};

}  // namespace morvane
