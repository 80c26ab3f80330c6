#pragma once
// What keeps a line file faithful: the limits that the reader of the line file sets,
// checked before a save writes anything, and the whole reading of a file done on
// scratch copies before the document is touched.
//
// The reader takes the table's row and column counts as 16-bit numbers, and a string
// field ends at the first double quote, since the layout has no escape for it. A line
// whose file could not be read back as it is is refused at saving, with a message that
// says which limit it passes and what the user can do; the file on the disk stays as
// it was. No file larger than kMaxLineFileBytes is written or read: the largest table
// the counts allow is far smaller, so only very long notes could come near it.

#include <cstddef>
#include <string>
#include <string_view>

#include "core/Fault.h"
#include "core/SharedRegisters.h"
#include "core/TextTable.h"
#include "document/FileOptions.h"
#include "document/NotesSheet.h"

namespace morvane {

inline constexpr std::size_t kMaxLineFileBytes = 16u * 1024u * 1024u;
// Grid1's rows as the size record counts them: the heading, the data rows and the
// empty last row, read back into a 16-bit number.
inline constexpr int kMaxLineFileRows = 32767;

// A line that the line file cannot hold as it is. The text says why and what to do.
class LineFileLimitError : public Fault {
  public:
    using Fault::Fault;
};

// The text of the current-layout file of the line (WriteLineFile), once every limit is
// checked. Throws LineFileLimitError.
std::string WriteCheckedLineFile(const LineOptions& options, const TextTable& grid1,
                                 const NotesSheet& notes);

// The bytes of a line file to open: a plain file of at most kMaxLineFileBytes bytes.
// Throws FileError.
std::string ReadLineFileBytes(const std::string& path);

// Reads a whole file of the current layout as the document would, but into copies of
// the options and the words, so that a file that fails leaves nothing behind. The
// error names the line and field where the reading stopped. A file of the older
// layout (mark 1) is left to its own reader. Throws FileFormatError.
void CheckCurrentLayout(std::string_view bytes, FileOptions options, SharedRegisters shared);

// An error's text made fit for the opening message: every quoted part cut to its
// first 60 characters with "..." behind, and every byte that is no printable ASCII
// character (line feeds aside) shown as "?", so that a bad file's raw bytes never
// reach the user.
std::string ShortErrorText(std::string_view what);

}  // namespace morvane
