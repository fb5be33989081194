#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "desk/opened_file.h"
#include "desk/screens.h"
#include "desk/services.h"
#include "recovery/kept_changes.h"
#include "store/eps_file.h"

namespace orvex {

/// The file that the episode editor works on: its path, its header, its content when it was last
/// read or written, and the keeper that protects unsaved changes from being lost.
class EditedFile {
 public:
  EditedFile(std::filesystem::path path, EpsHeader header, std::string bytes, OpenedFile opened,
             std::unique_ptr<FileKeeper> keeper);

  const std::filesystem::path& Path() const { return path_; }
  const EpsHeader& Header() const { return header_; }

  /// Writes the episodes to the file. If that fails, the user may choose another file, which the
  /// editor then works on. Returns false if the user gave up; the old file is then intact. Before
  /// the file is first replaced, its original content is copied beside it, once and for all.
  bool Save(const Services& services, const EpisodeList& episodes);

  /// Has the changed episodes kept until they are saved. Pass null if they equal the file's. Does
  /// not wait for the disk.
  void Keep(const EpisodeList* changed);
  /// Tries again to keep what could not be kept before.
  void RetryKeeping();
  /// Waits until the changes are kept on the disk, or keeping them has failed.
  void AwaitKept();
  /// Why the changes cannot be kept; empty if they can.
  std::string KeepTrouble() const { return keeper_ ? keeper_->Trouble() : ""; }
  /// Discards what is kept and stops keeping anything.
  void StopKeeping();

 private:
  void KeepAsObserved(Storage& storage) const;

  std::filesystem::path path_;
  EpsHeader header_;
  /// The original content, until the first save has kept a copy of it.
  std::optional<std::string> observed_;
  OpenedFile opened_;
  std::unique_ptr<FileKeeper> keeper_;
};

}  // namespace orvex
