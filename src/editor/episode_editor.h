#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/screens.h"
#include "desk/services.h"
#include "editor/edit_history.h"
#include "editor/edited_file.h"
#include "editor/observation_edits.h"
#include "editor/segment_coding_view.h"
#include "model/episode.h"
#include "questions/question_steps.h"

namespace orvex {

/// Corrects the structure and the coding of an observation after class. Everything is changed in
/// the program's episodes; the file changes when it is saved. Episodes and segments are counted
/// from 1.
class EpisodeEditor : public QuestionSteps {
 public:
  EpisodeEditor(const Services& services, OpenedFile opened);

  // The window.
  std::string Caption() const;  ///< "Orvex 4.10 Episode Editor"
  bool Modified() const { return !history_.IsSaved(); }
  std::string ObserverText() const;  ///< `Label7`
  std::string DateText() const;      ///< `Label11`
  std::string TotalText() const;     ///< `Label12`
  std::string FileText() const;      ///< `Label8`
  const EditedFile& File() const { return file_; }
  /// Has the changes that are not saved kept as they are. To be called whenever something may have
  /// changed: nothing happens while all is as it was.
  void Keep();
  /// Why the changes cannot be kept; empty while all is well.
  std::string KeepTrouble() const { return keeper_ ? keeper_->Trouble() : ""; }
  /// Waits until what is to be kept is on the disk, or has failed.
  void AwaitKept();

  // The lists.
  std::vector<std::string> EpisodeRows() const;
  std::vector<std::string> SegmentRows() const;
  const Positions& SelectedEpisodes() const { return selectedEpisodes_; }
  const Positions& SelectedSegments() const { return selectedSegments_; }
  int CurrentEpisode() const { return currentEpisode_; }
  int CurrentSegment() const { return currentSegment_; }

  // What is shown of the current episode and its current segment.
  const std::string& Description() const;  ///< `txtEpisodeName`
  /// `Label10`, where "&&" shows as one ampersand; empty for an episode without segments.
  std::string ActivityText() const;
  std::string SpellsText() const;                                          ///< `lblDSpells`
  std::string DurationText() const;                                        ///< `Label1`
  std::string SegmentCountText() const;                                    ///< `Label2`
  std::string SegmentDurationLabel() const;                                ///< `Label13`
  const std::string& SegmentDuration() const { return segmentDuration_; }  ///< `Text1`
  SegmentCodingView Coding() const;

  // What can be done.
  bool HasEpisode() const { return Shown() != nullptr; }
  bool HasSegment() const { return ShownSegment() != nullptr; }
  bool CanSplitSegment() const;  ///< `cmdSplitSg`
  /// Which segment that splits: "Splits segment 2. Game"; empty for none.
  std::string SplitSegmentHint() const;
  bool CanMergeSegments() const;  ///< `cmdMergeSg`
  bool CanSplitEpisode() const;   ///< `cmdSplitEp`
  bool CanMergeEpisodes() const;  ///< `cmdMergeEp`
  bool HasQuestions() const;      ///< `Command3`, `Command6`

  // Showing. The user's selections come with SetSelected..., the click on a row with GetEpisode and
  // ShowSegment; SelectEpisode and SelectSegment do both for one row.
  void SetSelectedEpisodes(Positions selected);
  void SetSelectedSegments(Positions selected);
  void GetEpisode(int k);
  void SelectEpisode(int k);
  void ShowSegment(int j);
  void SelectSegment(int j);
  void UpdateCmdButtonStatus() { reviewShown_ = false; }
  /// The question editor or a report gives way to the window again. What was edited there is one
  /// step to undo.
  void Activate();

  // Typing. What is typed into one box without leaving it is undone at once.
  void TypeDescription(std::string_view text);
  void TypeAbout(std::string_view text);
  void TypeSegmentDuration(std::string_view text);
  /// True for the keys that the box of the duration takes.
  static bool IsDurationKey(char32_t key) { return key >= U'0' && key <= U'9'; }
  /// A box has lost the focus.
  void LeaveBox();

  // Coding the current segment, by position in the list or pair; SegmentCodingView::kNoChoice for
  // none. What its activity does not show is not changed.
  void ChooseActivity(int position);
  void ChooseSubCategory(int position);
  void ChooseSource(int position);
  void ChooseCognitiveLevel(int position);
  void ChooseSeatOrganization(int position);
  void ChooseGroup(int position);
  void ChooseOrganization(int position);
  void ChoosePreparation(int position);

  // Structure.
  void cmdSplitSg_Click();
  void cmdMergeSg_Click();
  void cmdSplitEp_Click();
  void cmdMergeEp_Click();
  /// The selected segments are dropped on row `k` or `j` of a list.
  void DropOnEpisode(int k);
  void DropOnSegment(int j);

  /// Marks the selected segments as cut; they stay until they are pasted.
  void Cut();
  void CancelCut() { cut_.reset(); }
  bool CanCut() const { return !selectedSegments_.empty(); }
  bool CanPaste() const { return cut_.has_value(); }
  /// True for a segment of the current episode that has been cut.
  bool IsCut(int j) const;
  void PasteOntoEpisode(int k);
  void PasteBeforeSegment(int j);

  /// What undo and redo would do: "Split segment". Empty for nothing.
  std::string UndoName() const;
  std::string RedoName() const;
  void Undo();
  void Redo();

  // The button row.
  /// `Command4`. True when the file is saved.
  bool Save();
  void EditQuestions();  ///< `Command1`
  void Proof();          ///< `Command7`
  // The question editor, opened from here or from the statistics, works on the same steps.
  void RecordQuestionChange(const QuestionChange& change) override;
  void EndTyping() override { LeaveBox(); }
  std::string NextQuestionStep(Way way) const override;
  std::optional<QuestionPlace> TakeQuestionStep(Way way) override;
  std::size_t StepsTaken() const override { return history_.Steps(); }
  void ShowTimeSummary();  ///< `Command2`
  void ShowStatistics();   ///< `Command3`
  void ShowPlot();         ///< `Command6`
  void Quit();             ///< `cmdQuit`
  /// The window is asked to close: it goes when the program ends.
  void RequestClose() { Quit(); }

 private:
  struct CutSegments {
    int episode;
    Positions segments;
  };

  EpisodeList& Episodes() const;
  Episode* Shown() const;
  SegmentData* ShownSegment() const;

  void ShowReport(Screen report);
  void Load(OpenedFile opened);
  void OpenAnother();
  void Forget();

  void FillEpisodeList() { selectedEpisodes_.clear(); }
  void FillSegmentList();
  void ShowDuration();
  void ShowEpisodes(Place place);
  Place ShownPlace() const { return {currentEpisode_, currentSegment_}; }

  template <typename Edit>
  std::optional<Place> TryEdit(Edit edit);
  template <typename Change>
  void Recode(const char* name, bool shown, Change change);
  void RecordTyping(const char* name);
  void RecordOutsideChanges();
  const EditStep* NextOfQuestions(Way way) const;
  enum class Refill { segments, episodes };
  void Restructured(const char* name, const std::optional<Place>& next, Refill refill);

  Services services_;
  EditedFile file_;
  EditHistory history_;
  std::unique_ptr<FileKeeper> keeper_;
  std::size_t kept_ = 0;  ///< the changes of the history that have been handed to the keeper

  Positions selectedEpisodes_;
  Positions selectedSegments_;
  int currentEpisode_ = -1;
  int currentSegment_ = 1;
  std::string segmentDuration_;
  bool reviewShown_ = false;  ///< the episode's label says whether it was review
  std::optional<CutSegments> cut_;
};

}  // namespace orvex
