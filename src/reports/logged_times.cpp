#include "reports/logged_times.h"

#include <algorithm>
#include <cstddef>

#include "reports/class_log.h"
#include "reports/equal_texts.h"

namespace orvex {
namespace {

Texts TextsOf(const EpisodeList& episodes) {
  Texts texts;
  for (const Episode& episode : episodes) {
    for (const questionInfo& question : episode.questions) texts.push_back(question.question);
  }
  return texts;
}

Texts TextsOf(const ClassLog& log) {
  Texts texts;
  texts.reserve(log.questions.size());
  for (const LoggedQuestion& question : log.questions) texts.push_back(question.text);
  return texts;
}

}  // namespace

QuestionTimes LoggedTimes(const EpisodeList& episodes, const ClassLog& log) {
  const Texts stored = TextsOf(episodes);
  const Texts logged = TextsOf(log);
  QuestionTimes times(stored.size());
  std::vector<EqualText> pairs = EqualTextsInOrder(stored, logged);
  if (pairs.empty()) return times;
  pairs.push_back({stored.size(), logged.size()});
  std::size_t first = 0;
  std::size_t second = 0;
  for (const EqualText& pair : pairs) {
    for (; first < pair.first && second < pair.second; ++first, ++second) {
      times[first] = log.questions[second].second;
    }
    if (pair.first == stored.size()) break;
    times[pair.first] = log.questions[pair.second].second;
    first = pair.first + 1;
    second = pair.second + 1;
  }
  return times;
}

}  // namespace orvex
