#pragma once

#include <vector>

#include "model/episode.h"

namespace orvex {

/// What a question lacks: its text, and the dimensions that its Source and Response require.
struct MissingCodes {
  bool text = false;
  std::vector<Dimension> dimensions;  ///< in the order of the coding scheme

  bool None() const { return !text && dimensions.empty(); }
};
MissingCodes FindMissingCodes(const questionInfo& question);

/// Searches for the next question that is not fully coded, in reading order from question `q` of
/// episode `ep` (both counted from 1), starting over after the last. If there is one, `ep` and `q`
/// name it and the result is 1. Otherwise both stay and the result is -1. An episode number out of
/// range counts as 1, and so does a question number below 1.
int FindUncodedQuestion(const EpisodeList& episodes, int& ep, int& q);

}  // namespace orvex
