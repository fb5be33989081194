#pragma once

#include <filesystem>
#include <vector>

#include "desk/services.h"

namespace orvex {

/// What a recently used place is opened with.
enum class RecentKind { episodes, survey, fieldNotes, folder };

/// A file that was opened, or the folder of a study.
struct RecentPlace {
  RecentKind kind = RecentKind::episodes;
  std::filesystem::path path;

  bool operator==(const RecentPlace&) const = default;
};

/// The file in the program folder that lists them.
std::filesystem::path RecentPlacesPath(const std::filesystem::path& programFolder);

/// The places used last, newest first. Those that are not there now (a stick) are left out.
std::vector<RecentPlace> RecentPlaces(const std::filesystem::path& programFolder);

/// Puts `place` first. The oldest are forgotten. When the program folder cannot be written, nothing
/// is remembered and nobody is told: no work depends on it.
void RememberRecent(const Services& services, const RecentPlace& place);

}  // namespace orvex
