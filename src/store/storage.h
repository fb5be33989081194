#pragma once

#include <sys/types.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

namespace orvex {

/// The system calls that change the disk. Each returns what the call returns, with `errno` set.
/// Everything that writes goes through them, so that a test can make each of them fail.
class Storage {
 public:
  virtual ~Storage() = default;
  virtual int Open(const char* path, int flags, mode_t mode);
  virtual ssize_t Write(int descriptor, const void* bytes, std::size_t count);
  virtual int Sync(int descriptor);      ///< fsync
  virtual int SyncData(int descriptor);  ///< fdatasync
  virtual int Close(int descriptor);
  virtual int Rename(const char* from, const char* to);
  virtual int Unlink(const char* path);
  virtual int MakeFolder(const char* path, mode_t mode);
  virtual int SetOwner(int descriptor, uid_t owner, gid_t group);
  virtual int SetMode(int descriptor, mode_t mode);
  virtual int Truncate(int descriptor, off_t size);
};

/// The result of a system call, which is repeated for as long as a signal interrupts it. Put this
/// around every open and every call on a descriptor except a close: that must not be repeated, as
/// the descriptor is gone. Calls on names are never interrupted.
template <typename Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

/// Writes `bytes`, continuing after short writes. Returns how many were written; when not all were,
/// `errno` says why.
std::size_t WriteAll(Storage& storage, int descriptor, std::string_view bytes);

/// True for an `errno` that deleting other files can cure. The file that was being written can
/// still be relied on.
bool IsFullDisk(int error);

/// Brings the names in `folder` to the disk. Returns 0, or -1 with `errno` set. A folder that
/// cannot be synced at all (the file system does not support it, or the user may not read the
/// folder) counts as synced.
int SyncFolder(Storage& storage, const std::filesystem::path& folder);

/// Creates what is missing of a class's folder and of the two folders above it, the school's and
/// the kind's. The data folder above those is never created: where it has gone, so has its disk.
/// Does not wait for the disk (see SyncClassFolders). Returns 0, or -1 with `errno` set.
int MakeClassFolders(Storage& storage, const std::filesystem::path& folder);

/// The folder of a class and the three folders above it, up to the data folder, innermost first.
std::vector<std::filesystem::path> ClassFolders(const std::filesystem::path& folder);

/// Calls SyncFolder for all ClassFolders, so that a class's files can be found after a power cut.
/// Returns 0, or -1 with `errno` set.
int SyncClassFolders(Storage& storage, const std::filesystem::path& folder);

}  // namespace orvex
