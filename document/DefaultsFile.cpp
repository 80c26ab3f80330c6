#include "document/DefaultsFile.h"

#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <filesystem>

#include "document/FileBytes.h"
#include "document/LineFileFormat.h"

namespace morvane {
namespace {

std::string Join(const std::string& folder, const std::string& name) {
    if (folder.empty())
        return name;
    if (folder.back() == '/')
        return folder + name;
    return folder + "/" + name;
}

}  // namespace

std::string UserConfigFolder() {
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    if (xdg != nullptr && xdg[0] == '/')
        return Join(xdg, "morvane");
    const char* home = std::getenv("HOME");
    if (home != nullptr && home[0] != '\0')
        return Join(Join(home, ".config"), "morvane");
    return "morvane";
}

std::string DefaultsFilePath(const std::string& programFolder) {
    if (!programFolder.empty() && ::access(programFolder.c_str(), W_OK) == 0)
        return Join(programFolder, kDefaultsFileName);
    return Join(UserConfigFolder(), kDefaultsFileName);
}

void WriteOptionDefaults(const std::string& programFolder, const LineOptions& options) {
    const std::string path = DefaultsFilePath(programFolder);
    FieldWriter out;
    WriteOptionsRecord(out, options);
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
    ReplaceFileContents(path, out.bytes());
}

DefaultsReading ReadOptionDefaults(const std::string& programFolder, FileOptions& options,
                                   SharedRegisters& shared) {
    std::string bytes;
    try {
        bytes = ReadFileBytes(DefaultsFilePath(programFolder));
    } catch (const FileError& e) {
        return e.notFound() ? DefaultsReading::Missing : DefaultsReading::Unreadable;
    }
    FieldReader in(bytes);
    try {
        ReadOptionsRecord(in, options, shared);
    } catch (const std::exception&) {
        return DefaultsReading::Damaged;
    }
    return DefaultsReading::Loaded;
}

}  // namespace morvane
