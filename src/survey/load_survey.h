#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "desk/opened_file.h"
#include "desk/screens.h"
#include "desk/services.h"
#include "recovery/kept_changes.h"
#include "store/sur_file.h"

namespace orvex {

/// A survey file that has been read.
struct LoadedSurvey {
  LoadedSurvey(SurFile read) : file(std::move(read)) {}  // NOLINT: a file alone is enough

  SurFile file;
  std::optional<OpenedFile> opened;
  std::unique_ptr<FileKeeper> keeper;
  bool isTakenUp = false;  ///< the answers are unsaved changes, not what the file holds
};

/// The main menu's command: lets the user choose a survey file and shows it in the survey form in
/// place of the menu. The menu stays when the file cannot be read. False when no file was chosen.
bool EditChosenSurvey(const Services& services);

/// Reads a survey file, or takes up unsaved changes to it. Nothing when that failed (the user has
/// been told) or the user leaves the file for later.
std::optional<LoadedSurvey> LoadSurvey(const Services& services, const std::filesystem::path& path,
                                       Kept kept = Kept::areOffered);

}  // namespace orvex
