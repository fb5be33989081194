#pragma once

#include <string>
#include <vector>

#include "model/question_info.h"
#include "model/segment_data.h"

namespace orvex {

/// An instructional episode: its segments in time order, its questions in the order asked.
struct Episode {
  std::vector<SegmentData> segments;
  std::vector<questionInfo> questions;
  std::string Descript;
  std::string bReview;  ///< "Y", "N" or "" (not asked)
  float offtask = 0;    ///< mean proportion of students off task, 0 to 1

  bool operator==(const Episode&) const = default;

  int nQAs() const { return static_cast<int>(questions.size()); }
  /// The sum of the segments' durations, in seconds.
  double duration() const;
};

using EpisodeList = std::vector<Episode>;

/// The segment that a question was asked in; null when its number is not one of the episode's.
const SegmentData* SegmentOf(const Episode& episode, const questionInfo& question);

/// "Discussion: 12 Question(s)": an episode's first activity, as a caption, and its number of
/// questions. With `withReview`, " (Review Session)" follows if it was one. Empty for an episode
/// without segments; an activity without a name shows its number.
std::string ActivityLabel(const Episode& episode, bool withReview = true);

/// True when any episode has a question.
bool AnyQuestions(const EpisodeList& episodes);

/// The mean of `values`, added up in double precision; 0 when there are none.
float AverageOf(const std::vector<float>& values);

/// A stretch of an episode in which students ask the questions: its first and last question,
/// counted from 1.
struct DialogicSpell {
  int first = 0;
  int last = 0;

  bool operator==(const DialogicSpell&) const = default;
  int Length() const { return last - first + 1; }
};

/// The dialogic spells of an episode's questions. A spell begins with the first of three questions
/// in a row that are not the teacher's (an uncoded Source counts as not the teacher's) and ends
/// just before the first of three teacher questions in a row. Teacher questions at the very end are
/// left out.
std::vector<DialogicSpell> FindDialogicSpells(const std::vector<questionInfo>& questions);

}  // namespace orvex
