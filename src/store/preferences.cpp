#include "store/preferences.h"

#include <array>
#include <cstddef>
#include <utility>

#include "store/durable_file.h"
#include "store/file_error.h"

namespace orvex {
namespace {

constexpr std::size_t kMostBytes = std::size_t{64} * 1024;

constexpr auto kFields = std::to_array<std::pair<std::string_view, bool Preferences::*>>(
    {{"meanings", &Preferences::meanings}, {"offtask sound", &Preferences::offtaskSound}});

}  // namespace

std::filesystem::path PreferencesPath(const std::filesystem::path& programFolder) {
  return programFolder / "preferences";
}

Preferences ParsePreferences(std::string_view bytes) {
  Preferences preferences;
  while (!bytes.empty()) {
    const std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
    bytes.remove_prefix(line.size() == bytes.size() ? line.size() : line.size() + 1);
    for (const auto& [name, field] : kFields) {
      if (line == std::string(name) + " = on") preferences.*field = true;
      if (line == std::string(name) + " = off") preferences.*field = false;
    }
  }
  return preferences;
}

std::string FormatPreferences(const Preferences& preferences) {
  std::string bytes;
  for (const auto& [name, field] : kFields) {
    bytes += std::string(name) + (preferences.*field ? " = on\r\n" : " = off\r\n");
  }
  return bytes;
}

Preferences ReadPreferences(const std::filesystem::path& programFolder) try {
  return ParsePreferences(ReadFileStart(PreferencesPath(programFolder), kMostBytes));
} catch (const FileError&) {
  return {};
}

void RememberPreferences(Storage& storage, const std::filesystem::path& programFolder,
                         const Preferences& preferences) try {
  ReplaceFile(storage, PreferencesPath(programFolder), FormatPreferences(preferences));
} catch (const FileError&) {
  // The next choice is written again.
}

}  // namespace orvex
