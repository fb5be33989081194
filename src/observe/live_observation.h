#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "desk/focus.h"
#include "desk/services.h"
#include "model/program.h"
#include "observe/live_estimates.h"
#include "observe/live_questions.h"
#include "observe/observation_header.h"
#include "recovery/kept_class.h"
#include "running/running_class.h"

namespace orvex {

/// The class under observation: asks the observer, logs, and lets the running class go on
/// accordingly. The end of the class stores it all.
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
  const Episode& CurrentEpisode() const { return episodes_.back(); }
  const ObservationHeader& Header() const { return header_; }
  LiveEstimates& Estimates() { return estimates_; }
  LiveQuestions& Questions() { return questions_; }
  const LiveQuestions& Questions() const { return questions_; }
  /// Has the class kept as it is. To be called whenever something may have changed, and now and
  /// then: nothing happens while all is as it was.
  void Keep();

  // What the form shows.
  const std::string& Caption() const { return caption_; }
  AllowedActions Allowed() const { return run_.Allowed(episodes_); }
  bool ClassStored() const { return services_.program.ClassStored; }
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
  void EnterDescription() { savedDescription_ = CurrentEpisode().Descript; }
  void LeaveDescription();
  void TypeAbout(const std::string& text);
  /// Chooses the activity of the segment. Another one than it has is asked about first.
  void ChooseActivity(int activity);
  void ChooseCode(SubCode of, std::int16_t code) { run_.coding.Chosen(of) = code; }
  void TypeCode(SubCode of, const std::string& text) { run_.coding.Typed(of) = text; }

  // Segments and episodes.
  /// Starts the next segment or episode once the observer has agreed.
  void AskToStartSegment();
  void AskToStartEpisode();
  void StartSegment();
  /// `wasReview` is what the observer says of the episode that ends, where that is asked.
  void StartEpisode(std::optional<bool> wasReview = std::nullopt);
  /// Starts a segment of question/answer.
  void StartQuestionAnswer();
  /// Gives the segment up as question/answer, for another activity.
  void AbandonQuestionAnswer();
  /// Makes an episode of the running segment, or a segment of the running episode.
  void Convert();
  /// Asks how long ago the segment began, and moves both start times accordingly.
  void CorrectTime();
  /// Ends the class or, once it is stored, leaves it.
  void EndClass();
  /// The window is asked to close. True when it may.
  bool RequestClose();

  // What has forms of its own.
  void OpenAbout();
  void ReviewQuestions();
  void ProofQuestions();
  void OpenSurvey();
  void EditFieldNotes();
  /// Takes what the observer has filled in of the survey.
  void FillSurvey(const Survey& answers) { run_.survey = answers; }

 private:
  float Now() const;
  void FocusDescription();
  void FocusCurActivity();
  void AskFinalEstimate();
  void LogSegmentEnd(float now);
  void LogEpisodeEnd(float now);
  void LogOfftaskMean();
  void ConvertToEpisode();
  void ConvertToSegment();
  void OpenQuestionEditor(bool proofMode);
  bool MayEnd();
  bool HeaderNamesFiles();
  bool StoreOrGoOn();

  Services services_;
  EpisodeList& episodes_;
  RunningClass run_;
  ObservationHeader header_;
  LiveEstimates estimates_;
  LiveQuestions questions_;
  ClassKeeper keeper_;
  std::string caption_;
  Focus focus_;
  std::string savedDescription_;
};

}  // namespace orvex
