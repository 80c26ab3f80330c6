#pragma once
// "Customize line" (FormCustomLine): the colour and pen style of one line of the
// multi-line chart. Sixteen patches of the palette, a list of the five pen styles
// drawn as samples, a sample of the present choice, the colour dialog for any other
// colour, OK and Cancel. OK hands the choice back; Cancel changes nothing.

#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace morvane {

class CustomLineDialog : public QDialog {
    Q_OBJECT
  public:
    CustomLineDialog(std::uint32_t color, int style, QWidget* parent = nullptr);

    std::uint32_t chosenColor() const { return color_; }
    int chosenStyle() const;

    // Picks a patch of the palette, as a click on it does.
    void clickPatch(int entry);
    // Picks a pen style, as a click on its row does.
    void clickStyle(int style);
    // The colour that "Customize color" would ask for comes from here; tests replace it.
    std::function<std::optional<std::uint32_t>(std::uint32_t)> chooseColor;

    QPushButton* Command1() const { return command1_; }
    QPushButton* Command2() const { return command2_; }
    QPushButton* Command3() const { return command3_; }
    QListWidget* Grid3() const { return grid3_; }
    QLabel* Picture2() const { return picture2_; }
    QFrame* Shape1() const { return shape1_; }
    QPushButton* patch(int entry) const { return patches_.at(static_cast<std::size_t>(entry)); }

  private:
    void DrawLineSample();

    std::uint32_t color_;
    std::vector<QPushButton*> patches_;
    QFrame* shape1_;
    QListWidget* grid3_;
    QLabel* picture2_;
    QPushButton *command1_, *command2_, *command3_;
};

}  // namespace morvane
