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

/// "Discussion: 12 Question(s)": an episode's first activity, as a caption, and how many questions
/// it holds; " (Review Session)" follows where it was one and `withReview` is set. Nothing for an
/// episode without segments; an activity without a name shows its number.
std::string ActivityLabel(const Episode& episode, bool withReview = true);

/// True when some episode holds a question.
bool AnyQuestions(const EpisodeList& episodes);

/// The mean as a single, added up in double precision; 0 when there are no values.
float AverageOf(const std::vector<float>& values);

/// A stretch of an episode in which students ask: its first and last question, counted from 1.
struct DialogicSpell {
  int first = 0;
  int last = 0;

  bool operator==(const DialogicSpell&) const = default;
  int Length() const { return last - first + 1; }
};

/// The dialogic spells of an episode's questions. A spell begins with the first of three questions
/// in a row that are not the teacher's (an uncoded Source counts so) and ends just before the first
/// of three teacher questions in a row; teacher questions that trail at the end are cut off.
std::vector<DialogicSpell> FindDialogicSpells(const std::vector<questionInfo>& questions);

}  // namespace orvex
