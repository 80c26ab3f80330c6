#pragma once
// The Extrapolation & Interpolation window over the calculator logic
// (calculators/LinePredictor.h): the panel "Two points" and the panel "One point &
// slop", each with its line's boxes, the slope or intercept it shows, and a dose box
// and a response box with their "Predict" buttons.

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <array>
#include <functional>

#include "calculators/LinePredictor.h"
#include "core/ProbitTables.h"
#include "core/UserPort.h"
#include "shell/FilteredLineEdit.h"

namespace morvane {

class PredictionWindow : public QDialog {
    Q_OBJECT
  public:
    using Box = LinePredictor::Box;
    using Button = LinePredictor::Button;

    // The tables and the port must outlive the window. closed runs when the window
    // unloads, which enables the input window again; help opens the window's help page.
    PredictionWindow(ProbitTables& probit, UserPort& port, std::function<void()> closed,
                     std::function<void()> help, QWidget* parent = nullptr);

    // The name of the window's help page in the program folder.
    static constexpr const char* kHelpPage = "Hpredict.htm";

    LinePredictor& calculator() { return calculator_; }
    FilteredLineEdit* box(Box box) const { return boxes_[static_cast<int>(box)]; }
    QPushButton* button(Button button) const { return buttons_[static_cast<int>(button)]; }
    QPushButton* helpButton() const { return help_; }
    QLabel* Label5() const { return label5_; }
    QLabel* Label6() const { return label6_; }
    QLabel* Label9() const { return label9_; }
    QLabel* Label16() const { return label16_; }

  protected:
    void showEvent(QShowEvent* event) override;
    void reject() override;

  private:
    FilteredLineEdit* makeBox(Box box);
    QPushButton* makeButton(Button button, const QString& caption);
    void focusBox(Box box);
    void moveTo(std::optional<Box> box);
    void boxLeft(Box box);
    void press(Button button);
    void refresh();

    LinePredictor calculator_;
    UserPort& port_;
    std::function<void()> closed_;
    std::array<FilteredLineEdit*, 11> boxes_{};
    std::array<QPushButton*, 4> buttons_{};
    QLabel *label5_, *label6_, *label9_, *label16_;
    QPushButton* help_;
    bool refreshing_ = false;
};

}  // namespace morvane
