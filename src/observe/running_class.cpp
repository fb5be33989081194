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

bool RunningClass::HasDraft() const {
  return !draftQuestion.empty() || draftFields.HasText();
}

questionInfo RunningClass::Draft() const {
  const auto text = [this](Dimension field) -> const std::string& {
    return draftFields.Text(field);
  };
  questionInfo question;
  question.SetValue(draftQuestion, text(Dimension::source), text(Dimension::response),
                    text(Dimension::authenticity), text(Dimension::uptake),
                    text(Dimension::cognitive), text(Dimension::respondName),
                    text(Dimension::onePartOfMulti), text(Dimension::tResponse),
                    text(Dimension::elaborated), static_cast<std::int16_t>(curEpisode),
                    static_cast<std::int16_t>(curSegment));
  return question;
}

void RunningClass::ShiftTimes(float seconds) {
  episodeStart += seconds;
  segmentStart += seconds;
  prevEpisodeStart += seconds;
  schedule.ShiftTimes(seconds);
}

}  // namespace orvex
