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
        selectOption(FactorOption::Con, shared);
    } else if (text == "week" || text == "day" || text == "hour" || StartsWith(text, "sec") ||
               StartsWith(text, "min")) {
        controls.ComboUnit2.clear();
        selectOption(FactorOption::Time, shared);
    } else {
        selectOption(controls.ComboUnit2.empty() ? FactorOption::Dose : FactorOption::Con, shared);
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
        selectOption(FactorOption::Dose, shared);
        return;
    }
    std::string unit = controls.ComboUnit1;
    if (!controls.ComboUnit2.empty()) {
        unit += " / " + controls.ComboUnit2;
        selectOption(FactorOption::Con, shared);
    }
    LabelUnits = unit;
}

void FileOptions::selectOption(FactorOption option, SharedRegisters& shared) {
    const int button = static_cast<int>(option);
    if (button < 1 || button > 3)
        return;
    controls.FactorOption = static_cast<std::int16_t>(option);
    HighlightedOption = option;
    // "Dose" leaves DoseWord alone; the OK routine sets it in all three cases.
    if (option != FactorOption::Dose)
        shared.DoseWord = kFactorCaptions[button - 1];
}

std::optional<bool> FileOptions::DeriveLineWords(SharedRegisters& shared) {
    LineOptions& c = controls;
    std::optional<bool> controlEach;
    if (c.unitsTab() == UnitsTab::AdjustUnits) {
        c.Combo5 = "Dose";
        c.Combo6 = "LD";
        c.Text5.clear();
        c.Check3 = 0;
        const int button = c.FactorOption;
        if (button >= 1 && button <= 3) {
            static const char* const kEstimates[] = {"LD", "LC", "LT"};
            shared.DoseWord = kFactorCaptions[button - 1];
            shared.EstimateWord = kEstimates[button - 1];
            controlEach = c.factor() == FactorOption::Time;
        }
        shared.UnitWord = LabelUnits;
    } else {
        selectOption(FactorOption::Dose, shared);
        if (!c.ComboUnit1.empty())
            setComboUnit1("", shared);
        if (!c.ComboUnit2.empty())
            setComboUnit2("", shared);
        shared.DoseWord = c.Combo5;
        shared.UnitWord = c.Text5;
        shared.EstimateWord = c.Combo6;
        controlEach = c.Check3 == 1;
    }
    return controlEach;
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
