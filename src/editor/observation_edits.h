#pragma once

#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "model/episode.h"

namespace orvex {

/// Positions in a list, counted from 1, ascending.
using Positions = std::vector<int>;

/// A segment or a question of an episode, all counted from 1; below 1 means none in particular.
struct Place {
  int episode = 0;
  int segment = 0;
  int question = 0;

  bool operator==(const Place&) const = default;
};

/// A change would exceed what an episode file can hold. `what()` is a message for the user.
struct DoesNotFit : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The changes of structure. Each returns the place to select afterwards, or nothing if it left the
// episodes alone because there was nothing to do or a position does not exist. A change that would
// not fit throws DoesNotFit and leaves the episodes alone.

/// Moves segments to the end of an earlier episode or to the start of a later one. An episode that
/// loses all its segments is removed, and its questions are appended to the receiving one's.
std::optional<Place> MoveSegments(EpisodeList& episodes, int from, const Positions& segments,
                                  int to);
/// Moves segments within an episode: directly behind `target` if it follows them, directly before
/// it if it precedes them. Does nothing if `target` lies among them.
std::optional<Place> ReorderSegments(EpisodeList& episodes, int episode, const Positions& segments,
                                     int target);
/// Moves segments directly before a segment of any episode; of their own, also behind the last.
std::optional<Place> InsertSegments(EpisodeList& episodes, int from, const Positions& segments,
                                    Place before);

/// Splits the last `secondSeconds` off a segment, into a new one behind it with the same coding.
std::optional<Place> SplitSegment(EpisodeList& episodes, Place place, int secondSeconds);
/// Merges segments into the first of them, which keeps its coding and gets the total duration.
std::optional<Place> MergeSegments(EpisodeList& episodes, int episode, const Positions& segments);

/// Moves segments and questions (these in any order) into a new episode directly behind. At least
/// one segment must move, and at least one must stay.
std::optional<Place> SplitEpisode(EpisodeList& episodes, int episode, const Positions& segments,
                                  Positions questions);
/// Merges episodes into the first of them. Its off-task estimate becomes their mean.
std::optional<Place> MergeEpisodes(EpisodeList& episodes, const Positions& selected);

/// The segment's duration in whole seconds, for the dialog that divides it.
int DivisibleSeconds(const SegmentData& segment);

/// Gives a segment another activity, from 1 to 17; ignores other numbers. Clears what the segment
/// is about if the new activity does not carry that. The other codes stay.
void RecodeSegment(SegmentData& segment, int activity);
/// Sets a duration typed in seconds: rounded, modulo 20000. Ignores negative numbers and text that
/// is not a number.
void SetSegmentDuration(SegmentData& segment, std::string_view typed);
/// True for keys that can be typed into a duration.
inline bool IsDurationKey(char32_t key) {
  return key >= U'0' && key <= U'9';
}

/// The item at a position counted from 1; null if there is none.
template <typename List>
auto ItemAt(List& list, int position) -> decltype(list.data()) {
  if (position < 1 || position > static_cast<int>(list.size())) return nullptr;
  return list.data() + (position - 1);
}

}  // namespace orvex
