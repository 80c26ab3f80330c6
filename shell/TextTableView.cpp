#include "shell/TextTableView.h"

#include <QFontMetricsF>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMouseEvent>
#include <algorithm>
#include <vector>

#include "core/NumberText.h"
#include "shell/DrawingPainter.h"
#include "shell/Twips.h"

namespace morvane {
namespace {

// The grid's alignment numbers: 0 left-top, 1 left-centre, 2 left-bottom, 3 centre-
// top, 4 centre-centre, 5 centre-bottom, 6 right-top, 7 right-centre, 8 right-bottom,
// 9 general (text left, numbers right, centred vertically).
Qt::Alignment ToQtAlignment(Alignment alignment, const std::string& text) {
    if (alignment < 0 || alignment > 8) {
        const bool number = ParseNumber(text).has_value();
        return (number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    }
    static const Qt::Alignment horizontal[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    static const Qt::Alignment vertical[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    return horizontal[alignment / 3] | vertical[alignment % 3];
}

// A body cell: a number that its table puts on the left stands on the right.
Qt::Alignment BodyAlignment(Alignment alignment, const std::string& text) {
    const Qt::Alignment a = ToQtAlignment(alignment, text);
    if ((a & Qt::AlignLeft) && ParseNumber(text).has_value())
        return (a & ~Qt::AlignHorizontal_Mask) | Qt::AlignRight;
    return a;
}

// The chi-square symbol that stands for a cell's picture.
QString PictureText(const std::string& picture) {
    if (picture.empty())
        return {};
    return QString::fromUtf8("\u03c7\u00b2");
}

// The default height of a body row, in twips.
constexpr int kDefaultRowHeight = 240;
constexpr int kDefaultColumnWidth = 1000;
// The tables' font, and the average width of a character in the font that the
// column widths in twips were made for, in pixels at 96 dots per inch.
constexpr double kTablePoints = 8;
constexpr double kDesignCharacterWidth = 5.3;

}  // namespace

void TextTableModel::setTable(const TextTable* table) {
    beginResetModel();
    table_ = table;
    endResetModel();
}

void TextTableModel::setHeadingRow(bool heading) {
    beginResetModel();
    headingRow_ = heading;
    endResetModel();
}

void TextTableModel::reload() {
    beginResetModel();
    endResetModel();
}

int TextTableModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || !table_)
        return 0;
    return std::max(0, table_->rows() - firstBodyRow());
}

int TextTableModel::columnCount(const QModelIndex& parent) const {
    if (parent.isValid() || !table_)
        return 0;
    return table_->cols();
}

QVariant TextTableModel::data(const QModelIndex& index, int role) const {
    if (!table_ || !index.isValid())
        return {};
    const int row = index.row() + firstBodyRow(), col = index.column();
    if (row >= table_->rows() || col >= table_->cols())
        return {};
    const TableCell& cell = table_->cell(row, col);
    switch (role) {
        case Qt::DisplayRole:
            if (cell.text.empty() && !cell.picture.empty())
                return PictureText(cell.picture);
            return QString::fromStdString(cell.text);
        case Qt::ForegroundRole:
            if (cell.fore)
                return ToQColor(*cell.fore);
            return {};
        case Qt::BackgroundRole:
            if (cell.back)
                return ToQColor(*cell.back);
            return {};
        case Qt::TextAlignmentRole: {
            Alignment a = 9;
            if (cell.alignment) {
                a = *cell.alignment;
            } else if (auto column = table_->columnAlignment(col)) {
                a = *column;
            }
            return QVariant::fromValue(BodyAlignment(a, cell.text));
        }
        default:
            return {};
    }
}

QVariant TextTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (!table_ || !headingRow_ || orientation != Qt::Horizontal || table_->rows() == 0)
        return {};
    if (section < 0 || section >= table_->cols())
        return {};
    const TableCell& cell = table_->cell(0, section);
    switch (role) {
        case Qt::DisplayRole:
            if (cell.text.empty() && !cell.picture.empty())
                return PictureText(cell.picture);
            return QString::fromStdString(cell.text);
        case Qt::TextAlignmentRole: {
            Alignment a = 3;  // headings centred
            if (cell.alignment)
                a = *cell.alignment;
            // Headings wrap at their spaces, as the grids' headings always have.
            return QVariant::fromValue(ToQtAlignment(a, cell.text) | Qt::TextWordWrap);
        }
        case Qt::ForegroundRole:
            if (cell.fore)
                return ToQColor(*cell.fore);
            return {};
        default:
            return {};
    }
}

TextTableView::TextTableView(QWidget* parent)
    : QTableView(parent), model_(new TextTableModel(this)) {
    setModel(model_);
    verticalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    // Narrow columns, such as the gap of the estimates, keep the width they are given.
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setDefaultAlignment(Qt::AlignHCenter | Qt::AlignTop);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(true);
    setAlternatingRowColors(false);
    QFont tableFont = font();
    tableFont.setPointSizeF(kTablePoints);
    setFont(tableFont);
    horizontalHeader()->setFont(tableFont);
    // Widths in twips were made for a narrower font; they grow with this one.
    const double average = QFontMetricsF(tableFont, this).averageCharWidth() * 96.0 / logicalDpiX();
    widthScale_ = std::clamp(average / kDesignCharacterWidth, 1.0, 1.3);
    setStyleSheet(
        "QTableView { gridline-color: #b8bcc4; selection-background-color: #cfe3ff;"
        " selection-color: black; }"
        "QHeaderView::section { background: #eceef2; border: 0px;"
        " border-right: 1px solid #b8bcc4; border-bottom: 1px solid #b8bcc4; padding: 2px; }");
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current, const QModelIndex&) {
                if (refreshing_ || !current.isValid())
                    return;
                emit cellSelected(current.row() + model_->firstBodyRow(), current.column());
            });
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.isValid())
            emit cellDoubleClicked(index.row() + model_->firstBodyRow(), index.column());
    });
}

void TextTableView::setTable(const TextTable* table) {
    refreshing_ = true;
    model_->setTable(table);
    refreshing_ = false;
    refresh();
}

void TextTableView::setHeadingRow(bool heading) {
    refreshing_ = true;
    model_->setHeadingRow(heading);
    horizontalHeader()->setVisible(heading);
    refreshing_ = false;
    refresh();
}

void TextTableView::refresh() {
    refreshing_ = true;
    model_->reload();
    applyGeometry();
    const TextTable* table = model_->table();
    const int first = model_->firstBodyRow();
    if (table && table->currentRow() >= first && table->currentRow() < table->rows() &&
        table->currentCol() < table->cols()) {
        setCurrentIndex(model_->index(table->currentRow() - first, table->currentCol()));
    }
    refreshing_ = false;
}

void TextTableView::setFillWidth(bool fill) {
    fill_ = fill;
    applyWidths();
}

// The view's room changes with the window and when a scroll bar comes or goes.
bool TextTableView::viewportEvent(QEvent* event) {
    const bool handled = QTableView::viewportEvent(event);
    if (event->type() == QEvent::Resize && fill_ && !sharing_) {
        sharing_ = true;
        applyWidths();
        sharing_ = false;
    }
    return handled;
}

void TextTableView::fitColumnToContents(int col) {
    if (col < 0)
        return;
    if (fitted_.size() <= static_cast<std::size_t>(col))
        fitted_.resize(static_cast<std::size_t>(col) + 1, false);
    fitted_[static_cast<std::size_t>(col)] = true;
    applyWidths();
}

int TextTableView::contentsWidth(int col) const {
    return std::max(sizeHintForColumn(col), horizontalHeader()->sectionSizeHint(col));
}

// Widens or narrows the columns to the room: each by its share of the difference,
// a narrowed one never below its least width. The last column takes what rounding
// leaves over.
void TextTableView::share(std::vector<int>& widths, const std::vector<int>& least, int room) {
    int total = 0, slack = 0, last = -1;
    for (std::size_t c = 0; c < widths.size(); ++c) {
        if (widths[c] == 0)
            continue;
        total += widths[c];
        slack += std::max(0, widths[c] - least[c]);
        last = static_cast<int>(c);
    }
    if (total == 0 || total == room || (total > room && slack == 0))
        return;
    const int difference = room - total;
    const int cut = std::min(-difference, slack);
    int given = 0;
    for (std::size_t c = 0; c < widths.size(); ++c) {
        int& w = widths[c];
        if (w == 0)
            continue;
        if (difference < 0) {
            const int part = std::max(0, w - least[c]);
            w -= static_cast<int>(static_cast<long long>(part) * cut / slack);
        } else if (static_cast<int>(c) != last) {
            w = static_cast<int>(static_cast<long long>(w) * room / total);
        }
        given += w;
    }
    // What rounding leaves goes to the columns from the right, each within its least.
    int left = (difference < 0 ? total - cut : room) - given;
    for (auto c = widths.size(); c-- > 0 && left != 0;) {
        if (widths[c] == 0)
            continue;
        const int change = std::max(left, least[c] - widths[c]);
        widths[c] += change;
        left -= change;
    }
}

// The widths of the table, or of the texts for a column fitted to them; in a view
// that fills its width, shared out to the room of the view.
void TextTableView::applyWidths() {
    const TextTable* table = model_->table();
    if (!table)
        return;
    const auto cols = static_cast<std::size_t>(table->cols());
    std::vector<int> widths(cols, 0), least(cols, 0);
    for (int c = 0; c < table->cols(); ++c) {
        int twips = table->columnWidth(c);
        if (twips < 0)
            twips = kDefaultColumnWidth;
        setColumnHidden(c, twips == 0);
        if (twips == 0)
            continue;
        const auto i = static_cast<std::size_t>(c);
        const bool fitted = i < fitted_.size() && fitted_[i];
        widths[i] = fitted ? contentsWidth(c) : PixelsX(*this, twips * widthScale_);
        least[i] = std::min(widths[i], contentsWidth(c));
    }
    if (fill_)
        share(widths, least, viewport()->width());
    for (int c = 0; c < table->cols(); ++c) {
        if (widths[static_cast<std::size_t>(c)] > 0)
            setColumnWidth(c, widths[static_cast<std::size_t>(c)]);
    }
}

void TextTableView::applyGeometry() {
    const TextTable* table = model_->table();
    if (!table)
        return;
    applyWidths();
    const int first = model_->firstBodyRow();
    if (table->rows() > 0 && first == 1) {
        // The heading row is as high as its table says, or as its wrapped texts need.
        const int heading = table->rowHeight(0);
        int needed = PixelsY(*this, heading < 0 ? kDefaultRowHeight : heading);
        const QFontMetrics metrics(horizontalHeader()->font());
        for (int c = 0; c < table->cols(); ++c) {
            if (isColumnHidden(c))
                continue;
            const QString text = model_->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
            const QRect bounds =
                metrics.boundingRect(QRect(0, 0, std::max(8, columnWidth(c) - 8), 2000),
                                     Qt::AlignHCenter | Qt::TextWordWrap, text);
            needed = std::max(needed, bounds.height() + 8);
        }
        horizontalHeader()->setFixedHeight(needed);
    }
    const int lineHeight = fontMetrics().height() + 4;
    for (int r = first; r < table->rows(); ++r) {
        const int height = table->rowHeight(r);
        setRowHeight(r - first, std::max(PixelsY(*this, height < 0 ? kDefaultRowHeight : height),
                                         height == 0 ? 0 : lineHeight));
    }
}

QString TextTableView::cellText(int row, int col) const {
    const TextTable* table = model_->table();
    if (!table)
        return {};
    const int first = model_->firstBodyRow();
    if (row < first)
        return model_->headerData(col, Qt::Horizontal, Qt::DisplayRole).toString();
    return model_->data(model_->index(row - first, col), Qt::DisplayRole).toString();
}

QRect TextTableView::cellRect(int row, int col) const {
    return visualRect(model_->index(row - model_->firstBodyRow(), col));
}

}  // namespace morvane
