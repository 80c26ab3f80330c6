#include "core/TextTable.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

namespace morvane {

TextTable::TextTable(int rows, int cols) {
    setCols(cols);
    setRows(rows);
}

void TextTable::setRows(int rows) {
    if (rows < 0)
        rows = 0;
    cells_.resize(static_cast<std::size_t>(rows));
    rowHeights_.resize(static_cast<std::size_t>(rows), -1);
    if (currentRow_ >= rows)
        currentRow_ = rows > 0 ? rows - 1 : 0;
}

void TextTable::setCols(int cols) {
    if (cols < 0)
        cols = 0;
    cols_ = cols;
    for (auto& row : cells_)
        row.erase(std::lower_bound(row.begin(), row.end(), cols,
                                   [](const auto& cell, int col) { return cell.first < col; }),
                  row.end());
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
    cells_.erase(cells_.begin() + row);
    rowHeights_.erase(rowHeights_.begin() + row);
    if (currentRow_ >= rows())
        currentRow_ = rows() > 0 ? rows() - 1 : 0;
}

void TextTable::clear() {
    for (auto& row : cells_)
        row.clear();
}

const TableCell* TextTable::find(const Row& row, int col) {
    const auto at = std::lower_bound(row.begin(), row.end(), col,
                                     [](const auto& cell, int c) { return cell.first < c; });
    if (at == row.end() || at->first != col)
        return nullptr;
    return &at->second;
}

TableCell& TextTable::insert(Row& row, int col) {
    auto at = std::lower_bound(row.begin(), row.end(), col,
                               [](const auto& cell, int c) { return cell.first < c; });
    if (at == row.end() || at->first != col)
        at = row.insert(at, {col, TableCell{}});
    return at->second;
}

void TextTable::tidy(Row& row, int col) {
    const auto at = std::lower_bound(row.begin(), row.end(), col,
                                     [](const auto& cell, int c) { return cell.first < c; });
    if (at != row.end() && at->first == col && at->second == TableCell{})
        row.erase(at);
}

void TextTable::checkCell(int row, int col) const {
    if (row < 0 || row >= rows() || col < 0 || col >= cols_)
        throw std::out_of_range("grid cell " + std::to_string(row) + "," + std::to_string(col) +
                                " outside " + std::to_string(rows()) + "x" + std::to_string(cols_));
}

const TableCell& TextTable::cell(int row, int col) const {
    static const TableCell empty;
    checkCell(row, col);
    const TableCell* found = find(cells_[static_cast<std::size_t>(row)], col);
    return found ? *found : empty;
}

TableCell& TextTable::cell(int row, int col) {
    checkCell(row, col);
    return insert(cells_[static_cast<std::size_t>(row)], col);
}

const std::string& TextTable::text(int row, int col) const {
    return cell(row, col).text;
}
void TextTable::setText(int row, int col, std::string text) {
    checkCell(row, col);
    Row& cells = cells_[static_cast<std::size_t>(row)];
    if (text.empty()) {
        if (find(cells, col)) {
            insert(cells, col).text.clear();
            tidy(cells, col);
        }
        return;
    }
    insert(cells, col).text = std::move(text);
}
std::optional<Color> TextTable::fore(int row, int col) const {
    return cell(row, col).fore;
}
void TextTable::setFore(int row, int col, std::optional<Color> color) {
    cell(row, col).fore = color;
    tidy(cells_[static_cast<std::size_t>(row)], col);
}
std::optional<Color> TextTable::back(int row, int col) const {
    return cell(row, col).back;
}
void TextTable::setBack(int row, int col, std::optional<Color> color) {
    cell(row, col).back = color;
    tidy(cells_[static_cast<std::size_t>(row)], col);
}
std::optional<Alignment> TextTable::cellAlignment(int row, int col) const {
    return cell(row, col).alignment;
}
void TextTable::setCellAlignment(int row, int col, std::optional<Alignment> alignment) {
    cell(row, col).alignment = alignment;
    tidy(cells_[static_cast<std::size_t>(row)], col);
}
const std::string& TextTable::picture(int row, int col) const {
    return cell(row, col).picture;
}
void TextTable::setPicture(int row, int col, std::string picture) {
    cell(row, col).picture = std::move(picture);
    tidy(cells_[static_cast<std::size_t>(row)], col);
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
    auto begin = cells_.begin() + firstRow;
    std::vector<std::size_t> order(static_cast<std::size_t>(lastRow - firstRow + 1));
    std::iota(order.begin(), order.end(), std::size_t{0});
    static const std::string none;
    auto key = [&](std::size_t i) -> const std::string& {
        const TableCell* found = find(begin[static_cast<std::ptrdiff_t>(i)], col);
        return found ? found->text : none;
    };
    std::stable_sort(order.begin(), order.end(), [&](std::size_t x, std::size_t y) {
        return CompareTextNoCase(key(x), key(y)) < 0;
    });
    std::vector<Row> sorted;
    std::vector<int> heights;
    sorted.reserve(order.size());
    for (std::size_t i : order) {
        sorted.push_back(std::move(begin[static_cast<std::ptrdiff_t>(i)]));
        heights.push_back(rowHeights_[static_cast<std::size_t>(firstRow) + i]);
    }
    std::move(sorted.begin(), sorted.end(), begin);
    std::copy(heights.begin(), heights.end(), rowHeights_.begin() + firstRow);
}

void TextTable::appendRowText(std::string& out, int row, int cols, char separator) const {
    if (row < 0 || row >= rows())
        throw std::out_of_range("grid row " + std::to_string(row));
    cols = std::min(cols, cols_);
    int col = 0;
    for (const auto& [at, cell] : cells_[static_cast<std::size_t>(row)]) {
        if (at >= cols)
            break;
        for (; col < at; ++col)
            out += separator;
        out += cell.text;
    }
    // One separator between each two columns: cols - 1 in all.
    for (; col < cols - 1; ++col)
        out += separator;
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
    if (a.cols_ != b.cols_ || a.rows() != b.rows() || a.rowHeights_ != b.rowHeights_ ||
        a.columnWidths_ != b.columnWidths_ || a.columnAlignments_ != b.columnAlignments_ ||
        a.currentRow_ != b.currentRow_ || a.currentCol_ != b.currentCol_)
        return false;
    // Cells compare by what they hold: a cell kept empty equals one never written.
    static const TableCell empty;
    for (std::size_t r = 0; r < a.cells_.size(); ++r) {
        const TextTable::Row& x = a.cells_[r];
        const TextTable::Row& y = b.cells_[r];
        std::size_t i = 0, j = 0;
        while (i < x.size() || j < y.size()) {
            const int cx = i < x.size() ? x[i].first : a.cols_;
            const int cy = j < y.size() ? y[j].first : a.cols_;
            const TableCell& left = cx <= cy ? x[i].second : empty;
            const TableCell& right = cy <= cx ? y[j].second : empty;
            if (!(left == right))
                return false;
            if (cx <= cy)
                ++i;
            if (cy <= cx)
                ++j;
        }
    }
    return true;
}

}  // namespace morvane
