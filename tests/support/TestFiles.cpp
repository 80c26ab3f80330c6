#include "support/TestFiles.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace morvane::testing {

TempFolder::TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "morvane-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        ADD_FAILURE() << "no temporary folder";
    path_ = pattern;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ignored);
    std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::write(const std::string& name, const std::string& text) const {
    const std::string path = file(name);
    WriteBytes(path, text);
    return path;
}

void WriteBytes(const std::string& path, const std::string& bytes) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << bytes;
}

std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

}  // namespace morvane::testing
