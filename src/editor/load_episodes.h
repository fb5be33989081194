#pragma once

#include <filesystem>
#include <optional>

#include "desk/screens.h"
#include "desk/services.h"
#include "editor/edited_file.h"
#include "model/episode.h"

namespace orvex {

/// An episode file that has been read whole, for the editor to take over.
struct LoadedEpisodes {
  EditedFile file;
  EpisodeList episodes;
  bool repaired = false;  ///< the episodes are no longer as the file holds them
};

/// What came of loading a file.
struct LoadOutcome {
  std::optional<LoadedEpisodes> loaded;
  bool programEnds = false;  ///< the file was not one to go on with
};

/// Reads an episode file, asking and telling the user what there is to ask and tell. Changes to it
/// that were not saved are loaded instead, when the user takes them up.
LoadOutcome LoadEpisodes(const Services& services, const std::filesystem::path& path,
                         Kept kept = Kept::areOffered);

/// Lets the user choose an episode file, beginning in the data folder. Empty when none was chosen.
std::filesystem::path ChooseEpisodeFile(const Services& services);

/// The main menu's command: lets the user choose an episode file and shows the episode editor on it
/// in place of the menu. False when that did not come about.
bool EditChosenEpisodes(const Services& services);

}  // namespace orvex
