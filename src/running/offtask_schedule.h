#pragma once

#include <cstdint>

#include "model/activities.h"

namespace orvex {

/// Decides when off-task estimates fall due within a segment. A countdown begins one minute before
/// each; when it ends, one more estimate is pending.
class OfftaskSchedule {
 public:
  /// Stops the schedule, its countdown included, and drops all pending estimates.
  void Stop();
  /// Starts the schedule anew in a segment that has run for `seconds`. `cadence` is the number of
  /// minutes between two estimates; the same holds below.
  void Start(float seconds, float cadence);

  /// Starts the schedule anew after it has fallen behind. Pending estimates stay pending.
  void Restart(float seconds, float cadence);
  /// True when the next estimate should already be pending, but no tick has made it so.
  bool IsBehind(float seconds, float cadence) const;

  /// True while Tick is to be called.
  bool Running() const { return running_; }
  /// To be called every 500 ms while the schedule runs. `now` and `segmentStart`, the start of the
  /// segment, are seconds since midnight.
  void Tick(float now, float segmentStart, float cadence);

  /// Removes one pending estimate, which was made or skipped.
  void TakeEstimate();

  /// Seconds until the next estimate is pending; 0 while no countdown runs.
  std::int32_t OfftaskCountdown() const { return countdown_; }
  std::int32_t OfftaskPending() const { return pending_; }

  /// Moves the stored time by `seconds`, after the clock itself was moved by that much.
  void ShiftTimes(float seconds) { countdownStart_ += seconds; }
  /// Passes the whole state of `schedule` to `archive`, which may read or change it.
  template <typename Archive, typename Schedule>
  static void Visit(Archive& archive, Schedule& schedule) {
    archive.Numbers("schedule", schedule.running_, schedule.nextEstimateIndex_,
                    schedule.countdownStart_, schedule.countdown_, schedule.pending_);
  }

 private:
  bool running_ = false;
  float nextEstimateIndex_ = 0;
  float countdownStart_ = 0;
  std::int32_t countdown_ = 0;
  std::int32_t pending_ = 0;
};

}  // namespace orvex
