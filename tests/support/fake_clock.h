#pragma once

#include <cstdint>

#include "model/clock.h"

namespace orvex::test {

/// A clock that only moves when the test moves it.
class FakeClock : public Clock {
 public:
  explicit FakeClock(int hour = 9, int minute = 0, int second = 0) { Set(hour, minute, second); }

  float SecondsSinceMidnight() const override { return static_cast<float>(seconds_); }
  float WallSeconds() const override { return static_cast<float>(seconds_ + wallAhead); }
  Date Today() const override { return today; }
  std::int64_t UnixSeconds() const override {
    constexpr std::int64_t kSecondsPerDay = 86400;
    return today.day * kSecondsPerDay + static_cast<std::int64_t>(seconds_ + wallAhead);
  }

  void Set(int hour, int minute, int second) { seconds_ = hour * 3600 + minute * 60 + second; }
  /// Moves the clock on, past midnight into the next day.
  void Advance(double seconds) {
    seconds_ += seconds;
    while (seconds_ >= 86400) {
      seconds_ -= 86400;
      ++today.day;
    }
  }

  Date today{2001, 3, 14};
  double wallAhead = 0;  ///< by how much the system's clock was set forward

 private:
  double seconds_ = 0;
};

}  // namespace orvex::test
