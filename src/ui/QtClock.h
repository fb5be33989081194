#pragma once

#include "model/clock.h"

namespace orvex {

/// Starts from the machine's local time and then counts on its own, unaffected by changes to the
/// system's clock and by sleep.
class QtClock : public Clock {
 public:
  QtClock();

  float SecondsSinceMidnight() const override;
  float WallSeconds() const override;
  Date Today() const override;
  std::int64_t UnixSeconds() const override;

 private:
  std::int64_t midnight_;  ///< midnight on the system's counter, in hundredths of a second
};

}  // namespace orvex
