#pragma once

#include <cstdint>

#include "model/activities.h"

namespace orvex {

/// When off-task estimates fall due within a segment. A minute before each one a countdown begins;
/// at its end one more estimate is pending.
class OfftaskSchedule {
 public:
  /// Stops the schedule: nothing counts down, and nothing is pending.
  void Stop();
  /// Starts it anew within a segment that has run for `seconds`; `cadence` in minutes.
  void Start(float seconds, float cadence);

  /// Starts it anew after it has fallen behind. What is pending stays pending.
  void Restart(float seconds, float cadence);
  /// True when the next estimate should be pending by now, but no tick has made it so.
  bool IsBehind(float seconds, float cadence) const;

  /// True while it is to be asked every 500 ms.
  bool Running() const { return running_; }
  /// Every 500 ms while it runs, in a segment that started at `segmentStart`. Both times are
  /// readings of the clock.
  void Tick(float now, float segmentStart, float cadence);

  /// An estimate was made or skipped.
  void TakeEstimate();

  /// Seconds until the next estimate is pending; 0 when none is near.
  std::int32_t OfftaskCountdown() const { return countdown_; }
  std::int32_t OfftaskPending() const { return pending_; }

  /// The clock that it works by has been moved by `seconds`.
  void ShiftTimes(float seconds) { countdownStart_ += seconds; }
  /// Hands the whole state of `schedule` to `archive`, which may read or change it.
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
