#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "commands/console.h"
#include "store/eps_file.h"
#include "store/sur_file.h"
#include "study/problem.h"
#include "tables/file_notes.h"

namespace orvex {

/// Reads a file. Errors and warnings go to `console.err`; returns nothing when the file could not
/// be read. `place` says where the file was named: "line 2 of the list", or nothing.
std::optional<EpsObservation> ReadEpisodes(const std::filesystem::path& file,
                                           const std::string& place, const Console& console);
std::optional<SurFile> ReadSurvey(const std::filesystem::path& file, const std::string& place,
                                  const Console& console);

/// Writes a problem with a file that was named at `place`.
void Tell(const Problem& problem, const std::string& place, const Console& console);
/// Writes the warnings and problems with a file that was named at `place`.
void Tell(const FileNotes& notes, const std::string& place, const Console& console);

}  // namespace orvex
