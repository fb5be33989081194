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

/// The class under observation: asks the observer, writes the log, updates the running class and
/// stores everything at the end of the class.
class LiveObservation {
 public:
  /// The controls that the logic can focus. `activity` is the number of an activity's button.
  struct Control {
    enum class Kind { header, description, activity, survey };
    Kind kind;
    HeaderBox box = HeaderBox::initials;
    int activity = 0;

    bool operator==(const Control&) const = default;
  };
  using Focus = FocusWish<Control>;

  /// Starts episode 1, segment 1 now. The log must be open.
  explicit LiveObservation(const Services& services);
  /// Continues a class that is taken up; its observation is already in memory. The log must be open
  /// unless the class is stored.
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
  /// Has the class kept as it is now, once there is something worth keeping. Call it whenever
  /// something may have changed; it does nothing if nothing has.
  void Keep();

  // State shown by the form.
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
  /// Call it for a key typed in the description. Makes the activities visible.
  void KeyInDescription();
  void EnterDescription() { savedDescription_ = CurrentEpisode().Descript; }
  void LeaveDescription();
  void TypeAbout(const std::string& text);
  /// Chooses the activity of the segment. Asks first before replacing one already chosen.
  void ChooseActivity(int activity);
  void ChooseCode(SubCode of, std::int16_t code) { run_.coding.Chosen(of) = code; }
  void TypeCode(SubCode of, const std::string& text) { run_.coding.Typed(of) = text; }

  // Segments and episodes.
  /// Start the next segment or episode once the observer agrees.
  void AskToStartSegment();
  void AskToStartEpisode();
  void StartSegment();
  /// `wasReview` says whether the ending episode was a review, if the observer was asked.
  void StartEpisode(std::optional<bool> wasReview = std::nullopt);
  /// Starts a question/answer segment.
  void StartQuestionAnswer();
  /// Gives up question/answer for the segment, so that another activity can be chosen.
  void AbandonQuestionAnswer();
  /// Turns the running segment into an episode, or the running episode into a segment.
  void Convert();
  /// Asks how long the segment has been running, and moves the segment and episode starts to match.
  void CorrectTime();
  /// Ends the class, or leaves it once it is stored.
  void EndClass();
  /// Shows the page of a class that is stored.
  void ShowPicture();
  /// Handles a request to close the window. True when it may close.
  bool RequestClose();

  // Other forms and dialogs.
  void OpenAbout();
  void ReviewQuestions();
  void ProofQuestions();
  void OpenSurvey();
  void EditFieldNotes();
  /// Stores the answers that the observer has given so far.
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
