#pragma once

#include <string>
#include <vector>

#include "editor/observation_edits.h"
#include "model/episode.h"

namespace orvex {

/// The selection in the editor's list of episodes and in its list of the episode's segments.
struct ListSelection {
  static constexpr int kNothing = -1;

  Positions episodes;
  Positions segments;
  int episode = kNothing;  ///< the current episode, which is shown
  int segment = kNothing;  ///< the current segment, which is shown

  Place Current() const { return {episode, segment}; }
};

/// What the editor shows of the current episode and its current segment.
struct EpisodeView {
  std::string total;  ///< "Total: 3 Episodes"
  bool hasEpisode = false;
  bool hasSegment = false;
  bool hasQuestions = false;
  std::string description;
  std::string activity;  ///< empty without segments; a caption, so "&&" is one ampersand
  std::string spells;
  std::string duration;
  std::string segmentCount;
  std::string segmentDurationLabel;  ///< "Duration of segment 2:"
  std::string segmentDuration;
};
/// With `saysReview`, the activity also says whether the episode was review.
EpisodeView ViewOf(const EpisodeList& episodes, Place current, bool saysReview);

/// The rows of the lists, such as "2. Discussion".
std::vector<std::string> EpisodeRowsOf(const EpisodeList& episodes);
std::vector<std::string> SegmentRowsOf(const Episode& episode);

/// Which changes of structure the selection allows.
struct PossibleEdits {
  bool splitSegment = false;
  bool mergeSegments = false;
  bool splitEpisode = false;
  bool mergeEpisodes = false;
  /// Names the segment to split, as in "Splits segment 2. Game"; empty if there is none.
  std::string splitSegmentHint;
};
PossibleEdits PossibleEditsOf(const EpisodeList& episodes, const ListSelection& selection);

}  // namespace orvex
