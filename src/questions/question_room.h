#pragma once

#include <vector>

#include "model/question_info.h"

namespace orvex {

class Prompter;

/// True when an episode that holds `questions` can take one more; otherwise the user is told.
bool HasRoomForQuestion(const std::vector<questionInfo>& questions, Prompter& prompter);

}  // namespace orvex
