#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "desk/focus.h"
#include "desk/prompter.h"
#include "desk/services.h"
#include "model/limits.h"
#include "model/program.h"
#include "observe/observation_header.h"
#include "recovery/kept_class.h"
#include "running/running_class.h"

namespace orvex {

/// The class under observation: which episode and segment run, since when, and with which activity.
/// Every segment that ends becomes a record of its episode; the end of the class stores them all.
///
/// The operations named after a button are what a click on it does.
class LiveObservation {
 public:
  /// The controls that the logic gives the focus to. An activity button is meant by its number.
  struct Control {
    enum class Kind { header, description, activity, survey };
    Kind kind;
    HeaderBox box = HeaderBox::initials;
    int activity = 0;

    bool operator==(const Control&) const = default;
  };
  using Focus = FocusWish<Control>;

  /// Starts episode 1, segment 1 now. The log is open.
  explicit LiveObservation(const Services& services);
  /// Goes on with a class whose observation is in memory. The log is open, unless the class is
  /// stored.
  LiveObservation(const Services& services, RunningClass running);
  LiveObservation(const LiveObservation&) = delete;
  LiveObservation& operator=(const LiveObservation&) = delete;
  /// Shows the forms that belong to the running segment.
  void ShowForms();

  const RunningClass& Running() const { return run_; }
  /// Has the class kept as it is. To be called whenever something may have changed, and now and
  /// then: nothing happens while all is as it was.
  void Keep();

  // What runs.
  int CurEpisode() const { return run_.curEpisode; }
  int CurSegment() const { return run_.curSegment; }
  float EpisodeStart() const { return run_.episodeStart; }
  float SegmentStart() const { return run_.segmentStart; }
  Episode& CurrentEpisode();
  const Episode& CurrentEpisode() const;
  std::vector<questionInfo>& CurQuestions() { return CurrentEpisode().questions; }
  const std::vector<questionInfo>& CurQuestions() const { return CurrentEpisode().questions; }
  /// The activities of the running segment and of the one before the last choice.
  int CurActivity() const { return run_.curActivity; }
  int PrevActivity() const { return run_.prevActivity; }
  /// The activity whose button is selected; kNoActivity while the segment has none.
  int SelectedActivity() const { return run_.ChosenActivity(); }
  const OfftaskSchedule& Schedule() const { return run_.schedule; }
  const std::string& FieldNotes() const { return run_.fieldNotes; }
  /// Something has been typed in the dialog of the field notes, and it has not been closed.
  bool AreNotesOpen() const { return run_.draftNotes.has_value(); }
  /// What the observer has filled in of the survey so far.
  Survey& SurveyAnswers() { return run_.survey; }
  QuestionDraft& Draft() { return run_.draft; }
  const QuestionDraft& Draft() const { return run_.draft; }
  /// The way back from what was done to questions.
  QuestionHistory& History() { return run_.history; }
  const QuestionHistory& History() const { return run_.history; }
  /// True when the running question/answer has brought questions already.
  bool SegmentHasQuestions() const { return CurrentEpisode().nQAs() > run_.questionsBefore; }
  bool NothingEntered() const { return run_.nothingEntered; }
  bool ClassStored() const { return services_.program.QuitRequested; }
  /// The observer can fill the survey in, and leave.
  bool AwaitsSurvey() const { return run_.awaitsSurvey; }

  // What the form shows.
  const std::string& Caption() const { return caption_; }
  const std::string& Description() const { return CurrentEpisode().Descript; }
  const ObservationHeader& Header() const { return header_; }
  const SegmentCoding& Coding() const { return run_.coding; }
  /// True when the segment has an activity and the episode a description: a new segment or episode
  /// can start.
  bool CanDivide() const;
  /// CanDivide, and the number of the next segment or episode still fits its 16 bits.
  bool CanStartSegment() const { return CanDivide() && RoomForSegment(); }
  bool CanStartEpisode() const { return CanDivide() && RoomForEpisode(); }
  bool RoomForSegment() const { return run_.curSegment < kMostNumber; }
  bool RoomForEpisode() const { return run_.curEpisode < kMostNumber; }
  bool ProofVisible() const;
  bool CanOpenSurvey() const { return AwaitsSurvey() || CanDivide(); }
  bool CanEndClass() const;
  std::string EndCaption() const { return AwaitsSurvey() ? "E&xit" : "&End Class"; }
  bool ConversionVisible() const;
  std::string ConversionCaption() const;
  std::optional<Focus::Target> TakeFocus() { return focus_.Take(); }

  // Typing and choosing.
  void TypeHeader(HeaderBox box, const std::string& text) { header_.Type(box, text); }
  void EnterHeader(HeaderBox box) { header_.Enter(box); }
  /// False when the box must keep the focus.
  bool LeaveHeader(HeaderBox box);
  void HeaderEnterOrDown(HeaderBox box);
  void HeaderUp(HeaderBox box);
  void TypeDescription(const std::string& text);
  /// A key was typed in the description: the activities become visible.
  void KeyInDescription();
  void EnterDescription() { savedDescription_ = Description(); }
  void LeaveDescription();
  void TypeAbout(const std::string& text);
  /// A click on an activity button; `activity` is 1 to 17.
  void ChooseActivity(int activity);
  void ChooseCode(SubCode of, std::int16_t code) { run_.coding.Chosen(of) = code; }
  void TypeCode(SubCode of, const std::string& text) { run_.coding.Typed(of) = text; }

  // The buttons.
  void cmdStartNewSg_Click();
  void cmdStartNewQASg_Click();
  void cmdStartNewEp_Click();
  void cmdBailout_Click();
  void Command9_Click();
  void cmdReview_Click();
  void cmdProof_Click();
  void Command7_Click();
  void cmdFieldNote_Click();
  /// "&Clock": asks how long ago the segment began, and moves both start times accordingly.
  void Command1_Click();
  void cmdQuit_Click();
  /// The window is asked to close. True when it may.
  bool RequestClose();

  // Called from the question entry as well.
  void StartNewSeg();
  void StartNewEpi();
  /// Gives the running segment up as question/answer: it takes its previous activity back and waits
  /// for a new choice.
  void AbandonQuestionAnswer();
  /// Asks for the off-task estimate that is pending; made or skipped, it is pending no longer.
  void TakeEstimate();

  /// The 500 ms timer, while the off-task schedule runs.
  void OfftaskTick();
  /// The 200 ms timer: the conversion button, blank since its last click, shows its caption again.
  void UpdateActivityControls() { conversionBlank_ = false; }

 private:
  void FocusDescription();
  void FocusCurActivity();
  void EndSeg();
  void EndEpisode();
  void CloseEpisodeForSegment();
  void StartNewEpi2();
  void RevertNewEpisode();
  void AppendEpisode();
  void StoreOfftaskMean();
  void LogOfftaskMean();
  bool SetActivity(int activity);
  void ApplyActivity(int activity);
  void StartSchedule();
  void CatchUpSchedule();
  void AskEstimate();
  void RecordEstimate(const OfftaskPrompt& estimate, const std::string& studentsBefore);
  bool EndClass();
  bool HeaderNamesFiles();
  bool SaveClass();
  void EndWithLog();
  void LeaveWithSurvey();
  bool LeaveWithNotes();
  float Now() const;

  Services services_;
  EpisodeList& episodes_;
  RunningClass run_;
  ObservationHeader header_;
  ClassKeeper keeper_;
  std::string caption_;
  bool conversionBlank_ = false;
  Focus focus_;
  std::string savedDescription_;
};

}  // namespace orvex
