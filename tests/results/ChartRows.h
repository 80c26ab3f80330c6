#pragma once
// A row of the results data table as the chart reads it: the dose (also as the
// scaled dose), its log, 20 treated, the observed percent and the line's probit.

#include <string>

#include "core/ResultsTables.h"
#include "core/TextTable.h"

namespace morvane::testing {

inline void SetChartRow(TextTable& grid1, int r, const std::string& dose,
                        const std::string& logDose, const std::string& observed,
                        const std::string& probit) {
    grid1.setText(r, datacol::Dose, dose);
    grid1.setText(r, datacol::ScaledDose, dose);
    grid1.setText(r, datacol::LogDose, logDose);
    grid1.setText(r, datacol::Treated, "20");
    grid1.setText(r, datacol::Observed, observed);
    grid1.setText(r, datacol::LinearProbit, probit);
}

}  // namespace morvane::testing
