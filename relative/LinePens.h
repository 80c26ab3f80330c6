#pragma once
// The pens of the lines of a comparison: a colour of the 16-colour palette and a pen
// style for each line, given by position in the table of lines before the sort.

#include <cstdint>
#include <vector>

namespace morvane {

// Entry i of the 16-colour palette as 0xRRGGBB: 0 black, 1 blue, 2 green, 3 cyan,
// 4 red, 5 magenta, 6 yellow, 7 white, 8 grey, 9 light blue, 10 light green,
// 11 light cyan, 12 light red, 13 light magenta, 14 light yellow, 15 bright white.
std::uint32_t PaletteColor(int entry);

// The pens of lines 1..lines in arrays of `size` entries (entry 0 and any entry past
// the last line unused). The colour number starts at 7 and takes 1 more for each
// line, wrapping from 14 to 0, so the lines run through 8, 9 ... 13, 0, 1 ... 13, 0
// and entries 14 and 15 are never used. The style runs 0, 1, 2, 3, 4, 0 ...
//
// The arrays are not sorted with the rows: after the sort, entry i belongs to
// whatever line stands in row i.
struct LinePens {
    std::vector<std::uint32_t> colors;
    std::vector<std::int16_t> styles;
};
LinePens AssignLinePens(int lines, int size);

}  // namespace morvane
