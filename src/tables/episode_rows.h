#pragma once

#include <filesystem>
#include <string>

#include "model/episode.h"
#include "store/eps_file.h"
#include "study/file_numbers.h"
#include "tables/file_rows.h"

namespace orvex {

/// Files with more episodes are refused.
inline constexpr int kMostEpisodes = 100;

/// Appends the row of one episode, including its line end. `number` counts from 1; `stated`
/// holds the question counts as the file states them.
void AppendEpisodeRow(const FileNumbers& file, int number, const Episode& episode,
                      const QuestionCounts& stated, std::string& rows);

/// Appends the rows of an episode file. Throws FileError and FormatError; the rows of the episodes
/// read completely before the error are kept.
void AppendEpisodeRows(const std::filesystem::path& path, FileRows& rows);

}  // namespace orvex
