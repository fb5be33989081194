#pragma once

#include <string>

#include "desk/guarded_tick.h"
#include "desk/services.h"
#include "observe/offtask_indicator.h"

namespace orvex {

class LiveObservation;

/// The three running clocks of a class, the captions of two, and the live form's off-task prompt.
/// Forms shown in place of the live form use the same clocks.
class SessionClocks {
 public:
  SessionClocks(const Services& services, LiveObservation& live);

  /// To be called once a second.
  void Tick();

  /// "Episode 2 Time: " and "Segment 5 Time: ".
  std::string EpisodeCaption() const;
  std::string SegmentCaption() const;
  const std::string& EpisodeTime() const { return episodeTime_; }
  const std::string& SegmentTime() const { return segmentTime_; }
  const std::string& TimeOfDay() const { return timeOfDay_; }
  /// The message for the observer while the log or the recovery file cannot be written; ""
  /// otherwise.
  std::string LogTrouble() const;
  OfftaskIndicator& Offtask() { return offtask_; }
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
