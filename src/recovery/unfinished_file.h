#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "desk/opened_file.h"
#include "desk/screens.h"
#include "desk/services.h"
#include "recovery/kept_changes.h"
#include "recovery/unfinished.h"

namespace orvex {

/// The files with unsaved changes from an earlier run that are not open in another Orvex. The
/// changes can be taken up in the file's form, discarded, or left for later. Searches the data
/// folder and every remembered folder. Tells the user about changes that cannot be read.
std::vector<Unfinished> UnfinishedFiles(const Services& services);

/// What was decided about the changes that are kept of a file being opened.
struct TakenUp {
  bool isLeft = false;                      ///< the file and its changes are left for later
  std::optional<KeptChanges> changes = {};  ///< to open instead of what the file holds

  /// What `file` holds; "" when the file is gone but there are changes to open instead. Throws
  /// FileError.
  std::string FileBytes(const std::filesystem::path& file) const;
  /// Those bytes, which count as changed if the changes were made to others.
  OpenedFile Opened(const std::string& bytes) const;
};
/// Offers the changes that are kept of `file`, which is about to be opened, or takes them up at
/// once.
TakenUp TakeUpChanges(const Services& services, const std::filesystem::path& file, Kept kept);

}  // namespace orvex
