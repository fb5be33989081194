#include "observe/running_class.h"

#include <charconv>

namespace orvex {

int RunningClass::Activity() const {
  int number = 0;
  std::from_chars(curActivity.data(), curActivity.data() + curActivity.size(), number);
  return number;
}

SegmentData RunningClass::Segment(float seconds) const {
  SegmentData segment;
  const int activity = Activity();
  segment.SetData(static_cast<std::int16_t>(activity), seconds, coding.Codes(activity));
  return segment;
}

void RunningClass::ShiftTimes(float seconds) {
  episodeStart += seconds;
  segmentStart += seconds;
  prevEpisodeStart += seconds;
  schedule.ShiftTimes(seconds);
}

}  // namespace orvex
