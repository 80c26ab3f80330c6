#pragma once
// Where a command of the line document asks the window to put the keyboard focus.

namespace morvane {

enum class Focus {
    None,
    TextDose,
    Text1input,
    Text2input,
    CommandAccept,
    ComboUnit1,  // on the options dialog
    Text5,       // on the options dialog
};

}  // namespace morvane
