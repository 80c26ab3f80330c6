#pragma once
// A table view over a text table (core/TextTable.h): row 0 is the heading row and
// shows as the column headings, with their line breaks; rows from 1 on are the body.
// Cell texts, fore and back colours, alignments, column widths and row heights in
// twips come from the table; a column of width 0 is hidden, as the sort key of the
// input table is. A body cell that holds a number stands on the right of its cell
// where its table puts it on the left, so that the digits of a column line up; texts
// stay where the table puts them. The view only shows the table: the window that owns
// the table changes it and calls refresh().

#include <QAbstractTableModel>
#include <QTableView>
#include <functional>

#include "core/TextTable.h"

namespace morvane {

class TextTableModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit TextTableModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}
    // The table shown; it must outlive the model or be replaced first.
    void setTable(const TextTable* table);
    const TextTable* table() const { return table_; }
    // Whether row 0 is the heading row (the default) or a row like the others.
    void setHeadingRow(bool heading);
    int firstBodyRow() const { return headingRow_ ? 1 : 0; }
    void reload();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const TextTable* table_ = nullptr;
    bool headingRow_ = true;
};

class TextTableView : public QTableView {
    Q_OBJECT
  public:
    explicit TextTableView(QWidget* parent = nullptr);

    void setTable(const TextTable* table);
    const TextTable* table() const { return model_->table(); }
    // A table whose row 0 is a body row: no headings are shown.
    void setHeadingRow(bool heading);
    // Reads the table again: cells, widths, heights, current cell.
    void refresh();

    // The text of a cell as shown, in the table's own numbering (row 0 the heading).
    QString cellText(int row, int col) const;
    // The rectangle of a body cell in the viewport, for clicks in tests.
    QRect cellRect(int row, int col) const;

    // Column widths given in twips are fitted to the font when it is wider than the
    // one the widths were made for; 1.0 keeps them as they are.
    void setWidthScale(double scale) { widthScale_ = scale; }

    // A table that fills its view: when the view is wider than the columns, each
    // column grows by its share of the room left, so that the table follows the size
    // of its window. The widths of the table itself stay as they are.
    // When the columns are wider than the view, each gives up its share of what it
    // holds beyond its texts, so that the last column is not cut off while there is
    // room for every text.
    void setFillWidth(bool fill);
    bool fillWidth() const { return fill_; }
    // A column as wide as its texts and heading need, rather than as its table says;
    // it keeps to its texts at every refresh.
    void fitColumnToContents(int col);

  signals:
    // The user made a cell current, in the table's numbering.
    void cellSelected(int row, int col);
    void cellDoubleClicked(int row, int col);

  protected:
    bool viewportEvent(QEvent* event) override;

  private:
    void applyGeometry();
    void applyWidths();
    int contentsWidth(int col) const;
    static void share(std::vector<int>& widths, const std::vector<int>& least, int room);

    TextTableModel* model_;
    double widthScale_ = 1.0;
    bool fill_ = false;
    bool sharing_ = false;
    std::vector<bool> fitted_;
    bool refreshing_ = false;
};

}  // namespace morvane
