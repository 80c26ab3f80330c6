// The memory a large table takes, counted by the allocator (mallinfo2): a line of
// 30,000 replicates must stay within a few times the bytes of its file, so a cell of a
// short text that repeats takes a few bytes, not a string and a look of its own.
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <string>

#include "core/TextTable.h"

namespace morvane {
namespace {

std::size_t BytesInUse() {
    return mallinfo2().uordblks;
}

TEST(TextTableMemoryTest, RepeatedShortTextsTakeAFewBytesACell) {
    constexpr int kRows = 30000;
    const std::size_t before = BytesInUse();
    {
        TextTable grid(kRows + 2, 6);
        for (int r = 1; r <= kRows; ++r) {
            const int dose = 1 + (r * 7919) % 3000;
            grid.setText(r, 0, "T");
            grid.setText(r, 1, std::to_string(dose) + ".5");
            grid.setText(r, 2, std::to_string(1 + r % 19));
            grid.setText(r, 3, std::to_string(20 - r % 19));
            grid.setText(r, 4, "80.000");
            grid.setText(r, 5, "1.0" + std::to_string(10000000 + dose) + "T");
            if (r % 10 == 0)
                grid.setBack(r, 2, Color{200, 255, 200});
        }
        const std::size_t held = BytesInUse() - before;
        // The file of these rows takes about 50 bytes a row.
        EXPECT_LE(held, static_cast<std::size_t>(kRows) * 100) << held / kRows << " bytes a row";
        EXPECT_EQ(grid.text(10, 4), "80.000");
        EXPECT_EQ(grid.back(10, 2), (Color{200, 255, 200}));
        EXPECT_EQ(grid.back(11, 2), std::nullopt);
    }
    // What the cells held is given back (the test framework keeps a little).
    EXPECT_LE(BytesInUse(), before + 16384);
}

TEST(TextTableMemoryTest, ATextNoCellHoldsIsDroppedAndTheTableStaysSmall) {
    TextTable grid(2, 2);
    const std::size_t before = BytesInUse();
    for (int i = 0; i < 100000; ++i)
        grid.setText(1, 1, "a long text that no other cell holds, number " + std::to_string(i));
    EXPECT_LE(BytesInUse(), before + 16384);
    EXPECT_EQ(grid.text(1, 1), "a long text that no other cell holds, number 99999");
}

TEST(TextTableMemoryTest, CopiesCompareByTextsAndLooks) {
    TextTable a(3, 2);
    a.setText(1, 0, "x");
    a.setText(2, 0, "y");
    TextTable b(3, 2);
    b.setText(2, 0, "y");  // the texts enter b in another order
    b.setText(1, 0, "x");
    EXPECT_TRUE(a == b);
    b.setBack(1, 1, kRed);
    EXPECT_FALSE(a == b);
    b.setBack(1, 1, std::nullopt);
    EXPECT_TRUE(a == b);
    TextTable c = a;
    c.setText(1, 0, "z");
    EXPECT_EQ(a.text(1, 0), "x");
    EXPECT_FALSE(a == c);
}

// The comparison's table has a significance column per line, nearly all of it empty:
// its memory grows with the cells written, not with rows times columns.
TEST(TextTableMemoryTest, AWideMostlyEmptyTableCostsItsWrittenCells) {
    constexpr int kLines = 5000;
    const std::size_t before = BytesInUse();
    {
        TextTable grid(kLines + 1, kLines + 4);
        for (int r = 1; r <= kLines; ++r) {
            grid.setText(r, 0, std::to_string(r));
            grid.setText(r, 2, "4.5" + std::to_string(r));
            for (int c = std::max(3, r + 1); c <= std::min(kLines + 3, r + 5); ++c)
                grid.setText(r, c, "*");
        }
        const std::size_t held = BytesInUse() - before;
        // Kept side by side, these cells would take 40,000 bytes a row.
        EXPECT_LE(held, static_cast<std::size_t>(kLines) * 400) << held / kLines << " bytes a row";
        EXPECT_EQ(grid.text(100, 101), "*");
        EXPECT_EQ(grid.text(100, 106), "");
        EXPECT_EQ(grid.text(kLines, kLines + 3), "*");
    }
    EXPECT_LE(BytesInUse(), before + 16384);
}

}  // namespace
}  // namespace morvane
