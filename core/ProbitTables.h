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

#include <string>
#include <string_view>

namespace morvane {

class ProbitTables {
  public:
    // Table entries, for tests and for the chart's probit scale.
    static double ProbitMiddle(int k);          // k = 1..99, probit of k percent
    static double ProbitLow(int k);             // k = 0..10, probit of k/10 percent
    static double ProbitHigh(int k);            // k = 0..10, probit of 99 + k/10 percent
    static double ExpectedProbit(int i);        // i = 0..80
    static double MinimumWorking(int i);        // i = 0..80
    static double WorkingRange(int i);          // i = 0..80
    static double WeightingCoefficient(int i);  // i = 0..80

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
