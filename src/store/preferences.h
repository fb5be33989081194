#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvex {

class Storage;

/// What the user has chosen about how the program behaves on this machine.
struct Preferences {
  bool meanings = true;       ///< the meaning of a field's letters is shown while it has the focus
  bool offtaskSound = false;  ///< a sound is made when an off-task estimate falls due

  bool operator==(const Preferences&) const = default;
};

/// The file in the program folder that holds them.
std::filesystem::path PreferencesPath(const std::filesystem::path& programFolder);

/// Reads "name = on" or "off", one a line. What is missing or unknown counts as not chosen.
Preferences ParsePreferences(std::string_view bytes);
std::string FormatPreferences(const Preferences& preferences);

/// The preferences of a program folder; the usual ones when they cannot be read.
Preferences ReadPreferences(const std::filesystem::path& programFolder);
/// Replaces the file. When it cannot be written, the choice is not remembered and nobody is told:
/// it must not hold up a class.
void RememberPreferences(Storage& storage, const std::filesystem::path& programFolder,
                         const Preferences& preferences);

}  // namespace orvex
