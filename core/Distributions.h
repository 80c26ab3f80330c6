#pragma once
// Exact distribution functions for the maximum-likelihood analysis: the normal and
// logistic distributions, the upper tail of chi-square and the quantiles of Student's
// t, to full double precision. The classical analysis keeps its printed tables
// (core/StatTables.h); these functions are for the likelihood figures only, so that
// no rounded table value reaches them.

namespace morvane {

// The standard normal distribution function and its inverse (0 < p < 1).
double NormalCdf(double z);
double NormalDensity(double z);
double NormalQuantile(double p);

// The standard logistic distribution function 1 / (1 + e^-z), its density and inverse.
double LogisticCdf(double z);
double LogisticDensity(double z);
double LogisticQuantile(double p);

// The probability that chi-square with df degrees of freedom (df > 0) exceeds x: the
// regularized upper incomplete gamma function Q(df / 2, x / 2). 1 for x <= 0.
double ChiSquareUpperTail(double x, double degreesOfFreedom);

// The probability that Student's t with df degrees of freedom is at most t.
double StudentTCdf(double t, double degreesOfFreedom);

// The quantile of Student's t: the t with StudentTCdf(t, df) = p (0 < p < 1).
double StudentTQuantile(double p, double degreesOfFreedom);

}  // namespace morvane
