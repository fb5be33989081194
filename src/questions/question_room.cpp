#include "questions/question_room.h"

#include <string>

#include "desk/prompter.h"
#include "observe/live_observation.h"

namespace orvex {

bool HasRoomForQuestion(const std::vector<questionInfo>& questions, Prompter& prompter) {
  constexpr std::size_t kMost = LiveObservation::kMost;
  if (questions.size() < kMost) return true;
  prompter.Tell("An episode holds at most " + std::to_string(kMost) +
                " questions. Start a new episode.");
  return false;
}

}  // namespace orvex
