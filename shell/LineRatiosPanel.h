#pragma once
// The comparison window's tab "Maximum likelihood": the lines of the comparison fitted
// by maximum likelihood (relative/LineRatios.h), each line's LD at a percent over a
// reference line's with limits (the ratio test), the likelihood-ratio tests of
// parallelism and equality, and the relative potency where the lines are parallel.
// Each line is read again from its file, as the comparison reads it.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

#include "core/TextTable.h"
#include "core/UserPort.h"
#include "relative/LikelihoodTables.h"
#include "shell/LikelihoodChoices.h"
#include "shell/TextTableView.h"

namespace morvane {

class LineRatiosPanel : public QWidget {
    Q_OBJECT
  public:
    LineRatiosPanel(UserPort& port, QWidget* parent = nullptr);

    // The lines of the comparison: each name with its file's path. The reference list
    // is filled with the names; the comparison runs at once.
    void setLines(const std::vector<std::pair<std::string, std::string>>& lines);
    // Runs the comparison with the choices shown ("Compare").
    void compare();

    // The tables as tab-separated text.
    std::string tablesText() const { return text_; }

    // Object names: "ComboModel", "ComboNatural", "TextNatural", "TextPercent",
    // "ComboReference", "CommandCompare", "GridRatios", "GridTests", "GridPotency",
    // "LabelMessage", "LabelPotency".

  private:
    UserPort& port_;
    std::vector<std::pair<std::string, std::string>> lines_;
    TextTable ratios_, tests_, potency_;
    std::string text_;

    LikelihoodChoices choices_;
    QComboBox* comboReference_;
    QLineEdit* textPercent_;
    QPushButton* commandCompare_;
    TextTableView *gridRatios_, *gridTests_, *gridPotency_;
    QLabel *labelMessage_, *labelPotency_;
};

}  // namespace morvane
