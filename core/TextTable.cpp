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

TextTable::Cell& TextTable::at(int row, int col) {
    checkCell(row, col);
    return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
                  static_cast<std::size_t>(col)];
}

const TextTable::Cell& TextTable::at(int row, int col) const {
    checkCell(row, col);
    return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
                  static_cast<std::size_t>(col)];
}

void TextTable::releaseRows(int first, int last) {
    const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(first) * cols_;
    const auto end = cells_.begin() + static_cast<std::ptrdiff_t>(last) * cols_;
    for (auto it = begin; it != end; ++it)
        texts_.release(it->text);
}

void TextTable::setRows(int rows) {
    if (rows < 0)
        rows = 0;
    if (rows < rows_)
        releaseRows(rows, rows_);
    rows_ = rows;
    cells_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols_));
    rowHeights_.resize(static_cast<std::size_t>(rows), -1);
    if (currentRow_ >= rows)
        currentRow_ = rows > 0 ? rows - 1 : 0;
}

void TextTable::setCols(int cols) {
    if (cols < 0)
        cols = 0;
    if (cols != cols_) {
        std::vector<Cell> cells(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols));
        for (int r = 0; r < rows_; ++r)
            for (int c = 0; c < cols_; ++c) {
                Cell& old = cells_[static_cast<std::size_t>(r) * static_cast<std::size_t>(cols_) +
                                   static_cast<std::size_t>(c)];
                if (c < cols)
                    cells[static_cast<std::size_t>(r) * static_cast<std::size_t>(cols) +
                          static_cast<std::size_t>(c)] = old;
                else
                    texts_.release(old.text);
            }
        cells_ = std::move(cells);
    }
    cols_ = cols;
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
    const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(row) * cols_;
    cells_.erase(begin, begin + cols_);
    --rows_;
    rowHeights_.erase(rowHeights_.begin() + row);
    if (currentRow_ >= rows())
        currentRow_ = rows() > 0 ? rows() - 1 : 0;
}

void TextTable::clear() {
    for (Cell& c : cells_) {
        texts_.release(c.text);
        c = Cell{};
    }
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
    Cell& c = at(row, col);
    const std::uint32_t old = c.text;
    c.text = texts_.add(std::move(text));
    texts_.release(old);
}

template <class Change>
void TextTable::changeLook(int row, int col, Change change) {
    Cell& c = at(row, col);
    CellLook look = looks_[c.look];
    change(look);
    const auto found = std::find(looks_.begin(), looks_.end(), look);
    if (found != looks_.end()) {
        c.look = static_cast<std::uint32_t>(found - looks_.begin());
    } else {
        c.look = static_cast<std::uint32_t>(looks_.size());
        looks_.push_back(std::move(look));
    }
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
    const std::size_t width = static_cast<std::size_t>(cols_);
    const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(firstRow) * cols_;
    std::vector<Cell> sorted;
    std::vector<int> heights;
    sorted.reserve(order.size() * width);
    heights.reserve(order.size());
    for (std::size_t i : order) {
        const auto row = begin + static_cast<std::ptrdiff_t>(i * width);
        sorted.insert(sorted.end(), row, row + static_cast<std::ptrdiff_t>(width));
        heights.push_back(rowHeights_[static_cast<std::size_t>(firstRow) + i]);
    }
    std::copy(sorted.begin(), sorted.end(), begin);
    std::copy(heights.begin(), heights.end(), rowHeights_.begin() + firstRow);
}

void TextTable::appendRowText(std::string& out, int row, int cols, char separator) const {
    if (row < 0 || row >= rows())
        throw std::out_of_range("grid row " + std::to_string(row));
    cols = std::min(cols, cols_);
    for (int c = 0; c < cols; ++c) {
        if (c > 0)
            out += separator;
        out += texts_.text(at(row, c).text);
    }
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
    for (std::size_t i = 0; i < a.cells_.size(); ++i) {
        const TextTable::Cell& x = a.cells_[i];
        const TextTable::Cell& y = b.cells_[i];
        if (a.texts_.text(x.text) != b.texts_.text(y.text) ||
            !(a.looks_[x.look] == b.looks_[y.look]))
            return false;
    }
    return true;
}

}  // namespace morvane
