#include "shell/LikelihoodTab.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>
#include <sstream>

#include "core/NumberText.h"
#include "relative/LikelihoodData.h"

namespace morvane {
namespace {

void Fit(TextTableView* view) {
    view->refresh();
    view->resizeColumnsToContents();
}

}  // namespace

LikelihoodTab::LikelihoodTab(QWidget* parent) : QWidget(parent), choices_(this) {
    textPercents_ = new QLineEdit("25 50 75 90 95 99", this);
    commandFit_ = new QPushButton("Fit", this);
    checkShowLine_ = new QCheckBox("Show the line on the chart", this);
    labelMessage_ = new QLabel(this);
    labelMessage_->setWordWrap(true);

    textPercents_->setObjectName("TextPercents");
    commandFit_->setObjectName("CommandFit");
    checkShowLine_->setObjectName("CheckShowLine");
    labelMessage_->setObjectName("LabelMessage");

    gridParameters_ = MakeResultView(this, &parameters_, "GridParameters");
    gridCovariance_ = MakeResultView(this, &covariance_, "GridCovariance");
    gridGoodness_ = MakeResultView(this, &goodness_, "GridGoodness");
    gridGoodness_->setHeadingRow(false);
    gridGoodness_->horizontalHeader()->hide();
    gridEstimates_ = MakeResultView(this, &estimates_, "GridEstimates");

    auto* choices = new QHBoxLayout;
    choices_.addTo(choices, 12);
    choices->addSpacing(12);
    choices->addWidget(new QLabel("Percents", this));
    choices->addWidget(textPercents_, 1);
    choices->addWidget(commandFit_);
    choices->addSpacing(12);
    choices->addWidget(checkShowLine_);

    auto* grids = new QGridLayout;
    grids->addWidget(gridParameters_, 0, 0);
    grids->addWidget(gridCovariance_, 1, 0);
    grids->addWidget(gridGoodness_, 0, 1, 2, 1);
    grids->addWidget(gridEstimates_, 0, 2, 2, 1);
    grids->setColumnStretch(0, 4);
    grids->setColumnStretch(1, 3);
    grids->setColumnStretch(2, 5);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(choices);
    layout->addWidget(labelMessage_);
    layout->addLayout(grids, 1);

    connect(commandFit_, &QPushButton::clicked, this, [this] { fit(); });
    connect(textPercents_, &QLineEdit::returnPressed, this, [this] { fit(); });
    connect(choices_.naturalValue, &QLineEdit::returnPressed, this, [this] { fit(); });
    connect(checkShowLine_, &QCheckBox::toggled, this, [this] { emit lineChanged(); });
}

void LikelihoodTab::setLine(const std::string& name, const TextTable& grid1, DataType type,
                            const std::string& estimateWord, const std::string& unitWord) {
    report_.name = name;
    grid1_ = grid1;
    type_ = type;
    report_.estimateWord = estimateWord;
    report_.unitWord = unitWord;
    fit();
}

std::vector<double> LikelihoodTab::chosenPercents(std::string& refusal) const {
    std::vector<double> percents;
    std::istringstream words(textPercents_->text().toStdString());
    std::string word;
    while (words >> word) {
        const auto value = ParseNumber(word);
        if (!value || !(*value > 0 && *value < 100)) {
            refusal = "A percent must lie above 0 and below 100: " + word;
            return {};
        }
        percents.push_back(*value);
    }
    if (percents.empty())
        refusal = "Type the percents of the doses to estimate, such as 50 90.";
    return percents;
}

void LikelihoodTab::fit() {
    std::string refusal;
    const LikelihoodOptions options = choices_.options(refusal);
    const std::vector<double> percents = chosenPercents(refusal);
    LineGroups groups = DoseGroupsOf(grid1_, type_);
    if (refusal.empty() && !groups.message.empty())
        refusal = groups.message;
    report_.estimates.clear();
    report_.fit = LikelihoodFit();
    if (refusal.empty()) {
        report_.fit = FitLikelihoodLine(groups.groups, options);
        if (!report_.fit.converged)
            refusal = report_.fit.message;
    }
    if (!refusal.empty()) {
        for (TextTable* table : {&parameters_, &covariance_, &goodness_, &estimates_})
            *table = TextTable();
        labelMessage_->setStyleSheet("color: rgb(170,0,0);");
        labelMessage_->setText(QString::fromStdString(refusal));
    } else {
        for (const double percent : percents)
            report_.estimates.push_back(LikelihoodDoseAt(report_.fit, percent));
        parameters_ = ParameterTable(report_);
        covariance_ = CovarianceTable(report_);
        goodness_ = GoodnessTable(report_);
        // How the limits were taken is the sentence above the tables here.
        for (int row = goodness_.rows() - 1; row >= 0; --row) {
            if (goodness_.text(row, 0) == "Limits")
                goodness_.removeRow(row);
        }
        estimates_ = EstimateTable(report_);
        labelMessage_->setStyleSheet(QString());
        labelMessage_->setText(QString::fromStdString(
            std::string(report_.fit.heterogeneous
                            ? "The data scatter more than chance allows (chi-square significant): "
                              "the limits are widened by h and t with the degrees of freedom of "
                              "chi-square."
                            : "The data agree with the line (chi-square not significant): the "
                              "limits use the normal deviate, without h.") +
            (report_.fit.naturalAtZero()
                 ? " The natural response, estimated below 0, is taken as 0."
                 : "")));
    }
    for (TextTableView* view : {gridParameters_, gridCovariance_, gridGoodness_, gridEstimates_})
        Fit(view);
    emit lineChanged();
}

std::string LikelihoodTab::tablesText() const {
    if (!report_.fit.converged)
        return labelMessage_->text().toStdString();
    LikelihoodOptions options;
    std::string refusal;
    options = choices_.options(refusal);
    return LikelihoodText({report_}, {}, options);
}

}  // namespace morvane
