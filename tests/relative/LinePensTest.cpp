// The pens of the lines: colours of the 16-colour palette and pen styles by position.
#include "relative/LinePens.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(LinePens, TheSeventhLineIsBlackWithStyleOne) {
    const LinePens pens = AssignLinePens(7, 9);
    ASSERT_EQ(pens.colors.size(), 9u);
    EXPECT_EQ(pens.colors[7], PaletteColor(0));
    EXPECT_EQ(pens.colors[7], 0x000000u);
    EXPECT_EQ(pens.styles[7], 1);
}

TEST(LinePens, ColoursRunFromGreyThroughTheLightOnesAndWrapBeforeFourteen) {
    const LinePens pens = AssignLinePens(21, 23);
    const int expectedEntries[] = {8, 9, 10, 11, 12, 13, 0,  1,  2,  3, 4,
                                   5, 6, 7,  8,  9,  10, 11, 12, 13, 0};
    const int expectedStyles[] = {0, 1, 2, 3, 4, 0, 1, 2, 3, 4, 0, 1, 2, 3, 4, 0, 1, 2, 3, 4, 0};
    for (int i = 1; i <= 21; ++i) {
        EXPECT_EQ(pens.colors[static_cast<std::size_t>(i)], PaletteColor(expectedEntries[i - 1]))
            << "line " << i;
        EXPECT_EQ(pens.styles[static_cast<std::size_t>(i)], expectedStyles[i - 1]) << "line " << i;
    }
}

TEST(LinePens, ThePalette) {
    EXPECT_EQ(PaletteColor(1), 0x000080u);   // blue
    EXPECT_EQ(PaletteColor(7), 0xC0C0C0u);   // white
    EXPECT_EQ(PaletteColor(8), 0x808080u);   // grey
    EXPECT_EQ(PaletteColor(9), 0x0000FFu);   // light blue
    EXPECT_EQ(PaletteColor(12), 0xFF0000u);  // light red
    EXPECT_EQ(PaletteColor(13), 0xFF00FFu);  // light magenta
    EXPECT_THROW(PaletteColor(16), std::out_of_range);
}

}  // namespace
}  // namespace morvane
