#pragma once

#include <string>
#include <vector>

#include "editor/observation_edits.h"
#include "model/episode.h"

namespace orvex {

/// What is selected in the editor's list of episodes and in that of the current episode's segments.
struct ListSelection {
  static constexpr int kNothing = -1;

  Positions episodes;
  Positions segments;
  int episode = kNothing;  ///< the current one, which is shown
  int segment = kNothing;  ///< the same of its segments

  Place Current() const { return {episode, segment}; }
};

/// What is shown of the current episode and its current segment.
struct EpisodeView {
  std::string total;  ///< "Total: 3 Episodes"
  bool hasEpisode = false;
  bool hasSegment = false;
  bool hasQuestions = false;
  std::string description;
  std::string activity;  ///< "&&" stands for one ampersand; empty without segments
  std::string spells;
  std::string duration;
  std::string segmentCount;
  std::string segmentDurationLabel;  ///< "Duration of segment 2:"
  std::string segmentDuration;
};
/// `saysReview` when the activity is followed by whether the episode was review.
EpisodeView ViewOf(const EpisodeList& episodes, Place current, bool saysReview);

/// The rows of the lists: "2. Discussion".
std::vector<std::string> EpisodeRowsOf(const EpisodeList& episodes);
std::vector<std::string> SegmentRowsOf(const Episode& episode);

/// Which changes of structure are offered for what is selected.
struct PossibleEdits {
  bool splitSegment = false;
  bool mergeSegments = false;
  bool splitEpisode = false;
  bool mergeEpisodes = false;
  /// Which segment is split: "Splits segment 2. Game"; empty for none.
  std::string splitSegmentHint;
};
PossibleEdits PossibleEditsOf(const EpisodeList& episodes, const ListSelection& selection);

}  // namespace orvex
