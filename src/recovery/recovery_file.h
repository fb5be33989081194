#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace orvex {

class Claim;
class Storage;

/// Keeps the newest of a series of contents in one file, so that it outlives whatever ends the
/// program. Handing a content over only takes a lock; one background writer brings it into the
/// system's hands at once, another to the disk and then to its place, where it replaces the one
/// before. Contents that are overtaken on the way are left out. Each is sealed with a number and a
/// checksum; the newest that is whole counts, be it in its place or still on the way there. Folders
/// of the class that have been deleted, and its lock, are made again.
class RecoveryFile {
 public:
  explicit RecoveryFile(Storage& storage);
  /// What was handed over is written. The file stays, unless it has been removed.
  ~RecoveryFile();
  RecoveryFile(const RecoveryFile&) = delete;
  RecoveryFile& operator=(const RecoveryFile&) = delete;

  /// Makes `path` this program's until it is removed or the program ends. Throws FileError when
  /// another program has it, or when something is kept there already.
  void Begin(const std::filesystem::path& path);
  /// The same for a path where the content `number` is the newest: it stays until a newer one takes
  /// its place. Throws FileError also when it is not.
  void TakeUp(const std::filesystem::path& path, std::uint64_t number);
  /// What is kept moves to `path`, under the conditions of `Begin`.
  void MoveTo(const std::filesystem::path& path);

  /// True while it has a path.
  bool IsOn() const { return kept_ != nullptr; }

  /// Hands a content over. Nothing waits for the disk, and nothing fails here: see `Trouble`.
  void Keep(std::string content);
  /// Does something once what was handed over is in the system's hands, or cannot be brought there
  /// for another reason than a full disk: at once, or from another thread. What was to be done
  /// before and is not yet is left out.
  void WhenWritten(std::function<void()> then);
  /// Tries again to keep a content that could not be kept.
  void Retry();
  /// Why the last content could not be kept, "<path>: <cause>"; empty while all is well.
  std::string Trouble() const;
  /// Waits until what was handed over is in the system's hands, or on the disk; or has failed.
  void AwaitWritten();
  void AwaitStored();

  /// Gives the path up; what is kept there stays.
  void Leave();
  /// Gives the path up, with what is kept there. Throws FileError when that cannot be removed; the
  /// path is given up all the same.
  void Remove();

 private:
  class Kept;

  static std::shared_ptr<Claim> FreshClaim(const std::filesystem::path& path);

  Storage& storage_;
  std::unique_ptr<Kept> kept_;  ///< while a path is claimed
};

}  // namespace orvex
