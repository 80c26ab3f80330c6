#include "core/TextTable.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(TextTable, SizeAndCells) {
    TextTable t(2, 3);
    EXPECT_EQ(t.rows(), 2);
    EXPECT_EQ(t.cols(), 3);
    t.setText(1, 2, "x");
    t.setFore(1, 2, kRed);
    t.setBack(1, 1, Color{200, 255, 200});
    t.setRows(4);
    EXPECT_EQ(t.text(1, 2), "x");
    EXPECT_EQ(t.fore(1, 2), kRed);
    EXPECT_EQ(t.back(1, 1), (Color{200, 255, 200}));
    EXPECT_EQ(t.text(3, 0), "");
    EXPECT_FALSE(t.fore(3, 0));
    EXPECT_THROW(t.text(4, 0), std::out_of_range);
}

TEST(TextTable, SortIsStableAndCaseInsensitive) {
    TextTable t(6, 2);
    const char* keys[] = {"b", "A", "a", "B", "c"};
    for (int r = 1; r <= 5; ++r) {
        t.setText(r, 0, keys[r - 1]);
        t.setText(r, 1, std::to_string(r));
    }
    t.sortByColumn(0, 1, 5);
    EXPECT_EQ(t.dump(), "\t\nA\t2\na\t3\nb\t1\nB\t4\nc\t5");
}

TEST(TextTable, RemoveRowAndDump) {
    TextTable t(3, 2);
    t.setText(1, 0, "one");
    t.setText(2, 0, "two");
    t.removeRow(1);
    EXPECT_EQ(t.rows(), 2);
    EXPECT_EQ(t.text(1, 0), "two");
}

TEST(TextTable, EmptiedCellsEqualCellsNeverWritten) {
    TextTable a(3, 4), b(3, 4);
    a.setText(1, 2, "x");
    a.setFore(1, 3, kRed);
    EXPECT_FALSE(a == b);
    a.setText(1, 2, "");
    a.setFore(1, 3, std::nullopt);
    EXPECT_TRUE(a == b);
    // A cell only looked at holds nothing either.
    EXPECT_EQ(a.cell(2, 0).text, "");
    EXPECT_TRUE(a == b);
    a.setText(2, 0, "y");
    EXPECT_FALSE(a == b);
}

TEST(TextTable, RowTextOfAWideMostlyEmptyTable) {
    TextTable t(2, 6);
    t.setText(1, 1, "*");
    t.setText(1, 4, "4.5");
    t.setText(1, 5, "key");
    std::string row;
    t.appendRowText(row, 1, 5, '\t');
    EXPECT_EQ(row, "\t*\t\t\t4.5");
    row.clear();
    t.appendRowText(row, 0, 3, ',');
    EXPECT_EQ(row, ",,");
    // Narrowing drops the cells beyond; widening brings empty ones.
    t.setCols(4);
    t.setCols(6);
    EXPECT_EQ(t.text(1, 4), "");
    EXPECT_EQ(t.text(1, 1), "*");
    EXPECT_EQ(t.dump(), "\t\t\t\t\t\n\t*\t\t\t\t");
}

TEST(TextTable, SortPutsEmptyKeysFirst) {
    TextTable t(4, 2);
    t.setText(1, 0, "b");
    t.setText(1, 1, "1");
    t.setText(2, 1, "2");
    t.setText(3, 0, "a");
    t.setText(3, 1, "3");
    t.sortByColumn(0, 1, 3);
    EXPECT_EQ(t.dump(), "\t\n\t2\na\t3\nb\t1");
}

}  // namespace
}  // namespace morvane
