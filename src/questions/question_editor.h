#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "desk/focus.h"
#include "desk/guarded_tick.h"
#include "desk/screens.h"
#include "desk/services.h"
#include "model/episode.h"
#include "observe/offtask_indicator.h"
#include "questions/class_steps.h"
#include "questions/question_steps.h"
#include "questions/row_numbers.h"

namespace orvex {

class LiveObservation;
class SessionClocks;

/// What whoever opens the question editor says.
struct EditorOpening {
  EditorCaller caller = EditorCaller::liveObservation;
  bool proofMode = false;
  /// The episode to begin with, for the episode editor and the statistics. A class in progress
  /// begins with its last one, proof mode with the fault found.
  int episode = 1;
};

/// Corrects the questions of an observation: one is shown, with its place in the list of its
/// episode. Every change is made in the episode itself; there is nothing to save. The steps back
/// are kept by whoever keeps the observation.
class QuestionEditor {
 public:
  /// The controls that the logic gives the focus to; `gap` are the options of the first dimension
  /// that the question shown lacks.
  enum class Control { txtQuestion, txtRespondName, cmdInsA, gap };
  using Focus = FocusWish<Control>;

  enum class Command {
    cmdInsB,    ///< "Insert B"
    cmdInsA,    ///< "&Insert A"
    cmdDrop,    ///< "Dro&p"
    cmdDitto,   ///< "&Ditto"
    cmdNormal,  ///< "&Normal"
    cmdReseq,   ///< "Reseq"
    cmdNxt,     ///< "N&ext"
    cmdReturn,  ///< "&Return"
    Command1,   ///< "Fieldnotes"
  };

  /// The spin control's highest segment number.
  static constexpr int kMostSegment = 32767;

  /// `live` and `liveClocks` are those of the class in progress; null for the other callers.
  QuestionEditor(const Services& services, const EditorOpening& opening, LiveObservation* live,
                 const SessionClocks* liveClocks);

  /// Who keeps the steps back; during a class, the class does.
  void KeepStepsWith(QuestionSteps& steps) { steps_ = &steps; }

  // What the form shows.
  std::string Title() const;
  bool ProofMode() const { return opening_.proofMode; }
  int EpisodeCount() const;
  int SelEp() const { return selEp_; }
  const std::string& Description() const;
  int QuestionCount() const;
  /// The position of the question shown, from 1; 0 when the episode has none.
  int CurQ() const { return curQ_; }
  /// The row of the question at position `i`: "3. What did the author mean".
  std::string RowText(int i) const;
  const std::string& QuestionText(int i) const;
  /// "Question #3 of 5:" (`Label4`).
  std::string QuestionCaption() const;
  /// What the boxes of the question shown hold; all of them are empty without one.
  const std::string& Question() const;
  const std::string& RespondName() const;
  const std::string& SegmentText() const { return segmentText_; }
  bool CanStepSegment(int steps) const;
  /// The option that shows the code of `dimension`; -1 for none.
  int SelectedOption(Dimension dimension) const;
  /// In proof mode, the first dimension that the question shown lacks.
  std::optional<Dimension> FirstGap() const;
  bool FrameVisible(Dimension dimension) const;
  std::string_view FrameCaption(Dimension dimension) const;
  /// The heading over the last codes (`Label5`).
  bool HeadingVisible() const { return FrameVisible(Dimension::elaborated); }
  std::string_view Heading() const;
  /// "NORMAL QUESTION" (`Label2`).
  bool NormalVisible() const;
  bool HasEpisode() const { return selEp_ >= 1; }
  /// A question is shown, and everything that changes it is enabled.
  bool CanEdit() const { return curQ_ >= 1; }
  bool Enabled(Command command) const;
  /// What the key of undo or redo does: "brings question 7 back"; "" for nothing.
  std::string NextStep(Way way) const;
  /// True when what is typed in the description is among the steps.
  bool KeepsDescription() const { return steps_ && !live_; }

  /// The clocks and the off-task prompt of the class in progress; null without one.
  const SessionClocks* Clocks() const { return liveClocks_; }
  OfftaskIndicator* Offtask() { return offtask_ ? &*offtask_ : nullptr; }

  std::optional<Focus::Target> TakeFocus() { return focus_.Take(); }
  /// True once after the name was offered for overtyping.
  bool TakeNameSelection();

  // Choosing and typing.
  /// Shows an episode, and loads it again when it is shown already.
  void ChooseEpisode(int number);
  void ClickRow(int i);
  void ClickOption(Dimension dimension, int option);
  void TypeQuestion(std::string_view text);
  void TypeRespondName(std::string_view text);
  void TypeSegment(std::string_view text);
  void StepSegment(int steps);
  /// The box of the segment number is left: it shows the number that is stored.
  void LeaveSegment();
  void TypeDescription(std::string_view text);
  void EnterDescription() { oldDescript_ = Description(); }
  void LeaveDescription();
  /// Any box is left.
  void LeaveBox();

  /// A click on a button; nothing happens while it is disabled.
  void Click(Command command);
  /// Undoes or redoes the last change, and shows the place where it was.
  void TakeStep(Way way);
  /// Shows the caller again and closes the form, by "&Return" as by the window's frame: the caller
  /// is hidden, and no form would be left.
  void Return();

  /// The 500 ms timer, in proof mode: the captions of uncoded dimensions blink.
  void BlinkTick();
  /// Once a second, during a class.
  void ClockTick();

 private:
  /// The episode and the question shown. Only while HasEpisode, and CanEdit.
  Episode& SelectedEpisode() const;
  questionInfo& Shown() const;
  bool SourceIs(std::string_view letter) const;

  std::size_t StepsTaken() const { return steps_ ? steps_->StepsTaken() : 0; }
  template <typename Change>
  void Revise(const char* name, bool typing, Change change);
  void Tell(QuestionChange change);
  Control EditStart() const;
  void ShowQuestion(int i);
  void ShowPlace(const QuestionPlace& place);
  void LayoutFrames();
  void UpdateEditState();
  void ShowSegment();
  void SetSegment(std::int16_t number);

  void InsertBefore();
  void InsertAfter();
  void Insert(int position, std::int16_t segment);
  void Drop();
  void Ditto();
  void Normal();
  void Reseq();
  void Next();
  void FocusGap();
  void FieldNotes();
  void ShowCaller();

  Services services_;
  EditorOpening opening_;
  LiveObservation* live_;
  const SessionClocks* liveClocks_;
  GuardedTick tick_;
  std::optional<OfftaskIndicator> offtask_;
  std::optional<ClassSteps> classSteps_;
  QuestionSteps* steps_ = nullptr;

  int selEp_ = 0;
  int curQ_ = 0;
  RowNumbers rowNumbers_;
  bool reseqEnabled_ = false;
  bool normalEnabled_ = false;
  /// The question shown has just been inserted: its caption does not say of how many.
  bool inserted_ = false;
  std::string segmentText_;
  std::string oldDescript_;
  bool captionPhase_ = false;
  bool nameSelection_ = false;
  Focus focus_;
};

}  // namespace orvex
