#include "results/ResultQueries.h"

#include <optional>
#include <stdexcept>

#include "core/DoseEstimates.h"
#include "core/Fault.h"
#include "core/NumberText.h"

namespace morvane {
namespace {

const char* const kOutOfScale = "This value is out of scale";
const char* const kInvalidValue = "invaled value!";
const std::string kPercentSign = "%";

// Whether a "is" button may be pressed for the text of its box: not for an empty
// text, nor for one whose number is 0 (a text that is no number counts as 0).
bool CanCalculate(const std::string& text) {
    if (text.empty())
        return false;
    const std::optional<double> value = ParseNumber(text);
    return value && *value != 0;
}

}  // namespace

ResultQueries::ResultQueries(SharedRegisters& shared, UserPort& port, TextTable& grid2)
    : shared_(shared), port_(port), grid2_(grid2) {}

void ResultQueries::reset() {
    panels_ = QueryPanels{};
}

void ResultQueries::setEstimateCaptions() {
    panels_.SSTab2Caption0 = "Calculate any " + shared_.EstimateWord + " value";
    panels_.SSTab2Caption1 = "Calculate Response of any " + shared_.DoseWord;
    panels_.SSTab2Tab = 0;
    panels_.Label4 = "The " + shared_.EstimateWord;
}

void ResultQueries::setUnitCaption() {
    panels_.Label9 = shared_.UnitWord;
}

void ResultQueries::setText2(const std::string& text) {
    if (text == panels_.Text2)
        return;
    panels_.Text2 = text;
    Text2Change();
}

void ResultQueries::setText3(const std::string& text) {
    if (text == panels_.Text3)
        return;
    panels_.Text3 = text;
    Text3Change();
}

void ResultQueries::Text2Change() {
    panels_.Label3 = kPercentSign;
    setLabel2("");
    panels_.Command1Enabled = CanCalculate(panels_.Text2);
}

void ResultQueries::Text3Change() {
    setLabel5("");
    panels_.Label6.clear();
    panels_.Label19.clear();
    panels_.Label20.clear();
    panels_.Label14Visible = false;
    panels_.Label18Visible = false;
    panels_.Command3Enabled = CanCalculate(panels_.Text3);
}

bool ResultQueries::type(std::string& box, const std::string& keys,
                         void (ResultQueries::*changed)()) {
    // Each key is a change of the box, even one that leaves the same text.
    bool allPassed = true;
    bool typed = false;
    for (const char key : keys) {
        if (key == 8 || key == 13 || !NumberBoxAcceptsKey(key)) {
            allPassed = false;
            continue;
        }
        box = typed ? box + key : std::string(1, key);
        typed = true;
        (this->*changed)();
    }
    if (!typed) {
        // Nothing typed: the selected text is deleted.
        box.clear();
        (this->*changed)();
    }
    return allPassed;
}

bool ResultQueries::typeText2(const std::string& keys) {
    return type(panels_.Text2, keys, &ResultQueries::Text2Change);
}

bool ResultQueries::typeText3(const std::string& keys) {
    return type(panels_.Text3, keys, &ResultQueries::Text3Change);
}

void ResultQueries::setLabel2(const std::string& text) {
    if (text == panels_.Label2)
        return;
    panels_.Label2 = text;
    panels_.Command2Enabled = !text.empty();
    panels_.Label3Visible = !text.empty();
}

void ResultQueries::setLabel5(const std::string& text) {
    if (text == panels_.Label5)
        return;
    panels_.Label5 = text;
    if (text.empty()) {
        panels_.Label6.clear();
        panels_.Command4Enabled = false;
    } else {
        panels_.Label6 = shared_.UnitWord;
        panels_.Command4Enabled = true;
    }
}

void ResultQueries::Text2LostFocus() {
    if (panels_.Text2.empty())
        return;
    if (const std::optional<double> value = ParseNumber(panels_.Text2)) {
        setText2(PlainText(*value));
    } else {
        port_.warn(kInvalidValue);
    }
}

void ResultQueries::Text3LostFocus() {
    if (panels_.Text3.empty())
        return;
    if (const std::optional<double> value = ParseNumber(panels_.Text3)) {
        setText3(PlainText(*value));
    } else {
        port_.warn(kInvalidValue);
    }
}

bool ResultQueries::NumberBoxAcceptsKey(char key) {
    return (key >= '0' && key <= '9') || key == 8 || key == 13 || key == ',' || key == '.';
}

void ResultQueries::Command3() {
    panels_.focus = QueryFocus::Unchanged;
    try {
        shared_.WorkValue = NumberOf(panels_.Text3);
        if (shared_.WorkValue > 99.9 || shared_.WorkValue < 0.1) {
            port_.warn(kOutOfScale);
            panels_.focus = QueryFocus::Text3;
            return;
        }
        EstimateAtPercent(shared_);
        // Not 0 nor a log value in the place of a dose too large to write.
        if (EstimateOverflowed(shared_))
            throw Fault("the " + shared_.EstimateWord + panels_.Text3 +
                        " or its limits are larger than any number can be (an overflow)");
        setLabel5(PlainText(shared_.WorkValue));
        panels_.Label6 = PlainText(shared_.WorkValue) + " " + shared_.UnitWord;
        if (shared_.UpperLimit + shared_.LowerLimit != 0) {
            panels_.Label19 = PlainText(shared_.LowerLimit);
            panels_.Label20 = PlainText(shared_.UpperLimit);
            panels_.Label14Visible = true;
            panels_.Label18Visible = true;
        }
        panels_.Command3Enabled = false;
        panels_.focus = panels_.Command4Enabled ? QueryFocus::Command4 : QueryFocus::Text3;
    } catch (const Fault& fault) {
        faulted(fault.what());
        panels_.focus = QueryFocus::Text3;
    }
}

void ResultQueries::Command4() {
    panels_.focus = QueryFocus::Unchanged;
    try {
        // Read before the row is added, so that a failure adds nothing.
        const std::string percent = PlainText(NumberOf(panels_.Text3));
        grid2_.addRow();
        const int row = grid2_.rows() - 1;
        grid2_.setCurrent(row, grid2_.currentCol());
        grid2_.setText(row, estimatecol::Percent, percent);
        grid2_.setText(row, estimatecol::Dose, panels_.Label5);
        grid2_.setText(row, estimatecol::Lower, panels_.Label19);
        grid2_.setText(row, estimatecol::Upper, panels_.Label20);
        panels_.Command4Enabled = false;
    } catch (const Fault& fault) {
        faulted(fault.what());
    }
}

void ResultQueries::Command1() {
    panels_.focus = QueryFocus::Unchanged;
    try {
        shared_.WorkValue = NumberOf(panels_.Text2);
        const double dose = shared_.WorkValue;
        if (shared_.fit.Slope > 0) {
            if (dose > shared_.Dose99Percent || dose < shared_.Dose1Percent) {
                port_.warn(kOutOfScale);
                setLabel2("");
                panels_.focus = QueryFocus::Text2;
                return;
            }
        } else if (dose < shared_.Dose99Percent || dose > shared_.Dose1Percent) {
            // With a falling line the dose of 99% is the smaller one. This branch
            // answers with the one word "False".
            port_.tell("False");
            panels_.focus = QueryFocus::Text2;
            return;
        }
        if (!ResponseAtDose(shared_, port_)) {
            // The estimate has told the user already.
            setLabel2("");
            panels_.focus = QueryFocus::Text2;
            return;
        }
        setLabel2(PlainText(shared_.WorkValue));
        panels_.Label3 = FormatNumber(shared_.WorkValue, "0.000") + " %";
        panels_.Command1Enabled = false;
        panels_.focus = panels_.Command2Enabled ? QueryFocus::Command2 : QueryFocus::Text2;
    } catch (const Fault& fault) {
        faulted(fault.what());
        panels_.focus = QueryFocus::Text2;
    }
}

void ResultQueries::Command2() {
    panels_.focus = QueryFocus::Unchanged;
    try {
        // Everything that can fail is read before the row is added, so that a
        // failure adds nothing.
        const std::string percent = FormatNumber(NumberOf(panels_.Label2), "0.00");
        const double scaled = NumberOf(panels_.Text2) * shared_.fit.DoseScale;
        if (!(scaled > 0))
            throw Fault("the dose " + panels_.Text2 + " has no logarithm");
        grid2_.addRow();
        const int row = grid2_.rows() - 1;
        grid2_.setCurrent(row, grid2_.currentCol());
        grid2_.setText(row, estimatecol::Percent, percent);
        grid2_.setText(row, estimatecol::Dose, panels_.Text2);
        shared_.LogEstimate = Log10(scaled);
        if (shared_.fit.GValue < 0.4) {
            FiducialLimits(shared_);
            grid2_.setText(row, estimatecol::Lower, PlainText(shared_.LowerLimit));
            grid2_.setText(row, estimatecol::Upper, PlainText(shared_.UpperLimit));
        }
        panels_.Command2Enabled = false;
    } catch (const Fault& fault) {
        faulted(fault.what());
    }
}

void ResultQueries::SSTab2Click(int tab, bool windowVisible) {
    panels_.SSTab2Tab = tab;
    if (!windowVisible)
        return;
    panels_.focus = tab == 0 ? QueryFocus::Text2 : QueryFocus::Text3;
}

void ResultQueries::faulted(const std::string& reason) {
    port_.tellError(QueryFaultMessage(reason));
}

std::string QueryFaultMessage(const std::string& reason) {
    return "Morvane could not answer this query:\n" + reason + ".";
}

}  // namespace morvane
