#pragma once
// The Reduction % window over the calculator logic (calculators/ReductionCalculator.h):
// one tab per formula with its formula drawn, its input boxes, "OK >", its result
// table, "Erase all" and "Copy table", and a guide tab whose links lead to the
// formula that fits the trial.

#include <QCheckBox>
#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <array>
#include <functional>

#include "calculators/ReductionCalculator.h"
#include "core/UserPort.h"
#include "shell/FilteredLineEdit.h"
#include "shell/FormulaWidgets.h"
#include "shell/TextTableView.h"

namespace morvane {

class ReductionWindow : public QDialog {
    Q_OBJECT
  public:
    using Tab = ReductionCalculator::Tab;
    using Box = ReductionCalculator::Box;

    // The port must outlive the window. closed runs when the window unloads, which
    // enables the input window again; help opens the window's help page.
    ReductionWindow(UserPort& port, std::function<void()> closed, std::function<void()> help,
                    QWidget* parent = nullptr);

    // The name of the window's help page in the program folder.
    static constexpr const char* kHelpPage = "Hreduction.htm";

    // Shows the window on its guide tab.
    void open();

    ReductionCalculator& calculator() { return calculator_; }
    QTabWidget* Tab1() const { return tabs_; }
    FilteredLineEdit* box(Box box) const;
    TextTableView* grid(Tab tab) const { return grids_[static_cast<int>(tab)]; }
    QPushButton* okButton(Tab tab) const { return ok_[static_cast<int>(tab)]; }
    QPushButton* eraseButton(Tab tab) const { return erase_[static_cast<int>(tab)]; }
    QPushButton* copyButton(Tab tab) const { return copy_[static_cast<int>(tab)]; }
    QPushButton* helpButton() const { return help_; }
    QCheckBox* Check1() const { return check1_; }
    QFrame* Check1Frame() const { return check1Frame_; }
    QLabel* Label26() const { return label26_; }
    LinkLabel* Label28() const { return label28_; }
    LinkLabel* Label29() const { return label29_; }
    LinkLabel* Label31() const { return label31_; }
    LinkLabel* Label32() const { return label32_; }

  protected:
    void reject() override;

  private:
    QWidget* makeFormulaTab(Tab tab, QWidget* formula);
    QWidget* makeGuideTab();
    QWidget* makeSunShepardFormula();
    void makeBox(Box box, const QString& label, const QString& tip);
    void focusBox(Box box);
    void boxLeft(Box box);
    void runOK(Tab tab);
    void refresh();

    ReductionCalculator calculator_;
    std::function<void()> closed_;
    QTabWidget* tabs_;
    std::array<FilteredLineEdit*, 10> boxes_{};
    std::array<QLabel*, 10> labels_{};
    std::array<TextTableView*, 4> grids_{};
    std::array<QPushButton*, 4> ok_{}, erase_{}, copy_{};
    QPushButton* help_ = nullptr;
    QCheckBox* check1_ = nullptr;
    QFrame* check1Frame_ = nullptr;
    QWidget* check1Further_ = nullptr;
    QLabel* label26_ = nullptr;
    LinkLabel *label28_ = nullptr, *label29_ = nullptr, *label31_ = nullptr, *label32_ = nullptr;
    bool refreshing_ = false;
};

}  // namespace morvane
