#include "observe/offtask_indicator.h"

#include "model/clock.h"
#include "model/texts.h"
#include "observe/live_observation.h"

namespace orvex {

void OfftaskIndicator::Tick() {
  buttonVisible_ = live_.Running().schedule.OfftaskPending() >= 1;
  if (buttonVisible_) blank_ = !blank_;
}

void OfftaskIndicator::TakeEstimate() {
  live_.Estimates().TakePending();
  buttonVisible_ = false;
}

bool OfftaskIndicator::ButtonVisible() const {
  return buttonVisible_ && live_.Running().schedule.OfftaskPending() >= 1;
}

int OfftaskIndicator::Pending() const {
  return live_.Running().schedule.OfftaskPending();
}

std::string OfftaskIndicator::CountdownText() const {
  const OfftaskSchedule& schedule = live_.Running().schedule;
  if (schedule.OfftaskPending() >= 1 || schedule.OfftaskCountdown() < 1) return "";
  return Say(Text::offtaskCountdown, {TwoDigits(schedule.OfftaskCountdown())});
}

}  // namespace orvex
