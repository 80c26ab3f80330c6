#pragma once
// The help viewer Help1: a text browser (WB1) with "Back", "Home" and "About". It
// opens at 11700 by 8400 twips; "Home" goes back to the page the viewer was opened
// with (HelpPage), not to the main page. The help pages are files in the program's
// folder.

#include <QPushButton>
#include <QString>
#include <QTextBrowser>
#include <QWidget>

#include "core/UserPort.h"

namespace morvane {

// The program's credit text, shown by "About".
extern const char* const kAboutText;

class HelpWindow : public QWidget {
    Q_OBJECT
  public:
    explicit HelpWindow(UserPort& port, QWidget* parent = nullptr);

    // Navigates to the page's full name and remembers it as HelpPage. A missing page
    // shows the browser's own notice. False when the page could not be opened at all.
    bool navigate(const QString& helpPage);
    const QString& HelpPage() const { return helpPage_; }

    QTextBrowser* WB1() const { return browser_; }
    QPushButton* Command1() const { return back_; }   // "Back"
    QPushButton* Command2() const { return home_; }   // "Home"
    QPushButton* Command3() const { return about_; }  // "About"

    // The page shown now.
    QString currentPage() const;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void showPage(const QString& page);

    UserPort& port_;
    QTextBrowser* browser_;
    QPushButton* back_;
    QPushButton* home_;
    QPushButton* about_;
    QString helpPage_;
    QString current_;
};

// Opens help on a page of the program's folder: HelpPage := folder and name, the
// viewer loaded and shown. Tells "An error occur at loading help" when it fails.
void OpenHelp(HelpWindow& viewer, const QString& programFolder, const QString& pageName,
              UserPort& port);

}  // namespace morvane
