#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/focus.h"
#include "desk/guarded_tick.h"
#include "desk/services.h"
#include "model/activities.h"
#include "model/question_info.h"
#include "observe/offtask_indicator.h"
#include "questions/class_steps.h"
#include "running/entry_fields.h"

namespace orvex {

class LiveObservation;
class LiveQuestions;
class SessionClocks;

/// Returns true if an episode with `questions` can take one more; otherwise tells the user.
bool HasRoomForQuestion(const std::vector<questionInfo>& questions, Prompter& prompter);

/// Where the observer types and codes the questions of a question/answer segment. It exists from
/// the start of the segment until the live observation form takes over again.
class QuestionEntry {
 public:
  /// A dimension's box, or that of the question's text.
  using Box = std::optional<Dimension>;
  static constexpr Box kText = std::nullopt;
  /// What can have the focus: a box, or the answers to the review question.
  struct Control {
    Box box = kText;
    bool review = false;

    bool operator==(const Control&) const = default;
  };
  using Focus = FocusWish<Control>;

  /// The buttons. Some do one thing while a question is being coded and another at other times.
  enum class Command {
    review,
    proof,
    fillNormalOrSurvey,
    ditto,
    nextOrLeave,  ///< the next question, or leaves the segment
    startSegment,
    scrapOrStartEpisode,
    dropLast,
    correctTime,
    endClass,
  };
  static constexpr std::size_t kCommands = 10;

  QuestionEntry(const Services& services, LiveObservation& live, const SessionClocks& liveClocks);

  // What the form shows.
  const std::string& Question() const;
  const EntryFields& Fields() const;
  /// "Question #3:", with the number of the next question. "Question #3: (2 is empty)" warns that
  /// the one before has no text, probably stored by a stray key.
  std::string FrameCaption() const;
  /// True while a question is being coded.
  bool IsCoding() const;
  /// The activity that the observer can return to; kNoActivity for none.
  int OfferedActivity() const { return offeredActivity_; }
  bool Enabled(Command command) const;
  /// True while asking if the episode was review; nothing else is possible then.
  bool AsksReview() const { return asksReview_; }
  const SessionClocks& Clocks() const { return liveClocks_; }
  const OfftaskIndicator& Offtask() const { return offtask_; }
  /// What undo or redo would do, such as "brings question 7 back"; "" if there is no step.
  std::string NextStep(Way way) const;
  std::size_t StepsTaken() const { return steps_.StepsTaken(); }
  std::optional<Focus::Target> TakeFocus() { return focus_.Take(); }

  /// The caret in a box that gets the focus: a letter replaces a code but is added to a text.
  static Caret CaretOf(Box box);

  // Typing.
  void TypeQuestion(std::string_view text);
  void TypeField(Dimension field, std::string_view text);
  void EnterOrDown(Box box);
  void Up(Box box);
  /// Files the question: for Ctrl+N, and for leaving the last box.
  void SaveQuestion();
  /// Undoes or redoes dropping a question, filing a copy, or typing.
  void TakeStep(Way way);

  OfftaskIndicator& Offtask() { return offtask_; }

  /// Clicks a button; does nothing while it is disabled.
  void Click(Command command);
  /// Answers whether the episode was review and starts the next one.
  void AnswerReview(bool wasReview);

  /// Call this when the form comes to the front.
  void Activate();
  /// Call this when the window is to close. Returns true if it may.
  bool RequestClose();
  /// Call this once a second.
  void Tick();

 private:
  bool HasRoom(Command command) const;
  void Enable(Command command, bool enabled = true);
  void EnableCommands(bool enabled);
  void EnableForCoding();
  void BeginCoding();
  void AwaitNext();
  void AwaitQuestion();
  void AwaitFirstQuestion();
  void MoveTo(Box box);
  void StartCoding();
  bool StoreQuestion(const questionInfo& question);
  void StartOver();

  void OpenEditor(bool proofMode);
  void Proof();
  void OpenSurvey();
  void FillNormal();
  void Ditto();
  void LeaveOrNext();
  void AbandonSegment();
  void ReturnToPreviousActivity();
  void StartSegment();
  void AskReview();
  void Scrap();
  void DropLast();
  void EndClass();

  Services services_;
  LiveObservation& live_;
  LiveQuestions& questions_;
  const SessionClocks& liveClocks_;
  ClassSteps steps_;
  GuardedTick tick_;

  std::array<bool, kCommands> enabled_{};
  int offeredActivity_ = kNoActivity;
  bool asksReview_ = false;
  bool editorOpen_ = false;  ///< the question editor has replaced the form
  OfftaskIndicator offtask_;
  Focus focus_;
};

}  // namespace orvex
