#pragma once
// A row of the results data table as the chart reads it: the dose (also as the
// scaled dose), its log, 20 treated, the observed percent and the line's probit.

#include <string>

#include "core/ResultsTables.h"
#include "core/SharedRegisters.h"
#include "core/TextTable.h"
#include "results/Chart.h"
#include "results/ChartLayout.h"

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

// The known line of the chart tests: slope 2, mean log dose 1, mean probit 5, dose
// scale 1, so probit 5 falls at dose 10, probit 3 at dose 1 and probit 7 at dose 100.
// The table holds the three doses with the line's probits; the plot is 6000 by 3000
// twips.
struct KnownChartLine {
    KnownChartLine() : grid1(4, datacol::Count), chart(grid1, shared) {
        shared.fit.Slope = 2;
        shared.fit.MeanLogDose = 1;
        shared.fit.MeanProbit = 5;
        shared.fit.DoseScale = 1;
        SetChartRow(grid1, 1, "1", "0.0000", "10.000", "3.0000");
        SetChartRow(grid1, 2, "10", "1.0000", "50.000", "5.0000");
        SetChartRow(grid1, 3, "100", "2.0000", "90.000", "7.0000");
        chart.setPlotSize(6000, 3000);
        chart.setPercentStripHeight(3110);
    }

    TextTable grid1;
    SharedRegisters shared;
    LogProbitChart chart;
};

// The places on the screen of the known line's chart frame, plot and axis titles.
inline ChartLayout KnownChartLayout() {
    ChartLayout layout;
    layout.PictureFig = {0, 0, 7500, 3800};
    layout.Picture1 = {700, 100, 6000, 3000};
    layout.Pictprcent = {0, 500, 300, 2000};
    layout.Pictprob = {7000, 1100, 300, 800};
    return layout;
}

}  // namespace morvane::testing
