#pragma once

#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "model/episode.h"

namespace orvex {

/// Positions in a list, counted from 1, ascending.
using Positions = std::vector<int>;

/// A segment or a question of an episode, all counted from 1; 0 stands for none in particular.
struct Place {
  int episode = 0;
  int segment = 0;
  int question = 0;

  bool operator==(const Place&) const = default;
};

/// A change would make more of the episodes than an episode file can state. `what()` says so.
struct DoesNotFit : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The changes of structure. Each returns what is to be selected afterwards, or nothing when it has
// left the episodes as they were: because nothing was to be done, or because a position is not
// there. All throw DoesNotFit, and have changed nothing then.

/// Moves segments to the end of an earlier episode, or to the start of a later one. An episode that
/// is left without segments goes, and its questions are appended to those of the receiving one.
std::optional<Place> MoveSegments(EpisodeList& episodes, int from, const Positions& segments,
                                  int to);
/// Moves segments of one episode directly behind `target` when it follows them, directly before it
/// when it precedes them. A target among them is none.
std::optional<Place> ReorderSegments(EpisodeList& episodes, int episode, const Positions& segments,
                                     int target);
/// Moves segments to directly before segment `before` of an episode, be it their own or another.
std::optional<Place> InsertSegments(EpisodeList& episodes, int from, const Positions& segments,
                                    Place before);

/// Cuts the last `secondSeconds` off a segment, as a new one of the same coding directly behind.
std::optional<Place> SplitSegment(EpisodeList& episodes, Place place, int secondSeconds);
/// Joins segments into the first of them, which keeps its coding and gets all their time.
std::optional<Place> MergeSegments(EpisodeList& episodes, int episode, const Positions& segments);

/// Moves segments and questions (in any order) of an episode into a new one directly behind it.
/// Some segment must go, and some must stay.
std::optional<Place> SplitEpisode(EpisodeList& episodes, int episode, const Positions& segments,
                                  Positions questions);
/// Joins episodes into the first of them; its off-task estimate becomes their mean.
std::optional<Place> MergeEpisodes(EpisodeList& episodes, const Positions& selected);

/// How long a segment is to the dialog that divides it.
int DivisibleSeconds(const SegmentData& segment);

/// Gives a segment another activity. What it is about goes with an activity that is about nothing;
/// the other codes stay. Numbers outside 1 to 17 are not taken.
void RecodeSegment(SegmentData& segment, int activity);
/// Takes a typed duration, rounded, modulo 20000. A text that is no number, or a negative one,
/// changes nothing.
void SetSegmentDuration(SegmentData& segment, std::string_view typed);
/// True for the keys that are typed as a duration.
inline bool IsDurationKey(char32_t key) {
  return key >= U'0' && key <= U'9';
}

/// The item at a position counted from 1; null when there is none.
template <typename List>
auto ItemAt(List& list, int position) -> decltype(list.data()) {
  if (position < 1 || position > static_cast<int>(list.size())) return nullptr;
  return list.data() + (position - 1);
}

}  // namespace orvex
