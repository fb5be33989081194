#pragma once

#include <optional>
#include <vector>

#include "model/episode.h"

namespace orvex {

/// The time that a segment takes of its class, in seconds: its duration. One below 0, which no
/// class has, counts as 0.
constexpr double TimeOf(const SegmentData& segment) {
  return segment.duration > 0 ? static_cast<double>(segment.duration) : 0.0;
}

/// A question of a class, and where it stands in it.
struct AskedQuestion {
  const questionInfo* question = nullptr;
  int episode = 0;       ///< counted from 1
  int number = 0;        ///< in its episode, counted from 1
  double second = 0;     ///< of the class
  bool isTimed = false;  ///< the second is one that was told
};

/// The seconds of the class at which questions were asked, in their order; nothing for one of which
/// it is not known.
using QuestionTimes = std::vector<std::optional<double>>;

/// All questions of a class in their order. They point into `episodes`. A question stands at its
/// time in `times`, which may be empty, unless that lies outside its segment or before the question
/// ahead of it there. All others are spread evenly over the time between their neighbours in the
/// segment. A question whose segment is not there stands at the begin of its episode.
std::vector<AskedQuestion> QuestionsOf(const EpisodeList& episodes,
                                       const QuestionTimes& times = {});

}  // namespace orvex
