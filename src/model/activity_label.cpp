#include "model/activity_label.h"

#include <cstddef>

#include "model/coding_scheme.h"

namespace orvex {

std::string ActivityLabel(const Episode& episode, bool withReview) {
  if (episode.segments.empty()) return "";
  const int activity = episode.segments.front().activityNum;
  const std::string name = IsActivity(activity)
                               ? std::string(ActivityNames[static_cast<std::size_t>(activity - 1)])
                               : std::to_string(activity);
  return name + ": " + std::to_string(episode.nQAs()) + " Question(s)" +
         (withReview && episode.bReview == "Y" ? " (Review Session)" : "");
}

}  // namespace orvex
