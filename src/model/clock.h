#pragma once

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
  /// Seconds since midnight, at least 0 and below 86400, exact to a hundredth of a second or so.
  virtual float SecondsSinceMidnight() const = 0;
  virtual Date Today() const = 0;

  /// The time of day as "hh:mm:ss".
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
