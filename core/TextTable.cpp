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
    cells_.resize(static_cast<std::size_t>(rows),
                  std::vector<TableCell>(static_cast<std::size_t>(cols_)));
    rowHeights_.resize(static_cast<std::size_t>(rows), -1);
    if (currentRow_ >= rows)
        currentRow_ = rows > 0 ? rows - 1 : 0;
}

void TextTable::setCols(int cols) {
    if (cols < 0)
        cols = 0;
    cols_ = cols;
    for (auto& row : cells_)
        row.resize(static_cast<std::size_t>(cols));
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
        for (auto& c : row)
            c = TableCell{};
}

void TextTable::checkCell(int row, int col) const {
    if (row < 0 || row >= rows() || col < 0 || col >= cols_)
        throw std::out_of_range("grid cell " + std::to_string(row) + "," + std::to_string(col) +
                                " outside " + std::to_string(rows()) + "x" + std::to_string(cols_));
}

const TableCell& TextTable::cell(int row, int col) const {
    checkCell(row, col);
    return cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
}

TableCell& TextTable::cell(int row, int col) {
    checkCell(row, col);
    return cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
}

const std::string& TextTable::text(int row, int col) const {
    return cell(row, col).text;
}
void TextTable::setText(int row, int col, std::string text) {
    cell(row, col).text = std::move(text);
}
std::optional<Color> TextTable::fore(int row, int col) const {
    return cell(row, col).fore;
}
void TextTable::setFore(int row, int col, std::optional<Color> color) {
    cell(row, col).fore = color;
}
std::optional<Color> TextTable::back(int row, int col) const {
    return cell(row, col).back;
}
void TextTable::setBack(int row, int col, std::optional<Color> color) {
    cell(row, col).back = color;
}
std::optional<Alignment> TextTable::cellAlignment(int row, int col) const {
    return cell(row, col).alignment;
}
void TextTable::setCellAlignment(int row, int col, std::optional<Alignment> alignment) {
    cell(row, col).alignment = alignment;
}
const std::string& TextTable::picture(int row, int col) const {
    return cell(row, col).picture;
}
void TextTable::setPicture(int row, int col, std::string picture) {
    cell(row, col).picture = std::move(picture);
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
    std::stable_sort(order.begin(), order.end(), [&](std::size_t x, std::size_t y) {
        return CompareTextNoCase(
                   begin[static_cast<std::ptrdiff_t>(x)][static_cast<std::size_t>(col)].text,
                   begin[static_cast<std::ptrdiff_t>(y)][static_cast<std::size_t>(col)].text) < 0;
    });
    std::vector<std::vector<TableCell>> sorted;
    std::vector<int> heights;
    sorted.reserve(order.size());
    for (std::size_t i : order) {
        sorted.push_back(std::move(begin[static_cast<std::ptrdiff_t>(i)]));
        heights.push_back(rowHeights_[static_cast<std::size_t>(firstRow) + i]);
    }
    std::move(sorted.begin(), sorted.end(), begin);
    std::copy(heights.begin(), heights.end(), rowHeights_.begin() + firstRow);
}

std::string TextTable::dump() const {
    std::string out;
    for (int r = 0; r < rows(); ++r) {
        if (r > 0)
            out += '\n';
        for (int c = 0; c < cols_; ++c) {
            if (c > 0)
                out += '\t';
            out += text(r, c);
        }
    }
    return out;
}

}  // namespace morvane
