#include "document/DefaultsFile.h"

#include <unistd.h>

#include <cstdlib>

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

}  // namespace morvane
