#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "desk/prompter.h"
#include "model/question_info.h"
#include "model/survey.h"
#include "running/entry_fields.h"
#include "running/offtask_schedule.h"
#include "running/question_history.h"
#include "running/segment_coding.h"

namespace orvex {

/// The estimate dialog as it was left by "&Skip", and the number of students when it was loaded.
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

/// Whether the activity of the running segment is chosen. `abandoned`: it was question/answer, was
/// given up, and another is awaited.
enum class ActivityChoice { awaited, abandoned, made };

/// What is known of a class while it runs, besides the observation that its end stores. Times are
/// seconds since midnight.
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
  /// Set by "&Q/A", cleared by "&SEGMENT": segments end without an estimate.
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

  /// A class that begins now.
  static RunningClass Begun();
  /// The activity that is chosen for the running segment; kNoActivity while none is.
  int ChosenActivity() const { return choice == ActivityChoice::made ? curActivity : kNoActivity; }
  /// The running segment as it would be stored after `seconds`.
  SegmentData Segment(float seconds) const { return coding.Segment(curActivity, seconds); }
  /// The question that is being entered, as it would be stored now.
  questionInfo DraftAsStored() const;

  /// Moves every time by `seconds`.
  void ShiftTimes(float seconds);
};

}  // namespace orvex
