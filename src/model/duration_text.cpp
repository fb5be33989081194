#include "model/duration_text.h"

#include <array>
#include <charconv>
#include <cmath>

#include "model/time_of_day.h"

namespace orvex {

std::string WholeSecondsText(double seconds) {
  std::array<char, 320> digits{};  // the largest double has 309
  // Adding 0 takes the sign off a negative zero.
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                 RoundHalfEven(seconds) + 0.0, std::chars_format::fixed, 0);
  return {digits.data(), end.ptr};
}

std::string DurationInWords(double seconds) {
  constexpr double kMinute = 60.0;
  const double whole = RoundHalfEven(seconds);
  const double minutes = std::trunc(whole / kMinute);
  const double rest = whole - minutes * kMinute;
  std::string words;
  if (minutes > 1) {
    words = WholeSecondsText(minutes) + " minutes, ";
  } else if (minutes == 1) {
    words = "1 minute, ";
  }
  return words + WholeSecondsText(rest) + (rest < 2 ? " second" : " seconds");
}

}  // namespace orvex
