#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "commands/console.h"
#include "store/eps_file.h"
#include "store/sur_file.h"
#include "study/file_kind.h"
#include "study/problem.h"

namespace orvex {

/// Reads a file named on the command line. Errors and warnings go to `console.err`; returns
/// nothing when the file could not be read.
std::optional<EpsObservation> ReadEpisodes(const std::filesystem::path& file,
                                           const Console& console);
std::optional<SurFile> ReadSurvey(const std::filesystem::path& file, const Console& console);

/// Writes that the command does not take `file`. `expected` says what it takes: "an episode
/// file (.eps)".
void RefuseKind(const std::filesystem::path& file, const std::string& expected,
                const Console& console);

}  // namespace orvex
