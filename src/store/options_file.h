#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvex {

class Storage;

/// The options file of a program folder.
std::filesystem::path OptionsPath(const std::filesystem::path& programFolder);

/// The first line of an options file, as it is written there after a byte order mark; nothing when
/// the file is empty, or the line is too long or otherwise no path.
std::optional<std::string> ParseOptions(std::string_view bytes);
/// The same from the file; nothing, too, when there is no such file or it cannot be read.
std::optional<std::string> ReadOptionsFile(const std::filesystem::path& programFolder);

/// The bytes of an options file: the path on a line.
std::string FormatOptions(const std::string& dataPath);
/// Replaces the options file. Throws FileError.
void WriteOptionsFile(Storage& storage, const std::filesystem::path& programFolder,
                      const std::string& dataPath);

}  // namespace orvex
