#pragma once
// Files for the tests: a temporary folder of the test's own, and whole files written
// and read as bytes.

#include <string>

namespace morvane::testing {

// A folder of its own under the system's temporary folder, removed with its files
// (read-only ones included) when the object goes.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& path() const { return path_; }
    // The path of the file `name` in the folder.
    std::string file(const std::string& name) const { return path_ + "/" + name; }
    // Writes the text as the file `name` in the folder and returns its path.
    std::string write(const std::string& name, const std::string& text) const;

  private:
    std::string path_;
};

// Writes the file anew. It is removed first: rewriting a file in place makes some file
// systems flush it to the disk on closing, which thousands of writes can't afford.
void WriteBytes(const std::string& path, const std::string& bytes);

// The whole file, or nothing when it can't be read.
std::string ReadBytes(const std::string& path);

}  // namespace morvane::testing
