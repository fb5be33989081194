#pragma once

#include <sys/types.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

namespace orvex {

/// The system calls that change the disk, each returning what the call returns, with `errno` set.
/// Everything that writes goes through one of these, so that a test can make each of them fail.
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

/// The result of a system call, made again for as long as a signal interrupts it: to be put around
/// every call on a descriptor, and every open. A close must not be made again (the descriptor is
/// gone), and calls on names are not interrupted.
template <typename Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

/// Writes `bytes`, going on after short writes. Returns how many went out; when these are not all,
/// `errno` tells why.
std::size_t WriteAll(Storage& storage, int descriptor, std::string_view bytes);

/// True for an `errno` that deleting other files cures: what was written to stays as good as ever.
bool IsFullDisk(int error);

/// Brings the names in `folder` to the disk: 0, or -1 with `errno` set. Where a folder cannot be
/// synced at all (the file system knows no such thing, or the user may not read the folder), it
/// counts as done.
int SyncFolder(Storage& storage, const std::filesystem::path& folder);

/// Makes what is missing of the folder of a class and of the two it lies in, its school's and its
/// kind's. The data folder above them is never made: where it has gone, so has its disk. Nothing
/// waits for the disk: see SyncClassFolders. Returns 0, or -1 with `errno` set.
int MakeClassFolders(Storage& storage, const std::filesystem::path& folder);

/// The folder of a class and those whose names lead to it, the innermost first.
std::vector<std::filesystem::path> ClassFolders(const std::filesystem::path& folder);

/// Brings the names in a folder of a class to the disk, and its own: SyncFolder for ClassFolders.
int SyncClassFolders(Storage& storage, const std::filesystem::path& folder);

}  // namespace orvex
