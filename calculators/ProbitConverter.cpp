#include "calculators/ProbitConverter.h"

#include "core/Fault.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

const std::string kEmpty;

bool IsNumberOrEmpty(const std::string& text) {
    return text.empty() || ParseNumber(text);
}

}  // namespace

void SlidingPanel::tick() {
    if (!running_)
        return;
    top_ += kStep;
    if (top_ >= kEndTop) {
        top_ = kRestTop;
        running_ = false;
    }
}

ProbitConverter::ProbitConverter(ProbitTables& probit) : probit_(probit) {}

void ProbitConverter::Open() {
    probit_.reset();
    probit_.setVisible(true);
    open_ = true;
    text1_.clear();
    text2_.clear();
    typed3_.clear();
    typed4_.clear();
    invalid1_ = invalid2_ = invalid3_ = invalid4_ = false;
}

void ProbitConverter::Close() {
    probit_.setVisible(false);
    probit_.reset();
    open_ = false;
}

const std::string& ProbitConverter::text(Box box) const {
    switch (box) {
        case Box::Text1:
            return text1_;
        case Box::Text2:
            return text2_;
        case Box::Text3:
            return typed3_;
        case Box::Text4:
            return typed4_;
    }
    return kEmpty;
}

const std::string& ProbitConverter::Label1() const {
    return invalid1_ ? kEmpty : probit_.PercentProbit();
}
const std::string& ProbitConverter::Label2() const {
    return invalid2_ ? kEmpty : probit_.ProbitPercent();
}
// The working results need both boxes to hold numbers.
const std::string& ProbitConverter::Label12() const {
    return invalid3_ || invalid4_ ? kEmpty : probit_.WorkingValue();
}
const std::string& ProbitConverter::Label13() const {
    return invalid3_ || invalid4_ ? kEmpty : probit_.WorkingWeight();
}

void ProbitConverter::setText(Box box, const std::string& text) {
    const std::string before1 = Label1(), before2 = Label2();
    switch (box) {
        case Box::Text1:
            text1_ = text;
            invalid1_ = !IsNumberOrEmpty(text);
            if (!invalid1_)
                probit_.PercentToProbit(text);
            break;
        case Box::Text2:
            text2_ = text;
            invalid2_ = !IsNumberOrEmpty(text);
            if (!invalid2_)
                probit_.ProbitToPercent(text);
            break;
        case Box::Text3:
            typed3_ = text;
            invalid3_ = !IsNumberOrEmpty(text);
            if (!invalid3_)
                probit_.setWorkingExpected(text);
            break;
        case Box::Text4:
            typed4_ = text;
            invalid4_ = !IsNumberOrEmpty(text);
            if (!invalid4_) {
                // The box rewrites its own text: "150" becomes "100", "0" empties it.
                probit_.setWorkingResponse(text);
                typed4_ = probit_.workingResponse();
            }
            break;
    }
    if (Label1() != before1)
        picture3_.start();
    if (Label2() != before2)
        picture4_.start();
}

bool ProbitConverter::leave(Box box) {
    const std::string current = text(box);
    if (current.empty())
        return true;
    const auto value = ParseNumber(current);
    if (!value)
        return false;
    setText(box, PlainText(*value));
    return true;
}

bool ProbitConverter::KeyAllowed(Box box, char key) {
    if (key >= '0' && key <= '9')
        return true;
    if (key == '.' || key == ',' || key == 8)
        return true;
    if (key == 13)
        return box == Box::Text1 || box == Box::Text2;
    return false;
}

}  // namespace morvane
