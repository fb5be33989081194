#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "desk/services.h"
#include "running/running_class.h"

namespace orvex {

/// The questions of a class in progress: the one being entered, those of the running episode, and
/// undo and redo for both.
class LiveQuestions {
 public:
  LiveQuestions(const Services& services, RunningClass& running)
      : services_(services), running_(running) {}

  const QuestionDraft& Draft() const { return running_.draft; }
  /// The questions of the running episode.
  const std::vector<questionInfo>& Filed() const;
  /// True when questions have been added since the running question/answer began.
  bool SegmentHasQuestions() const;

  // The question being entered.
  void TypeQuestion(std::string text) { running_.draft.question = std::move(text); }
  void TypeCode(Dimension field, std::string_view text) { running_.draft.fields.Type(field, text); }
  /// Handles Enter or Down in `field`, as EntryFields::Leave. True when the question is complete.
  bool LeaveCode(Dimension field) { return running_.draft.fields.Leave(field); }
  void ShowFirstCodes() { running_.draft.fields.ShowFirstFields(); }
  void FillNormalCodes() { running_.draft.fields.FillNormalCodes(); }
  /// Clears the codes and hides their fields; the text stays.
  void DropCodes() { running_.draft.fields.HideCodeFields(); }

  // The questions of the running episode.
  /// Logs the question and appends it. Undone steps can then no longer be redone.
  void File(const questionInfo& question);
  questionInfo DropLast();

  // Undo and redo, as in QuestionHistory.
  void Record(QuestionStep step);
  /// Ends the current step of typing; further typing starts a new one.
  void EndTyping() { running_.history.EndTyping(); }
  /// The step that `Take` would take next; null when there is none or no room for it.
  const QuestionStep* Next(Way way) const;
  /// Undoes or redoes the next step and returns it as it is afterwards; null when there was none.
  const QuestionStep* Take(Way way);
  /// Drops the steps that revise a question; those that add or remove a whole one stay.
  void ForgetRevisions() { running_.history.ForgetRevisions(); }
  /// How many steps can be undone.
  std::size_t Steps() const { return running_.history.Steps(); }

 private:
  std::vector<questionInfo>& Questions();

  Services services_;
  RunningClass& running_;
};

}  // namespace orvex
