#include "shell/ProbitDialog.h"

#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "shell/GridPage.h"
#include "shell/Twips.h"
#include "shell/WidgetPieces.h"

namespace morvane {
namespace {

constexpr int kSlideTickMs = 30;
constexpr double kStripHeight = 1300;  // twips: the panel's path and its own height
constexpr double kPanelHeight = 300;

QLabel* ResultLabel(QWidget* parent) {
    QLabel* label = ValueLabel(parent);
    label->setFrameShape(QFrame::StyledPanel);
    label->setMinimumWidth(PixelsX(*label, 1500));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

}  // namespace

SlideStrip::SlideStrip(SlidingPanel& panel, QWidget* parent) : QWidget(parent), panel_(panel) {
    setFixedSize(PixelsX(*this, 300), PixelsY(*this, kStripHeight * 0.6));
    timer_.setInterval(kSlideTickMs);
    connect(&timer_, &QTimer::timeout, this, [this] {
        panel_.tick();
        if (!panel_.running())
            timer_.stop();
        update();
    });
}

void SlideStrip::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), palette().color(QPalette::Window).darker(104));
    if (!panel_.running())
        return;
    // The panel's path, -500 to 600 twips, is scaled into the strip.
    const double scale = height() / (SlidingPanel::kEndTop - SlidingPanel::kRestTop + kPanelHeight);
    const double top = (panel_.top() - SlidingPanel::kRestTop) * scale;
    p.setBrush(QColor(226, 92, 54));
    p.setPen(Qt::NoPen);
    p.drawRoundedRect(QRectF(2, top, width() - 4, kPanelHeight * scale), 3, 3);
}

ProbitDialog::ProbitDialog(ProbitConverter& converter, std::function<void()> closed,
                           QWidget* parent)
    : QDialog(parent), converter_(converter), closed_(std::move(closed)) {
    setWindowTitle("Probit");
    setModal(false);
    tabs_ = new QTabWidget(this);
    auto* outer = new QVBoxLayout(this);
    outer->addWidget(tabs_);

    text1_ = makeBox(ProbitConverter::Box::Text1);
    text2_ = makeBox(ProbitConverter::Box::Text2);
    text3_ = makeBox(ProbitConverter::Box::Text3);
    text4_ = makeBox(ProbitConverter::Box::Text4);
    text1_->setPlaceholderText("Write responced %");
    text2_->setPlaceholderText("Write probit");

    const auto [page0, g0] = NewGridPage();
    label1_ = ResultLabel(page0);
    label2_ = ResultLabel(page0);
    picture3_ = new SlideStrip(converter_.Picture3(), page0);
    picture4_ = new SlideStrip(converter_.Picture4(), page0);
    auto* label9 = new QLabel("Convert", page0);
    auto* label10 = new QLabel("Convert", page0);
    QFont heading = label9->font();
    heading.setBold(true);
    label9->setFont(heading);
    label10->setFont(heading);
    g0->addWidget(label9, 0, 0, 1, 4);
    g0->addWidget(new QLabel(" Responded %", page0), 1, 0);  // Label3
    g0->addWidget(text1_, 2, 0);
    g0->addWidget(new QLabel("to probit", page0), 2, 1);  // Label5
    g0->addWidget(new QLabel("Probit", page0), 1, 2);     // Label4
    g0->addWidget(label1_, 2, 2);
    g0->addWidget(picture3_, 1, 3, 2, 1);
    g0->addWidget(label10, 3, 0, 1, 4);
    g0->addWidget(text2_, 4, 0);
    g0->addWidget(new QLabel("to responded%", page0), 4, 1);  // Label6
    g0->addWidget(label2_, 4, 2);
    g0->addWidget(picture4_, 3, 3, 2, 1);
    AddGridPage(*tabs_, {page0, g0}, 5, "Probit");

    const auto [page1, g1] = NewGridPage();
    label12_ = ResultLabel(page1);
    label13_ = ResultLabel(page1);
    g1->addWidget(new QLabel("Expected probit \"Y\"", page1), 0, 0);  // Label7
    g1->addWidget(text3_, 1, 0);
    g1->addWidget(new QLabel("Responded %", page1), 0, 1);  // Label8
    g1->addWidget(text4_, 1, 1);
    g1->addWidget(new QLabel("Working probit is", page1), 2, 0);  // Label11
    g1->addWidget(label12_, 3, 0);
    g1->addWidget(new QLabel("Weighting coefficient", page1), 2, 1);  // Label14
    g1->addWidget(label13_, 3, 1);
    AddGridPage(*tabs_, {page1, g1}, 4, "Working probit");

    connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) {
        (ProbitConverter::FocusOnTab(tab) == ProbitConverter::Box::Text3 ? text3_ : text1_)
            ->setFocus(Qt::OtherFocusReason);
    });
    resize(PixelsX(*this, 6600), PixelsY(*this, 3600));
}

FilteredLineEdit* ProbitDialog::makeBox(ProbitConverter::Box box) {
    auto* edit = new FilteredLineEdit(this);
    edit->setKeyFilter([box](char key) { return ProbitConverter::KeyAllowed(box, key); });
    edit->setMinimumWidth(PixelsX(*edit, 1500));
    connect(edit, &QLineEdit::textChanged, this,
            [this, box](const QString& text) { changed(box, text); });
    connect(edit, &FilteredLineEdit::focusLeft, this, [this, box, edit] {
        if (converter_.leave(box)) {
            refresh();
        } else {
            // Leaves the text as typed; its result stays empty until it is a number.
            edit->setStyleSheet("color: rgb(200,0,0);");
        }
    });
    return edit;
}

void ProbitDialog::changed(ProbitConverter::Box box, const QString& text) {
    if (refreshing_)
        return;
    converter_.setText(box, text.toStdString());
    refresh();
}

void ProbitDialog::refresh() {
    refreshing_ = true;
    const std::pair<FilteredLineEdit*, ProbitConverter::Box> boxes[] = {
        {text1_, ProbitConverter::Box::Text1},
        {text2_, ProbitConverter::Box::Text2},
        {text3_, ProbitConverter::Box::Text3},
        {text4_, ProbitConverter::Box::Text4}};
    for (const auto& [edit, box] : boxes) {
        const QString text = QString::fromStdString(converter_.text(box));
        if (edit->text() != text)
            edit->setText(text);
        edit->setStyleSheet({});
    }
    label1_->setText(QString::fromStdString(converter_.Label1()));
    label2_->setText(QString::fromStdString(converter_.Label2()));
    label12_->setText(QString::fromStdString(converter_.Label12()));
    label13_->setText(QString::fromStdString(converter_.Label13()));
    if (converter_.Picture3().running() && !picture3_->timer().isActive())
        picture3_->timer().start();
    if (converter_.Picture4().running() && !picture4_->timer().isActive())
        picture4_->timer().start();
    refreshing_ = false;
}

void ProbitDialog::open() {
    converter_.Open();
    refresh();
    tabs_->setCurrentIndex(0);
    show();
    raise();
    activateWindow();
}

void ProbitDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    text1_->setFocus(Qt::OtherFocusReason);
}

// The close box, Escape and every other way of closing end here: the window unloads.
void ProbitDialog::reject() {
    converter_.Close();
    QDialog::reject();
    if (closed_)
        closed_();
}

}  // namespace morvane
