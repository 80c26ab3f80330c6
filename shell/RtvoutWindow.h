#pragma once
// The relative results window "Rtvout" (caption "Relative results"): tab "Tables"
// with the results table of the comparison, the caption of its references and the
// user's note; tab "Graph" with the multi-line chart, its legend and its options; the
// buttons under the tabs. It shows what the comparison left in relative/Rtvout.h and
// draws the chart of relative/MultiLineChart.h. "back to Input tabls" gives the place
// back to the comparison window; closing it by its frame ends the program.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>
#include <QWidget>
#include <memory>

#include "relative/MultiLineChart.h"
#include "relative/Rtvout.h"
#include "shell/LineRatiosPanel.h"
#include "shell/MultiChartWidget.h"
#include "shell/QtTextMeasurer.h"
#include "shell/RtvoutPrinting.h"
#include "shell/TextTableView.h"

namespace morvane {

class Program;
class RtvinWindow;
class CustomLineDialog;

class RtvoutWindow : public QWidget {
    Q_OBJECT
  public:
    RtvoutWindow(Program& program, RtvinWindow& rtvin, Rtvout& rtvout);
    ~RtvoutWindow() override;

    Rtvout& rtvout() { return *rtvout_; }
    MultiLineChart& chart() { return *chart_; }

    // After the comparison: the columns sized (code "4") and the chart drawn.
    void afterCalculation();
    // The focus on the note under the table, as after a comparison.
    void focusNote();
    // Lets go of the results, which are about to be dropped; the window shows nothing
    // more.
    void detach();
    // "Auto resize columns width".
    void sizeColumns();
    // "Change line color and stile" for the selected row of the legend; the dialog is
    // left open and returned so that a test can answer it.
    CustomLineDialog* openCustomLine();

    QTabWidget* Tab1() const { return tab1_; }
    TextTableView* Grid1() const { return grid1_; }
    QLabel* Label1() const { return label1_; }
    QLineEdit* Text3() const { return text3_; }
    QToolButton* Image1() const { return image1_; }
    MultiChartWidget* Picture1() const { return chartWidget_; }
    QCheckBox* CheckAutoCycles() const { return checkAutoCycles_; }
    QComboBox* ComboCycles() const { return comboCycles_; }
    QCheckBox* CheckLineNo() const { return checkLineNo_; }
    QCheckBox* CheckLineBlack() const { return checkLineBlack_; }
    QCheckBox* Check1() const { return check1_; }
    QCheckBox* Check2() const { return check2_; }
    QPushButton* ComLineColor() const { return comLineColor_; }
    QTableWidget* Grid3() const { return grid3_; }
    QLineEdit* Text2() const { return text2_; }
    QPushButton* Command5() const { return command5_; }
    QPushButton* Command9() const { return command9_; }
    QPushButton* Command10() const { return command10_; }
    QPushButton* Command11() const { return command11_; }
    QPushButton* Command15() const { return command15_; }
    RtvoutPrinting& printing() { return *printing_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildTablesTab(QWidget* page);
    void buildGraphTab(QWidget* page);
    void arrange();
    void chartCommand(const std::function<void()>& action);
    void redrawFigure();
    void showControls();
    void showLegend();
    void alignColumns();

    Program& program_;
    RtvinWindow& rtvinWindow_;
    Rtvout* rtvout_;
    QtTextMeasurer measurer_;
    std::unique_ptr<MultiLineChart> chart_;

    QTabWidget* tab1_;
    QWidget *tablesPage_, *graphPage_;
    QToolButton* image1_;
    TextTableView* grid1_;
    QLabel* label1_;
    QLineEdit* text3_;

    MultiChartWidget* chartWidget_;
    QGroupBox *frame1_, *frame2_;
    QCheckBox *checkAutoCycles_, *checkLineNo_, *checkLineBlack_, *check1_, *check2_;
    QLabel* label21_;
    QComboBox* comboCycles_;
    QPushButton* comLineColor_;
    QTableWidget* grid3_;
    QLineEdit* text2_;

    QPushButton *command5_, *command9_, *command10_, *command11_, *command15_;
    LineRatiosPanel* likelihood_;  // the tab "Maximum likelihood"
    bool refreshing_ = false;
    std::unique_ptr<RtvoutPrinting> printing_;
};

}  // namespace morvane
