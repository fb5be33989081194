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
#include "model/texts.h"
#include "observe/offtask_indicator.h"
#include "questions/class_steps.h"
#include "questions/question_steps.h"
#include "questions/row_numbers.h"

namespace orvex {

class LiveObservation;
class SessionClocks;

/// How the question editor begins.
struct QuestionEditorStart {
  EditorCaller caller = EditorCaller::liveObservation;
  bool proofMode = false;
  /// The episode to begin with, for the episode editor and the statistics. A class in progress
  /// begins with its last one, proof mode with the fault found.
  int episode = 1;
};

/// What is shown of the selected episode and its current question; the boxes of the question are
/// empty without one.
struct QuestionView {
  std::string description;  ///< of the episode
  std::string caption;      ///< "Question #3 of 5:"
  std::string question;
  std::string respondName;
  std::string segment;
  bool canStepUp = false;  ///< the segment's number
  bool canStepDown = false;
  std::string_view heading;  ///< over the last codes
  bool hasHeading = false;   ///< these are asked for
  bool isNormal = false;     ///< the question is a normal one
};

/// What is shown of a dimension of the current question.
struct FrameView {
  bool visible = false;
  std::string_view caption;
  int option = -1;  ///< the one that shows the code; -1 for none
};

/// Corrects the questions of an observation: one is shown, with its place in the list of its
/// episode. Every change is made in the episode itself; there is nothing to save. The steps back
/// are kept by whoever keeps the observation.
class QuestionEditor {
 public:
  /// What the logic gives the focus to; `gap` are the options of the first dimension that the
  /// question shown lacks.
  enum class Control { question, respondName, insertAfter, gap };
  using Focus = FocusWish<Control>;

  enum class Command {
    insertBefore,
    insertAfter,
    drop,
    ditto,       ///< codes the question as the one before it is
    makeNormal,  ///< codes it as a normal question
    renumber,    ///< numbers the rows as the questions stand
    nextGap,     ///< in proof mode, goes on to the next question that lacks something
    leave,
    editFieldNotes,
  };

  /// `live` and `liveClocks` are those of the class in progress; null for the other callers.
  QuestionEditor(const Services& services, const QuestionEditorStart& start, LiveObservation* live,
                 const SessionClocks* liveClocks);

  /// Who keeps the steps back; during a class, the class does.
  void KeepStepsWith(QuestionSteps& steps) { steps_ = &steps; }

  // What the form shows.
  std::string Title() const;
  bool ProofMode() const { return start_.proofMode; }
  int EpisodeCount() const;
  int SelEp() const { return selEp_; }
  int QuestionCount() const;
  /// The position of the question shown, from 1; 0 when the episode has none.
  int CurQ() const { return curQ_; }
  /// The row of the question at position `i`: "3. What did the author mean".
  std::string RowText(int i) const;
  const std::string& QuestionText(int i) const;
  QuestionView View() const;
  FrameView Frame(Dimension dimension) const;
  /// In proof mode, the first dimension that the question shown lacks.
  std::optional<Dimension> FirstGap() const;
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
  void ChooseQuestion(int i);
  void ChooseOption(Dimension dimension, int option);
  void TypeQuestion(std::string_view text);
  void TypeRespondName(std::string_view text);
  void TypeSegment(std::string_view text);
  void StepSegment(int steps);
  /// The box of the segment number is left: it shows the number that is stored.
  void LeaveSegment();
  void TypeDescription(std::string_view text);
  void EnterDescription();
  void LeaveDescription();
  /// Any box is left.
  void LeaveBox();

  /// Nothing happens while the command is disabled.
  void Do(Command command);
  /// Undoes or redoes the last change, and shows the place where it was.
  void TakeStep(Way way);
  /// The 500 ms timer, in proof mode: the captions of uncoded dimensions blink.
  void BlinkTick();
  /// Once a second, during a class.
  void ClockTick();

 private:
  /// The episode and the question shown. Only while HasEpisode, and CanEdit.
  Episode& SelectedEpisode() const;
  questionInfo& CurrentQuestion() const;
  bool SourceIs(std::string_view letter) const;

  std::size_t StepsTaken() const { return steps_ ? steps_->StepsTaken() : 0; }
  template <typename Change>
  void Revise(Text name, bool typing, Change change);
  void Record(const QuestionChange& change);
  Control WhereToGoOn() const;
  void ShowQuestion(int i);
  void ShowPlace(const QuestionPlace& place);
  void LayoutFrames();
  void UpdateEditState();
  void ShowSegment();
  void SetSegment(std::int16_t number);

  void Insert(int position);
  void Drop();
  void Ditto();
  void MakeNormal();
  void ShowNextGap();
  void FocusGap();
  void EditFieldNotes();
  void Leave();
  Screen CallersScreen() const;

  Services services_;
  QuestionEditorStart start_;
  LiveObservation* live_;
  const SessionClocks* liveClocks_;
  GuardedTick tick_;
  std::optional<OfftaskIndicator> offtask_;
  std::optional<ClassSteps> classSteps_;
  QuestionSteps* steps_ = nullptr;

  int selEp_ = 0;
  int curQ_ = 0;
  RowNumbers rowNumbers_;
  bool canRenumber_ = false;
  bool canMakeNormal_ = false;
  /// The question shown has just been inserted: its caption does not say of how many.
  bool inserted_ = false;
  std::string segmentText_;
  std::string oldDescript_;
  bool captionPhase_ = false;
  bool nameSelection_ = false;
  Focus focus_;
};

}  // namespace orvex
