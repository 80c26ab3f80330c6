#pragma once
// The dialog "print" of the results windows: for the tables and for the chart, a
// "Print" box, the number of copies, the orientation with a small preview of the
// page, and (for one line) "Print header", which only shows or hides the header
// marks of the preview. "Print" sends the print codes to the results window, whose
// pages go the way of shell/PrintRoute.h. The results window is disabled while the
// dialog shows, and enabled again when it goes.

#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <functional>

#include "core/UserPort.h"
#include "results/PrintLayout.h"
#include "shell/FilteredLineEdit.h"
#include "shell/PrintRoute.h"

namespace morvane {

class PrintDialog : public QDialog {
    Q_OBJECT
  public:
    // Sends one print code to the results window; the pages it makes join the route.
    using Sender = std::function<void(int code, PrintRoute& route)>;

    PrintDialog(PrintForm& form, QWidget& resultsWindow, UserPort& port, Sender send);

    // Opens the dialog beside the disabled results window.
    void open();

    // The controls, named as the form names them.
    QCheckBox* Check1() const { return check1_; }
    FilteredLineEdit* Text1() const { return text1_; }
    QRadioButton* Option1() const { return option1_; }
    QRadioButton* Option2() const { return option2_; }
    QCheckBox* Check3() const { return check3_; }
    QLabel* Picture1() const { return picture1_; }
    QLabel* Picture2() const { return picture2_; }
    QCheckBox* Check2() const { return check2_; }
    FilteredLineEdit* Text2() const { return text2_; }
    QRadioButton* Option3() const { return option3_; }
    QRadioButton* Option4() const { return option4_; }
    QCheckBox* Check4() const { return check4_; }
    QLabel* Picture3() const { return picture3_; }
    QLabel* Picture4() const { return picture4_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QGroupBox* buildGroup(const QString& title, QCheckBox*& print, FilteredLineEdit*& copies,
                          const QString& copiesCaption, QRadioButton*& portrait,
                          QRadioButton*& landscape, QCheckBox*& header, QLabel*& portraitPage,
                          QLabel*& landscapePage);
    void show(bool fromForm);
    void print();
    void leave();

    PrintForm& form_;
    QWidget& resultsWindow_;
    UserPort& port_;
    Sender send_;

    QCheckBox *check1_, *check2_, *check3_ = nullptr, *check4_ = nullptr;
    FilteredLineEdit *text1_, *text2_;
    QRadioButton *option1_, *option2_, *option3_, *option4_;
    QLabel *picture1_, *picture2_, *picture3_, *picture4_;
    QPushButton *command1_, *command2_;
};

}  // namespace morvane
