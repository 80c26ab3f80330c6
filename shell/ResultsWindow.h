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

    // Shows the tables after a calculation: caption, cells, notice.
    void showTables();
    // Activation: the chart is drawn, then the captions that follow the line's words.
    void Activate();

    QTabWidget* Tab1() const { return tab1_; }
    TextTableView* Grid1() const { return grid1_; }
    TextTableView* Grid22() const { return grid22_; }
    TextTableView* Grid2() const { return grid2_; }
    QLabel* Text8() const { return text8_; }
    QToolButton* Image1() const { return image1_; }
    QTabWidget* SSTab2() const { return sstab2_; }
    FilteredLineEdit* Text3() const { return text3_; }
    QPushButton* Command3() const { return command3_; }
    QLabel* Label6() const { return label6_; }
    QLabel* Label19() const { return label19_; }
    QLabel* Label20() const { return label20_; }
    QPushButton* Command4() const { return command4_; }
    FilteredLineEdit* Text2() const { return text2_; }
    QPushButton* Command1() const { return command1_; }
    QLabel* Label3() const { return label3_; }
    QPushButton* Command2() const { return command2_; }
    ChartWidget* PictureFig() const { return chartWidget_; }
    QCheckBox* CheckAutoCycles() const { return checkAutoCycles_; }
    QComboBox* ComboCycles() const { return comboCycles_; }
    QRadioButton* Option1() const { return option1_; }
    QRadioButton* Option2() const { return option2_; }
    FilteredLineEdit* Text4() const { return text4_; }
    FilteredLineEdit* Text5() const { return text5_; }
    QPushButton* Command6() const { return command6_; }
    QCheckBox* Check2() const { return check2_; }
    QCheckBox* Check3() const { return check3_; }
    FilteredLineEdit* Text6() const { return text6_; }
    QPushButton* Command7() const { return command7_; }
    QListWidget* List1() const { return list1_; }
    QPushButton* Command8() const { return command8_; }
    QPushButton* Command5() const { return command5_; }
    QPushButton* Command9() const { return command9_; }
    QPushButton* Command10() const { return command10_; }
    QPushButton* Command11() const { return command11_; }
    QPushButton* Command15() const { return command15_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildTablesTab(QWidget* page);
    void buildGraphTab(QWidget* page);
    void arrange();
    void place(QWidget* widget, const LayoutRect& rect);
    void query(const std::function<void(ResultQueries&)>& action);
    void showPanels();
    void chartCommand(const std::function<ChartFocus(LogProbitChart&)>& action);
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
    bool refreshing_ = false;
};

}  // namespace morvane
