#include "shell/LineRatiosPanel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "core/NumberText.h"
#include "relative/LikelihoodData.h"

namespace morvane {
LineRatiosPanel::LineRatiosPanel(UserPort& port, QWidget* parent)
    : QWidget(parent), port_(port), choices_(this) {
    textPercent_ = new QLineEdit("50", this);
    textPercent_->setMaximumWidth(70);
    comboReference_ = new QComboBox(this);
    commandCompare_ = new QPushButton("Compare", this);
    labelMessage_ = new QLabel(this);
    labelMessage_->setWordWrap(true);
    labelPotency_ = new QLabel(this);
    labelPotency_->setWordWrap(true);

    textPercent_->setObjectName("TextPercent");
    comboReference_->setObjectName("ComboReference");
    commandCompare_->setObjectName("CommandCompare");
    labelMessage_->setObjectName("LabelMessage");
    labelPotency_->setObjectName("LabelPotency");
    gridRatios_ = MakeResultView(this, &ratios_, "GridRatios");
    gridTests_ = MakeResultView(this, &tests_, "GridTests");
    gridPotency_ = MakeResultView(this, &potency_, "GridPotency");

    auto* choices = new QHBoxLayout;
    choices_.addTo(choices, 10);
    choices->addSpacing(10);
    choices->addWidget(new QLabel("Percent", this));
    choices->addWidget(textPercent_);
    choices->addSpacing(10);
    choices->addWidget(new QLabel("Reference", this));
    choices->addWidget(comboReference_, 1);
    choices->addWidget(commandCompare_);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(choices);
    layout->addWidget(labelMessage_);
    layout->addWidget(gridRatios_, 3);
    layout->addWidget(gridTests_, 2);
    layout->addWidget(labelPotency_);
    layout->addWidget(gridPotency_, 2);

    connect(commandCompare_, &QPushButton::clicked, this, [this] { compare(); });
    connect(textPercent_, &QLineEdit::returnPressed, this, [this] { compare(); });
}

void LineRatiosPanel::setLines(const std::vector<std::pair<std::string, std::string>>& lines) {
    lines_ = lines;
    comboReference_->clear();
    for (const auto& line : lines_)
        comboReference_->addItem(QString::fromStdString(line.first));
    compare();
}

void LineRatiosPanel::compare() {
    std::string refusal;
    const LikelihoodOptions options = choices_.options(refusal);
    const auto percent = ParseNumber(textPercent_->text().toStdString());
    if (refusal.empty() && (!percent || !(*percent > 0 && *percent < 100)))
        refusal = "A percent must lie above 0 and below 100: " + textPercent_->text().toStdString();
    if (refusal.empty() && lines_.size() < 2)
        refusal = "The comparison needs two lines or more.";

    std::vector<LikelihoodLineReport> reports;
    std::vector<std::vector<DoseGroup>> groups;
    for (std::size_t k = 0; refusal.empty() && k < lines_.size(); ++k) {
        LineFileGroups line = ReadLineGroups(lines_[k].first, lines_[k].second, port_);
        if (!line.groups.message.empty()) {
            refusal = line.name + ": " + line.groups.message;
            break;
        }
        groups.push_back(line.groups.groups);
        reports.push_back({line.name, line.estimateWord, line.unitWord, {}, {}});
    }
    LineComparison comparison;
    if (refusal.empty()) {
        comparison =
            CompareLikelihoodLines(groups, comboReference_->currentIndex(), *percent, options);
        if (!comparison.done)
            refusal = comparison.message;
    }
    if (!refusal.empty()) {
        ratios_ = tests_ = potency_ = TextTable();
        text_.clear();
        labelMessage_->setStyleSheet("color: rgb(170,0,0);");
        labelMessage_->setText(QString::fromStdString(refusal));
        labelPotency_->clear();
    } else {
        for (std::size_t k = 0; k < reports.size(); ++k) {
            reports[k].fit = comparison.lines[k];
            reports[k].estimates = {comparison.estimates[k]};
        }
        ratios_ = RatioTable(reports, comparison);
        tests_ = LineTestTable(comparison);
        potency_ = PotencyTable(reports, comparison);
        text_ = LikelihoodText(reports, {comparison}, options);
        labelMessage_->setStyleSheet(QString());
        labelMessage_->setText(
            "Each ratio is the line's dose over the reference's; the lines differ when its "
            "limits exclude 1.");
        labelPotency_->setText(QString::fromStdString(
            comparison.parallelLines
                ? "The lines are parallel: potency relative to the reference (the reference's "
                  "dose over the line's) from the common slope " +
                      LikelihoodFigure(comparison.parallel.slope()) + "."
                : std::string("The lines are not parallel: no relative potency.")));
    }
    gridPotency_->setVisible(!comparison.potencies.empty());
    for (TextTableView* view : {gridRatios_, gridTests_, gridPotency_}) {
        view->refresh();
        view->resizeColumnsToContents();
    }
}

}  // namespace morvane
