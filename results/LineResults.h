#pragma once
// The results window of one line, without the window: its three tables, the
// one-line and two-line headings of the data table, the captions that follow the
// line's words, the query panels, and the tab-separated text of "Copy tables".
//
// The calculation (core/LineCalculation.h) writes the line's points and statistics
// into the tables and then sends 1, 2 and 5 down the window's command channel; the
// channel of this object answers them by formatting the data table, filling the
// estimates table for the standard percents 25 to 99, and fitting the columns to
// their texts. Every later step (the chart, the queries, the exports) reads the
// numbers back from the cell texts.
//
// One object serves one results window; the desktop shell binds its widgets to it,
// and morvane-cli uses it as it stands.

#include <functional>
#include <string>

#include "core/LineCalculation.h"
#include "core/SharedRegisters.h"
#include "core/UserPort.h"
#include "results/ResultQueries.h"
#include "results/ResultsText.h"
#include "results/TextMeasurer.h"

namespace morvane {

// The name of the picture in the name cell of Grid22's chi-square row: the
// chi-square symbol. The shell shows its image there; the text export writes "Chi".
inline constexpr const char* kChiSquarePicture = "ChiSquareSymbol";

// The captions that follow the line's words, set each time the window activates.
struct WordCaptions {
    std::string Label15;  // "From LD"
    std::string Label16;  // "to LD"
    std::string Label17;  // "LD", in front of the box of the chart's marks
    std::string Check3;   // "LD value"
    std::string Text7;    // the chart's x axis title: "Dose  (mg)"
};

// What closing the results window leads to.
enum class ResultsCloseAction {
    EndProgram,             // closed by the close box with nothing unsaved
    LeaveWithSaveQuestion,  // closed by the close box with unsaved changes: the input
                            // window comes back and asks the save question, then closes
    BackToInput,            // "back to Input tabls": the input window comes back
};

class LineResults {
  public:
    // The object keeps references to the three arguments; they must outlive it.
    LineResults(SharedRegisters& shared, UserPort& port, const TextMeasurer& measurer);

    LineResults(const LineResults&) = delete;
    LineResults& operator=(const LineResults&) = delete;

    ResultsTables& tables() { return tables_; }
    const ResultsTables& tables() const { return tables_; }

    // The window as freshly loaded: empty tables, notice and panels. The window is
    // loaded afresh for each calculation (closing it unloads it), so a caller that
    // keeps one object calls this before each calculation: the notice of a g above
    // 0.4 is only ever set, never cleared, by the calculation.
    void Load();

    // The command channel Text1. 1: FormatDataTable, then FormatEstimateTables;
    // 2: FitDataColumns; 5: FitEstimateColumns; 3 and 4 print the tables and the
    // chart (through the print handler); 0 and other codes do nothing.
    void Text1(int code);
    // The channel as the calculation takes it. It refers to this object.
    ResultsChannel channel();
    // Who prints for codes 3 (tables) and 4 (chart); none by default.
    void setPrintHandler(std::function<void(int code)> handler) { print_ = std::move(handler); }

    // Headings, widths and alignments of Grid1, and its three heading arrays.
    void FormatDataTable();
    // Grid2 with the six standard rows and their limits (a limit of 0 stays an empty
    // cell), Dose99Percent and Dose1Percent, the query tab captions and Grid22's names.
    void FormatEstimateTables();
    // Each column as wide as its widest text plus a margin (325 twips in Grid1; 300
    // for the percent and the gap of Grid2, 600 for the others), at least 100 twips.
    void FitDataColumns();
    void FitEstimateColumns();

    // The word captions and the unit label of the query panel, as the window sets
    // them when it activates. (The chart is redrawn first, by the chart module.)
    void Activate();
    const WordCaptions& captions() const { return captions_; }

    // Headings of Grid1: on one line (the text export), and as first and second line
    // (printing).
    const ColumnHeadings& HeadingSingle() const { return headingSingle_; }
    const ColumnHeadings& HeadingFirst() const { return headingFirst_; }
    const ColumnHeadings& HeadingSecond() const { return headingSecond_; }

    ResultQueries& queries() { return queries_; }
    const ResultQueries& queries() const { return queries_; }

    // The tab-separated text of the three tables (see results/ResultsText.h), kept
    // in ResultsText until the next composition.
    const std::string& ComposeResultsText();
    const std::string& ResultsText() const { return resultsText_; }

    // Closing: "back to Input tabls" sets BackRequested before the window unloads.
    void Command11() { BackRequested = 1; }
    // What the unloading of the window does, given whether the input window's Save
    // button is enabled. Clears BackRequested.
    ResultsCloseAction Unload(bool saveEnabled);
    int BackRequested = 0;

  private:
    // Each column as wide as its widest text plus a margin: narrowMargin for the
    // columns up to lastNarrow, margin for the others.
    void fitColumns(TextTable& grid, int lastNarrow, int narrowMargin, int margin);

    SharedRegisters& shared_;
    const TextMeasurer& measurer_;
    ResultsTables tables_;
    ColumnHeadings headingSingle_, headingFirst_, headingSecond_;
    WordCaptions captions_;
    ResultQueries queries_;
    std::string resultsText_;
    std::function<void(int)> print_;
};

}  // namespace morvane
