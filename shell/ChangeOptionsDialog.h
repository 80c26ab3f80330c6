#pragma once
// "Change options": the words, the unit and the alpha of an open line, which can be
// changed without changing the shape of its table. The document applies them.

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

namespace morvane {

class Program;

class ChangeOptionsDialog : public QDialog {
    Q_OBJECT
  public:
    explicit ChangeOptionsDialog(Program& program, QWidget* parent = nullptr);

    // Fills the boxes from the document and shows the dialog; main is disabled.
    void open();

    QComboBox* Combo5() const { return combo5_; }
    QLineEdit* Text5() const { return text5_; }
    QComboBox* Combo6() const { return combo6_; }
    QComboBox* Combo7() const { return combo7_; }
    QPushButton* OK() const { return ok_; }
    QPushButton* Cancel() const { return cancel_; }

  protected:
    void reject() override;

  private:
    Program& program_;
    QComboBox *combo5_, *combo6_, *combo7_;
    QLineEdit* text5_;
    QPushButton *ok_, *cancel_;
};

}  // namespace morvane
