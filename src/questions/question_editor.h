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

/// How the question editor starts.
struct QuestionEditorStart {
  EditorCaller caller = EditorCaller::liveObservation;
  bool proofMode = false;
  /// The episode to start with, for the episode editor and the statistics. A class in progress
  /// starts with its last episode, and proof mode with the gap found.
  int episode = 1;
};

/// What the editor shows of the selected episode and its current question. Without a question, the
/// question's boxes are empty.
struct QuestionView {
  std::string description;  ///< of the episode
  std::string caption;      ///< "Question #3 of 5:"
  std::string question;
  std::string respondName;
  std::string segment;
  bool canStepUp = false;  ///< whether the segment's number can go up
  bool canStepDown = false;
  std::string_view heading;  ///< above the last codes
  bool hasHeading = false;   ///< whether those codes are asked for
  bool isNormal = false;     ///< whether it is a normal question
};

/// What the editor shows of a dimension of the current question.
struct FrameView {
  bool visible = false;
  std::string_view caption;
  int option = -1;  ///< the option chosen; -1 for none
};

/// Corrects the questions of an observation. It shows one question and its place in the list of its
/// episode. Changes go straight to the episode, so there is nothing to save here. Undo and redo are
/// up to the owner of the observation.
class QuestionEditor {
 public:
  /// The controls that can be given the focus. `gap` means the options of the first dimension that
  /// the current question lacks.
  enum class Control { question, respondName, insertAfter, gap };
  using Focus = FocusWish<Control>;

  enum class Command {
    insertBefore,
    insertAfter,
    drop,
    ditto,       ///< copies the coding of the question before
    makeNormal,  ///< codes the question as normal
    renumber,    ///< numbers the rows in their present order
    nextGap,     ///< in proof mode, shows the next question that lacks something
    leave,
    editFieldNotes,
  };

  /// `live` and `liveClocks` belong to the class in progress; null for other callers.
  QuestionEditor(const Services& services, const QuestionEditorStart& start, LiveObservation* live,
                 const SessionClocks* liveClocks);

  /// Sets who keeps the undo steps. Not needed during a class, which keeps them itself.
  void KeepStepsWith(QuestionSteps& steps) { steps_ = &steps; }

  // What the form shows.
  std::string Title() const;
  bool ProofMode() const { return start_.proofMode; }
  int EpisodeCount() const;
  int SelEp() const { return selEp_; }
  int QuestionCount() const;
  /// The position of the current question, from 1; 0 if the episode has none.
  int CurQ() const { return curQ_; }
  /// The row of the question at position `i`: "3. What did the author mean".
  std::string RowText(int i) const;
  const std::string& QuestionText(int i) const;
  QuestionView View() const;
  FrameView Frame(Dimension dimension) const;
  /// In proof mode, the first dimension that the current question lacks.
  std::optional<Dimension> FirstGap() const;
  bool HasEpisode() const { return selEp_ >= 1; }
  /// True if there is a current question, so that the controls that change it are enabled.
  bool CanEdit() const { return curQ_ >= 1; }
  bool Enabled(Command command) const;
  /// What undo or redo would do, such as "brings question 7 back"; "" if there is no step.
  std::string NextStep(Way way) const;
  /// True if typing in the description can be undone here.
  bool KeepsDescription() const { return steps_ && !live_; }

  /// The clocks and the off-task prompt of the class in progress; null without one.
  const SessionClocks* Clocks() const { return liveClocks_; }
  OfftaskIndicator* Offtask() { return offtask_ ? &*offtask_ : nullptr; }

  std::optional<Focus::Target> TakeFocus() { return focus_.Take(); }
  /// True once after each time that the name is to be selected for overtyping.
  bool TakeNameSelection();

  // Choosing and typing.
  /// Shows an episode; reloads it if it is already shown.
  void ChooseEpisode(int number);
  void ChooseQuestion(int i);
  void ChooseOption(Dimension dimension, int option);
  void TypeQuestion(std::string_view text);
  void TypeRespondName(std::string_view text);
  void TypeSegment(std::string_view text);
  void StepSegment(int steps);
  /// Leaves the segment number's box, which then shows the stored number.
  void LeaveSegment();
  void TypeDescription(std::string_view text);
  void EnterDescription();
  void LeaveDescription();
  /// Leaves any box.
  void LeaveBox();

  /// Does nothing while the command is disabled.
  void Do(Command command);
  /// Undoes or redoes a change and shows where it was made.
  void TakeStep(Way way);
  /// Every 500 ms in proof mode: makes the captions of uncoded dimensions blink.
  void BlinkTick();
  /// Call this once a second during a class.
  void ClockTick();

 private:
  /// The current episode, which needs HasEpisode, and question, which needs CanEdit.
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
  /// The current question was just inserted; its caption leaves out the count.
  bool inserted_ = false;
  std::string segmentText_;
  std::string oldDescript_;
  bool captionPhase_ = false;
  bool nameSelection_ = false;
  Focus focus_;
};

}  // namespace orvex
