#pragma once

#include <cstdint>
#include <string>

namespace orvex {

struct Date {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
};

/// The only source of time. All times of one observation come from one clock.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Seconds since midnight, at least 0 and below 86400, exact to about a hundredth of a second.
  /// Runs evenly from one midnight to the next even when the system's clock is set: a duration
  /// measured with it is never an hour too long or too short.
  virtual float SecondsSinceMidnight() const = 0;
  /// Seconds since midnight by the clock on the wall. Differs from SecondsSinceMidnight only after
  /// the system's clock has been set.
  virtual float WallSeconds() const { return SecondsSinceMidnight(); }
  virtual Date Today() const = 0;
  /// Seconds since 1970 by the system's clock, to tell how long ago another run of the program was.
  virtual std::int64_t UnixSeconds() const = 0;

  /// The time of day on the wall as "hh:mm:ss".
  std::string TimeText() const { return TimeText(":"); }
  /// The time of day as "hh : mm : ss", for the clocks of the forms.
  std::string SpacedTimeText() const { return TimeText(" : "); }
  /// Today as "mm-dd-yyyy", and as "mm-dd-yy".
  std::string DateText() const;
  std::string ShortDateText() const;

 private:
  std::string TimeText(const char* separator) const;
};

/// `number` with at least two digits.
std::string TwoDigits(int number);

}  // namespace orvex
