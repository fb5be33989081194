#pragma once

#include <optional>
#include <vector>

#include "agreement/code_table.h"
#include "model/activities.h"
#include "model/episode.h"

namespace orvex {

/// A stretch of a class with one activity, in seconds from the begin of the first observer's class.
struct ActivityStretch {
  double begin = 0;
  double end = 0;
  int activity = kNoActivity;
};
/// The segments of a class that began `offset` seconds after the first observer's, in their order.
/// Segments without a length are among them: each is a start of its own. None for a class whose
/// time cannot be believed: a segment of negative length, or more than a day in all.
std::vector<ActivityStretch> StretchesOf(const EpisodeList& episodes, double offset);

/// What two observers saw the class do, second by second, while both observed. The code of an
/// activity in the tables is its number; kNoActivity stands for all that is none.
struct ActivityAgreement {
  CodeTable table{kActivityCount + 1};
  int tolerance = 0;  ///< in seconds
  /// A second of the first observer's agrees when the second observer has its activity within the
  /// tolerance; `tolerantSecond` is the same with the second observer first.
  CodeTable tolerantFirst{kActivityCount + 1};
  CodeTable tolerantSecond{kActivityCount + 1};  ///< the second observer's activities are the rows

  /// Adds the seconds of another class, which was compared with the same tolerance.
  ActivityAgreement& operator+=(const ActivityAgreement& other);
};
/// Compares what two observers saw, from the later begin to the earlier end. `tolerance` is in
/// seconds, from 0 on. Where they have no time in common, the tables are empty.
ActivityAgreement CompareActivities(const std::vector<ActivityStretch>& first,
                                    const std::vector<ActivityStretch>& second, int tolerance);

/// A stretch of the overlap in which neither observer's activity changes.
struct SharedStretch {
  double begin = 0;
  double end = 0;
  int first = kNoActivity;   ///< the first observer's activity
  int second = kNoActivity;  ///< the second observer's
};
/// The stretches of time, within the overlap, in which the two differ.
std::vector<SharedStretch> DifferingStretches(const std::vector<ActivityStretch>& first,
                                              const std::vector<ActivityStretch>& second);

/// Where an activity gave way to the next, by both observers: the starts of segments within the
/// overlap, but the class's very first.
struct BoundaryAgreement {
  int first = 0;
  int second = 0;
  int both = 0;  ///< matched one to one, in order, within the tolerance

  std::optional<double> Share() const;  ///< twice `both` of all; nothing when there are none
};
/// Matches as many starts as can be, in order, which are at most `tolerance` seconds apart.
BoundaryAgreement CompareBoundaries(const std::vector<ActivityStretch>& first,
                                    const std::vector<ActivityStretch>& second, int tolerance);

}  // namespace orvex
