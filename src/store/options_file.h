#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace orvex {

class Storage;

/// The first line of the options file, as it is written there after a byte order mark; nothing when
/// there is no such file, it cannot be read, or the line is too long to be a path.
std::optional<std::string> ReadOptionsFile(const std::filesystem::path& programFolder);

/// Replaces the options file by one line. Throws FileError.
void WriteOptionsFile(Storage& storage, const std::filesystem::path& programFolder,
                      const std::string& dataPath);

}  // namespace orvex
