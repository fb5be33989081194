#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/program.h"
#include "model/prompter.h"
#include "observe/focus.h"
#include "observe/observation_header.h"
#include "observe/offtask_schedule.h"
#include "observe/segment_coding.h"
#include "store/services.h"
#include "survey/survey.h"

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

  /// Kinds of off-task estimates: those of question/answer, and none.
  static constexpr int kQuestionAnswerEstimates = 5;
  static constexpr int kNoEstimates = 6;

  /// The numbers of episodes, segments and questions are stored in 16 bits.
  static constexpr int kMost = 32767;

  /// Starts episode 1, segment 1 now. The log is open.
  explicit LiveObservation(const Services& services);

  // What runs.
  int CurEpisode() const { return curEpisode_; }
  int CurSegment() const { return curSegment_; }
  float EpisodeStart() const { return episodeStart_; }
  float SegmentStart() const { return segmentStart_; }
  Episode& CurrentEpisode();
  const Episode& CurrentEpisode() const;
  std::vector<questionInfo>& CurQuestions() { return CurrentEpisode().questions; }
  const std::vector<questionInfo>& CurQuestions() const { return CurrentEpisode().questions; }
  /// The activity numbers of the running segment and of the one before the last choice, as decimal
  /// text; "" when none is chosen.
  const std::string& CurActivity() const { return curActivity_; }
  const std::string& PrevActivity() const { return prevActivity_; }
  /// The number of the selected activity button; 0 while the segment has no activity.
  int SelectedActivity() const;
  /// 0: no activity chosen in this segment yet; -1: its question/answer was abandoned; else the
  /// kind of off-task estimates that the activity takes.
  int EstimateKind() const { return estimateKind_; }
  const OfftaskSchedule& Schedule() const { return schedule_; }
  const std::string& FieldNotes() const { return fieldNotes_; }
  /// What the observer has filled in of the survey so far.
  Survey& SurveyAnswers() { return survey_; }
  /// No key has been typed in a description: there is nothing to store yet.
  bool NothingEntered() const { return nothingEntered_; }
  bool ClassStored() const { return services_.program.QuitRequested; }
  /// The class is stored and only its survey is not: the observer can fill it in, and leave.
  bool AwaitsSurvey() const { return awaitsSurvey_; }

  // What the form shows.
  const std::string& Caption() const { return caption_; }
  const std::string& Description() const { return CurrentEpisode().Descript; }
  const ObservationHeader& Header() const { return header_; }
  const SegmentCoding& Coding() const { return coding_; }
  /// True when the segment has an activity and the episode a description: a new segment or episode
  /// can start.
  bool CanDivide() const;
  /// CanDivide, and the number of the next segment or episode still fits its 16 bits.
  bool CanStartSegment() const { return CanDivide() && RoomForSegment(); }
  bool CanStartEpisode() const { return CanDivide() && RoomForEpisode(); }
  bool RoomForSegment() const { return curSegment_ < kMost; }
  bool RoomForEpisode() const { return curEpisode_ < kMost; }
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
  void ChooseGroupSolo(std::int16_t code) { coding_.grpSolo = code; }
  void ChoosePreparation(std::int16_t code) { coding_.prep = code; }
  void ChoosePresentationOrg(std::int16_t code) { coding_.presentationOrg = code; }
  void ChooseWritingKind(std::int16_t code) { coding_.writingKind = code; }
  void ChooseGroupType(std::int16_t code) { coding_.groupType = code; }
  void TypeSource(const std::string& text) { coding_.source = text; }
  void TypeCognitiveLevel(const std::string& text) { coding_.cognitiveLevel = text; }
  void TypeSeatworkOrg(const std::string& text) { coding_.seatworkOrg = text; }

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
  /// The caption of the button of `CurActivity`, as stored.
  std::string_view CurActivityCaption() const;
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
  void AskEstimate();
  void RecordEstimate(const OfftaskPrompt& estimate, const std::string& studentsBefore);
  bool EndClass();
  bool HeaderNamesFiles();
  bool SaveClass();
  void EndWithLog();
  void LeaveWithSurvey();
  float Now() const;

  Services services_;
  EpisodeList& episodes_;
  ObservationHeader header_;
  SegmentCoding coding_;
  std::string caption_;
  bool conversionBlank_ = false;
  Focus focus_;

  int curEpisode_ = 1;
  int curSegment_ = 1;
  float episodeStart_;
  float segmentStart_;
  float prevEpisodeStart_ = 0;
  std::vector<float> offtaskEstimates_;
  std::vector<float> prevOfftaskEstimates_;
  std::string curActivity_;
  std::string prevActivity_;
  std::string episodeActivity_;
  int estimateKind_ = 0;
  bool freshSegment_ = false;
  /// Set by "&Q/A", cleared by "&SEGMENT": segments end without an estimate.
  bool skipEstimate_ = false;
  OfftaskSchedule schedule_;
  /// The estimate dialog as it was left by "&Skip", and the number of students when it was loaded.
  struct EstimateDialog {
    OfftaskPrompt prompt;
    std::string studentsBefore;
  };
  std::optional<EstimateDialog> estimateDialog_;
  std::string fieldNotes_;
  Survey survey_;
  bool awaitsSurvey_ = false;
  bool nothingEntered_ = true;
  std::string savedDescription_;
};

}  // namespace orvex
