#pragma once

#include <filesystem>
#include <string>

#include "store/eps_file.h"

namespace orvex {

class Storage;

/// An observation as the bytes of an episode file.
std::string FormatEps(const EpsHeader& header, const EpisodeList& episodes);
/// Replaces the file at `path` as ReplaceFile does. Throws FileError.
void WriteEpsFile(Storage& storage, const std::filesystem::path& path, const EpsHeader& header,
                  const EpisodeList& episodes);

/// The question counts that the episode file states for `episode`.
QuestionCounts EpisodeQuestionCounts(const Episode& episode);

}  // namespace orvex
