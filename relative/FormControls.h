#pragma once
// The state of the plain controls of the comparison windows, as logic sees them: the
// text, check, list and enabled state that the window shows and that the comparison
// reads at calculation time. The desktop shell mirrors these into its widgets; the
// command-line tool and the tests set them through the windows' event handlers.

#include <optional>
#include <string>
#include <vector>

#include "core/TextTable.h"

namespace morvane {

struct TextBox {
    std::string text;
    std::optional<Color> fore;  // none: the box's default colour
};

struct CheckBox {
    bool checked = false;
    bool enabled = true;
    std::string caption;
};

// A combo box or a list box: its items, the selected index (-1 for none) and, for an
// editable combo, the text typed into it.
struct ListControl {
    std::vector<std::string> items;
    int listIndex = -1;
    std::string text;
    bool enabled = true;

    // The text of the selected item, or the typed text when none is selected.
    const std::string& selectedText() const {
        if (listIndex >= 0 && listIndex < static_cast<int>(items.size()))
            return items[static_cast<std::size_t>(listIndex)];
        return text;
    }
    int lastIndex() const { return static_cast<int>(items.size()) - 1; }
};

struct CommandButton {
    bool enabled = true;
    std::string hint;  // the tool tip
};

}  // namespace morvane
