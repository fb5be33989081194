#include "store/storage.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace orvex {
namespace {

/// True for an error which says that a folder cannot be synced here at all, not that syncing it
/// failed.
bool CannotBeSynced(int error) {
  constexpr std::array kRefusals = {EINVAL, EACCES, EPERM, ENOSYS, ENOTSUP, EOPNOTSUPP};
  return std::ranges::find(kRefusals, error) != kRefusals.end();
}

}  // namespace

int Storage::Open(const char* path, int flags, mode_t mode) {
  return ::open(path, flags, mode);
}

ssize_t Storage::Write(int descriptor, const void* bytes, std::size_t count) {
  return ::write(descriptor, bytes, count);
}

int Storage::Sync(int descriptor) {
  return ::fsync(descriptor);
}

int Storage::SyncData(int descriptor) {
  return ::fdatasync(descriptor);
}

int Storage::Close(int descriptor) {
  return ::close(descriptor);
}

int Storage::Rename(const char* from, const char* to) {
  return ::rename(from, to);
}

int Storage::Unlink(const char* path) {
  return ::unlink(path);
}

int Storage::MakeFolder(const char* path, mode_t mode) {
  return ::mkdir(path, mode);
}

int Storage::SetOwner(int descriptor, uid_t owner, gid_t group) {
  return ::fchown(descriptor, owner, group);
}

int Storage::SetMode(int descriptor, mode_t mode) {
  return ::fchmod(descriptor, mode);
}

int Storage::Truncate(int descriptor, off_t size) {
  return ::ftruncate(descriptor, size);
}

std::size_t WriteAll(Storage& storage, int descriptor, std::string_view bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const std::string_view rest = bytes.substr(written);
    const ssize_t count =
        Uninterrupted([&] { return storage.Write(descriptor, rest.data(), rest.size()); });
    if (count == 0) errno = ENOSPC;
    if (count <= 0) break;
    written += static_cast<std::size_t>(count);
  }
  return written;
}

bool IsFullDisk(int error) {
  constexpr std::array kFull = {ENOSPC, EDQUOT, EFBIG};
  return std::ranges::find(kFull, error) != kFull.end();
}

int SyncFolder(Storage& storage, const std::filesystem::path& folder) {
  const std::filesystem::path name = folder.empty() ? "." : folder;
  const int descriptor = Uninterrupted(
      [&] { return storage.Open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0); });
  if (descriptor < 0) return CannotBeSynced(errno) ? 0 : -1;
  int result = Uninterrupted([&] { return storage.Sync(descriptor); });
  if (result != 0 && CannotBeSynced(errno)) result = 0;
  const int cause = errno;
  storage.Close(descriptor);
  errno = cause;
  return result;
}

int MakeClassFolders(Storage& storage, const std::filesystem::path& folder) {
  const std::filesystem::path school = folder.parent_path();
  for (const std::filesystem::path& each : {school.parent_path(), school, folder}) {
    if (storage.MakeFolder(each.c_str(), 0777) == 0) continue;
    const int cause = errno;
    std::error_code unknown;
    if (std::filesystem::is_directory(each, unknown)) continue;
    errno = cause;
    return -1;
  }
  return 0;
}

std::vector<std::filesystem::path> ClassFolders(const std::filesystem::path& folder) {
  constexpr std::size_t kClassSchoolKindAndData = 4;
  std::vector<std::filesystem::path> folders = {folder};
  while (folders.size() < kClassSchoolKindAndData) {
    folders.push_back(folders.back().parent_path());
  }
  return folders;
}

int SyncClassFolders(Storage& storage, const std::filesystem::path& folder) {
  for (const std::filesystem::path& each : ClassFolders(folder)) {
    if (SyncFolder(storage, each) != 0) return -1;
  }
  return 0;
}

}  // namespace orvex
