#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "running/question_history.h"

namespace orvex {

/// A change made by the question editor.
struct QuestionChange {
  std::string name;  ///< what the user did, such as "Insert question"
  /// Consecutive changes with the same `typing` are one step; "" makes a step of its own.
  std::string typing = {};
  QuestionPlace place;
  bool present = false;                     ///< whether there is a question at `place` now
  std::optional<questionInfo> before = {};  ///< the question there before, if any
};

/// Keeps undo and redo steps for the changes of the question editor.
class QuestionSteps {
 public:
  virtual ~QuestionSteps() = default;

  virtual void RecordQuestionChange(const QuestionChange& change) = 0;
  /// Makes whatever is typed next a new step.
  virtual void EndTyping() = 0;
  /// What undo or redo would do, such as "brings question 7 back"; "" if the next step is not about
  /// questions or there is none.
  virtual std::string NextQuestionStep(Way way) const = 0;
  /// Takes that step and returns the place that it changed; nothing if there is none.
  virtual std::optional<QuestionPlace> TakeQuestionStep(Way way) = 0;
  /// How many steps can be undone.
  virtual std::size_t StepsTaken() const = 0;
};

}  // namespace orvex
