#pragma once
// The records of the line file (.mrv) and of the defaults file.
//
// A current file (format mark 2) is: the version record (the mark and five reserved
// strings); the options record (twelve fields: the state of the options dialog, the
// very record the defaults file holds); the size record (Grid1's row count, counting
// the heading and the empty last row, and its column count); the table section (the
// cell texts of the data rows, row by row, each with a comma behind it and no line
// end); and the notes record (four strings) on the same physical line as the cells.
// Files of the older layout (mark 1) are only read.
//
// Numbers in the records are 16-bit on reading: a table of more than 32767 rows
// cannot be read back.

#include <cstdint>
#include <string>

#include "core/SharedRegisters.h"
#include "core/TextTable.h"
#include "document/FileOptions.h"
#include "document/NotesSheet.h"
#include "document/SequentialFields.h"

namespace morvane {

inline constexpr const char* kLineFileFilter = "Morvane files (*.mrv)|*.mrv";

// The whole text of a current-layout file: mark 2, the options, Grid1's data rows
// (the heading and the empty last row are not stored) and the notes.
std::string WriteLineFile(const LineOptions& options, const TextTable& grid1,
                          const NotesSheet& notes);

// The options record as the writer and the defaults file write it, ended by the
// record end.
void WriteOptionsRecord(FieldWriter& out, const LineOptions& options);

// The version record: the format mark, then five reserved strings, which are read
// and ignored.
std::int16_t ReadVersionRecord(FieldReader& in);

// Reads the options record into the dialog's controls, setting each as it is read, in
// the order ComboDataType, Tab1, ComboUnit1, ComboUnit2, the option button of the
// factor type (1, 2 or 3; another value selects none), Combo5, Combo6, Text5, Check3,
// Combo7, Check2, Check4, with the rules of the units that setting a unit runs. A
// value no control can take (a data type or tab out of its list, a check value other
// than 0, 1 or 2, an alpha not in the list) is a FileFormatError; the controls keep
// what was set before it.
void ReadOptionsRecord(FieldReader& in, FileOptions& options, SharedRegisters& shared);

// The size record: Grid1's row and column counts, read as 16-bit numbers.
struct TableSize {
    std::int16_t rows = 2;
    std::int16_t cols = 0;
};
TableSize ReadSizeRecord(FieldReader& in);

// A size record that the rest of the file can fill: at least the heading and the empty
// last row and one column, and no more cells than bytes are left, since each cell
// takes at least one. Throws FileFormatError.
void CheckTableSize(const TableSize& size, const FieldReader& in);

// The four notes.
NotesSheet ReadNotesRecord(FieldReader& in);

// What a file of the older layout holds that the reader uses. The option fields are
// those of its second record; the two old tables are sized by their highest row and
// column indices in the file.
struct OlderLineFile {
    std::int16_t dataType = 0;        // field 1: ComboDataType
    std::string unit1;                // field 2: ComboUnit1
    std::string unit2;                // field 4: ComboUnit2
    std::int16_t factorSelector = 0;  // field 5: 1-3 tab 0 and that option, 4 tab 1
    std::string customFactor;         // field 11: Combo5
    std::string customAbbreviation;   // field 12: Combo6
    std::string customUnits;          // field 13: Text5
    std::int16_t controlFlag = 0;     // field 14: Check3
    std::string alpha;                // field 15: Combo7
    std::int16_t replicatesFlag = 0;  // field 18: Check2
    TextTable GridOldV;               // the first old table: doses across the columns in pairs
    TextTable GridOldVt;              // the second: the controls of each treatment
    NotesSheet notes;
};

// Reads a whole file of the older layout from its first record on, with the values
// that no option control could take refused where they stand. Throws FileFormatError,
// naming the line and field where the reading stopped.
OlderLineFile ReadOlderLayout(FieldReader& in);

}  // namespace morvane
