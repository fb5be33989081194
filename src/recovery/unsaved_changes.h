#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "desk/prompter.h"
#include "desk/screens.h"
#include "desk/services.h"

namespace orvex {

/// Changes to a file that were not saved, as a recovery file beside it keeps them.
struct UnsavedChanges {
  std::string dateText;    ///< when they were kept: "mm-dd-yyyy"
  std::string timeText;    ///< "hh:mm:ss"
  std::uint64_t base = 0;  ///< the checksum of what the file held, see Checksum
  /// What saving would have written; nothing when the file held just that.
  std::optional<std::string> bytes;
  std::uint64_t number = 0;  ///< the number of this content, to go on counting from
};

/// What is told of changes that cannot be taken up.
inline constexpr const char* kUnsavedUnreadable =
    "Changes that were not saved cannot be read. Their file is left as it is.";

/// Where changes to `file` are kept: "5-12-3.eps.recovery" beside "5-12-3.eps".
std::filesystem::path UnsavedPath(std::filesystem::path file);

/// The content of a recovery file, and back. Throws FormatError.
std::string FormatUnsaved(const UnsavedChanges& changes);
UnsavedChanges ParseUnsaved(const std::string& content);
/// The same from what is kept beside `file`. Throws FileError as well.
UnsavedChanges ReadUnsaved(const std::filesystem::path& file);

/// What has happened to `file` since it was changed, as a paragraph of a question; "" when it is as
/// it was.
std::string ChangeOf(const std::filesystem::path& file, const UnsavedChanges& changes);
/// The changes that are kept beside `file`, unless they are another Orvex's or nothing: what was
/// saved before the program ended is no longer kept. The user is told when they cannot be read.
std::optional<UnsavedChanges> FindUnsaved(const Services& services,
                                          const std::filesystem::path& file);
/// Asks whether they are to be taken up, discarded (No), or left for later.
Message QuestionOfUnsaved(const std::filesystem::path& file, const UnsavedChanges& changes);
/// False, when the user has been told why they stay.
bool DiscardUnsaved(const Services& services, const std::filesystem::path& file,
                    const UnsavedChanges& changes);

/// A file that is being opened, as far as changes to it were not saved.
struct Resumption {
  bool isOpened = true;                        ///< false: all is left for later
  std::optional<UnsavedChanges> changes = {};  ///< to be opened instead of what the file holds
};
/// Offers what is kept of `file`, which is about to be opened, or takes it up at once.
Resumption Resume(const Services& services, const std::filesystem::path& file, Unsaved unsaved);

}  // namespace orvex
