#include "shell/HelpWindow.h"

#include <QFileInfo>
#include <QResizeEvent>
#include <QUrl>

#include "shell/Twips.h"

namespace morvane {
namespace {

constexpr double kStartWidth = 11700;
constexpr double kStartHeight = 8400;
// The frame of a window around its inside, in twips, as the sizes of the help
// viewer count it: borders and title bar.
constexpr double kFrameWidth = 120;
constexpr double kFrameHeight = 400;
constexpr double kBrowserLeft = 90;
constexpr double kBrowserTop = 600;
constexpr double kSmallestHeight = 2500;

}  // namespace

const char* const kAboutText =
    "Morvane\n"
    "Probit analysis of dose-response bioassays\n"
    "\n"
    "Morvane fits the log-dose probit line of an assay by the classical method of "
    "Finney, with probits from the printed tables and cycles of weighted regression on "
    "working probits. It gives LD, LC and LT values with their fiducial limits, charts "
    "on log-probit paper and the comparison of several lines.\n"
    "\n"
    "Written by the Morvane developers. Built with Qt.";

HelpWindow::HelpWindow(UserPort& port, QWidget* parent) : QWidget(parent, Qt::Window), port_(port) {
    setWindowTitle("Help");
    browser_ = new QTextBrowser(this);
    browser_->setOpenLinks(true);
    browser_->setOpenExternalLinks(true);
    back_ = new QPushButton("Back", this);
    home_ = new QPushButton("Home", this);
    about_ = new QPushButton("About", this);
    const int bw = PixelsX(*this, 1100), bh = PixelsY(*this, 375);
    const int top = PixelsY(*this, 120);
    int left = PixelsX(*this, kBrowserLeft);
    for (QPushButton* b : {back_, home_, about_}) {
        b->setGeometry(left, top, bw, bh);
        left += bw + PixelsX(*this, 90);
    }
    // Back on the first page does nothing, as the browser has nowhere to go.
    connect(back_, &QPushButton::clicked, this, [this] { browser_->backward(); });
    connect(home_, &QPushButton::clicked, this, [this] { showPage(helpPage_); });
    connect(about_, &QPushButton::clicked, this, [this] {
        port_.ask(Message{kAboutText, Buttons::Ok, Icon::Information, Answer::Ok, "About"});
    });
    browser_->setGeometry(PixelsX(*this, kBrowserLeft), PixelsY(*this, kBrowserTop),
                          PixelsX(*this, kStartWidth - 300), PixelsY(*this, kStartHeight - 1300));
    resize(PixelsX(*this, kStartWidth - kFrameWidth), PixelsY(*this, kStartHeight - kFrameHeight));
}

QString HelpWindow::currentPage() const {
    return current_;
}

void HelpWindow::showPage(const QString& page) {
    current_ = page;
    if (QFileInfo::exists(page)) {
        browser_->setSource(QUrl::fromLocalFile(page));
    } else {
        browser_->setHtml("<h2>Page not found</h2><p>The help page <b>" + page.toHtmlEscaped() +
                          "</b> could not be found.</p>");
    }
}

bool HelpWindow::navigate(const QString& helpPage) {
    helpPage_ = helpPage;
    showPage(helpPage);
    QWidget::show();
    raise();
    activateWindow();
    return true;
}

void HelpWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isMinimized())
        return;
    const double height = TwipsY(*this, event->size().height()) + kFrameHeight;
    const double width = TwipsX(*this, event->size().width()) + kFrameWidth;
    if (height < kSmallestHeight)
        return;
    browser_->resize(PixelsX(*this, width - 300), PixelsY(*this, height - 1300));
}

void OpenHelp(HelpWindow& viewer, const QString& programFolder, const QString& pageName,
              UserPort& port) {
    if (!viewer.navigate(programFolder + pageName))
        port.tellError("An error occur at loading help");
}

}  // namespace morvane
