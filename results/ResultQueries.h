#pragma once
// The two small calculators beside the results tables, which ask the fitted line a
// question: tab 0 gives the dose for any response percent (with its fiducial
// limits), tab 1 the response percent of any dose. Each result can be added as a row
// of the estimates table Grid2, where it stays until the next calculation and goes
// out with every export.
//
// The panels are kept as the state of their controls (texts, captions, enabled and
// visible flags). The desktop shell binds its widgets to this state: it forwards the
// user's typing and clicks to the event functions below and reads the state back
// after each call. Messages go through the UserPort. The estimates themselves are
// those of core/DoseEstimates.h and talk through the shared registers.

#include <string>

#include "core/ResultsTables.h"
#include "core/SharedRegisters.h"
#include "core/TextTable.h"
#include "core/UserPort.h"

namespace morvane {

// Where a handler sends the keyboard focus; Unchanged when it does not move it.
enum class QueryFocus { Unchanged, Text2, Text3, Command2, Command4 };

// The state of the controls of the two panels (tab strip SSTab2).
struct QueryPanels {
    int SSTab2Tab = 0;           // 0 the estimate for a percent, 1 the response of a dose
    std::string SSTab2Caption0;  // "Calculate any LD value"
    std::string SSTab2Caption1;  // "Calculate Response of any Dose"

    // Tab 0: the estimate for any response.
    std::string Label4;            // "The LD"
    std::string Text3;             // the response percent the user types
    bool Command3Enabled = false;  // "is"
    std::string Label5;            // the estimated dose as plain number text; what "Add" reads
    std::string Label6;            // what the user reads: the dose, " ", the unit
    std::string Label14 = "Lower limit";
    bool Label14Visible = false;
    std::string Label19;  // the lower limit as plain number text
    std::string Label18 = "Upper limit";
    bool Label18Visible = false;
    std::string Label20;           // the upper limit as plain number text
    bool Command4Enabled = false;  // "Add to list >>"

    // Tab 1: the response of any dose.
    std::string Label1 = "The responce of";
    std::string Text2;             // the dose the user types, in the user's units
    std::string Label9;            // the unit word
    bool Command1Enabled = false;  // "is"
    std::string Label2;            // the response percent as plain number text; what "Add" reads
    std::string Label3 = "%";      // what the user reads: the percent, "0.000", then " %"
    bool Label3Visible = false;
    bool Command2Enabled = false;  // "Add to list >>"

    QueryFocus focus = QueryFocus::Unchanged;  // where the last handler put the focus
};

class ResultQueries {
  public:
    // The queries read the fitted line, the words and Dose1Percent / Dose99Percent from
    // the shared registers, and add rows to grid2 (the estimates table). All three
    // must outlive this object.
    ResultQueries(SharedRegisters& shared, UserPort& port, TextTable& grid2);

    const QueryPanels& panels() const { return panels_; }

    // The panels as a freshly loaded results window has them.
    void reset();

    // The captions that depend on the line's words: the two tab captions and Label4
    // (set when the estimates table is built), Label9 (set when the window activates).
    void setEstimateCaptions();
    void setUnitCaption();

    // The number boxes Text2 and Text3. Setting a text that differs from the box's
    // runs its change handler; the same text does nothing.
    void setText2(const std::string& text);
    void setText3(const std::string& text);
    // The user types the characters over the whole text of the box, which is selected
    // when the box gets the focus: each character that the box lets through (digits,
    // comma, period) is a change of the box, even when the text comes out the same; an
    // empty string deletes the text. Returns false when the box swallowed a character.
    // Backspace and Enter are not typed through here.
    bool typeText2(const std::string& keys);
    bool typeText3(const std::string& keys);
    // On leaving a box with text in it: the text becomes the plain text of its
    // number, or the user is told "invaled value!" and the text stays.
    void Text2LostFocus();
    void Text3LostFocus();
    // Enter in the boxes runs the "is" handlers, whether the buttons are enabled or not.
    void Text2Enter() { Command1(); }
    void Text3Enter() { Command3(); }
    // The keys the number boxes let through: digits, Backspace (8), Enter (13),
    // comma and period. Any other key is swallowed.
    static bool NumberBoxAcceptsKey(char key);

    // The buttons. A disabled button is never clicked, so the shell calls these only
    // while the matching flag is set; the handlers themselves do not look at it.
    void Command3();  // "is" on tab 0: the estimate for the percent in Text3
    void Command4();  // "Add to list >>" on tab 0
    void Command1();  // "is" on tab 1: the response of the dose in Text2
    void Command2();  // "Add to list >>" on tab 1

    // A click on a tab of SSTab2 while the window is visible. The focus goes to the
    // box of the other tab: Text2 for tab 0, Text3 for tab 1, as the window has it.
    void SSTab2Click(int tab, bool windowVisible);

  private:
    bool type(std::string& box, const std::string& keys, void (ResultQueries::*changed)());
    // The change handlers of the boxes.
    void Text2Change();
    void Text3Change();
    void setLabel2(const std::string& text);
    void setLabel5(const std::string& text);
    void faulted(const std::string& reason);

    SharedRegisters& shared_;
    UserPort& port_;
    TextTable& grid2_;
    QueryPanels panels_;
};

// The text of the message that tells the user a query could not be answered.
std::string QueryFaultMessage(const std::string& reason);

}  // namespace morvane
