#include "shell/OptionsDialog.h"

#include <QFocusEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "shell/GridPage.h"
#include "shell/Program.h"
#include "shell/QuoteGuard.h"
#include "shell/Twips.h"
#include "shell/WidgetPieces.h"

namespace morvane {
namespace {

const char* const kUnits1[] = {"pg",  "ng",  "ug",  "mg",  "gm",  "uL",   "ml",  "L",   "%",
                               "ppt", "ppm", "ppb", "sec", "min", "hour", "day", "week"};
const char* const kUnits2[] = {"gm", "L", "mg", "ml", "ng", "pg", "ug", "uL"};
const char* const kFactors[] = {"Dose", "Con.", "Time", "Temp."};
const char* const kAbbreviations[] = {"LD", "LC", "LT", "RD", "RC", "RT"};

QComboBox* EditableCombo(QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    return combo;
}

void SetComboText(QComboBox* combo, const std::string& text) {
    const QString value = QString::fromStdString(text);
    if (combo->currentText() != value)
        combo->setCurrentText(value);
}

}  // namespace

OptionsDialog::OptionsDialog(Program& program, QWidget* parent)
    : QDialog(parent), program_(program) {
    setWindowTitle("New Line");
    setModal(false);

    tab1_ = new QTabWidget(this);
    const auto [adjust, a] = NewGridPage();
    a->addWidget(new QLabel("Factor type:", adjust), 0, 0);
    option1_ = new QRadioButton(kFactorCaptions[0], adjust);
    option2_ = new QRadioButton(kFactorCaptions[1], adjust);
    option3_ = new QRadioButton(kFactorCaptions[2], adjust);
    auto* options = new QHBoxLayout;
    options->addWidget(option1_);
    options->addWidget(option2_);
    options->addWidget(option3_);
    options->addStretch();
    a->addLayout(options, 0, 1, 1, 3);
    a->addWidget(new QLabel("Unit:", adjust), 1, 0);
    comboUnit1_ = EditableCombo(adjust);
    for (const char* u : kUnits1)
        comboUnit1_->addItem(u);
    comboUnit2_ = EditableCombo(adjust);
    for (const char* u : kUnits2)
        comboUnit2_->addItem(u);
    a->addWidget(comboUnit1_, 1, 1);
    a->addWidget(new QLabel("per", adjust), 1, 2, Qt::AlignCenter);
    a->addWidget(comboUnit2_, 1, 3);
    labelUnits_ = new QLabel(adjust);
    MakeBold(*labelUnits_);
    a->addWidget(labelUnits_, 2, 1, 1, 3);
    AddGridPage(*tab1_, {adjust, a}, 3, "Adjust units");

    const auto [custom, c] = NewGridPage();
    combo5_ = EditableCombo(custom);
    for (const char* f : kFactors)
        combo5_->addItem(f);
    combo6_ = EditableCombo(custom);
    for (const char* ab : kAbbreviations)
        combo6_->addItem(ab);
    text5_ = new QLineEdit(custom);
    for (QComboBox* box : {comboUnit1_, comboUnit2_, combo5_, combo6_})
        RefuseQuotes(box, program_.port());
    RefuseQuotes(text5_, program_.port());
    check3_ = new QCheckBox("Control associates each treatment", custom);
    c->addWidget(new QLabel("Factor type:", custom), 0, 0);
    c->addWidget(combo5_, 0, 1);
    c->addWidget(new QLabel("Abbreviation :", custom), 1, 0);
    c->addWidget(combo6_, 1, 1);
    c->addWidget(new QLabel("Unit :", custom), 2, 0);
    c->addWidget(text5_, 2, 1);
    c->addWidget(check3_, 3, 0, 1, 2);
    AddGridPage(*tab1_, {custom, c}, 4, "Customize units");

    auto* dataType = new QGroupBox("Input data type", this);
    auto* d = new QVBoxLayout(dataType);
    comboDataType_ = new QComboBox(dataType);
    for (const char* name : kDataTypeNames)
        comboDataType_->addItem(name);
    check2_ = new QCheckBox("Replicates weighting", dataType);
    d->addWidget(comboDataType_);
    d->addWidget(check2_);

    combo7_ = EditableCombo(this);
    RefuseQuotes(combo7_, program_.port());
    for (const char* alpha : kAlphaTexts)
        combo7_->addItem(alpha);
    combo7_->setToolTip("Probability of T value");
    auto* alpha = new QHBoxLayout;
    alpha->addWidget(new QLabel("Alpha", this));
    alpha->addWidget(combo7_);
    alpha->addStretch();
    check4_ = new QCheckBox("Always use last state as default", this);

    ok_ = new QPushButton("OK", this);
    cancel_ = new QPushButton("Cancel", this);
    saveDefault_ = new QPushButton("Save as default", this);
    saveDefault_->setToolTip("Save current state as default");
    loadDefault_ = new QPushButton("Load default", this);
    help_ = new QPushButton("Help", this);
    ok_->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(saveDefault_);
    buttons->addWidget(loadDefault_);
    buttons->addWidget(help_);
    buttons->addStretch();
    buttons->addWidget(ok_);
    buttons->addWidget(cancel_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tab1_);
    layout->addWidget(dataType);
    layout->addLayout(alpha);
    layout->addWidget(check4_);
    layout->addLayout(buttons);

    // The controls' events go to the options of the document.
    for (const auto& [button, option] : optionButtons()) {
        connect(button, &QRadioButton::clicked, this, [this, option] {
            change([option](FileOptions& o, SharedRegisters& s) { o.selectOption(option, s); });
        });
    }
    connect(comboUnit1_, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        change(
            [text](FileOptions& o, SharedRegisters& s) { o.setComboUnit1(text.toStdString(), s); });
    });
    connect(comboUnit2_, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        change(
            [text](FileOptions& o, SharedRegisters& s) { o.setComboUnit2(text.toStdString(), s); });
    });
    connect(combo5_, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        change(
            [text](FileOptions& o, SharedRegisters&) { o.controls.Combo5 = text.toStdString(); });
    });
    connect(combo6_, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        change(
            [text](FileOptions& o, SharedRegisters&) { o.controls.Combo6 = text.toStdString(); });
    });
    connect(text5_, &QLineEdit::textEdited, this, [this](const QString& text) {
        change([text](FileOptions& o, SharedRegisters&) { o.controls.Text5 = text.toStdString(); });
    });
    connect(check3_, &QCheckBox::clicked, this, [this](bool on) {
        change([on](FileOptions& o, SharedRegisters&) { o.controls.Check3 = on ? 1 : 0; });
    });
    connect(comboDataType_, &QComboBox::currentIndexChanged, this, [this](int index) {
        change([index](FileOptions& o, SharedRegisters&) {
            o.setDataType(static_cast<DataType>(index));  // the list is in DataType's order
        });
    });
    connect(check2_, &QCheckBox::clicked, this, [this](bool on) {
        change([on](FileOptions& o, SharedRegisters&) { o.controls.Check2 = on ? 1 : 0; });
    });
    connect(combo7_, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        change(
            [text](FileOptions& o, SharedRegisters&) { o.controls.Combo7 = text.toStdString(); });
    });
    connect(check4_, &QCheckBox::clicked, this, [this](bool on) {
        change([on](FileOptions& o, SharedRegisters&) { o.controls.Check4 = on ? 1 : 0; });
    });
    connect(tab1_, &QTabWidget::currentChanged, this, [this](int tab) {
        change([tab](FileOptions& o, SharedRegisters&) {
            o.controls.setUnitsTab(tab == 1 ? UnitsTab::CustomizeUnits : UnitsTab::AdjustUnits);
        });
    });
    combo5_->installEventFilter(this);
    combo6_->installEventFilter(this);
    if (combo5_->lineEdit())
        combo5_->lineEdit()->installEventFilter(this);
    if (combo6_->lineEdit())
        combo6_->lineEdit()->installEventFilter(this);

    connect(ok_, &QPushButton::clicked, this,
            [this] { program_.run([this] { program_.document().FileOptionsOK(); }); });
    connect(cancel_, &QPushButton::clicked, this, [this] { reject(); });
    connect(saveDefault_, &QPushButton::clicked, this,
            [this] { program_.run([this] { program_.document().SaveOptionDefaults(); }); });
    connect(loadDefault_, &QPushButton::clicked, this,
            [this] { program_.run([this] { program_.document().LoadOptionDefaults(); }); });
    connect(help_, &QPushButton::clicked, this, [this] { program_.openHelp("Hnew.htm"); });

    // The red caption of a chosen factor type lasts one second.
    timer1_.setInterval(1000);
    timer1_.setSingleShot(true);
    connect(&timer1_, &QTimer::timeout, this, [this] {
        program_.document().fileOptionsControls().endHighlight();
        refresh();
    });
    setMinimumWidth(PixelsX(*this, 6600));
    refresh();
}

void OptionsDialog::change(const std::function<void(FileOptions&, SharedRegisters&)>& edit) {
    if (refreshing_)
        return;
    program_.run([&] { edit(program_.document().fileOptionsControls(), program_.shared()); });
    // Each choice of a factor type starts the highlight's second anew.
    if (program_.document().fileOptions().HighlightedOption != FactorOption::None)
        timer1_.start();
}

bool OptionsDialog::eventFilter(QObject* watched, QEvent* event) {
    // Leaving Combo5 or Combo6 empty puts it on its first entry.
    if (event->type() == QEvent::FocusOut && !refreshing_) {
        const bool five =
            watched == combo5_ || (combo5_->lineEdit() && watched == combo5_->lineEdit());
        const bool six =
            watched == combo6_ || (combo6_->lineEdit() && watched == combo6_->lineEdit());
        if (five)
            change([](FileOptions& o, SharedRegisters&) { o.leaveCombo5(); });
        if (six)
            change([](FileOptions& o, SharedRegisters&) { o.leaveCombo6(); });
    }
    return QDialog::eventFilter(watched, event);
}

std::array<std::pair<QRadioButton*, FactorOption>, 3> OptionsDialog::optionButtons() const {
    return {{{option1_, FactorOption::Dose},
             {option2_, FactorOption::Con},
             {option3_, FactorOption::Time}}};
}

void OptionsDialog::refresh() {
    refreshing_ = true;
    const FileOptions& options = program_.document().fileOptions();
    const LineOptions& c = options.controls;
    tab1_->setCurrentIndex(c.unitsTab() == UnitsTab::CustomizeUnits ? 1 : 0);
    for (const auto& [button, option] : optionButtons())
        button->setChecked(c.factor() == option);
    SetComboText(comboUnit1_, c.ComboUnit1);
    SetComboText(comboUnit2_, c.ComboUnit2);
    labelUnits_->setText(QString::fromStdString(options.LabelUnits));
    SetComboText(combo5_, c.Combo5);
    SetComboText(combo6_, c.Combo6);
    if (text5_->text() != QString::fromStdString(c.Text5))
        text5_->setText(QString::fromStdString(c.Text5));
    check3_->setChecked(c.Check3 == 1);
    const int dataType = static_cast<int>(c.dataType());
    if (comboDataType_->currentIndex() != dataType)
        comboDataType_->setCurrentIndex(dataType);
    check2_->setChecked(c.Check2 == 1);
    check2_->setEnabled(options.Check2Enabled());
    SetComboText(combo7_, c.Combo7);
    check4_->setChecked(c.Check4 == 1);
    // The chosen factor type's caption shows red until the timer ends it.
    const FactorOption highlight = options.HighlightedOption;
    for (const auto& [button, option] : optionButtons())
        button->setStyleSheet(highlight == option ? "color: rgb(255,0,0);" : "");
    if (highlight != FactorOption::None && !timer1_.isActive())
        timer1_.start();
    refreshing_ = false;
}

void OptionsDialog::focusControl(Focus focus) {
    if (!isVisible())
        return;
    activateWindow();
    if (focus == Focus::ComboUnit1) {
        tab1_->setCurrentIndex(0);
        comboUnit1_->setFocus(Qt::OtherFocusReason);
    } else if (focus == Focus::Text5) {
        tab1_->setCurrentIndex(1);
        text5_->setFocus(Qt::OtherFocusReason);
    }
}

// Cancel, Escape and the close box: the document's Cancel routine.
void OptionsDialog::reject() {
    if (!program_.document().fileOptions().Visible) {
        QDialog::reject();
        return;
    }
    program_.run([this] { program_.document().FileOptionsCancel(); });
}

}  // namespace morvane
