#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "model/episode.h"
#include "store/eps_file.h"
#include "tables/file_list.h"

namespace orvex {

/// Reads on where a form would ask, and passes on what it would say.
class ReadingWithWarnings : public EpsReadEvents {
 public:
  explicit ReadingWithWarnings(Warn warn) : warn_(std::move(warn)) {}

  bool ContinueWithEarlierVersion() override;
  void FirstSegmentRepaired(int ep) override;
  void TextAfterLastQuestion(int line, std::string_view text) override;

 private:
  Warn warn_;
};

/// More episodes than this are refused.
inline constexpr int kMostEpisodes = 100;

/// Appends the row of one episode, line end included. `number` counts from 1; `stated` are the
/// question counts that the file states.
void AppendEpisodeRow(const FileNumbers& file, int number, const Episode& episode,
                      const QuestionCounts& stated, std::string& rows);

/// Appends the rows of an episode file. Throws FileError and FormatError; the rows of the episodes
/// that had been read to their end are there then.
/// `warnOfName` is told when the identity line says other numbers than the name.
void AppendEpisodeRows(const std::filesystem::path& path, const Warn& warn, const Warn& warnOfName,
                       std::string& rows);

}  // namespace orvex
