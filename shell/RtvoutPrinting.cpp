#include "shell/RtvoutPrinting.h"

#include "relative/RelativePrinting.h"
#include "shell/PictureExport.h"
#include "shell/Program.h"
#include "shell/RtvoutWindow.h"

namespace morvane {

RtvoutPrinting::RtvoutPrinting(RtvoutWindow& window, Program& program, std::function<void()> redraw)
    : window_(window), program_(program), redraw_(std::move(redraw)) {}

RtvoutPrinting::~RtvoutPrinting() = default;

Drawing RtvoutPrinting::picture() {
    redraw_();
    return ComposeLineChartPicture(window_.chart(), window_.Text2()->text().toStdString(),
                                   PrintFontMeasure);
}

void RtvoutPrinting::Command9() {
    if (!dialog_) {
        dialog_ = std::make_unique<PrintDialog>(
            form_, window_, program_.port(),
            [this](int code, PrintRoute& route) { Text1(code, route); });
    }
    dialog_->open();
}

void RtvoutPrinting::Text1(int code, PrintRoute& route) {
    if (code == 5) {
        route.add(form_.tablesOrientation(), [this](double width, double height) {
            return PrintLineTable(window_.rtvout(), width, height, PrintFontMeasure);
        });
    } else if (code == 6) {
        redraw_();
        const std::string title = window_.Text2()->text().toStdString();
        route.add(form_.chartOrientation(), [this, title](double width, double height) {
            return std::vector<Drawing>{
                PrintLineChart(window_.chart(), title, width, height, PrintFontMeasure)};
        });
    }
}

}  // namespace morvane
