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

/// Corrects the structure and the coding of an observation after class. Everything is changed in
/// the program's episodes; the file changes when it is saved. Episodes and segments are counted
/// from 1.
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
  /// True for a segment of the current episode that has been cut.
  bool IsCut(int segment) const;

  // Showing. What the user selects comes with Select...; a click on a row shows it as well.
  void SelectEpisodes(Positions episodes);
  void SelectSegments(Positions segments);
  void ShowEpisode(int episode);
  void ShowSegment(int segment);
  /// The question editor or a report gives way to the window again. What was edited there is one
  /// step to undo.
  void Activate();

  // Typing. What is typed into one box without leaving it is undone at once.
  void TypeDescription(std::string_view text);
  void TypeAbout(std::string_view text);
  void TypeSegmentDuration(std::string_view text);
  void LeaveBox();

  // Coding the current segment, by the position in a list or pair (see orvex::Recode).
  void ChooseActivity(int position);
  void Recode(SubCode code, int position);

  // Structure. The user is asked what there is to ask, and told what does not fit into the file.
  void SplitSegment();
  void MergeSegments();
  void SplitEpisode();
  void MergeEpisodes();
  /// Move the selected segments to another episode, or to another place in their own.
  void MoveSegments(int toEpisode);
  void ReorderSegments(int target);

  /// Marks the selected segments as cut; they stay until they are pasted.
  void Cut();
  void CancelCut() { cut_.reset(); }
  void PasteOntoEpisode(int episode);
  void PasteBeforeSegment(int segment);

  /// What undo or redo would do: "Split segment". Empty for nothing.
  std::string StepName(Way way) const;
  void TakeStep(Way way);
  /// The editor's undo steps, for the question editor opened from here or from the statistics.
  QuestionSteps& Steps() { return *this; }

  /// Has the changes that are not saved kept as they are. To be called whenever something may have
  /// changed: nothing happens while all is as it was.
  void Keep();
  /// Waits until what is to be kept is on the disk, or has failed.
  void AwaitKept();
  /// True when the file is saved.
  bool Save();

  void EditQuestions();
  /// Shows what is not coded yet in the question editor.
  void Proof();
  void ShowReport(Screen report);
  /// Asks whether to save, and whether to go on with another file; otherwise the program ends. Also
  /// what the window is closed with: it goes when the program ends.
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
  std::size_t kept_ = 0;  ///< the changes of the history that have been handed over to be kept

  ListSelection selection_;
  /// What is typed as the current segment's duration, until its box is left.
  std::optional<std::string> typedDuration_;
  bool saysReview_ = false;  ///< the current episode's activity is followed by it
  std::optional<CutSegments> cut_;
};

}  // namespace orvex
