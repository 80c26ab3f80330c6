// The maximum-likelihood probit and logit line against independently computed figures.
//
// The reference numbers come from R 4 (Debian's r-base-core), computed once and
// written here; the tests never run R. For the plain lines:
//     f <- glm(cbind(dead, alive) ~ log10(dose), family = binomial(link = "probit"),
//              control = glm.control(epsilon = 1e-13, maxit = 200))
//     coef(f); sqrt(diag(vcov(f))); vcov(f)[1, 2]; logLik(f)
//     X2 <- sum(residuals(f, type = "pearson")^2); pchisq(X2, f$df.residual, lower.tail = FALSE)
// (link = "logit" for the logit figures). The limits of the LD values were computed in
// R from coef and vcov by Finney's g form of Fieller's theorem,
//     m + g / (1 - g) (m + v12 / v22) +/- t sqrt(h) / (|b| (1 - g))
//         sqrt(v11 + 2 m v12 + m^2 v22 - g (v11 - v12^2 / v22)),
// a different road from the quadratic the program solves. Agreement is asked to a
// relative 1e-6: six significant digits.
#include "core/LikelihoodFit.h"

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "core/Distributions.h"
#include "core/NumberText.h"

#include <gtest/gtest.h>

#include "support/SixDigits.h"

namespace morvane {
namespace {

std::vector<DoseGroup> Groups(const std::vector<double>& dose, const std::vector<double>& n,
                              const std::vector<double>& r) {
    std::vector<DoseGroup> groups;
    for (std::size_t k = 0; k < dose.size(); ++k)
        groups.push_back({dose[k], n[k], r[k]});
    return groups;
}

// Finney, Probit Analysis (3rd ed., 1971), the rotenone example of chapter 3: Martin's
// (1942) spraying of Macrosiphoniella sanborni with rotenone, concentration in mg/l.
std::vector<DoseGroup> Rotenone() {
    return Groups({10.2, 7.7, 5.1, 3.8, 2.6}, {50, 49, 46, 48, 50}, {44, 42, 24, 16, 6});
}
// Bliss (1935), Ann. Appl. Biol. 22, 134-167: flour beetles and carbon disulphide; the
// doses are given as log10 mg/l (as in Dobson and Barnett, An Introduction to
// Generalized Linear Models, 3rd ed., the beetle mortality data of chapter 7).
std::vector<DoseGroup> Beetles() {
    const double logs[] = {1.6907, 1.7242, 1.7552, 1.7842, 1.8113, 1.8369, 1.8610, 1.8839};
    std::vector<double> dose;
    for (double x : logs)
        dose.push_back(std::pow(10.0, x));
    return Groups(dose, {59, 60, 62, 56, 63, 59, 62, 60}, {6, 13, 18, 28, 52, 53, 61, 60});
}
// Collett's tobacco budworm (Collett, Modelling Binary Data; as in Venables and Ripley,
// Modern Applied Statistics with S, 4th ed., section 7.2): cypermethrin in micrograms,
// 20 moths of each sex a dose.
std::vector<DoseGroup> BudwormMale() {
    return Groups({1, 2, 4, 8, 16, 32}, {20, 20, 20, 20, 20, 20}, {1, 4, 9, 13, 18, 20});
}
std::vector<DoseGroup> BudwormFemale() {
    return Groups({1, 2, 4, 8, 16, 32}, {20, 20, 20, 20, 20, 20}, {0, 2, 6, 10, 12, 16});
}
// Smith's (1932) anti-pneumococcus serum, as in Collett, Modelling Binary Data: mice
// dying of pneumonia against the dose of serum in cc, 40 mice a dose. The slope is
// negative.
std::vector<DoseGroup> Serum() {
    return Groups({0.0028, 0.0056, 0.0112, 0.0225, 0.0450}, {40, 40, 40, 40, 40},
                  {35, 21, 9, 6, 1});
}

struct Reference {
    double a, b, sa, sb, cab, logLikelihood, chi;
    int df;
    double p;
    double ld50, ld50Lower, ld50Upper, ld90, ld90Lower, ld90Upper;
};

void ExpectLine(const std::vector<DoseGroup>& groups, LinkModel model, const Reference& r) {
    LikelihoodOptions options;
    options.model = model;
    const LikelihoodFit fit = FitLikelihoodLine(groups, options);
    ASSERT_TRUE(fit.converged) << fit.message;
    EXPECT_6(fit.intercept(), r.a);
    EXPECT_6(fit.slope(), r.b);
    EXPECT_6(fit.interceptError(), r.sa);
    EXPECT_6(fit.slopeError(), r.sb);
    EXPECT_6(fit.cov(0, 1), r.cab);
    EXPECT_6(fit.cov(1, 0), r.cab);
    EXPECT_6(fit.logLikelihood, r.logLikelihood);
    EXPECT_6(fit.chiSquare, r.chi);
    EXPECT_EQ(fit.degreesOfFreedom, r.df);
    EXPECT_6(fit.p, r.p);
    EXPECT_6(fit.h, r.chi / r.df);
    EXPECT_FALSE(fit.heterogeneous);
    EXPECT_EQ(fit.naturalError(), 0.0);
    const LikelihoodDose ld50 = LikelihoodDoseAt(fit, 50);
    EXPECT_6(ld50.dose, r.ld50);
    ASSERT_TRUE(ld50.lower && ld50.upper);
    EXPECT_6(*ld50.lower, r.ld50Lower);
    EXPECT_6(*ld50.upper, r.ld50Upper);
    const LikelihoodDose ld90 = LikelihoodDoseAt(fit, 90);
    EXPECT_6(ld90.dose, r.ld90);
    ASSERT_TRUE(ld90.lower && ld90.upper);
    EXPECT_6(*ld90.lower, r.ld90Lower);
    EXPECT_6(*ld90.upper, r.ld90Upper);
    EXPECT_GT(fit.iterations, 1);
}

// A plain line fitted by a model, against its references.
struct KnownLine {
    std::string name;
    std::vector<DoseGroup> (*groups)();
    LinkModel model;
    Reference reference;
};

// Names the case in the test's listing.
void PrintTo(const KnownLine& line, std::ostream* out) {
    *out << line.name;
}

class LikelihoodKnownLine : public ::testing::TestWithParam<KnownLine> {};

TEST_P(LikelihoodKnownLine, AgreesWithTheReference) {
    ExpectLine(GetParam().groups(), GetParam().model, GetParam().reference);
}

const KnownLine kKnownLines[] = {
    {"ProbitFinneysRotenone",
     Rotenone,
     LinkModel::Probit,
     {-2.88746325636171, 4.21319675611494, 0.351039879809449, 0.480561751814926, -0.162732552775168,
      -10.4796826974705, 1.72887503165302, 3, 0.630533410963987, 4.84549178762459, 4.36449216108096,
      5.35438615613946, 9.76142993805899, 8.3990669701824, 12.1553249204309}},
    {"ProbitBlissBeetles",
     Beetles,
     LinkModel::Probit,
     {-34.935258899178, 19.7279342113223, 2.6479177986179, 1.48723504090278, -3.93654384997524,
      -18.158898165047, 9.51342696308496, 6, 0.146695207310364, 59.0000476223395, 57.9581239734048,
      60.005878799929, 68.5194119918858, 66.9583562455643, 70.5221646093128}},
    {"ProbitCollettsBudwormMales",
     BudwormMale,
     LinkModel::Probit,
     {-1.64592296181165, 2.44788401744063, 0.290439300185411, 0.363612986314929, -0.091299876775852,
      -7.82189808984911, 0.898684286930399, 4, 0.924749504449347, 4.70311943474839, 3.5350676525858,
      6.20884815558476, 15.7007514447076, 10.9852412655838, 27.8379477647661}},
    {"ProbitCollettsBudwormFemales",
     BudwormFemale,
     LinkModel::Probit,
     {-1.80071556077681, 1.81122047008557, 0.298324458900814, 0.30357432651849, -0.0808117248282778,
      -9.11728364803121, 1.78402566048711, 4, 0.775403625330001, 9.86734001240267, 7.04970701802905,
      14.7438708976453, 50.3225370415416, 28.8971434315344, 138.752293551732}},
    {"ProbitSmithsSerumWithAFallingLine",
     Serum,
     LinkModel::Probit,
     {-5.27671588468157, -2.42804810792699, 0.648283186060299, 0.30663484707808, 0.196002188849394,
      -9.98079284965132, 3.19701691481988, 3, 0.362235060906137, 0.00671067701202487,
      0.00534464136793371, 0.00820430263558995, 0.00199046661424149, 0.00118272279050636,
      0.00278329245707966}},
    {"LogitFinneysRotenone",
     Rotenone,
     LinkModel::Logit,
     {-4.88691227599942, 7.14617755593541, 0.642927225838152, 0.892753306957874, -0.555931099140742,
      -10.3222266921692, 1.4217948783323, 3, 0.700433937323322, 4.82891794438037, 4.34104283331215,
      5.35009658979918, 9.80208213682758, 8.3398179050287, 12.5589923965455}},
    {"LogitBlissBeetles",
     Beetles,
     LinkModel::Logit,
     {-60.7174545616353, 34.2703257341469, 5.1807114633408, 2.91214007063573, -15.0821510062658,
      -18.7151346572559, 10.0268175856375, 6, 0.123527206272969, 59.1181676064849, 58.057478734371,
      60.1451310400036, 68.5228563334508, 66.8429311133704, 70.7767337280874}},
    {"LogitCollettsBudwormMales",
     BudwormMale,
     LinkModel::Logit,
     {-2.81855496731552, 4.18213946230539, 0.547986822162104, 0.704466331804028, -0.341086024064675,
      -8.11397564978318, 1.30889648755002, 4, 0.859864312814955, 4.72009235810616, 3.50593839241472,
      6.30712860226418, 15.824624043135, 10.8001108274551, 30.9397036493367}},
    {"LogitCollettsBudwormFemales",
     BudwormFemale,
     LinkModel::Logit,
     {-2.99354175517103, 3.00978788997095, 0.55269976105461, 0.55509970038774, -0.278845684712514,
      -9.43808850473522, 2.19579734178794, 4, 0.699798767659582, 9.87648100133454, 6.96339798540677,
      14.9051271942932, 53.0430659833694, 29.5724414117019, 167.795070162509}},
    {"LogitSmithsSerum",
     Serum,
     LinkModel::Logit,
     {-9.18939174034759, -4.21285869861577, 1.25510967856028, 0.586115954822839, 0.727268176546847,
      -9.78869457069962, 2.91740646783246, 3, 0.404535556635509, 0.00658760814165256,
      0.00525200620707619, 0.00806881595775545, 0.00198232943380778, 0.00113472456754869,
      0.00278837167853574}},
};

INSTANTIATE_TEST_SUITE_P(Likelihood, LikelihoodKnownLine, ::testing::ValuesIn(kKnownLines),
                         [](const ::testing::TestParamInfo<KnownLine>& info) {
                             return info.param.name;
                         });

// A line made heterogeneous for the test (chi-square 27.6 on 4 df): the limits take
// the variance times h and t of 4 degrees of freedom, 2.77644510519779. The response at
// dose 6 has limits from a + b log10(6) +/- t sqrt(h var); all computed in R as above.
TEST(LikelihoodHeterogeneity, LimitsUseHAndTOfTheDegreesOfFreedom) {
    const LikelihoodFit fit = FitLikelihoodLine(
        Groups({2, 3, 5, 8, 12, 20}, {50, 50, 50, 50, 50, 50}, {4, 20, 12, 38, 30, 47}), {});
    ASSERT_TRUE(fit.converged) << fit.message;
    EXPECT_6(fit.intercept(), -1.80774845280548);
    EXPECT_6(fit.slope(), 2.29654187325493);
    EXPECT_6(fit.chiSquare, 27.5986484555737);
    EXPECT_6(fit.p, 1.50408201700858e-05);
    EXPECT_6(fit.h, 6.89966211389343);
    EXPECT_TRUE(fit.heterogeneous);
    EXPECT_6(fit.varianceFactor(), 6.89966211389343);
    EXPECT_6(fit.criticalValue(), 2.77644510519779);
    const LikelihoodDose ld10 = LikelihoodDoseAt(fit, 10);
    EXPECT_6(ld10.dose, 1.69482848095873);
    EXPECT_6(*ld10.lower, 0.00491934546128179);
    EXPECT_6(*ld10.upper, 3.55368825531946);
    EXPECT_6(ld10.g, 0.663702417017479);
    const LikelihoodDose ld50 = LikelihoodDoseAt(fit, 50);
    EXPECT_6(ld50.dose, 6.12577598828155);
    EXPECT_6(*ld50.lower, 2.18844312956387);
    EXPECT_6(*ld50.upper, 16.639917376058);
    const LikelihoodDose ld90 = LikelihoodDoseAt(fit, 90);
    EXPECT_6(*ld90.lower, 10.6125829858905);
    EXPECT_6(*ld90.upper, 7147.68020109868);
    const LikelihoodResponse at6 = LikelihoodResponseAt(fit, 6);
    EXPECT_6(at6.response, 0.491745865789925);
    EXPECT_6(at6.lower, 0.271689361681678);
    EXPECT_6(at6.upper, 0.714414796662774);
}

// Without a significant chi-square the limits use the normal deviate and no h, even
// where h is above 1 (the beetles: h = 1.586, p = 0.147).
TEST(LikelihoodHeterogeneity, AHomogeneousLineKeepsTheNormalDeviate) {
    const LikelihoodFit fit = FitLikelihoodLine(Beetles(), {});
    EXPECT_FALSE(fit.heterogeneous);
    EXPECT_EQ(fit.varianceFactor(), 1.0);
    EXPECT_6(fit.criticalValue(), 1.95996398454005);
}

// Rotenone with a control group added for the test (60 treated, 9 responding) and
// more response at the low doses. The references were computed in R with optim
// (BFGS, Nelder-Mead, BFGS, reltol 1e-16) on the same likelihood,
//     P = C + (1 - C) pnorm(a + b log10(dose)), P = C at dose 0,
// and the standard errors from the expected information at that optimum:
//     sum over groups of n / (P (1 - P)) g g', g = dP / d(a, b, C).
std::vector<DoseGroup> RotenoneWithControls() {
    return Groups({0, 2.6, 3.8, 5.1, 7.7, 10.2}, {60, 50, 48, 46, 49, 50}, {9, 13, 20, 27, 43, 45});
}

TEST(LikelihoodNaturalResponse, EstimatedFromControlsAndTreatedTogether) {
    LikelihoodOptions options;
    options.natural = {NaturalResponse::Kind::Estimated, 0};
    const LikelihoodFit fit = FitLikelihoodLine(RotenoneWithControls(), options);
    ASSERT_TRUE(fit.converged) << fit.message;
    EXPECT_6(fit.intercept(), -2.89267608497147);
    EXPECT_6(fit.slope(), 4.20949319280964);
    EXPECT_6(fit.natural(), 0.149460059892123);
    EXPECT_6(fit.interceptError(), 0.535091216565092);
    EXPECT_6(fit.slopeError(), 0.659213419477366);
    EXPECT_6(fit.naturalError(), 0.0447238239309737);
    EXPECT_6(fit.cov(0, 1), -0.342130328237547);
    EXPECT_6(fit.cov(0, 2), -0.012079038779124);
    EXPECT_6(fit.cov(1, 2), 0.0117712957845565);
    EXPECT_6(fit.logLikelihood, -12.4232275951409);
    EXPECT_6(fit.chiSquare, 1.33927455087665);
    EXPECT_EQ(fit.groups, 6);
    EXPECT_EQ(fit.degreesOfFreedom, 3);
    EXPECT_FALSE(fit.naturalAtZero());
}

TEST(LikelihoodNaturalResponse, FixedAtAGivenValue) {
    LikelihoodOptions options;
    options.natural = {NaturalResponse::Kind::Fixed, 0.15};
    const LikelihoodFit fit = FitLikelihoodLine(RotenoneWithControls(), options);
    ASSERT_TRUE(fit.converged) << fit.message;
    EXPECT_EQ(fit.parameterCount(), 2);
    EXPECT_6(fit.intercept(), -2.89591836894522);
    EXPECT_6(fit.slope(), 4.21264629262568);
    EXPECT_EQ(fit.natural(), 0.15);
    EXPECT_6(fit.interceptError(), 0.462682059818182);
    EXPECT_6(fit.slopeError(), 0.605196223394623);
    EXPECT_6(fit.cov(0, 1), -0.271861222547725);
    EXPECT_6(fit.logLikelihood, -10.4775090466187);
    EXPECT_6(fit.chiSquare, 1.33964246470051);
    EXPECT_EQ(fit.degreesOfFreedom, 3);
}

// With no natural response in the data, the estimate would fall below 0; it is taken
// as 0 and the line is the plain one.
TEST(LikelihoodNaturalResponse, AnEstimateBelowZeroIsTakenAsZero) {
    std::vector<DoseGroup> groups = Rotenone();
    groups.push_back({0, 100, 0});
    LikelihoodOptions options;
    options.natural = {NaturalResponse::Kind::Estimated, 0};
    const LikelihoodFit fit = FitLikelihoodLine(groups, options);
    ASSERT_TRUE(fit.converged) << fit.message;
    EXPECT_TRUE(fit.naturalAtZero());
    EXPECT_EQ(fit.natural(), 0.0);
    EXPECT_EQ(fit.parameterCount(), 2);
    EXPECT_6(fit.intercept(), -2.88746325636171);
    EXPECT_6(fit.slope(), 4.21319675611494);
}

TEST(LikelihoodFailures, DataThatCantDetermineALine) {
    const LikelihoodOptions options;
    EXPECT_EQ(FitLikelihoodLine(Groups({1, 2, 4}, {10, 10, 10}, {0, 0, 0}), options).message,
              "No individual responded at any dose: the line can't be fitted.");
    EXPECT_EQ(FitLikelihoodLine(Groups({1, 2, 4}, {10, 10, 10}, {10, 10, 10}), options).message,
              "Every individual responded at every dose: the line can't be fitted.");
    EXPECT_EQ(FitLikelihoodLine(Groups({2, 2, 0}, {10, 10, 10}, {3, 4, 1}), options).message,
              "The maximum likelihood fit needs at least two different doses above 0 with "
              "individuals treated.");
    const char* separated =
        "The responses are completely separated: no dose has a partial response between "
        "none and all, so the slope grows without bound and the line can't be fitted.";
    EXPECT_EQ(
        FitLikelihoodLine(Groups({1, 2, 4, 8}, {10, 10, 10, 10}, {0, 0, 10, 10}), options).message,
        separated);
    EXPECT_EQ(
        FitLikelihoodLine(Groups({1, 2, 4, 8}, {10, 10, 10, 10}, {10, 0, 0, 0}), options).message,
        separated);
    EXPECT_FALSE(FitLikelihoodLine(Groups({1, 2, 4}, {10, 10, 10}, {0, 0, 10}), options).converged);
    LikelihoodOptions badNatural;
    badNatural.natural = {NaturalResponse::Kind::Fixed, 1};
    EXPECT_EQ(FitLikelihoodLine(Rotenone(), badNatural).message,
              "The natural response must be a proportion from 0 up to, not including, 1.");
}

TEST(LikelihoodFailures, TooFewIterationsIsToldNotHidden) {
    LikelihoodOptions options;
    options.maxIterations = 2;
    const LikelihoodFit fit = FitLikelihoodLine(Beetles(), options);
    EXPECT_FALSE(fit.converged);
    EXPECT_EQ(fit.message,
              "The maximum likelihood fit did not converge in 2 iterations: the line can't be "
              "fitted.");
}

// Exact distribution functions against R's qt, qnorm and pchisq.
TEST(Distributions, AgreeWithR) {
    EXPECT_6(StudentTQuantile(0.975, 1), 12.7062047361747);
    EXPECT_6(StudentTQuantile(0.975, 4), 2.77644510519779);
    EXPECT_6(StudentTQuantile(0.995, 30), 2.74999565356723);
    EXPECT_6(StudentTQuantile(0.025, 4), -2.77644510519779);
    EXPECT_6(NormalQuantile(0.975), 1.95996398454005);
    EXPECT_6(NormalQuantile(1e-10), -6.36134090240406);
    EXPECT_6(ChiSquareUpperTail(3.84, 1), 0.0500435212487052);
    EXPECT_6(ChiSquareUpperTail(50, 30), 0.0124020607189006);
    EXPECT_6(ChiSquareUpperTail(0.5, 7), 0.999446481390425);
    EXPECT_EQ(ChiSquareUpperTail(0, 3), 1.0);
}

// The quantiles agree with R's qnorm and qt to the last digits (print(qnorm(0.975),
// digits = 17)), not only to six: they enter every limit.
TEST(Distributions, QuantilesToFullPrecision) {
    EXPECT_NEAR(NormalQuantile(0.975), 1.9599639845400536, 2e-15);
    EXPECT_NEAR(NormalQuantile(0.1), -1.2815515655446008, 2e-15);
    EXPECT_NEAR(NormalQuantile(0.999), 3.0902323061678132, 4e-15);
    EXPECT_NEAR(StudentTQuantile(0.975, 4), 2.7764451051977934, 2e-15);
    EXPECT_NEAR(NormalCdf(NormalQuantile(0.3)), 0.3, 1e-16);
}

TEST(LikelihoodNumberText, RoundTripAndSignificantTexts) {
    EXPECT_EQ(RoundTripText(0.1), "0.1");
    EXPECT_EQ(RoundTripText(4.845491787624443), "4.845491787624443");
    EXPECT_EQ(RoundTripText(1e-05), "1e-05");
    EXPECT_EQ(SignificantText(4.845491787624443, 6), "4.84549");
    EXPECT_EQ(SignificantText(0.00671067701202487, 6), "0.00671068");
    EXPECT_EQ(SignificantText(1.50408201700858e-05, 6), "1.50408e-05");
    EXPECT_EQ(SignificantText(4.2, 6), "4.2");
    EXPECT_THROW(RoundTripText(std::nan("")), Fault);
}

}  // namespace
}  // namespace morvane
