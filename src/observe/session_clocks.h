#pragma once

#include <string>

#include "observe/offtask_indicator.h"
#include "observe/tick.h"
#include "store/services.h"

namespace orvex {

class LiveObservation;

/// The three running clocks of the live form, and its off-task prompt.
class SessionClocks {
 public:
  SessionClocks(const Services& services, const LiveObservation& live);

  /// Once a second.
  void Tick();

  const std::string& EpisodeTime() const { return episodeTime_; }
  const std::string& SegmentTime() const { return segmentTime_; }
  const std::string& TimeOfDay() const { return timeOfDay_; }
  const OfftaskIndicator& Offtask() const { return offtask_; }

 private:
  std::string TimeSince(float start) const;

  Services services_;
  const LiveObservation& live_;
  GuardedTick tick_;
  std::string episodeTime_ = "00 : 00";
  std::string segmentTime_ = "00 : 00";
  std::string timeOfDay_;
  OfftaskIndicator offtask_;
};

}  // namespace orvex
