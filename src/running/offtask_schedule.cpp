#include "running/offtask_schedule.h"

#include <algorithm>

#include "model/time_of_day.h"

namespace orvex {
namespace {

constexpr float kMinute = 60;

}  // namespace

void OfftaskSchedule::Stop() {
  *this = {};
}

void OfftaskSchedule::Start(float seconds, float cadence) {
  Stop();
  running_ = true;
  const float minutes = seconds / kMinute;
  const auto passed =
      static_cast<float>(RoundHalfEven(static_cast<double>((minutes + 1) / cadence - 0.5F)));
  nextEstimateIndex_ = passed + (cadence == kUsualCadence ? 1.0F : 0.6F);
}

void OfftaskSchedule::Restart(float seconds, float cadence) {
  const std::int32_t pending = pending_;
  Start(seconds, cadence);
  pending_ = pending;
}

bool OfftaskSchedule::IsBehind(float seconds, float cadence) const {
  return running_ && cadence * nextEstimateIndex_ * kMinute <= seconds;
}

void OfftaskSchedule::Tick(float now, float segmentStart, float cadence) {
  if (!running_) return;
  const float due = (cadence * nextEstimateIndex_ - 1) * kMinute;
  if (due <= SecondsSince(segmentStart, now)) {
    countdownStart_ = now;
    nextEstimateIndex_ += 1;
    countdown_ = static_cast<std::int32_t>(kMinute);
  } else if (countdown_ > 0) {
    const auto minute = static_cast<std::int32_t>(kMinute);
    countdown_ = std::max(0, minute - SecondsOfDay(now - countdownStart_).value_or(0));
    if (countdown_ == 0) ++pending_;
  }
}

void OfftaskSchedule::TakeEstimate() {
  pending_ = std::max(0, pending_ - 1);
}

}  // namespace orvex
