#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "desk/services.h"
#include "model/texts.h"
#include "recovery/recovery_file.h"

namespace orvex {

/// Unsaved changes to a file, as a recovery file beside it keeps them.
struct KeptChanges {
  std::string dateText;    ///< when they were kept: "mm-dd-yyyy"
  std::string timeText;    ///< "hh:mm:ss"
  std::uint64_t base = 0;  ///< Checksum of what the file held before the changes
  /// What saving would have written; nothing when that is what the file held.
  std::optional<std::string> bytes;
  std::uint64_t number = 0;  ///< this content's number, to continue counting from
};

/// Where changes to `file` are kept: "5-12-3.eps.recovery" beside "5-12-3.eps".
std::filesystem::path RecoveryPathBeside(std::filesystem::path file);
/// Reads the changes that are kept beside `file`. Throws FileError and FormatError.
KeptChanges ReadKeptChanges(const std::filesystem::path& file);

/// Keeps the unsaved changes to a file in a recovery file beside it. The recovery file exists from
/// the first change until the file is saved, the changes are dropped, or none are left. When the
/// program ends in any other way, it stays.
class FileKeeper {
 public:
  /// For the file at `path`, which holds `bytes`, or for changes to it that were taken up.
  FileKeeper(const Services& services, std::filesystem::path path, std::string_view bytes,
             const std::optional<KeptChanges>& takenUp = {});
  ~FileKeeper();
  FileKeeper(const FileKeeper&) = delete;
  FileKeeper& operator=(const FileKeeper&) = delete;

  /// Hands over what saving would write now; nothing when saving would change nothing. Does not
  /// wait for the disk, and no error shows here: see `Trouble`.
  void Keep(std::optional<std::string> bytes);
  /// Tries again to keep what could not be kept.
  void Retry() { recovery_.Retry(); }
  /// Why the last changes could not be kept; empty while all is well.
  std::string Trouble() const;
  /// Waits until everything handed over is on the disk, or has failed to get there.
  void AwaitStored() { recovery_.AwaitStored(); }

  /// The file whose changes are kept.
  const std::filesystem::path& Path() const { return path_; }

  /// Call this when the file has been saved with `bytes`; from now on it is the one at `path`.
  void Saved(const std::filesystem::path& path, std::string_view bytes);
  /// Gives up the changes and removes the recovery file.
  void Drop();

 private:
  bool Begin();
  void RememberItsFolder() const;

  Services services_;
  std::filesystem::path path_;
  std::uint64_t base_;
  RecoveryFile recovery_;
  bool hasChanges_ = false;
  std::string trouble_;  ///< why the recovery file could not be claimed
};

/// The message that is shown while changes cannot be kept.
inline std::string NotKeptText(const std::string& trouble) {
  return Say(Text::changesNotKept, {trouble});
}

}  // namespace orvex
