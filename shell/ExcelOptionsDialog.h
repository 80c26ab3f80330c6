#pragma once
// FormExcelOptions, "Excel options": the sheet of a workbook to import and whether its
// first row holds headers. The list holds the workbook's own sheet names, the first
// one chosen; a name can still be typed. OK hands the choice to the program, which
// reads the sheet; Cancel leaves the new line empty.

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include <string>
#include <vector>

namespace morvane {

class Program;

class ExcelOptionsDialog : public QDialog {
    Q_OBJECT
  public:
    explicit ExcelOptionsDialog(Program& program, QWidget* parent = nullptr);

    // Shows the dialog for the workbook at path, with its sheet names and the hint of
    // the needed columns; main is disabled until the dialog goes.
    void open(const std::string& path, const std::vector<std::string>& sheets,
              const std::string& hint);

    QComboBox* Combo2() const { return combo2_; }
    QCheckBox* Check1() const { return check1_; }
    QLabel* Label2() const { return label2_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }

  protected:
    void reject() override;

  private:
    void unload();

    Program& program_;
    std::string path_;
    QComboBox* combo2_;
    QCheckBox* check1_;
    QLabel* label2_;
    QPushButton *command1_, *command2_;
};

}  // namespace morvane
