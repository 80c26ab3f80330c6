#pragma once
// How the lines of a comparison are set side by side: the layout of the results
// table, the order of the lines by potency, the resistance ratio, the toxicity index
// and the test of differences by overlap of the fiducial limits.
//
// All of it works on the numbers as they stand in the cells of the results table,
// that is after the rounding of the comparison's number format: ratios and
// comparisons use the displayed precision, not the full doubles. Ratios and indexes
// go through WorkValue and the number format into WorkText, and from there into the
// cell, so a value of 0 repeats the text before it.

#include "core/SharedRegisters.h"
#include "relative/Rtvin.h"
#include "relative/Rtvout.h"

namespace morvane {

// Lays out the columns of rtvout.Grid1 from the options of the table of lines:
// "No", "Line name", the estimate (headed by the abbreviation and the percentage),
// then as the options hold: the two limits, one column per line for the test of
// differences (300 twips), "Index", "RR", "Slope", "Slope +/-", one column per
// further percentage, and the hidden sort key (width 0). Added columns are centred.
void SetUpResultColumns(const Rtvin& rtvin, Rtvout& rtvout);

// Orders the lines by their estimate (resultcol::Estimate): the key is the estimate to the power
// 0.01 written with twelve decimals, so that a comparison of texts orders the doses.
// Grid1 and Grid2 are sorted on the same key text, which keeps their rows paired;
// ties keep their order. A dose of 10 to the power 100 or more sorts wrongly: that
// limit belongs to the key.
void SortLines(Rtvout& rtvout);

// The test of differences: "*" where the fiducial limits of two lines overlap, in the
// column of the one line and the row of the other. A line without limits gets no
// marks. A lower limit of 0 stands as an empty cell and counts as none; an upper
// limit of "0" counts as a value.
void MarkOverlaps(Rtvout& rtvout);

// The index (reference estimate over each estimate, times 100) and the resistance
// ratio (each estimate over the reference), with the reference chosen in Combo3 and
// Combo4: "1st one" and "Last one" are the first and last line after sorting, a name
// the last line of that name in sorted order. Each appends its words to Label1.
// Throw Fault when a ratio divides by zero.
void FillToxicityIndex(const Rtvin& rtvin, Rtvout& rtvout, SharedRegisters& shared);
void FillResistanceRatio(const Rtvin& rtvin, Rtvout& rtvout, SharedRegisters& shared);

}  // namespace morvane
