#pragma once
// Where the defaults file ldDef is kept: the program's folder, or, where that folder
// cannot be written (an installed program), the user's configuration folder
// ($XDG_CONFIG_HOME/morvane, else ~/.config/morvane). The one place is used for
// reading and writing alike, so that what is saved is what is loaded.

#include <string>

namespace morvane {

inline constexpr const char* kDefaultsFileName = "ldDef";

// The full name of ldDef for a program in programFolder.
std::string DefaultsFilePath(const std::string& programFolder);

// The user's configuration folder of Morvane.
std::string UserConfigFolder();

}  // namespace morvane
