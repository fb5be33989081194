#include "running/running_class.h"

#include <charconv>
#include <random>

namespace orvex {

RunningClass RunningClass::Begun() {
  constexpr int kHexadecimal = 16;
  RunningClass begun;
  std::random_device random;
  for (int i = 0; i < 4; ++i) {
    char digits[kHexadecimal];
    const auto end = std::to_chars(digits, digits + kHexadecimal, random(), kHexadecimal).ptr;
    begun.token.append(digits, end).append(i < 3 ? "-" : "");
  }
  return begun;
}

questionInfo RunningClass::DraftAsStored() const {
  questionInfo question;
  question.SetValue(draft.question, draft.fields.Texts(), static_cast<std::int16_t>(curEpisode),
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
