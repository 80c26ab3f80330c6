// Ratios, parallelism, equality and relative potency of maximum-likelihood lines,
// against figures computed once in R 4 and written here (the tests never run R):
//     d$x <- log10(d$dose); d$line <- factor(d$line)
//     sep <- glm(cbind(r, n - r) ~ line + line:x - 1, family = binomial(link = "probit"))
//     par <- glm(cbind(r, n - r) ~ line + x - 1, family = binomial(link = "probit"))
//     com <- glm(cbind(r, n - r) ~ x, family = binomial(link = "probit"))
//     2 * (logLik(sep) - logLik(par)); 2 * (logLik(sep) - logLik(com)); pchisq(...)
// The ratio limits: each line fitted alone, log10 LD's variance by the delta method
// (times h where the line's chi-square is significant), and
//     10^(log ratio +/- qnorm(0.975) sqrt(var1 + var2)).
// The relative potency from par by Fieller's theorem in its g form,
//     (theta - g vND / vDD +/- t / |b| sqrt(vNN - 2 theta vND + theta^2 vDD
//      - g (vNN - vND^2 / vDD))) / (1 - g), theta = (a_line - a_ref) / b,
// a different road from the quadratic the program solves. Agreement to a relative
// 1e-6: six significant digits.
#include "relative/LineRatios.h"

#include <cmath>

#include <gtest/gtest.h>

#include "support/SixDigits.h"

namespace morvane {
namespace {

// Collett's tobacco budworm (Venables and Ripley, Modern Applied Statistics with S,
// 4th ed., section 7.2), males the reference, and Finney's rotenone (Probit Analysis,
// 3rd ed., chapter 3) as a third line.
std::vector<DoseGroup> Males() {
    return {{1, 20, 1}, {2, 20, 4}, {4, 20, 9}, {8, 20, 13}, {16, 20, 18}, {32, 20, 20}};
}
std::vector<DoseGroup> Females() {
    return {{1, 20, 0}, {2, 20, 2}, {4, 20, 6}, {8, 20, 10}, {16, 20, 12}, {32, 20, 16}};
}
std::vector<DoseGroup> Rotenone() {
    return {{10.2, 50, 44}, {7.7, 49, 42}, {5.1, 46, 24}, {3.8, 48, 16}, {2.6, 50, 6}};
}

TEST(LineRatios, TwoParallelProbitLines) {
    const LineComparison c = CompareLikelihoodLines({Males(), Females()}, 0, 50, {});
    ASSERT_TRUE(c.done) << c.message;
    EXPECT_6(c.separate.logLikelihood, -16.9391817378803);
    EXPECT_6(c.parallel.logLikelihood, -17.8381821441639);
    EXPECT_6(c.common.logLikelihood, -23.2621852838827);
    EXPECT_6(c.parallelism.chiSquare, 1.79800081256712);
    EXPECT_EQ(c.parallelism.degreesOfFreedom, 1);
    EXPECT_6(c.parallelism.p, 0.179954374917163);
    EXPECT_FALSE(c.parallelism.significant);
    EXPECT_6(c.equality.chiSquare, 12.6460070920047);
    EXPECT_EQ(c.equality.degreesOfFreedom, 2);
    EXPECT_6(c.equality.p, 0.00179454540389051);
    EXPECT_TRUE(c.equality.significant);
    EXPECT_6(c.parallel.slope(0), 2.10094942137979);
    EXPECT_6(c.parallel.slope(1), 2.10094942137979);
    EXPECT_6(c.parallel.intercept(0), -1.40668513152685);
    EXPECT_6(c.parallel.intercept(1), -2.06033037441927);
    EXPECT_6(c.parallel.chiSquare, 4.52473726331003);
    EXPECT_EQ(c.parallel.degreesOfFreedom, 9);
    EXPECT_6(c.parallel.p, 0.873617531627575);
    ASSERT_EQ(c.ratios.size(), 1u);
    EXPECT_EQ(c.ratios[0].line, 1);
    EXPECT_6(c.ratios[0].ratio, 2.09804155477149);
    EXPECT_6(c.ratios[0].lower, 1.35208066145177);
    EXPECT_6(c.ratios[0].upper, 3.25555899958043);
    EXPECT_TRUE(c.ratios[0].significant);
    ASSERT_TRUE(c.parallelLines);
    ASSERT_EQ(c.potencies.size(), 1u);
    EXPECT_6(c.potencies[0].potency, 0.48851850470219);
    EXPECT_6(*c.potencies[0].lower, 0.311395420200668);
    EXPECT_6(*c.potencies[0].upper, 0.747102831718065);
}

TEST(LineRatios, TwoParallelLogitLinesAtNinetyPercent) {
    LikelihoodOptions options;
    options.model = LinkModel::Logit;
    const LineComparison c = CompareLikelihoodLines({Males(), Females()}, 0, 90, options);
    ASSERT_TRUE(c.done) << c.message;
    EXPECT_6(c.parallelism.chiSquare, 1.76333692460858);
    EXPECT_6(c.parallelism.p, 0.184208841412572);
    EXPECT_6(c.equality.chiSquare, 11.9903053592746);
    EXPECT_6(c.equality.p, 0.00249079665069496);
    EXPECT_6(c.parallel.slope(), 3.53524228564676);
    EXPECT_6(c.ratios[0].ratio, 3.351932143145);
    EXPECT_6(c.ratios[0].lower, 1.36041478154668);
    EXPECT_6(c.ratios[0].upper, 8.2588407922728);
    EXPECT_6(c.potencies[0].potency, 0.488244184879861);
    EXPECT_6(*c.potencies[0].lower, 0.30693287733051);
    EXPECT_6(*c.potencies[0].upper, 0.758351290221078);
}

// Three lines that are not parallel: the tests and ratios stand, the potency is not
// given. The common-slope fit is heterogeneous (p = 0.034).
TEST(LineRatios, ThreeLinesThatAreNotParallel) {
    const LineComparison c = CompareLikelihoodLines({Males(), Females(), Rotenone()}, 0, 90, {});
    ASSERT_TRUE(c.done) << c.message;
    EXPECT_6(c.separate.logLikelihood, -27.4188644353509);
    EXPECT_6(c.parallel.logLikelihood, -36.5740052714712);
    EXPECT_6(c.common.logLikelihood, -47.4324807526395);
    EXPECT_6(c.parallelism.chiSquare, 18.3102816722406);
    EXPECT_EQ(c.parallelism.degreesOfFreedom, 2);
    EXPECT_6(c.parallelism.p, 0.000105675145344554);
    EXPECT_6(c.equality.chiSquare, 40.0272326345772);
    EXPECT_EQ(c.equality.degreesOfFreedom, 4);
    EXPECT_6(c.equality.p, 4.27265344670053e-08);
    EXPECT_6(c.parallel.chiSquare, 23.6797576499647);
    EXPECT_TRUE(c.parallel.heterogeneous);
    EXPECT_FALSE(c.parallelLines);
    EXPECT_TRUE(c.potencies.empty());
    ASSERT_EQ(c.ratios.size(), 2u);
    EXPECT_6(c.ratios[0].ratio, 3.20510373217532);
    EXPECT_6(c.ratios[0].lower, 1.39741735843264);
    EXPECT_6(c.ratios[0].upper, 7.35119674305905);
    EXPECT_TRUE(c.ratios[0].significant);
    EXPECT_EQ(c.ratios[1].line, 2);
    EXPECT_6(c.ratios[1].ratio, 0.621717372663154);
    EXPECT_6(c.ratios[1].lower, 0.389560598397189);
    EXPECT_6(c.ratios[1].upper, 0.992226865503154);
    EXPECT_TRUE(c.ratios[1].significant);
}

// Two lines with control groups and a natural response estimated for each line, in
// every joint fit. The references were computed in R with optim (BFGS, Nelder-Mead,
// BFGS, reltol 1e-16) on the same likelihood, P = C_line + (1 - C_line)
// pnorm(a_line + b_line log10(dose)) and P = C_line at dose 0, for each line's own
// slope, one common slope, and one common line (each line keeping its own C).
TEST(LineRatios, NaturalResponsesEstimatedLineByLine) {
    const std::vector<DoseGroup> first = {{0, 60, 9},    {2.6, 50, 13}, {3.8, 48, 20},
                                          {5.1, 46, 27}, {7.7, 49, 43}, {10.2, 50, 45}};
    const std::vector<DoseGroup> second = {
        {0, 40, 6}, {2, 40, 10}, {4, 40, 16}, {8, 40, 27}, {16, 40, 36}};
    LikelihoodOptions options;
    options.natural = {NaturalResponse::Kind::Estimated, 0};
    const LineComparison c = CompareLikelihoodLines({first, second}, 0, 50, options);
    ASSERT_TRUE(c.done) << c.message;
    EXPECT_6(c.separate.logLikelihood, -21.8248733221662);
    EXPECT_6(c.parallel.logLikelihood, -22.9671125830968);
    EXPECT_6(c.common.logLikelihood, -26.0794255528417);
    EXPECT_EQ(c.parallel.parameterCount(), 5);
    EXPECT_6(c.parallel.intercept(0), -2.49156382221);
    EXPECT_6(c.parallel.intercept(1), -3.09945696346);
    EXPECT_6(c.parallel.slope(), 3.69038659934);
    EXPECT_6(c.parallel.natural(0), 0.137158944112);
    EXPECT_6(c.parallel.natural(1), 0.200036691417);
    EXPECT_6(c.parallelism.chiSquare, 2.28447852186109);
    EXPECT_6(c.parallelism.p, 0.130674055860082);
    EXPECT_6(c.equality.chiSquare, 8.50910446135101);
    EXPECT_EQ(c.equality.degreesOfFreedom, 2);
    EXPECT_6(c.equality.p, 0.0141994473992843);
}

TEST(LineRatios, ALineThatCantBeFittedIsNamed) {
    const LineComparison c =
        CompareLikelihoodLines({Males(), {{1, 10, 0}, {2, 10, 0}, {4, 10, 0}}}, 0, 50, {});
    EXPECT_FALSE(c.done);
    EXPECT_EQ(c.message, "Line 2: No individual responded at any dose: the line can't be fitted.");
    EXPECT_EQ(CompareLikelihoodLines({Males()}, 0, 50, {}).message,
              "The comparison needs two lines or more and a reference among them.");
    EXPECT_EQ(CompareLikelihoodLines({Males(), Females()}, 0, 100, {}).message,
              "The percent of the comparison must lie between 0 and 100.");
}

}  // namespace
}  // namespace morvane
