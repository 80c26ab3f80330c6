#pragma once
// morvane-cli import: a new line made of a data file, as the desktop program's Import
// makes it.
//
// The new line takes the options saved in a line file (its rows and notes are not
// used; the new notes are empty), the data file is read as the window reads it (by
// its content: text or CSV records, or a sheet of an .xls, .xlsx or .ods workbook),
// and the line is saved as Save saves it. A file at the output is replaced only when
// --force is given; that is checked before the data file is read.

#include <iosfwd>
#include <string>
#include <vector>

namespace morvane::cli {

struct ImportRequest {
    std::string data;     // the file to import
    std::string options;  // the line file whose options the new line takes
    std::string out;      // the new line file
    std::string sheet;    // empty: the workbook's first sheet
    bool header = false;  // "First row contains header"
    bool force = false;   // an existing output may be replaced
};

// The lines of the usage text for this command.
inline constexpr const char* kImportUsage =
    "  import DATA --options LINE.mrv --out NEW.mrv [--sheet NAME] [--header] [--force]\n"
    "      Makes a new line of the options saved in LINE.mrv (its rows and notes are\n"
    "      not used) and the data of DATA, read as the Import button reads it: text\n"
    "      or CSV records, or a sheet of an .xls, .xlsx or .ods workbook, told by\n"
    "      the file's content; then saves the line to NEW.mrv as Save does.\n"
    "        --sheet NAME  the sheet to read (the workbook's first when not given)\n"
    "        --header      the sheet's first row contains headers\n"
    "        --force       replaces a file that exists at NEW.mrv\n"
    "      A refused or partly empty row, a file that can't be read or one with no\n"
    "      row: the message on standard error, exit status 1, NEW.mrv not written.\n";

// Runs the request: 0 when the new line was saved; 1 when the data could not be
// imported (a refused row, a partly empty row, an unreadable file, no row), the
// message on err and the output untouched; 2 when the options file can't be read or
// the output exists without --force.
int ImportLine(const ImportRequest& request, std::ostream& out, std::ostream& err);

// The command as morvane-cli runs it, from the arguments after "import".
int RunImport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace morvane::cli
