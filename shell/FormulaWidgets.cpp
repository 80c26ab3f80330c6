#include "shell/FormulaWidgets.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace morvane {

FractionWidget::FractionWidget(const QString& numerator, const QString& denominator,
                               QWidget* parent)
    : QWidget(parent) {
    numerator_ = new QLabel(numerator, this);
    denominator_ = new QLabel(denominator, this);
    numerator_->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    denominator_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    rule_ = new QFrame(this);
    rule_->setFrameShape(QFrame::NoFrame);
    rule_->setFixedHeight(1);
    rule_->setAutoFillBackground(true);
    QPalette palette = rule_->palette();
    palette.setColor(QPalette::Window, palette.color(QPalette::WindowText));
    rule_->setPalette(palette);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->setSpacing(2);
    layout->addWidget(numerator_);
    layout->addWidget(rule_);
    layout->addWidget(denominator_);
}

QWidget* FormulaRow(std::initializer_list<QWidget*> parts, QWidget* parent) {
    auto* row = new QWidget(parent);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    for (QWidget* part : parts)
        layout->addWidget(part, 0, Qt::AlignVCenter);
    layout->addStretch(1);
    return row;
}

QLabel* FormulaText(const QString& text, QWidget* parent) {
    return new QLabel(text, parent);
}

LinkLabel::LinkLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
    setStyleSheet("color: rgb(0, 0, 255);");
    setAlignment(Qt::AlignCenter);
}

void LinkLabel::enterEvent(QEnterEvent* event) {
    QLabel::enterEvent(event);
    setCursor(Qt::PointingHandCursor);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
    QLabel::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !rect().contains(event->position().toPoint()))
        return;
    unsetCursor();
    emit clicked();
}

}  // namespace morvane
