#include "store/older_file.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <ctime>
#include <system_error>

#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/storage.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// " 2026-03-02 0945", in local time; "" when the file's time cannot be read.
std::string TimeOfLastChange(const fs::path& path) {
  struct stat status = {};
  std::tm local = {};
  if (::stat(path.c_str(), &status) != 0 || !::localtime_r(&status.st_mtime, &local)) return "";
  char text[32];
  return {text, std::strftime(text, sizeof text, " %Y-%m-%d %H%M", &local)};
}

bool IsThere(const fs::path& path) {
  std::error_code unreadable;
  return fs::exists(fs::symlink_status(path, unreadable));
}

/// Renames a file and, before it, the class as observed that lies beside an edited file. Returns 0,
/// or an `errno`; both files then have the names they had before.
int Rename(Storage& storage, const fs::path& from, const fs::path& to) {
  const fs::path observed = ObservedPath(from);
  const fs::path moved = ObservedPath(to);
  const bool wasEdited = IsThere(observed);
  if (wasEdited && storage.Rename(observed.c_str(), moved.c_str()) != 0) return errno;
  if (storage.Rename(from.c_str(), to.c_str()) == 0) return 0;
  const int error = errno;
  if (wasEdited) storage.Rename(moved.c_str(), observed.c_str());
  return error;
}

}  // namespace

fs::path ObservedPath(fs::path file) {
  return file += ".observed";
}

std::string OlderName(const fs::path& path) {
  const std::string stem = path.stem().string() + TimeOfLastChange(path);
  const std::string extension = path.extension().string();
  std::string name = stem + extension;
  for (int number = 2; IsThere(path.parent_path() / name); ++number) {
    name = stem;
    name.append(" ").append(std::to_string(number)).append(extension);
  }
  return name;
}

std::string NameBeforeOlder(std::string_view stem) {
  const auto endsLike = [&](std::string_view shape) {
    if (stem.size() <= shape.size()) return false;
    return std::ranges::equal(stem.substr(stem.size() - shape.size()), shape, [](char c, char s) {
      return s == '0' ? c >= '0' && c <= '9' : c == s;
    });
  };
  constexpr std::string_view kTime = " 0000-00-00 0000";
  if (!endsLike(kTime)) {
    const std::size_t number = stem.find_last_not_of("0123456789");
    if (number == std::string_view::npos || stem[number] != ' ') return "";
    stem = stem.substr(0, number);
  }
  return endsLike(kTime) ? std::string(stem.substr(0, stem.size() - kTime.size())) : "";
}

std::string KeepOlder(Storage& storage, const fs::path& path) {
  std::error_code unreadable;
  if (!fs::is_regular_file(path, unreadable)) return "";
  std::string name = OlderName(path);
  const int error = Rename(storage, path, path.parent_path() / name);
  if (error != 0) throw FileError(path, error);
  return name;
}

std::string ReplaceOwn(Storage& storage, const fs::path& path, std::string_view bytes, bool own) {
  if (own) {
    ReplaceFile(storage, path, bytes);
    return "";
  }
  FileReplacement file(storage, path);
  file.Write(bytes);
  file.BringToDisk();
  std::string name = KeepOlder(storage, file.Target());
  try {
    // After a power cut, the new file must not be in place without the older one's new name.
    if (!name.empty() && SyncFolder(storage, file.Folder()) != 0) throw FileError(path, errno);
    file.Commit();
  } catch (const FileError&) {
    const fs::path older = file.Folder() / name;
    if (!name.empty() && !IsThere(file.Target())) Rename(storage, older, file.Target());
    throw;
  }
  return name;
}

}  // namespace orvex
