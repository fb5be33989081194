#include "reports/missed_estimates.h"

#include <algorithm>
#include <cstddef>

#include "model/activities.h"
#include "model/offtask_cadence.h"
#include "reports/class_log.h"

namespace orvex {
namespace {

/// The seconds of the class at which estimates fell due in a segment.
std::vector<double> DueIn(const LoggedSegment& segment) {
  // A screen that is drawn late, a segment that is ended in that moment.
  constexpr double kSure = 5;
  std::vector<double> due;
  const float cadence = ActivityOf(segment.activity).cadence;
  if (cadence <= 0 || !segment.isSteady) return due;
  // A countdown that should have begun before the activity was chosen begins then.
  const double earliest = segment.chosen + static_cast<double>(kCountdownSeconds);
  float index = NextEstimateIndex(static_cast<float>(segment.chosen), cadence);
  for (;; index += 1) {
    const double second = std::max(earliest, static_cast<double>(DueSecond(index, cadence)));
    if (second + kSure > segment.Length()) return due;
    due.push_back(segment.begin + second);
  }
}

/// Takes what the estimates of a segment answer out of what was due. False when one of them was
/// made at a time that is not in the segment.
bool TakeAnswered(const std::vector<const LoggedEstimate*>& estimates, const LoggedSegment& segment,
                  std::vector<double>& due) {
  for (const LoggedEstimate* estimate : estimates) {
    const auto time =
        estimate->second ? TimeWithin(*estimate->second, segment.begin, segment.end) : std::nullopt;
    if (!time) return false;
    // The log has whole seconds.
    const auto next = std::ranges::upper_bound(due, *time + 1);
    if (next != due.begin()) due.erase(next - 1);
  }
  return true;
}

}  // namespace

std::vector<MissedEstimate> MissedEstimates(const ClassLog& log) {
  std::vector<std::vector<const LoggedEstimate*>> entered(log.segments.size() + 1);
  for (const LoggedEstimate& estimate : log.estimates)
    entered[estimate.segment].push_back(&estimate);
  std::vector<MissedEstimate> missed;
  for (std::size_t i = 0; i < log.segments.size(); ++i) {
    const LoggedSegment& segment = log.segments[i];
    std::vector<double> due = DueIn(segment);
    if (!TakeAnswered(entered[i], segment, due)) continue;
    for (const double second : due) missed.push_back({second, segment.activity});
  }
  return missed;
}

}  // namespace orvex
