#include "agreement/activity_agreement.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "agreement/share_of_both.h"
#include "model/time_of_day.h"

namespace orvex {
namespace {

/// The overlap of two classes, in its shared stretches: two lists of stretches, each without gaps,
/// laid over each other.
std::vector<SharedStretch> SharedStretches(const std::vector<ActivityStretch>& first,
                                           const std::vector<ActivityStretch>& second) {
  std::vector<SharedStretch> shared;
  auto a = first.begin();
  auto b = second.begin();
  while (a != first.end() && b != second.end()) {
    const double begin = std::max(a->begin, b->begin);
    const double end = std::min(a->end, b->end);
    if (begin < end) shared.push_back({begin, end, a->activity, b->activity});
    if (a->end < b->end) {
      ++a;
    } else {
      ++b;
    }
  }
  return shared;
}

/// The seconds of `piece` that have, within the tolerance, a second of the overlap in which
/// `stretches` show `activity`. The overlap lies from `begin` to `end`.
std::int64_t SecondsNear(const SharedStretch& piece, int activity,
                         const std::vector<ActivityStretch>& stretches,
                         const SharedStretch& overlap, double tolerance) {
  const auto near = std::ranges::partition_point(stretches, [&](const ActivityStretch& stretch) {
    return stretch.end + tolerance <= piece.begin;
  });
  double seconds = 0;
  double counted = piece.begin;  // up to here
  for (auto stretch = near; stretch != stretches.end() && stretch->begin - tolerance < piece.end;
       ++stretch) {
    const double shown = std::max(stretch->begin, overlap.begin);
    const double over = std::min(stretch->end, overlap.end);
    if (stretch->activity != activity || shown >= over) continue;
    const double from = std::max(shown - tolerance, counted);
    const double to = std::min(over + tolerance, piece.end);
    if (from >= to) continue;
    seconds += to - from;
    counted = to;
  }
  return static_cast<std::int64_t>(seconds);
}

std::size_t CodeOf(int activity) {
  return static_cast<std::size_t>(activity);
}

/// The starts of segments in the overlap, but the class's first.
std::vector<double> Boundaries(const std::vector<ActivityStretch>& stretches, double begin,
                               double end) {
  std::vector<double> boundaries;
  for (std::size_t i = 1; i < stretches.size(); ++i) {
    const double start = stretches[i].begin;
    if (start >= begin && start < end) boundaries.push_back(start);
  }
  return boundaries;
}

}  // namespace

std::vector<ActivityStretch> StretchesOf(const EpisodeList& episodes, double offset) {
  std::vector<ActivityStretch> stretches;
  double second = 0;  // exactly: of segments whose lengths are no whole seconds as well
  for (const Episode& episode : episodes) {
    for (const SegmentData& segment : episode.segments) {
      const double begin = RoundHalfEven(second);
      second += static_cast<double>(segment.duration);
      const double end = RoundHalfEven(second);
      const bool isCredible = segment.duration >= 0 && end <= static_cast<double>(kSecondsPerDay);
      if (!isCredible) return {};
      stretches.push_back({begin + offset, end + offset,
                           IsActivity(segment.activityNum) ? segment.activityNum : kNoActivity});
    }
  }
  return stretches;
}

ActivityAgreement& ActivityAgreement::operator+=(const ActivityAgreement& other) {
  table += other.table;
  tolerance = other.tolerance;
  tolerantFirst += other.tolerantFirst;
  tolerantSecond += other.tolerantSecond;
  return *this;
}

ActivityAgreement CompareActivities(const std::vector<ActivityStretch>& first,
                                    const std::vector<ActivityStretch>& second, int tolerance) {
  ActivityAgreement agreement = {.tolerance = tolerance};
  const std::vector<SharedStretch> shared = SharedStretches(first, second);
  if (shared.empty()) return agreement;
  const SharedStretch overlap = {shared.front().begin, shared.back().end};
  for (const SharedStretch& piece : shared) {
    const std::size_t a = CodeOf(piece.first);
    const std::size_t b = CodeOf(piece.second);
    const auto seconds = static_cast<std::int64_t>(piece.end - piece.begin);
    agreement.table.Add(a, b, seconds);
    const std::int64_t ofFirst = SecondsNear(piece, piece.first, second, overlap, tolerance);
    agreement.tolerantFirst.Add(a, a, ofFirst);
    agreement.tolerantFirst.Add(a, b, seconds - ofFirst);
    const std::int64_t ofSecond = SecondsNear(piece, piece.second, first, overlap, tolerance);
    agreement.tolerantSecond.Add(b, b, ofSecond);
    agreement.tolerantSecond.Add(b, a, seconds - ofSecond);
  }
  return agreement;
}

std::vector<SharedStretch> DifferingStretches(const std::vector<ActivityStretch>& first,
                                              const std::vector<ActivityStretch>& second) {
  std::vector<SharedStretch> differing;
  for (const SharedStretch& piece : SharedStretches(first, second)) {
    if (piece.first == piece.second) continue;
    const bool goesOn = !differing.empty() && differing.back().end == piece.begin &&
                        differing.back().first == piece.first &&
                        differing.back().second == piece.second;
    if (goesOn) {
      differing.back().end = piece.end;
    } else {
      differing.push_back(piece);
    }
  }
  return differing;
}

std::optional<double> BoundaryAgreement::Share() const {
  return ShareOfBoth(static_cast<std::size_t>(both), static_cast<std::size_t>(first),
                     static_cast<std::size_t>(second));
}

BoundaryAgreement CompareBoundaries(const std::vector<ActivityStretch>& first,
                                    const std::vector<ActivityStretch>& second, int tolerance) {
  if (first.empty() || second.empty()) return {};
  const double begin = std::max(first.front().begin, second.front().begin);
  const double end = std::min(first.back().end, second.back().end);
  const std::vector<double> ofFirst = Boundaries(first, begin, end);
  const std::vector<double> ofSecond = Boundaries(second, begin, end);
  BoundaryAgreement agreement = {.first = static_cast<int>(ofFirst.size()),
                                 .second = static_cast<int>(ofSecond.size())};
  // Both ascend, so whichever comes too early for the other's next one has no partner at all.
  auto a = ofFirst.begin();
  auto b = ofSecond.begin();
  while (a != ofFirst.end() && b != ofSecond.end()) {
    if (*a + tolerance < *b) {
      ++a;
    } else if (*b + tolerance < *a) {
      ++b;
    } else {
      ++agreement.both;
      ++a;
      ++b;
    }
  }
  return agreement;
}

}  // namespace orvex
