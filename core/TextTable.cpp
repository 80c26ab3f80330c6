#include "core/TextTable.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <stdexcept>

namespace morvane {
namespace {

constexpr std::uint32_t kGone = 0xFFFFFFFFu;  // a slot whose text was dropped

std::size_t HashOf(std::string_view text) {
    return std::hash<std::string_view>{}(text);
}

}  // namespace

// ---- The distinct texts.

TextTable::TextPool::TextPool() {
    texts_.emplace_back();
    counts_.push_back(0);
}

std::size_t TextTable::TextPool::find(std::string_view text, std::size_t hash) const {
    // The slot that holds the text, or the empty slot where the search ended.
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
        const std::uint32_t slot = slots_[i];
        if (slot == 0 || (slot != kGone && texts_[slot - 1] == text))
            return i;
    }
}

void TextTable::TextPool::grow() {
    std::size_t size = 16;
    std::size_t live = 0;
    for (std::uint32_t slot : slots_)
        live += slot != 0 && slot != kGone;
    while (size < live * 4)
        size *= 2;
    std::vector<std::uint32_t> old = std::move(slots_);
    slots_.assign(size, 0);
    taken_ = 0;
    for (std::uint32_t slot : old) {
        if (slot == 0 || slot == kGone)
            continue;
        slots_[find(texts_[slot - 1], HashOf(texts_[slot - 1]))] = slot;
        ++taken_;
    }
}

std::uint32_t TextTable::TextPool::add(std::string text) {
    if (text.empty())
        return 0;
    if ((taken_ + 1) * 2 > slots_.size())
        grow();
    const std::size_t hash = HashOf(text);
    const std::size_t i = find(text, hash);
    if (slots_[i] != 0) {
        const std::uint32_t id = slots_[i] - 1;
        ++counts_[id];
        return id;
    }
    std::uint32_t id;
    if (!unused_.empty()) {
        id = unused_.back();
        unused_.pop_back();
        texts_[id] = std::move(text);
        counts_[id] = 1;
    } else {
        id = static_cast<std::uint32_t>(texts_.size());
        texts_.push_back(std::move(text));
        counts_.push_back(1);
    }
    slots_[i] = id + 1;
    ++taken_;
    return id;
}

void TextTable::TextPool::release(std::uint32_t id) {
    if (id == 0 || --counts_[id] > 0)
        return;
    slots_[find(texts_[id], HashOf(texts_[id]))] = kGone;
    texts_[id] = std::string();
    unused_.push_back(id);
}

// ---- The table.

TextTable::TextTable(int rows, int cols) {
    setCols(cols);
    setRows(rows);
}

const TextTable::Cell& TextTable::at(int row, int col) const {
    static constexpr Cell kEmpty{};
    checkCell(row, col);
    if (col < denseCols_)
        return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(denseCols_) +
                      static_cast<std::size_t>(col)];
    const WideRow& wide = wide_[static_cast<std::size_t>(row)];
    const auto found = std::lower_bound(
        wide.begin(), wide.end(), col,
        [](const WideCell& w, int c) { return w.col < static_cast<std::uint32_t>(c); });
    return found != wide.end() && found->col == static_cast<std::uint32_t>(col) ? found->cell
                                                                                : kEmpty;
}

void TextTable::put(int row, int col, Cell cell) {
    checkCell(row, col);
    if (col < denseCols_) {
        cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(denseCols_) +
               static_cast<std::size_t>(col)] = cell;
        return;
    }
    // Beyond the dense columns an empty cell is not kept at all, so that a wide table
    // costs only what is written in it. The significance marks arrive column after
    // column, so a new cell nearly always goes at the end of its row.
    WideRow& wide = wide_[static_cast<std::size_t>(row)];
    const auto found = std::lower_bound(
        wide.begin(), wide.end(), col,
        [](const WideCell& w, int c) { return w.col < static_cast<std::uint32_t>(c); });
    const bool kept = found != wide.end() && found->col == static_cast<std::uint32_t>(col);
    if (cell.empty()) {
        if (kept)
            wide.erase(found);
    } else if (kept) {
        found->cell = cell;
    } else {
        wide.insert(found, WideCell{static_cast<std::uint32_t>(col), cell});
    }
}

void TextTable::releaseRows(int first, int last) {
    const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(first) * denseCols_;
    const auto end = cells_.begin() + static_cast<std::ptrdiff_t>(last) * denseCols_;
    for (auto it = begin; it != end; ++it)
        texts_.release(it->text);
    if (isWide())
        for (int r = first; r < last; ++r)
            for (const WideCell& w : wide_[static_cast<std::size_t>(r)])
                texts_.release(w.cell.text);
}

void TextTable::setRows(int rows) {
    if (rows < 0)
        rows = 0;
    if (rows < rows_)
        releaseRows(rows, rows_);
    rows_ = rows;
    cells_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(denseCols_));
    if (isWide())
        wide_.resize(static_cast<std::size_t>(rows));
    rowHeights_.resize(static_cast<std::size_t>(rows), -1);
    if (currentRow_ >= rows)
        currentRow_ = rows > 0 ? rows - 1 : 0;
}

void TextTable::setCols(int cols) {
    if (cols < 0)
        cols = 0;
    // The cells beyond the new width, first those kept per row.
    if (cols < cols_ && isWide())
        for (WideRow& wide : wide_) {
            const auto beyond = std::find_if(wide.begin(), wide.end(), [&](const WideCell& w) {
                return w.col >= static_cast<std::uint32_t>(cols);
            });
            for (auto it = beyond; it != wide.end(); ++it)
                texts_.release(it->cell.text);
            wide.erase(beyond, wide.end());
        }
    const int dense = std::min(cols, kDenseCols);
    if (dense != denseCols_) {
        std::vector<Cell> cells(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(dense));
        for (int r = 0; r < rows_; ++r)
            for (int c = 0; c < denseCols_; ++c) {
                const Cell& old =
                    cells_[static_cast<std::size_t>(r) * static_cast<std::size_t>(denseCols_) +
                           static_cast<std::size_t>(c)];
                if (c < dense)
                    cells[static_cast<std::size_t>(r) * static_cast<std::size_t>(dense) +
                          static_cast<std::size_t>(c)] = old;
                else
                    texts_.release(old.text);
            }
        cells_ = std::move(cells);
        denseCols_ = dense;
    }
    cols_ = cols;
    if (!isWide())
        wide_ = std::vector<WideRow>();  // emptied above; give the memory back
    else
        wide_.resize(static_cast<std::size_t>(rows_));
    columnWidths_.resize(static_cast<std::size_t>(cols), -1);
    columnAlignments_.resize(static_cast<std::size_t>(cols));
    if (currentCol_ >= cols)
        currentCol_ = cols > 0 ? cols - 1 : 0;
}

void TextTable::addRow() {
    setRows(rows() + 1);
}

void TextTable::removeRow(int row) {
    checkCell(row, 0);
    releaseRows(row, row + 1);
    const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(row) * denseCols_;
    cells_.erase(begin, begin + denseCols_);
    if (isWide())
        wide_.erase(wide_.begin() + row);
    --rows_;
    rowHeights_.erase(rowHeights_.begin() + row);
    if (currentRow_ >= rows())
        currentRow_ = rows() > 0 ? rows() - 1 : 0;
}

void TextTable::clear() {
    releaseRows(0, rows_);
    std::fill(cells_.begin(), cells_.end(), Cell{});
    for (WideRow& wide : wide_)
        wide = WideRow();
}

void TextTable::checkCell(int row, int col) const {
    if (row < 0 || row >= rows() || col < 0 || col >= cols_)
        throw std::out_of_range("grid cell " + std::to_string(row) + "," + std::to_string(col) +
                                " outside " + std::to_string(rows()) + "x" + std::to_string(cols_));
}

TableCell TextTable::cell(int row, int col) const {
    const Cell& c = at(row, col);
    const CellLook& look = looks_[c.look];
    return TableCell{texts_.text(c.text), look.fore, look.back, look.alignment, look.picture};
}

const std::string& TextTable::text(int row, int col) const {
    return texts_.text(at(row, col).text);
}
void TextTable::setText(int row, int col, std::string text) {
    Cell c = at(row, col);
    const std::uint32_t old = c.text;
    c.text = texts_.add(std::move(text));
    put(row, col, c);
    texts_.release(old);
}

template <class Change>
void TextTable::changeLook(int row, int col, Change change) {
    Cell c = at(row, col);
    CellLook look = looks_[c.look];
    change(look);
    // The first look that is equal, so that the default look is always id 0.
    const auto found = std::find(looks_.begin(), looks_.end(), look);
    if (found != looks_.end()) {
        c.look = static_cast<std::uint32_t>(found - looks_.begin());
    } else {
        c.look = static_cast<std::uint32_t>(looks_.size());
        looks_.push_back(std::move(look));
    }
    put(row, col, c);
}

std::optional<Color> TextTable::fore(int row, int col) const {
    return looks_[at(row, col).look].fore;
}
void TextTable::setFore(int row, int col, std::optional<Color> color) {
    changeLook(row, col, [&](CellLook& look) { look.fore = color; });
}
std::optional<Color> TextTable::back(int row, int col) const {
    return looks_[at(row, col).look].back;
}
void TextTable::setBack(int row, int col, std::optional<Color> color) {
    changeLook(row, col, [&](CellLook& look) { look.back = color; });
}
std::optional<Alignment> TextTable::cellAlignment(int row, int col) const {
    return looks_[at(row, col).look].alignment;
}
void TextTable::setCellAlignment(int row, int col, std::optional<Alignment> alignment) {
    changeLook(row, col, [&](CellLook& look) { look.alignment = alignment; });
}
const std::string& TextTable::picture(int row, int col) const {
    return looks_[at(row, col).look].picture;
}
void TextTable::setPicture(int row, int col, std::string picture) {
    changeLook(row, col, [&](CellLook& look) { look.picture = std::move(picture); });
}

int TextTable::columnWidth(int col) const {
    if (col < 0 || col >= cols_)
        throw std::out_of_range("grid column " + std::to_string(col));
    return columnWidths_[static_cast<std::size_t>(col)];
}
void TextTable::setColumnWidth(int col, int twips) {
    if (col < 0 || col >= cols_)
        throw std::out_of_range("grid column " + std::to_string(col));
    columnWidths_[static_cast<std::size_t>(col)] = twips;
}
std::optional<Alignment> TextTable::columnAlignment(int col) const {
    if (col < 0 || col >= cols_)
        throw std::out_of_range("grid column " + std::to_string(col));
    return columnAlignments_[static_cast<std::size_t>(col)];
}
void TextTable::setColumnAlignment(int col, std::optional<Alignment> alignment) {
    if (col < 0 || col >= cols_)
        throw std::out_of_range("grid column " + std::to_string(col));
    columnAlignments_[static_cast<std::size_t>(col)] = alignment;
}
int TextTable::rowHeight(int row) const {
    if (row < 0 || row >= rows())
        throw std::out_of_range("grid row " + std::to_string(row));
    return rowHeights_[static_cast<std::size_t>(row)];
}
void TextTable::setRowHeight(int row, int twips) {
    if (row < 0 || row >= rows())
        throw std::out_of_range("grid row " + std::to_string(row));
    rowHeights_[static_cast<std::size_t>(row)] = twips;
}

void TextTable::setCurrent(int row, int col) {
    checkCell(row, col);
    currentRow_ = row;
    currentCol_ = col;
}

int CompareTextNoCase(const std::string& a, const std::string& b) {
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        unsigned char x = static_cast<unsigned char>(a[i]);
        unsigned char y = static_cast<unsigned char>(b[i]);
        if (x >= 'A' && x <= 'Z')
            x = static_cast<unsigned char>(x - 'A' + 'a');
        if (y >= 'A' && y <= 'Z')
            y = static_cast<unsigned char>(y - 'A' + 'a');
        if (x != y)
            return x < y ? -1 : 1;
    }
    if (a.size() == b.size())
        return 0;
    return a.size() < b.size() ? -1 : 1;
}

void TextTable::sortByColumn(int col, int firstRow, int lastRow) {
    if (firstRow < 0)
        firstRow = 0;
    if (lastRow >= rows())
        lastRow = rows() - 1;
    if (firstRow >= lastRow)
        return;
    checkCell(firstRow, col);
    std::vector<std::size_t> order(static_cast<std::size_t>(lastRow - firstRow + 1));
    std::iota(order.begin(), order.end(), std::size_t{0});
    auto key = [&](std::size_t i) -> const std::string& {
        return text(firstRow + static_cast<int>(i), col);
    };
    std::stable_sort(order.begin(), order.end(), [&](std::size_t x, std::size_t y) {
        return CompareTextNoCase(key(x), key(y)) < 0;
    });
    const std::size_t width = static_cast<std::size_t>(denseCols_);
    const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(firstRow) * denseCols_;
    std::vector<Cell> sorted;
    std::vector<int> heights;
    std::vector<WideRow> wide;
    sorted.reserve(order.size() * width);
    heights.reserve(order.size());
    for (std::size_t i : order) {
        const auto row = begin + static_cast<std::ptrdiff_t>(i * width);
        sorted.insert(sorted.end(), row, row + static_cast<std::ptrdiff_t>(width));
        heights.push_back(rowHeights_[static_cast<std::size_t>(firstRow) + i]);
        if (isWide())
            wide.push_back(std::move(wide_[static_cast<std::size_t>(firstRow) + i]));
    }
    std::copy(sorted.begin(), sorted.end(), begin);
    std::copy(heights.begin(), heights.end(), rowHeights_.begin() + firstRow);
    std::move(wide.begin(), wide.end(), wide_.begin() + firstRow);
}

void TextTable::appendRowText(std::string& out, int row, int cols, char separator) const {
    if (row < 0 || row >= rows())
        throw std::out_of_range("grid row " + std::to_string(row));
    cols = std::min(cols, cols_);
    const int dense = std::min(cols, denseCols_);
    const std::size_t first = static_cast<std::size_t>(row) * static_cast<std::size_t>(denseCols_);
    for (int c = 0; c < dense; ++c) {
        if (c > 0)
            out += separator;
        out += texts_.text(cells_[first + static_cast<std::size_t>(c)].text);
    }
    if (cols <= dense)
        return;
    // The columns beyond, a separator before each: the runs of empty cells between the
    // written ones are appended whole, since a row of the comparison is nearly all run.
    std::size_t next = static_cast<std::size_t>(dense);  // the first column not appended
    for (const WideCell& written : wide_[static_cast<std::size_t>(row)]) {
        if (written.col >= static_cast<std::uint32_t>(cols))
            break;
        out.append(written.col - next + 1, separator);
        out += texts_.text(written.cell.text);
        next = written.col + 1;
    }
    out.append(static_cast<std::size_t>(cols) - next, separator);
}

std::string TextTable::dump() const {
    std::string out;
    for (int r = 0; r < rows(); ++r) {
        if (r > 0)
            out += '\n';
        appendRowText(out, r, cols_, '\t');
    }
    return out;
}

bool operator==(const TextTable& a, const TextTable& b) {
    if (a.rows_ != b.rows_ || a.cols_ != b.cols_ || a.rowHeights_ != b.rowHeights_ ||
        a.columnWidths_ != b.columnWidths_ || a.columnAlignments_ != b.columnAlignments_ ||
        a.currentRow_ != b.currentRow_ || a.currentCol_ != b.currentCol_)
        return false;
    // Texts and looks by their contents: the same text may have another id in each.
    auto same = [&](const TextTable::Cell& x, const TextTable::Cell& y) {
        return a.texts_.text(x.text) == b.texts_.text(y.text) &&
               a.looks_[x.look] == b.looks_[y.look];
    };
    for (std::size_t i = 0; i < a.cells_.size(); ++i)
        if (!same(a.cells_[i], b.cells_[i]))
            return false;
    // Neither keeps an empty cell beyond the dense columns, so equal rows hold the same
    // columns in the same order.
    for (std::size_t r = 0; r < a.wide_.size(); ++r) {
        const TextTable::WideRow& x = a.wide_[r];
        const TextTable::WideRow& y = b.wide_[r];
        if (x.size() != y.size())
            return false;
        for (std::size_t k = 0; k < x.size(); ++k)
            if (x[k].col != y[k].col || !same(x[k].cell, y[k].cell))
                return false;
    }
    return true;
}

}  // namespace morvane
