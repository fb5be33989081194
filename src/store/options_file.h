#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace orvex {

class Storage;

/// The first line of the options file, as it is written there; nothing when there is no such file
/// or it cannot be read.
std::optional<std::string> ReadOptionsFile(const std::filesystem::path& programFolder);

/// Replaces the options file by one line. Throws FileError.
void WriteOptionsFile(Storage& storage, const std::filesystem::path& programFolder,
                      const std::string& dataPath);

}  // namespace orvex
