#include "editor/flat_episodes.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orvex {
namespace {

std::vector<EpisodeHead> HeadsOf(const EpisodeList& episodes) {
  std::vector<EpisodeHead> heads;
  heads.reserve(episodes.size());
  for (const Episode& episode : episodes) {
    heads.push_back({episode.Descript, episode.bReview, episode.offtask, episode.segments.size(),
                     episode.questions.size()});
  }
  return heads;
}

/// Views the segments or questions of all episodes as one list. It copies nothing, because the list
/// may be long and is compared with every key typed.
template <typename Item>
class Joined {
 public:
  using List = std::vector<Item> Episode::*;

  Joined(const EpisodeList& episodes, List list) : episodes_(episodes), list_(list) {
    for (const Episode& episode : episodes) size_ += (episode.*list).size();
  }

  std::size_t Size() const { return size_; }

  /// How many items are equal at the start of both.
  std::size_t EqualAtStart(const std::vector<Item>& other) const {
    std::size_t equal = 0;
    for (const Episode& episode : episodes_) {
      for (const Item& item : episode.*list_) {
        if (equal == other.size() || !(item == other[equal])) return equal;
        ++equal;
      }
    }
    return equal;
  }

  /// How many items are equal at the end of both, up to `most`.
  std::size_t EqualAtEnd(const std::vector<Item>& other, std::size_t most) const {
    std::size_t equal = 0;
    for (auto episode = episodes_.rbegin(); episode != episodes_.rend(); ++episode) {
      const std::vector<Item>& items = (*episode).*list_;
      for (auto item = items.rbegin(); item != items.rend(); ++item) {
        if (equal == most || !(*item == other[other.size() - 1 - equal])) return equal;
        ++equal;
      }
    }
    return equal;
  }

  /// The items from `first` up to, but not including, `end`.
  std::vector<Item> Part(std::size_t first, std::size_t end) const {
    std::vector<Item> part;
    part.reserve(end - first);
    std::size_t start = 0;  // position of the episode's first item
    for (const Episode& episode : episodes_) {
      const std::vector<Item>& items = episode.*list_;
      for (std::size_t i = std::max(first, start); i < std::min(end, start + items.size()); ++i) {
        part.push_back(items[i - start]);
      }
      start += items.size();
    }
    return part;
  }

 private:
  const EpisodeList& episodes_;
  List list_;
  std::size_t size_ = 0;
};

/// The change from the first to the last difference between two lists.
template <typename Item>
ListChange<Item> ChangeOf(const std::vector<Item>& before, const Joined<Item>& after) {
  const std::size_t start = after.EqualAtStart(before);
  const std::size_t most = std::min(before.size(), after.Size()) - start;
  const std::size_t end = after.EqualAtEnd(before, most);
  const auto at = [&before](std::size_t i) {
    return before.begin() + static_cast<std::ptrdiff_t>(i);
  };
  return {start, {at(start), at(before.size() - end)}, after.Part(start, after.Size() - end)};
}

ListChange<EpisodeHead> ChangeOf(const std::vector<EpisodeHead>& before,
                                 std::vector<EpisodeHead> after) {
  const auto [first, firstAfter] = std::ranges::mismatch(before, after);
  auto last = before.end();
  auto lastAfter = after.end();
  while (last != first && lastAfter != firstAfter && *(last - 1) == *(lastAfter - 1)) {
    --last;
    --lastAfter;
  }
  return {static_cast<std::size_t>(first - before.begin()),
          {first, last},
          {std::make_move_iterator(firstAfter), std::make_move_iterator(lastAfter)}};
}

/// Replaces the `count` items from `position` on with `items`.
template <typename Item>
void Replace(std::vector<Item>& list, std::size_t position, std::size_t count,
             const std::vector<Item>& items) {
  const auto at = list.begin() + static_cast<std::ptrdiff_t>(position);
  const auto both = static_cast<std::ptrdiff_t>(std::min(count, items.size()));
  std::copy(items.begin(), items.begin() + both, at);
  if (count < items.size()) {
    list.insert(at + both, items.begin() + both, items.end());
  } else {
    list.erase(at + both, at + static_cast<std::ptrdiff_t>(count));
  }
}

template <typename Item>
void Replace(const ListChange<Item>& change, bool back, std::vector<Item>& list) {
  const auto& gone = back ? change.after : change.before;
  Replace(list, change.position, gone.size(), back ? change.before : change.after);
}

void Replace(const EpisodeChange& change, bool back, FlatEpisodes& episodes) {
  Replace(change.heads, back, episodes.heads);
  Replace(change.segments, back, episodes.segments);
  Replace(change.questions, back, episodes.questions);
}

}  // namespace

FlatEpisodes Flat(const EpisodeList& episodes) {
  const Joined segments(episodes, &Episode::segments);
  const Joined questions(episodes, &Episode::questions);
  return {HeadsOf(episodes), segments.Part(0, segments.Size()),
          questions.Part(0, questions.Size())};
}

EpisodeList Unflattened(const FlatEpisodes& flat) {
  EpisodeList episodes;
  episodes.reserve(flat.heads.size());
  auto segment = flat.segments.begin();
  auto question = flat.questions.begin();
  for (const EpisodeHead& head : flat.heads) {
    Episode& episode = episodes.emplace_back();
    episode.Descript = head.Descript;
    episode.bReview = head.bReview;
    episode.offtask = head.offtask;
    const auto segments = segment + static_cast<std::ptrdiff_t>(head.segments);
    episode.segments.assign(std::exchange(segment, segments), segments);
    const auto questions = question + static_cast<std::ptrdiff_t>(head.questions);
    episode.questions.assign(std::exchange(question, questions), questions);
  }
  return episodes;
}

EpisodeChange ChangeBetween(const FlatEpisodes& before, const EpisodeList& after) {
  return {ChangeOf(before.heads, HeadsOf(after)),
          ChangeOf(before.segments, Joined(after, &Episode::segments)),
          ChangeOf(before.questions, Joined(after, &Episode::questions))};
}

void Apply(const EpisodeChange& change, FlatEpisodes& episodes) {
  Replace(change, false, episodes);
}

void TakeBack(const EpisodeChange& change, FlatEpisodes& episodes) {
  Replace(change, true, episodes);
}

}  // namespace orvex
