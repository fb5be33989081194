// What the question entry does that can be undone.

#include <string>
#include <utility>
#include <vector>

#include "observe/live_observation.h"
#include "questions/question_entry.h"

namespace orvex {

/// Keeps the way back from what has become of a question, and of what was being typed.
void QuestionEntry::Record(QuestionStep step) {
  if (!live_.Draft().IsEmpty()) step.draft = live_.Draft();
  if (step.place.question == 0 && !step.draft) return;
  step.place.episode = live_.CurEpisode();
  steps_.Record(std::move(step));
}

std::string QuestionEntry::NextStep(Way way) const {
  const QuestionStep* step = asksReview_ ? nullptr : steps_.NextInEntry(way);
  return step ? steps_.Text(*step, way) : "";
}

void QuestionEntry::TakeStep(Way way) {
  const QuestionStep* step = asksReview_ ? nullptr : steps_.NextInEntry(way);
  if (!step) return;
  const bool draftChanges = step->draft.has_value();
  steps_.Take(way);
  offeredActivity_ = kNoActivity;
  if (!Coding()) {
    AwaitNext();
  } else if (draftChanges) {
    BeginCoding();
  }
}

/// The teacher asked the last question again. False when the episode is full.
bool QuestionEntry::DittoQuestion() {
  const questionInfo& last = live_.CurQuestions().back();
  questionInfo copy;
  copy.SetValue(last.question, last.Texts(), last.iEpQ, last.iSgQ);
  if (!StoreQuestion(copy)) return false;
  Record({.place = {.question = live_.CurrentEpisode().nQAs()}, .present = true});
  StartOver();
  return true;
}

/// Drops what is being typed; before the first question the text may stay.
void QuestionEntry::Scrap() {
  Record();
  if (!live_.CurQuestions().empty()) {
    StartOver();
    return;
  }
  Draft().HideCodeFields();
  AwaitFirstQuestion();
}

void QuestionEntry::DropLast() {
  std::vector<questionInfo>& questions = live_.CurQuestions();
  QuestionStep step = {.place = {.question = static_cast<int>(questions.size())}};
  step.question = std::move(questions.back());
  questions.pop_back();
  Record(std::move(step));
  StartOver();
}

}  // namespace orvex
