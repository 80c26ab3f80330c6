#include "shell/LinePrinting.h"

#include "shell/ChartWidget.h"
#include "shell/Program.h"
#include "shell/ResultsWindow.h"

namespace morvane {

LinePrinting::LinePrinting(ResultsWindow& window, Program& program)
    : window_(window), program_(program) {
    window_.results().setPrintHandler([this](int code) { print(code); });
}

LinePrinting::~LinePrinting() {
    window_.results().setPrintHandler(nullptr);
}

void LinePrinting::Command9() {
    if (!dialog_) {
        dialog_ = std::make_unique<PrintDialog>(form_, window_, program_.port(),
                                                [this](int code, PrintRoute& route) {
                                                    route_ = &route;
                                                    window_.results().Text1(code);
                                                    route_ = nullptr;
                                                });
    }
    dialog_->open();
}

void LinePrinting::print(int code) {
    if (!route_)
        return;
    if (code == 3) {
        route_->add(form_.tablesOrientation(), [this](double width, double height) {
            return PrintTables(window_.results(), width, height, PrintFontMeasure);
        });
    } else if (code == 4) {
        const ChartLayout layout = window_.chartWidget()->chartLayout();
        const std::string title = window_.chartWidget()->Text7()->text().toStdString();
        route_->add(form_.chartOrientation(), [this, layout, title](double width, double height) {
            return std::vector<Drawing>{PrintChart(window_.chart(), layout, title,
                                                   program_.shared(), width, height,
                                                   PrintFontMeasure)};
        });
    }
}

}  // namespace morvane
