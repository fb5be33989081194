#include "recovery/remembered_folders.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

#include "recovery/kept_content.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/paths.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMost = 32;
constexpr std::size_t kMostBytes = std::size_t{256} * 1024;
constexpr std::string_view kLineEnd = "\r\n";

/// The one spelling of a folder, whatever folder the program was started in.
fs::path Spelled(const fs::path& folder) {
  std::error_code unknown;
  fs::path spelled = fs::absolute(folder, unknown).lexically_normal();
  return spelled.has_filename() ? spelled : spelled.parent_path();
}

bool IsSettled(const fs::path& folder) {
  std::error_code unreadable;
  return fs::is_directory(folder, unreadable) && !IsAnythingKeptIn(folder) &&
         KeptPaths(BakFolder(folder)).empty();
}

/// Drops folders until the rest fit: first those where nothing is kept, the oldest of them first.
/// The newest always stays, as it has only just been added.
void MakeRoom(std::vector<fs::path>& folders) {
  while (folders.size() > kMost) {
    const auto settled = std::find_if(folders.rbegin(), std::prev(folders.rend()), IsSettled);
    const bool found = settled != std::prev(folders.rend());
    folders.erase(found ? std::prev(settled.base()) : std::prev(folders.end()));
  }
}

}  // namespace

fs::path RememberedFoldersPath(const fs::path& programFolder) {
  return programFolder / "folders";
}

std::vector<fs::path> RememberedFolders(const fs::path& programFolder) try {
  const std::string bytes = ReadFileStart(RememberedFoldersPath(programFolder), kMostBytes);
  std::vector<fs::path> folders;
  std::string_view rest = bytes;
  for (auto end = rest.find(kLineEnd); end != std::string_view::npos; end = rest.find(kLineEnd)) {
    const std::string_view line = rest.substr(0, end);
    if (line.starts_with('/') && line.find('\0') == std::string_view::npos)
      folders.emplace_back(line);
    rest.remove_prefix(end + kLineEnd.size());
  }
  return folders;
} catch (const FileError&) {
  return {};
}

void RememberFolder(Storage& storage, const fs::path& programFolder, const fs::path& folder) {
  const fs::path spelled = Spelled(folder);
  const std::vector<fs::path> known = RememberedFolders(programFolder);
  const bool fitsALine = spelled.native().find(kLineEnd) == std::string::npos;
  if (!fitsALine || std::ranges::find(known, spelled) != known.end()) return;
  std::vector<fs::path> folders = {spelled};
  for (const fs::path& older : known) folders.push_back(older);
  MakeRoom(folders);
  std::string bytes;
  for (const fs::path& remembered : folders) {
    bytes += remembered.native();
    bytes += kLineEnd;
  }
  try {
    ReplaceFile(storage, RememberedFoldersPath(programFolder), bytes);
  } catch (const FileError&) {
    // It will be remembered with the next work that begins there.
  }
}

}  // namespace orvex
