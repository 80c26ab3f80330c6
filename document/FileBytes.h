#pragma once
// Whole files in and out, for the line file and the defaults file. Files are read at
// once into memory and written whole.
//
// Reading opens plain files only: a folder, a device, a pipe or a socket is refused at
// once (opening never waits on a pipe), and so is a file larger than the caller allows.
//
// Writing is the careful editor's save. The bytes go to a temporary file with a short
// name in the folder of the real target (a symbolic link is followed to the file it
// names, so the link stays a link); the temporary file gets the target's mode, and its
// owner and group where the process may set them, and is flushed to the disk; only
// then is it renamed over the target, and the folder is flushed so that the new name
// survives a power cut. Any failure removes the temporary file and leaves the old file
// as it was. A target without any write permission is refused, and so is a file with
// several hard links: renaming would part it from its other names, and writing it in
// place could not promise that a failure leaves the old content. The process-wide
// umask is never changed.

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "core/Fault.h"

namespace morvane {

// A file that could not be opened, read or written. The text is the operating
// system's own ("No such file or directory") or says what was refused and why;
// notFound tells the missing file apart.
class FileError : public Fault {
  public:
    FileError(const std::string& text, bool notFound) : Fault(text), notFound_(notFound) {}
    bool notFound() const { return notFound_; }

  private:
    bool notFound_;
};

// The bytes of the file, which must be a plain file of at most maxBytes bytes.
// Throws FileError.
std::string ReadFileBytes(const std::string& path,
                          std::size_t maxBytes = std::numeric_limits<std::size_t>::max());

// Replaces the file's content with the bytes, as told above. Throws FileError.
void ReplaceFileContents(const std::string& path, std::string_view bytes);

// The last part of a path: the file's name without its folder.
std::string ShortFileName(const std::string& path);

}  // namespace morvane
