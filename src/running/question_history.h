#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/episode.h"
#include "running/entry_fields.h"

namespace orvex {

/// Back to how it was, or forth again.
enum class Way { undo, redo };

/// A question's episode and its position there, both counted from 1. Position 0 stands for none.
struct QuestionPlace {
  int episode = 0;
  int question = 0;

  bool operator==(const QuestionPlace&) const = default;
};

/// A change of a question that can be undone and redone. Either exchanges what the step holds for
/// what the class holds, so that whatever goes is there to come back.
struct QuestionStep {
  QuestionPlace place;
  bool present = false;  ///< a question stands at the place, and goes
  /// The question that comes to the place, and the one to enter that comes for the one entered now.
  std::optional<questionInfo> question = {};
  std::optional<QuestionDraft> draft = {};
  /// Changes in a row with the same one are one step; "" for a step of its own.
  std::string typing = {};

  bool Brings() const { return question && !present; }
  bool Takes() const { return present && !question; }
  bool Revises() const { return present && question; }
};

/// What can be brought back of the questions of a running class, and what was taken back.
class QuestionHistory {
 public:
  /// Takes a change that has been made. What had been undone can then no longer be redone.
  void Record(QuestionStep step, const EpisodeList& episodes);

  /// The step that `Take` takes next; null for none. What there is no room for has to wait: a
  /// question while the episode is full, a draft while another one is being typed.
  const QuestionStep* Next(Way way, const EpisodeList& episodes, const QuestionDraft& draft) const;
  /// Undoes or redoes that step, and returns it as it is now; null when there was none.
  const QuestionStep* Take(Way way, EpisodeList& episodes, QuestionDraft& draft);
  /// How many steps can be undone.
  std::size_t Steps() const { return done_.size(); }

  /// What is typed from here on is a step of its own.
  void EndTyping() { typingGoesOn_ = false; }

  void ForgetUndone() { undone_.clear(); }
  /// Keeps only the steps in which whole questions come and go.
  void ForgetRevisions();
  void ForgetDrafts();
  void ForgetEpisode(int episode);

  /// Hands the steps of `history` to `archive`, each through `visit`.
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
