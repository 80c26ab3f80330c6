#pragma once
// The table text of a comparison: what "Copy tables" puts on the clipboard and what
// the results file (.xls, plain text with tabs whatever its extension) holds.

#include <iosfwd>
#include <string>

#include "relative/Rtvout.h"

namespace morvane {

// Every row of the results table, header included, its cells joined by tabs and the
// row ended by a line feed; the hidden sort key column is left out. Then a line feed
// and the caption that names the references, a line feed and the user's note.
std::string RelativeTableText(const Rtvout& rtvout);
// The same text written to a stream as it is made, a row at a time.
void WriteRelativeTable(const Rtvout& rtvout, std::ostream& out);

}  // namespace morvane
