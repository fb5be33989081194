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

void ForEachEpisode(const ObservationContent& content, const Take& take) {
  TidyRow row = {.content = content};
  for (const Episode& episode : content.episodes->Episodes) {
    const auto spells = FindDialogicSpells(episode.questions);
    ++row.episodeNumber;
    row.episode = &episode;
    row.spells = &spells;
    take(row);
  }
}

}  // namespace

void ForEachRow(TidyTable table, const ObservationContent& content, const Take& take) {
  if (table == TidyTable::survey) {
    if (content.survey) take({.content = content});
    return;
  }
  if (!content.episodes) return;
  switch (table) {
    case TidyTable::observations: {
      const ObservationSummary summary = Summarize(content.episodes->Episodes);
      take({.content = content, .summary = &summary});
      break;
    }
    case TidyTable::episodes:
      ForEachEpisode(content, take);
      break;
    case TidyTable::segments:
      ForEachEpisode(content, [&](const TidyRow& episode) { ForEachSegment(episode, take); });
      break;
    case TidyTable::questions:
      ForEachEpisode(content, [&](const TidyRow& episode) { ForEachQuestion(episode, take); });
      break;
    case TidyTable::survey:
      break;
  }
}

}  // namespace orvex
