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

/// True when an episode that holds `questions` can take one more; otherwise the user is told.
bool HasRoomForQuestion(const std::vector<questionInfo>& questions, Prompter& prompter);

/// Where the observer types and codes the questions of a question/answer segment. One lives from
/// the start of the segment until the live observation form takes over again.
class QuestionEntry {
 public:
  /// A box: that of a dimension, or of the question's text.
  using Box = std::optional<Dimension>;
  static constexpr Box kText = std::nullopt;
  /// What gets the focus: a box, or the answers to the review question.
  struct Control {
    Box box = kText;
    bool review = false;

    bool operator==(const Control&) const = default;
  };
  using Focus = FocusWish<Control>;

  /// The buttons. Some of them do one thing while a question is coded, and another one else.
  enum class Command {
    review,
    proof,
    fillNormalOrSurvey,
    ditto,
    nextOrLeave,  ///< leaves for the activity before, or gives the segment up
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
  /// "Question #3:", the number that the next question gets; "Question #3: (2 is empty)" where the
  /// one before it has no text, which a key too many has stored.
  std::string FrameCaption() const;
  /// True while the codes of a question are asked for.
  bool IsCoding() const;
  /// The activity that the observer can go back to.
  int OfferedActivity() const { return offeredActivity_; }
  bool Enabled(Command command) const;
  /// While it is asked, whether the episode was review, nothing else can be done.
  bool AsksReview() const { return asksReview_; }
  const SessionClocks& Clocks() const { return liveClocks_; }
  const OfftaskIndicator& Offtask() const { return offtask_; }
  /// What the key of undo or redo does: "brings question 7 back"; "" for nothing.
  std::string NextStep(Way way) const;
  std::size_t StepsTaken() const { return steps_.StepsTaken(); }
  std::optional<Focus::Target> TakeFocus() { return focus_.Take(); }

  /// How a box that gets the focus holds it: one letter replaces a code, a text is added to.
  static Caret CaretOf(Box box);

  // Typing.
  void TypeQuestion(std::string_view text);
  void TypeField(Dimension field, std::string_view text);
  void EnterOrDown(Box box);
  void Up(Box box);
  /// Ctrl+N, and the end of the last field.
  void SaveQuestion();
  /// Undoes or redoes what has dropped a question or what was typed of one, or filed a copy.
  void TakeStep(Way way);

  OfftaskIndicator& Offtask() { return offtask_; }

  /// A click on a button; nothing happens while it is disabled.
  void Click(Command command);
  /// Answers whether the episode was review, and starts the next one.
  void AnswerReview(bool wasReview);

  /// The form comes to the front.
  void Activate();
  /// The window is asked to close. True when it may.
  bool RequestClose();
  /// Once a second.
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
  bool editorOpen_ = false;  ///< the question editor has taken the form's place
  OfftaskIndicator offtask_;
  Focus focus_;
};

}  // namespace orvex
