// The comparison of lines, over a stand-in for the single-line machinery that leaves
// hand-built fitted lines in the shared registers. Every line of these tests has
// slope 2 and passes through probit 5 at its mean log dose d, so its LD50 is 10^d and
// its LD90 10^((6.2816 - 5 + 2d) / 2); with t 1.96, g 0.1, Sw 50 and Sxx 2 the limits
// of the LD50 are 10^(d +/- 0.146090): for d = 1, 7.143 and 13.999.
#include "relative/LineBatch.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <map>

#include "FittedLines.h"
#include "RelativeFixtures.h"
#include "relative/LinePens.h"
#include "relative/RelativeExport.h"

namespace morvane {
namespace {

using testing::AddFiles;
using testing::Column;
using testing::Fitted;
using testing::LineFigures;
using testing::ScriptedUserPort;
using testing::Texts;

struct FakeLine {
    LineFigures figures;
    std::string units;
    std::string abbreviation = "LD";
    bool refused = false;  // the calculation refuses the data
};

// Files by path; a path that is not known can't be opened.
class FakeCalculator : public LineCalculator {
  public:
    std::map<std::string, FakeLine> files;
    std::vector<std::string> opened;

    void OpenLineForBatch(const std::string& path, SharedRegisters& shared) override {
        opened.push_back(path);
        auto found = files.find(path);
        if (found == files.end()) {
            shared.BatchMessage = "An error occurred while opening " + shared.BatchName + "\n" +
                                  std::strerror(ENOENT);
            shared.BatchFailed = 1;
            current_ = nullptr;
            return;
        }
        current_ = &found->second;
    }
    void CalculateFile(SharedRegisters& shared, UserPort&) override {
        if (current_->refused) {
            shared.BatchMessage = "Can't calculate " + shared.BatchName;
            shared.BatchFailed = 1;
            return;
        }
        shared.fit = Fitted(current_->figures);
        shared.UnitWord = current_->units;
        shared.EstimateWord = current_->abbreviation;
    }

  private:
    const FakeLine* current_ = nullptr;
};

// A table of lines named as their files, each file known to the calculator.
struct Comparison {
    Rtvin rtvin;
    SharedRegisters shared;
    FakeCalculator calculator;
    ScriptedUserPort port;
    std::vector<BatchProgress> progress;
    int shownAtMessage = -1;  // how many messages had been told when results showed

    void add(const std::string& name, FakeLine line) {
        const std::string path = "/lines/" + name + ".mrv";
        calculator.files[path] = std::move(line);
        addPath(path);
    }
    void addPath(const std::string& path) {
        ScriptedUserPort dialogs;
        AddFiles(rtvin, dialogs, {path});
    }
    BatchOutcome run() {
        BatchHooks hooks;
        hooks.progress = [this](const BatchProgress& p) { progress.push_back(p); };
        hooks.showResults = [this] { shownAtMessage = static_cast<int>(port.messages.size()); };
        return RunComparison(rtvin, shared, calculator, port, hooks);
    }
    const Rtvout& out() { return *rtvin.rtvout(); }
};

FakeLine AtLog(double meanLogDose) {
    return FakeLine{LineFigures{.meanLogDose = meanLogDose}};
}

TEST(LineBatch, OneLineAgainstItself) {
    Comparison c;
    c.add("only", AtLog(1));
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    ASSERT_EQ(c.progress.size(), 1u);
    EXPECT_EQ(c.progress[0].bar, 100);
    EXPECT_EQ(c.progress[0].caption, "Opening and calculating only");
    EXPECT_TRUE(c.port.messages.empty());
    EXPECT_EQ(c.shownAtMessage, 0);
    EXPECT_EQ(RelativeTableText(c.out()),
              "No\tLine name\tLD50\tLower limit\tUpper limit\t1\tIndex\tRR\tSlope\tLD90\n"
              "1\tonly\t10\t7.143\t13.999\t*\t100.000\t1.000\t2.000\t43.732\n"
              "\n"
              " Index compared with only       Resistance Ratio (RR) compared with only\n");
    // The store of the chart: the estimate text as written, the log doses at 20, 80
    // and 50 percent, the factor, and the same logs on the common scale.
    const TextTable& g2 = c.out().Grid2;
    EXPECT_EQ(g2.rows(), 2);
    EXPECT_EQ(g2.text(0, grid2col::CommonFrom), "4.1584");
    EXPECT_EQ(g2.text(0, grid2col::CommonTo), "5.8416");
    EXPECT_EQ(g2.text(0, grid2col::CommonSorted), "5");
    EXPECT_EQ(g2.text(1, grid2col::Estimate), "10.000");
    EXPECT_EQ(g2.text(1, grid2col::LogFrom), "0.5792");
    EXPECT_EQ(g2.text(1, grid2col::LogTo), "1.4208");
    EXPECT_EQ(g2.text(1, grid2col::LogSorted), "1");
    EXPECT_EQ(g2.text(1, grid2col::DoseScale), "1");
    EXPECT_EQ(g2.text(1, grid2col::CommonFrom), "0.5792");
    EXPECT_EQ(g2.text(1, grid2col::CommonTo), "1.4208");
    EXPECT_EQ(g2.text(1, grid2col::CommonSorted), "1");
    EXPECT_EQ(g2.text(1, grid2col::SortKey), "1.023292992281");
    EXPECT_EQ(c.out().ChartLogMin, 0.5792);
    EXPECT_EQ(c.out().ChartLogMax, 2);
    EXPECT_EQ(c.out().LineColors[1], 0x808080u);
    EXPECT_EQ(c.out().LineStyles[1], 0);
    EXPECT_TRUE(c.rtvin.enabled);
    EXPECT_FALSE(c.rtvin.panelVisible);
}

TEST(LineBatch, LinesAreSortedByPotencyAndComparedWithTheFirst) {
    Comparison c;
    c.add("field", AtLog(2));
    c.add("lab", AtLog(1));
    c.add("season", AtLog(1.5));
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    EXPECT_EQ(RelativeTableText(c.out()),
              "No\tLine name\tLD50\tLower limit\tUpper limit\t1\t2\t3\tIndex\tRR\tSlope\tLD90\n"
              "1\tlab\t10\t7.143\t13.999\t*\t\t\t100.000\t1.000\t2.000\t43.732\n"
              "2\tseason\t31.623\t22.59\t44.268\t\t*\t\t31.623\t3.162\t2.000\t138.293\n"
              "3\tfield\t100\t71.435\t139.988\t\t\t*\t10.000\t10.000\t2.000\t437.321\n"
              "\n"
              " Index compared with lab       Resistance Ratio (RR) compared with lab\n");
    // Pens stay with the table order: the first file, now in row 3, gave entry 1.
    EXPECT_EQ(c.out().LineColors[1], PaletteColor(8));
    // The chart's range over the drawn ends, on the common scale.
    EXPECT_EQ(c.out().ChartLogMin, 0.5792);
    EXPECT_EQ(c.out().ChartLogMax, 3);  // 2.4208 raised
}

TEST(LineBatch, TheProgressBarRunsAheadOfTheWork) {
    Comparison c;
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h"})
        c.add(name, AtLog(1));
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    std::vector<int> bars;
    for (const auto& p : c.progress)
        bars.push_back(p.bar);
    // i / 8 * 100, halves to the even neighbour.
    EXPECT_EQ(bars, (std::vector<int>{12, 25, 38, 50, 62, 75, 88, 100}));
    EXPECT_EQ(c.progress[2].line, 3);
    EXPECT_EQ(c.progress[2].lines, 8);
    EXPECT_EQ(c.progress[2].name, "c");
}

TEST(LineBatch, TheSameFileTwiceGivesTwoTiedRows) {
    Comparison c;
    c.add("twice", AtLog(1.5));
    c.addPath("/lines/twice.mrv");
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    EXPECT_EQ(Column(c.out().Grid1, resultcol::LineName), (Texts{"twice", "twice"}));
    EXPECT_EQ(Column(c.out().Grid1, resultcol::Estimate), (Texts{"31.623", "31.623"}));
    const int key = c.out().columns.SortKeyColumn;
    EXPECT_EQ(c.out().Grid1.text(1, key), c.out().Grid1.text(2, key));
    EXPECT_EQ(Column(c.out().Grid1, c.out().columns.RatioColumn), (Texts{"1.000", "1.000"}));
    // Overlapping limits: every pair is marked.
    EXPECT_EQ(c.out().Grid1.text(1, c.out().columns.PairColumns[2]), "*");
    EXPECT_EQ(c.out().Grid1.text(2, c.out().columns.PairColumns[1]), "*");
}

TEST(LineBatch, AnUnreadableSecondLineOfFiveEndsEverything) {
    Comparison c;
    c.add("a", AtLog(1));
    c.addPath("/lines/missing.mrv");
    c.add("c", AtLog(1));
    c.add("d", AtLog(1));
    c.add("e", AtLog(1));
    c.rtvin.Text1.text = "60";
    const std::string tableBefore = c.rtvin.Grid1.dump();
    EXPECT_EQ(c.run(), BatchOutcome::Failed);
    EXPECT_EQ(c.port.texts(), (Texts{std::string("An error occurred while opening missing\n") +
                                     std::strerror(ENOENT)}));
    EXPECT_EQ(c.shownAtMessage, -1);
    EXPECT_FALSE(c.rtvin.rtvoutLoaded());
    EXPECT_EQ(c.calculator.opened, (Texts{"/lines/a.mrv", "/lines/missing.mrv"}));
    EXPECT_EQ(c.rtvin.Grid1.dump(), tableBefore);
    EXPECT_EQ(c.rtvin.Text1.text, "60");
    EXPECT_TRUE(c.rtvin.enabled);
    EXPECT_FALSE(c.rtvin.panelVisible);
    EXPECT_EQ(c.shared.BatchFailed, 1);
}

TEST(LineBatch, ABlankRowHasAnEmptyPathThatFailsToOpen) {
    Comparison c;
    c.add("first", AtLog(1));
    c.rtvin.Grid1Click(1);
    c.rtvin.Command6Click();  // the only row: blanked, its number kept
    c.add("second", AtLog(1));
    ASSERT_EQ(c.rtvin.Grid1.rows(), 3);
    EXPECT_EQ(c.run(), BatchOutcome::Failed);
    EXPECT_EQ(c.calculator.opened, (Texts{""}));
    EXPECT_EQ(c.port.texts(),
              (Texts{std::string("An error occurred while opening \n") + std::strerror(ENOENT)}));
}

TEST(LineBatch, DataThatCantBeCalculatedEndEverything) {
    Comparison c;
    c.add("a", AtLog(1));
    FakeLine refused = AtLog(1);
    refused.refused = true;
    c.add("b", refused);
    EXPECT_EQ(c.run(), BatchOutcome::Failed);
    EXPECT_EQ(c.port.texts(), (Texts{"Can't calculate b"}));
    EXPECT_FALSE(c.rtvin.rtvoutLoaded());
}

TEST(LineBatch, GOfPointFourGivesNoLimitsAndJustUnderGivesThem) {
    Comparison c;
    c.add("at", FakeLine{LineFigures{.gValue = 0.4}});
    c.add("under", FakeLine{LineFigures{.gValue = 0.3999}});
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    const ResultColumns& col = c.out().columns;
    // Equal estimates keep their order; the limits of "under" widen with g.
    EXPECT_EQ(Column(c.out().Grid1, resultcol::LineName), (Texts{"at", "under"}));
    EXPECT_EQ(Column(c.out().Grid1, col.LowerColumn), (Texts{"", "6.624"}));
    EXPECT_EQ(Column(c.out().Grid1, col.UpperColumn), (Texts{"", "15.098"}));
    // The line without limits is neither marked nor marks.
    EXPECT_EQ(Column(c.out().Grid1, col.PairColumns[1]), (Texts{"", ""}));
    EXPECT_EQ(Column(c.out().Grid1, col.PairColumns[2]), (Texts{"", "*"}));
}

TEST(LineBatch, WithoutLimitsTheLimitColumnsAndTheBlockAreNotLaidOut) {
    Comparison c;
    c.add("a", AtLog(1));
    c.rtvin.Check3Click(false);
    c.rtvin.Check7.checked = true;
    c.rtvin.List1.items = {"90", "25"};
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    // LD25: (4.3255 - 5 + 2) / 2 = 0.66275, 10^0.66275 = 4.600. The slope's error of
    // 0.7071 is written by the same format rule.
    EXPECT_EQ(RelativeTableText(c.out()),
              "No\tLine name\tLD50\tIndex\tRR\tSlope\tSlope +/-\tLD90\tLD25\n"
              "1\ta\t10\t100.000\t1.000\t2.000\t0.707\t43.732\t4.600\n"
              "\n"
              " Index compared with a       Resistance Ratio (RR) compared with a\n");
    // Each item was selected in turn.
    EXPECT_EQ(c.rtvin.List1.listIndex, 1);
    EXPECT_TRUE(c.rtvin.Command3.enabled);
}

TEST(LineBatch, UnitsBesideLinesWithoutUnitsAreNoWarning) {
    Comparison c;
    FakeLine mg = AtLog(1);
    mg.units = "mg";
    c.add("a", mg);
    c.add("b", AtLog(1));
    c.add("c", mg);
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    EXPECT_TRUE(c.port.messages.empty());
}

TEST(LineBatch, DifferentUnitsAreWarnedOfAfterTheResultsShow) {
    Comparison c;
    FakeLine mg = AtLog(1), ppm = AtLog(1);
    mg.units = "mg";
    ppm.units = "ppm";
    c.add("a", mg);
    c.add("b", AtLog(1));
    c.add("c", ppm);
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    EXPECT_EQ(c.shownAtMessage, 0);
    EXPECT_EQ(c.port.texts(),
              (Texts{"units in your files are not similar, that may mean illogic comparison"}));
}

TEST(LineBatch, OddAbbreviationsAreListedWithTheSuggestedOne) {
    Comparison c;
    FakeLine lc = AtLog(1), lt = AtLog(1);
    lc.abbreviation = "LC";
    lt.abbreviation = "LT";
    lc.units = "mg";
    lt.units = "ppm";
    c.add("a", AtLog(1));
    c.add("b", lc);
    c.add("c d", lt);
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    EXPECT_EQ(c.port.texts(),
              (Texts{"units in your files are not similar, that may mean illogic comparison",
                     "The abbreviation of the file(s)\nb, c d, \nis not the same as your "
                     "suggested abbreviation LD"}));
}

TEST(LineBatch, TheSeventhLineIsBlackWithStyleOneWhereverItSorts) {
    Comparison c;
    // Decreasing potency: the sort turns the table upside down.
    for (int i = 1; i <= 7; ++i)
        c.add("line" + std::to_string(i), AtLog(2 - i * 0.1));
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    EXPECT_EQ(c.out().Grid1.text(1, resultcol::LineName), "line7");
    EXPECT_EQ(c.out().LineColors[7], 0x000000u);
    EXPECT_EQ(c.out().LineStyles[7], 1);
    EXPECT_EQ(c.out().LineColors[1], PaletteColor(8));
    EXPECT_EQ(c.out().LineStyles[6], 0);
}

TEST(LineBatch, AnOverflowingDoseRepeatsTheTextBeforeIt) {
    Comparison c;
    c.add("a", AtLog(1));
    // Slope 0.001 through probit 5 at log dose 0 puts 90% at log dose 1281.6.
    c.add("huge", FakeLine{LineFigures{.slope = 0.001, .meanLogDose = 0}});
    c.rtvin.Check3Click(false);
    c.rtvin.Check2.checked = false;
    c.rtvin.Check4Click(false);
    c.rtvin.Check5Click(false);
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    // The LD90 of "huge" repeats its own LD50, the text written just before.
    EXPECT_EQ(RelativeTableText(c.out()),
              "No\tLine name\tLD50\tLD90\n"
              "1\thuge\t1\t1.000\n"
              "2\ta\t10\t43.732\n"
              "\n"
              "\n");
}

TEST(LineBatch, FromNotBelowToStopsBeforeAnyFile) {
    Comparison c;
    c.add("a", AtLog(1));
    c.rtvin.Text4.text = "80";
    c.rtvin.Text3.text = "80";
    EXPECT_EQ(c.run(), BatchOutcome::LimitsInvalid);
    EXPECT_EQ(c.port.texts(), (Texts{"LD value of the 1st point of lines limits (80)\n"
                                     "must be less than  2nd point (80)"}));
    EXPECT_TRUE(c.calculator.opened.empty());
    EXPECT_FALSE(c.rtvin.LimitsInvalid);
    EXPECT_FALSE(c.rtvin.rtvoutLoaded());
    EXPECT_EQ(c.rtvin.focus, RtvinFocus::Text4);
    EXPECT_TRUE(c.rtvin.enabled);
}

TEST(LineBatch, AReferenceOfZeroStopsTheComparisonWithAMessage) {
    // The first line's dose underflows to 0 before any text was written, so its cell
    // stays empty and reads as 0: the ratios against it divide by zero.
    Comparison c;
    c.add("tiny", FakeLine{LineFigures{.slope = 0.001, .meanLogDose = 0, .meanProbit = 6.2816}});
    c.add("b", AtLog(1));
    c.rtvin.Check3Click(false);
    c.rtvin.Check4Click(false);
    EXPECT_EQ(c.run(), BatchOutcome::Failed);
    EXPECT_EQ(c.port.texts(),
              (Texts{"Morvane stopped the calculation:\nthe reference line tiny has an estimate "
                     "of 0, so the resistance ratio divides by zero.\nNo results were made."}));
    EXPECT_FALSE(c.rtvin.rtvoutLoaded());
}

TEST(LineBatch, NoLowerLimitIsAnEmptyCellAndNoUpperLimitIsZero) {
    // The first line's doses all underflow to 0 before any text was written: its
    // estimate cell stays empty and reads as 0, so it sorts first, and both limits
    // read back as 0 from the empty text. The lower one is written as an empty cell,
    // the upper one as "0", which the test of differences takes for a value.
    Comparison c;
    c.add("tiny",
          FakeLine{LineFigures{
              .slope = 0.001, .meanLogDose = 0, .meanProbit = 6.2816, .sumSquaresLogDose = 1e8}});
    c.add("b", AtLog(1));
    c.rtvin.Check4Click(false);
    c.rtvin.Check5Click(false);
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    EXPECT_EQ(RelativeTableText(c.out()),
              "No\tLine name\tLD50\tLower limit\tUpper limit\t1\t2\tSlope\tLD90\n"
              "1\ttiny\t0\t\t0\t\t\t0.0010\t1.000\n"
              "2\tb\t10\t7.143\t13.999\t\t*\t2.000\t43.732\n"
              "\n"
              "\n");
    EXPECT_EQ(c.out().Grid1.text(1, c.out().columns.SortKeyColumn), "0.000000000000");
}

TEST(LineBatch, ALineWhoseLimitsOverflowStopsTheComparisonWithItsName) {
    Comparison c;
    c.add("a", AtLog(1));
    c.add("huge", FakeLine{LineFigures{.slope = 0.001, .meanLogDose = 0}});
    c.rtvin.Text1.text = "90";
    EXPECT_EQ(c.run(), BatchOutcome::Failed);
    ASSERT_EQ(c.port.texts().size(), 1u);
    EXPECT_EQ(c.port.texts()[0].rfind("Can't calculate huge:\nthe upper limit overflows", 0), 0u)
        << c.port.texts()[0];
}

}  // namespace
}  // namespace morvane
