#pragma once
// What the line's "Maximum likelihood" tab and the comparison's likelihood panel
// share: the choice of the model ("ComboModel"), of the natural response
// ("ComboNatural") and of its fixed value ("TextNatural"), read into the fit's
// options; and the read-only tables in which both show their results.

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QWidget>
#include <string>

#include "core/LikelihoodFit.h"
#include "core/TextTable.h"
#include "shell/TextTableView.h"

namespace morvane {

struct LikelihoodChoices {
    // Makes the three widgets as children of parent; the value box is open only
    // while the natural response is "fixed at".
    explicit LikelihoodChoices(QWidget* parent);

    // Adds the widgets with their captions to a row, spacing after the model.
    void addTo(QHBoxLayout* row, int spacing) const;

    // The options chosen; refusal is set when the typed natural response is not a
    // proportion from 0 up to, not including, 1.
    LikelihoodOptions options(std::string& refusal) const;

    QComboBox* model;
    QComboBox* natural;
    QLineEdit* naturalValue;
};

// A table of results that cannot be edited and has no row numbers.
TextTableView* MakeResultView(QWidget* parent, const TextTable* table, const char* name);

}  // namespace morvane
