#pragma once

#include <optional>

#include "model/activities.h"
#include "reports/question_statistics.h"
#include "store/eps_file.h"

namespace orvex {

/// An observation in figures: its episodes added up.
struct ObservationSummary {
  int episodes = 0;
  int segments = 0;
  int spells = 0;      ///< dialogic spells
  double seconds = 0;  ///< the length of all segments
  ActivityTimes times{};
  CodeCounts counts;              ///< of all questions
  int notFullyCoded = 0;          ///< questions of which something is missing
  std::optional<double> offtask;  ///< see MeanOfftask
};
ObservationSummary Summarize(const EpisodeList& episodes);

}  // namespace orvex
