#include "model/activity_label.h"

#include "model/activities.h"

namespace orvex {

std::string ActivityLabel(const Episode& episode, bool withReview) {
  if (episode.segments.empty()) return "";
  return ActivityCaption(episode.segments.front().activityNum) + ": " +
         std::to_string(episode.nQAs()) + " Question(s)" +
         (withReview && episode.bReview == "Y" ? " (Review Session)" : "");
}

}  // namespace orvex
