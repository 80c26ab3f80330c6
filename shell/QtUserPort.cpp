#include "shell/QtUserPort.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <algorithm>

namespace morvane {
namespace {

QMessageBox::StandardButton ToStandard(Answer answer) {
    switch (answer) {
        case Answer::Ok:
            return QMessageBox::Ok;
        case Answer::Cancel:
            return QMessageBox::Cancel;
        case Answer::Yes:
            return QMessageBox::Yes;
        case Answer::No:
            return QMessageBox::No;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon ToQtIcon(Icon icon) {
    switch (icon) {
        case Icon::None:
            return QMessageBox::NoIcon;
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Critical:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QString StartPath(const FileDialog& dialog) {
    const QString folder = QString::fromStdString(dialog.folder);
    const QString name = QString::fromStdString(dialog.fileName);
    if (folder.isEmpty())
        return name;
    if (name.isEmpty())
        return folder;
    return folder + "/" + name;
}

// The extension of the first pattern of a filter ("*.mrv" gives "mrv").
QString FirstExtension(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|');
    if (parts.size() < 2)
        return {};
    const QString pattern = parts[1].split(';').first().trimmed();
    if (!pattern.startsWith("*."))
        return {};
    const QString ext = pattern.mid(2);
    return ext.contains('*') || ext.contains('?') ? QString() : ext;
}

}  // namespace

QString QtFileFilter(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|');
    QStringList entries;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i].trimmed();
        // Qt reads the patterns from a parenthesised list at the end of the entry.
        const int open = description.lastIndexOf('(');
        if (open > 0 && description.endsWith(')'))
            description = description.left(open).trimmed();
        QString patterns = parts[i + 1].trimmed();
        patterns.replace(';', ' ');
        entries << description + " (" + patterns + ")";
    }
    return entries.join(";;");
}

QWidget* QtUserPort::owner() const {
    if (QWidget* active = QApplication::activeWindow())
        return active;
    return parent_.data();
}

Answer QtUserPort::ask(const Message& message) {
    QMessageBox box(owner());
    box.setWindowTitle(message.title.empty() ? QString(kApplicationTitle)
                                             : QString::fromStdString(message.title));
    box.setText(QString::fromStdString(message.text));
    box.setIcon(ToQtIcon(FittingIcon(message)));
    switch (message.buttons) {
        case Buttons::Ok:
            box.setStandardButtons(QMessageBox::Ok);
            break;
        case Buttons::OkCancel:
            box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
            break;
        case Buttons::YesNo:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
            break;
        case Buttons::YesNoCancel:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
            break;
    }
    if (QAbstractButton* preferred = box.button(ToStandard(message.defaultAnswer)))
        box.setDefaultButton(qobject_cast<QPushButton*>(preferred));
    const int result = box.exec();
    switch (result) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Cancel:
            return Answer::Cancel;
        case QMessageBox::Ok:
            return Answer::Ok;
        default:
            // Escape or the close box: the safe answer of the buttons shown.
            if (message.buttons == Buttons::Ok)
                return Answer::Ok;
            if (message.buttons == Buttons::YesNo)
                return Answer::No;
            return Answer::Cancel;
    }
}

std::optional<std::string> QtUserPort::openFileName(const FileDialog& dialog) {
    const QString filter = QtFileFilter(dialog.filter);
    const QStringList entries = filter.split(";;");
    QString selected = entries.value(std::max(dialog.filterIndex, 1) - 1, entries.value(0));
    const QString path = QFileDialog::getOpenFileName(owner(), QString::fromStdString(dialog.title),
                                                      StartPath(dialog), filter, &selected);
    if (path.isEmpty())
        return std::nullopt;
    if (dialog.chosenFilter && entries.contains(selected))
        *dialog.chosenFilter = static_cast<int>(entries.indexOf(selected)) + 1;
    return path.toStdString();
}

std::optional<std::string> QtUserPort::saveFileName(const FileDialog& dialog) {
    QString path = QFileDialog::getSaveFileName(owner(), QString::fromStdString(dialog.title),
                                                StartPath(dialog), QtFileFilter(dialog.filter));
    if (path.isEmpty())
        return std::nullopt;
    // A name typed without an extension takes the filter's, as the save dialogs of the
    // program always gave it.
    const QString ext = FirstExtension(dialog.filter);
    if (!ext.isEmpty() && QFileInfo(path).suffix().isEmpty())
        path += "." + ext;
    return path.toStdString();
}

std::optional<std::string> QtUserPort::inputBox(const InputRequest& request) {
    bool ok = false;
    const QString title =
        request.title.empty() ? QString(kApplicationTitle) : QString::fromStdString(request.title);
    const QString text =
        QInputDialog::getText(owner(), title, QString::fromStdString(request.prompt),
                              QLineEdit::Normal, QString::fromStdString(request.defaultText), &ok);
    if (!ok)
        return std::nullopt;
    return text.toStdString();
}

}  // namespace morvane
