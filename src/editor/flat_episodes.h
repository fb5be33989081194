#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "model/episode.h"

namespace orvex {

/// An episode without its segments and questions.
struct EpisodeHead {
  std::string Descript;
  std::string bReview;
  float offtask = 0;
  std::size_t segments = 0;   ///< how many the episode has
  std::size_t questions = 0;  ///< how many the episode has

  bool operator==(const EpisodeHead&) const = default;
};

/// Episodes laid out as three lists, each in the order of the observation. This keeps the record of
/// a change of structure small: joining two neighbors changes only their heads.
struct FlatEpisodes {
  std::vector<EpisodeHead> heads;
  std::vector<SegmentData> segments;
  std::vector<questionInfo> questions;

  bool operator==(const FlatEpisodes&) const = default;
};

FlatEpisodes Flat(const EpisodeList& episodes);
EpisodeList Unflattened(const FlatEpisodes& flat);

/// A change in a list: from `position` (counted from 0), `after` has replaced `before`.
template <typename Item>
struct ListChange {
  std::size_t position = 0;
  std::vector<Item> before;
  std::vector<Item> after;

  bool None() const { return before.empty() && after.empty(); }
};

/// What changed in the episodes, from the first to the last difference in each list.
struct EpisodeChange {
  ListChange<EpisodeHead> heads;
  ListChange<SegmentData> segments;
  ListChange<questionInfo> questions;

  bool None() const { return heads.None() && segments.None() && questions.None(); }
};

EpisodeChange ChangeBetween(const FlatEpisodes& before, const EpisodeList& after);
/// Turn the state before the change into the one after it, or the other way round.
void Apply(const EpisodeChange& change, FlatEpisodes& episodes);
void TakeBack(const EpisodeChange& change, FlatEpisodes& episodes);

}  // namespace orvex
