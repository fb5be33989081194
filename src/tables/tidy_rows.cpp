#include "tables/tidy_rows.h"

namespace orvex {
namespace {

using Take = std::function<void(const TidyRow&)>;

void ForEachQuestion(TidyRow row, const Take& take) {
  for (const questionInfo& question : row.episode->questions) {
    row.question = &question;
    ++row.number;
    take(row);
  }
}

void ForEachSegment(TidyRow row, const Take& take) {
  for (const SegmentData& segment : row.episode->segments) {
    row.segment = &segment;
    ++row.number;
    take(row);
  }
}

void ForEachEpisode(const ObservationContent& files, const Take& take) {
  TidyRow row = {.files = files};
  for (const Episode& episode : files.episodes->Episodes) {
    const auto spells = FindDialogicSpells(episode.questions);
    ++row.episodeNumber;
    row.episode = &episode;
    row.spells = &spells;
    take(row);
  }
}

}  // namespace

void ForEachRow(TidyTable table, const ObservationContent& files, const Take& take) {
  if (table == TidyTable::survey) {
    if (files.survey) take({.files = files});
    return;
  }
  if (!files.episodes) return;
  switch (table) {
    case TidyTable::observations: {
      const ObservationSummary summary = Summarize(files.episodes->Episodes);
      take({.files = files, .summary = &summary});
      break;
    }
    case TidyTable::episodes:
      ForEachEpisode(files, take);
      break;
    case TidyTable::segments:
      ForEachEpisode(files, [&](const TidyRow& episode) { ForEachSegment(episode, take); });
      break;
    case TidyTable::questions:
      ForEachEpisode(files, [&](const TidyRow& episode) { ForEachQuestion(episode, take); });
      break;
    case TidyTable::survey:
      break;
  }
}

}  // namespace orvex
