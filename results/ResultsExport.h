#pragma once
// The results leaving the program through files: "Save results into files" writes
// the tables as tab-separated text under the extension .xls, then the chart as a
// picture file. Each file is asked for with a save dialog; a name that is taken in
// the chosen folder asks before it is replaced, and No opens the dialog again. A
// cancelled dialog is silent and writes nothing. A file is written carefully
// (document/FileBytes.h): a failure tells the user and leaves an old file as it was.
//
// The picture's bytes come from an encoder of the caller's (the shell paints the
// drawing with the toolkit), so this logic never needs a window.

#include <functional>
#include <optional>
#include <string>

#include "core/Drawing.h"
#include "core/UserPort.h"

namespace morvane {

inline constexpr const char* kSaveFailed = "An error occurred while saving this file.";

// The picture formats of the chart file. Bmp is the classic one; the others are
// offered beside it in the same dialog.
enum class PictureFormat { Bmp, Png, Svg, Pdf };

// The format that a file name's extension asks for, case ignored; none for another.
std::optional<PictureFormat> PictureFormatOf(const std::string& path);

// Turns a drawing into the bytes of a picture file; throws Fault when it cannot.
using PictureEncoder = std::function<std::string(const Drawing&, PictureFormat)>;

// A save dialog with the replace question: the chosen path, or none when cancelled.
// pattern is the extension that the folder's list shows (".xls"); a file of exactly
// the chosen name, case included, whose name ends in it is taken.
std::optional<std::string> AskExportFile(UserPort& port, const FileDialog& dialog,
                                         const std::string& pattern);
// The same with a pattern that follows the chosen name.
std::optional<std::string> AskExportFile(
    UserPort& port, const FileDialog& dialog,
    const std::function<std::string(const std::string&)>& patternOf);

// Writes the bytes to the file, carefully; a failure is told with its own text.
// Returns whether the file was written.
bool WriteExportFile(UserPort& port, const std::string& path, const std::string& bytes);

// "Save results as spreadsheet": the dialog, then the text that compose builds; a
// name ending in .xlsx gets the workbook that composeWorkbook builds instead.
// Returns whether a file was written.
bool SaveSpreadsheet(UserPort& port, const std::function<std::string()>& compose,
                     const std::function<std::string()>& composeWorkbook);

// "Save chart as bmp file": compose runs first of all, then the dialog; the file's
// extension picks the format among those offered.
bool SaveChartBitmap(UserPort& port, const std::function<Drawing()>& compose,
                     const PictureEncoder& encode);

}  // namespace morvane
