#include "core/ProbitTables.h"

#include <array>

#include "core/NumberText.h"

namespace morvane {

// Probit of k percent, k = 1 to 99: 5 + the normal deviate of k/100, to 4 decimals.
// Index 0 is unused.
const ConstantTable<100> ProbitTables::ProbitMiddle = {{
    0,      2.6737, 2.9463, 3.1192, 3.2493, 3.3551, 3.4452, 3.5242, 3.5949, 3.6592, 3.7184, 3.7735,
    3.825,  3.8736, 3.9197, 3.9636, 4.0055, 4.0458, 4.0846, 4.1221, 4.1584, 4.1936, 4.2278, 4.2612,
    4.2937, 4.3255, 4.3567, 4.3872, 4.4172, 4.4466, 4.4756, 4.5041, 4.5323, 4.5601, 4.5875, 4.6147,
    4.6415, 4.6681, 4.6945, 4.7207, 4.7467, 4.7725, 4.7981, 4.8236, 4.849,  4.8743, 4.8996, 4.9247,
    4.9498, 4.9749, 5.0,    5.0251, 5.0502, 5.0753, 5.1004, 5.1257, 5.151,  5.1764, 5.2019, 5.2275,
    5.2533, 5.2793, 5.3055, 5.3319, 5.3585, 5.3853, 5.4125, 5.4399, 5.4677, 5.4959, 5.5244, 5.5534,
    5.5828, 5.6128, 5.6433, 5.6745, 5.7063, 5.7388, 5.7722, 5.8064, 5.8416, 5.8779, 5.9154, 5.9542,
    5.9945, 6.0364, 6.0803, 6.1264, 6.175,  6.2265, 6.2816, 6.3408, 6.4051, 6.4758, 6.5548, 6.6449,
    6.7507, 6.8808, 7.0537, 7.3263,
}};

// Probit of k/10 percent, k = 1 to 10; index 0 is 0.
const ConstantTable<11> ProbitTables::ProbitLow = {{
    0,
    1.9098,
    2.1218,
    2.2522,
    2.3479,
    2.4242,
    2.4879,
    2.5427,
    2.5911,
    2.6344,
    2.6737,
}};

// Probit of 99 + k/10 percent, k = 0 to 9; index 10 is 0.
const ConstantTable<11> ProbitTables::ProbitHigh = {{
    7.3263,
    7.3656,
    7.4089,
    7.4573,
    7.5121,
    7.5758,
    7.6521,
    7.7478,
    7.8782,
    8.0902,
    0,
}};

// Expected probit Y = 1.1, 1.2 ... 8.9 at i = 1 to 79, typed as decimals; index 0
// unused and index 80 is 0, so no interval starts at 8.9.
const ConstantTable<81> ProbitTables::ExpectedProbit = {{
    0,   1.1, 1.2, 1.3, 1.4, 1.5, 1.6, 1.7, 1.8, 1.9, 2,   2.1, 2.2, 2.3, 2.4, 2.5, 2.6,
    2.7, 2.8, 2.9, 3,   3.1, 3.2, 3.3, 3.4, 3.5, 3.6, 3.7, 3.8, 3.9, 4,   4.1, 4.2, 4.3,
    4.4, 4.5, 4.6, 4.7, 4.8, 4.9, 5,   5.1, 5.2, 5.3, 5.4, 5.5, 5.6, 5.7, 5.8, 5.9, 6,
    6.1, 6.2, 6.3, 6.4, 6.5, 6.6, 6.7, 6.8, 6.9, 7,   7.1, 7.2, 7.3, 7.4, 7.5, 7.6, 7.7,
    7.8, 7.9, 8,   8.1, 8.2, 8.3, 8.4, 8.5, 8.6, 8.7, 8.8, 8.9, 0,
}};

// Minimum working probit Y - P/Z, to 4 decimals, as the published tables print it:
// the entries at Y = 6.6, 6.7, 7.1, 8.1, 8.2 and 8.5 to 8.9 differ from the formula
// and are kept as printed, since every figure that passes through them depends on them.
const ConstantTable<81> ProbitTables::MinimumWorking = {{
    0,         0.8579,    0.9522,    1.0462,     1.14,       1.2334,     1.3266,     1.4194,
    1.5118,    1.6038,    1.6954,    1.7866,     1.8772,     1.9673,     2.0568,     2.1457,
    2.2339,    2.3214,    2.4081,    2.4938,     2.5786,     2.6624,     2.7449,     2.8261,
    2.906,     2.9842,    3.0606,    3.1351,     3.2074,     3.2773,     3.3443,     3.4083,
    3.4687,    3.5251,    3.577,     3.6236,     3.6643,     3.6982,     3.7241,     3.7407,
    3.7467,    3.7401,    3.7187,    3.6798,     3.6203,     3.536,      3.422,      3.2724,
    3.0794,    2.8335,    2.5229,    2.1325,     1.6429,     1.0295,     0.2606,     -0.7051,
    -2.9214,   -3.4488,   -5.4111,   -7.9026,    -11.1002,   -15.2295,   -20.5973,   -27.6234,
    -36.8877,  -49.1963,  -65.6784,  -87.928,    -118.2124,  -159.7823,  -217.3349,  -297.7119,
    -410.9593, -571.9476, -802.8705, -1137.1251, -1625.3886, -2345.2042, -3416.2319, -5024.6981,
    0,
}};

// Range of the working probit 1/Z, to 4 decimals, as printed: the entries at
// Y = 1.1 to 1.5, 1.7 to 2 and their mirrors 8 to 8.9 differ from the formula.
const ConstantTable<81> ProbitTables::WorkingRange = {{
    0,        5033.8402, 3425.2797, 2354.158,  1634.2486, 1145.8917, 811.5439,  580.5282,  419.4475,
    306.1081, 225.3695,  167.9957,  126.3352,  95.9607,   73.6216,   57.0506,   44.6538,   35.302,
    28.1892,  22.7357,   18.5216,   15.2402,   12.6662,   10.6327,   9.0154,    7.721,     6.6788,
    5.8354,   5.1497,    4.5903,    4.1327,    3.7582,    3.4519,    3.2025,    3.001,     2.8404,
    2.7154,   2.622,     2.5573,    2.5192,    2.5066,    2.5192,    2.5573,    2.622,     2.7154,
    2.8404,   3.001,     3.2025,    3.4519,    3.7582,    4.1327,    4.5903,    5.1497,    5.8354,
    6.6788,   7.721,     9.0154,    10.6327,   12.6662,   15.2402,   18.5216,   22.7357,   28.1892,
    35.302,   44.6538,   57.0506,   73.6216,   95.9607,   126.3352,  167.9957,  225.3695,  306.1081,
    419.4475, 580.5282,  811.5439,  1145.8917, 1634.2486, 2354.158,  3425.2797, 5033.8402, 0,
}};

// Weighting coefficient Z^2/(PQ), to 5 decimals.
const ConstantTable<81> ProbitTables::WeightingCoefficient = {{
    0,       0.00082, 0.00118, 0.00167, 0.00235, 0.00327, 0.00451, 0.00614, 0.00828,
    0.01104, 0.01457, 0.01903, 0.02458, 0.03143, 0.03977, 0.04979, 0.06168, 0.07564,
    0.09179, 0.11026, 0.13112, 0.15436, 0.17994, 0.20774, 0.23753, 0.26907, 0.30199,
    0.33589, 0.37031, 0.40474, 0.43863, 0.47144, 0.5026,  0.53159, 0.55788, 0.58099,
    0.60052, 0.61609, 0.62742, 0.63431, 0.63662, 0.63431, 0.62742, 0.61609, 0.60052,
    0.58099, 0.55788, 0.53159, 0.5026,  0.47144, 0.43863, 0.40474, 0.37031, 0.33589,
    0.30199, 0.26907, 0.23753, 0.20774, 0.17994, 0.15436, 0.13112, 0.11026, 0.09179,
    0.07564, 0.06168, 0.04979, 0.03977, 0.03143, 0.02458, 0.01903, 0.01457, 0.01104,
    0.00828, 0.00614, 0.00451, 0.00327, 0.00235, 0.00167, 0.00118, 0.00082, 0,
}};

double ConstantTableEntry(const double* values, std::size_t size, int index) {
    // An index outside the ends is a fault, as the table read below its start by the
    // four-character cut is.
    if (index < 0 || static_cast<std::size_t>(index) >= size)
        throw Fault("the probit table was read outside its ends (index " + std::to_string(index) +
                    ")");
    return values[static_cast<std::size_t>(index)];
}

void ProbitTables::reset() {
    text1_.clear();
    text2_.clear();
    text3_.clear();
    text4_.clear();
    percentProbit_.clear();
    probitPercent_.clear();
    workingValue_.clear();
    workingWeight_.clear();
}

const std::string& ProbitTables::PercentToProbit(std::string_view percentText) {
    if (text1_ != percentText) {
        text1_ = std::string(percentText);
        runPercentToProbit();
    }
    return percentProbit_;
}

const std::string& ProbitTables::ProbitToPercent(std::string_view probitText) {
    if (text2_ != probitText) {
        text2_ = std::string(probitText);
        runProbitToPercent();
    }
    return probitPercent_;
}

// The interpolation loops run to their end without leaving: ranges share their end
// points, so a value on a grid point matches twice and the later, higher k stands.
void ProbitTables::runPercentToProbit() {
    if (text1_.empty()) {
        percentProbit_.clear();
        return;
    }
    const double p = NumberOf(text1_);
    if (!visible_) {
        if (p > 99.9) {
            percentProbit_ = "9";
            return;
        }
        if (p < 0.1) {
            percentProbit_ = "1";
            return;
        }
    }
    if (p > 99.9 || p < 0.1) {
        percentProbit_ = "out of scale";
        return;
    }
    if (p >= 1 && p <= 99) {
        for (int k = 2; k <= 99; ++k) {
            if (k - 1 <= p && p <= k) {
                const double t1 = ProbitMiddle(k - 1), t = ProbitMiddle(k);
                percentProbit_ = PlainText(t + (t1 - t) * (p - k) / ((k - 1) - k));
            }
        }
    }
    if (p < 1) {
        const double x = p * 10;
        for (int k = 1; k <= 10; ++k) {
            if (k - 1 <= x && x <= k) {
                const double l1 = ProbitLow(k - 1), l = ProbitLow(k);
                percentProbit_ =
                    PlainText(l + (l1 - l) * (p - k / 10.0) / ((k - 1) / 10.0 - k / 10.0));
            }
        }
    }
    if (p > 99) {
        // The difference is cut to the first four characters of its text. For
        // ordinary values this drops two decimals; just above 99 the text of the
        // floating-point noise may be in exponent form ("1.00000000000477E-02"),
        // whose first four characters read 1. Both effects are part of the
        // transform and are kept.
        double x = (p - 99) * 10;
        x = NumberOf(PlainText(x).substr(0, 4));
        for (int k = 0; k <= 9; ++k) {
            if (k - 1 <= x && x <= k) {
                const double h1 = ProbitHigh(k - 1), h = ProbitHigh(k);
                percentProbit_ = PlainText(h + (h1 - h) * (p - (k / 10.0 + 99)) /
                                                   (((k - 1) / 10.0 + 99) - (k / 10.0 + 99)));
            }
        }
    }
}

void ProbitTables::runProbitToPercent() {
    if (text2_.empty()) {
        probitPercent_.clear();
        return;
    }
    const double y = NumberOf(text2_);
    // The lower limit is 1.9096 although the table starts at 1.9098.
    if (y > 8.0902 || y < 1.9096) {
        probitPercent_ = "out of scale";
        return;
    }
    double v = 0;
    if (y >= 2.6737 && y <= 7.3263) {
        for (int k = 2; k <= 99; ++k) {
            const double t1 = ProbitMiddle(k - 1), t = ProbitMiddle(k);
            if (t1 <= y && y <= t)
                v = k + ((k - 1) - k) * (y - t) / (t1 - t);
        }
    }
    if (y < 2.6737) {
        for (int k = 1; k <= 10; ++k) {
            const double l1 = ProbitLow(k - 1), l = ProbitLow(k);
            if (l1 <= y && y <= l)
                v = (k + ((k - 1) - k) * (y - l) / (l1 - l)) / 10;
        }
    }
    if (y > 7.3263) {
        for (int k = 1; k <= 10; ++k) {
            const double h1 = ProbitHigh(k - 1), h = ProbitHigh(k);
            if (h1 <= y && y <= h)
                v = (k + ((k - 1) - k) * (y - h) / (h1 - h)) / 10 + 99;
        }
    }
    // The percentage is cut, not rounded, to its first seven characters, written in
    // plain decimal form: 1.9096 gives "0.09998".
    probitPercent_ = PlainDecimalText(v).substr(0, 7);
}

void ProbitTables::setWorkingExpected(std::string_view expectedProbitText) {
    if (text3_ == expectedProbitText)
        return;
    text3_ = std::string(expectedProbitText);
    runWorkingProbit();
}

void ProbitTables::setWorkingResponse(std::string_view responsePercentText) {
    if (text4_ == responsePercentText)
        return;
    text4_ = std::string(responsePercentText);
    onWorkingResponseChanged();
}

// The response box normalises its own text, and each rewrite is a change of its own
// that runs this handler again before the outer run goes on.
void ProbitTables::onWorkingResponseChanged() {
    if (text4_.empty())
        return;
    const double p = NumberOf(text4_);
    if (p == 0) {
        setWorkingResponse("");
    } else if (p <= 100) {
        setWorkingResponse(PlainText(p));
    } else {
        setWorkingResponse("100");
    }
    if (!text3_.empty())
        runWorkingProbit();
}

void ProbitTables::runWorkingProbit() {
    const double y = NumberOrZero(text3_);
    const double p = NumberOrZero(text4_);
    double m = 0, r = 0, w = 0;
    for (int i = 1; i <= 79; ++i) {
        const double e = ExpectedProbit(i), e1 = ExpectedProbit(i + 1);
        if (e <= y && y < e1) {
            const double f = (y - e1) / (e - e1);
            m = MinimumWorking(i + 1) + (MinimumWorking(i) - MinimumWorking(i + 1)) * f;
            r = WorkingRange(i + 1) + (WorkingRange(i) - WorkingRange(i + 1)) * f;
            w = WeightingCoefficient(i + 1) +
                (WeightingCoefficient(i) - WeightingCoefficient(i + 1)) * f;
        }
    }
    workingValue_ = PlainText((p / 100 * r) + m);
    workingWeight_ = PlainText(w);
    if (workingValue_ == "0")
        workingValue_.clear();
    if (workingWeight_ == "0")
        workingWeight_.clear();
}

}  // namespace morvane
