#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "model/question_info.h"
#include "store/append_log.h"

namespace orvex {

class Clock;

/// The running log of an observation, the observer's safety net: it records every event that
/// matters at once. The program never reads it back. Call the Log functions only while the log is
/// open.
class SessionLog {
 public:
  SessionLog(Storage& storage, const Clock& clock);

  /// The file behind the log, for opening, moving and closing it, and for its troubles.
  AppendLog& File() { return file_; }
  const AppendLog& File() const { return file_; }

  void LogOn(std::string_view fileName, std::string_view initials, std::string_view students);
  /// Writes only for the first segment of an episode.
  void LogEpisodeStart(int ep, int sg);
  /// `seconds` is the segment's length, `about` what the segment was about, or "".
  void LogSegmentEnd(int ep, int sg, int activity, std::int32_t seconds, std::string_view about);
  void LogEpisode(int ep, std::string_view text, double seconds);
  void LogRevisedActivity(int ep, int sg, int activity);
  void LogRevisedN(std::string_view text);
  /// `q` is the number the question gets in its episode.
  void LogRevisedQuestion(int ep, int q, const questionInfo& question);
  void LogRevisedDescription(std::string_view text);
  /// `seconds` is how far the start times were moved. The line shows the opposite: how far the
  /// clock was corrected.
  void LogAdjustTime(int ep, int sg, float seconds);
  /// `note` may have several lines, separated by CR LF.
  void LogFieldNote(int ep, int sg, std::string_view note);
  void LogBlankLine();
  /// An off-task estimate: the proportion, and the two numbers it was made from, as typed.
  void LogOfftask(float proportion, std::string_view offtask, std::string_view students,
                  int activity);
  /// "Prop. students offtask in episode ...": the mean, and the number of estimates behind it.
  void LogEpisodeOfftask(int ep, float offtask, int estimates);
  void LogActiveEstimates(int ep);
  /// Undo or redo has put a dropped or changed question back as it was, or has taken a question out
  /// again. `question` names it.
  void LogRestoredQuestion(std::string_view question);
  void LogDroppedQuestion(std::string_view question);
  void LogSegmentToEpisode();
  void LogEpisodeToSegment();
  /// The end of the class was requested and logged, but the class could not be stored.
  void LogClassGoesOn();
  /// A class that was still running when the program ended is taken up again.
  void LogTakenUp();
  void LogOff();

 private:
  void Line(std::string_view text);

  AppendLog file_;
  const Clock& clock_;
};

}  // namespace orvex
