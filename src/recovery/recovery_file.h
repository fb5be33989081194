#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace orvex {

class Claim;
class Storage;

/// Keeps the newest of a series of contents in one file, so that it survives however the program
/// ends. Handing a content over only takes a lock. One background writer hands it to the system at
/// once; another brings it to the disk and then to its place, where it replaces the content before.
/// Contents that are overtaken on the way are left out. Each content is sealed with a number and a
/// checksum; the newest whole one counts, whether it is in its place or still on the way there.
/// Class folders that have been deleted, and the lock, are made again.
class RecoveryFile {
 public:
  explicit RecoveryFile(Storage& storage);
  /// Writes what was handed over. The file stays, unless it has been removed.
  ~RecoveryFile();
  RecoveryFile(const RecoveryFile&) = delete;
  RecoveryFile& operator=(const RecoveryFile&) = delete;

  /// Claims `path` for this program until it is given up. Throws FileError when another program has
  /// it, or when something is kept there already.
  void Begin(const std::filesystem::path& path);
  /// Claims a `path` where the content `number` is the newest. That content stays until a newer one
  /// takes its place. Throws FileError when another program has the path, or that content is not
  /// the newest.
  void TakeUp(const std::filesystem::path& path, std::uint64_t number);
  /// Moves what is kept to `path`. Throws FileError as `Begin` does.
  void MoveTo(const std::filesystem::path& path);

  /// True while a path is claimed.
  bool IsOn() const { return kept_ != nullptr; }

  /// Hands a content over. Does not wait for the disk, and no error shows here: see `Trouble`.
  void Keep(std::string content);
  /// Calls `then` once the system has everything that was handed over, or cannot be given it for
  /// any reason but a full disk: at once, or later from another thread. Replaces an earlier `then`
  /// that has not been called yet.
  void WhenWritten(const std::function<void()>& then);
  /// Tries again to keep a content that could not be kept.
  void Retry();
  /// Why the last content could not be kept, "<path>: <cause>"; empty while all is well.
  std::string Trouble() const;
  /// Wait until the system has (AwaitWritten), or the disk has (AwaitStored), everything that was
  /// handed over, or until that has failed.
  void AwaitWritten();
  void AwaitStored();

  /// Gives the path up. What is kept there stays.
  void Leave();
  /// Gives the path up and removes what is kept there. Throws FileError when that cannot be
  /// removed; the path is given up all the same.
  void Remove();

 private:
  class Kept;

  static std::shared_ptr<Claim> FreshClaim(const std::filesystem::path& path);

  Storage& storage_;
  std::unique_ptr<Kept> kept_;  ///< while a path is claimed
};

}  // namespace orvex
