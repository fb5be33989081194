#pragma once

#include "model/clock.h"

namespace orvex {

/// The local time of this machine when the clock was made, and what has passed since then by the
/// count that the system never sets, not even while it sleeps.
class QtClock : public Clock {
 public:
  QtClock();

  float SecondsSinceMidnight() const override;
  float WallSeconds() const override;
  Date Today() const override;
  std::int64_t UnixSeconds() const override;

 private:
  std::int64_t midnight_;  ///< on the system's count, in hundredths of a second
};

}  // namespace orvex
