#pragma once

#include <vector>

#include "model/episode.h"

namespace orvex {

/// A question of a class, and where it stands in it.
struct AskedQuestion {
  const questionInfo* question = nullptr;
  int episode = 0;    ///< counted from 1
  int number = 0;     ///< in its episode, counted from 1
  double second = 0;  ///< of the class: the questions of a segment are spread evenly over it
};

/// All questions of a class in their order. They point into `episodes`. A question whose segment is
/// not there stands at the begin of its episode.
std::vector<AskedQuestion> QuestionsOf(const EpisodeList& episodes);

}  // namespace orvex
