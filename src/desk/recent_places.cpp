#include "desk/recent_places.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "store/durable_file.h"
#include "store/file_error.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMost = 9;  // of files, and of folders
constexpr std::size_t kMostBytes = std::size_t{256} * 1024;
constexpr std::string_view kKinds = "esnd";  ///< the letter of each kind
constexpr std::string_view kLineEnd = "\r\n";

bool IsThere(const RecentPlace& place) {
  std::error_code unreadable;
  return place.kind == RecentKind::folder ? fs::is_directory(place.path, unreadable)
                                          : fs::is_regular_file(place.path, unreadable);
}

/// All that are remembered, there or not.
std::vector<RecentPlace> ReadPlaces(const fs::path& programFolder) try {
  const std::string bytes = ReadFileStart(RecentPlacesPath(programFolder), kMostBytes);
  std::vector<RecentPlace> places;
  std::string_view rest = bytes;
  for (auto end = rest.find(kLineEnd); end != std::string_view::npos; end = rest.find(kLineEnd)) {
    const std::string_view line = rest.substr(0, end);
    const auto kind = line.empty() ? std::string_view::npos : kKinds.find(line.front());
    const bool isPath =
        line.size() > 2 && line.substr(1, 2) == " /" && line.find('\0') == std::string_view::npos;
    if (kind != std::string_view::npos && isPath)
      places.push_back({static_cast<RecentKind>(kind), line.substr(2)});
    rest.remove_prefix(end + kLineEnd.size());
  }
  return places;
} catch (const FileError&) {
  return {};
}

void ForgetTheOldest(std::vector<RecentPlace>& places) {
  std::size_t files = 0;
  std::size_t folders = 0;
  std::erase_if(places, [&](const RecentPlace& place) {
    return ++(place.kind == RecentKind::folder ? folders : files) > kMost;
  });
}

}  // namespace

fs::path RecentPlacesPath(const fs::path& programFolder) {
  return programFolder / "recent";
}

std::vector<RecentPlace> RecentPlaces(const fs::path& programFolder) {
  std::vector<RecentPlace> places = ReadPlaces(programFolder);
  std::erase_if(places, [](const RecentPlace& place) { return !IsThere(place); });
  return places;
}

void RememberRecent(const Services& services, const RecentPlace& place) {
  std::error_code unknown;
  RecentPlace first = {place.kind, fs::absolute(place.path, unknown).lexically_normal()};
  if (unknown || first.path.native().find_first_of("\r\n") != std::string::npos) return;
  std::vector<RecentPlace> places = ReadPlaces(services.programFolder);
  if (!places.empty() && places.front() == first) return;
  std::erase(places, first);
  places.push_back(std::move(first));
  std::rotate(places.begin(), std::prev(places.end()), places.end());
  ForgetTheOldest(places);
  std::string bytes;
  for (const RecentPlace& remembered : places) {
    bytes += kKinds[static_cast<std::size_t>(remembered.kind)];
    bytes += ' ';
    bytes += remembered.path.native();
    bytes += kLineEnd;
  }
  try {
    ReplaceFile(services.storage, RecentPlacesPath(services.programFolder), bytes);
  } catch (const FileError&) {
    // It is remembered the next time.
  }
}

}  // namespace orvex
