#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "desk/services.h"

namespace orvex {

/// The folder that the options file names, as it is written there; nothing when there is no such
/// folder.
std::optional<std::string> StoredDataPath(const std::filesystem::path& programFolder);

/// The folder in which the next class goes, and a word about it when it is not the one of the
/// options file.
std::string DataFolderText(const Services& services);

/// The folder that is wanted and not there: the data folder itself or, at start-up, the one of the
/// options file, for which the program folder stands in. Nothing while all is well.
std::optional<std::filesystem::path> MissingDataFolder(const Services& services, bool atStartUp);

/// A class is to be started: has the user settle where, as long as the folder that is wanted is
/// missing. False, when the class is not to be started.
bool SettleDataFolder(const Services& services, bool atStartUp);

/// Makes `folder` and those above it that are not there. Throws FileError.
void EnsureFolders(Storage& storage, const std::filesystem::path& folder);

}  // namespace orvex
