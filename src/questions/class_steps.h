#pragma once

#include <string>

#include "desk/services.h"
#include "questions/question_steps.h"

namespace orvex {

class LiveObservation;

/// The steps back of a class in progress. What comes back is logged.
class ClassSteps : public QuestionSteps {
 public:
  ClassSteps(const Services& services, LiveObservation& live) : services_(services), live_(live) {}

  void RecordQuestionChange(const QuestionChange& change) override;
  void EndTyping() override;
  std::string NextQuestionStep(Way way) const override;
  std::optional<QuestionPlace> TakeQuestionStep(Way way) override;
  std::size_t StepsTaken() const override;

  // For the question entry, which shows only the running episode's questions as they come and go,
  // and the one being entered.

  /// Keeps the way back from what has become of a question of the running episode, and of what was
  /// being typed.
  void RecordInEntry(QuestionStep step = {});
  /// Null when there is none, or none that would be seen.
  const QuestionStep* NextInEntry(Way way) const;
  /// What the key of `step` does: "brings question 7 back".
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
