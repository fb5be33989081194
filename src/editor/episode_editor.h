#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/screens.h"
#include "desk/services.h"
#include "editor/edit_history.h"
#include "editor/edited_file.h"
#include "editor/episode_view.h"
#include "editor/load_episodes.h"
#include "editor/observation_edits.h"
#include "editor/segment_coding_view.h"
#include "model/episode.h"
#include "model/segment_data.h"
#include "model/texts.h"
#include "questions/question_steps.h"

namespace orvex {

/// Corrects the structure and the coding of an observation after class. Edits change the program's
/// episodes; the file changes only when it is saved. Episodes and segments are counted from 1.
class EpisodeEditor : private QuestionSteps {
 public:
  EpisodeEditor(const Services& services, LoadedEpisodes loaded);

  // What is shown.
  const EditedFile& File() const { return file_; }
  bool Modified() const { return !history_.IsSaved(); }
  std::vector<std::string> EpisodeRows() const;
  std::vector<std::string> SegmentRows() const;
  const ListSelection& Selection() const { return selection_; }
  int CurrentEpisode() const { return selection_.episode; }
  EpisodeView View() const;
  SegmentCodingView Coding() const;
  PossibleEdits Possible() const;
  /// True if this segment of the current episode has been cut.
  bool IsCut(int segment) const;

  // Showing. Select... takes the rows that the user selected; a click on a row also shows it.
  void SelectEpisodes(Positions episodes);
  void SelectSegments(Positions segments);
  void ShowEpisode(int episode);
  void ShowSegment(int segment);
  /// True if this question of `episode` is there and reads `text`.
  bool HasQuestion(int episode, int question, std::string_view text) const;
  /// Call this when the window returns from the question editor or a report. Edits made there that
  /// are not yet recorded become one undo step.
  void Activate();
  /// True once the question editor or a report has taken the editor's place.
  bool HasBeenLeft() const { return hasBeenLeft_; }

  // Typing. Everything typed into a box before leaving it is one undo step.
  void TypeDescription(std::string_view text);
  void TypeAbout(std::string_view text);
  void TypeSegmentDuration(std::string_view text);
  void LeaveBox();

  // Coding the current segment by a position in a list or pair, from 0 (see orvex::Recode).
  void ChooseActivity(int position);
  void Recode(SubCode code, int position);

  // Structure. These ask the user as needed, and say if the result would not fit into the file.
  void SplitSegment();
  void MergeSegments();
  void SplitEpisode();
  void MergeEpisodes();
  /// Move the selected segments to another episode, or to another place in their own.
  void MoveSegments(int toEpisode);
  void ReorderSegments(int target);

  /// Marks the selected segments as cut. They stay in place until they are pasted.
  void Cut();
  void CancelCut() { cut_.reset(); }
  void PasteOntoEpisode(int episode);
  void PasteBeforeSegment(int segment);

  /// The step that undo or redo would take, such as "Split segment"; empty if there is none.
  std::string StepName(Way way) const;
  void TakeStep(Way way);
  /// The editor's undo steps, shared with a question editor opened from here or the statistics.
  QuestionSteps& Steps() { return *this; }

  /// Has the unsaved changes kept. Call it whenever something may have changed; if nothing has, it
  /// only retries what could not be kept.
  void Keep();
  /// Waits until the changes are kept on the disk, or keeping them has failed.
  void AwaitKept();
  /// Returns true if the file has been saved.
  bool Save();

  void EditQuestions();
  /// Opens the question editor at the first question that is not fully coded.
  void Proof();
  void ShowReport(Screen report);
  /// Asks whether to save, and whether to go on with another file; if not, ends the program.
  /// What was opened from the study leads back there instead. Closing the window does this too, so
  /// the window stays until then.
  void Quit();

 private:
  struct CutSegments {
    int episode;
    Positions segments;
  };

  void RecordQuestionChange(const QuestionChange& change) override;
  void EndTyping() override { LeaveBox(); }
  std::string NextQuestionStep(Way way) const override;
  std::optional<QuestionPlace> TakeQuestionStep(Way way) override;
  std::size_t StepsTaken() const override { return history_.Steps(); }

  EpisodeList& Episodes() const;
  Episode* FindEpisode() const;
  SegmentData* FindSegment() const;

  void Start(EpisodeList episodes, bool repaired);
  void LoadAnother();
  void Forget();

  void SelectNoEpisode();
  void SelectNoSegment();
  void SelectEpisode(int episode);
  void SelectSegment(int segment);
  void ShowPlace(Place place);
  void GiveWay();

  template <typename Edit>
  std::optional<Place> TryEdit(Edit edit);
  enum class Refill { segments, episodes };
  void Restructured(Text name, const std::optional<Place>& next, Refill refill);
  enum class Typing { none, goesOn };
  void RecordHere(Text name, Typing typing = Typing::none);
  void RecordOutsideChanges();
  const EditStep* NextStep(Way way) const;
  const EditStep* NextStepOfQuestions(Way way) const;

  Services services_;
  EditedFile file_;
  EditHistory history_;
  std::size_t kept_ = 0;  ///< `history_.Changes()` at the last `Keep`

  ListSelection selection_;
  /// What the user is typing as the segment's duration; reset when the box is left.
  std::optional<std::string> typedDuration_;
  bool saysReview_ = false;  ///< the shown activity also says if the episode was review
  std::optional<CutSegments> cut_;
  bool hasBeenLeft_ = false;
};

}  // namespace orvex
