#pragma once
// The options of one line and the dialog that holds them.
//
// LineOptions is the value of every control of the "New Line" dialog, FileOptions,
// which is at once the user's dialog for a new file and the store that the rest of
// the program reads the current line's options from, also while it is hidden. The
// rules of the dialog that need no document live here: the unit rules that pick the
// factor type, the composed unit label, the enabling of "Replicates weighting", the
// highlight of a chosen option. The OK and Cancel routines change the document and
// are LineDocument's (document/LineDocument.h).

#include <cstdint>
#include <string>

#include "core/SharedRegisters.h"

namespace morvane {

// The controls of FileOptions, named as the dialog names them. Counts and flags are
// 16-bit as the line file stores them.
struct LineOptions {
    // "Input data type": 0 "Responded and Non responded", 1 "Total and Responded",
    // 2 "Response percentage".
    std::int16_t ComboDataType = 0;
    std::int16_t Tab1 = 0;   // 0 "Adjust units", 1 "Customize units"
    std::string ComboUnit1;  // first unit, tab 0
    std::string ComboUnit2;  // second unit ("per"), tab 0
    // The selected option button of tab 0: 1 "Dose", 2 "Con.", 3 "Time", 0 none.
    std::int16_t FactorOption = 1;
    std::string Combo5 = "Dose";  // custom factor, tab 1
    std::string Combo6 = "LD";    // custom abbreviation, tab 1
    std::string Text5;            // custom units, tab 1
    std::int16_t Check3 = 0;      // "Control associates each treatment", tab 1
    std::string Combo7 = "0.05";  // "Alpha", the "Probability of T value"
    std::int16_t Check2 = 0;      // "Replicates weighting"
    std::int16_t Check4 = 0;      // "Always use last state as default"

    friend bool operator==(const LineOptions&, const LineOptions&) = default;
};

// The lists of the dialog's combo boxes.
inline const char* const kDataTypeNames[] = {"Responded and Non responded", "Total and Responded",
                                             "Response percentage"};
inline const char* const kAlphaTexts[] = {"0.10", "0.05", "0.01"};
inline const char* const kFactorCaptions[] = {"Dose", "Con.", "Time"};

class FileOptions {
  public:
    LineOptions controls;
    std::string LabelUnits;  // the composed unit shown on tab 0
    bool Visible = false;    // the dialog is on the screen
    // The option button whose caption is painted red until the highlight ends
    // (Timer1, 1000 ms); 0 for none.
    int HighlightedOption = 0;

    // "Replicates weighting" can be ticked only for counts.
    bool Check2Enabled() const { return controls.ComboDataType != 2; }
    // The list index of Combo7: 0 "0.10", 1 "0.05", 2 "0.01", -1 for another text.
    int TAlpha() const;
    // Whether replicates are weighted: Check2 ticked and enabled.
    bool ReplicatesWeighting() const { return controls.Check2 == 1 && Check2Enabled(); }

    // Events of the dialog's controls, with the dialog's rules.
    // ComboUnit1 changed or clicked: a ratio unit ("ppb", "ppm", "ppt", "%") gives
    // "Con." and empties ComboUnit2; a time ("week", "day", "hour", a text that begins
    // with "sec" or "min", case as typed) gives "Time" and empties ComboUnit2;
    // otherwise "Con." with a second unit, else "Dose". Then UpdateUnitsLabel.
    void setComboUnit1(const std::string& text, SharedRegisters& shared);
    // ComboUnit2 changed: UpdateUnitsLabel.
    void setComboUnit2(const std::string& text, SharedRegisters& shared);
    // Composes LabelUnits from the two units and selects the option they imply.
    void UpdateUnitsLabel(SharedRegisters& shared);
    // An option button chosen (1 "Dose", 2 "Con.", 3 "Time"): it is highlighted, and
    // "Con." and "Time" put their caption in DoseWord.
    void selectOption(int option, SharedRegisters& shared);
    // The highlight's timer ticked.
    void endHighlight() { HighlightedOption = 0; }
    // ComboDataType chosen; Check2's enabling follows it.
    void setDataType(std::int16_t index) { controls.ComboDataType = index; }
    // Leaving Combo5 or Combo6 empty puts it on its first entry.
    void leaveCombo5();
    void leaveCombo6();
};

}  // namespace morvane
