#include "shell/LikelihoodChoices.h"

#include <QHeaderView>
#include <QLabel>

#include "core/NumberText.h"

namespace morvane {

LikelihoodChoices::LikelihoodChoices(QWidget* parent)
    : model(new QComboBox(parent)),
      natural(new QComboBox(parent)),
      naturalValue(new QLineEdit(parent)) {
    model->addItems({"probit", "logit"});
    natural->addItems({"none", "estimated", "fixed at"});
    naturalValue->setPlaceholderText("0 to below 1");
    naturalValue->setMaximumWidth(110);
    naturalValue->setEnabled(false);
    model->setObjectName("ComboModel");
    natural->setObjectName("ComboNatural");
    naturalValue->setObjectName("TextNatural");
    QLineEdit* value = naturalValue;
    QObject::connect(natural, &QComboBox::currentIndexChanged, value,
                     [value](int index) { value->setEnabled(index == 2); });
}

void LikelihoodChoices::addTo(QHBoxLayout* row, int spacing) const {
    QWidget* parent = model->parentWidget();
    row->addWidget(new QLabel("Model", parent));
    row->addWidget(model);
    row->addSpacing(spacing);
    row->addWidget(new QLabel("Natural response", parent));
    row->addWidget(natural);
    row->addWidget(naturalValue);
}

LikelihoodOptions LikelihoodChoices::options(std::string& refusal) const {
    LikelihoodOptions options;
    options.model = model->currentIndex() == 1 ? LinkModel::Logit : LinkModel::Probit;
    if (natural->currentIndex() == 1) {
        options.natural = {NaturalResponse::Kind::Estimated, 0};
    } else if (natural->currentIndex() == 2) {
        const auto value = ParseNumber(naturalValue->text().toStdString());
        if (!value || !(*value >= 0 && *value < 1))
            refusal = "The natural response must be a proportion from 0 up to, not including, 1.";
        else
            options.natural = {NaturalResponse::Kind::Fixed, *value};
    }
    return options;
}

TextTableView* MakeResultView(QWidget* parent, const TextTable* table, const char* name) {
    auto* view = new TextTableView(parent);
    view->setObjectName(name);
    view->setTable(table);
    view->verticalHeader()->hide();
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    return view;
}

}  // namespace morvane
