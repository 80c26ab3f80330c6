#include "document/LineFileChecks.h"

#include "core/NumberText.h"
#include "document/FileBytes.h"
#include "document/LineFileFormat.h"
#include "document/SequentialFields.h"

namespace morvane {
namespace {

std::string Number(double value) {
    return PlainText(value);
}

// A string field is read back up to its first double quote.
void CheckString(const std::string& text, const std::string& what) {
    if (text.find('"') != std::string::npos)
        throw LineFileLimitError(
            "The " + what +
            " holds a double quote (\"), which a line file cannot hold. Take it out and save "
            "again.");
}

void CheckOptions(const LineOptions& options) {
    CheckString(options.ComboUnit1, "first unit");
    CheckString(options.ComboUnit2, "second unit");
    CheckString(options.Combo5, "custom factor name");
    CheckString(options.Combo6, "custom abbreviation");
    CheckString(options.Text5, "custom units");
    CheckString(options.Combo7, "probability of T");
}

void CheckNotes(const NotesSheet& notes) {
    CheckString(notes.TreatmentName, "treatment name");
    CheckString(notes.TreatedTarget, "treated target");
    CheckString(notes.ExperimentDate, "experiment date");
    CheckString(notes.MoreInformation, "\"More information\" note");
}

void CheckTable(const TextTable& grid1) {
    if (grid1.rows() > kMaxLineFileRows)
        throw LineFileLimitError(
            "The table has " + Number(grid1.rows() - 2) + " rows, and a line file holds at most " +
            Number(kMaxLineFileRows - 2) +
            ". Split the rows into two lines, and save each in a file of its own.");
    if (grid1.cols() > kMaxLineFileRows)
        throw LineFileLimitError("The table has " + Number(grid1.cols()) +
                                 " columns, and a line file holds at most " +
                                 Number(kMaxLineFileRows) + ".");
    for (int r = 1; r <= grid1.rows() - 2; ++r)
        for (int c = 0; c < grid1.cols(); ++c)
            CheckString(grid1.text(r, c),
                        "cell in row " + Number(r) + ", column " + Number(c + 1) + " of the table");
}

}  // namespace

std::string WriteCheckedLineFile(const LineOptions& options, const TextTable& grid1,
                                 const NotesSheet& notes) {
    CheckOptions(options);
    CheckTable(grid1);
    CheckNotes(notes);
    std::string bytes = WriteLineFile(options, grid1, notes);
    if (bytes.size() > kMaxLineFileBytes)
        throw LineFileLimitError("The line would take " +
                                 Number(static_cast<double>(bytes.size())) +
                                 " bytes, and a line file holds at most " +
                                 Number(static_cast<double>(kMaxLineFileBytes)) +
                                 ". Shorten the notes, or split the rows into two lines.");
    return bytes;
}

std::string ShortErrorText(std::string_view what) {
    constexpr std::size_t kMost = 60;
    std::string out;
    bool quoted = false;
    std::size_t inQuote = 0;
    for (const char ch : what) {
        const unsigned char c = static_cast<unsigned char>(ch);
        if (c == '"') {
            if (quoted && inQuote > kMost)
                out += "...";
            quoted = !quoted;
            inQuote = 0;
            out += '"';
            continue;
        }
        if (quoted && ++inQuote > kMost)
            continue;
        out += (c >= 0x20 && c < 0x7F) || c == '\n' ? static_cast<char>(c) : '?';
    }
    return out;
}

std::string ReadLineFileBytes(const std::string& path) {
    return ReadFileBytes(path, kMaxLineFileBytes);
}

void CheckCurrentLayout(std::string_view bytes, FileOptions options, SharedRegisters shared) {
    FieldReader in(bytes);
    try {
        if (ReadVersionRecord(in) == 1)
            return;
        ReadOptionsRecord(in, options, shared);
        const TableSize size = ReadSizeRecord(in);
        CheckTableSize(size, in);
        for (long long cell = 0, cells = static_cast<long long>(size.rows - 2) * size.cols;
             cell < cells; ++cell)
            in.readString();
        ReadNotesRecord(in);
    } catch (const FileFormatError& e) {
        throw FileFormatError(std::string(e.what()) + " (" + in.lastFieldPosition() + ")");
    }
}

}  // namespace morvane
