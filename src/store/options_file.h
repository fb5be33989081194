#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvex {

class Storage;

/// The path of the options file in a program folder.
std::filesystem::path OptionsPath(const std::filesystem::path& programFolder);

/// The first line of an options file, exactly as written but without a byte order mark. Nothing
/// when the file is empty, or the line is too long or otherwise not a path.
std::optional<std::string> ParseOptions(std::string_view bytes);
/// Reads the options file with ParseOptions. Nothing also when the file does not exist or cannot be
/// read.
std::optional<std::string> ReadOptionsFile(const std::filesystem::path& programFolder);

/// The bytes of an options file: one line with the path.
std::string FormatOptions(const std::string& dataPath);
/// Replaces the options file. Throws FileError.
void WriteOptionsFile(Storage& storage, const std::filesystem::path& programFolder,
                      const std::string& dataPath);

}  // namespace orvex
