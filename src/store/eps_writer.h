#pragma once

#include <filesystem>
#include <string>

#include "store/eps_file.h"

namespace orvex {

class Storage;

/// The bytes of an observation's episode file.
std::string FormatEps(const EpsHeader& header, const EpisodeList& episodes);
/// Replaces the file at `path` as ReplaceFile does. Throws FileError.
void WriteEpsFile(Storage& storage, const std::filesystem::path& path, const EpsHeader& header,
                  const EpisodeList& episodes);

/// The question counts of `episode`, as its file states them.
QuestionCounts EpisodeQuestionCounts(const Episode& episode);

}  // namespace orvex
