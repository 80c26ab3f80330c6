// The comparison over line files written by the tests, each read and calculated by
// the program's own document and results tables.
#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <cstring>

#include "LineFiles.h"
#include "RelativeFixtures.h"
#include "core/LineCalculation.h"
#include "document/LineDocument.h"
#include "relative/DocumentLineCalculator.h"
#include "relative/LineBatch.h"
#include "relative/RelativeExport.h"
#include "results/LineResults.h"

namespace morvane {
namespace {

using testing::AddFiles;
using testing::Column;
using testing::FiveDoses;
using testing::LineFileFigures;
using testing::LineFileText;
using testing::OlderLineFileText;
using testing::Replicate;
using testing::ScriptedUserPort;
using testing::TempFolder;
using testing::Texts;

struct RealComparison {
    SharedRegisters shared;
    ScriptedUserPort port;
    FixedWidthTextMeasurer measurer;
    LineDocument document{shared, port, std::string()};
    LineResults results{shared, port, measurer};
    DocumentLineCalculator calculator{document, results};
    Rtvin rtvin;

    void add(const std::string& path) {
        ScriptedUserPort dialogs;
        AddFiles(rtvin, dialogs, {path});
    }
    BatchOutcome run() { return RunComparison(rtvin, shared, calculator, port); }
};

// The dose at 50% as the results window of the line shows it, the file opened and
// calculated on its own.
double ResultsWindowLD50(const std::string& path) {
    SharedRegisters shared;
    ScriptedUserPort port;
    FixedWidthTextMeasurer measurer;
    LineDocument document(shared, port, std::string());
    EXPECT_TRUE(document.OpenLineFile(path));
    LineResults results(shared, port, measurer);
    EXPECT_EQ(CalculateLine(document.calculationInput(), shared, results.tables(), port,
                            results.channel()),
              CalculationOutcome::Completed);
    const TextTable& estimates = results.tables().Grid2;
    EXPECT_EQ(estimates.text(3, estimatecol::Percent), "50");
    return NumberOf(estimates.text(3, estimatecol::Dose));
}

const LineFileFigures kSusceptible = FiveDoses(1, {5, 14, 26, 38, 46});
const LineFileFigures kResistant = FiveDoses(4, {4, 12, 25, 37, 45});

TEST(DocumentBatch, EachLineGivesTheEstimateOfItsOwnResultsWindow) {
    TempFolder folder;
    const std::string susceptible = folder.write("susceptible.mrv", LineFileText(kSusceptible));
    const std::string resistant = folder.write("resistant.mrv", LineFileText(kResistant));
    RealComparison c;
    c.add(resistant);
    c.add(susceptible);
    ASSERT_EQ(c.run(), BatchOutcome::Shown) << ::testing::PrintToString(c.port.texts());
    EXPECT_TRUE(c.port.messages.empty());
    const Rtvout& out = *c.rtvin.rtvout();
    EXPECT_EQ(Column(out.Grid1, resultcol::LineName), (Texts{"susceptible", "resistant"}));
    // The two routes format differently (three decimals here, four there) but take
    // the same dose from the same fit.
    EXPECT_NEAR(NumberOf(out.Grid1.text(1, resultcol::Estimate)), ResultsWindowLD50(susceptible),
                0.0006);
    EXPECT_NEAR(NumberOf(out.Grid1.text(2, resultcol::Estimate)), ResultsWindowLD50(resistant),
                0.0006);
    EXPECT_EQ(out.Grid1.text(1, out.columns.RatioColumn), "1.000");
    // After the batch the shared registers hold the last file's line.
    EXPECT_EQ(c.shared.BatchName, "susceptible");
}

TEST(DocumentBatch, ABlankRowFailsToOpenWithTheSystemsText) {
    TempFolder folder;
    const std::string line = folder.write("line.mrv", LineFileText(kSusceptible));
    RealComparison c;
    c.add(line);
    c.rtvin.Grid1Click(1);
    c.rtvin.Command6Click();
    c.add(line);
    EXPECT_EQ(c.run(), BatchOutcome::Failed);
    EXPECT_EQ(c.port.texts(),
              (Texts{std::string("An error occurred while opening \n") + std::strerror(ENOENT)}));
}

TEST(DocumentBatch, AFileThatCantBeReadInTheMiddleEndsTheComparison) {
    TempFolder folder;
    RealComparison c;
    c.add(folder.write("a.mrv", LineFileText(kSusceptible)));
    c.add(folder.path());  // a folder, not a file
    c.add(folder.write("c.mrv", LineFileText(kResistant)));
    EXPECT_EQ(c.run(), BatchOutcome::Failed);
    const std::string folderName = folder.path().substr(folder.path().find_last_of('/') + 1);
    EXPECT_EQ(c.port.texts(),
              (Texts{"An error occurred while opening " +
                     folderName.substr(0, folderName.size() - 4) + "\n" + std::strerror(EISDIR)}));
    EXPECT_FALSE(c.rtvin.rtvoutLoaded());
}

TEST(DocumentBatch, TooFewDosesCantBeCalculated) {
    TempFolder folder;
    LineFileFigures two = kSusceptible;
    two.rows.resize(2);
    RealComparison c;
    c.add(folder.write("good.mrv", LineFileText(kSusceptible)));
    c.add(folder.write("two doses.mrv", LineFileText(two)));
    EXPECT_EQ(c.run(), BatchOutcome::Failed);
    EXPECT_EQ(c.port.texts(), (Texts{"Can't calculate two doses"}));
}

TEST(DocumentBatch, TheWordsOfEachFileAreComparedWithTheSuggestedOnes) {
    TempFolder folder;
    LineFileFigures mg = kSusceptible, ppm = kResistant, lc = kResistant;
    mg.unit = "mg";
    ppm.unit = "ppm";
    lc.abbreviation = "LC";
    RealComparison c;
    c.add(folder.write("in mg.mrv", LineFileText(mg)));
    c.add(folder.write("none.mrv", LineFileText(kSusceptible)));
    c.add(folder.write("in ppm.mrv", LineFileText(ppm)));
    c.add(folder.write("as LC.mrv", LineFileText(lc)));
    ASSERT_EQ(c.run(), BatchOutcome::Shown);
    EXPECT_EQ(c.port.texts(),
              (Texts{"units in your files are not similar, that may mean illogic comparison",
                     "The abbreviation of the file(s)\nas LC, \nis not the same as your "
                     "suggested abbreviation LD"}));
}

TEST(DocumentBatch, AnOlderFileGivesOnlyTheRowsOfItsFirstTable) {
    // In the paired layout the control replicates stand in the second old table; a
    // comparison leaves them out, so the line is calculated uncorrected, as a file of
    // the treated rows alone.
    const std::vector<Replicate> treated = {{1, 50, 8},  {1, 50, 10}, {2, 50, 16},
                                            {4, 50, 27}, {8, 50, 38}, {16, 50, 45}};
    const std::vector<Replicate> controls = {
        {1, 50, 5}, {2, 50, 6}, {4, 50, 5}, {8, 50, 4}, {16, 50, 6}};
    LineFileFigures treatedOnly;
    treatedOnly.factor = 3;
    treatedOnly.rows = treated;
    TempFolder folder;
    RealComparison c;
    c.add(folder.write("older.mrv", OlderLineFileText(treated, controls)));
    c.add(folder.write("treated.mrv", LineFileText(treatedOnly)));
    c.rtvin.Combo1.text = "LT";
    ASSERT_EQ(c.run(), BatchOutcome::Shown) << ::testing::PrintToString(c.port.texts());
    EXPECT_TRUE(c.port.messages.empty());
    const TextTable& grid = c.rtvin.rtvout()->Grid1;
    const ResultColumns& columns = c.rtvin.rtvout()->columns;
    EXPECT_EQ(Column(grid, resultcol::LineName), (Texts{"older", "treated"}));
    for (int col = resultcol::Estimate; col < grid.cols(); ++col) {
        if (col >= columns.PairColumns[1] && col <= columns.PairColumns[2])
            continue;  // the block of differences: each line in its own column
        EXPECT_EQ(grid.text(1, col), grid.text(2, col)) << "column " << grid.text(0, col);
    }
    // Opened as a document, the same older file is corrected for its controls.
    SharedRegisters shared;
    ScriptedUserPort port;
    port.answers.push_back(Answer::Ok);
    LineDocument document(shared, port, std::string());
    ASSERT_TRUE(document.OpenLineFile(folder.path() + "/older.mrv"));
    EXPECT_NE(document.Grid2().dump(), c.document.Grid2().dump());
}

}  // namespace
}  // namespace morvane
