#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/episode.h"
#include "running/entry_fields.h"

namespace orvex {

/// The direction in which a step of the history is taken.
enum class Way { undo, redo };

/// A question's episode and its position there, both counted from 1. Question 0 means none.
struct QuestionPlace {
  int episode = 0;
  int question = 0;

  bool operator==(const QuestionPlace&) const = default;
};

/// A change to a question that can be undone and redone. Both work the same way: they swap what the
/// step holds with what the class holds, so the next swap brings it back.
struct QuestionStep {
  QuestionPlace place;
  bool present = false;  ///< the step removes or replaces a question at `place`
  /// The question that the step puts at `place`, and the draft that replaces the current one.
  std::optional<questionInfo> question = {};
  std::optional<QuestionDraft> draft = {};
  /// Consecutive changes with the same text here form one step; "" always starts a new step.
  std::string typing = {};

  bool Brings() const { return question && !present; }
  bool Takes() const { return present && !question; }
  bool Revises() const { return present && question; }
};

/// The changes to the questions of a running class that can be undone, and the undone ones.
class QuestionHistory {
 public:
  /// Adds a change that has just been made. Undone steps can then no longer be redone.
  void Record(QuestionStep step, const EpisodeList& episodes);

  /// The step that `Take` would take next. Null when there is none or no room for it: a question
  /// has to wait while the episode is full, a draft while another one is being typed.
  const QuestionStep* Next(Way way, const EpisodeList& episodes, const QuestionDraft& draft) const;
  /// Undoes or redoes the next step and returns it as it is afterwards; null when there was none.
  const QuestionStep* Take(Way way, EpisodeList& episodes, QuestionDraft& draft);
  /// How many steps can be undone.
  std::size_t Steps() const { return done_.size(); }

  /// Ends the current step of typing; further typing starts a new one.
  void EndTyping() { typingGoesOn_ = false; }

  void ForgetUndone() { undone_.clear(); }
  /// Drops the steps that revise a question; those that add or remove a whole one stay.
  void ForgetRevisions();
  void ForgetDrafts();
  void ForgetEpisode(int episode);

  /// Passes the steps of `history` to `archive`, each through `visit`.
  template <typename Archive, typename History, typename VisitStep>
  static void Visit(Archive& archive, History& history, VisitStep visit) {
    archive.List("done", history.done_, visit);
    archive.List("undone", history.undone_, visit);
  }

 private:
  template <typename Condition>
  void Forget(Condition condition);

  std::vector<QuestionStep> done_;    ///< the last one is undone next
  std::vector<QuestionStep> undone_;  ///< the last one is redone next
  bool typingGoesOn_ = false;
};

}  // namespace orvex
