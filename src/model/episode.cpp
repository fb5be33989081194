#include "model/episode.h"

#include <algorithm>
#include <numeric>

#include "model/activities.h"
#include "model/texts.h"

namespace orvex {

double Episode::duration() const {
  return std::accumulate(segments.begin(), segments.end(), 0.0,
                         [](double sum, const SegmentData& segment) {
                           return sum + static_cast<double>(segment.duration);
                         });
}

const SegmentData* SegmentOf(const Episode& episode, const questionInfo& question) {
  const int number = question.iSgQ;
  const bool known = number >= 1 && number <= std::ssize(episode.segments);
  return known ? &episode.segments[static_cast<std::size_t>(number - 1)] : nullptr;
}

std::string ActivityLabel(const Episode& episode, bool withReview) {
  if (episode.segments.empty()) return "";
  const bool saysReview = withReview && episode.bReview == "Y";
  return Say(saysReview ? Text::reviewLabel : Text::activityLabel,
             {ActivityName(episode.segments.front().activityNum), episode.nQAs()});
}

bool AnyQuestions(const EpisodeList& episodes) {
  return std::any_of(episodes.begin(), episodes.end(),
                     [](const Episode& episode) { return !episode.questions.empty(); });
}

float AverageOf(const std::vector<float>& values) {
  if (values.empty()) return 0;
  const double sum = std::accumulate(values.begin(), values.end(), 0.0);
  return static_cast<float>(sum / static_cast<double>(values.size()));
}

std::vector<DialogicSpell> FindDialogicSpells(const std::vector<questionInfo>& questions) {
  constexpr int kRun = 3;  // this many in a row begin a spell, or end it
  std::vector<DialogicSpell> spells;
  bool inSpell = false;
  int studentRun = 0;
  int teacherRun = 0;
  int start = 0;
  int teacherStart = 0;
  int number = 0;
  for (const questionInfo& question : questions) {
    ++number;
    const bool byTeacher = question.strSrc() == "T";
    if (!inSpell) {
      if (byTeacher) {
        studentRun = 0;
        continue;
      }
      ++studentRun;
      if (studentRun == 1) start = number;
      if (studentRun == kRun) {
        inSpell = true;
        teacherRun = 0;
      }
    } else if (!byTeacher) {
      teacherRun = 0;
    } else {
      ++teacherRun;
      if (teacherRun == 1) teacherStart = number;
      if (teacherRun == kRun) {
        spells.push_back({start, teacherStart - 1});
        inSpell = false;
        studentRun = 0;
      }
    }
  }
  if (inSpell) spells.push_back({start, teacherRun > 0 ? teacherStart - 1 : number});
  return spells;
}

}  // namespace orvex
