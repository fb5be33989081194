#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "desk/screens.h"
#include "desk/services.h"
#include "recovery/kept_changes.h"
#include "store/eps_file.h"

namespace orvex {

/// The file that the episode editor works on: where it is, what it says of the observation as a
/// whole, what it held when it was last read or written, and what keeps changes to it until they
/// are saved.
class EditedFile {
 public:
  EditedFile(std::filesystem::path path, EpsHeader header, std::string bytes,
             std::unique_ptr<FileKeeper> keeper);

  const std::filesystem::path& Path() const { return path_; }
  const EpsHeader& Header() const { return header_; }

  /// What it held is not what the episodes were made from: it is not to be replaced unasked.
  void Distrust() { bytes_.clear(); }

  /// Writes the episodes into the file, or, after a failure, where the user wants them: the editor
  /// then works on that file. False when the user gave up; the old file is whole then. Before it is
  /// first replaced, what it was opened with is kept beside it, once and for good.
  bool Save(const Services& services, const EpisodeList& episodes);

  /// Has the episodes kept as they are until they are saved; null when they are as the file holds
  /// them. Nothing waits for the disk.
  void Keep(const EpisodeList* changed);
  /// Tries again what could not be kept, where it may have become possible.
  void RetryKeeping();
  /// Waits until what is to be kept is on the disk, or has failed.
  void AwaitKept();
  /// Why the changes cannot be kept; empty while all is well.
  std::string KeepTrouble() const { return keeper_ ? keeper_->Trouble() : ""; }
  /// Gives up what is kept, and keeps nothing from here on.
  void StopKeeping();

 private:
  void KeepAsObserved(Storage& storage) const;
  void RequireUnchanged(const std::string& bytes, std::optional<std::string>& givenUp) const;

  std::filesystem::path path_;
  EpsHeader header_;
  std::string bytes_;
  /// What the file was opened with, until it is kept.
  std::optional<std::string> observed_;
  std::unique_ptr<FileKeeper> keeper_;
};

}  // namespace orvex
