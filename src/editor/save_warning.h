#pragma once

#include <filesystem>
#include <optional>

#include "desk/prompter.h"

namespace orvex {

struct EpsDifferences;

/// The warning about what a save would change in the file at `path`; nothing if a save would change
/// nothing, or only the program version that the file names.
std::optional<Message> SaveWarning(const EpsDifferences& differences,
                                   const std::filesystem::path& path);

}  // namespace orvex
