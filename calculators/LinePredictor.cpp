#include "calculators/LinePredictor.h"

#include <array>
#include <cmath>

#include "core/DoseEstimates.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

using Box = LinePredictor::Box;

constexpr int kBoxCount = 11;
// Within this distance two doses are the same dose: the slope would be infinite.
constexpr double kEqualDoses = 1E-300;
// The probits from which a response is read: the strip of the tables' middle part.
constexpr double kLowestProbit = 2.67;
constexpr double kHighestProbit = 7.33;

int IndexOf(Box box) {
    return static_cast<int>(box);
}

bool IsPointResponse(Box box) {
    return box == Box::Text2 || box == Box::Text4 || box == Box::Text8;
}

bool IsPointDose(Box box) {
    return box == Box::Text1 || box == Box::Text3 || box == Box::Text7;
}

}  // namespace

LinePredictor::LinePredictor(ProbitTables& probit, UserPort& port)
    : probit_(probit), port_(port), texts_(kBoxCount) {}

const std::string& LinePredictor::text(Box box) const {
    return texts_[IndexOf(box)];
}

bool LinePredictor::filled(std::initializer_list<Box> boxes) const {
    for (Box box : boxes)
        if (text(box).empty())
            return false;
    return true;
}

std::optional<double> LinePredictor::numberOf(Box box) const {
    return ParseNumber(text(box));
}

// A percent just above 99 may find nothing to interpolate in the tables, which then
// keep their last output; before any output there is none to read.
std::optional<double> LinePredictor::probitOf(double percent) {
    return ParseNumber(probit_.PercentToProbit(PlainText(percent)));
}

void LinePredictor::setText(Box box, std::string text) {
    if (texts_[IndexOf(box)] == text)
        return;
    texts_[IndexOf(box)] = std::move(text);
    const bool empty = texts_[IndexOf(box)].empty();
    switch (box) {
        case Box::Text1:
        case Box::Text2:
        case Box::Text3:
        case Box::Text4:
            setText(Box::Text5, "");
            setText(Box::Text6, "");
            if (filled({Box::Text1, Box::Text2, Box::Text3, Box::Text4}))
                Command1();
            else
                undefineTwoPoints();
            break;
        case Box::Text7:
        case Box::Text8:
        case Box::Text9:
            setText(Box::Text10, "");
            setText(Box::Text11, "");
            if (filled({Box::Text7, Box::Text8, Box::Text9}))
                Command4();
            else
                undefinePointAndSlope();
            break;
        case Box::Text5:
            command2Enabled_ = !empty;
            break;
        case Box::Text6:
            command3Enabled_ = !empty;
            break;
        case Box::Text10:
            command5Enabled_ = !empty;
            break;
        case Box::Text11:
            command6Enabled_ = !empty;
            break;
    }
}

void LinePredictor::undefineTwoPoints() {
    text5Enabled_ = false;
    text6Enabled_ = false;
    label6_.clear();
}

void LinePredictor::undefinePointAndSlope() {
    text10Enabled_ = false;
    text11Enabled_ = false;
}

// While a box is being typed its text may be no number yet ("." on the way to ".5")
// or a dose of 0 (on the way to "0.5"): the line waits, undefined, and leaving the
// box tells what is wrong.
void LinePredictor::Command1() {
    const auto d1 = numberOf(Box::Text1), d2 = numberOf(Box::Text3);
    const auto p1 = numberOf(Box::Text2), p2 = numberOf(Box::Text4);
    if (!d1 || !d2 || !p1 || !p2) {
        undefineTwoPoints();
        return;
    }
    const double difference = *d1 - *d2;
    if (difference > -kEqualDoses && difference < kEqualDoses) {
        port_.warn(kIllegalSlope);
        return;
    }
    if (!(*d1 > 0) || !(*d2 > 0)) {
        undefineTwoPoints();
        return;
    }
    const double l1 = Log10(*d1), l2 = Log10(*d2);
    const auto y1 = probitOf(*p1);
    const auto y2 = probitOf(*p2);
    if (!y1 || !y2) {
        undefineTwoPoints();
        return;
    }
    const double slope = (*y1 - *y2) / (l1 - l2);
    // Doses so close that their logarithms are equal make an infinite slope too.
    if (!std::isfinite(slope)) {
        port_.warn(kIllegalSlope);
        return;
    }
    twoPointSlope_ = slope;
    format_.WorkValue = slope;
    FormatEstimate(format_);
    label6_ = format_.WorkText;
    label5Visible_ = true;
    label9_ = PlainText(*y1 - l1 * twoPointSlope_);
    text5Enabled_ = true;
    text6Enabled_ = true;
}

void LinePredictor::Command4() {
    const auto d = numberOf(Box::Text7), p = numberOf(Box::Text8), b = numberOf(Box::Text9);
    if (!d || !p || !b || !(*d > 0)) {
        undefinePointAndSlope();
        return;
    }
    const double l = Log10(*d);
    const auto y = probitOf(*p);
    if (!y) {
        undefinePointAndSlope();
        return;
    }
    label16_ = PlainText(*y - l * *b);
    text10Enabled_ = true;
    text11Enabled_ = true;
}

bool LinePredictor::leave(Box box) {
    if (text(box).empty())
        return true;
    const auto value = numberOf(box);
    if (!value) {
        port_.warn(kNotANumber);
        return false;
    }
    if (IsPointResponse(box)) {
        setText(box, PlainText(*value));
        if (*value < 1 || *value > 99) {
            port_.warn(box == Box::Text4 ? kSecondPointInvalid : kFirstPointInvalid);
            return false;
        }
    }
    if (IsPointDose(box) && *value == 0) {
        port_.warn(kDoseOfZero);
        return false;
    }
    return true;
}

std::optional<Box> LinePredictor::press(Button button) {
    if (!enabled(button))
        return std::nullopt;
    switch (button) {
        case Button::Command2:
            return predictResponse(Box::Text5, Box::Text6, twoPointSlope_, label9_);
        case Button::Command3:
            return predictDose(Box::Text6, Box::Text5, twoPointSlope_, label9_);
        case Button::Command6:
        case Button::Command5: {
            const auto slope = numberOf(Box::Text9);
            if (!slope) {
                port_.warn(kNotANumber);
                return Box::Text9;
            }
            return button == Button::Command6
                       ? predictResponse(Box::Text11, Box::Text10, *slope, label16_)
                       : predictDose(Box::Text10, Box::Text11, *slope, label16_);
        }
    }
    return std::nullopt;
}

std::optional<Box> LinePredictor::predictResponse(Box doseBox, Box responseBox, double slope,
                                                  const std::string& intercept) {
    const auto dose = numberOf(doseBox);
    if (!dose) {
        port_.warn(kNotANumber);
        return doseBox;
    }
    if (!(*dose > 0)) {
        port_.warn(kDoseOfZero);
        return doseBox;
    }
    const double x = Log10(*dose);
    const double y = x * slope + NumberOf(intercept);
    if (kLowestProbit <= y && y <= kHighestProbit) {
        setText(responseBox, probit_.ProbitToPercent(PlainText(y)));
        return std::nullopt;
    }
    port_.warn(kOutOfScale);
    return doseBox;
}

std::optional<Box> LinePredictor::predictDose(Box responseBox, Box doseBox, double slope,
                                              const std::string& intercept) {
    const auto percent = numberOf(responseBox);
    if (!percent) {
        port_.warn(kNotANumber);
        return responseBox;
    }
    if (*percent < 1 || *percent > 99) {
        port_.warn(kOutOfScale);
        return std::nullopt;
    }
    const auto y = probitOf(*percent);
    if (!y) {
        port_.warn(kNotANumber);
        return responseBox;
    }
    if (slope == 0) {
        port_.warn(kFlatLine);
        return responseBox;
    }
    const double x = (*y - NumberOf(intercept)) / slope;
    const double dose = PowerOfTen(x);
    if (!std::isfinite(dose)) {
        port_.warn(kDoseTooLarge);
        return responseBox;
    }
    format_.WorkValue = dose;
    FormatEstimate(format_);
    setText(doseBox, format_.WorkText);
    return std::nullopt;
}

bool LinePredictor::enabled(Box box) const {
    switch (box) {
        case Box::Text5:
            return text5Enabled_;
        case Box::Text6:
            return text6Enabled_;
        case Box::Text10:
            return text10Enabled_;
        case Box::Text11:
            return text11Enabled_;
        default:
            return true;
    }
}

bool LinePredictor::enabled(Button button) const {
    switch (button) {
        case Button::Command2:
            return command2Enabled_;
        case Button::Command3:
            return command3Enabled_;
        case Button::Command5:
            return command5Enabled_;
        case Button::Command6:
            return command6Enabled_;
    }
    return false;
}

bool LinePredictor::KeyAllowed(char key) {
    return (key >= '0' && key <= '9') || key == 8 || key == 13 || key == '.' || key == ',';
}

// The boxes stand in rows: a point's dose beside its response, the prediction's dose
// beside its response, and on the second panel the slope under the point's dose.
std::optional<Box> LinePredictor::NextBox(Box box) {
    switch (box) {
        case Box::Text1:
            return Box::Text2;
        case Box::Text2:
            return Box::Text3;
        case Box::Text3:
            return Box::Text4;
        case Box::Text4:
            return Box::Text5;
        case Box::Text5:
            return Box::Text6;
        case Box::Text7:
            return Box::Text8;
        case Box::Text8:
            return Box::Text9;
        case Box::Text9:
            return Box::Text11;
        case Box::Text11:
            return Box::Text10;
        case Box::Text6:
        case Box::Text10:
            break;
    }
    return std::nullopt;
}

std::optional<Box> LinePredictor::BoxBelow(Box box) {
    switch (box) {
        case Box::Text1:
            return Box::Text3;
        case Box::Text2:
            return Box::Text4;
        case Box::Text3:
            return Box::Text5;
        case Box::Text4:
            return Box::Text6;
        case Box::Text7:
            return Box::Text9;
        case Box::Text8:
            return Box::Text10;
        case Box::Text9:
            return Box::Text11;
        default:
            break;
    }
    return std::nullopt;
}

const char* LinePredictor::BoxName(Box box) {
    static const std::array<const char*, kBoxCount> names = {"Text1", "Text2",  "Text3", "Text4",
                                                             "Text5", "Text6",  "Text7", "Text8",
                                                             "Text9", "Text10", "Text11"};
    return names[IndexOf(box)];
}

}  // namespace morvane
