#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "desk/screens.h"
#include "desk/services.h"
#include "recovery/kept_changes.h"
#include "store/sur_file.h"

namespace orvex {

/// A survey file that has been read.
struct LoadedSurvey {
  LoadedSurvey(SurFile read) : file(std::move(read)) {}  // NOLINT: a file is all there need be

  SurFile file;
  std::unique_ptr<FileKeeper> keeper;
  bool isTakenUp = false;  ///< the answers are no longer as the file holds them
};

/// The main menu's command: lets the user choose a survey file and shows the survey form on it in
/// place of the menu, which stays when the file cannot be read. False when no file was chosen.
bool EditChosenSurvey(const Services& services);

/// Reads a survey file, or takes up changes to it that were not saved. Nothing, when the user has
/// been told that it could not be read, or leaves it for later.
std::optional<LoadedSurvey> LoadSurvey(const Services& services, const std::filesystem::path& path,
                                       Kept kept = Kept::areOffered);

}  // namespace orvex
