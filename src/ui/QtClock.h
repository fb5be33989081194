#pragma once

#include "model/clock.h"

namespace orvex {

/// The local time of this machine.
class QtClock : public Clock {
 public:
  float SecondsSinceMidnight() const override;
  Date Today() const override;
};

}  // namespace orvex
