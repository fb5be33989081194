#include "editor/observation_edits.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

#include "model/activities.h"
#include "model/limits.h"
#include "model/texts.h"
#include "model/time_of_day.h"
#include "store/numbers.h"

namespace orvex {
namespace {

/// True if `positions` is not empty, ascending without repeats, and within 1 to `count`.
bool AreThere(const Positions& positions, std::size_t count) {
  int previous = 0;
  for (const int position : positions) {
    if (position <= previous || position > static_cast<int>(count)) return false;
    previous = position;
  }
  return !positions.empty();
}

template <typename T>
auto At(std::vector<T>& list, int position) {
  return list.begin() + (position - 1);
}

/// Removes the items at `positions` from a list and returns them in order.
template <typename T>
std::vector<T> TakeOut(std::vector<T>& list, const Positions& positions) {
  std::vector<T> taken;
  std::vector<T> left;
  taken.reserve(positions.size());
  left.reserve(list.size() - positions.size());
  auto next = positions.begin();
  for (std::size_t i = 0; i < list.size(); ++i) {
    const bool wanted = next != positions.end() && *next == static_cast<int>(i) + 1;
    if (wanted) ++next;
    (wanted ? taken : left).push_back(std::move(list[i]));
  }
  list = std::move(left);
  return taken;
}

/// Inserts items into a list, the first of them at `position`.
template <typename T>
void PutIn(std::vector<T>& list, int position, std::vector<T> items) {
  list.insert(At(list, position), std::make_move_iterator(items.begin()),
              std::make_move_iterator(items.end()));
}

/// Throws DoesNotFit if `count` exceeds the 16 bits that a file has for it.
void RequireFits(std::size_t count, Text refusal) {
  if (count > kMostNumber) throw DoesNotFit(Say(refusal, {kMostNumber}));
}

void RequireFits(const Episode& episode, std::size_t moreSegments, std::size_t moreQuestions) {
  RequireFits(episode.segments.size() + moreSegments, Text::tooManySegments);
  RequireFits(episode.questions.size() + moreQuestions, Text::tooManyQuestions);
}

/// The sum of `value` over `positions`. Throws DoesNotFit if it is too large for a single.
template <typename Value>
float SumThatFits(const Positions& positions, Value value) {
  float sum = 0;
  for (const int position : positions) sum += value(position);
  if (std::isfinite(sum)) return sum;
  throw DoesNotFit(Say(Text::numbersTooLarge));
}

template <typename T>
void ColAppend(std::vector<T>& destination, std::vector<T>& source) {
  PutIn(destination, static_cast<int>(destination.size()) + 1, std::exchange(source, {}));
}

}  // namespace

std::optional<Place> MoveSegments(EpisodeList& episodes, int from, const Positions& segments,
                                  int to) {
  Episode* const giving = ItemAt(episodes, from);
  Episode* const receiving = ItemAt(episodes, to);
  if (!giving || !receiving || from == to || !AreThere(segments, giving->segments.size())) {
    return std::nullopt;
  }
  const bool allGo = segments.size() == giving->segments.size();
  RequireFits(*receiving, segments.size(), allGo ? giving->questions.size() : 0);
  const int position = to < from ? static_cast<int>(receiving->segments.size()) + 1 : 1;
  PutIn(receiving->segments, position, TakeOut(giving->segments, segments));
  if (!giving->segments.empty()) return Place{from, segments.front() - 1};
  ColAppend(receiving->questions, giving->questions);
  episodes.erase(At(episodes, from));
  return Place{to > from ? to - 1 : to, 0};
}

std::optional<Place> ReorderSegments(EpisodeList& episodes, int episode, const Positions& segments,
                                     int target) {
  Episode* const e = ItemAt(episodes, episode);
  if (!e || !AreThere(segments, e->segments.size()) || !ItemAt(e->segments, target)) {
    return std::nullopt;
  }
  const bool moveDown = segments.back() < target;
  if (!moveDown && target >= segments.front()) return std::nullopt;
  const int first = moveDown ? target + 1 - static_cast<int>(segments.size()) : target;
  PutIn(e->segments, first, TakeOut(e->segments, segments));
  return Place{episode, first};
}

/// Moves segments, adjacent or not, before another segment of their episode or behind its last.
/// Does nothing if they are there already, or if that segment is one of them.
static std::optional<Place> GatherSegments(EpisodeList& episodes, const Positions& segments,
                                           Place before) {
  std::vector<SegmentData>& all = At(episodes, before.episode)->segments;
  const auto count = static_cast<int>(all.size());
  if (before.segment < 1 || before.segment > count + 1 || segments.front() < 1 ||
      segments.back() > count || std::ranges::binary_search(segments, before.segment)) {
    return std::nullopt;
  }
  std::vector<SegmentData> gathered;
  std::vector<SegmentData> head;
  std::vector<SegmentData> tail;
  for (int i = 1; i <= count; ++i) {
    const bool moves = std::ranges::binary_search(segments, i);
    auto& part = moves ? gathered : i < before.segment ? head : tail;
    part.push_back(all[static_cast<std::size_t>(i - 1)]);
  }
  const int first = static_cast<int>(head.size()) + 1;
  head.insert(head.end(), gathered.begin(), gathered.end());
  head.insert(head.end(), tail.begin(), tail.end());
  if (head == all) return std::nullopt;
  all = std::move(head);
  return Place{before.episode, first};
}

std::optional<Place> InsertSegments(EpisodeList& episodes, int from, const Positions& segments,
                                    Place before) {
  const Episode* const receiving = ItemAt(episodes, before.episode);
  if (segments.empty() || !receiving) return std::nullopt;
  if (from == before.episode) return GatherSegments(episodes, segments, before);
  if (!ItemAt(receiving->segments, before.segment)) return std::nullopt;
  const std::size_t giving = episodes.size();
  if (!MoveSegments(episodes, from, segments, before.episode)) return std::nullopt;
  const bool laterEpisode = before.episode > from;
  const bool givingIsGone = episodes.size() < giving;
  const int episode = before.episode - (laterEpisode && givingIsGone ? 1 : 0);

  // They are now at the start or end of the episode; move them on from there.
  const int count = static_cast<int>(segments.size());
  const int all = static_cast<int>(At(episodes, episode)->segments.size());
  if (laterEpisode && before.segment == 1) return Place{episode, 1};
  Positions moved(segments.size());
  for (int i = 0; i < count; ++i) {
    moved[static_cast<std::size_t>(i)] = (laterEpisode ? 0 : all - count) + i + 1;
  }
  return ReorderSegments(episodes, episode, moved,
                         laterEpisode ? before.segment + count - 1 : before.segment);
}

std::optional<Place> SplitSegment(EpisodeList& episodes, Place place, int secondSeconds) {
  Episode* const episode = ItemAt(episodes, place.episode);
  SegmentData* const first = episode ? ItemAt(episode->segments, place.segment) : nullptr;
  if (!first || secondSeconds < 0 || secondSeconds > DivisibleSeconds(*first)) return std::nullopt;
  RequireFits(*episode, 1, 0);
  SegmentData second = *first;
  second.duration = static_cast<float>(secondSeconds);
  first->duration -= second.duration;
  episode->segments.insert(At(episode->segments, place.segment + 1), std::move(second));
  return Place{place.episode, place.segment + 1};
}

std::optional<Place> MergeSegments(EpisodeList& episodes, int episode, const Positions& segments) {
  Episode* const e = ItemAt(episodes, episode);
  if (!e || segments.size() < 2 || !AreThere(segments, e->segments.size())) return std::nullopt;
  const Positions others(segments.begin() + 1, segments.end());
  const float duration =
      SumThatFits(segments, [e](int segment) { return At(e->segments, segment)->duration; });
  TakeOut(e->segments, others);
  At(e->segments, segments.front())->duration = duration;
  return Place{episode, segments.front()};
}

std::optional<Place> SplitEpisode(EpisodeList& episodes, int episode, const Positions& segments,
                                  Positions questions) {
  Episode* const e = ItemAt(episodes, episode);
  if (!e || !AreThere(segments, e->segments.size())) return std::nullopt;
  if (segments.size() == e->segments.size()) return std::nullopt;
  std::ranges::sort(questions);
  if (!questions.empty() && !AreThere(questions, e->questions.size())) return std::nullopt;
  RequireFits(episodes.size() + 1, Text::tooManyEpisodes);
  Episode second;
  second.Descript = e->Descript;
  second.segments = TakeOut(e->segments, segments);
  second.questions = TakeOut(e->questions, questions);
  episodes.insert(At(episodes, episode + 1), std::move(second));
  return Place{episode, 0};
}

std::optional<Place> MergeEpisodes(EpisodeList& episodes, const Positions& selected) {
  if (selected.size() < 2 || !AreThere(selected, episodes.size())) return std::nullopt;
  const float offtask =
      SumThatFits(selected, [&](int episode) { return At(episodes, episode)->offtask; });
  const Positions others(selected.begin() + 1, selected.end());
  const auto all = [&](auto list) {
    std::size_t count = 0;
    for (const int other : others) count += ((*At(episodes, other)).*list).size();
    return count;
  };
  RequireFits(*At(episodes, selected.front()), all(&Episode::segments), all(&Episode::questions));
  Episode merged = std::move(*At(episodes, selected.front()));
  for (Episode& other : TakeOut(episodes, others)) {
    merged.Descript += other.Descript;
    ColAppend(merged.segments, other.segments);
    ColAppend(merged.questions, other.questions);
  }
  merged.offtask = offtask / static_cast<float>(selected.size());
  *At(episodes, selected.front()) = std::move(merged);
  return Place{selected.front(), 0};
}

int DivisibleSeconds(const SegmentData& segment) {
  constexpr double kMost = std::numeric_limits<int>::max();
  return static_cast<int>(
      std::clamp(RoundHalfEven(static_cast<double>(segment.duration)), 0.0, kMost));
}

void RecodeSegment(SegmentData& segment, int activity) {
  if (!IsActivity(activity)) return;
  segment.activityNum = static_cast<std::int16_t>(activity);
  if (!ActivityOf(activity).carriesAbout) segment.aboutdata.clear();
}

void SetSegmentDuration(SegmentData& segment, std::string_view typed) {
  constexpr double kSecondsLimit = 20000;
  const auto seconds = TypedNumber(typed);
  if (!seconds || *seconds < 0) return;
  segment.duration = static_cast<float>(std::fmod(RoundHalfEven(*seconds), kSecondsLimit) + 0.0);
}

}  // namespace orvex
