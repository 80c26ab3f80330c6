#pragma once
// The probit converter window ("Probit") over the converter logic
// (calculators/ProbitConverter.h): percent to probit and back on the first tab, the
// working probit and weighting coefficient on the second. Each result has a strip in
// which a small panel slides down when the result changes.

#include <QDialog>
#include <QLabel>
#include <QTabWidget>
#include <QTimer>
#include <functional>

#include "calculators/ProbitConverter.h"
#include "shell/FilteredLineEdit.h"

namespace morvane {

// The strip in which a sliding panel moves; it paints the panel at its top.
class SlideStrip : public QWidget {
    Q_OBJECT
  public:
    SlideStrip(SlidingPanel& panel, QWidget* parent = nullptr);
    QTimer& timer() { return timer_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    SlidingPanel& panel_;
    QTimer timer_;
};

class ProbitDialog : public QDialog {
    Q_OBJECT
  public:
    // The converter must outlive the dialog. closed runs when the window unloads,
    // which enables the input window again.
    ProbitDialog(ProbitConverter& converter, std::function<void()> closed,
                 QWidget* parent = nullptr);

    // Empties the four boxes and shows the dialog (CommandProbit).
    void open();

    QTabWidget* Tab1() const { return tabs_; }
    FilteredLineEdit* Text1() const { return text1_; }
    FilteredLineEdit* Text2() const { return text2_; }
    FilteredLineEdit* Text3() const { return text3_; }
    FilteredLineEdit* Text4() const { return text4_; }
    QLabel* Label1() const { return label1_; }
    QLabel* Label2() const { return label2_; }
    QLabel* Label12() const { return label12_; }
    QLabel* Label13() const { return label13_; }

  protected:
    void showEvent(QShowEvent* event) override;
    void reject() override;

  private:
    FilteredLineEdit* makeBox(ProbitConverter::Box box);
    void changed(ProbitConverter::Box box, const QString& text);
    void refresh();

    ProbitConverter& converter_;
    std::function<void()> closed_;
    QTabWidget* tabs_;
    FilteredLineEdit *text1_, *text2_, *text3_, *text4_;
    QLabel *label1_, *label2_, *label12_, *label13_;
    SlideStrip *picture3_, *picture4_;
    bool refreshing_ = false;
};

}  // namespace morvane
