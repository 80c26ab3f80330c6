#include "relative/Rtvin.h"

#include <cerrno>
#include <cstring>

#include "core/NumberText.h"

namespace morvane {
namespace {

const char* const kFirstOne = "1st one";
const char* const kLastOne = "Last one";
const char* const kInvalidValue = "invaled value!";

// The value of a field that the window converts to a 16-bit integer, rounded to the
// even neighbour at a half. None when the text holds no number or it does not fit.
std::optional<int> WholeNumber16(const std::string& text) {
    const auto value = ParseNumber(text);
    if (!value)
        return std::nullopt;
    const auto rounded = RoundHalfEven32(*value);
    if (!rounded || *rounded < -32768 || *rounded > 32767)
        return std::nullopt;
    return *rounded;
}

}  // namespace

std::optional<std::string> LineNameOfFile(const std::string& path) {
    const auto slash = path.find_last_of('/');
    const std::string title = slash == std::string::npos ? path : path.substr(slash + 1);
    if (title.size() < 4)
        return std::nullopt;
    return title.substr(0, title.size() - 4);
}

Rtvin::Rtvin() : Grid1(2, linecol::Count) {
    Grid1.setText(0, linecol::Number, "no.");
    Grid1.setText(0, linecol::Name, "Line name");
    Grid1.setText(0, linecol::Path, "File path");
    Grid1.setColumnWidth(linecol::Number, 400);
    Grid1.setColumnWidth(linecol::Name, 1300);
    Grid1.setColumnWidth(linecol::Path, 4700);
    Grid1.setCurrent(1, linecol::Path);

    Combo1 = ListControl{{"LD", "LC", "LT", "RD", "RC", "RT"}, 0, "LD", true};
    Text1.text = "50";
    Check3 = CheckBox{true, true, "Lower && upper limits"};
    Check1 = CheckBox{true, true, "Significant differences"};
    Combo2 = ListControl{{"0.10", "0.05", "0.01"}, 1, "", true};
    Check4 = CheckBox{true, true, "Toxicity index"};
    Combo3 = ListControl{{kFirstOne, kLastOne}, 0, "", true};
    Check5 = CheckBox{true, true, "Resistance Ratio (RR)"};
    Combo4 = ListControl{{kFirstOne, kLastOne}, 0, "", true};
    Check2 = CheckBox{true, true, "Slope"};
    Check7 = CheckBox{false, true, "+/-"};
    List1 = ListControl{{"90"}, -1, "", true};
    Text4.text = "20";
    Text3.text = "80";

    Label1 = "Sort according LD";
    Frame2 = "Add LD values";
    Label4 = "LD";
    Frame4 = "Sorted LD (50)";
    Label6 = "From LD";
    Label5 = "To LD";

    Command1 = CommandButton{true, "Add new file to comparison"};
    Command2 = CommandButton{false, "Add"};
    Command3 = CommandButton{false, "delete"};
    Command4 = CommandButton{false, "Calculate"};
    Command6 = CommandButton{false, "Remove "};
    Command8 = CommandButton{false, "Remove all files from the table"};
    Command9 = CommandButton{false, "Rename "};
}

Rtvin::~Rtvin() = default;

Rtvout& Rtvin::LoadRtvout() {
    if (!rtvout_)
        rtvout_ = std::make_unique<Rtvout>();
    return *rtvout_;
}

void Rtvin::UnloadRtvout() {
    rtvout_.reset();
}

void Rtvin::setLinesButtons(bool on) {
    Command4.enabled = on;
    Command6.enabled = on;
    Command8.enabled = on;
    Command9.enabled = on;
}

void Rtvin::Command1Click(UserPort& port) {
    const FileDialog dialog{"Open Morvane file", "Morvane files (*.mrv)|*.mrv", "", ""};
    for (;;) {
        const auto path = port.openFileName(dialog);
        if (!path) {
            // The dialog's Cancel ends the loop and refreshes the reference lists.
            TextMsg("1", port);
            return;
        }
        // The first file fills the blank row of an empty table; later files append.
        int row = Grid1.rows() - 1;
        if (!Grid1.text(row, linecol::Number).empty()) {
            Grid1.addRow();
            row = Grid1.rows() - 1;
        }
        Grid1.setCurrent(row, Grid1.currentCol());
        Grid1.setText(row, linecol::Number, std::to_string(row));
        const auto name = LineNameOfFile(*path);
        if (!name) {
            // A title too short to lose its extension stops the loop, as a failing
            // dialog does, without refreshing the lists.
            port.tellError(std::string("An error was occurred while opening this file.\n") +
                           std::strerror(EINVAL));
            return;
        }
        Grid1.setText(row, linecol::Name, *name);
        Grid1.setText(row, linecol::Path, *path);
        Grid1.setCurrent(row, linecol::Path);
        setLinesButtons(true);
    }
}

void Rtvin::Command6Click() {
    if (Grid1.rows() == 2) {
        // The only row is blanked but keeps its number, so the next file appends.
        Grid1.setCurrent(1, Grid1.currentCol());
        Grid1.setText(1, linecol::Name, "");
        Grid1.setText(1, linecol::Path, "");
        setLinesButtons(false);
        RefreshReferenceLists();
        return;
    }
    const int removed = Grid1.currentRow();
    // Names and paths move up; the numbers stay with the row positions.
    for (int row = removed + 1; row < Grid1.rows(); ++row) {
        Grid1.setText(row - 1, linecol::Name, Grid1.text(row, linecol::Name));
        Grid1.setText(row - 1, linecol::Path, Grid1.text(row, linecol::Path));
    }
    Grid1.setRows(Grid1.rows() - 1);
    RefreshReferenceLists();
    const int selected = removed == 1 ? 1 : removed - 1;
    Grid1Click(selected);
    Grid1.setCurrent(selected, linecol::Path);
}

void Rtvin::Command8Click(UserPort& port) {
    const Message question{"That will delete all lines in the table", Buttons::OkCancel, Icon::None,
                           Answer::Ok};
    if (port.ask(question) == Answer::Cancel)
        return;
    Grid1.setRows(2);
    Grid1.setCurrent(1, Grid1.currentCol());
    for (int col = 0; col < Grid1.cols(); ++col)
        Grid1.setText(1, col, "");
    // These lists differ on purpose from those RefreshReferenceLists builds; the next
    // added file replaces them.
    Combo3.items = {"1 st one", kLastOne};
    Combo4.items = {kLastOne, "1 st one"};
    Combo3.listIndex = 0;
    Combo4.listIndex = 0;
    setLinesButtons(false);
}

void Rtvin::Command9Click(UserPort& port) {
    const int row = Grid1.currentRow();
    Grid1.setCurrent(row, linecol::Name);
    const auto answer = port.inputBox(
        InputRequest{"Set the new line name ", "New line name", Grid1.text(row, linecol::Name)});
    if (!answer || answer->empty())
        return;
    Grid1.setText(row, linecol::Name, *answer);
    RefreshReferenceLists();
}

void Rtvin::Command2Click(UserPort& port) {
    const auto value = ParseNumber(Text2.text);
    if (!value) {
        port.warn(kInvalidValue);
        focus = RtvinFocus::Text2;
        return;
    }
    if (*value > 99.9 || *value < 0.1) {
        port.warn("This value is out of scale");
        focus = RtvinFocus::Text2;
        return;
    }
    // The text goes in as typed: the further percentages allow 0.1 to 99.9.
    List1.items.push_back(Text2.text);
    Text2Change("");
}

void Rtvin::Command3Click() {
    if (List1.listIndex < 0 || List1.listIndex > List1.lastIndex())
        return;
    List1.items.erase(List1.items.begin() + List1.listIndex);
    List1.listIndex = -1;
    Command3.enabled = false;
}

bool Rtvin::Unload(SharedRegisters& shared) {
    UnloadRtvout();
    if (!ReturningToInput)
        return false;
    ReturningToInput = false;
    shared.LowerLimit = 0;
    shared.UpperLimit = 0;
    return true;
}

void Rtvin::Grid1Click(int row) {
    Grid1.setCurrent(row, linecol::Name);
    Command6.hint = "Remove " + Grid1.text(row, linecol::Name);
    Command9.hint = "Rename " + Grid1.text(row, linecol::Name);
}

void Rtvin::RefreshReferenceLists() {
    Combo3.items = {kFirstOne};
    Combo4.items = {kFirstOne};
    const int row = Grid1.currentRow();
    for (int r = 1; r < Grid1.rows(); ++r) {
        const std::string& name = Grid1.text(r, linecol::Name);
        if (name.empty())
            continue;
        Combo3.items.push_back(name);
        Combo4.items.push_back(name);
    }
    Combo3.items.push_back(kLastOne);
    Combo4.items.push_back(kLastOne);
    Combo3.listIndex = 0;
    Combo4.listIndex = 0;
    // The walk leaves the grid on column 1 of the row it started from.
    Grid1.setCurrent(row, linecol::Name);
}

void Rtvin::TextMsg(const std::string& code, UserPort& port) {
    if (code == "1") {
        RefreshReferenceLists();
    } else if (code == "2") {
        Command1Click(port);
    }
}

void Rtvin::writeRtvoutChecks(const std::string& check2Word) {
    Rtvout& results = LoadRtvout();
    results.Check1.caption = abbreviation() + " " + Text1.text;
    results.Check2.caption = abbreviation() + " " + Text1.text + check2Word;
}

void Rtvin::Combo1LostFocus() {
    if (Combo1.text.empty())
        Combo1.text = "LD";
    const std::string& a = abbreviation();
    Label1 = "Sort according " + a;
    Frame2 = "Add " + a + " to table";
    Label4 = a;
    Frame4 = "Sorted " + a + " (" + Text1.text + ")";
    Label6 = "From " + a;
    Label5 = "To " + a;
    writeRtvoutChecks(" values");
}

void Rtvin::Text1LostFocus(UserPort& port) {
    const auto value = ParseNumber(Text1.text);
    if (!value) {
        port.warn(kInvalidValue);
        return;
    }
    if (*value < 1 || *value > 99) {
        port.tell("Sorted " + abbreviation() + " value msut be between 1 and 99");
        Text1.text = PlainText(*value);
        focus = RtvinFocus::Text1;
        return;
    }
    Frame4 = "Sorted " + abbreviation() + " (" + Text1.text + ")";
    const auto upper = ParseNumber(Text3.text);
    if (!upper) {
        port.warn(kInvalidValue);
        return;
    }
    if (*upper < *value) {
        // The upper end of the drawn lines follows, red for a moment.
        Text3.text = Text1.text;
        Timer1Enabled = true;
        Text3.fore = kRed;
    }
    // Here the word is singular, unlike the caption that Combo1 writes.
    writeRtvoutChecks(" value");
    Text1.text = PlainText(*value);
}

void Rtvin::Text2LostFocus() {
    if (Text2.text.empty())
        return;
    if (const auto value = ParseNumber(Text2.text))
        Text2Change(PlainText(*value));
}

void Rtvin::Text3LostFocus(UserPort& port) {
    const auto value = WholeNumber16(Text3.text);
    if (!value) {
        port.warn(kInvalidValue);
        focus = RtvinFocus::Text3;
        return;
    }
    Text3.text = std::to_string(*value);
    if (*value > 99 || *value < 1) {
        port.tell(abbreviation() + " value of Line limits msut be between 1 and 99");
        focus = RtvinFocus::Text3;
    }
}

void Rtvin::Text4LostFocus(UserPort& port) {
    const auto value = ParseNumber(Text4.text);
    if (!value) {
        port.warn(kInvalidValue);
        return;
    }
    // Unlike "To", "From" keeps a fraction.
    Text4.text = PlainText(*value);
    if (*value > 99 || *value < 1) {
        port.tell(abbreviation() + " value of Line limits msut be between 1 and 99");
        focus = RtvinFocus::Text4;
    }
}

void Rtvin::Text2Change(const std::string& text) {
    Text2.text = text;
    Command2.enabled = !text.empty();
}

void Rtvin::Timer1Tick() {
    Text3.fore = Text1.fore;
    Timer1Enabled = false;
}

void Rtvin::Check3Click(bool checked) {
    Check3.checked = checked;
    Check1.enabled = checked;
    Check1.checked = checked;
    Combo2.enabled = checked;
}

void Rtvin::Check4Click(bool checked) {
    Check4.checked = checked;
    Combo3.enabled = checked;
}

void Rtvin::Check5Click(bool checked) {
    Check5.checked = checked;
    Combo4.enabled = checked;
}

void Rtvin::List1Click(int index) {
    List1.listIndex = index;
    Command3.enabled = index >= 0;
}

bool Rtvin::KeyAccepted(RtvinFocus field, char key) {
    const bool digit = key >= '0' && key <= '9';
    switch (field) {
        case RtvinFocus::Text1:
            return digit || key == kBackspaceKey || key == ',' || key == '.';
        case RtvinFocus::Text2:
            return digit || key == kBackspaceKey || key == ',' || key == '.' || key == kReturnKey;
        case RtvinFocus::Text3:
        case RtvinFocus::Text4:
            return digit || key == kBackspaceKey;
        default:
            return true;
    }
}

void Rtvin::Text2KeyPress(char key, UserPort& port) {
    if (key == kReturnKey && Command2.enabled)
        Command2Click(port);
}

void Rtvin::CheckLineLimits(UserPort& port) {
    const auto from = WholeNumber16(Text4.text);
    const auto to = WholeNumber16(Text3.text);
    if (!from || !to) {
        port.warn(kInvalidValue);
        LimitsInvalid = true;
        return;
    }
    if (*from < *to)
        return;
    port.tell(abbreviation() + " value of the 1st point of lines limits (" + Text4.text +
              ")\nmust be less than  2nd point (" + Text3.text + ")");
    LimitsInvalid = true;
}

}  // namespace morvane
