#include "recovery/kept_content.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <exception>
#include <iterator>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "store/checksum.h"
#include "store/claim.h"
#include "store/durable_file.h"
#include "store/format_error.h"
#include "store/paths.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSeal = "seal=";
constexpr std::string_view kLineEnd = "\r\n";

/// The final path of a file that may still be on its way there, with a number as its extension.
fs::path PlaceOf(const fs::path& file) {
  const std::string number = file.extension().string();
  const bool onItsWay =
      number.size() > 1 && number.find_first_not_of("0123456789", 1) == std::string::npos;
  return onItsWay ? fs::path(file).replace_extension() : file;
}

/// The entries of `folder`, as far as they can be read.
std::vector<fs::path> EntriesOf(const fs::path& folder) {
  std::vector<fs::path> entries;
  std::error_code unreadable;
  for (fs::directory_iterator at(folder, unreadable), end; !unreadable && at != end;
       at.increment(unreadable)) {
    entries.push_back(at->path());
  }
  return entries;
}

}  // namespace

std::string Sealed(std::string content, std::uint64_t number) {
  content += kSeal;
  content += std::to_string(number);
  const std::uint64_t sum = Checksum(content);
  constexpr int kHexadecimal = 16;
  char digits[kHexadecimal];
  const auto end = std::to_chars(digits, digits + kHexadecimal, sum, kHexadecimal).ptr;
  content += ' ';
  content.append(digits, end);
  content += kLineEnd;
  return content;
}

KeptContent Unsealed(const std::string& bytes) {
  const std::size_t seal = bytes.rfind(kSeal);
  if (seal != std::string::npos) {
    KeptContent kept;
    const char* number = bytes.data() + seal + kSeal.size();
    std::from_chars(number, bytes.data() + bytes.size(), kept.number);
    kept.content = bytes.substr(0, seal);
    if (Sealed(kept.content, kept.number) == bytes) return kept;
  }
  const auto lines = std::count(bytes.begin(), bytes.end(), '\n');
  throw FormatError(static_cast<int>(lines) + 1, "the seal of a whole file");
}

fs::path RecoveryPath(const fs::path& dataPath, const Identity& identity) {
  return BakPath(dataPath, identity).replace_extension(kRecoveryExtension);
}

fs::path KeptPlaceOf(const fs::path& file) {
  fs::path place = PlaceOf(file);
  return place.extension() == kRecoveryExtension ? place : fs::path();
}

std::vector<fs::path> FilesKeptAt(const fs::path& path) {
  std::vector<fs::path> files = EntriesOf(path.parent_path());
  std::erase_if(files, [&](const fs::path& file) { return PlaceOf(file) != path; });
  std::ranges::sort(files);
  return files;
}

bool IsKeptAt(const fs::path& path) {
  std::error_code unreadable;
  const fs::file_status status = fs::symlink_status(path, unreadable);
  if (fs::exists(status) && !fs::is_symlink(status)) return true;
  try {
    ReadKept(path);
    return true;
  } catch (const std::runtime_error&) {
    return false;
  }
}

bool IsUnfinishedAt(const fs::path& path) {
  return IsKeptAt(path) && !IsClaimed(path);
}

bool IsAnythingKeptIn(const fs::path& folder) {
  return std::ranges::any_of(EntriesOf(folder),
                             [](const fs::path& file) { return !KeptPlaceOf(file).empty(); });
}

std::vector<fs::path> KeptPathsIn(const fs::path& folder) {
  std::vector<fs::path> paths;
  for (const fs::path& file : EntriesOf(folder)) {
    fs::path path = KeptPlaceOf(file);
    if (!path.empty()) paths.push_back(std::move(path));
  }
  std::ranges::sort(paths);
  paths.erase(std::unique(paths.begin(), paths.end()), paths.end());
  std::erase_if(paths, [](const fs::path& path) { return !IsKeptAt(path); });
  return paths;
}

std::vector<fs::path> KeptPaths(const fs::path& folder) {
  std::vector<fs::path> paths;
  for (const fs::path& school : EntriesOf(folder)) {
    for (const fs::path& classFolder : EntriesOf(school)) {
      std::ranges::move(KeptPathsIn(classFolder), std::back_inserter(paths));
    }
  }
  std::ranges::sort(paths);
  return paths;
}

KeptContent ReadKept(const fs::path& path) {
  std::optional<KeptContent> newest;
  std::exception_ptr cause;
  for (const fs::path& file : FilesKeptAt(path)) {
    try {
      KeptContent kept = Unsealed(ReadFile(file, Links::areRefused));
      if (!newest || newest->number < kept.number) newest = std::move(kept);
    } catch (const std::runtime_error&) {
      if (!cause) cause = std::current_exception();
    }
  }
  if (newest) return *std::move(newest);
  if (cause) std::rethrow_exception(cause);
  throw FormatError(1, "a kept class");
}

}  // namespace orvex
