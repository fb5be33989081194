#include "running/offtask_schedule.h"

#include <algorithm>

#include "model/offtask_cadence.h"
#include "model/time_of_day.h"

namespace orvex {

void OfftaskSchedule::Stop() {
  *this = {};
}

void OfftaskSchedule::Start(float seconds, float cadence) {
  Stop();
  running_ = true;
  nextEstimateIndex_ = NextEstimateIndex(seconds, cadence);
}

void OfftaskSchedule::Restart(float seconds, float cadence) {
  const std::int32_t pending = pending_;
  Start(seconds, cadence);
  pending_ = pending;
}

bool OfftaskSchedule::IsBehind(float seconds, float cadence) const {
  return running_ && DueSecond(nextEstimateIndex_, cadence) <= seconds;
}

void OfftaskSchedule::Tick(float now, float segmentStart, float cadence) {
  if (!running_) return;
  if (CountdownBegin(nextEstimateIndex_, cadence) <= SecondsSince(segmentStart, now)) {
    countdownStart_ = now;
    nextEstimateIndex_ += 1;
    countdown_ = static_cast<std::int32_t>(kCountdownSeconds);
  } else if (countdown_ > 0) {
    const auto minute = static_cast<std::int32_t>(kCountdownSeconds);
    countdown_ = std::max(0, minute - SecondsOfDay(now - countdownStart_).value_or(0));
    if (countdown_ == 0) ++pending_;
  }
}

void OfftaskSchedule::TakeEstimate() {
  pending_ = std::max(0, pending_ - 1);
}

}  // namespace orvex
