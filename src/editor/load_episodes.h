#pragma once

#include <filesystem>
#include <optional>

#include "desk/screens.h"
#include "desk/services.h"
#include "editor/edited_file.h"
#include "model/episode.h"
#include "store/eps_file.h"

namespace orvex {

/// An episode file that has been read completely, ready for the editor.
struct LoadedEpisodes {
  EditedFile file;
  EpisodeList episodes;
  bool repaired = false;  ///< the episodes differ from those in the file
};

/// The result of loading a file.
struct LoadOutcome {
  std::optional<LoadedEpisodes> loaded;
  /// The file was invalid, or the user declined it. That ends the activity.
  bool isRefused = false;
};

/// Reads an episode file, with messages and questions to the user as needed. If unsaved changes to
/// it are kept and the user takes them up, they are loaded instead.
LoadOutcome LoadEpisodes(const Services& services, const std::filesystem::path& path,
                         Kept kept = Kept::areOffered);

/// Reads an episode file as it is stored, with messages and questions to the user as needed.
/// Nothing when it could not be read (the user has been told) or the user declined it.
std::optional<EpsObservation> ReadForReports(const Services& services,
                                             const std::filesystem::path& path);

/// Lets the user choose an episode file, starting in the data folder. Empty if none was chosen.
std::filesystem::path ChooseEpisodeFile(const Services& services);

/// The main menu's command: lets the user choose an episode file and replaces the menu with an
/// episode editor on it. Returns false if no editor was opened.
bool EditChosenEpisodes(const Services& services);

}  // namespace orvex
