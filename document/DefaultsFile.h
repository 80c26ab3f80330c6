#pragma once
// Where the defaults file ldDef is kept: the program's folder, or, where that folder
// cannot be written (an installed program), the user's configuration folder
// ($XDG_CONFIG_HOME/morvane, else ~/.config/morvane). The one place is used for
// reading and writing alike, so that what is saved is what is loaded.

#include <string>

#include "core/SharedRegisters.h"
#include "document/FileOptions.h"

namespace morvane {

inline constexpr const char* kDefaultsFileName = "ldDef";

// The full name of ldDef for a program in programFolder.
std::string DefaultsFilePath(const std::string& programFolder);

// The user's configuration folder of Morvane.
std::string UserConfigFolder();

// Writes the options record to ldDef, making its folder where needed. Throws
// FileError with the file as it was.
void WriteOptionDefaults(const std::string& programFolder, const LineOptions& options);

// Reads ldDef into the dialog's controls, with the dialog's rules. A damaged file
// leaves the controls with what was read before the fault.
enum class DefaultsReading {
    Loaded,
    Missing,     // there is no ldDef
    Unreadable,  // ldDef could not be read; the controls are as they were
    Damaged,     // the record ended in a fault
};
DefaultsReading ReadOptionDefaults(const std::string& programFolder, FileOptions& options,
                                   SharedRegisters& shared);

}  // namespace morvane
