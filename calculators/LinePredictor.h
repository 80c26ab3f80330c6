#pragma once
// The extrapolation and interpolation calculator ("Extrapolation & Interpolation"):
// a log-probit line, probit = intercept + slope * log10(dose), given by two points
// or by one point and a slope, from which a response is read for a dose or a dose
// for a response. No data set is needed, and the doses are not scaled.
//
// Two panels, each with its boxes (as text) and its line:
//   "Two points":          Text1/Text2 and Text3/Text4 the doses and responses % of
//                          the two points; Label6 the slope as FormatEstimate writes
//                          it, Label9 the intercept (plain text); Text5 a dose,
//                          Text6 a response %; Command2 "Predict  >>" (dose to
//                          response) and Command3 "Predict  <<" (response to dose).
//   "One point & slope":   Text7/Text8 the point, Text9 the slope; Label16 the
//                          intercept; Text11 a dose, Text10 a response %; Command6
//                          "Predict  >>" and Command5 "Predict  <<".
// A change of a point's box defines the line again as soon as every box of the
// panel is filled. Responses go through the program's probit tables in their hidden
// branch (percent to probit, and back cut to seven characters), so the figures are
// those of the printed tables.
//
// The calculator keeps a WorkValue and a WorkText of its own for FormatEstimate: a
// value of exactly 0 leaves the text as it was, here as in the results window.
//
// What the user must be told goes through the port. A dose of 0 has no logarithm
// and a flat line (slope 0) gives no dose for a response: such input is told in a
// plain message and changes nothing, it never ends the program.

#include <optional>
#include <string>
#include <vector>

#include "core/ProbitTables.h"
#include "core/SharedRegisters.h"
#include "core/UserPort.h"

namespace morvane {

class LinePredictor {
  public:
    enum class Box {
        Text1,
        Text2,
        Text3,
        Text4,
        Text5,
        Text6,
        Text7,
        Text8,
        Text9,
        Text10,
        Text11
    };
    enum class Button { Command2, Command3, Command5, Command6 };

    // The messages of the calculator.
    static constexpr const char* kIllegalSlope =
        "Your data Revealed an illegal slope\nit has an infinite or almost infinite "
        "value\nso your data can't be calculated";
    static constexpr const char* kOutOfScale = "This point is out of scale";
    static constexpr const char* kFirstPointInvalid =
        "1st point give an invaled value\nMorvane can't calculate it";
    static constexpr const char* kSecondPointInvalid =
        "2nd point give an invaled value\nMorvane can't calculate it";
    static constexpr const char* kNotANumber = "This box doesn't hold a number";
    static constexpr const char* kDoseOfZero =
        "A dose of 0 has no logarithm\nMorvane can't calculate it";
    static constexpr const char* kFlatLine =
        "The slope of this line is 0: every dose gives the same response\nMorvane "
        "can't calculate a dose from it";
    static constexpr const char* kDoseTooLarge =
        "The dose of this response is too large\nMorvane can't calculate it";
    // The tip of a box that drops a key.
    static constexpr const char* kOnlyNumbers = "only numbers";

    // The tables and the port must outlive the calculator.
    LinePredictor(ProbitTables& probit, UserPort& port);

    const std::string& text(Box box) const;
    // A change of a box's text, with the reactions of the boxes. Writing the text a
    // box already holds does nothing.
    void setText(Box box, std::string text);

    // Leaving a box. The responses of the points (Text2, Text4, Text8) are rewritten
    // as the plain text of their number and must lie from 1 to 99; a point's dose
    // must not be 0; any box must hold a number or nothing. False when the user was
    // told why not: the focus belongs back in the box.
    bool leave(Box box);

    // Presses a prediction button. Returns the box that gets the focus when the press
    // asks for one.
    std::optional<Box> press(Button button);

    bool enabled(Box box) const;
    bool enabled(Button button) const;

    bool Label5Visible() const { return label5Visible_; }
    const std::string& Label6() const { return label6_; }
    const std::string& Label9() const { return label9_; }
    const std::string& Label16() const { return label16_; }
    double TwoPointSlope() const { return twoPointSlope_; }

    // Whether a box takes a typed key: digits, backspace (8), Enter (13), the point
    // and the comma. Any other key shows the tip kOnlyNumbers.
    static bool KeyAllowed(char key);
    // The box that Enter or the right arrow at the end of the text moves to, and the
    // box that the down arrow moves to; none at the end of a panel.
    static std::optional<Box> NextBox(Box box);
    static std::optional<Box> BoxBelow(Box box);
    static const char* BoxName(Box box);

  private:
    void Command1();  // the line from two points
    void Command4();  // the line from a point and a slope
    void undefineTwoPoints();
    void undefinePointAndSlope();
    bool filled(std::initializer_list<Box> boxes) const;
    // The number of a point's box for the line; none when it is no number.
    std::optional<double> numberOf(Box box) const;
    std::optional<double> probitOf(double percent);

    std::optional<Box> predictResponse(Box doseBox, Box responseBox, double slope,
                                       const std::string& intercept);
    std::optional<Box> predictDose(Box responseBox, Box doseBox, double slope,
                                   const std::string& intercept);

    ProbitTables& probit_;
    UserPort& port_;
    std::vector<std::string> texts_;
    bool text5Enabled_ = false, text6Enabled_ = false;
    bool text10Enabled_ = false, text11Enabled_ = false;
    bool command2Enabled_ = false, command3Enabled_ = false;
    bool command5Enabled_ = false, command6Enabled_ = false;
    bool label5Visible_ = false;
    std::string label6_, label9_, label16_;
    double twoPointSlope_ = 0;
    SharedRegisters format_;  // WorkValue and WorkText of this calculator's FormatEstimate
};

}  // namespace morvane
