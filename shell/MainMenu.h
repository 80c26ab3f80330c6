#pragma once
// The menu bar and the status bar of the input window. A menu command clicks the
// window's own button, so that it runs exactly as the button does; the menus reach
// every button of the window, with the usual shortcuts. The status bar tells what the
// document is: its file, its rows, whether it has unsaved changes.

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QObject>
#include <QStatusBar>
#include <string>
#include <utility>
#include <vector>

namespace morvane {

class MainWindow;
class Program;

class MainMenu : public QObject {
    Q_OBJECT
  public:
    MainMenu(MainWindow& window, Program& program);

    QMenuBar* menuBar() const { return bar_; }
    QStatusBar* statusBar() const { return status_; }
    // The text of the status bar.
    QString statusText() const { return statusLabel_->text(); }
    // An action by its object name ("actionNew", "actionSaveAs", ...).
    QAction* action(const QString& name) const;
    QMenu* recentMenu() const { return recent_; }

    // The commands follow the enabling of the buttons; the status bar the document.
    void refresh();
    // The recent files' menu follows the list.
    void refreshRecent();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QAction* addButton(QMenu* menu, const QString& name, const QString& text,
                       QAbstractButton* button, const QKeySequence& keys = {});
    QAction* addCommand(QMenu* menu, const QString& name, const QString& text,
                        const QKeySequence& keys = {});

    MainWindow& window_;
    Program& program_;
    QMenuBar* bar_;
    QStatusBar* status_;
    QLabel* statusLabel_;
    QMenu* recent_ = nullptr;
    // The actions that click a button, with their button.
    std::vector<std::pair<QAction*, QAbstractButton*>> buttons_;
};

// The status bar's text of a document: its file title ("No file" without one), its
// number of rows, and "modified" while it has unsaved changes.
QString DocumentStatus(const std::string& fileTitle, int rows, bool modified);

}  // namespace morvane
