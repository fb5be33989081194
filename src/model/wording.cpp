#include "model/wording.h"

#include <array>
#include <charconv>
#include <cmath>

#include "model/clock.h"
#include "model/texts.h"
#include "model/time_of_day.h"

namespace orvex {
namespace {

constexpr double kMinute = 60;

}  // namespace

std::string Shortened(std::string_view text) {
  constexpr std::size_t kMost = 5000;
  if (text.size() <= kMost) return std::string(text);
  std::size_t end = kMost;
  constexpr unsigned char kPartBits = 0xC0;
  constexpr unsigned char kPart = 0x80;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & kPartBits) == kPart) --end;
  return std::string(text.substr(0, end)) + "\u2026";
}

std::string PlainText(std::string_view caption) {
  std::string text(caption);
  for (auto at = text.find("&&"); at != std::string::npos; at = text.find("&&", at + 1)) {
    text.erase(at, 1);
  }
  return text;
}

std::string WholeSecondsText(double seconds) {
  std::array<char, 320> digits{};  // the largest double has 309 digits
  // Adding 0 takes the sign off a negative zero.
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                 RoundHalfEven(seconds) + 0.0, std::chars_format::fixed, 0);
  return {digits.data(), end.ptr};
}

std::string FormatMinSec(double seconds) {
  const double whole = RoundHalfEven(seconds);
  const double length = std::abs(whole);
  return (whole < 0 ? "-" : "") + WholeSecondsText(std::floor(length / kMinute)) + ":" +
         TwoDigits(static_cast<int>(std::fmod(length, kMinute)));
}

std::string DurationInWords(double seconds) {
  const double whole = RoundHalfEven(seconds);
  const double minutes = std::trunc(whole / kMinute);
  const double rest = whole - minutes * kMinute;
  std::string words = Say(rest < 2 ? Text::oneSecond : Text::seconds, {WholeSecondsText(rest)});
  if (minutes >= 1) {
    return Say(minutes == 1 ? Text::oneMinute : Text::minutes, {WholeSecondsText(minutes), words});
  }
  return words;
}

}  // namespace orvex
