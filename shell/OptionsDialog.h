#pragma once
// The options dialog of a new line, FileOptions ("New Line"): tab "Adjust units" with
// the factor type and the units, tab "Customize units" with free words, the input
// data type, the weighting, the alpha and the defaults file. The dialog shows the
// options that the document holds (document/FileOptions.h) and sends each change
// there; OK and Cancel are the document's routines.

#include <array>
#include <utility>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>

#include "document/LineDocument.h"

namespace morvane {

class Program;

class OptionsDialog : public QDialog {
    Q_OBJECT
  public:
    explicit OptionsDialog(Program& program, QWidget* parent = nullptr);

    // Shows the options of the document.
    void refresh();
    void focusControl(Focus focus);

    QTabWidget* Tab1() const { return tab1_; }
    QRadioButton* Option1() const { return option1_; }
    QRadioButton* Option2() const { return option2_; }
    QRadioButton* Option3() const { return option3_; }
    QComboBox* ComboUnit1() const { return comboUnit1_; }
    QComboBox* ComboUnit2() const { return comboUnit2_; }
    QLabel* LabelUnits() const { return labelUnits_; }
    QComboBox* Combo5() const { return combo5_; }
    QComboBox* Combo6() const { return combo6_; }
    QLineEdit* Text5() const { return text5_; }
    QCheckBox* Check3() const { return check3_; }
    QComboBox* ComboDataType() const { return comboDataType_; }
    QCheckBox* Check2() const { return check2_; }
    QComboBox* Combo7() const { return combo7_; }
    QCheckBox* Check4() const { return check4_; }
    QPushButton* Command1() const { return ok_; }           // "OK"
    QPushButton* Command2() const { return cancel_; }       // "Cancel"
    QPushButton* Command3() const { return saveDefault_; }  // "Save as default"
    QPushButton* Command5() const { return loadDefault_; }  // "Load default"
    QPushButton* Command4() const { return help_; }         // "Help"
    QTimer& Timer1() { return timer1_; }

  protected:
    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // The option buttons of the factor type with the option each stands for.
    std::array<std::pair<QRadioButton*, FactorOption>, 3> optionButtons() const;
    void change(const std::function<void(FileOptions&, SharedRegisters&)>& edit);

    Program& program_;
    QTabWidget* tab1_;
    QRadioButton *option1_, *option2_, *option3_;
    QComboBox *comboUnit1_, *comboUnit2_;
    QLabel* labelUnits_;
    QComboBox *combo5_, *combo6_;
    QLineEdit* text5_;
    QCheckBox* check3_;
    QComboBox* comboDataType_;
    QCheckBox* check2_;
    QComboBox* combo7_;
    QCheckBox* check4_;
    QPushButton *ok_, *cancel_, *saveDefault_, *loadDefault_, *help_;
    QTimer timer1_;
    bool refreshing_ = false;
};

}  // namespace morvane
