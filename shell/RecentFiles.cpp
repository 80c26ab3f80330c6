#include "shell/RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

namespace morvane {
namespace {

constexpr const char* kKey = "recentFiles";

QString Canonical(const QString& path) {
    const QFileInfo info(path);
    return info.exists() ? info.absoluteFilePath() : path;
}

}  // namespace

RecentFiles::RecentFiles(QSettings* settings, QObject* parent)
    : QObject(parent), settings_(settings) {
    if (settings_ != nullptr) {
        files_ = settings_->value(kKey).toStringList();
        while (files_.size() > kMost)
            files_.removeLast();
    }
}

void RecentFiles::add(const QString& path) {
    const QString file = Canonical(path);
    if (!files_.isEmpty() && files_.first() == file)
        return;
    files_.removeAll(file);
    files_.prepend(file);
    while (files_.size() > kMost)
        files_.removeLast();
    store();
}

void RecentFiles::remove(const QString& path) {
    if (files_.removeAll(Canonical(path)) + files_.removeAll(path) == 0)
        return;
    store();
}

void RecentFiles::store() {
    if (settings_ != nullptr) {
        settings_->setValue(kKey, files_);
        settings_->sync();
    }
    emit changed();
}

}  // namespace morvane
