#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

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
class SessionClocks;

/// Where the observer types and codes the questions of a question/answer segment. One lives from
/// the start of the segment until the live observation form takes over again.
class QuestionEntry {
 public:
  /// The boxes, and the button that the review question gives the focus to.
  enum class Control {
    txtQuestion,
    Text1,
    Text2,
    Text3,
    Text4,
    Text5,
    Text6,
    Text7,
    Text8,
    Text9,
    Command11_0,
  };
  using Focus = FocusWish<Control>;

  enum class Command {
    Command1,   ///< "&Review"
    Command2,   ///< "Proo&f"
    Command3,   ///< "Nor&mal", "&Matrices"
    Command4,   ///< "&Ditto"
    Command5,   ///< "&Abort", "&Next Q", or the previous activity
    Command6,   ///< "&SEGMENT"
    Command7,   ///< "E&PISODE", "Scr&ap"
    Command8,   ///< "&Last"
    Command9,   ///< "&Clock"
    Command10,  ///< "&End Class"
  };
  static constexpr std::size_t kCommands = 10;

  QuestionEntry(const Services& services, LiveObservation& live, const SessionClocks& liveClocks);

  // What the form shows.
  const std::string& Question() const;
  const EntryFields& Fields() const;
  /// "Question #3:", the number that the next question gets; "Question #3: (2 is empty)" where the
  /// one before it has no text, which a key too many has stored.
  std::string FrameCaption() const;
  std::string_view Caption3() const;
  std::string_view Caption5() const;
  std::string_view Caption7() const;
  bool Enabled(Command command) const;
  /// While it is asked, whether the episode was review, nothing else can be done.
  bool AsksReview() const { return asksReview_; }
  const SessionClocks& Clocks() const { return liveClocks_; }
  const OfftaskIndicator& Offtask() const { return offtask_; }
  /// What the key of undo or redo does: "brings question 7 back"; "" for nothing.
  std::string NextStep(Way way) const;
  std::size_t StepsTaken() const { return steps_.StepsTaken(); }
  std::optional<Focus::Target> TakeFocus() { return focus_.Take(); }

  /// The box of a field, and the field of a box; nothing for what is no field.
  static Control BoxOf(Dimension field);
  static std::optional<Dimension> FieldOf(Control box);
  /// How a box that gets the focus holds it: one letter replaces a code, a text is added to.
  static Caret CaretOf(Control box);

  // Typing.
  void TypeQuestion(std::string_view text);
  void TypeField(Dimension field, std::string_view text);
  void EnterOrDown(Control box);
  void Up(Control box);
  /// Ctrl+N, and the end of the last field.
  void SaveQuestion();
  /// Undoes or redoes what has dropped a question or what was typed of one, or filed a copy.
  void TakeStep(Way way);

  OfftaskIndicator& Offtask() { return offtask_; }

  /// A click on a button; nothing happens while it is disabled.
  void Click(Command command);
  /// The answer to the review question: index 0 for "&Yes", 1 for "&No".
  void Command11_Click(int index);

  /// The form comes to the front.
  void Activate();
  /// The window is asked to close. True when it may.
  bool RequestClose();
  /// Once a second.
  void Tick();

 private:
  bool Coding() const;
  bool HasRoom(Command command) const;
  void Enable(Command command, bool enabled = true);
  void EnableCommands(bool enabled);
  EntryFields& Draft();
  void EnableForCoding();
  void BeginCoding();
  void AwaitNext();
  void AwaitQuestion();
  void AwaitFirstQuestion();
  void MoveTo(Control box);
  void StartCoding();
  bool StoreQuestion(const questionInfo& question);
  bool DittoQuestion();
  void Record(QuestionStep step = {});
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
  const SessionClocks& liveClocks_;
  ClassSteps steps_;
  GuardedTick tick_;

  std::array<bool, kCommands> enabled_{};
  int offeredActivity_ = kNoActivity;  ///< the activity that Command5 returns to
  bool asksReview_ = false;
  bool editorOpen_ = false;  ///< the question editor has taken the form's place
  OfftaskIndicator offtask_;
  Focus focus_;
};

}  // namespace orvex
