#pragma once
// The probit tables and their three transforms, after the printed tables of
// Finney's "Probit Analysis": every conversion between response percentage and
// probit is a linear interpolation in tables of constants, never an evaluation of
// the normal distribution.
//
// This object is the program's probit library. Input and output are text, each
// output persists between calls, and a call that finds nothing to interpolate
// leaves the old output in place. Writing an input that equals the text it already
// holds does nothing, as with a text box whose text did not change. Callers that
// want fresh outputs call reset(), which is what unloading the library does.

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace morvane {

// The entry of a table of constants at index; an index outside the table is a Fault.
double ConstantTableEntry(const double* values, std::size_t size, int index);

// A table of constants, read by index as table(i).
template <std::size_t N>
struct ConstantTable {
    std::array<double, N> values;
    double operator()(int index) const { return ConstantTableEntry(values.data(), N, index); }
};

class ProbitTables {
  public:
    // The tables, for the transforms, the tests and the chart's probit scale.
    static const ConstantTable<100> ProbitMiddle;         // k = 1..99, probit of k percent
    static const ConstantTable<11> ProbitLow;             // k = 0..10, probit of k/10 percent
    static const ConstantTable<11> ProbitHigh;            // k = 0..10, of 99 + k/10 percent
    static const ConstantTable<81> ExpectedProbit;        // i = 0..80
    static const ConstantTable<81> MinimumWorking;        // i = 0..80
    static const ConstantTable<81> WorkingRange;          // i = 0..80
    static const ConstantTable<81> WeightingCoefficient;  // i = 0..80

    // Whether the converter dialog is on the screen: it changes one branch of
    // PercentToProbit ("out of scale" instead of the probits 1 and 9).
    void setVisible(bool visible) { visible_ = visible; }
    bool visible() const { return visible_; }

    // Percent to probit: writes the input box, returns the output PercentProbit.
    const std::string& PercentToProbit(std::string_view percentText);
    // Probit to percent: writes the input box, returns the output ProbitPercent.
    const std::string& ProbitToPercent(std::string_view probitText);

    // The working-probit inputs: the expected probit Y and a response percentage.
    // Each write runs the transform as the boxes' change handlers do.
    void setWorkingExpected(std::string_view expectedProbitText);
    void setWorkingResponse(std::string_view responsePercentText);
    const std::string& workingResponse() const { return text4_; }

    const std::string& PercentProbit() const { return percentProbit_; }
    const std::string& ProbitPercent() const { return probitPercent_; }
    const std::string& WorkingValue() const { return workingValue_; }
    const std::string& WorkingWeight() const { return workingWeight_; }

    // Inputs and outputs emptied, as a freshly loaded library has them.
    void reset();

  private:
    void runPercentToProbit();
    void runProbitToPercent();
    void onWorkingResponseChanged();
    void runWorkingProbit();

    bool visible_ = false;
    std::string text1_, text2_, text3_, text4_;
    std::string percentProbit_, probitPercent_, workingValue_, workingWeight_;
};

}  // namespace morvane
