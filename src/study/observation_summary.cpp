#include "study/observation_summary.h"

#include <algorithm>
#include <vector>

#include "model/validation.h"

namespace orvex {

ObservationSummary Summarize(const EpisodeList& episodes) {
  ObservationSummary summary;
  std::vector<questionInfo> questions;
  double weights = 0;
  double weighted = 0;
  for (const Episode& episode : episodes) {
    ++summary.episodes;
    summary.segments += static_cast<int>(episode.segments.size());
    summary.spells += static_cast<int>(FindDialogicSpells(episode.questions).size());
    summary.seconds += episode.duration();
    AddTimes(episode.segments, summary.times);
    questions.insert(questions.end(), episode.questions.begin(), episode.questions.end());
    if (episode.questions.empty()) continue;
    weights += episode.duration();
    weighted += episode.duration() * static_cast<double>(episode.offtask);
  }
  summary.counts = CountCodes(questions);
  summary.notFullyCoded = static_cast<int>(std::ranges::count_if(
      questions, [](const questionInfo& question) { return !FindMissingCodes(question).None(); }));
  if (weights > 0) summary.offtask = weighted / weights;
  return summary;
}

}  // namespace orvex
