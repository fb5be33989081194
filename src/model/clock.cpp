#include "model/clock.h"

#include <algorithm>

namespace orvex {

std::string TwoDigits(int number) {
  const std::string digits = std::to_string(number < 0 ? -number : number);
  return (number < 0 ? "-" : "") + (digits.size() < 2 ? "0" + digits : digits);
}

std::string Clock::TimeText(const char* separator) const {
  const int seconds = std::clamp(static_cast<int>(WallSeconds()), 0, 86399);
  return TwoDigits(seconds / 3600) + separator + TwoDigits(seconds / 60 % 60) + separator +
         TwoDigits(seconds % 60);
}

std::string Clock::DateText() const {
  const Date today = Today();
  const std::string year = std::to_string(today.year);
  return TwoDigits(today.month) + "-" + TwoDigits(today.day) + "-" +
         std::string(year.size() < 4 ? 4 - year.size() : 0, '0') + year;
}

std::string Clock::ShortDateText() const {
  const Date today = Today();
  return TwoDigits(today.month) + "-" + TwoDigits(today.day) + "-" + TwoDigits(today.year % 100);
}

}  // namespace orvex
