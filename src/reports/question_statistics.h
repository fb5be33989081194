#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/program.h"
#include "store/eps_file.h"

namespace orvex {

/// How often each code occurs among an episode's questions. A question with an unknown letter,
/// or none, is left out of the counts for that dimension.
struct CodeCounts {
  int Total = 0;
  int Normal = 0;
  int TeacherQ = 0;
  int StudentQ = 0;
  int AuthTeacher = 0;
  int AuthStudent = 0;
  int NoResponse = 0;         ///< of the teacher's questions
  int HigherLevel = 0;        ///< of the teacher's questions
  int RelatedToPrevious = 0;  ///< of the teacher's questions that were answered
  /// How the teacher dealt with the students' answered questions.
  int Answering = 0;
  int ClosingDown = 0;
  int OpeningUp = 0;
  /// Answered questions, of the teacher and the students alike.
  int Responded = 0;
  int UptakeNone = 0;
  int UptakeTest = 0;
  int UptakeAuthentic = 0;
  int Elaborated = 0;
  int Unelaborated = 0;
};
CodeCounts CountCodes(std::span<const questionInfo> questions);
/// Counts the codes of a whole class.
CodeCounts CountCodes(const EpisodeList& episodes);

/// The pace of so many questions in so many seconds; nothing where there is no time.
std::optional<double> QuestionsPerMinute(int questions, double seconds);

/// The share of students off task in a class, 0 to 1: the mean over its episodes, weighted by their
/// lengths. Nothing for a class without questions: an episode has its mean only with questions.
std::optional<double> MeanOfftask(const EpisodeList& episodes);

/// What a colour in a bar means. `none` is the form's own background.
enum class BarMeaning { positive, no, negative, uncoded, none };
extern const std::array<std::pair<BarMeaning, std::string_view>, 4> kStatisticsLegend;

/// The length of a whole bar, in twips.
inline constexpr double kBarLength = 3735;

/// Part of a bar: `count` of `reference`. Where segments overlap, the earlier one is on top.
struct BarSegment {
  int count = 0;
  int reference = 0;
  double left = 0;   ///< in twips
  double width = 0;  ///< in twips
  std::string caption;
  BarMeaning meaning = BarMeaning::none;

  double Right() const { return left + width; }
};

/// A line of the statistics.
struct StatisticsRow {
  std::string heading;
  std::string count;  ///< shown beside the heading; often empty
  std::vector<BarSegment> bar;
  bool restIsUncoded = false;  ///< the rest of the bar, beyond the segments, is not coded yet

  /// Where the rightmost segment ends, in twips.
  double FilledLength() const;
};

/// The lines of the statistics, in the order they are shown.
enum class StatisticsLine {
  total,
  normal,
  source,
  authenticTeacher,
  authenticStudent,
  higherLevel,
  nonresponse,
  uptake,
  elaborated,
  teacherResponse,
  relatedToPrevious,
};
inline constexpr int kStatisticsLines = 11;
/// The first line of the section "RESPONSE"; the lines before it form the section "QUESTIONS".
inline constexpr StatisticsLine kFirstResponseLine = StatisticsLine::nonresponse;

/// The statistics of questions, as texts and bars.
struct QuestionStatistics {
  std::string title;  ///< "7-12-3 Episode 2", "7-12-3", "12 classes"
  CodeCounts counts;
  std::array<StatisticsRow, kStatisticsLines> rows;
  std::optional<double> questionsPerMinute;  ///< nothing without questions or time
  std::string pace;                          ///< "(questions per minute) 1.5"
  std::string offtask;                       ///< "14.7%"
  std::string message;  ///< what the user is to be told of it; filling ended there

  const StatisticsRow& Row(StatisticsLine line) const {
    return rows[static_cast<std::size_t>(line)];
  }
};

/// The statistics of `episode`, which is number `number` of its observation. An episode without
/// questions gets headings only.
QuestionStatistics MakeQuestionStatistics(const Identity& identity, int number,
                                          const Episode& episode);

/// The statistics of all questions of these classes, of which there is at least one. Their pace is
/// that over the classes' whole time, and a class counts for as much as any other in the share of
/// students off task.
QuestionStatistics MakeQuestionStatistics(std::span<const EpsObservation> classes);

/// The statistics as lines of tab-separated fields.
std::string TextOf(const QuestionStatistics& statistics);

}  // namespace orvex
