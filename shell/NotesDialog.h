#pragma once
// The notes sheet Inf_form ("Information sheet"): the four notes of the line and the
// "days ago" shortcut for the experiment date. The form's state is the document's
// InfForm; OK and Cancel are the document's routines.

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "document/InfForm.h"
#include "shell/FilteredLineEdit.h"

namespace morvane {

class Program;

class NotesDialog : public QDialog {
    Q_OBJECT
  public:
    explicit NotesDialog(Program& program, QWidget* parent = nullptr);

    // Fills the boxes from the notes and shows the sheet; main is disabled.
    void open();

    QLineEdit* Text1() const { return text1_; }
    QLineEdit* Text2() const { return text2_; }
    QLineEdit* Text3() const { return text3_; }
    QPlainTextEdit* Text4() const { return text4_; }
    FilteredLineEdit* Text5() const { return text5_; }
    QPushButton* Command1() const { return ok_; }
    QPushButton* Command2() const { return cancel_; }
    QPushButton* Command3() const { return shortcut_; }
    const InfForm& form() const { return form_; }

  protected:
    void reject() override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void showForm();
    void place(QWidget* widget, double left, double top, double width, double height);

    Program& program_;
    InfForm form_;
    QLabel *label1_, *label2_, *label3_, *label4_, *label5_;
    QLineEdit *text1_, *text2_, *text3_;
    QPlainTextEdit* text4_;
    FilteredLineEdit* text5_;
    QPushButton *ok_, *cancel_, *shortcut_;
    bool refreshing_ = false;
};

}  // namespace morvane
