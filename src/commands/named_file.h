#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "commands/console.h"
#include "store/eps_file.h"
#include "store/sur_file.h"
#include "tables/problem.h"

namespace orvex {

/// What a file is by its name, in whatever case its extension is written.
enum class FileKind { episodes, survey, fieldNotes, other };
FileKind KindOf(const std::filesystem::path& file);

/// Reads a file that was named on the command line. What is wrong with it, and what had to be
/// overlooked, is written to `console.err`; nothing when it could not be read.
std::optional<EpsObservation> ReadEpisodes(const std::filesystem::path& file,
                                           const Console& console);
std::optional<SurFile> ReadSurvey(const std::filesystem::path& file, const Console& console);

/// Writes that `file` is not what the command takes: "an episode file (.eps)".
void RefuseKind(const std::filesystem::path& file, const std::string& expected,
                const Console& console);

}  // namespace orvex
