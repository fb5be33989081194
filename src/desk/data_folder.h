#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "desk/services.h"

namespace orvex {

/// The folder that the options file names, as written there. Nothing when there is no such folder.
std::optional<std::string> StoredDataPath(const std::filesystem::path& programFolder);

/// Says which folder the next class goes into and, if that is not the usual one, which one is.
std::string DataFolderText(const Services& services);

/// The folder that is wanted but missing: the data folder itself or, at start-up, the folder of the
/// options file when the program folder stands in for it. Nothing while all is well.
std::optional<std::filesystem::path> MissingDataFolder(const Services& services, bool atStartUp);

/// To be called before a class is started. If the wanted folder is missing, asks the user where the
/// class should go. False when the class should not be started.
bool SettleDataFolder(const Services& services, bool atStartUp);

/// Creates `folder` and any missing folders above it. Throws FileError.
void EnsureFolders(Storage& storage, const std::filesystem::path& folder);

}  // namespace orvex
