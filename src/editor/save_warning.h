#pragma once

#include <filesystem>
#include <optional>

#include "desk/prompter.h"

namespace orvex {

struct EpsDifferences;

/// What is told of the file at `path` that a save would change; nothing when it would not, or only
/// name another version of the program.
std::optional<Message> SaveWarning(const EpsDifferences& differences,
                                   const std::filesystem::path& path);

}  // namespace orvex
