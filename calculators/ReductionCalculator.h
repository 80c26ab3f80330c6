#pragma once
// The Reduction % calculator ("Reduction %"): the percentage by which a treatment
// reduced a pest population, for field trials that have no dose-response line, by
// one of four published formulas, one tab each:
//   Abbott (1925):             (1 - Ta / Ca) * 100
//   Henderson & Tilton (1955): (1 - (Ta * Cb) / (Tb * Ca)) * 100
//   Schneider-Orelli (1947):   (Mt - Mc) / (100 - Mc) * 100
//   Sun & Shepard (1947):      (Mt + Cc) / (100 + Cc) * 100
// with T and C the treated and control populations before (b) and after (a)
// treatment, M the mortality % and Cc the change % of the control population.
//
// The calculator owns its input boxes (as text) and one result table per formula.
// A table has a heading row, one row per accepted input, and a trailing empty row;
// column 0 holds the running number. Results leave it only as the text of
// CopyTable. Refusals are told through the user port; none changes anything.
//
// The bounds of each formula are kept as they stand, also where they look uneven:
// 100 is a treated mortality but not a control mortality, 0 a treated population
// but not a control population, and the Sun-Shepard check is on +100 while its
// divisor vanishes at -100, which then ends in the conversion message.

#include <optional>
#include <string>
#include <vector>

#include "core/TextTable.h"
#include "core/UserPort.h"

namespace morvane {

class ReductionCalculator {
  public:
    // The tabs, numbered as the tab control numbers them; the calculator opens on Guide.
    enum class Tab {
        Abbott = 0,
        HendersonTilton = 1,
        SchneiderOrelli = 2,
        SunShepard = 3,
        Guide = 4
    };
    static constexpr int kTabCount = 5;
    static constexpr int kFormulaCount = 4;

    // The input boxes, by their names on the window.
    enum class Box { Text1, Text2, Text4, Text5, Text6, Text7, Text9, Text10, Text12, Text13 };

    // The port must outlive the calculator.
    explicit ReductionCalculator(UserPort& port);

    // The text of a box. Setting it is a user's typing: nothing is checked until the
    // box is left or OK is pressed.
    const std::string& text(Box box) const;
    void setText(Box box, std::string text);

    // Leaving a box: a text that isn't empty becomes the plain text of its number.
    // A text that holds no number is told as "invaled value!" and false comes back;
    // the focus belongs back in the box.
    bool leave(Box box);

    // "OK >" of a formula tab: checks the inputs in their order and adds a result row.
    // Returns the box that gets the focus: the first box of the tab after a result,
    // the box concerned after a refusal.
    Box OK(Tab tab);
    // "Erase all": the table back to its heading and one empty row, the tab's boxes
    // emptied (see EraseAllBoxes for Sun-Shepard). Returns the box that gets the focus.
    Box EraseAll(Tab tab);
    // "Copy table": every row of the table, the empty last one too, its cells joined
    // by tabs and each row ended by a line feed.
    std::string CopyTable(Tab tab) const;

    const TextTable& grid(Tab tab) const;

    // The boxes of a tab in their order (none for Guide), its first box, and the box
    // after or before a box within its tab.
    static std::vector<Box> Boxes(Tab tab);
    static std::optional<Box> FirstBox(Tab tab);
    static std::optional<Box> NextBox(Box box);
    static std::optional<Box> PreviousBox(Box box);
    // Whether the box is the last of its tab, where Enter runs the tab's OK.
    static bool IsLastBox(Box box);
    static Tab TabOf(Box box);
    // The boxes that "Erase all" empties. Sun-Shepard's button empties the two boxes
    // of Schneider-Orelli and leaves its own as they are; that is how it has always
    // behaved, and users' habits rely on the values staying.
    static std::vector<Box> EraseAllBoxes(Tab tab);

    // Whether a box takes a typed key: digits, backspace (8), Enter (13), the point,
    // the comma and the minus sign.
    static bool KeyAllowed(char key);

    static const char* TabCaption(Tab tab);
    static const char* BoxName(Box box);

  private:
    struct Refusal {
        Box box;
        bool told = false;  // whether the check has told the user already
    };
    double valueOf(Box box) const;  // throws Refusal when the text holds no number
    void refuse(Box box, const std::string& text);
    double resultOf(Tab tab);  // throws Refusal
    void addResultRow(Tab tab, const std::vector<Box>& boxes, double result);
    TextTable& table(Tab tab);

    UserPort& port_;
    std::vector<std::string> texts_;
    std::vector<TextTable> grids_;
};

}  // namespace morvane
