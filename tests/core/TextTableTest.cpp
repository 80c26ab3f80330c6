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

// A table with a column per line: the cells far to the right are kept only while
// written, and everything a narrow table does holds for them too.
TEST(TextTable, WideTableCellsBehaveAsNarrowOnes) {
    TextTable t(4, 40);
    t.setText(1, 2, "near");
    t.setText(1, 30, "*");
    t.setText(2, 39, "last");
    t.setText(2, 20, "mid");  // written out of column order
    t.setBack(3, 25, kRed);
    EXPECT_EQ(t.text(1, 30), "*");
    EXPECT_EQ(t.text(2, 20), "mid");
    EXPECT_EQ(t.text(2, 39), "last");
    EXPECT_EQ(t.text(1, 31), "");
    EXPECT_EQ(t.back(3, 25), kRed);
    EXPECT_EQ(t.cell(3, 25).text, "");
    EXPECT_EQ(t.back(3, 24), std::nullopt);
    EXPECT_THROW(t.text(1, 40), std::out_of_range);

    std::string row;
    t.appendRowText(row, 2, 40, ',');
    EXPECT_EQ(row, std::string(20, ',') + "mid" + std::string(19, ',') + "last");
    row.clear();
    t.appendRowText(row, 1, 31, ',');
    EXPECT_EQ(row, ",,near" + std::string(28, ',') + "*");

    // Rows move with their far cells when sorted or removed.
    t.setText(1, 0, "b");
    t.setText(2, 0, "a");
    t.sortByColumn(0, 1, 3);
    EXPECT_EQ(t.text(1, 0), "");  // row 3, its key empty, comes first
    EXPECT_EQ(t.back(1, 25), kRed);
    EXPECT_EQ(t.text(2, 20), "mid");
    EXPECT_EQ(t.text(3, 30), "*");
    t.removeRow(2);
    EXPECT_EQ(t.text(2, 30), "*");
    EXPECT_EQ(t.text(2, 20), "");
    EXPECT_EQ(t.rows(), 3);
    t.addRow();
    EXPECT_EQ(t.text(3, 30), "");
}

TEST(TextTable, WideCellsEmptiedEqualCellsNeverWritten) {
    TextTable a(3, 50), b(3, 50);
    b.setText(1, 45, "x");
    b.setFore(2, 17, kRed);
    a.setFore(2, 17, kRed);
    a.setText(1, 45, "x");  // the same cells, written in another order
    EXPECT_TRUE(a == b);
    a.setText(1, 45, "");
    a.setFore(2, 17, std::nullopt);
    EXPECT_FALSE(a == b);
    b.setText(1, 45, "");
    b.setFore(2, 17, std::nullopt);
    EXPECT_TRUE(a == b);
    EXPECT_TRUE(a == TextTable(3, 50));
    a.setText(2, 49, "y");
    EXPECT_FALSE(a == TextTable(3, 50));
    a.clear();
    EXPECT_TRUE(a == TextTable(3, 50));
}

TEST(TextTable, NarrowingAWideTableDropsTheCellsBeyond) {
    TextTable t(2, 30);
    t.setText(1, 5, "five");
    t.setText(1, 16, "sixteen");
    t.setText(1, 29, "last");
    t.setCols(20);
    EXPECT_EQ(t.text(1, 16), "sixteen");
    t.setCols(30);
    EXPECT_EQ(t.text(1, 29), "");
    t.setCols(10);  // narrow again: every cell kept side by side
    t.setCols(30);
    EXPECT_EQ(t.text(1, 5), "five");
    EXPECT_EQ(t.text(1, 16), "");
    std::string row;
    t.appendRowText(row, 1, 30, '|');
    EXPECT_EQ(row, "|||||five" + std::string(24, '|'));
}

}  // namespace
}  // namespace morvane
