#include "shell/MainMenu.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QKeySequence>

#include "document/DataTable.h"
#include "shell/HelpWindow.h"
#include "shell/MainWindow.h"
#include "shell/Program.h"
#include "shell/RecentFiles.h"

namespace morvane {

QString DocumentStatus(const std::string& fileTitle, int rows, bool modified) {
    QString text = fileTitle.empty() ? QString("No file") : QString::fromStdString(fileTitle);
    text += rows == 1 ? QString("  |  1 row") : QString("  |  %1 rows").arg(rows);
    if (modified)
        text += "  |  modified";
    return text;
}

MainMenu::MainMenu(MainWindow& window, Program& program)
    : QObject(&window), window_(window), program_(program) {
    bar_ = new QMenuBar(&window);
    bar_->setObjectName("MenuBar");
    status_ = new QStatusBar(&window);
    status_->setObjectName("StatusBar");
    status_->setSizeGripEnabled(false);
    statusLabel_ = new QLabel(status_);
    statusLabel_->setObjectName("StatusText");
    status_->addWidget(statusLabel_, 1);

    QMenu* file = bar_->addMenu("&File");
    addButton(file, "actionNew", "&New file", window.CommandNew(),
              QKeySequence(Qt::CTRL | Qt::Key_N));
    addButton(file, "actionOpen", "&Open...", window.CommandOpen(),
              QKeySequence(Qt::CTRL | Qt::Key_O));
    recent_ = file->addMenu("Open &Recent");
    recent_->setObjectName("menuRecent");
    addButton(file, "actionSave", "&Save", window.CommandSave(),
              QKeySequence(Qt::CTRL | Qt::Key_S));
    QAction* saveAs = addCommand(file, "actionSaveAs", "Save &As...",
                                 QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    connect(saveAs, &QAction::triggered, this,
            [this] { program_.run([this] { program_.document().CommandSaveAs(); }); });
    file->addSeparator();
    addButton(file, "actionImport", "&Import...", window.CommandImport());
    file->addSeparator();
    QAction* quit = addCommand(file, "actionQuit", "&Quit", QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, this, [this] { window_.close(); });

    QMenu* edit = bar_->addMenu("&Edit");
    addButton(edit, "actionAccept", "&Accept row", window.CommandAccept());
    addButton(edit, "actionEdit", "&Edit row", window.CommandEdit());
    addButton(edit, "actionDelete", "&Delete row", window.CommandDel());
    edit->addSeparator();
    addButton(edit, "actionNotes", "&Notes sheet...", window.CommandInf_form());
    addButton(edit, "actionOptions", "File &options...", window.CommandChgangeOptions());

    QMenu* analysis = bar_->addMenu("&Analysis");
    addButton(analysis, "actionCalculate", "&Calculate", window.CommandCalc(),
              QKeySequence(Qt::CTRL | Qt::Key_R));
    addButton(analysis, "actionCompare", "C&ompare lines...", window.CommandRelative());

    QMenu* tools = bar_->addMenu("&Tools");
    addButton(tools, "actionProbit", "&Probit...", window.CommandProbit());
    addButton(tools, "actionReduction", "&Reduction %...", window.CommandControl());
    addButton(tools, "actionFitLine", "&Fit line...", window.Command1());

    QMenu* help = bar_->addMenu("&Help");
    // F1 is the help of the window in front, whichever it is (Program::helpInFront).
    QAction* helpAction = addCommand(help, "actionHelp", "Morvane &Help");
    helpAction->setShortcut(QKeySequence(Qt::Key_F1));
    connect(helpAction, &QAction::triggered, this, [this] { program_.helpInFront(); });
    // The other windows have no menu: F1 pressed in them reaches the program here.
    qApp->installEventFilter(this);
    QAction* about = addCommand(help, "actionAbout", "&About Morvane");
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, [this] {
        program_.port().ask(
            Message{kAboutText, Buttons::Ok, Icon::Information, Answer::Ok, "About"});
    });
}

bool MainMenu::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return false;
    if (static_cast<QWidget*>(watched)->window() == &window_)
        return false;  // the menu's own shortcut
    program_.helpInFront();
    return true;
}

QAction* MainMenu::addCommand(QMenu* menu, const QString& name, const QString& text,
                              const QKeySequence& keys) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    if (!keys.isEmpty())
        action->setShortcut(keys);
    // The shortcuts work wherever the input window has the focus, also in its cells.
    window_.addAction(action);
    return action;
}

QAction* MainMenu::addButton(QMenu* menu, const QString& name, const QString& text,
                             QAbstractButton* button, const QKeySequence& keys) {
    QAction* action = addCommand(menu, name, text, keys);
    connect(action, &QAction::triggered, button, [button] {
        if (button->isEnabled() && button->isVisibleTo(button->window()))
            button->click();
    });
    buttons_.emplace_back(action, button);
    return action;
}

QAction* MainMenu::action(const QString& name) const {
    return bar_->findChild<QAction*>(name);
}

void MainMenu::refresh() {
    const bool open = window_.contentEnabled();
    for (const auto& [action, button] : buttons_)
        action->setEnabled(open && button->isEnabled() && button->isVisibleTo(&window_));
    const LineDocument& doc = program_.document();
    // Save As has a line to save once the line exists: the notes sheet is enabled then.
    action("actionSaveAs")->setEnabled(open && doc.main().CommandInfFormEnabled);
    recent_->setEnabled(open && !program_.recentFiles().files().isEmpty());
    int rows = 0;
    const TextTable& grid = doc.Grid1();
    for (int row = 1; row < grid.rows(); ++row) {
        if (!grid.text(row, dosecol::Dose).empty())
            ++rows;
    }
    const LineFile& file = doc.file();
    statusLabel_->setText(
        DocumentStatus(file.FileTitle(), rows, file.Modified() != 0 && !file.FileTitle().empty()));
}

void MainMenu::refreshRecent() {
    recent_->clear();
    const QStringList& files = program_.recentFiles().files();
    for (int i = 0; i < files.size(); ++i) {
        const QString path = files[i];
        const QString label = QString("&%1 %2").arg((i + 1) % 10).arg(QFileInfo(path).fileName());
        QAction* entry = recent_->addAction(label);
        entry->setToolTip(path);
        entry->setData(path);
        connect(entry, &QAction::triggered, this, [this, path] { program_.openFile(path); });
    }
    recent_->setEnabled(!files.isEmpty() && window_.contentEnabled());
}

}  // namespace morvane
