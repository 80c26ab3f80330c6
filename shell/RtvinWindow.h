#pragma once
// The comparison window "rtvin" (caption "Relative toxicity"): the table of line files
// with its buttons, the options of the comparison, and the progress panel of a
// running comparison. It shows the logic of relative/Rtvin.h and sends it the user's
// clicks and keys; files come through a multi-select file dialog or are dropped onto
// the table. "Calculate" runs the comparison (relative/LineBatch.h) file by file with
// the bar advancing and the program answering; Cancel ends it and leaves the table as
// it was. The results open in the relative results window in this window's place.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <string>
#include <vector>

#include "relative/LineBatch.h"
#include "relative/Rtvin.h"
#include "shell/FilteredLineEdit.h"
#include "shell/TextTableView.h"

namespace morvane {

class Program;
class RtvoutWindow;

class RtvinWindow : public QWidget {
    Q_OBJECT
  public:
    explicit RtvinWindow(Program& program);
    ~RtvinWindow() override;

    Rtvin& rtvin() { return rtvin_; }
    RtvoutWindow* resultsWindow() const;

    // Shows the logic's state: table, options, captions, enabling, focus.
    void refresh();
    // The command channel: "1" refreshes the reference lists, "2" adds files.
    void TextMsg(const std::string& code);
    // Adds files as the add loop does, one after the other, as if the dialog had
    // returned each in turn and then been cancelled.
    void addFiles(const std::vector<std::string>& paths);
    // Whether a comparison is running.
    bool running() const { return running_; }
    // Ends a running comparison after the file in work; the table stays as it was.
    void cancelBatch() { cancelRequested_ = true; }

    // The results window is going back: this window takes its place again.
    void returnFromResults(QWidget& from);

    TextTableView* Grid1() const { return grid1_; }
    QPushButton* Command1() const { return command1_; }
    QPushButton* Command6() const { return command6_; }
    QPushButton* Command8() const { return command8_; }
    QPushButton* Command9() const { return command9_; }
    QPushButton* Command2() const { return command2_; }
    QPushButton* Command3() const { return command3_; }
    QPushButton* Command4() const { return command4_; }
    QPushButton* Command11() const { return command11_; }
    QPushButton* Command15() const { return command15_; }
    QComboBox* Combo1() const { return combo1_; }
    FilteredLineEdit* Text1() const { return text1_; }
    QCheckBox* Check3() const { return check3_; }
    QCheckBox* Check1() const { return check1_; }
    QComboBox* Combo2() const { return combo2_; }
    QCheckBox* Check4() const { return check4_; }
    QComboBox* Combo3() const { return combo3_; }
    QCheckBox* Check5() const { return check5_; }
    QComboBox* Combo4() const { return combo4_; }
    QCheckBox* Check2() const { return check2_; }
    QCheckBox* Check7() const { return check7_; }
    QListWidget* List1() const { return list1_; }
    FilteredLineEdit* Text2() const { return text2_; }
    FilteredLineEdit* Text4() const { return text4_; }
    FilteredLineEdit* Text3() const { return text3_; }
    QLabel* Label1() const { return label1_; }
    QLabel* Label5() const { return label5_; }
    QLabel* Label6() const { return label6_; }
    QGroupBox* Frame2() const { return frame2_; }
    QGroupBox* Frame4() const { return frame4_; }
    QWidget* Picture1() const { return picture1_; }
    QProgressBar* Bar1() const { return bar1_; }
    QLabel* Command7() const { return command7_; }
    QPushButton* CancelButton() const { return cancel_; }
    QTimer* Timer1() const { return timer1_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void build();
    void arrange();
    // Runs a handler of the logic, then shows the state and moves the focus.
    void act(const std::function<void()>& handler);
    void chooseFiles();
    void calculate();
    void showResults();
    void goBack();
    void setContentEnabled(bool enabled);
    std::vector<std::string> droppedFiles(const QMimeData* data) const;

    Program& program_;
    Rtvin rtvin_;
    QPointer<RtvoutWindow> rtvout_;

    TextTableView* grid1_;
    QWidget* options_;
    QPushButton *command1_, *command6_, *command8_, *command9_, *command2_, *command3_, *command4_,
        *command11_, *command15_;
    QComboBox *combo1_, *combo2_, *combo3_, *combo4_;
    FilteredLineEdit *text1_, *text2_, *text3_, *text4_;
    QCheckBox *check1_, *check2_, *check3_, *check4_, *check5_, *check7_;
    QListWidget* list1_;
    QLabel *label1_, *label2_, *label3_, *label4_, *label5_, *label6_, *label7_, *label8_;
    QGroupBox *frame1_, *frame2_, *frame3_, *frame4_, *frame6_;
    QWidget* picture1_;
    QProgressBar* bar1_;
    QLabel* command7_;
    QPushButton* cancel_;
    QTimer* timer1_;

    bool refreshing_ = false;
    bool running_ = false;
    bool cancelRequested_ = false;
};

}  // namespace morvane
