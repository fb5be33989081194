#include "questions/question_room.h"

#include <string>

#include "desk/prompter.h"
#include "model/limits.h"

namespace orvex {

bool HasRoomForQuestion(const std::vector<questionInfo>& questions, Prompter& prompter) {
  if (questions.size() < kMostNumber) return true;
  prompter.Tell("An episode holds at most " + std::to_string(kMostNumber) +
                " questions. Start a new episode.");
  return false;
}

}  // namespace orvex
