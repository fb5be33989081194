#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "model/episode.h"

namespace orvex {

/// An episode without what it consists of.
struct EpisodeHead {
  std::string Descript;
  std::string bReview;
  float offtask = 0;
  std::size_t segments = 0;   ///< how many of them are the episode's
  std::size_t questions = 0;  ///< the same

  bool operator==(const EpisodeHead&) const = default;
};

/// Episodes laid out as three lists, each in the order of the observation. So it stays small what a
/// change of structure changes: to join two episodes changes their heads only.
struct FlatEpisodes {
  std::vector<EpisodeHead> heads;
  std::vector<SegmentData> segments;
  std::vector<questionInfo> questions;

  bool operator==(const FlatEpisodes&) const = default;
};

FlatEpisodes Flat(const EpisodeList& episodes);
EpisodeList Unflattened(const FlatEpisodes& flat);

/// What took the place of what in a list: from `position` on, `after` stands for `before`.
template <typename Item>
struct ListChange {
  std::size_t position = 0;
  std::vector<Item> before;
  std::vector<Item> after;

  bool None() const { return before.empty() && after.empty(); }
};

/// What changed in episodes, from the first to the last difference of each list.
struct EpisodeChange {
  ListChange<EpisodeHead> heads;
  ListChange<SegmentData> segments;
  ListChange<questionInfo> questions;

  bool None() const { return heads.None() && segments.None() && questions.None(); }
};

EpisodeChange ChangeBetween(const FlatEpisodes& before, const EpisodeList& after);
/// Makes `episodes` what they were after the change, or before it. They must be the others.
void Apply(const EpisodeChange& change, FlatEpisodes& episodes);
void TakeBack(const EpisodeChange& change, FlatEpisodes& episodes);

}  // namespace orvex
