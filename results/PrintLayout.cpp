#include "results/PrintLayout.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/DoseEstimates.h"
#include "core/NumberText.h"
#include "results/ChartPicture.h"

namespace morvane {
namespace {

// Page layout of the tables.
constexpr double kTablesLeft = 750;      // X0
constexpr double kTablesMargins = 1500;  // the page width less the usable width
constexpr double kFirstLine = 1700;      // y at the top of each page
constexpr double kRowStep = 400;
constexpr double kColumnGap = 400;  // beside each column's own width

// The pages of the tables as they are printed, one drawing a page, with the pen,
// font and place of writing that the printer keeps across the pages.
class TablePages {
  public:
    TablePages(double width, double height, const FontMeasure& measure)
        : width_(width), height_(height), measure_(measure) {
        font_.points = kPrintTablePoints;
        newPage();
    }

    double height() const { return height_; }
    double usableWidth() const { return width_ - kTablesMargins; }

    void newPage() {
        pages_.emplace_back(width_, height_);
        pages_.back().setPenWidth(3);
        pages_.back().setFont(font_);
    }
    double textWidth(const std::string& text) const { return measure_(text, font_); }
    void print(double x, double y, const std::string& text) {
        Drawing& page = pages_.back();
        page.setCurrentPosition(x, y);
        page.print(text);
    }
    void line(double x1, double y1, double x2, double y2) { pages_.back().line(x1, y1, x2, y2); }
    std::vector<Drawing> take() { return std::move(pages_); }

  private:
    double width_, height_;
    const FontMeasure& measure_;
    TextFont font_;
    std::vector<Drawing> pages_;
};

class TablesPrinter {
  public:
    TablesPrinter(const LineResults& results, TablePages& pages)
        : results_(results), pages_(pages), grid1_(results.tables().Grid1) {}

    void print() {
        const double height = pages_.height();
        const auto groups = PrintColumnGroups(grid1_, grid1_.cols() - 1, pages_.usableWidth());
        if (!groups.empty())
            printGroup(groups.front());

        y_ += 1000;
        if (y_ > height - 3500)
            breakPage();
        printStatistics();

        y_ += 1000;
        if (y_ > height - 3000)
            breakPage();
        printEstimates();

        for (std::size_t g = 1; g < groups.size(); ++g) {
            breakPage();
            printGroup(groups[g]);
        }
        rule();
    }

  private:
    void breakPage() {
        pages_.newPage();
        y_ = kFirstLine;
    }
    void rule() { pages_.line(kTablesLeft, rule_, kTablesLeft + pages_.usableWidth(), rule_); }

    // The text centred in a column of the given width, at offset from X0.
    double centred(double offset, double columnWidth, const std::string& text) const {
        return kTablesLeft + offset + columnWidth / 2 - pages_.textWidth(text) / 2;
    }

    void printGroupRow(const std::array<int, 2>& group, int r) {
        double offset = 0;
        for (int c = group[0]; c <= group[1]; ++c) {
            const double cw = grid1_.columnWidth(c) + kColumnGap;
            const auto column = static_cast<std::size_t>(c);
            if (r == 0) {
                const std::string first =
                    column < results_.HeadingFirst().size() ? results_.HeadingFirst()[column] : "";
                const std::string second = column < results_.HeadingSecond().size()
                                               ? results_.HeadingSecond()[column]
                                               : "";
                pages_.print(centred(offset, cw, first), y_, first);
                pages_.print(centred(offset, cw, second), y_ + 400, second);
                rule_ = y_ + 700;
            } else {
                const std::string& text = grid1_.text(r, c);
                pages_.print(centred(offset, cw, text), y_, text);
            }
            offset += cw;
        }
        y_ += kRowStep;
        if (r == 0)
            y_ += kRowStep;
    }

    // The row rule of the data table: a full page starts again with the heading and
    // the first row.
    void printGroup(const std::array<int, 2>& group) {
        for (int r = 0; r < grid1_.rows(); ++r) {
            printGroupRow(group, r);
            if (y_ > pages_.height() - 1500) {
                breakPage();
                for (int again = 0; again <= 1 && again < grid1_.rows(); ++again)
                    printGroupRow(group, again);
            }
        }
    }

    // One row of the statistics or the estimates, each cell centred in its column;
    // skip is a column left out (-1 for none).
    void printCells(const TextTable& grid, int r, int skip) {
        double offset = 0;
        for (int c = 0; c < grid.cols(); ++c) {
            if (c == skip)
                continue;
            const double cw = grid.columnWidth(c) + kColumnGap;
            if (grid.picture(r, c) == kChiSquarePicture) {
                pages_.print(centred(offset, cw, "") - 20, y_, kChiSquareText);
            } else {
                const std::string& text = grid.text(r, c);
                pages_.print(centred(offset, cw, text), y_, text);
            }
            offset += cw;
        }
        y_ += kRowStep;
    }

    void printStatistics() {
        const TextTable& grid = results_.tables().Grid22;
        for (int r = 0; r < grid.rows(); ++r) {
            if (y_ > pages_.height() - 1400)
                breakPage();
            printCells(grid, r, -1);
        }
    }

    void printEstimates() {
        const TextTable& grid = results_.tables().Grid2;
        constexpr int kSpacer = estimatecol::Gap;
        for (int r = 0; r < grid.rows(); ++r) {
            if (y_ > pages_.height() - 1500) {
                rule();
                breakPage();
                for (int heading = 0; heading <= 1 && heading < grid.rows(); ++heading)
                    printCells(grid, heading, kSpacer);
            }
            printCells(grid, r, kSpacer);
        }
    }

    const LineResults& results_;
    TablePages& pages_;
    const TextTable& grid1_;
    double y_ = kFirstLine;
    double rule_ = 0;
};

}  // namespace

std::vector<std::array<int, 2>> PrintColumnGroups(const TextTable& grid, int lastColumn,
                                                  double usable) {
    std::vector<std::array<int, 2>> groups;
    int first = 0;
    double sum = 0;
    for (int c = 0; c <= lastColumn; ++c) {
        sum += grid.columnWidth(c) + kColumnGap;
        if (c < lastColumn && sum + grid.columnWidth(c + 1) + kColumnGap > usable) {
            groups.push_back({first, c});
            first = c + 1;
            sum = 0;
        }
    }
    if (first <= lastColumn)
        groups.push_back({first, lastColumn});
    return groups;
}

double FixedFontMeasure(std::string_view text, const TextFont& font) {
    return static_cast<double>(text.size()) * font.points * 10;
}

std::vector<Drawing> PrintTables(const LineResults& results, double pageWidth, double pageHeight,
                                 const FontMeasure& measure) {
    TablePages pages(pageWidth, pageHeight, measure);
    TablesPrinter(results, pages).print();
    return pages.take();
}

namespace {

// Where the chart goes on the page: the plot scaled by R to W by H, its left edge L,
// top T and bottom B.
struct PagePlace {
    double R, W, H, L, T, B;
};

PagePlace PlaceOnPage(double plotWidth, double plotHeight, double pageWidth, double pageHeight) {
    const double R = std::min((pageWidth - 3000) / plotWidth, (pageHeight - 3000) / plotHeight);
    const double W = plotWidth * R;
    const double H = plotHeight * R;
    const double L = (pageWidth - W) / 2;
    const double T = 1000;
    const double B = T + H;
    return {R, W, H, L, T, B};
}

double CoordinateOf(const TextTable& table, int r, int c) {
    const std::string& cell = table.text(r, c);
    return cell.empty() ? 0.0 : NumberOf(cell);
}

// The line, from the coordinate table of the range the chart shows.
void PrintChartLine(Drawing& d, const LogProbitChart& chart, const PagePlace& at) {
    const TextTable& points = chart.adjustRange() ? chart.Grid4() : chart.Grid3();
    for (int r = 2; r < points.rows(); ++r) {
        d.line(at.R * CoordinateOf(points, r - 1, pointcol::X) + at.L,
               at.B - at.R * CoordinateOf(points, r - 1, pointcol::Y),
               at.R * CoordinateOf(points, r, pointcol::X) + at.L,
               at.B - at.R * CoordinateOf(points, r, pointcol::Y));
    }
}

void PrintChartPoints(Drawing& d, const LogProbitChart& chart, const PagePlace& at) {
    d.setPenWidth(10);
    const TextTable& observed = chart.Grid5();
    for (int r = 1; r < observed.rows(); ++r)
        d.point(CoordinateOf(observed, r, pointcol::X) * at.R + at.L,
                at.B - at.R * CoordinateOf(observed, r, pointcol::Y));
}

// The two axis titles at their size on the screen, turned to read upward.
void PrintAxisTitles(Drawing& d, const ChartLayout& layout, const PagePlace& at) {
    d.setFont(TextFont{"", 8.5, true});
    auto title = [&](double left, const LayoutRect& picture, const char* text) {
        const double top = at.T + (at.H - picture.height) / 2;
        d.text(left + picture.width / 2, top + picture.height / 2, text, HorizontalAnchor::Centre,
               VerticalAnchor::Middle, kBlack, 90);
    };
    title(at.L - 800, layout.Pictprcent, kPercentAxisTitle);
    title(at.L + at.W + 500, layout.Pictprob, kProbitAxisTitle);
}

}  // namespace

Drawing PrintChart(const LogProbitChart& chart, const ChartLayout& layout,
                   const std::string& doseAxisTitle, SharedRegisters& shared, double pageWidth,
                   double pageHeight, const FontMeasure& measure) {
    const double plotWidth = layout.Picture1.width;
    const double plotHeight = layout.Picture1.height;
    Drawing d(pageWidth, pageHeight);
    if (plotWidth <= 0 || plotHeight <= 0)
        return d;
    const PagePlace at = PlaceOnPage(plotWidth, plotHeight, pageWidth, pageHeight);

    d.setPenWidth(2);
    const TextFont font{"", 9};
    d.setFont(font);

    // The frame: nine boxes, each a twip inside the one before.
    for (int i = 0; i < 9; ++i)
        d.box(at.L + i, at.T + i, at.L + at.W - i, at.B - i);

    DrawChartLabels(d, chart, {at.R, at.L, at.T, at.W, at.B, 50, 350, 600, pageWidth},
                    doseAxisTitle, [&](const std::string& text) { return measure(text, font); });
    PrintChartLine(d, chart, at);
    DrawChartMarks(d, chart, shared, {at.R, at.L, at.B, plotHeight, 300});
    if (chart.showPoints())
        PrintChartPoints(d, chart, at);
    d.setPenWidth(1);
    PrintAxisTitles(d, layout, at);
    return d;
}

PrintForm::PrintForm(PrintFormKind kind) : kind_(kind) {
    if (kind == PrintFormKind::Print2) {
        Option1 = false;
        Check3 = false;
        Check4 = false;
    }
}

bool PrintForm::CopiesAcceptKey(char key) {
    return (key >= '0' && key <= '9') || key == '\b';
}

std::string PrintForm::CopiesLostFocus(const std::string& text) const {
    if (text.empty())
        return kind_ == PrintFormKind::Print2 ? "1" : "0";
    const auto number = ParseNumber(text);
    return number ? PlainText(*number) : text;
}

int CopiesOf(const std::string& text) {
    const auto number = ParseNumber(text);
    if (!number || *number < 0)
        return 0;
    if (*number > kMostCopies)
        return -1;
    return static_cast<int>(*number);
}

std::vector<int> PrintForm::Command1(UserPort& port) const {
    const int tables = Check1 ? CopiesOf(Text1) : 0;
    const int charts = Check2 ? CopiesOf(Text2) : 0;
    if (tables < 0 || charts < 0) {
        port.tell(kTooManyCopies);
        return {};
    }
    const bool relative = kind_ == PrintFormKind::Print2;
    std::vector<int> codes(static_cast<std::size_t>(tables), relative ? 5 : 3);
    codes.insert(codes.end(), static_cast<std::size_t>(charts), relative ? 6 : 4);
    return codes;
}

}  // namespace morvane
