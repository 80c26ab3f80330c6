#pragma once
// The results window "OutPut": tab "Tables" with the data table, the statistics, the
// estimates and the two query panels; tab "Graph" with the log-probit chart and its
// options and marks; the buttons under the tabs. It owns the results of one
// calculation (results/LineResults.h) and the chart over them (results/Chart.h), and
// goes when it closes: back to the input window, or the end of the program.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QToolButton>
#include <QWidget>
#include <memory>

#include "results/Chart.h"
#include "results/LineResults.h"
#include "shell/ChartWidget.h"
#include "shell/FilteredLineEdit.h"
#include "shell/LikelihoodTab.h"
#include "shell/LinePrinting.h"
#include "shell/QtTextMeasurer.h"
#include "shell/TextTableView.h"

namespace morvane {

class Program;

class ResultsWindow : public QWidget {
    Q_OBJECT
  public:
    explicit ResultsWindow(Program& program);
    ~ResultsWindow() override;

    LineResults& results() { return *results_; }
    LogProbitChart& chart() { return *chart_; }
    ChartWidget* chartWidget() const { return chartWidget_; }
    LinePrinting& printing() { return *printing_; }

    // Shows the tables after a calculation: caption, cells, notice.
    void showTables();
    // Activation: the chart is drawn, then the captions that follow the line's words.
    void Activate();

    // The widgets carry the names of the window's controls as object names ("Grid1",
    // "Text3", "Command11", "PictureFig", ...), by which tests find them.

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    // "Save results into files": the tables' file, then the chart's picture file.
    void saveResultsIntoFiles();
    // The chart as the picture for its file and the clipboard.
    Drawing composeChartPicture();

  private:
    void nameWidgets();
    void buildTablesTab(QWidget* page);
    QWidget* buildEstimatePanel();
    QWidget* buildResponsePanel();
    void connectQueries();
    void buildGraphTab(QWidget* page);
    void buildCyclesFrame(QWidget* page);
    void buildLimitsFrame(QWidget* page);
    void buildMarksFrame(QWidget* page);
    void arrange();
    void place(QWidget* widget, const LayoutRect& rect);
    void query(const std::function<void(ResultQueries&)>& action);
    void showPanels();
    // Runs a chart command and shows the chart; the focus goes where the command says.
    void chartCommand(const std::function<ChartFocus(LogProbitChart&)>& action);
    // A chart command that leaves the focus where it is.
    void chartAction(const std::function<void(LogProbitChart&)>& action);
    void showChart();
    void numberBoxLeft(ChartFocus box);

    Program& program_;
    QtTextMeasurer measurer_;
    std::unique_ptr<LineResults> results_;
    std::unique_ptr<LogProbitChart> chart_;

    QTabWidget* tab1_;
    QWidget* tablesPage_;
    QWidget* graphPage_;
    QToolButton* image1_;
    TextTableView *grid1_, *grid22_, *grid2_;
    QLabel* text8_;
    QTabWidget* sstab2_;
    QLabel *label4_, *label6_, *label14_, *label18_, *label19_, *label20_;
    FilteredLineEdit* text3_;
    QPushButton *command3_, *command4_;
    QLabel *label1_, *label9_, *label3_;
    FilteredLineEdit* text2_;
    QPushButton *command1_, *command2_;

    ChartWidget* chartWidget_;
    QGroupBox *frame1_, *frame5_, *frame6_;
    QCheckBox* checkAutoCycles_;
    QComboBox* comboCycles_;
    QRadioButton *option1_, *option2_;
    FilteredLineEdit *text4_, *text5_, *text6_;
    QPushButton *command6_, *command7_, *command8_;
    QCheckBox *check2_, *check3_;
    QLabel* label17_;
    QListWidget* list1_;

    QPushButton *command5_, *command9_, *command10_, *command11_, *command15_;
    LikelihoodTab* likelihood_;  // the tab "Maximum likelihood"
    QLabel* cyclesNote_;         // below the tables: the cycles stopped at their limit
    bool refreshing_ = false;
    std::unique_ptr<LinePrinting> printing_;
};

}  // namespace morvane
