#pragma once
// The results window's tab "Maximum likelihood": the probit or logit line fitted by
// maximum likelihood to the line's replicate rows (core/LikelihoodFit.h), beside the
// classical tables, which it leaves as they are. The user picks the model, the natural
// response and the percents; the tab shows the parameters, their covariances, the
// goodness of fit and the doses with their limits, and can put its line on the chart.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <string>
#include <vector>

#include "core/TextTable.h"
#include "document/FileOptions.h"
#include "relative/LikelihoodTables.h"
#include "shell/LikelihoodChoices.h"
#include "shell/TextTableView.h"

namespace morvane {

class LikelihoodTab : public QWidget {
    Q_OBJECT
  public:
    explicit LikelihoodTab(QWidget* parent = nullptr);

    // The line to fit: its name, the input window's replicate table (copied), its data
    // type and its words. Fits at once with the choices shown.
    void setLine(const std::string& name, const TextTable& grid1, DataType type,
                 const std::string& estimateWord, const std::string& unitWord);
    // Fits again with the choices shown ("Fit").
    void fit();

    // The fitted line, and whether it is to be drawn on the chart.
    const LikelihoodLineReport& report() const { return report_; }
    bool lineShown() const { return report_.fit.converged && checkShowLine_->isChecked(); }
    // The tables as tab-separated text, for "Copy tables" on this tab.
    std::string tablesText() const;

    // Widgets carry object names ("ComboModel", "ComboNatural", "TextNatural",
    // "TextPercents", "CommandFit", "CheckShowLine", "GridParameters",
    // "GridCovariance", "GridGoodness", "GridEstimates", "LabelMessage").

  signals:
    // The line on the chart changed: shown, hidden or refitted.
    void lineChanged();

  private:
    std::vector<double> chosenPercents(std::string& refusal) const;

    TextTable grid1_;
    DataType type_ = DataType::RespondedAndNonResponded;
    LikelihoodLineReport report_;
    TextTable parameters_, covariance_, goodness_, estimates_;

    LikelihoodChoices choices_;
    QLineEdit* textPercents_;
    QPushButton* commandFit_;
    QCheckBox* checkShowLine_;
    TextTableView *gridParameters_, *gridCovariance_, *gridGoodness_, *gridEstimates_;
    QLabel* labelMessage_;
};

}  // namespace morvane
