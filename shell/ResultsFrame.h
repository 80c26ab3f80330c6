#pragma once
// What the results of one line and the results of a comparison share: the tab
// control Tab1 with its pages "Tables" and "Graph", and the row of buttons under it
// ("Save results into files", "Print", "Copy tables", "back to Input tabls",
// "Help"). Each window builds its pages and connects the buttons itself.

#include <QPushButton>
#include <QTabWidget>
#include <QWidget>
#include <array>

namespace morvane {

// Makes the tab control in the window with its two empty pages.
void MakeResultsTabs(QWidget& window, QTabWidget*& tab1, QWidget*& tablesPage, QWidget*& graphPage);

// Makes the five buttons in the window: Command5, Command9, Command10, Command11 and
// Command15, in that order.
void MakeResultsButtons(QWidget& window, const std::array<QPushButton**, 5>& buttons);

}  // namespace morvane
