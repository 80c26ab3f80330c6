#pragma once
// The text boxes whose text goes into a line file: the treatment name, the four notes,
// the units, the custom factor, abbreviation and units, and the probability of T. A
// string field of the line file ends at its first double quote, and the layout has no
// escape for it, so these boxes do not take the character: an edit that brings one in
// is refused with kDoubleQuoteRefused, and the box keeps the text it had. Every other
// character is kept as typed and reads back as it was.

#include <string_view>

namespace morvane {

inline constexpr const char* kDoubleQuoteRefused =
    "A double quote (\") can't be used here: a line file can't keep it.\nUse two single "
    "quotes ('') instead.";

// Whether an edit of a text field from the old text to the new one is taken: it may not
// bring in a double quote (one the old text held already stays).
bool TextFieldTakes(std::string_view oldText, std::string_view newText);

}  // namespace morvane
