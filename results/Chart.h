#pragma once
// The log-probit chart of one line: the fitted probit line drawn on log-probit paper,
// a horizontal axis of log dose in whole decades (cycles), a left axis of response
// percent and a right axis of probit, with the observed points and drop lines from
// chosen response levels to the dose axis.
//
// This is the chart as logic. It reads the cell texts of the results data table
// (the log dose, the observed percent and the linear probit of each row) and
// the fitted line in the shared registers, and leaves
//   - the drawing of the plot area (Picture1) as a list of operations in twips,
//     origin top left, y downward; the plot keeps its own y upward and turns it over
//     at the moment of drawing;
//   - the captions and places of the axis labels, in twips inside their strips;
//   - the state of the controls of the "Graph" tab that the chart commands change.
// The probit scale runs from 2.67 at the bottom of the plot to 7.33 at the top.
// Coordinates pass through text in three hidden tables, as the chart has always kept
// them: each is stored as the plain text of a double and read back before drawing.
//
// The chart keeps references to the data table and the registers it was made with;
// both must outlive it.

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/Drawing.h"
#include "core/ResultsTables.h"
#include "core/SharedRegisters.h"
#include "core/TextTable.h"
#include "core/UserPort.h"

namespace morvane {

// Columns of the hidden coordinate tables Grid3, Grid4 and Grid5: a point a row from
// row 1, in twips from the plot's bottom left corner, y upward.
namespace pointcol {
inline constexpr int X = 0;
inline constexpr int Y = 1;
inline constexpr int Count = 2;
}  // namespace pointcol

// A label of the chart: caption, place and design size in twips inside its strip.
// The caption stands centred in the label's width.
struct ChartLabel {
    std::string caption;
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

// Where the focus goes after a chart command.
enum class ChartFocus {
    None,
    LowPercent,   // Text4, the first point of the line limits
    HighPercent,  // Text5, the second point
    MarkPercent,  // Text6, the percent of a new mark
};

// The scale of a log-probit paper as last drawn: the plot's size, the cycles across
// it and the transform of log doses, x = (L - logOrigin + cycleShift) * cycleWidth.
struct ChartScale {
    double plotWidth = 0;
    double plotHeight = 0;
    double cycleWidth = 0;
    double cycleShift = 0;
    double logOrigin = 0;
    int cycles = 0;
};

// The probit line's height above the bottom of the plot, in twips.
double ChartY(double probit, double plotHeight);

// The log dose (log10 of dose times DoseScale) at which the fitted line reaches the
// probit.
double LineLogDose(double probit, const FitResult& fit);

// The number of cycles that Auto picks for a slope: steeper lines need fewer decades.
int AutoCycles(double slope);

// The floor of a value as the chart takes it: rounded to the nearest whole number,
// less one when that exceeds the value. Throws Fault when it does not fit 32 bits.
double ChartFloor(double value);

class LogProbitChart {
  public:
    static constexpr int kDoseLabels = 14;     // Label7 and Label8, 0..13
    static constexpr int kPercentLabels = 11;  // Label12, 0..10
    static constexpr int kProbitLabels = 9;    // Label13, 0..8

    // Design sizes of the labels, in twips.
    static constexpr double kTickWidth = 30;
    static constexpr double kTickHeight = 105;
    static constexpr double kDoseLabelWidth = 900;
    static constexpr double kDoseLabelHeight = 195;
    static constexpr double kDoseLabelTop = 40;
    static constexpr double kPercentLabelWidth = 430;
    static constexpr double kPercentLabelHeight = 195;
    static constexpr double kProbitLabelWidth = 330;
    static constexpr double kProbitLabelHeight = 195;
    // Dose labels stand in the strip under the plot, which begins this far to the
    // left of the plot.
    static constexpr double kDoseStripOffset = 700;

    LogProbitChart(const TextTable& grid1, SharedRegisters& shared);

    // The size of the plot area (Picture1) in twips, which RedrawChart takes up.
    void setPlotSize(double width, double height);
    // The height of the strip of percent labels (Picture3).
    void setPercentStripHeight(double height) { percentStripHeight_ = height; }

    // The routines of the chart.
    // Computes everything anew from the table and the line and draws it. Returns
    // false when the table holds no line or a text in it is no number; the plot is
    // then left empty.
    bool RedrawChart();
    void SetXAxis();
    void PlaceYLabels();
    void DrawPlot();
    void DrawPoints();
    void DrawMarks();
    // Checks the two percents of the line limits and redraws, or tells the user and
    // falls back to the actual range.
    ChartFocus ApplyLineLimits(UserPort& port);

    // What the user does on the "Graph" tab.
    void clickActualRange();                      // Option1
    ChartFocus clickAdjustRange(UserPort& port);  // Option2
    ChartFocus clickLimitsOk(UserPort& port);     // Command6
    // Enter in Text4 or Text5: applies the limits only in adjust mode.
    ChartFocus enterInLimits(UserPort& port);
    void setLowPercent(const std::string& text);   // Text4 changed
    void setHighPercent(const std::string& text);  // Text5 changed
    void clickAutoCycles(bool checked);            // CheckAutoCycles
    void clickCycles(const std::string& text);     // an entry of ComboCycles chosen
    void clickShowPoints(bool checked);            // Check2
    void clickShowEstimates(bool checked);         // Check3

    // The marks: response levels with drop lines to the dose axis.
    void setMarkPercent(const std::string& text);   // Text6 changed
    ChartFocus addMark(UserPort& port);             // Command7, Enter in Text6
    ChartFocus enterInMarkPercent(UserPort& port);  // Enter: only while Add is enabled
    // Leaving a number box: Text4, Text5 or Text6 by the focus it stands for. An
    // empty text stays; a number is rewritten as its plain text, as if typed; a text
    // that is no number keeps the focus in its box, and the two limit boxes tell
    // "invaled value!".
    ChartFocus leaveNumberBox(ChartFocus box, UserPort& port);
    void clickMark(int index);  // List1 click; -1 selects none
    void deleteMark();          // Command8

    // State of the controls.
    bool autoCycles() const { return autoCycles_; }
    bool cyclesEnabled() const { return !autoCycles_; }  // ComboCycles
    const std::string& cyclesText() const { return cyclesText_; }
    bool adjustRange() const { return adjustRange_; }  // Option2 selected
    const std::string& lowPercent() const { return lowPercent_; }
    const std::string& highPercent() const { return highPercent_; }
    bool limitsOkEnabled() const { return limitsOkEnabled_; }  // Command6
    bool showPoints() const { return showPoints_; }
    bool showEstimates() const { return showEstimates_; }
    const std::string& markPercent() const { return markPercent_; }
    bool addMarkEnabled() const { return !markPercent_.empty(); }     // Command7
    const std::vector<std::string>& marks() const { return marks_; }  // List1
    int selectedMark() const { return selectedMark_; }
    bool deleteMarkEnabled() const { return deleteMarkEnabled_; }  // Command8

    // The scale of the last drawing.
    double CycleWidth() const { return scale_.cycleWidth; }
    double CycleShift() const { return scale_.cycleShift; }
    double LogOrigin() const { return scale_.logOrigin; }
    int cycles() const { return scale_.cycles; }

    // The plot area's drawing.
    const Drawing& drawing() const { return drawing_; }
    // A further line that each drawing of the plot appends after the classical one,
    // given the drawing and the plot's height in twips; empty for none.
    using ExtraLine = std::function<void(Drawing&, double plotHeight)>;
    void setExtraLine(ExtraLine line) { extraLine_ = std::move(line); }

    // Labels: tick marks in the plot (Label7), dose values under the inner cycle
    // boundaries (Label8) and at the ends (Label10, Label11) in the strip under the
    // plot; percents (Label12) in the strip to the left, probits (Label13) in the
    // strip to the right.
    const ChartLabel& tickLabel(int i) const { return label7_.at(static_cast<std::size_t>(i)); }
    const ChartLabel& doseLabel(int i) const { return label8_.at(static_cast<std::size_t>(i)); }
    const ChartLabel& leftEndLabel() const { return label10_; }
    const ChartLabel& rightEndLabel() const { return label11_; }
    const ChartLabel& percentLabel(int i) const { return label12_.at(static_cast<std::size_t>(i)); }
    const ChartLabel& probitLabel(int j) const { return label13_.at(static_cast<std::size_t>(j)); }

    // The ruling of the paper, in twips of the plot area, y downward: a line across
    // the plot at each inner percent label (10% to 90%), and a line down it at each
    // inner cycle boundary whose tick is placed, with the top of that tick.
    struct CycleRule {
        double x = 0;
        double tickTop = 0;
        friend bool operator==(const CycleRule&, const CycleRule&) = default;
    };
    std::vector<double> PercentRulings() const;
    std::vector<CycleRule> CycleRulings() const;

    // The hidden coordinate tables: line points of the actual range (Grid3), of the
    // adjusted range (Grid4, rows 1 and 2) and the observed points (Grid5).
    const TextTable& Grid3() const { return grid3_; }
    const TextTable& Grid4() const { return grid4_; }
    const TextTable& Grid5() const { return grid5_; }

  private:
    // The steps of SetXAxis.
    void CaptionDoseLabels(double leftEnd);
    void ChooseCycles();
    void PlaceDoseLabels(double leftEnd);

    double probitOf(const std::string& percentText);
    double xOfLogDose(double logDose) const;
    void selectActualRangeAfterRefusal();
    void drawPlotAgain();

    const TextTable& grid1_;
    SharedRegisters& shared_;

    bool autoCycles_ = true;
    std::string cyclesText_;
    bool adjustRange_ = false;
    std::string lowPercent_ = "20";
    std::string highPercent_ = "80";
    bool limitsOkEnabled_ = false;
    bool showPoints_ = false;
    bool showEstimates_ = true;
    std::string markPercent_ = "50";
    std::vector<std::string> marks_;
    int selectedMark_ = -1;
    bool deleteMarkEnabled_ = false;

    ChartScale scale_;
    double nextPlotHeight_ = 0;
    double nextPlotWidth_ = 0;
    double percentStripHeight_ = 0;
    double firstLogFloor_ = 0;

    Drawing drawing_;
    ExtraLine extraLine_;
    std::array<ChartLabel, kDoseLabels> label7_;
    std::array<ChartLabel, kDoseLabels> label8_;
    ChartLabel label10_;
    ChartLabel label11_;
    std::array<ChartLabel, kPercentLabels> label12_;
    std::array<ChartLabel, kProbitLabels> label13_;
    TextTable grid3_{0, pointcol::Count};
    TextTable grid4_{3, pointcol::Count};
    TextTable grid5_{0, pointcol::Count};
};

}  // namespace morvane
