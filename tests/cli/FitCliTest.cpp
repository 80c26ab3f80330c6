// morvane-cli fit, run as a whole process on line files written here, with its whole
// standard output, standard error and exit status compared.
//
// The figures are those of the maximum-likelihood tests of core/ and relative/, which
// agree with R's glm to six significant digits: Finney's rotenone (intercept -2.88746,
// slope 4.21320, LC50 4.84549 with limits 4.36449 and 5.35439) and Collett's tobacco
// budworm (ratio of the LC50s 2.09804, limits 1.35208 and 3.25556; parallelism
// chi-square 1.79800 on 1 df, p 0.179954; equality 12.6460 on 2 df, p 0.00179455;
// relative potency 0.488519, limits 0.311395 and 0.747103).

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "CliRun.h"

namespace morvane {
namespace {

using testing::CliTest;
using testing::CurrentLineFile;
using testing::WriteBytes;

const char* const kTotalAndResponded = R"(1,0,"mg","L",2,"Dose","LD","",0,"0.05",0,0)";

class FitCliTest : public CliTest {
  protected:
    FitCliTest() : CliTest({"fit"}) {
        // Finney's rotenone with an untreated control; totals and responded.
        write("rotenone.mrv", {{"C", "0", "49", "0", "0.000", "0.00000000000C"},
                               {"T", "2.6", "50", "6", "12.000", "1.00960091030T"},
                               {"T", "3.8", "48", "16", "33.333", "1.01343951993T"},
                               {"T", "5.1", "46", "24", "52.174", "1.01642585036T"},
                               {"T", "7.7", "49", "42", "85.714", "1.02062195706T"},
                               {"T", "10.2", "50", "44", "88.000", "1.02349565124T"}});
        // Collett's budworm, 20 moths of each sex a dose.
        write("male.mrv", {{"T", "1", "20", "1", "5.000", "1T"},
                           {"T", "2", "20", "4", "20.000", "2T"},
                           {"T", "4", "20", "9", "45.000", "3T"},
                           {"T", "8", "20", "13", "65.000", "4T"},
                           {"T", "16", "20", "18", "90.000", "5T"},
                           {"T", "32", "20", "20", "100.000", "6T"}});
        write("female.mrv", {{"T", "1", "20", "0", "0.000", "1T"},
                             {"T", "2", "20", "2", "10.000", "2T"},
                             {"T", "4", "20", "6", "30.000", "3T"},
                             {"T", "8", "20", "10", "50.000", "4T"},
                             {"T", "16", "20", "12", "60.000", "5T"},
                             {"T", "32", "20", "16", "80.000", "6T"}});
    }
    void write(const std::string& name, const std::vector<std::vector<std::string>>& rows) {
        WriteBytes(folder.file(name),
                   CurrentLineFile(kTotalAndResponded, 6, rows, R"("","","","")"));
    }
};

const std::string kRotenoneTables =
    "Parameter\tEstimate\tStandard error\n"
    "Intercept\t-2.88746\t0.35104\n"
    "Slope\t4.2132\t0.480562\n"
    "\n"
    "Covariance\tIntercept\tSlope\n"
    "Intercept\t0.123229\t-0.162733\n"
    "Slope\t-0.162733\t0.23094\n"
    "\n"
    "Log-likelihood\t-10.4797\n"
    "Chi-square\t1.72888\n"
    "df\t3\n"
    "p\t0.630533\n"
    "h\t0.576292\n"
    "Limits\tchi-square not significant: normal deviate (1.95996), no h\n"
    "Iterations\t6\n"
    "\n";

TEST_F(FitCliTest, OneLineWithTheDefaultPercents) {
    expectRun({"rotenone.mrv"},
              "Maximum likelihood probit: rotenone\n"
              "Natural response: none\n"
              "\n" +
                  kRotenoneTables +
                  "LC\tmg / L\tLower limit\tUpper limit\n"
                  "25\t3.35157\t2.84919\t3.77485\n"
                  "50\t4.84549\t4.36449\t5.35439\n"
                  "75\t7.00531\t6.27529\t8.09157\n"
                  "90\t9.76143\t8.39907\t12.1553\n"
                  "95\t11.9054\t9.94061\t15.5997\n"
                  "99\t17.2781\t13.5704\t25.0299\n",
              "", 0);
}

// The control row has no response: the natural response estimated from it and the
// treated rows falls below 0 and is taken as 0, which leaves the plain line.
TEST_F(FitCliTest, ANaturalResponseThatFallsToZero) {
    expectRun({"rotenone.mrv", "--natural-response", "estimate", "--percent", "50"},
              "Maximum likelihood probit: rotenone\n"
              "Natural response: estimated\n"
              "\n"
              "Parameter\tEstimate\tStandard error\n"
              "Intercept\t-2.88746\t0.35104\n"
              "Slope\t4.2132\t0.480562\n"
              "Natural response\t0\testimated below 0, taken as 0\n" +
                  kRotenoneTables.substr(kRotenoneTables.find("\n\nCovariance") + 1) +
                  "LC\tmg / L\tLower limit\tUpper limit\n"
                  "50\t4.84549\t4.36449\t5.35439\n",
              "", 0);
}

TEST_F(FitCliTest, TwoLinesWithRatiosTestsAndPotency) {
    const testing::CliResult result = run({"male.mrv", "female.mrv", "--percent", "50"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
    const std::string tail =
        "Ratios to male at LC50\n"
        "\n"
        "Line\tLC50\tRatio\tLower limit\tUpper limit\tDiffers\n"
        "male\t4.70312\t1\t\t\treference\n"
        "female\t9.86734\t2.09804\t1.35208\t3.25556\tyes\n"
        "\n"
        "Tests between the lines\n"
        "\n"
        "Test\tChi-square\tdf\tp\tResult\n"
        "Parallelism\t1.798\t1\t0.179954\tparallel\n"
        "Equality\t12.646\t2\t0.00179455\tdifferent lines\n"
        "\n"
        "Common slope 2.10095 +/- 0.2317; chi-square not significant: "
        "normal deviate (1.95996), no h\n"
        "\n"
        "Line\tRelative potency\tLower limit\tUpper limit\n"
        "female\t0.488519\t0.311395\t0.747103\n";
    ASSERT_GE(result.out.size(), tail.size());
    EXPECT_EQ(result.out.substr(result.out.size() - tail.size()), tail);
    EXPECT_TRUE(result.out.starts_with("Maximum likelihood probit: male\n"));
    EXPECT_NE(result.out.find("\nMaximum likelihood probit: female\n"), std::string::npos);
}

// A JSON text split into its skeleton, each number replaced by "#", and its numbers.
// The numbers are the full doubles, whose last bits may differ with the compiler's
// arithmetic; they are compared to a relative 1e-12, the skeleton exactly.
struct JsonShape {
    std::string skeleton;
    std::vector<double> numbers;
};
JsonShape ShapeOf(const std::string& json) {
    JsonShape shape;
    bool inString = false;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char c = json[i];
        if (inString) {
            shape.skeleton += c;
            if (c == '\\')
                shape.skeleton += json[++i];
            else if (c == '"')
                inString = false;
        } else if (c == '"') {
            inString = true;
            shape.skeleton += c;
        } else if (c == '-' || (c >= '0' && c <= '9')) {
            char* end = nullptr;
            shape.numbers.push_back(std::strtod(json.c_str() + i, &end));
            i = static_cast<std::size_t>(end - json.c_str()) - 1;
            shape.skeleton += '#';
        } else {
            shape.skeleton += c;
        }
    }
    return shape;
}

TEST_F(FitCliTest, JsonHoldsEveryFigureAtFullPrecision) {
    const testing::CliResult result = run({"rotenone.mrv", "--percent", "50", "--json"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
    const JsonShape shape = ShapeOf(result.out);
    EXPECT_EQ(shape.skeleton,
              "{\"model\": \"probit\", \"natural_response\": {\"setting\": \"none\", \"value\": "
              "null}, \"confidence\": #, \"heterogeneity_level\": #, \"lines\": [{\"name\": "
              "\"rotenone\", \"estimate_word\": \"LC\", \"unit\": \"mg / L\", \"converged\": true, "
              "\"iterations\": #, \"log_likelihood\": #, \"chi_square\": #, \"groups\": #, \"df\": "
              "#, \"p\": #, \"h\": #, \"heterogeneous\": false, \"variance_factor\": #, "
              "\"critical_value\": #, \"intercept\": #, \"intercept_se\": #, \"slope\": #, "
              "\"slope_se\": #, \"natural_response\": #, \"natural_response_se\": null, "
              "\"natural_response_at_zero\": false, \"covariance\": {\"parameters\": "
              "[\"intercept\", \"slope\"], \"matrix\": [[#, #], [#, #]]}, \"estimates\": "
              "[{\"percent\": #, \"dose\": #, \"lower\": #, \"upper\": #, \"log10_dose\": #, "
              "\"g\": #}]}]}\n");
    // In the order of the skeleton: R's figures to 15 digits (var(a) = sa^2, log10 of the
    // LC50, g = qnorm(0.975)^2 var(b) / b^2 computed in R from them).
    const std::vector<double> expected = {0.95,
                                          0.05,
                                          6,
                                          -10.4796826974705,
                                          1.72887503165302,
                                          5,
                                          3,
                                          0.630533410963987,
                                          0.576291677217672,
                                          1,
                                          1.95996398454005,
                                          -2.88746325636171,
                                          0.351039879809449,
                                          4.21319675611494,
                                          0.480561751814926,
                                          0,
                                          0.123228997216650,
                                          -0.162732552775168,
                                          -0.162732552775168,
                                          0.230939597307472,
                                          50,
                                          4.84549178762459,
                                          4.36449216108096,
                                          5.35438615613946,
                                          0.685337861843469,
                                          0.0499771059913880};
    ASSERT_EQ(shape.numbers.size(), expected.size());
    for (std::size_t k = 0; k < expected.size(); ++k)
        EXPECT_NEAR(shape.numbers[k], expected[k], 1e-9 * std::fabs(expected[k]) + 1e-15)
            << "number " << k;
}

TEST_F(FitCliTest, JsonOfTwoLinesHasTheComparison) {
    const testing::CliResult result =
        run({"male.mrv", "female.mrv", "--json", "--percent", "50", "--reference", "2"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("\"comparison\": {\"reference\": 2, \"ratios\": [{\"percent\": 50, "
                              "\"line\": 1, \"ratio\": 0.4766349825627464"),
              std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("\"parallelism\": {\"chi_square\": 1.7980008125670963, \"df\": 1, "
                              "\"p\": 0.17995437491716648, \"significant\": false}"),
              std::string::npos);
    EXPECT_NE(result.out.find("\"relative_potency\": [{\"line\": 1, \"potency\": "
                              "2.0470053657843263"),
              std::string::npos);
}

TEST_F(FitCliTest, ValuesThatAreRefused) {
    expectRun({"rotenone.mrv", "--natural-response", "1"}, "",
              "The natural response must be none, estimate or a proportion from 0 to below 1: "
              "1\n",
              2);
    expectRun({"rotenone.mrv", "--percent", "100"}, "",
              "A percent must lie above 0 and below 100: 100\n", 2);
    expectRun({"male.mrv", "female.mrv", "--reference", "3"}, "",
              "The reference must be the number of one of the 2 files: 3\n", 2);
}

TEST_F(FitCliTest, WrongUsageGivesTheUsage) {
    expectRun({}, "", usage(), 2);
    expectRun({"rotenone.mrv", "--model", "probits"}, "", usage(), 2);
    expectRun({"rotenone.mrv", "--percent"}, "", usage(), 2);
    expectRun({"rotenone.mrv", "--bogus"}, "", usage(), 2);
    expectRun({"--help"}, usage(), "", 0);
    EXPECT_NE(usage().find("  fit FILE.mrv... [--model probit|logit] "
                           "[--natural-response none|estimate|VALUE]\n"),
              std::string::npos);
}

TEST_F(FitCliTest, LinesThatCantBeFitted) {
    write("none.mrv", {{"T", "1", "20", "0", "0.000", "1T"},
                       {"T", "2", "20", "0", "0.000", "2T"},
                       {"T", "4", "20", "0", "0.000", "3T"}});
    expectRun({"none.mrv"}, "",
              "Can't fit none: No individual responded at any dose: the line can't be fitted.\n",
              1);
    expectRun({"male.mrv", "none.mrv"}, "",
              "Can't fit none: No individual responded at any dose: the line can't be fitted.\n",
              1);
    WriteBytes(
        folder.file("percent.mrv"),
        CurrentLineFile(
            R"(2,0,"mg","L",2,"Dose","LD","",0,"0.05",0,0)", 4,
            {{"T", "1", "10.000", "1T"}, {"T", "2", "50.000", "2T"}, {"T", "4", "90.000", "3T"}},
            R"("","","","")"));
    expectRun({"percent.mrv"}, "",
              "Can't fit percent: The maximum likelihood fit needs the numbers treated and "
              "responded: a line entered as response percentages has no counts.\n",
              1);
    expectRun({"missing.mrv"}, "",
              "An error occurred while opening this file.\nNo such file or directory\n", 2);
}

// A line whose working probits fall where the tables are coarse: the classical cycles
// swing between two states until their limit of 21 passes. The report keeps its tables
// and adds the note below them; a line that settles gets none.
TEST_F(FitCliTest, ReportNotesCyclesThatStoppedAtTheirLimit) {
    write("swinging.mrv", {{"T", "1", "20", "2", "10.000", "1T"},
                           {"T", "8", "50", "8", "16.000", "2T"},
                           {"T", "12", "10", "5", "50.000", "3T"},
                           {"T", "25", "25", "18", "72.000", "4T"},
                           {"T", "32", "20", "19", "95.000", "5T"}});
    const std::string note =
        "Note: the cycles of the fit stopped at their limit of 21 passes without settling; "
        "the figures above are those of the last pass. The maximum likelihood analysis (the "
        "\"Maximum likelihood\" tab, or morvane-cli fit) fits the line without the rounding "
        "of the tables.\n";
    const testing::CliResult swinging = testing::RunCli({"report", "swinging.mrv"}, folder.path());
    EXPECT_EQ(swinging.status, 0);
    EXPECT_TRUE(swinging.out.ends_with("99\t196.4151\t\t\t\n" + note)) << swinging.out;
    const testing::CliResult settled = testing::RunCli({"report", "rotenone.mrv"}, folder.path());
    EXPECT_EQ(settled.status, 0);
    EXPECT_EQ(settled.out.find("Note:"), std::string::npos);
    EXPECT_TRUE(settled.out.ends_with("99\t17.3058\t13.5868\t25.0888\t\n")) << settled.out;
}

}  // namespace
}  // namespace morvane
