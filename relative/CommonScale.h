#pragma once
// The common dose scale of a comparison's chart. Each line was fitted on its own
// doses times its own power of ten (DoseScale); the chart draws every line on the
// scale of the largest factor, and its range of log doses runs over the drawn ends
// of all lines.

#include "core/SharedRegisters.h"
#include "relative/Rtvin.h"
#include "relative/Rtvout.h"

namespace morvane {

// Brings the log doses of Grid2 (LogFrom, LogTo and LogSorted, each on its line's own
// scale) to the scale of the largest DoseScale, into CommonFrom, CommonTo and
// CommonSorted, and writes into row 0 of those columns the probits of "From", "To"
// and the sorted percentage.
// The largest factor becomes shared.fit.DoseScale, which the chart then uses.
void BringToCommonScale(const Rtvin& rtvin, Rtvout& rtvout, SharedRegisters& shared);

// ChartLogMin and ChartLogMax: the least and greatest of CommonFrom and CommonTo of
// Grid2 (the drawn ends; CommonSorted is not looked at), the greatest raised to the
// next whole number.
void FindChartRange(Rtvout& rtvout);

}  // namespace morvane
