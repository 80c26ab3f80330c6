#pragma once
// The comparison window (rtvin, caption "Relative toxicity") as logic: the table of
// line files to compare and every option of the comparison, with the checks that run
// when a field is left, the enable rules and the captions that follow the
// abbreviation.
//
// The window holds no line data: only file paths, line names and options. Each line
// is read anew from its file at every comparison (LineBatch.h). Messages go through
// the UserPort; a refused field puts the focus back by setting `focus`, which the
// shell applies.
//
// The results window belongs to this one as a form loaded on first use: writing the
// caption of one of its check boxes loads it, as the batch does, and it is dropped on
// a failed batch and on the way back from it.

#include <memory>
#include <optional>
#include <string>

#include "core/SharedRegisters.h"
#include "core/TextTable.h"
#include "core/UserPort.h"
#include "relative/FormControls.h"
#include "relative/Rtvout.h"

namespace morvane {

// The controls that can hold the focus after a handler has run.
enum class RtvinFocus { Unchanged, Grid1, Combo1, Text1, Text2, Text3, Text4 };

// Columns of the table of lines Grid1.
namespace linecol {
inline constexpr int Number = 0;  // "no.", the row's number
inline constexpr int Name = 1;    // "Line name"
inline constexpr int Path = 2;    // "File path"
inline constexpr int Count = 3;
}  // namespace linecol

// Keys as the key filters see them.
inline constexpr char kBackspaceKey = 8;
inline constexpr char kReturnKey = 13;

class Rtvin {
  public:
    // The form's load: the empty table, the options at their initial values.
    Rtvin();
    ~Rtvin();
    Rtvin(const Rtvin&) = delete;
    Rtvin& operator=(const Rtvin&) = delete;

    // --- The table of lines: "no.", "Line name", "File path"; an empty table has
    // one blank row whose number is blank.
    TextTable Grid1;

    // --- Options, read directly by the comparison.
    ListControl Combo1;  // abbreviation, editable: "LD", "LC", "LT", "RD", "RC", "RT"
    TextBox Text1;       // the sorted percentage, "50"
    CheckBox Check3;     // "Lower && upper limits"
    CheckBox Check1;     // "Significant differences"
    ListControl Combo2;  // alpha "0.10", "0.05", "0.01"; enters no calculation
    CheckBox Check4;     // "Toxicity index"
    ListControl Combo3;  // reference of the index
    CheckBox Check5;     // "Resistance Ratio (RR)"
    ListControl Combo4;  // reference of the RR
    CheckBox Check2;     // "Slope"
    CheckBox Check7;     // "+/-", the slope's standard error
    ListControl List1;   // further percentages, each a column
    TextBox Text2;       // entry of a further percentage
    TextBox Text4;       // "From": lower end of the drawn part of each line, "20"
    TextBox Text3;       // "To": upper end of the drawn part, "80"

    // --- Captions that follow the abbreviation and the sorted percentage.
    std::string Label1;  // "Sort according LD"
    std::string Frame2;  // "Add LD values", later "Add LD to table"
    std::string Label4;  // "LD"
    std::string Frame4;  // "Sorted LD (50)"
    std::string Label6;  // "From LD"
    std::string Label5;  // "To LD"

    // --- Buttons: 1 add files, 6 remove, 8 remove all, 9 rename, 2 add a percentage,
    // 3 delete a percentage, 4 calculate.
    CommandButton Command1, Command2, Command3, Command4, Command6, Command8, Command9;

    // Timer1 ends the red mark of Text3 after 2000 ms.
    bool Timer1Enabled = false;
    static constexpr int kTimer1Interval = 2000;

    // Form-level flags.
    bool LimitsInvalid = false;     // set by CheckLineLimits, cleared by its caller
    bool ReturningToInput = false;  // set by Command11 before the form unloads
    bool LogOnly = false;           // the estimate stops at the log dose (batch)

    // Where a handler put the focus; the shell applies and resets it.
    RtvinFocus focus = RtvinFocus::Unchanged;

    // The batch disables the window and shows the progress panel while it runs.
    bool enabled = true;
    bool panelVisible = false;

    // --- The results window, loaded on first use.
    bool rtvoutLoaded() const { return rtvout_ != nullptr; }
    Rtvout& LoadRtvout();
    Rtvout* rtvout() { return rtvout_.get(); }
    void UnloadRtvout();

    // --- Commands and events.
    // Add files: one open dialog after the other until the user cancels.
    void Command1Click(UserPort& port);
    // Remove the selected row.
    void Command6Click();
    // Remove all rows after a question.
    void Command8Click(UserPort& port);
    // Rename the selected line.
    void Command9Click(UserPort& port);
    // Move Text2 into List1.
    void Command2Click(UserPort& port);
    // Remove the selected item of List1.
    void Command3Click();
    // "back to Input tabls": the form is to unload and the input window come back.
    void Command11Click() { ReturningToInput = true; }
    // The unload. Returns true when the input window is to come back (the caller
    // resets its document); false when closing this window ends the program. Zeroes
    // the last limits held in the shared registers on the way back.
    bool Unload(SharedRegisters& shared);

    // The selection of a row of Grid1: the hints of Remove and Rename.
    void Grid1Click(int row);
    void RefreshReferenceLists();
    // The command channel: "1" refreshes the reference lists, "2" adds files.
    void TextMsg(const std::string& code, UserPort& port);

    void Combo1LostFocus();
    void Text1LostFocus(UserPort& port);
    void Text2LostFocus();
    void Text3LostFocus(UserPort& port);
    void Text4LostFocus(UserPort& port);
    void Text2Change(const std::string& text);
    void Timer1Tick();

    void Check3Click(bool checked);
    void Check4Click(bool checked);
    void Check5Click(bool checked);
    void List1Click(int index);

    // Whether a key typed into a field passes its filter: Text1 and Text2 take
    // digits, backspace, the comma and the point (Text2 also Return), Text3 and Text4
    // digits and backspace.
    static bool KeyAccepted(RtvinFocus field, char key);
    // A key typed into Text2: Return runs Command2 when it is enabled.
    void Text2KeyPress(char key, UserPort& port);

    // Tests the drawn limits before a comparison: From must be below To, as whole
    // numbers. Sets LimitsInvalid and tells the user otherwise.
    void CheckLineLimits(UserPort& port);

  private:
    void setLinesButtons(bool enabled);
    void writeRtvoutChecks(const std::string& check2Word);
    const std::string& abbreviation() const { return Combo1.text; }

    std::unique_ptr<Rtvout> rtvout_;
};

// The line name that the window gives a file: its title less the last four
// characters (the extension with its dot). None when the title is shorter.
std::optional<std::string> LineNameOfFile(const std::string& path);

}  // namespace morvane
