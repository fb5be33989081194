#pragma once

#include <string>

#include "desk/services.h"
#include "questions/question_steps.h"

namespace orvex {

class LiveObservation;

/// Undo and redo for a class in progress. The session log says what a step brings back or drops.
class ClassSteps : public QuestionSteps {
 public:
  ClassSteps(const Services& services, LiveObservation& live) : services_(services), live_(live) {}

  void RecordQuestionChange(const QuestionChange& change) override;
  void EndTyping() override;
  std::string NextQuestionStep(Way way) const override;
  std::optional<QuestionPlace> TakeQuestionStep(Way way) override;
  std::size_t StepsTaken() const override;

  // For the question entry. It takes only steps that add or drop a question of the running episode,
  // or change the one being entered.

  /// Records that a question of the running episode was added or dropped, along with what was being
  /// typed then.
  void RecordInEntry(QuestionStep step = {});
  /// The next such step; null if there is none.
  const QuestionStep* NextInEntry(Way way) const;
  /// What taking `step` does, such as "brings question 7 back".
  std::string Text(const QuestionStep& step, Way way) const;
  void Take(Way way);

 private:
  void Log(const QuestionStep& step, Way way);
  const questionInfo& At(const QuestionPlace& place) const;
  std::string Name(const QuestionPlace& place, const char* ofEpisode) const;

  Services services_;
  LiveObservation& live_;
};

}  // namespace orvex
