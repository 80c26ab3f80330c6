#include "shell/ResultsFrame.h"

namespace morvane {

void MakeResultsTabs(QWidget& window, QTabWidget*& tab1, QWidget*& tablesPage,
                     QWidget*& graphPage) {
    tab1 = new QTabWidget(&window);
    tablesPage = new QWidget;
    graphPage = new QWidget;
    tab1->addTab(tablesPage, "Tables");
    tab1->addTab(graphPage, "Graph");
}

void MakeResultsButtons(QWidget& window, const std::array<QPushButton**, 5>& buttons) {
    static const char* const captions[] = {"Save results into files", "Print", "Copy tables",
                                           "back to Input tabls", "Help"};
    for (std::size_t i = 0; i < buttons.size(); ++i)
        *buttons[i] = new QPushButton(captions[i], &window);
}

}  // namespace morvane
