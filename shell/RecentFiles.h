#pragma once
// The line files opened or saved last, newest first, at most ten. They are kept in the
// program's settings when it has them, so that they outlast the run; without settings
// they last for the run only.

#include <QObject>
#include <QStringList>

class QSettings;

namespace morvane {

class RecentFiles : public QObject {
    Q_OBJECT
  public:
    static constexpr int kMost = 10;

    // The settings may be null; they must outlive this list.
    explicit RecentFiles(QSettings* settings = nullptr, QObject* parent = nullptr);

    const QStringList& files() const { return files_; }
    // The file goes to the front; an older entry of it goes, and the eleventh.
    void add(const QString& path);
    // A file that could not be opened leaves the list.
    void remove(const QString& path);

  signals:
    void changed();

  private:
    void store();

    QSettings* settings_;
    QStringList files_;
};

}  // namespace morvane
