#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "desk/prompter.h"
#include "model/limits.h"
#include "model/program.h"
#include "model/question_info.h"
#include "model/survey.h"
#include "running/entry_fields.h"
#include "running/offtask_schedule.h"
#include "running/question_history.h"
#include "running/segment_coding.h"

namespace orvex {

/// The estimate dialog, kept with its texts while the observer skips it, and the number of students
/// when it was first opened.
struct EstimateDialog {
  OfftaskPrompt prompt;
  std::string studentsBefore;
};

/// The texts in the boxes for the school, class and observation number, in this order; empty where
/// the box shows the accepted number.
using TypedNumbers = std::array<std::optional<std::string>, 3>;

/// The checksums of what a class last stored in its episode, notes and survey files; 0 before the
/// first time. A file with any other content does not belong to the class, or no longer does.
struct StoredContents {
  std::uint64_t episodes = 0;
  std::uint64_t notes = 0;
  std::uint64_t survey = 0;
};

/// The running segment can become the start of a new episode, or its episode can become a segment
/// of the previous one.
enum class Conversion { none, toEpisode, toSegment };

/// What the observer can do at the moment.
struct AllowedActions {
  bool segment = false;  ///< start the next one
  bool episode = false;  ///< start the next one
  bool review = false;   ///< look at the questions
  bool proof = false;    ///< look for questions with missing codes
  bool survey = false;
  bool end = false;  ///< end the class, or leave it once it is stored
  Conversion conversion = Conversion::none;
};

/// What ending an episode overwrites, so that a class that goes on after all can have it back.
struct BeforeEnd {
  OfftaskSchedule schedule;
  int episodeActivity = kNoActivity;
  float offtask = 0;
};

/// Whether the activity of the running segment is chosen. `abandoned` means that it was
/// question/answer but was given up, so that another one must be chosen.
enum class ActivityChoice { awaited, abandoned, made };

/// The state of a class while it runs, apart from the observation that is stored at its end, and
/// the operations on it. Times are seconds since midnight.
struct RunningClass {
  /// A random id, generated when the class begins. It stays the same when its numbers change.
  std::string token;
  /// Numbers not yet accepted. The accepted ones, which name the files, are in the identity.
  TypedNumbers typedNumbers;
  int curEpisode = 1;
  int curSegment = 1;
  float episodeStart = 0;
  float segmentStart = 0;
  float prevEpisodeStart = 0;
  /// The question/answer estimates of the running episode, and of the previous one.
  std::vector<float> offtaskEstimates;
  std::vector<float> prevOfftaskEstimates;
  /// The activity of the running segment, the one before the last choice, and the last one of the
  /// previous episode. Until a new segment's own is chosen, `curActivity` is the one before it.
  int curActivity = kNoActivity;
  int prevActivity = kNoActivity;
  int episodeActivity = kNoActivity;
  ActivityChoice choice = ActivityChoice::awaited;
  bool freshSegment = false;
  /// Segments end without an estimate. Set when the question/answer button starts a segment, and
  /// cleared when the segment button does.
  bool skipEstimate = false;
  OfftaskSchedule schedule;
  std::optional<EstimateDialog> estimateDialog;
  SegmentCoding coding;
  std::string fieldNotes;
  /// The text being typed in the field notes dialog.
  std::optional<std::string> draftNotes;
  Survey survey;
  /// The episode file if the user chose the place for it; the survey then goes beside it.
  std::filesystem::path storedElsewhere;
  StoredContents stored;
  /// Everything but the survey is stored.
  bool awaitsSurvey = false;
  /// No key has been typed in a description, so there is nothing to store yet.
  bool nothingEntered = true;
  QuestionDraft draft;
  /// The number of questions in the episode when the running question/answer began.
  int questionsBefore = 0;
  QuestionHistory history;

  /// A class that begins at `now` with the first segment of its first episode.
  static RunningClass Begun(float now);

  /// The activity chosen for the running segment; kNoActivity until there is one.
  int ChosenActivity() const { return choice == ActivityChoice::made ? curActivity : kNoActivity; }
  /// True while the next choice is the segment's first, so that it revises no other.
  bool AwaitsActivity() const { return curActivity == kNoActivity || freshSegment; }
  /// True when ending the segment asks for an estimate.
  bool EndsWithEstimate() const {
    return ActivityOf(ChosenActivity()).TakesEstimates() && !skipEstimate;
  }
  bool RoomForSegment() const { return curSegment < kMostNumber; }
  bool RoomForEpisode() const { return curEpisode < kMostNumber; }
  /// The running segment as it would be stored with a duration of `seconds`.
  SegmentData Segment(float seconds) const { return coding.Segment(curActivity, seconds); }
  /// The question being entered, as it would be stored now.
  questionInfo DraftAsStored() const;
  AllowedActions Allowed(const EpisodeList& episodes) const;

  // Changes to the class. `episodes` are those of the class; the last one is running.

  /// Sets or revises the activity of the segment. Revising it resets the segment's codes.
  void ChooseActivity(int activity, const EpisodeList& episodes, float now);
  /// Gives up question/answer for the segment, which returns to its previous activity and waits for
  /// a new choice. In the first segment of an episode, this clears the episode's description.
  void AbandonQuestionAnswer(EpisodeList& episodes);
  /// Ends the running segment, adding it to its episode, and starts the next one.
  void StartSegment(EpisodeList& episodes, float now);
  /// Ends the running segment and its episode, and starts the next of each.
  void StartEpisode(EpisodeList& episodes, float now);
  /// Ends the running segment and its episode. The result is for GoOn.
  BeforeEnd EndEpisode(EpisodeList& episodes, float now);
  /// Takes EndEpisode back: the segment continues as if it had not ended.
  void GoOn(EpisodeList& episodes, const BeforeEnd& before);
  /// Makes the running segment the first one of a new episode.
  void ConvertToEpisode(EpisodeList& episodes);
  /// Makes the running episode the last segment of the previous one.
  void ConvertToSegment(EpisodeList& episodes);
  /// Continues a class that is taken up again at `now`. A segment whose end was about to be stored
  /// goes on. Estimates that fell due in the meantime are dropped.
  void TakeUp(EpisodeList& episodes, float now);
  /// Sets the start of the segment to `seconds` before `now`, and moves the start of the episode by
  /// the same amount. Returns that amount in seconds.
  float CorrectTime(float now, float seconds);
  /// Adds an estimate to those of its kind of activity, and to the episode's own if the activity is
  /// question/answer.
  void RecordEstimate(float proportion, EstimatesByCategory& estimates);
  /// To be called every 500 ms while the schedule runs.
  void TickSchedule(float now);
  /// Moves every stored time by `seconds`.
  void ShiftTimes(float seconds);

 private:
  void StartSchedule(float now);
  void EndSegment(Episode& episode, float now);
  void CloseEpisode(Episode& episode);
  void AppendEpisode(EpisodeList& episodes);
};

}  // namespace orvex
