#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "desk/screens.h"
#include "desk/services.h"
#include "recovery/kept_changes.h"
#include "recovery/unfinished.h"

namespace orvex {

/// What is told of changes that cannot be taken up.
inline constexpr const char* kChangesUnreadable =
    "Changes that were not saved cannot be read. Their file is left as it is.";

/// The files with changes that were not saved when the program ended, and that are not open in
/// another Orvex: to take the changes up in the file's form, to discard them, or to leave them for
/// later. They are looked for in the data folder and in every folder that is remembered. The user
/// is told of those that cannot be read.
std::vector<Unfinished> UnfinishedFiles(const Services& services);

/// A file that is being opened, as far as changes to it are kept.
struct TakenUp {
  bool isLeft = false;                      ///< the file and its changes are left for later
  std::optional<KeptChanges> changes = {};  ///< to be opened instead of what the file holds

  /// What `file` holds; "" for one that is gone, when there are changes to be opened instead.
  /// Throws FileError.
  std::string FileBytes(const std::filesystem::path& file) const;
};
/// Offers what is kept of `file`, which is about to be opened, or takes it up at once.
TakenUp TakeUpChanges(const Services& services, const std::filesystem::path& file, Kept kept);

}  // namespace orvex
