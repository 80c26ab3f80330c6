#include "shell/LogoWindow.h"

#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <cmath>

#include "shell/Twips.h"

namespace morvane {
namespace {

constexpr double kLogoWidthTwips = 7200;
constexpr double kLogoHeightTwips = 4200;

// The points of the artwork: a dose-response on log-probit paper, in fractions of
// the plot box, x to the right and y upward.
constexpr double kPoints[][2] = {{0.08, 0.16}, {0.24, 0.30}, {0.40, 0.43},
                                 {0.56, 0.60}, {0.72, 0.70}, {0.88, 0.86}};

}  // namespace

QPixmap LogoWindow::Frame(int index, QSize size) {
    QPixmap pixmap(size);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    const double w = size.width(), h = size.height();

    QLinearGradient sky(0, 0, 0, h);
    sky.setColorAt(0, QColor(20, 48, 86));
    sky.setColorAt(1, QColor(38, 92, 140));
    p.fillRect(pixmap.rect(), sky);

    // The paper: a plot box with probit lines that thicken toward the middle.
    const QRectF box(w * 0.52, h * 0.16, w * 0.42, h * 0.62);
    p.fillRect(box, QColor(250, 251, 253));
    p.setPen(QPen(QColor(205, 214, 226), 1));
    for (int i = 1; i < 10; ++i) {
        const double y = box.top() + box.height() * (0.5 + 0.5 * std::tanh((i - 5) * 0.33));
        p.drawLine(QPointF(box.left(), y), QPointF(box.right(), y));
    }
    for (int i = 1; i < 4; ++i) {
        const double x = box.left() + box.width() * i / 4;
        p.drawLine(QPointF(x, box.top()), QPointF(x, box.bottom()));
    }
    p.setPen(QPen(QColor(120, 134, 156), 1.2));
    p.drawRect(box);

    auto at = [&](double fx, double fy) {
        return QPointF(box.left() + box.width() * fx, box.bottom() - box.height() * fy);
    };
    // One more point each frame; from the fourth frame the line grows from the left.
    const int shown = std::min(index + 1, 6);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(226, 92, 54));
    for (int i = 0; i < shown; ++i)
        p.drawEllipse(at(kPoints[i][0], kPoints[i][1]), 4.5, 4.5);
    if (index >= 3) {
        const double reach = std::min(1.0, (index - 2) / 4.0);
        p.setPen(QPen(QColor(20, 48, 86), 2.6, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(at(0.04, 0.12), at(0.04 + 0.92 * reach, 0.12 + 0.78 * reach));
    }
    if (index >= 6) {
        // The drop line of the 50% response to the dose axis.
        p.setPen(QPen(QColor(226, 92, 54), 1.4, Qt::DashLine));
        p.drawLine(at(0, 0.5), at(0.48, 0.5));
        p.drawLine(at(0.48, 0.5), at(0.48, 0));
    }

    // The name and what the program is for.
    QFont title = p.font();
    title.setPixelSize(static_cast<int>(h * 0.14));
    title.setBold(true);
    p.setFont(title);
    p.setPen(QColor(255, 255, 255));
    p.drawText(QRectF(w * 0.06, h * 0.22, w * 0.44, h * 0.24), Qt::AlignLeft | Qt::AlignVCenter,
               "Morvane");
    QFont sub = p.font();
    sub.setPixelSize(static_cast<int>(h * 0.062));
    sub.setBold(false);
    p.setFont(sub);
    p.setPen(QColor(196, 216, 238));
    p.drawText(QRectF(w * 0.06, h * 0.46, w * 0.44, h * 0.3),
               Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
               "Probit analysis of\ndose-response bioassays");
    // A bar that fills as the frames play.
    const QRectF track(w * 0.06, h * 0.86, w * 0.88, h * 0.018);
    p.fillRect(track, QColor(255, 255, 255, 50));
    p.fillRect(
        QRectF(track.left(), track.top(), track.width() * (index + 1) / kFrames, track.height()),
        QColor(226, 92, 54));
    return pixmap;
}

LogoWindow::LogoWindow(std::function<QWidget*()> loadMain, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint), loadMain_(std::move(loadMain)) {
    setWindowTitle("Morvane");
    const QSize size(PixelsX(*this, kLogoWidthTwips), PixelsY(*this, kLogoHeightTwips));
    setFixedSize(size);
    for (int i = 0; i < kFrames; ++i)
        frames_[static_cast<std::size_t>(i)] = Frame(i, size);
    picture2_ = frames_[0];

    // Precise timers never fire early, so the splash lasts at least its 500 ms, seven
    // frames of 100 ms and 1000 ms; coarse ones may fire up to 5% early.
    for (QTimer* timer : {&timer1_, &timer2_, &timer3_})
        timer->setTimerType(Qt::PreciseTimer);
    timer1_.setSingleShot(true);
    timer1_.setInterval(kStartDelayMs);
    timer2_.setInterval(kFrameMs);
    timer3_.setSingleShot(true);
    timer3_.setInterval(kLoadMs);
    connect(&timer1_, &QTimer::timeout, this, [this] { timer2_.start(); });
    connect(&timer2_, &QTimer::timeout, this, [this] { timer2Tick(); });
    connect(&timer3_, &QTimer::timeout, this, [this] { timer3Tick(); });
}

void LogoWindow::start() {
    if (QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect s = screen->geometry();
        move(s.left() + (s.width() - width()) / 2, s.top() + (s.height() - height()) / 2);
    }
    show();
    timer1_.start();
}

void LogoWindow::timer2Tick() {
    picture2_ = frames_[static_cast<std::size_t>(std::min(counter_, kFrames - 1))];
    update();
    ++counter_;
    if (counter_ >= kFrames) {
        timer2_.stop();
        timer3_.start();
        main_ = loadMain_();
    }
}

void LogoWindow::timer3Tick() {
    if (main_) {
        // Centred on the screen, outer frame included.
        if (QScreen* screen = QGuiApplication::primaryScreen()) {
            const QRect s = screen->geometry();
            main_->move(s.left() + (s.width() - main_->width()) / 2,
                        s.top() + (s.height() - main_->height()) / 2);
        }
        main_->show();
        emit mainShown(main_);
    }
    close();
    deleteLater();
}

void LogoWindow::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.drawPixmap(0, 0, picture2_);
}

}  // namespace morvane
