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

/// The estimate dialog as it was left by skipping it, and the number of students when it was
/// loaded.
struct EstimateDialog {
  OfftaskPrompt prompt;
  std::string studentsBefore;
};

/// What is being typed in the boxes of the school, class and observation number, in this order,
/// where that is not the number that was accepted.
using TypedNumbers = std::array<std::optional<std::string>, 3>;

/// What a class has last stored in its episode, notes and survey file; 0 for nothing yet. A file
/// with another content is not, or no longer, its own.
struct StoredContents {
  std::uint64_t episodes = 0;
  std::uint64_t notes = 0;
  std::uint64_t survey = 0;
};

/// Between segment and episode: the running segment can begin an episode, or its episode can become
/// a segment of the one before.
enum class Conversion { none, toEpisode, toSegment };

/// What the observer can do as the class stands.
struct AllowedActions {
  bool segment = false;  ///< start the next one
  bool episode = false;  ///< start the next one
  bool review = false;   ///< look at the questions
  bool proof = false;    ///< look for what the questions lack
  bool survey = false;
  bool end = false;  ///< end the class or, once it is stored, leave it
  Conversion conversion = Conversion::none;
};

/// What the end of an episode replaces, for a class that goes on all the same.
struct BeforeEnd {
  OfftaskSchedule schedule;
  int episodeActivity = kNoActivity;
  float offtask = 0;
};

/// Whether the activity of the running segment is chosen. `abandoned`: it was question/answer, was
/// given up, and another is awaited.
enum class ActivityChoice { awaited, abandoned, made };

/// What is known of a class while it runs, besides the observation that its end stores, and what
/// can become of it. Times are seconds since midnight.
struct RunningClass {
  /// One class has one, whatever its numbers are: it is made up when the class begins.
  std::string token;
  /// The numbers in the program's identity are the accepted ones: they name the log and all files.
  TypedNumbers typedNumbers;
  int curEpisode = 1;
  int curSegment = 1;
  float episodeStart = 0;
  float segmentStart = 0;
  float prevEpisodeStart = 0;
  /// The question/answer estimates of the running episode, and of the one before it.
  std::vector<float> offtaskEstimates;
  std::vector<float> prevOfftaskEstimates;
  /// The activities of the running segment, of the one before the last choice, and of the last
  /// segment of the last episode. Until a segment's own is chosen, `curActivity` is the one before.
  int curActivity = kNoActivity;
  int prevActivity = kNoActivity;
  int episodeActivity = kNoActivity;
  ActivityChoice choice = ActivityChoice::awaited;
  bool freshSegment = false;
  /// Segments end without an estimate: from a question/answer that was started by its own button
  /// until a segment is started by that for segments.
  bool skipEstimate = false;
  OfftaskSchedule schedule;
  std::optional<EstimateDialog> estimateDialog;
  SegmentCoding coding;
  std::string fieldNotes;
  /// What is being typed in the dialog of the field notes.
  std::optional<std::string> draftNotes;
  Survey survey;
  /// Where the class is stored, when that is not its usual place; the survey then goes beside it.
  std::filesystem::path storedElsewhere;
  StoredContents stored;
  /// The class is stored and only its survey is not.
  bool awaitsSurvey = false;
  /// No key has been typed in a description: there is nothing to store yet.
  bool nothingEntered = true;
  QuestionDraft draft;
  /// How many questions the episode had when the running question/answer began.
  int questionsBefore = 0;
  QuestionHistory history;

  /// A class that begins at `now`, with the first segment of its first episode.
  static RunningClass Begun(float now);

  /// The activity that is chosen for the running segment; kNoActivity while none is.
  int ChosenActivity() const { return choice == ActivityChoice::made ? curActivity : kNoActivity; }
  /// True while the next activity is the segment's first, and revises none.
  bool AwaitsActivity() const { return curActivity == kNoActivity || freshSegment; }
  /// True when the end of the segment asks for an estimate.
  bool EndsWithEstimate() const {
    return ActivityOf(ChosenActivity()).TakesEstimates() && !skipEstimate;
  }
  bool RoomForSegment() const { return curSegment < kMostNumber; }
  bool RoomForEpisode() const { return curEpisode < kMostNumber; }
  /// The running segment as it would be stored after `seconds`.
  SegmentData Segment(float seconds) const { return coding.Segment(curActivity, seconds); }
  /// The question that is being entered, as it would be stored now.
  questionInfo DraftAsStored() const;
  AllowedActions Allowed(const EpisodeList& episodes) const;

  // What becomes of the class. `episodes` are its own, of which the last one runs.

  /// The segment gets its activity, or another one: what was coded for that is then forgotten.
  void ChooseActivity(int activity, const EpisodeList& episodes, float now);
  /// Gives the segment up as question/answer: it takes its previous activity back and waits for a
  /// new choice. An episode that has only just begun loses its description.
  void AbandonQuestionAnswer(EpisodeList& episodes);
  /// Ends the running segment, which becomes a record of its episode, and starts the next one.
  void StartSegment(EpisodeList& episodes, float now);
  /// Ends the running segment and its episode, and starts the next one of both.
  void StartEpisode(EpisodeList& episodes, float now);
  /// Ends the running segment and its episode.
  BeforeEnd EndEpisode(EpisodeList& episodes, float now);
  /// Takes that back: the segment runs on as if its end had not been asked for.
  void GoOn(EpisodeList& episodes, const BeforeEnd& before);
  /// The running segment becomes the first one of a new episode.
  void ConvertToEpisode(EpisodeList& episodes);
  /// The running episode becomes the last segment of the one before.
  void ConvertToSegment(EpisodeList& episodes);
  /// The class is taken up again at `now`. A segment whose end was about to be stored runs on, and
  /// the estimates that fell due while nobody was there can no longer be made.
  void TakeUp(EpisodeList& episodes, float now);
  /// The segment began `seconds` before `now`, and the episode is as much off. Returns by how much
  /// both starts have moved.
  float CorrectTime(float now, float seconds);
  /// Files an estimate under the kind of the activity, and with the episode if it is one of
  /// question/answer.
  void RecordEstimate(float proportion, EstimatesByCategory& estimates);
  /// Every 500 ms while the schedule runs.
  void TickSchedule(float now);
  /// Moves every time by `seconds`.
  void ShiftTimes(float seconds);

 private:
  void StartSchedule(float now);
  void EndSegment(Episode& episode, float now);
  void CloseEpisode(Episode& episode);
  void AppendEpisode(EpisodeList& episodes);
};

}  // namespace orvex
