#pragma once

#include "model/clock.h"

namespace orvex::test {

/// A clock that stands still until the test moves it.
class FakeClock : public Clock {
 public:
  explicit FakeClock(int hour = 9, int minute = 0, int second = 0) { Set(hour, minute, second); }

  float SecondsSinceMidnight() const override { return static_cast<float>(seconds_); }
  Date Today() const override { return today; }

  void Set(int hour, int minute, int second) { seconds_ = hour * 3600 + minute * 60 + second; }
  /// Moves on, past midnight into the next day.
  void Advance(double seconds) {
    seconds_ += seconds;
    while (seconds_ >= 86400) {
      seconds_ -= 86400;
      ++today.day;
    }
  }

  Date today{2001, 3, 14};

 private:
  double seconds_ = 0;
};

}  // namespace orvex::test
