// morvane-cli compare, run as a whole process on line files written here, with its
// whole standard output, standard error and exit status compared.
//
// Where the expected tables come from: every estimate and limit is the one the
// results window of the same line gives (morvane-cli report: four decimals there,
// the comparison's three here), which TheEstimatesAreThoseOfEachLinesResults checks
// line by line; the order is that of the estimates; the index is the reference's
// estimate over each estimate times 100 and the RR its inverse, both from the cells
// as shown; a "*" stands where the limits of two lines overlap, the diagonal
// included, and nowhere for a line without limits.

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "CliRun.h"
#include "cli/CompareCommand.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

using testing::CliResult;
using testing::CliTest;
using testing::CurrentLineFile;
using testing::RunCli;
using testing::WriteBytes;

// Options records: data type "Total and Responded", the units tab with a first unit
// and the factor "Dose"; or the custom tab with the abbreviation "LC".
std::string Options(const std::string& unit) {
    return "1,0,\"" + unit + "\",\"\",1,\"Dose\",\"LD\",\"\",0,\"0.05\",0,0";
}
const std::string kCustomLC = R"(1,1,"","",1,"Dose","LC","",0,"0.05",0,0)";

struct Dose {
    double dose;
    double total;
    double responded;
};

// A treated row of the table: label, dose, total, responded, response %, sort key.
std::vector<std::string> Row(const Dose& d) {
    return {"T",
            PlainText(d.dose),
            PlainText(d.total),
            PlainText(d.responded),
            FormatNumber(d.responded / d.total * 100, "0.000"),
            FormatNumber(std::pow(d.dose, 0.01), "0.00000000000") + "T"};
}

// Five doubling doses from `first`, 50 individuals each.
std::vector<Dose> Doubling(double first, std::vector<double> responded) {
    std::vector<Dose> rows;
    for (double r : responded) {
        rows.push_back({first, 50, r});
        first *= 2;
    }
    return rows;
}

const std::vector<double> kSusceptibleResponses = {5, 14, 26, 38, 46};

class CompareCliTest : public CliTest {
  protected:
    CompareCliTest() : CliTest({"compare"}) {}

    void writeLine(const std::string& name, const std::vector<Dose>& doses,
                   const std::string& options = Options("")) {
        std::vector<std::vector<std::string>> rows;
        for (const Dose& d : doses)
            rows.push_back(Row(d));
        WriteBytes(folder.file(name), CurrentLineFile(options, 6, rows, R"("Treatment","","","")"));
    }
    // The lines of these tests: four of good fit, one of ten individuals a dose whose
    // g is 0.7475, and one in LC.
    void writeStandardLines() {
        writeLine("susceptible.mrv", Doubling(1, kSusceptibleResponses));
        writeLine("resistant.mrv", Doubling(4, {4, 12, 25, 37, 45}));
        writeLine("field.mrv", Doubling(2, {6, 15, 27, 39, 44}), Options("mg"));
        writeLine("lab.mrv", Doubling(0.5, {7, 16, 24, 37, 47}), Options("ppm"));
        writeLine("small.mrv", {{1, 10, 2}, {2, 10, 6}, {4, 10, 4}, {8, 10, 8}});
        writeLine("as LC.mrv", Doubling(3, {8, 17, 28, 36, 46}), kCustomLC);
    }
    CliResult compare(const std::vector<std::string>& args) const { return run(args); }
};

const std::string kBothReferences =
    "\n Index compared with susceptible       Resistance Ratio (RR) compared with susceptible\n";

TEST_F(CompareCliTest, OneLineAgainstItself) {
    writeStandardLines();
    expectRun({"susceptible.mrv"},
              "No\tLine name\tLD50\tLower limit\tUpper limit\t1\tIndex\tRR\tSlope\tLD90\n"
              "1\tsusceptible\t3.763\t3.098\t4.556\t*\t100.000\t1.000\t2.203\t14.366\n" +
                  kBothReferences,
              "", 0);
}

TEST_F(CompareCliTest, LinesAreSortedByTheirEstimate) {
    writeStandardLines();
    expectRun({"resistant.mrv", "susceptible.mrv", "field.mrv"},
              "No\tLine name\tLD50\tLower limit\tUpper limit\t1\t2\t3\tIndex\tRR\tSlope\tLD90\n"
              "1\tsusceptible\t3.763\t3.098\t4.556\t*\t\t\t100.000\t1.000\t2.203\t14.366\n"
              "2\tfield\t7.3\t5.913\t8.962\t\t*\t\t51.548\t1.940\t2.005\t31.814\n"
              "3\tresistant\t16.525\t13.663\t20.016\t\t\t*\t22.772\t4.391\t2.231\t62.032\n" +
                  kBothReferences,
              "", 0);
}

TEST_F(CompareCliTest, SevenLinesAndTheirOverlaps) {
    // One line at seven dose levels, given from the least potent: each overlaps its
    // neighbours at the factors 4/3 and 1.5 and not at 2.
    const double firsts[] = {8, 6, 4, 3, 2, 1.5, 1};
    std::vector<std::string> files;
    for (int i = 0; i < 7; ++i) {
        files.push_back("s" + std::to_string(i + 1) + ".mrv");
        writeLine(files.back(), Doubling(firsts[i], kSusceptibleResponses));
    }
    std::vector<std::string> args = {"--no-rr", "--no-slope", "--no-add"};
    args.insert(args.end(), files.begin(), files.end());
    expectRun(args,
              "No\tLine name\tLD50\tLower limit\tUpper limit\t1\t2\t3\t4\t5\t6\t7\tIndex\n"
              "1\ts7\t3.763\t3.098\t4.556\t*\t\t\t\t\t\t\t100.000\n"
              "2\ts6\t5.644\t4.647\t6.835\t\t*\t*\t\t\t\t\t66.673\n"
              "3\ts5\t7.525\t6.196\t9.113\t\t*\t*\t\t\t\t\t50.007\n"
              "4\ts4\t11.288\t9.294\t13.669\t\t\t\t*\t*\t\t\t33.336\n"
              "5\ts3\t15.05\t12.392\t18.225\t\t\t\t*\t*\t\t\t25.003\n"
              "6\ts2\t22.575\t18.588\t27.339\t\t\t\t\t\t*\t*\t16.669\n"
              "7\ts1\t30.099\t24.783\t36.45\t\t\t\t\t\t*\t*\t12.502\n"
              "\n Index compared with s7\n",
              "", 0);
}

TEST_F(CompareCliTest, TheSameFileTwiceGivesTwoTiedRows) {
    writeStandardLines();
    expectRun({"susceptible.mrv", "susceptible.mrv"},
              "No\tLine name\tLD50\tLower limit\tUpper limit\t1\t2\tIndex\tRR\tSlope\tLD90\n"
              "1\tsusceptible\t3.763\t3.098\t4.556\t*\t*\t100.000\t1.000\t2.203\t14.366\n"
              "2\tsusceptible\t3.763\t3.098\t4.556\t*\t*\t100.000\t1.000\t2.203\t14.366\n" +
                  kBothReferences,
              "", 0);
}

TEST_F(CompareCliTest, NamedAndLastReferencesWithTheSlopesErrorAndFurtherPercentages) {
    writeStandardLines();
    expectRun(
        {"--index-ref", "resistant", "--rr-ref", "last", "--slope-error", "--add", "95", "--add",
         "99", "lab.mrv", "resistant.mrv", "susceptible.mrv"},
        "No\tLine name\tLD50\tLower limit\tUpper limit\t1\t2\t3\tIndex\tRR\tSlope\tSlope "
        "+/-\tLD95\tLD99\n"
        "1\tlab\t1.806\t1.469\t2.209\t*\t\t\t915.006\t0.109\t2.055\t0.236\t11.407\t24.474\n"
        "2\tsusceptible\t3.763\t3.098\t4.556\t\t*\t\t439.144\t0.228\t2.203\t0.244\t21.003\t"
        "42.821\n"
        "3\tresistant\t16.525\t13.663\t20.016\t\t\t*\t100.000\t1.000\t2.231\t0.246\t90.253\t"
        "182.346\n"
        "\n Index compared with resistant       Resistance Ratio (RR) compared with resistant\n",
        "", 0);
}

TEST_F(CompareCliTest, OfTwoLinesOfOneNameTheLastInSortedOrderIsTheReference) {
    writeStandardLines();
    std::filesystem::create_directory(folder.file("2024"));
    std::filesystem::copy_file(folder.file("resistant.mrv"), folder.file("2024/susceptible.mrv"));
    expectRun({"--rr-ref", "susceptible", "--no-index", "--no-limits", "--no-slope", "--no-add",
               "2024/susceptible.mrv", "susceptible.mrv", "lab.mrv"},
              "No\tLine name\tLD50\tRR\n"
              "1\tlab\t1.806\t0.109\n"
              "2\tsusceptible\t3.763\t0.228\n"
              "3\tsusceptible\t16.525\t1.000\n"
              "\n Resistance Ratio (RR) compared with susceptible\n",
              "", 0);
}

TEST_F(CompareCliTest, ALineWithGOfPointFourOrMoreHasNoLimitsAndNoMarks) {
    writeStandardLines();
    expectRun({"susceptible.mrv", "small.mrv", "resistant.mrv"},
              "No\tLine name\tLD50\tLower limit\tUpper limit\t1\t2\t3\tIndex\tRR\tSlope\tLD90\n"
              "1\tsmall\t2.828\t\t\t\t\t\t100.000\t1.000\t1.431\t22.234\n"
              "2\tsusceptible\t3.763\t3.098\t4.556\t\t*\t\t75.153\t1.331\t2.203\t14.366\n"
              "3\tresistant\t16.525\t13.663\t20.016\t\t\t*\t17.113\t5.843\t2.231\t62.032\n"
              "\n Index compared with small       Resistance Ratio (RR) compared with small\n",
              "", 0);
}

TEST_F(CompareCliTest, AFileThatCantBeOpenedInTheMiddleEndsTheComparison) {
    writeStandardLines();
    expectRun({"susceptible.mrv", "missing.mrv", "resistant.mrv"}, "",
              "An error occurred while opening missing\nNo such file or directory\n", 1);
}

TEST_F(CompareCliTest, AFolderIsNamedAsAFolder) {
    writeStandardLines();
    std::filesystem::create_directory(folder.file("2024"));
    expectRun({"susceptible.mrv", "2024"}, "",
              "compare: \"2024\" is a folder; compare wants line files. Name the files, for "
              "example \"2024/*.mrv\".\n",
              2);
}

TEST_F(CompareCliTest, DataThatCantBeCalculatedEndTheComparison) {
    writeStandardLines();
    writeLine("two doses.mrv", {{1, 50, 10}, {2, 50, 30}});
    expectRun({"susceptible.mrv", "two doses.mrv"}, "", "Can't calculate two doses\n", 1);
}

TEST_F(CompareCliTest, UnitsThatDifferAreAWarning) {
    writeStandardLines();
    expectRun({"--no-add", "field.mrv", "susceptible.mrv", "lab.mrv"},
              "No\tLine name\tLD50\tLower limit\tUpper limit\t1\t2\t3\tIndex\tRR\tSlope\n"
              "1\tlab\t1.806\t1.469\t2.209\t*\t\t\t100.000\t1.000\t2.055\n"
              "2\tsusceptible\t3.763\t3.098\t4.556\t\t*\t\t47.994\t2.084\t2.203\n"
              "3\tfield\t7.3\t5.913\t8.962\t\t\t*\t24.740\t4.042\t2.005\n"
              "\n Index compared with lab       Resistance Ratio (RR) compared with lab\n",
              "units in your files are not similar, that may mean illogic comparison\n", 0);
}

TEST_F(CompareCliTest, UnitsBesideFilesWithoutUnitsAreNoWarning) {
    writeStandardLines();
    const CliResult result = compare({"field.mrv", "susceptible.mrv"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
}

TEST_F(CompareCliTest, OddAbbreviationsAreAWarning) {
    writeStandardLines();
    expectRun({"--no-limits", "susceptible.mrv", "as LC.mrv"},
              "No\tLine name\tLD50\tIndex\tRR\tSlope\tLD90\n"
              "1\tsusceptible\t3.763\t100.000\t1.000\t2.203\t14.366\n"
              "2\tas LC\t10.172\t36.994\t2.703\t1.887\t48.603\n" +
                  kBothReferences,
              "The abbreviation of the file(s)\nas LC, \nis not the same as your suggested "
              "abbreviation LD\n",
              0);
}

TEST_F(CompareCliTest, TheSuggestedAbbreviationHeadsTheColumns) {
    writeStandardLines();
    expectRun({"--abbreviation", "LC", "--percent", "90", "--no-limits", "--no-index", "--no-rr",
               "--no-slope", "as LC.mrv", "susceptible.mrv"},
              "No\tLine name\tLC90\tLC90\n"
              "1\tsusceptible\t14.366\t14.366\n"
              "2\tas LC\t48.603\t48.603\n"
              "\n\n",
              "The abbreviation of the file(s)\nsusceptible, \nis not the same as your suggested "
              "abbreviation LC\n",
              0);
}

TEST_F(CompareCliTest, TheEstimatesAreThoseOfEachLinesResults) {
    writeStandardLines();
    const CliResult table =
        compare({"--no-index", "--no-rr", "--no-significance", "--add", "95", "susceptible.mrv",
                 "resistant.mrv", "field.mrv", "lab.mrv", "as LC.mrv"});
    ASSERT_EQ(table.status, 0);
    std::istringstream rows(table.out);
    std::string line;
    std::getline(rows, line);
    ASSERT_EQ(line, "No\tLine name\tLD50\tLower limit\tUpper limit\tSlope\tLD95");
    int lines = 0;
    while (std::getline(rows, line) && !line.empty()) {
        std::vector<std::string> cells;
        std::istringstream cellStream(line);
        for (std::string cell; std::getline(cellStream, cell, '\t');)
            cells.push_back(cell);
        ASSERT_EQ(cells.size(), 7u) << line;
        const CliResult report = RunCli({"report", cells[1] + ".mrv"}, folder.path());
        ASSERT_EQ(report.status, 0) << cells[1];
        // The report's rows "50" and "95" of the estimates, and its slope.
        auto reportRow = [&](const std::string& head) {
            const std::size_t at = report.out.find("\n" + head + "\t");
            EXPECT_NE(at, std::string::npos) << head;
            std::vector<double> values;
            std::istringstream in(report.out.substr(at + head.size() + 2));
            std::getline(in, line);
            std::istringstream fields(line);
            for (std::string field; std::getline(fields, field, '\t');)
                if (!field.empty() && field.find_first_not_of("0123456789.") == std::string::npos)
                    values.push_back(NumberOf(field));
            return values;
        };
        const std::vector<double> at50 = reportRow("50");
        const std::vector<double> at95 = reportRow("95");
        const std::vector<double> slope = reportRow("Slope");
        ASSERT_EQ(at50.size(), 3u);
        EXPECT_NEAR(NumberOf(cells[2]), at50[0], 0.0006) << cells[1];
        EXPECT_NEAR(NumberOf(cells[3]), at50[1], 0.0006) << cells[1];
        EXPECT_NEAR(NumberOf(cells[4]), at50[2], 0.0006) << cells[1];
        EXPECT_NEAR(NumberOf(cells[5]), slope.at(0), 0.0006) << cells[1];
        EXPECT_NEAR(NumberOf(cells[6]), at95.at(0), 0.0006) << cells[1];
        ++lines;
    }
    EXPECT_EQ(lines, 5);
}

// --- Values the window refuses -----------------------------------------------------

TEST_F(CompareCliTest, ASortedPercentageOutsideOneToNinetyNineIsRefused) {
    writeStandardLines();
    expectRun({"--percent", "0.5", "susceptible.mrv"}, "",
              "Sorted LD value msut be between 1 and 99\n", 2);
    expectRun({"--abbreviation", "LT", "--percent", "99.5", "susceptible.mrv"}, "",
              "Sorted LT value msut be between 1 and 99\n", 2);
    expectRun({"--percent", "1.2.3", "susceptible.mrv"}, "", "invaled value!\n", 2);
}

TEST_F(CompareCliTest, LineLimitsOutsideOneToNinetyNineOrInTheWrongOrderAreRefused) {
    writeStandardLines();
    expectRun({"--to", "100", "susceptible.mrv"}, "",
              "LD value of Line limits msut be between 1 and 99\n", 2);
    expectRun({"--from", "0", "susceptible.mrv"}, "",
              "LD value of Line limits msut be between 1 and 99\n", 2);
    expectRun({"--from", "80", "--to", "80", "susceptible.mrv"}, "",
              "LD value of the 1st point of lines limits (80)\nmust be less than  2nd point (80)\n",
              2);
}

TEST_F(CompareCliTest, ASortedPercentageAboveToMovesTo) {
    // To follows the sorted percentage up, as in the window; From 85 then stands
    // above the old To of 80 and below the new one.
    writeStandardLines();
    const CliResult result = compare({"--percent", "90", "--from", "85", "susceptible.mrv"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
}

TEST_F(CompareCliTest, FurtherPercentagesOutsideTheScaleAreRefused) {
    writeStandardLines();
    expectRun({"--add", "99.95", "susceptible.mrv"}, "", "This value is out of scale\n", 2);
    expectRun({"--add", "0.05", "susceptible.mrv"}, "", "This value is out of scale\n", 2);
}

TEST_F(CompareCliTest, KeysTheFieldsDoNotTakeAreRefused) {
    writeStandardLines();
    expectRun({"--from", "20.5", "susceptible.mrv"}, "",
              "compare: --from \"20.5\": only digits can be typed there\n", 2);
    expectRun({"--percent", "-5", "susceptible.mrv"}, "",
              "compare: --percent \"-5\": only digits, the point and the comma can be typed "
              "there\n",
              2);
}

TEST_F(CompareCliTest, AReferenceThatNamesNoLineIsRefused) {
    writeStandardLines();
    expectRun({"--rr-ref", "nobody", "susceptible.mrv"}, "",
              "compare: --rr-ref \"nobody\": no line of that name\n", 2);
}

TEST_F(CompareCliTest, AFileTitleTooShortForANameIsRefused) {
    writeStandardLines();
    std::filesystem::copy_file(folder.file("susceptible.mrv"), folder.file("ab"));
    const CliResult result = compare({"susceptible.mrv", "ab"});
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "An error was occurred while opening this file.\nInvalid argument\n");
    EXPECT_EQ(result.status, 2);
}

TEST_F(CompareCliTest, HelpPrintsTheUsageWithTheBlockOfCompare) {
    const CliResult result = compare({"--help"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
    const std::string block =
        "  compare [OPTIONS] FILE.mrv...\n"
        "      Compares saved lines as the comparison window does: each line file is\n"
        "      read and calculated, the lines are sorted by the estimate at the sorted\n"
        "      percentage, and the table text of the relative results (the text that\n"
        "      \"Copy tables\" gives) is printed exactly. A line is named after its file\n"
        "      less the last four characters. Options, defaults in brackets:\n"
        "        --abbreviation TEXT  the suggested abbreviation [LD]\n"
        "        --percent P          the sorted percentage, 1 to 99 [50]\n"
        "        --no-limits          no lower and upper limits, and so no test of\n"
        "                             significant differences\n"
        "        --no-significance    no test of significant differences\n"
        "        --no-index           no toxicity index\n"
        "        --index-ref REF      reference of the index: first, last or a line\n"
        "                             name [first]\n"
        "        --no-rr              no resistance ratio\n"
        "        --rr-ref REF         reference of the resistance ratio [first]\n"
        "        --no-slope           no slope column\n"
        "        --slope-error        the slope's standard error as a column\n"
        "        --add P              a further percentage, 0.1 to 99.9, as a column;\n"
        "                             repeatable, and it replaces the default 90\n"
        "        --no-add             no further percentages\n"
        "        --from P, --to P     the drawn part of each line [20, 80]\n"
        "        --xlsx OUT.xlsx      also writes the table as a workbook, as \"Save\n"
        "                             results into files\" does\n"
        "        --chart OUT          also writes the chart of the lines as the picture\n"
        "                             of \"Save results into files\": SVG, PNG, PDF or\n"
        "                             BMP by the name's extension\n"
        "      Warnings (units that differ, other abbreviations) go to standard error.\n"
        "      Exit status: 0 done; 1 a line could not be read or calculated, which\n"
        "      ends the whole comparison, or a file could not be written (an old one\n"
        "      stays as it was); 2 a value the window refuses, or wrong usage.\n";
    EXPECT_NE(result.out.find("Commands:\n"), std::string::npos);
    EXPECT_NE(result.out.find(block), std::string::npos) << result.out;
    EXPECT_EQ(result.out, RunCli({"--help"}, folder.path()).out);
}

TEST_F(CompareCliTest, WrongUsage) {
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{}, {"--no-such-option", "susceptible.mrv"}, {"--percent"}}) {
        const CliResult result = compare(args);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err.rfind("Usage: morvane-cli COMMAND", 0), 0u) << result.err;
        EXPECT_EQ(result.status, 2);
    }
}

}  // namespace
}  // namespace morvane
