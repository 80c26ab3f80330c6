#include "core/StatTables.h"

#include <array>
#include <cmath>

#include "core/Fault.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

struct TRow {
    int df;
    const char* t10;
    const char* t05;
    const char* t01;
};

// Student's t, two-tailed, as stored; row 121 is infinity.
constexpr std::array<TRow, 42> kTRows = {{
    {1, "6.314", "12.706", "63.657"}, {2, "2.92", "4.303", "9.925"},
    {3, "2.353", "3.182", "5.841"},   {4, "2.132", "2.776", "4.604"},
    {5, "2.015", "2.571", "4.032"},   {6, "1.943", "2.447", "3.707"},
    {7, "1.895", "2.365", "3.499"},   {8, "1.86", "2.306", "3.355"},
    {9, "1.833", "2.262", "3.25"},    {10, "1.812", "2.228", "3.169"},
    {11, "1.796", "2.201", "3.106"},  {12, "1.782", "2.179", "3.055"},
    {13, "1.771", "2.16", "3.012"},   {14, "1.761", "2.145", "2.977"},
    {15, "1.753", "2.131", "2.947"},  {16, "1.746", "2.12", "2.921"},
    {17, "1.74", "2.11", "2.898"},    {18, "1.734", "2.101", "2.878"},
    {19, "1.729", "2.093", "2.861"},  {20, "1.725", "2.086", "2.845"},
    {21, "1.721", "2.08", "2.831"},   {22, "1.717", "2.074", "2.819"},
    {23, "1.714", "2.069", "2.807"},  {24, "1.711", "2.064", "2.797"},
    {25, "1.708", "2.06", "2.787"},   {26, "1.706", "2.056", "2.779"},
    {27, "1.703", "2.052", "2.771"},  {28, "1.701", "2.048", "2.763"},
    {29, "1.699", "2.045", "2.756"},  {30, "1.697", "2.042", "2.75"},
    {35, "1.69", "2.03", "2.724"},    {40, "1.684", "2.021", "2.704"},
    {45, "1.68", "2.014", "2.69"},    {50, "1.676", "2.008", "2.678"},
    {55, "1.673", "2.004", "2.669"},  {60, "1.671", "2", "2.66"},
    {70, "1.667", "1.994", "2.648"},  {80, "1.665", "1.989", "2.638"},
    {90, "1.662", "1.986", "2.631"},  {100, "1.661", "1.982", "2.625"},
    {120, "1.658", "1.98", "2.617"},  {121, "1.6448", "1.96", "2.5758"},
}};

// 5% critical values of chi-square for 1..30 degrees of freedom, as stored.
constexpr std::array<double, 31> kChiSquare = {
    0,     3.8,   6,     7.8,   9.5,  11.1, 12.6, 14.1,  15.5,  16.9, 18.3,
    19.65, 21,    22.35, 23.7,  25,   26.3, 27.6, 28.9,  30.15, 31.4, 32.65,
    33.9,  35.15, 36.4,  37.65, 38.9, 40.1, 41.3, 42.55, 43.8,
};

constexpr std::array<double, 31> kCriticalR = {
    0,      0.997,  0.95,   0.878, 0.811,  0.755,  0.707,  0.666,  0.632, 0.602, 0.576,
    0.553,  0.532,  0.514,  0.497, 0.482,  0.468,  0.456,  0.444,  0.433, 0.423, 0.4146,
    0.4062, 0.3978, 0.3894, 0.381, 0.3746, 0.3682, 0.3618, 0.3554, 0.349,
};

TextTable MakeTGrid() {
    TextTable grid(122, 4);
    grid.setText(0, 0, "d f");
    grid.setText(0, 1, "0.1");
    grid.setText(0, 2, "0.05");
    grid.setText(0, 3, "0.01");
    for (const TRow& row : kTRows) {
        grid.setText(row.df, 1, row.t10);
        grid.setText(row.df, 2, row.t05);
        grid.setText(row.df, 3, row.t01);
    }
    return grid;
}

int WholeNumber(std::string_view text) {
    const auto n = RoundHalfEven32(NumberOf(text));
    if (!n)
        throw Fault("the degrees of freedom \"" + std::string(text) + "\" are out of range");
    return *n;
}

double ChiSquareValue(int degreesOfFreedom) {
    if (degreesOfFreedom < 1 || degreesOfFreedom > 30)
        throw Fault("the chi-square table has no row " + std::to_string(degreesOfFreedom));
    return kChiSquare[static_cast<std::size_t>(degreesOfFreedom)];
}

}  // namespace

const TextTable& TGrid() {
    static const TextTable grid = MakeTGrid();
    return grid;
}

std::string TValueText(std::string_view degreesOfFreedomText, int levelIndex) {
    if (degreesOfFreedomText.empty())
        return "";
    const int column = levelIndex + 1;
    const TextTable& grid = TGrid();
    const int n = WholeNumber(degreesOfFreedomText);
    int row = 121;
    if (n < 121) {
        row = n;
        if (row < 0)
            throw Fault("the t table was read below its start");
        while (grid.text(row, column).empty())
            --row;
    }
    return grid.text(row, column);
}

std::string TabulatedChiSquare(int degreesOfFreedom) {
    return PlainText(ChiSquareValue(degreesOfFreedom < 30 ? degreesOfFreedom : 30));
}

double CriticalR(int degreesOfFreedom) {
    if (degreesOfFreedom < 1 || degreesOfFreedom > 30)
        throw Fault("the table of r has no row " + std::to_string(degreesOfFreedom));
    return kCriticalR[static_cast<std::size_t>(degreesOfFreedom)];
}

}  // namespace morvane
