#include "shell/PrintDialog.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace morvane {
namespace {

// A small page: printed lines, and the two header marks at its top when asked.
QPixmap PagePixmap(bool landscape, bool header) {
    const QSize size = landscape ? QSize(84, 60) : QSize(60, 84);
    QPixmap page(size);
    page.fill(Qt::transparent);
    QPainter p(&page);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(QPen(QColor(90, 96, 110), 1));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(0.5, 0.5, size.width() - 1, size.height() - 1));
    p.setPen(QPen(QColor(150, 156, 168), 2));
    for (int y = 20; y < size.height() - 8; y += 7)
        p.drawLine(8, y, size.width() - 8, y);
    if (header) {
        p.setPen(QPen(QColor(40, 90, 170), 3));
        p.drawLine(8, 9, size.width() / 2 - 4, 9);
        p.drawLine(size.width() / 2 + 12, 9, size.width() - 8, 9);
    }
    return page;
}

}  // namespace

PrintDialog::PrintDialog(PrintForm& form, QWidget& resultsWindow, UserPort& port, Sender send)
    : QDialog(nullptr),
      form_(form),
      resultsWindow_(resultsWindow),
      port_(port),
      send_(std::move(send)) {
    const bool one = form.kind() == PrintFormKind::Print1;
    setObjectName(one ? "print1" : "print2");
    setWindowTitle("print");
    QGroupBox* frame1 = buildGroup("Tables", check1_, text1_, "no. of copies:", option1_, option2_,
                                   check3_, picture2_, picture1_);
    QGroupBox* frame2 =
        buildGroup("Graphic", check2_, text2_, one ? "no. of copies:" : "no. of copys:", option4_,
                   option3_, check4_, picture3_, picture4_);
    frame1->setObjectName("Frame1");
    frame2->setObjectName("Frame2");
    const char* names[] = {"Check1", "Text1", "Option1", "Option2", "Picture1", "Picture2",
                           "Check2", "Text2", "Option3", "Option4", "Picture3", "Picture4"};
    QWidget* widgets[] = {check1_, text1_, option1_, option2_, picture1_, picture2_,
                          check2_, text2_, option3_, option4_, picture3_, picture4_};
    for (std::size_t i = 0; i < std::size(names); ++i)
        widgets[i]->setObjectName(names[i]);
    if (check3_) {
        check3_->setObjectName("Check3");
        check4_->setObjectName("Check4");
    }

    command1_ = new QPushButton("Print", this);
    command2_ = new QPushButton("Cancel", this);
    command1_->setObjectName("Command1");
    command2_->setObjectName("Command2");
    command1_->setDefault(true);
    connect(command1_, &QPushButton::clicked, this, [this] { print(); });
    connect(command2_, &QPushButton::clicked, this, [this] { leave(); });

    auto* groups = new QHBoxLayout;
    groups->addWidget(frame1);
    groups->addWidget(frame2);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(command1_);
    buttons->addWidget(command2_);
    auto* column = new QVBoxLayout(this);
    column->addLayout(groups);
    column->addLayout(buttons);

    // The boxes and options follow the form; a change goes into the form at once.
    connect(check1_, &QCheckBox::clicked, this, [this](bool on) {
        form_.Check1 = on;
        show(true);
    });
    connect(check2_, &QCheckBox::clicked, this, [this](bool on) {
        form_.Check2 = on;
        show(true);
    });
    if (check3_) {
        connect(check3_, &QCheckBox::clicked, this, [this](bool on) {
            form_.Check3 = on;
            show(true);
        });
        connect(check4_, &QCheckBox::clicked, this, [this](bool on) {
            form_.Check4 = on;
            show(true);
        });
    }
    connect(option1_, &QRadioButton::clicked, this, [this] {
        form_.Option1 = true;
        show(true);
    });
    connect(option2_, &QRadioButton::clicked, this, [this] {
        form_.Option1 = false;
        show(true);
    });
    connect(option4_, &QRadioButton::clicked, this, [this] {
        form_.Option4 = true;
        show(true);
    });
    connect(option3_, &QRadioButton::clicked, this, [this] {
        form_.Option4 = false;
        show(true);
    });
    for (FilteredLineEdit* box : {text1_, text2_}) {
        box->setKeyFilter([](char key) { return PrintForm::CopiesAcceptKey(key); });
        connect(box, &QLineEdit::textEdited, this, [this, box](const QString& text) {
            (box == text1_ ? form_.Text1 : form_.Text2) = text.toStdString();
        });
        connect(box, &FilteredLineEdit::focusLeft, this, [this, box] {
            std::string& text = box == text1_ ? form_.Text1 : form_.Text2;
            text = form_.CopiesLostFocus(box->text().toStdString());
            show(true);
        });
    }
    show(true);
}

QGroupBox* PrintDialog::buildGroup(const QString& title, QCheckBox*& print,
                                   FilteredLineEdit*& copies, const QString& copiesCaption,
                                   QRadioButton*& portrait, QRadioButton*& landscape,
                                   QCheckBox*& header, QLabel*& portraitPage,
                                   QLabel*& landscapePage) {
    auto* frame = new QGroupBox(title, this);
    print = new QCheckBox("Print", frame);
    auto* caption = new QLabel(copiesCaption, frame);
    copies = new FilteredLineEdit(frame);
    copies->setMaximumWidth(60);
    portrait = new QRadioButton("Portrait", frame);
    landscape = new QRadioButton("Landscape", frame);
    portraitPage = new QLabel(frame);
    landscapePage = new QLabel(frame);
    portraitPage->setFixedSize(88, 88);
    landscapePage->setFixedSize(88, 88);
    portraitPage->setAlignment(Qt::AlignCenter);
    landscapePage->setAlignment(Qt::AlignCenter);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(print, 0, 0, 1, 2);
    grid->addWidget(caption, 1, 0);
    grid->addWidget(copies, 1, 1);
    grid->addWidget(portrait, 2, 0, 1, 2);
    grid->addWidget(landscape, 3, 0, 1, 2);
    int row = 4;
    if (form_.kind() == PrintFormKind::Print1) {
        header = new QCheckBox("Print header", frame);
        grid->addWidget(header, row++, 0, 1, 2);
    }
    grid->addWidget(portraitPage, 0, 2, row, 1);
    grid->addWidget(landscapePage, 0, 2, row, 1);
    grid->setColumnStretch(1, 1);
    return frame;
}

// The controls as the form says.
void PrintDialog::show(bool) {
    check1_->setChecked(form_.Check1);
    check2_->setChecked(form_.Check2);
    if (text1_->text().toStdString() != form_.Text1)
        text1_->setText(QString::fromStdString(form_.Text1));
    if (text2_->text().toStdString() != form_.Text2)
        text2_->setText(QString::fromStdString(form_.Text2));
    option1_->setChecked(form_.Option1);
    option2_->setChecked(!form_.Option1);
    option4_->setChecked(form_.Option4);
    option3_->setChecked(!form_.Option4);
    for (QWidget* w : {static_cast<QWidget*>(text1_), static_cast<QWidget*>(option1_),
                       static_cast<QWidget*>(option2_)})
        w->setEnabled(form_.tablesEnabled());
    for (QWidget* w : {static_cast<QWidget*>(text2_), static_cast<QWidget*>(option3_),
                       static_cast<QWidget*>(option4_)})
        w->setEnabled(form_.graphicEnabled());
    const bool headers = form_.kind() == PrintFormKind::Print1;
    if (check3_) {
        check3_->setChecked(form_.Check3);
        check4_->setChecked(form_.Check4);
        check3_->setEnabled(form_.tablesEnabled());
        check4_->setEnabled(form_.graphicEnabled());
    }
    picture2_->setPixmap(PagePixmap(false, headers && form_.Check3));
    picture1_->setPixmap(PagePixmap(true, headers && form_.Check3));
    picture3_->setPixmap(PagePixmap(false, headers && form_.Check4));
    picture4_->setPixmap(PagePixmap(true, headers && form_.Check4));
    picture2_->setVisible(form_.Picture2Visible());
    picture1_->setVisible(form_.Picture1Visible());
    picture3_->setVisible(form_.Picture3Visible());
    picture4_->setVisible(form_.Picture4Visible());
}

void PrintDialog::open() {
    resultsWindow_.setEnabled(false);
    setEnabled(true);
    QDialog::show();
    raise();
    activateWindow();
}

// "Print": the codes go to the results window one after the other, and the pages
// they make go to the printer together.
void PrintDialog::print() {
    // A copies box that still has the focus is left first, as a click elsewhere does.
    form_.Text1 = form_.CopiesLostFocus(text1_->text().toStdString());
    form_.Text2 = form_.CopiesLostFocus(text2_->text().toStdString());
    show(true);
    const std::vector<int> codes = form_.Command1(port_);
    if (!codes.empty()) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        PrintRoute route;
        for (int code : codes)
            send_(code, route);
        QApplication::restoreOverrideCursor();
        route.run(this, port_);
    }
    leave();
}

void PrintDialog::leave() {
    resultsWindow_.setEnabled(true);
    hide();
}

void PrintDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    leave();
}

}  // namespace morvane
