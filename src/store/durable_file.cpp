#include "store/durable_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

#include "store/file_error.h"
#include "store/storage.h"
#include "store/stray_temporaries.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kModeBits = 07777;
constexpr mode_t kPrivate = 0600;
constexpr mode_t kAsTheUserLikes = 0666;  // the system applies the user's umask
constexpr std::size_t kMostBytes = std::size_t{512} * 1024 * 1024;

/// Follows symbolic links from `path`. The last one may point to a file that does not exist yet.
fs::path FollowLinks(const fs::path& path) {
  constexpr int kMostLinks = 40;
  fs::path target = path;
  std::error_code cause;
  for (int links = 0; fs::is_symlink(target, cause); ++links) {
    if (links == kMostLinks) throw FileError(path, ELOOP);
    const fs::path next = fs::read_symlink(target, cause);
    if (cause) throw FileError(path, cause.value());
    target = target.parent_path() / next;
  }
  return target;
}

/// Gives the new file the owner and group of `old` as far as the user may, or at least the group.
/// False, with `errno` set, when that fails for any reason but a missing permission.
bool TakeOver(Storage& storage, int descriptor, const struct stat& made, const struct stat& old) {
  if (made.st_uid == old.st_uid && made.st_gid == old.st_gid) return true;
  // EINVAL means that this mount or container has no number for the owner or group.
  const auto give = [&](uid_t owner) {
    return Uninterrupted([&] { return storage.SetOwner(descriptor, owner, old.st_gid); }) == 0;
  };
  const auto refused = [] { return errno == EPERM || errno == EINVAL; };
  if (give(old.st_uid)) return true;
  if (!refused()) return false;
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  return give(kSameOwner) || refused();
}

/// Why a file must not be replaced, as a value of `errno`; 0 when it may be. Without this check, a
/// rename would replace a file that somebody has protected, and root could write to it as well.
int ProtectionOf(const fs::path& target, const struct stat& file) {
  constexpr mode_t kAnybodyWrites = 0222;
  if ((file.st_mode & kAnybodyWrites) == 0) return EACCES;
  return ::access(target.c_str(), W_OK) == 0 ? 0 : errno;
}

}  // namespace

FileReplacement::FileReplacement(Storage& storage, fs::path path)
    : storage_(storage), path_(std::move(path)), target_(FollowLinks(path_)) {
  exists_ = ::stat(target_.c_str(), &old_) == 0;
  Require(exists_ || errno == ENOENT);
  if (exists_ && !S_ISREG(old_.st_mode)) throw FileError(path_, "not a regular file");
  const int protection = exists_ ? ProtectionOf(target_, old_) : 0;
  if (protection != 0) throw FileError(path_, protection);
  OpenTemporary(exists_ ? kPrivate : kAsTheUserLikes);
  const bool known = ::fstat(descriptor_, &made_) == 0;
  if (!known) {
    const int cause = errno;
    Discard();
    throw FileError(path_, cause);
  }
  mode_ = made_.st_mode & kModeBits;
  if (!exists_ && SetMode(kPrivate)) mode_ = kPrivate;
}

FileReplacement::~FileReplacement() {
  Discard();
}

void FileReplacement::Require(bool done) const {
  if (!done) throw FileError(path_, errno);
}

bool FileReplacement::SetMode(mode_t bits) {
  return Uninterrupted([&] { return storage_.SetMode(descriptor_, bits); }) == 0;
}

void FileReplacement::OpenTemporary(mode_t mode) {
  constexpr int kMostNames = 1000;
  for (int number = 1; descriptor_ < 0 && number <= kMostNames; ++number) {
    temporary_ = target_.parent_path() / TemporaryName(number);
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    descriptor_ = Uninterrupted([&] { return storage_.Open(temporary_.c_str(), kFlags, mode); });
    if (descriptor_ < 0 && errno != EEXIST) break;
  }
  if (descriptor_ < 0) throw FileError(target_, errno);
}

void FileReplacement::Discard() {
  if (descriptor_ >= 0) storage_.Close(std::exchange(descriptor_, -1));
  if (!temporary_.empty()) storage_.Unlink(temporary_.c_str());
  temporary_.clear();
}

void FileReplacement::Write(std::string_view bytes) {
  Require(WriteAll(storage_, descriptor_, bytes) == bytes.size());
}

void FileReplacement::BringToDisk() {
  if (exists_) Require(TakeOver(storage_, descriptor_, made_, old_));
  // The file system of a stick has one mode for all files and refuses to set even that.
  const mode_t wanted = (exists_ ? old_.st_mode : made_.st_mode) & kModeBits;
  if (mode_ != wanted) Require(SetMode(wanted));
  Require(Uninterrupted([&] { return storage_.Sync(descriptor_); }) == 0);
  // A close that is interrupted has still closed the file, and its data is already on the disk.
  Require(storage_.Close(std::exchange(descriptor_, -1)) == 0 || errno == EINTR);
}

void FileReplacement::Commit() {
  if (descriptor_ >= 0) BringToDisk();
  Require(storage_.Rename(temporary_.c_str(), target_.c_str()) == 0);
  temporary_.clear();
  // From here on the new content is in place, but a power cut might still bring the old one back.
  Require(SyncFolder(storage_, target_.parent_path()) == 0);
}

void ReplaceFile(Storage& storage, const fs::path& path, std::string_view bytes) {
  FileReplacement file(storage, path);
  file.Write(bytes);
  file.Commit();
  RemoveStrayTemporaries(storage, file.Folder());
}

void RequireReplaceable(const fs::path& path) {
  const fs::path target = FollowLinks(path);
  struct stat file = {};
  if (::stat(target.c_str(), &file) != 0) throw FileError(path, errno);
  const int protection = ProtectionOf(target, file);
  if (protection != 0) throw FileError(path, protection);
  const fs::path folder = target.parent_path();
  if (::access(folder.empty() ? "." : folder.c_str(), W_OK) != 0) throw FileError(folder, errno);
}

namespace {

/// Reads a regular file, but no more than `most` bytes of it. A file larger than `largest` is an
/// error.
std::string ReadUpTo(const fs::path& path, std::size_t most, std::uintmax_t largest, Links links) {
  // Without O_NONBLOCK a named pipe would hold up the open itself.
  const int flags =
      O_RDONLY | O_CLOEXEC | O_NONBLOCK | (links == Links::areRefused ? O_NOFOLLOW : 0);
  const int descriptor = Uninterrupted([&] { return ::open(path.c_str(), flags); });
  if (descriptor < 0) throw FileError(path, errno);
  struct Closer {
    int descriptor;
    ~Closer() { ::close(descriptor); }
  } const closer{descriptor};

  struct stat status = {};
  if (::fstat(descriptor, &status) != 0) throw FileError(path, errno);
  if (S_ISDIR(status.st_mode)) throw FileError(path, EISDIR);
  if (!S_ISREG(status.st_mode)) throw FileError(path, "not a regular file");

  // A damaged directory entry, or a file with holes, may claim any size. Rule that out before
  // allocating memory.
  if (static_cast<std::uintmax_t>(status.st_size) > largest) throw FileError(path, EFBIG);

  // One byte more than the file has now, to notice its end.
  std::string bytes(std::min(static_cast<std::size_t>(status.st_size) + 1, most), '\0');
  std::size_t size = 0;
  while (size < most) {
    if (size == bytes.size()) bytes.resize(std::min(2 * size, most));
    const ssize_t count =
        Uninterrupted([&] { return ::read(descriptor, &bytes[size], bytes.size() - size); });
    if (count < 0) throw FileError(path, errno);
    size += static_cast<std::size_t>(count);
    if (count == 0) break;
  }
  bytes.resize(size);
  return bytes;
}

}  // namespace

std::string ReadFile(const fs::path& path, Links links) {
  std::string bytes = ReadUpTo(path, kMostBytes + 1, kMostBytes, links);
  if (bytes.size() > kMostBytes) throw FileError(path, EFBIG);
  return bytes;
}

std::string ReadFileStart(const fs::path& path, std::size_t most) {
  return ReadUpTo(path, most, std::numeric_limits<std::uintmax_t>::max(), Links::areFollowed);
}

void EnsureFolder(Storage& storage, const fs::path& folder) {
  if (storage.MakeFolder(folder.c_str(), 0777) != 0) {
    const int cause = errno;
    std::error_code ignored;
    if (!fs::is_directory(folder, ignored)) throw FileError(folder, cause);
  }
  // Sync also a folder that already existed: perhaps nobody has done so yet.
  if (SyncFolder(storage, folder.parent_path()) != 0) throw FileError(folder, errno);
}

}  // namespace orvex
