#include "study/observation_summary.h"

#include <algorithm>

#include "model/validation.h"

namespace orvex {

ObservationSummary Summarize(const EpisodeList& episodes) {
  ObservationSummary summary;
  double weights = 0;
  double weighted = 0;
  for (const Episode& episode : episodes) {
    ++summary.episodes;
    summary.segments += static_cast<int>(episode.segments.size());
    summary.spells += static_cast<int>(FindDialogicSpells(episode.questions).size());
    summary.seconds += episode.duration();
    AddTimes(episode.segments, summary.times);
    summary.notFullyCoded +=
        static_cast<int>(std::ranges::count_if(episode.questions, [](const auto& question) {
          return !FindMissingCodes(question).None();
        }));
    if (episode.questions.empty()) continue;
    weights += episode.duration();
    weighted += episode.duration() * static_cast<double>(episode.offtask);
  }
  summary.counts = CountCodes(episodes);
  if (weights > 0) summary.offtask = weighted / weights;
  return summary;
}

}  // namespace orvex
