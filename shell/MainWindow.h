#pragma once
// The input window "main": the buttons of the file and of the other windows, the
// input cells with their key rules, the two tables of the line (Grid1 the replicate
// rows, Grid2 the pooled and corrected responses) and Calculate. It shows the
// document (document/LineDocument.h) and sends it the user's commands; it holds no
// rule of its own beyond placing its controls (ArrangeMainWindow).

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QWidget>

#include "document/InputKeys.h"
#include "document/LineDocument.h"
#include "shell/FilteredLineEdit.h"
#include "shell/TextTableView.h"

namespace morvane {

class Program;
class MainMenu;

class MainWindow : public QWidget {
    Q_OBJECT
  public:
    explicit MainWindow(Program& program);

    // Shows the document: captions, cells, tables, enabling.
    void refresh();
    // Moves the focus to the control the document asked for.
    void focusControl(Focus focus);

    // Whether the window takes the user's commands: off while a child window is open.
    bool contentEnabled() const { return contentEnabled_; }
    void setContentEnabled(bool enabled);

    // The layout at a resize: the tables and Calculate follow the window's size.
    void ArrangeMainWindow();

    QPushButton* CommandNew() const { return commandNew_; }
    QPushButton* CommandOpen() const { return commandOpen_; }
    QPushButton* CommandSave() const { return commandSave_; }
    QPushButton* CommandRelative() const { return commandRelative_; }
    QPushButton* CommandImport() const { return commandImport_; }
    QPushButton* CommandChgangeOptions() const { return commandChangeOptions_; }
    QPushButton* CommandInf_form() const { return commandNotes_; }
    QPushButton* CommandProbit() const { return commandProbit_; }
    QPushButton* CommandControl() const { return commandControl_; }
    QPushButton* Command1() const { return commandFitLine_; }
    QPushButton* Command15() const { return commandHelp_; }
    QPushButton* CommandCalc() const { return commandCalc_; }
    QPushButton* CommandAccept() const { return commandAccept_; }
    QPushButton* CommandEdit() const { return commandEdit_; }
    QPushButton* CommandDel() const { return commandDel_; }
    FilteredLineEdit* TextDose() const { return textDose_; }
    FilteredLineEdit* Text1input() const { return text1input_; }
    FilteredLineEdit* Text2input() const { return text2input_; }
    QCheckBox* CheckCo() const { return checkCo_; }
    QLineEdit* TextName() const { return textName_; }
    TextTableView* Grid1() const { return grid1_; }
    TextTableView* Grid2() const { return grid2_; }
    QWidget* Picture1() const { return picture1_; }
    MainMenu& menu() const { return *menu_; }
    // The panel of the window's controls, between the menu bar and the status bar.
    QWidget* content() const { return content_; }
    // The height of the menu bar and the status bar together.
    int barsHeight() const;
    // The start page: the recent files, shown while there is no line.
    QListWidget* recentList() const { return recentList_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    FilteredLineEdit* makeCell(InputCell cell);
    bool text2inputVisible() const;
    void moveBy(KeyMove move);
    void leaveCell(InputCell cell);
    void place(QWidget* widget, double left, double top, double width, double height);

    Program& program_;
    QWidget* content_;
    QPushButton *commandNew_, *commandOpen_, *commandSave_, *commandRelative_, *commandImport_,
        *commandChangeOptions_, *commandNotes_, *commandProbit_, *commandControl_, *commandFitLine_,
        *commandHelp_;
    QLabel *doseLabel_, *text1Label_, *text2Label_, *nameLabel_;
    FilteredLineEdit *textDose_, *text1input_, *text2input_;
    QCheckBox* checkCo_;
    QPushButton *commandAccept_, *commandEdit_, *commandDel_;
    QLineEdit* textName_;
    QWidget* picture1_;
    TextTableView *grid1_, *grid2_;
    QPushButton* commandCalc_;
    MainMenu* menu_;
    QWidget* startPage_;
    QListWidget* recentList_;
    bool refreshing_ = false;
    bool contentEnabled_ = true;
};

}  // namespace morvane
