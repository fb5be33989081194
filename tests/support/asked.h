#pragma once

#include "model/question_info.h"

namespace orvex::test {

/// A question with these letters and this name.
inline questionInfo Asked(std::string_view text, const DimensionTexts& coded,
                          std::int16_t episode = 1, std::int16_t segment = 1) {
  questionInfo question;
  question.SetValue(text, coded, episode, segment);
  return question;
}

}  // namespace orvex::test
