#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "desk/services.h"
#include "recovery/recovery_file.h"

namespace orvex {

/// Changes to a file that were not saved, as a recovery file beside it keeps them.
struct KeptChanges {
  std::string dateText;    ///< when they were kept: "mm-dd-yyyy"
  std::string timeText;    ///< "hh:mm:ss"
  std::uint64_t base = 0;  ///< the checksum of what the file held, see Checksum
  /// What saving would have written; nothing when the file held just that.
  std::optional<std::string> bytes;
  std::uint64_t number = 0;  ///< the number of this content, to go on counting from
};

/// Where changes to `file` are kept: "5-12-3.eps.recovery" beside "5-12-3.eps".
std::filesystem::path RecoveryPathBeside(std::filesystem::path file);
/// The changes that are kept beside `file`. Throws FileError and FormatError.
KeptChanges ReadKeptChanges(const std::filesystem::path& file);

/// Keeps what is changed in a file and not saved in a recovery file beside it. That is there from
/// the first change until the file is saved, the changes are dropped, or there are none any more;
/// whatever else ends the program leaves it.
class FileKeeper {
 public:
  /// For the file at `path`, which holds `bytes`; with changes that were taken up, for these.
  FileKeeper(const Services& services, std::filesystem::path path, std::string_view bytes,
             const std::optional<KeptChanges>& takenUp = {});
  ~FileKeeper();
  FileKeeper(const FileKeeper&) = delete;
  FileKeeper& operator=(const FileKeeper&) = delete;

  /// Hands over what saving would write now; nothing when that would change nothing. Nothing waits
  /// for the disk, and nothing fails here: see `Trouble`.
  void Keep(std::optional<std::string> bytes);
  /// Tries again what could not be done, where it may have become possible.
  void Retry() { recovery_.Retry(); }
  /// Why the last changes could not be kept; empty while all is well.
  std::string Trouble() const;
  /// Waits until what was handed over is on the disk, or has failed.
  void AwaitStored() { recovery_.AwaitStored(); }

  /// The file whose changes are kept.
  const std::filesystem::path& Path() const { return path_; }

  /// The file, from now on the one at `path`, has been saved with `bytes`.
  void Saved(const std::filesystem::path& path, std::string_view bytes);
  /// The changes are given up.
  void Drop();

 private:
  bool Begin();
  void RememberItsFolder() const;

  Services services_;
  std::filesystem::path path_;
  std::uint64_t base_;
  RecoveryFile recovery_;
  bool hasChanges_ = false;
  std::string trouble_;  ///< why the path of the recovery file could not be had
};

/// What is shown while changes cannot be kept.
inline std::string NotKeptText(const std::string& trouble) {
  return "What is changed is not kept before it is saved: " + trouble;
}

}  // namespace orvex
