#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "running/question_history.h"

namespace orvex {

/// A change that the question editor has made.
struct QuestionChange {
  std::string name;  ///< what the user has done: "Insert question"
  /// Changes in a row with the same one are one step; "" for a step of its own.
  std::string typing = {};
  QuestionPlace place;
  bool present = false;                     ///< a question stands there now
  std::optional<questionInfo> before = {};  ///< the one that stood there before
};

/// Keeps the steps back from what the question editor changes.
class QuestionSteps {
 public:
  virtual ~QuestionSteps() = default;

  virtual void RecordQuestionChange(const QuestionChange& change) = 0;
  /// What is typed from here on is a step of its own.
  virtual void EndTyping() = 0;
  /// What the key of the next step does: "brings question 7 back"; "" when there is none that is
  /// about questions.
  virtual std::string NextQuestionStep(Way way) const = 0;
  /// Takes that step, and returns where the questions have changed.
  virtual std::optional<QuestionPlace> TakeQuestionStep(Way way) = 0;
  /// How many steps can be undone.
  virtual std::size_t StepsTaken() const = 0;
};

}  // namespace orvex
