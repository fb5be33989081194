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
/// whole, and what it held when it was last read or written.
class EditedFile {
 public:
  EditedFile(std::filesystem::path path, EpsHeader header, std::string bytes);

  const std::filesystem::path& Path() const { return path_; }  ///< `EpsFilePath`
  const EpsHeader& Header() const { return header_; }
  const std::string& Bytes() const { return bytes_; }

  /// What it held is not what the episodes were made from: it is not to be replaced unasked.
  void Distrust() { bytes_.clear(); }

  /// Writes the episodes into the file, or, after a failure, where the user wants them: the editor
  /// then works on that file. False when the user gave up; the old file is whole then. Before it is
  /// first replaced, what it was opened with is kept beside it, once and for good.
  bool Save(const Services& services, const EpisodeList& episodes);

 private:
  void KeepAsObserved(Storage& storage) const;
  void RequireUnchanged(const std::string& bytes, std::optional<std::string>& givenUp) const;

  std::filesystem::path path_;
  EpsHeader header_;
  std::string bytes_;
  /// What the file was opened with, until it is kept.
  std::optional<std::string> observed_;
};

/// A file that has been read whole, for the editor to take over.
struct OpenedFile {
  EditedFile file;
  EpisodeList episodes;
  bool repaired = false;  ///< the episodes are no longer as the file holds them
  std::unique_ptr<FileKeeper> keeper;
};

/// What came of opening a file.
struct Opening {
  std::optional<OpenedFile> opened;
  bool programEnds = false;  ///< the file was not one to go on with
};

/// Reads an episode file, asking and telling the user what there is to ask and tell. Changes to it
/// that were not saved are opened instead, when the user takes them up.
Opening OpenForEditing(const Services& services, const std::filesystem::path& path,
                       Kept kept = Kept::areOffered);

/// Lets the user choose an episode file, beginning in the data folder. Empty when none was chosen.
std::filesystem::path ChooseEpisodeFile(const Services& services);

}  // namespace orvex
