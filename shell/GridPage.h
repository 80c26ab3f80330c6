#pragma once
// A page of a tab widget laid out on a grid, as the dialogs with tabs build them.

#include <QGridLayout>
#include <QString>
#include <QTabWidget>
#include <QWidget>

namespace morvane {

struct GridPage {
    QWidget* page;
    QGridLayout* grid;
};

// A new page with its grid; the page is the parent of what goes on it.
inline GridPage NewGridPage() {
    auto* page = new QWidget;
    return {page, new QGridLayout(page)};
}

// Adds the page to the tabs; the grid's row stretchRow takes the height to spare.
inline void AddGridPage(QTabWidget& tabs, const GridPage& page, int stretchRow,
                        const QString& caption) {
    page.grid->setRowStretch(stretchRow, 1);
    tabs.addTab(page.page, caption);
}

}  // namespace morvane
