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
/// the way back from what was done to any of them.
class LiveQuestions {
 public:
  LiveQuestions(const Services& services, RunningClass& running)
      : services_(services), running_(running) {}

  const QuestionDraft& Draft() const { return running_.draft; }
  /// The questions that the running episode has.
  const std::vector<questionInfo>& Filed() const;
  /// True when the running question/answer has brought questions already.
  bool SegmentHasQuestions() const;

  // The question being entered.
  void TypeQuestion(std::string text) { running_.draft.question = std::move(text); }
  void TypeCode(Dimension field, std::string_view text) { running_.draft.fields.Type(field, text); }
  /// True when the question is complete with the code that `field` is left with.
  bool LeaveCode(Dimension field) { return running_.draft.fields.Leave(field); }
  void ShowFirstCodes() { running_.draft.fields.ShowFirstFields(); }
  void FillNormalCodes() { running_.draft.fields.FillNormalCodes(); }
  /// Drops the codes; the text stays.
  void DropCodes() { running_.draft.fields.HideCodeFields(); }

  // The questions of the running episode.
  /// Logs the question and appends it. What had been undone can then no longer be redone.
  void File(const questionInfo& question);
  questionInfo DropLast();

  // The way back.
  void Record(QuestionStep step);
  /// What is typed from here on is a step of its own.
  void EndTyping() { running_.history.EndTyping(); }
  /// The step that `Take` takes next; null for none.
  const QuestionStep* Next(Way way) const;
  /// Undoes or redoes that step, and returns it as it is now; null when there was none.
  const QuestionStep* Take(Way way);
  /// Keeps only the steps in which whole questions come and go.
  void ForgetRevisions() { running_.history.ForgetRevisions(); }
  /// How many steps can be undone.
  std::size_t Steps() const { return running_.history.Steps(); }

 private:
  std::vector<questionInfo>& Questions();

  Services services_;
  RunningClass& running_;
};

}  // namespace orvex
