#pragma once
// The printed pages of one line's results, as drawings: the tables (PrintTables) and
// the chart (PrintChart) laid out on a page of a given size, and the dialog "print"
// that chooses what is printed, in how many copies and in which orientation. The
// shell sets the printer's orientation, reads the size of its page, and paints the
// pages that come back with the one painter of drawings.
//
// Every value is twips from the top left corner of the paper. The pages carry only
// what the layout below puts on them: no header, whatever "Print header" says.

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Drawing.h"
#include "core/SharedRegisters.h"
#include "results/Chart.h"
#include "results/ChartLayout.h"
#include "results/LineResults.h"

namespace morvane {

// The width of a text in the font on the printed page, in twips.
using FontMeasure = std::function<double(std::string_view text, const TextFont& font)>;

// A stand-in for tests and tools that never print: every character is as wide as
// ten twips a point of the font's size.
double FixedFontMeasure(std::string_view text, const TextFont& font);

enum class PageOrientation { Portrait = 1, Landscape = 2 };

// One printed document: its orientation and its pages, each a drawing of the page's
// size.
struct PrintJob {
    PageOrientation orientation = PageOrientation::Portrait;
    std::vector<Drawing> pages;
};

// The font of the printed tables and the text of the chi-square picture in them.
inline constexpr double kPrintTablePoints = 11;
inline constexpr const char* kChiSquareText = "\xCF\x87\xC2\xB2";  // chi squared

// The groups of a table's columns 0 to lastColumn that fit the usable width, each as
// its first and last column: a column takes its width plus 400, and a group ends
// where the next column would pass the width.
std::vector<std::array<int, 2>> PrintColumnGroups(const TextTable& grid, int lastColumn,
                                                  double usableWidth);

// The tables on pages of the given size: the first group of columns of the data
// table, the statistics, the estimates, then each further group of columns on a page
// of its own.
std::vector<Drawing> PrintTables(const LineResults& results, double pageWidth, double pageHeight,
                                 const FontMeasure& measure);

// The chart on one page of the given size, scaled to fit with its proportions kept.
Drawing PrintChart(const LogProbitChart& chart, const ChartLayout& layout,
                   const std::string& doseAxisTitle, SharedRegisters& shared, double pageWidth,
                   double pageHeight, const FontMeasure& measure);

// The most copies that one press of "Print" makes.
inline constexpr int kMostCopies = 999;
inline constexpr const char* kTooManyCopies = "No more than 999 copies can be printed at once.";

// The two dialogs "print": print1 of the results window of one line (codes 3 and 4,
// both orientations portrait for the tables and landscape for the chart at first,
// "Print header" boxes, an empty copies box becomes "0") and print2 of the relative
// results (codes 5 and 6, both landscape at first, no header boxes, an empty copies
// box becomes "1").
enum class PrintFormKind { Print1, Print2 };

// A dialog "print" as logic. It keeps its settings while its results window stays.
class PrintForm {
  public:
    explicit PrintForm(PrintFormKind kind = PrintFormKind::Print1);

    PrintFormKind kind() const { return kind_; }

    // Tables: Check1 "Print", Text1 the copies, Option1 "Portrait" / Option2
    // "Landscape", Check3 "Print header" (print1 only).
    bool Check1 = true;
    std::string Text1 = "1";
    bool Option1 = true;
    bool Check3 = true;
    // Graphic: Check2 "Print", Text2 the copies, Option4 "Portrait" / Option3
    // "Landscape", Check4 "Print header" (print1 only).
    bool Check2 = true;
    std::string Text2 = "1";
    bool Option4 = false;
    bool Check4 = true;

    // The controls that follow each "Print" box.
    bool tablesEnabled() const { return Check1; }
    bool graphicEnabled() const { return Check2; }
    // The small previews: Picture2 (portrait) or Picture1 (landscape) for the tables,
    // Picture3 (portrait) or Picture4 (landscape) for the chart, with their header
    // marks shown as Check3 and Check4 say.
    bool Picture2Visible() const { return Option1; }
    bool Picture1Visible() const { return !Option1; }
    bool Picture3Visible() const { return Option4; }
    bool Picture4Visible() const { return !Option4; }

    PageOrientation tablesOrientation() const {
        return Option1 ? PageOrientation::Portrait : PageOrientation::Landscape;
    }
    PageOrientation chartOrientation() const {
        return Option4 ? PageOrientation::Portrait : PageOrientation::Landscape;
    }

    // A copies box takes digits and Backspace only.
    static bool CopiesAcceptKey(char key);
    // Leaving a copies box: empty becomes "0" (print1) or "1" (print2), a number its
    // plain text.
    std::string CopiesLostFocus(const std::string& text) const;

    // "Print": the codes to send to the results window's channel, in order: the
    // tables' code as many times as Text1 says when the tables are checked, then the
    // chart's as many times as Text2 says when the chart is. Too many copies are
    // told and give none.
    std::vector<int> Command1(UserPort& port) const;

  private:
    PrintFormKind kind_;
};

// The copies that a box's text asks for; -1 when more than kMostCopies.
int CopiesOf(const std::string& text);

}  // namespace morvane
