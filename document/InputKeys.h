#pragma once
// The keyboard rules of the input cells: which keys each cell takes and where the
// arrows and Enter send the focus. The dose may be typed in exponent form, the counts
// not.

namespace morvane {

enum class InputCell { TextDose, Text1input, Text2input };

// What a key does beside typing.
enum class KeyMove {
    None,  // the key stays in the cell
    ToTextDose,
    ToText1input,
    ToText2input,
    ToCommandAccept,
    RunAccept,  // Enter in the last input cell runs CommandAccept
};

inline constexpr char kBackspace = 8;
inline constexpr char kEnter = 13;

// Whether the cell takes the typed character (Enter and backspace included). TextDose
// takes digits, comma, point, "E", "e" and minus; the counts take digits and point.
bool InputKeyAllowed(InputCell cell, char key);

// Right arrow at the end of the text, left arrow at its start, Enter; with Text2input
// shown or hidden (data type 2 has one value cell).
KeyMove RightArrowAtEnd(InputCell cell, bool text2inputVisible);
KeyMove LeftArrowAtStart(InputCell cell);
KeyMove EnterKey(InputCell cell, bool text2inputVisible);

}  // namespace morvane
