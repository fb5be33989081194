#include "store/claim.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "store/file_error.h"
#include "store/storage.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

fs::path LockPath(fs::path path) {
  return path.replace_extension(".lock");
}

/// False when somebody else holds the lock. True also for a file that cannot be locked at all.
bool TryLock(int descriptor) {
  return Uninterrupted([&] { return ::flock(descriptor, LOCK_EX | LOCK_NB); }) == 0 ||
         errno != EWOULDBLOCK;
}

/// False when the file has been removed since it was opened: a lock on it no longer keeps anybody
/// out.
bool IsStillAt(const fs::path& path, int descriptor) {
  struct stat opened = {};
  struct stat named = {};
  return ::fstat(descriptor, &opened) == 0 && ::stat(path.c_str(), &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

}  // namespace

Claim::Claim(fs::path path) : path_(std::move(path)) {
  const fs::path lock = LockPath(path_);
  constexpr int kFlags = O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW;
  do {
    GiveUp();
    descriptor_ = Uninterrupted([&] { return ::open(lock.c_str(), kFlags, 0666); });
    // Where nothing can be written, nobody can change what is kept, so no lock is needed.
    if (descriptor_ < 0 && (errno == EROFS || errno == EACCES)) return;
    if (descriptor_ < 0) throw FileError(lock, errno);
    if (!TryLock(descriptor_)) {
      ::close(std::exchange(descriptor_, -1));
      throw FileError(path_, "in use by another Orvex");
    }
  } while (!IsStillAt(lock, descriptor_));
}

Claim::Claim(Claim&& other) noexcept
    : path_(std::move(other.path_)), descriptor_(std::exchange(other.descriptor_, -1)) {}

Claim& Claim::operator=(Claim&& other) noexcept {
  std::swap(path_, other.path_);
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

void Claim::Renew() try {
  if (descriptor_ < 0 || IsStillAt(LockPath(path_), descriptor_)) return;
  Claim again(path_);
  std::swap(descriptor_, again.descriptor_);
} catch (const FileError&) {
  // Without a new lock, things are no worse than before.
}

void Claim::GiveUp() {
  if (descriptor_ < 0) return;
  // Remove the file while it is still locked: anybody who opens it from here on makes a new one.
  const fs::path lock = LockPath(path_);
  if (IsStillAt(lock, descriptor_)) ::unlink(lock.c_str());
  ::close(std::exchange(descriptor_, -1));
}

bool IsClaimed(const fs::path& path) {
  const int descriptor = Uninterrupted(
      [&] { return ::open(LockPath(path).c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK); });
  if (descriptor < 0) return false;
  const bool free = TryLock(descriptor);
  ::close(descriptor);
  return !free;
}

}  // namespace orvex
