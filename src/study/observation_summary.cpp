#include "study/observation_summary.h"

#include <algorithm>

#include "model/validation.h"

namespace orvex {

ObservationSummary Summarize(const EpisodeList& episodes) {
  ObservationSummary summary;
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
  }
  summary.counts = CountCodes(episodes);
  summary.offtask = MeanOfftask(episodes);
  return summary;
}

}  // namespace orvex
