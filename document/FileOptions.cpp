#include "document/FileOptions.h"

namespace morvane {
namespace {

bool StartsWith(const std::string& text, const char* head) {
    return text.rfind(head, 0) == 0;
}

}  // namespace

int FileOptions::TAlpha() const {
    for (int i = 0; i < 3; ++i)
        if (controls.Combo7 == kAlphaTexts[i])
            return i;
    return -1;
}

void FileOptions::setComboUnit1(const std::string& text, SharedRegisters& shared) {
    controls.ComboUnit1 = text;
    // The option buttons follow the unit: a ratio is a concentration, a time is a
    // time, a mass per volume a concentration, a mass a dose. The comparison is exact
    // in case, and only the first three letters of "sec" and "min" count.
    if (text == "ppb" || text == "ppm" || text == "ppt" || text == "%") {
        controls.ComboUnit2.clear();
        selectOption(2, shared);
    } else if (text == "week" || text == "day" || text == "hour" || StartsWith(text, "sec") ||
               StartsWith(text, "min")) {
        controls.ComboUnit2.clear();
        selectOption(3, shared);
    } else {
        selectOption(controls.ComboUnit2.empty() ? 1 : 2, shared);
    }
    UpdateUnitsLabel(shared);
}

void FileOptions::setComboUnit2(const std::string& text, SharedRegisters& shared) {
    controls.ComboUnit2 = text;
    UpdateUnitsLabel(shared);
}

void FileOptions::UpdateUnitsLabel(SharedRegisters& shared) {
    LabelUnits.clear();
    if (controls.ComboUnit1.empty()) {
        selectOption(1, shared);
        return;
    }
    std::string unit = controls.ComboUnit1;
    if (!controls.ComboUnit2.empty()) {
        unit += " / " + controls.ComboUnit2;
        selectOption(2, shared);
    }
    LabelUnits = unit;
}

void FileOptions::selectOption(int option, SharedRegisters& shared) {
    if (option < 1 || option > 3)
        return;
    controls.FactorOption = static_cast<std::int16_t>(option);
    HighlightedOption = option;
    // "Dose" leaves DoseWord alone; the OK routine sets it in all three cases.
    if (option != 1)
        shared.DoseWord = kFactorCaptions[option - 1];
}

void FileOptions::leaveCombo5() {
    if (controls.Combo5.empty())
        controls.Combo5 = "Dose";
}

void FileOptions::leaveCombo6() {
    if (controls.Combo6.empty())
        controls.Combo6 = "LD";
}

}  // namespace morvane
