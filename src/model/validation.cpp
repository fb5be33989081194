#include "model/validation.h"

#include <algorithm>
#include <cstddef>

namespace orvex {

MissingCodes FindMissingCodes(const questionInfo& question) {
  MissingCodes missing;
  missing.text = question.question.empty();
  for (const Dimension dimension : kDimensions) {
    if (question.AsksFor(dimension) && !question.IsCoded(dimension)) {
      missing.dimensions.push_back(dimension);
    }
  }
  return missing;
}

int FindUncodedQuestion(const EpisodeList& episodes, int& ep, int& q) {
  const int count = static_cast<int>(episodes.size());
  int episode = ep < 1 || ep > count ? 1 : ep;
  int question = std::max(q, 1);
  // The episode where the search starts comes round once more, for the questions before the start.
  for (int round = 0; count > 0 && round <= count; ++round) {
    const auto& questions = episodes[static_cast<std::size_t>(episode - 1)].questions;
    for (; question <= static_cast<int>(questions.size()); ++question) {
      if (!FindMissingCodes(questions[static_cast<std::size_t>(question - 1)]).None()) {
        ep = episode;
        q = question;
        return 1;
      }
    }
    episode = episode == count ? 1 : episode + 1;
    question = 1;
  }
  return -1;
}

}  // namespace orvex
