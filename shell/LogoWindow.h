#pragma once
// The splash window Logo, the program's start: seven frames of a probit line being
// laid over its points, then a second for the input window to load before it is shown
// centred on the screen and the splash goes.
//
// Timing: Timer1 (500 ms, once) starts Timer2, which shows one frame each 100 ms; at
// the seventh it stops, starts Timer3 (1000 ms, once) and loads the input window;
// Timer3 centres the input window on the screen, shows it and closes the splash.

#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>

namespace morvane {

class LogoWindow : public QWidget {
    Q_OBJECT
  public:
    static constexpr int kFrames = 7;
    static constexpr int kStartDelayMs = 500;
    static constexpr int kFrameMs = 100;
    static constexpr int kLoadMs = 1000;

    // loadMain creates the input window without showing it; the splash shows it.
    explicit LogoWindow(std::function<QWidget*()> loadMain, QWidget* parent = nullptr);

    // Shows the splash and starts Timer1.
    void start();

    int frameCounter() const { return counter_; }
    QWidget* mainWindow() const { return main_; }
    // The artwork of one frame, 0 to 6.
    static QPixmap Frame(int index, QSize size);

  signals:
    void mainShown(QWidget* main);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void timer2Tick();
    void timer3Tick();

    std::function<QWidget*()> loadMain_;
    std::array<QPixmap, kFrames> frames_;
    QPixmap picture2_;
    QTimer timer1_, timer2_, timer3_;
    int counter_ = 0;
    QWidget* main_ = nullptr;
};

}  // namespace morvane
