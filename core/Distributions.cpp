#include "core/Distributions.h"

#include <cmath>
#include <limits>

namespace morvane {
namespace {

constexpr double kEpsilon = 1e-16;
constexpr double kTiny = 1e-300;
constexpr int kMaxTerms = 10000;

// One step of the modified Lentz method for a continued fraction whose terms are
// an / (bn + ...): moves c and d on and returns the factor of this step.
double LentzStep(double an, double bn, double& c, double& d) {
    d = bn + an * d;
    if (std::fabs(d) < kTiny)
        d = kTiny;
    c = bn + an / c;
    if (std::fabs(c) < kTiny)
        c = kTiny;
    d = 1 / d;
    return d * c;
}

// P(a, x) by its power series, for x < a + 1.
double GammaSeries(double a, double x) {
    double term = 1 / a;
    double sum = term;
    for (int n = 1; n < kMaxTerms; ++n) {
        term *= x / (a + n);
        sum += term;
        if (std::fabs(term) < std::fabs(sum) * kEpsilon)
            break;
    }
    return sum * std::exp(-x + a * std::log(x) - std::lgamma(a));
}

// Q(a, x) by its continued fraction (modified Lentz), for x >= a + 1.
double GammaContinuedFraction(double a, double x) {
    double b = x + 1 - a;
    double c = 1 / kTiny;
    double d = 1 / b;
    double h = d;
    for (int i = 1; i < kMaxTerms; ++i) {
        const double an = -i * (i - a);
        b += 2;
        const double delta = LentzStep(an, b, c, d);
        h *= delta;
        if (std::fabs(delta - 1) < kEpsilon)
            break;
    }
    return std::exp(-x + a * std::log(x) - std::lgamma(a)) * h;
}

// The continued fraction of the regularized incomplete beta function (Lentz).
double BetaContinuedFraction(double a, double b, double x) {
    const double qab = a + b, qap = a + 1, qam = a - 1;
    double c = 1;
    double d = 1 - qab * x / qap;
    if (std::fabs(d) < kTiny)
        d = kTiny;
    d = 1 / d;
    double h = d;
    for (int m = 1; m < kMaxTerms; ++m) {
        const int m2 = 2 * m;
        const double even = m * (b - m) * x / ((qam + m2) * (a + m2));
        h *= LentzStep(even, 1, c, d);
        const double odd = -(a + m) * (qab + m) * x / ((a + m2) * (qap + m2));
        const double delta = LentzStep(odd, 1, c, d);
        h *= delta;
        if (std::fabs(delta - 1) < kEpsilon)
            break;
    }
    return h;
}

// The regularized incomplete beta function I_x(a, b).
double IncompleteBeta(double a, double b, double x) {
    if (x <= 0)
        return 0;
    if (x >= 1)
        return 1;
    const double front = std::exp(std::lgamma(a + b) - std::lgamma(a) - std::lgamma(b) +
                                  a * std::log(x) + b * std::log1p(-x));
    if (x < (a + 1) / (a + b + 2))
        return front * BetaContinuedFraction(a, b, x) / a;
    return 1 - front * BetaContinuedFraction(b, a, 1 - x) / b;
}

}  // namespace

double NormalCdf(double z) {
    return 0.5 * std::erfc(-z / std::sqrt(2.0));
}

double NormalDensity(double z) {
    return std::exp(-0.5 * z * z) / std::sqrt(2 * 3.14159265358979323846);
}

double NormalQuantile(double p) {
    if (!(p > 0 && p < 1))
        return std::numeric_limits<double>::quiet_NaN();
    // Acklam's rational approximation, then two Newton steps on erfc to full precision.
    static const double a[] = {-3.969683028665376e+01, 2.209460984245205e+02,
                               -2.759285104469687e+02, 1.383577518672690e+02,
                               -3.066479806614716e+01, 2.506628277459239e+00};
    static const double b[] = {-5.447609879822406e+01, 1.615858368580409e+02,
                               -1.556989798598866e+02, 6.680131188771972e+01,
                               -1.328068155288572e+01};
    static const double c[] = {-7.784894002430293e-03, -3.223964580411365e-01,
                               -2.400758277161838e+00, -2.549732539343734e+00,
                               4.374664141464968e+00,  2.938163982698783e+00};
    static const double d[] = {7.784695709041462e-03, 3.224671290700398e-01, 2.445134137142996e+00,
                               3.754408661907416e+00};
    const double low = 0.02425;
    double z;
    if (p < low) {
        const double q = std::sqrt(-2 * std::log(p));
        z = (((((c[0] * q + c[1]) * q + c[2]) * q + c[3]) * q + c[4]) * q + c[5]) /
            ((((d[0] * q + d[1]) * q + d[2]) * q + d[3]) * q + 1);
    } else if (p <= 1 - low) {
        const double q = p - 0.5;
        const double r = q * q;
        z = (((((a[0] * r + a[1]) * r + a[2]) * r + a[3]) * r + a[4]) * r + a[5]) * q /
            (((((b[0] * r + b[1]) * r + b[2]) * r + b[3]) * r + b[4]) * r + 1);
    } else {
        const double q = std::sqrt(-2 * std::log1p(-p));
        z = -(((((c[0] * q + c[1]) * q + c[2]) * q + c[3]) * q + c[4]) * q + c[5]) /
            ((((d[0] * q + d[1]) * q + d[2]) * q + d[3]) * q + 1);
    }
    for (int step = 0; step < 2; ++step) {
        // Halley's step; the tail that is small is the one computed, for precision.
        const double e = p < 0.5 ? NormalCdf(z) - p : (1 - p) - 0.5 * std::erfc(z / std::sqrt(2.0));
        const double u = e / NormalDensity(z);
        z = z - u / (1 + z * u / 2);
    }
    return z;
}

double LogisticCdf(double z) {
    return 1 / (1 + std::exp(-z));
}

double LogisticDensity(double z) {
    const double e = std::exp(-std::fabs(z));
    return e / ((1 + e) * (1 + e));
}

double LogisticQuantile(double p) {
    return std::log(p / (1 - p));
}

double ChiSquareUpperTail(double x, double degreesOfFreedom) {
    if (x <= 0)
        return 1;
    const double a = degreesOfFreedom / 2, half = x / 2;
    if (half < a + 1)
        return 1 - GammaSeries(a, half);
    return GammaContinuedFraction(a, half);
}

double StudentTCdf(double t, double degreesOfFreedom) {
    const double x = degreesOfFreedom / (degreesOfFreedom + t * t);
    const double tail = 0.5 * IncompleteBeta(degreesOfFreedom / 2, 0.5, x);
    return t > 0 ? 1 - tail : tail;
}

double StudentTQuantile(double p, double degreesOfFreedom) {
    if (!(p > 0 && p < 1))
        return std::numeric_limits<double>::quiet_NaN();
    if (p == 0.5)
        return 0;
    // Newton's method from the normal quantile, on the tail that is small, then
    // bisection guards if a step leaves the bracket.
    const bool upper = p > 0.5;
    const double tailProbability = upper ? 1 - p : p;  // the lower tail of -|t|
    double lo = -1e10, hi = 0;
    double t = -std::fabs(NormalQuantile(tailProbability));
    const double v = degreesOfFreedom;
    const double density0 = std::exp(std::lgamma((v + 1) / 2) - std::lgamma(v / 2)) /
                            std::sqrt(v * 3.14159265358979323846);
    for (int i = 0; i < 200; ++i) {
        const double f = StudentTCdf(t, v) - tailProbability;
        if (f > 0)
            hi = t;
        else
            lo = t;
        const double density = density0 * std::pow(1 + t * t / v, -(v + 1) / 2);
        double next = t - f / density;
        if (!(next > lo && next < hi))
            next = lo < -1e9 ? 2 * t - 1 : (lo + hi) / 2;
        if (std::fabs(next - t) <= 1e-15 * std::fabs(t))
            break;
        t = next;
    }
    return upper ? -t : t;
}

}  // namespace morvane
