#include "shell/WindowGeometry.h"

#include <QEvent>
#include <QObject>
#include <QRect>
#include <QSettings>
#include <QWidget>

namespace morvane {
namespace {

// Writes the window's geometry to the settings whenever it hides.
class GeometryKeeper : public QObject {
  public:
    GeometryKeeper(QWidget& window, QSettings& settings, QString key, KeepPlace keep)
        : QObject(&window), settings_(settings), key_(std::move(key)), keep_(keep) {}

    void restore(QWidget& window) const {
        const QByteArray saved = settings_.value(key_ + "/geometry").toByteArray();
        if (saved.isEmpty())
            return;
        const QPoint place = window.pos();
        window.restoreGeometry(saved);
        if (keep_ == KeepPlace::SizeOnly && !window.isMaximized())
            window.move(place);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        // Closing hides the window as well.
        if (event->type() == QEvent::Hide) {
            settings_.setValue(key_ + "/geometry", static_cast<QWidget*>(watched)->saveGeometry());
            settings_.sync();
        }
        return false;
    }

  private:
    QSettings& settings_;
    QString key_;
    KeepPlace keep_;
};

}  // namespace

void RememberGeometry(QWidget& window, QSettings& settings, const QString& key, KeepPlace keep) {
    auto* keeper = new GeometryKeeper(window, settings, key, keep);
    keeper->restore(window);
    window.installEventFilter(keeper);
}

}  // namespace morvane
