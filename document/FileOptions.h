#pragma once
// The options of one line and the dialog that holds them.
//
// LineOptions is the value of every control of the "New Line" dialog, FileOptions,
// which is at once the user's dialog for a new file and the store that the rest of
// the program reads the current line's options from, also while it is hidden. The
// rules of the dialog that need no document live here: the unit rules that pick the
// factor type, the composed unit label, the enabling of "Replicates weighting", the
// highlight of a chosen option, the words the options give the line. The OK and
// Cancel routines change the document and are LineDocument's (document/LineDocument.h).

#include <cstdint>
#include <optional>
#include <string>

#include "core/SharedRegisters.h"

namespace morvane {

// "Input data type", the list of ComboDataType in its order.
enum class DataType : std::int16_t {
    RespondedAndNonResponded = 0,  // "Responded and Non responded"
    TotalAndResponded = 1,         // "Total and Responded"
    ResponsePercentage = 2,        // "Response percentage"
};

// The option buttons of the factor type on tab 0.
enum class FactorOption : std::int16_t { None = 0, Dose = 1, Con = 2, Time = 3 };

// The tabs of the dialog, Tab1.
enum class UnitsTab : std::int16_t { AdjustUnits = 0, CustomizeUnits = 1 };

// The controls of FileOptions, named as the dialog names them. The fields hold the
// numbers the line file stores, 16-bit; the logic reads them through the typed
// accessors.
struct LineOptions {
    std::int16_t ComboDataType = 0;  // a DataType
    std::int16_t Tab1 = 0;           // a UnitsTab
    std::string ComboUnit1;          // first unit, tab 0
    std::string ComboUnit2;          // second unit ("per"), tab 0
    std::int16_t FactorOption = 1;   // the selected option button of tab 0, a FactorOption
    std::string Combo5 = "Dose";     // custom factor, tab 1
    std::string Combo6 = "LD";       // custom abbreviation, tab 1
    std::string Text5;               // custom units, tab 1
    std::int16_t Check3 = 0;         // "Control associates each treatment", tab 1
    std::string Combo7 = "0.05";     // "Alpha", the "Probability of T value"
    std::int16_t Check2 = 0;         // "Replicates weighting"
    std::int16_t Check4 = 0;         // "Always use last state as default"

    DataType dataType() const { return static_cast<DataType>(ComboDataType); }
    UnitsTab unitsTab() const { return static_cast<UnitsTab>(Tab1); }
    morvane::FactorOption factor() const {
        return static_cast<morvane::FactorOption>(FactorOption);
    }
    void setUnitsTab(UnitsTab tab) { Tab1 = static_cast<std::int16_t>(tab); }

    friend bool operator==(const LineOptions&, const LineOptions&) = default;
};

// What the options give the tables of the line: the data type and whether replicates
// are weighted by their totals.
struct TableRules {
    DataType dataType = DataType::RespondedAndNonResponded;
    bool weighting = false;
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
    // (Timer1, 1000 ms).
    FactorOption HighlightedOption = FactorOption::None;

    // "Replicates weighting" can be ticked only for counts.
    bool Check2Enabled() const { return controls.dataType() != DataType::ResponsePercentage; }
    // The list index of Combo7: 0 "0.10", 1 "0.05", 2 "0.01", -1 for another text.
    int TAlpha() const;
    // Whether replicates are weighted: Check2 ticked and enabled.
    bool ReplicatesWeighting() const { return controls.Check2 == 1 && Check2Enabled(); }
    TableRules tableRules() const { return {controls.dataType(), ReplicatesWeighting()}; }

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
    // An option button chosen: it is highlighted, and "Con." and "Time" put their
    // caption in DoseWord. None (or a number outside the buttons, read from a file)
    // changes nothing.
    void selectOption(FactorOption option, SharedRegisters& shared);
    // The highlight's timer ticked.
    void endHighlight() { HighlightedOption = FactorOption::None; }
    // ComboDataType chosen; Check2's enabling follows it.
    void setDataType(DataType type) { controls.ComboDataType = static_cast<std::int16_t>(type); }
    // The words of the line as OK derives them from the dialog: DoseWord, UnitWord and
    // EstimateWord from the option button and the composed unit on "Adjust units" (the
    // custom boxes going back to their first entries), or from the custom boxes on
    // "Customize units" (the units of tab 0 emptied). Gives whether a control stands
    // with each treatment ("Time", or Check3), or nothing when tab 0 has no option
    // selected, which leaves that as it was.
    std::optional<bool> DeriveLineWords(SharedRegisters& shared);
    // Leaving Combo5 or Combo6 empty puts it on its first entry.
    void leaveCombo5();
    void leaveCombo6();
};

}  // namespace morvane
