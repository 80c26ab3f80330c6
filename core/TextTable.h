#pragma once
// The text-table model behind every grid of Morvane: rows and columns of cell texts
// with per-cell colours, alignment and picture, per-column width and alignment and
// per-row height, and a current row and column.
//
// The cell text is the data: a number written into a cell, rounded as it was
// written, is what every later step reads back. Row 0 is the heading row; all row and
// column numbers are 0-based. Widths and heights are in twips (1440 to the inch);
// -1 means "the grid's default".
//
// A table of a large line holds hundreds of thousands of cells, most of them short
// texts that repeat ("T", "20", "80.000") and the grid's default look. So a cell is
// kept as two small numbers: its text, one of the table's distinct texts, each kept
// once with a count of the cells that hold it; and its look (colours, alignment,
// picture), one of the table's distinct looks. A reference that text() gives stays
// valid until that cell's text changes or its row is removed or sorted.
//
// The comparison of lines has the other shape: a significance column per line, so
// thousands of rows by thousands of columns, nearly all of them empty. So only the
// first columns of a row are kept side by side; the cells beyond them are kept per
// row, in column order, and only while they hold a text or a look. A narrow table
// is dense throughout, and a wide one costs what its written cells cost.

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

inline constexpr Color kRed{255, 0, 0};
inline constexpr Color kBlack{0, 0, 0};
inline constexpr Color kWhite{255, 255, 255};

// Cell and column alignments, numbered as the grid control numbers them
// (0 left-top, 1 left-centre, 2 left-bottom, 3 centre-top, 4 centre-centre ...).
using Alignment = int;

struct TableCell {
    std::string text;
    std::optional<Color> fore;  // none: the grid's default foreground
    std::optional<Color> back;  // none: the grid's default background
    std::optional<Alignment> alignment;
    std::string picture;  // name of a picture shown in the cell, empty for none
    friend bool operator==(const TableCell&, const TableCell&) = default;
};

class TextTable {
  public:
    TextTable() = default;
    TextTable(int rows, int cols);

    int rows() const { return rows_; }
    int cols() const { return cols_; }
    // Changing the size keeps the cells that stay and adds empty ones.
    void setRows(int rows);
    void setCols(int cols);
    void addRow();
    void removeRow(int row);
    void clear();  // empties every cell, keeps the size

    const std::string& text(int row, int col) const;
    void setText(int row, int col, std::string text);

    std::optional<Color> fore(int row, int col) const;
    void setFore(int row, int col, std::optional<Color> color);
    std::optional<Color> back(int row, int col) const;
    void setBack(int row, int col, std::optional<Color> color);
    std::optional<Alignment> cellAlignment(int row, int col) const;
    void setCellAlignment(int row, int col, std::optional<Alignment> alignment);
    const std::string& picture(int row, int col) const;
    void setPicture(int row, int col, std::string picture);
    // The cell's text and look together, as a value.
    TableCell cell(int row, int col) const;

    int columnWidth(int col) const;
    void setColumnWidth(int col, int twips);
    std::optional<Alignment> columnAlignment(int col) const;
    void setColumnAlignment(int col, std::optional<Alignment> alignment);
    int rowHeight(int row) const;
    void setRowHeight(int row, int twips);

    int currentRow() const { return currentRow_; }
    int currentCol() const { return currentCol_; }
    void setCurrent(int row, int col);

    // Stable sort of rows first..last (inclusive) by the text of one column,
    // ascending, case-insensitive: the order the grid's text sort gives.
    void sortByColumn(int col, int firstRow, int lastRow);

    // The cell texts joined: columns by tab, rows by line feed. For tests and
    // quick looks, not an export format.
    std::string dump() const;

    // The texts of row `row`, columns 0 to cols - 1, joined by the separator and
    // appended to `out`: the quick way to write a row, whatever its width.
    void appendRowText(std::string& out, int row, int cols, char separator) const;

    // The same size, cell texts and looks, row heights, column widths and alignments,
    // and current cell.
    friend bool operator==(const TextTable& a, const TextTable& b);

  private:
    // The distinct texts of the table. Id 0 is the empty text and is never counted; a
    // text no cell holds any more is dropped and its id used again.
    class TextPool {
      public:
        TextPool();
        std::uint32_t add(std::string text);  // counts one more cell holding the text
        void release(std::uint32_t id);       // one cell fewer
        const std::string& text(std::uint32_t id) const { return texts_[id]; }

      private:
        std::size_t find(std::string_view text, std::size_t hash) const;
        void grow();
        std::deque<std::string> texts_;  // a deque, so that texts never move
        std::vector<std::uint32_t> counts_;
        std::vector<std::uint32_t> unused_;
        std::vector<std::uint32_t> slots_;  // open addressing: id + 1, 0 empty, kGone
        std::size_t taken_ = 0;             // slots not empty, the gone ones included
    };
    // The look of a cell but its text; id 0 is the default look.
    struct CellLook {
        std::optional<Color> fore;
        std::optional<Color> back;
        std::optional<Alignment> alignment;
        std::string picture;
        friend bool operator==(const CellLook&, const CellLook&) = default;
    };
    struct Cell {
        std::uint32_t text = 0;
        std::uint32_t look = 0;
        bool empty() const { return text == 0 && look == 0; }
    };
    // A written cell beyond the dense columns.
    struct WideCell {
        std::uint32_t col = 0;
        Cell cell;
    };
    using WideRow = std::vector<WideCell>;  // in column order, no empty cells

    // Columns 0 to kDenseCols - 1 of every row are kept in cells_; a table with more
    // columns keeps the rest in wide_, one list per row.
    static constexpr int kDenseCols = 16;

    void checkCell(int row, int col) const;
    const Cell& at(int row, int col) const;  // an empty cell where none is kept
    void put(int row, int col, Cell cell);   // the texts' counts are the caller's
    bool isWide() const { return cols_ > kDenseCols; }
    void releaseRows(int first, int last);  // the texts of rows first..last-1
    template <class Change>
    void changeLook(int row, int col, Change change);

    int rows_ = 0;
    int cols_ = 0;
    int denseCols_ = 0;          // min(cols_, kDenseCols)
    std::vector<Cell> cells_;    // row by row, denseCols_ a row
    std::vector<WideRow> wide_;  // a list per row while isWide(), else none
    TextPool texts_;
    std::vector<CellLook> looks_{CellLook{}};
    std::vector<int> rowHeights_;
    std::vector<int> columnWidths_;
    std::vector<std::optional<Alignment>> columnAlignments_;
    int currentRow_ = 0;
    int currentCol_ = 0;
};

// Case-insensitive text order of the grid's sort: compares byte by byte with ASCII
// letters folded to lower case. Returns <0, 0 or >0.
int CompareTextNoCase(const std::string& a, const std::string& b);

}  // namespace morvane
