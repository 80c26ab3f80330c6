#pragma once
// Small pieces of the calculator windows: a formula's fraction drawn as a numerator
// over a horizontal rule over a denominator, and a label that acts as a link (blue
// letters, the hand pointer while the mouse is over it, a click signal).

#include <QFrame>
#include <QLabel>
#include <QString>
#include <QWidget>

namespace morvane {

// A fraction: the numerator centred over a rule as wide as the wider of the two
// terms, the denominator centred under it.
class FractionWidget : public QWidget {
    Q_OBJECT
  public:
    FractionWidget(const QString& numerator, const QString& denominator, QWidget* parent = nullptr);
    QLabel* numerator() const { return numerator_; }
    QLabel* denominator() const { return denominator_; }
    QFrame* rule() const { return rule_; }

  private:
    QLabel* numerator_;
    QFrame* rule_;
    QLabel* denominator_;
};

// A row of a formula: texts and fractions side by side, vertically centred.
QWidget* FormulaRow(std::initializer_list<QWidget*> parts, QWidget* parent = nullptr);
// A plain text of a formula row.
QLabel* FormulaText(const QString& text, QWidget* parent = nullptr);

class LinkLabel : public QLabel {
    Q_OBJECT
  public:
    explicit LinkLabel(const QString& text, QWidget* parent = nullptr);

  signals:
    void clicked();

  protected:
    void enterEvent(QEnterEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace morvane
