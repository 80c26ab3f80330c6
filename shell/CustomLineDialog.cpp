#include "shell/CustomLineDialog.h"

#include <QColorDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "relative/LinePens.h"
#include "relative/MultiLineChart.h"
#include "shell/MultiChartWidget.h"
#include "shell/Twips.h"

namespace morvane {
namespace {

constexpr int kPatches = 16;
constexpr int kStyles = 5;
constexpr double kSampleWidth = 1700;
constexpr double kSampleHeight = 400;

QColor ToQ(std::uint32_t rgb) {
    return QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}

}  // namespace

CustomLineDialog::CustomLineDialog(std::uint32_t color, int style, QWidget* parent)
    : QDialog(parent), color_(color) {
    setObjectName("FormCustomLine");
    setWindowTitle("Customize line");
    auto* layout = new QHBoxLayout(this);

    auto* left = new QVBoxLayout;
    auto* patches = new QWidget(this);
    auto* grid = new QGridLayout(patches);
    grid->setSpacing(PixelsX(*this, 60));
    for (int i = 0; i < kPatches; ++i) {
        auto* patch = new QPushButton(patches);
        patch->setObjectName(QString("Picture1_%1").arg(i));
        patch->setFixedSize(PixelsX(*this, 330), PixelsY(*this, 330));
        patch->setFlat(true);
        patch->setAutoFillBackground(true);
        patch->setStyleSheet(QString("background-color: %1; border: 1px solid #888;")
                                 .arg(ToQ(PaletteColor(i)).name()));
        connect(patch, &QPushButton::clicked, this, [this, i] { clickPatch(i); });
        grid->addWidget(patch, i / 4, i % 4);
        patches_.push_back(patch);
    }
    shape1_ = new QFrame(patches);
    shape1_->setObjectName("Shape1");
    shape1_->setFrameShape(QFrame::Box);
    shape1_->setLineWidth(2);
    shape1_->setAttribute(Qt::WA_TransparentForMouseEvents);
    shape1_->hide();
    left->addWidget(patches);
    command1_ = new QPushButton("Customize color", this);
    left->addWidget(command1_);
    picture2_ = new QLabel(this);
    picture2_->setObjectName("Picture2");
    picture2_->setFixedSize(PixelsX(*this, kSampleWidth), PixelsY(*this, kSampleHeight));
    left->addWidget(picture2_);
    left->addStretch(1);
    layout->addLayout(left);

    auto* right = new QVBoxLayout;
    grid3_ = new QListWidget(this);
    grid3_->setObjectName("Grid3");
    grid3_->setIconSize(QSize(PixelsX(*this, 1400), PixelsY(*this, 400)));
    for (int s = 0; s < kStyles; ++s) {
        auto* item = new QListWidgetItem(
            QIcon(LineSamplePixmap(*this, kBlack, PenStyleOfNumber(s), 1400, 400)), QString());
        item->setSizeHint(QSize(PixelsX(*this, 1500), PixelsY(*this, 400)));
        grid3_->addItem(item);
    }
    grid3_->setFixedWidth(PixelsX(*this, 1800));
    grid3_->setCurrentRow(style >= 0 && style < kStyles ? style : 0);
    connect(grid3_, &QListWidget::currentRowChanged, this, [this](int) { DrawLineSample(); });
    right->addWidget(grid3_);
    auto* buttons = new QHBoxLayout;
    command2_ = new QPushButton("OK", this);
    command3_ = new QPushButton("Cancel", this);
    buttons->addWidget(command2_);
    buttons->addWidget(command3_);
    right->addLayout(buttons);
    layout->addLayout(right);

    chooseColor = [this](std::uint32_t start) -> std::optional<std::uint32_t> {
        const QColor chosen = QColorDialog::getColor(ToQ(start), this, "Change line color");
        if (!chosen.isValid())
            return std::nullopt;
        return (static_cast<std::uint32_t>(chosen.red()) << 16) |
               (static_cast<std::uint32_t>(chosen.green()) << 8) |
               static_cast<std::uint32_t>(chosen.blue());
    };
    connect(command1_, &QPushButton::clicked, this, [this] {
        if (const auto chosen = chooseColor(color_)) {
            color_ = *chosen;
            shape1_->hide();
            DrawLineSample();
        }
    });
    connect(command2_, &QPushButton::clicked, this, &QDialog::accept);
    connect(command3_, &QPushButton::clicked, this, &QDialog::reject);
    DrawLineSample();
}

int CustomLineDialog::chosenStyle() const {
    return std::max(0, grid3_->currentRow());
}

void CustomLineDialog::clickPatch(int entry) {
    QPushButton* patch = patches_.at(static_cast<std::size_t>(entry));
    const int margin = PixelsX(*this, 40);
    shape1_->setGeometry(patch->geometry().adjusted(-margin, -margin, margin, margin));
    shape1_->show();
    shape1_->raise();
    color_ = PaletteColor(entry);
    DrawLineSample();
}

void CustomLineDialog::clickStyle(int style) {
    grid3_->setCurrentRow(style);
}

void CustomLineDialog::DrawLineSample() {
    picture2_->setPixmap(LineSamplePixmap(
        *this, ColorOfRgb(color_), PenStyleOfNumber(chosenStyle()), kSampleWidth, kSampleHeight));
}

}  // namespace morvane
