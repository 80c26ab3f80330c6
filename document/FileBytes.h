#pragma once
// Whole files in and out, for the line file and the defaults file. Files are read at
// once into memory and written whole: a save writes a temporary file in the target's
// folder and then renames it over the target, so that a save that fails leaves the
// old file as it was.

#include <string>
#include <string_view>

#include "core/Fault.h"

namespace morvane {

// A file that could not be opened, read or written. The text is the operating
// system's own ("No such file or directory"); notFound tells the missing file apart.
class FileError : public Fault {
  public:
    FileError(const std::string& text, bool notFound) : Fault(text), notFound_(notFound) {}
    bool notFound() const { return notFound_; }

  private:
    bool notFound_;
};

// The bytes of the file. Throws FileError.
std::string ReadFileBytes(const std::string& path);

// Replaces the file's content with the bytes: writes them to a temporary file in the
// same folder, flushes it to the disk and renames it over the path. The file keeps
// the permissions it had. On failure the temporary file is removed, the old file is
// left untouched, and FileError is thrown.
void ReplaceFileContents(const std::string& path, std::string_view bytes);

// The last part of a path: the file's name without its folder.
std::string ShortFileName(const std::string& path);

}  // namespace morvane
