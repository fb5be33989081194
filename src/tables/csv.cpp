#include "tables/csv.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <limits>

#include "model/clock.h"
#include "model/wording.h"
#include "store/numbers.h"
#include "study/observation_day.h"

namespace orvex {
namespace {

template <typename Number>
std::string FixedDigits(Number number) {
  if (number == 0) return "0";  // a negative zero as well
  // The smallest single has 45 digits behind its point, the smallest double 324.
  std::array<char, 352> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
  return {digits.data(), end.ptr};
}

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

/// Spreadsheets skip leading blanks, and some treat full-width signs like the usual ones.
bool BeginsLikeFormula(std::string_view text) {
  constexpr std::array<std::string_view, 8> kSigns = {"=", "+", "-", "@", "＝", "＋", "－", "＠"};
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return std::ranges::any_of(kSigns, [&](std::string_view sign) { return text.starts_with(sign); });
}

}  // namespace

void Csv::Separate() {
  if (begun_) text_ += ',';
  begun_ = true;
}

void Csv::Text(std::string_view text) {
  Separate();
  std::string clean = WithoutControls(text);
  if (BeginsLikeFormula(clean)) clean.insert(0, "'");
  // Some readers drop blanks at the ends of an unquoted cell.
  const bool quoted = clean.find_first_of(",\"") != std::string::npos || clean.starts_with(' ') ||
                      clean.ends_with(' ');
  if (!quoted) {
    text_ += clean;
    return;
  }
  text_ += '"';
  for (const char c : clean) text_.append(c == '"' ? 2 : 1, c);
  text_ += '"';
}

void Csv::Code(std::string_view code) {
  Separate();
  text_ += code;
}

void Csv::Number(std::int64_t number) {
  Code(std::to_string(number));
}

void Csv::Number(float number) {
  Code(DigitsOf(number));
}

void Csv::Number(double number) {
  Code(DigitsOf(number));
}

void Csv::Seconds(double seconds) {
  Code(WholeSecondsText(seconds));
}

void Csv::Missing() {
  Code("");
}

void Csv::EndLine() {
  text_ += "\r\n";
  begun_ = false;
}

std::string WithoutControls(std::string_view text) {
  std::string clean(text);
  std::ranges::replace_if(clean, IsControl, ' ');
  return clean;
}

std::string DigitsOf(float number) {
  return FixedDigits(number);
}

std::string DigitsOf(double number) {
  return FixedDigits(number);
}

std::optional<float> TypedSingle(std::string_view text) {
  const auto number = ParseNumber(WithoutBlanks(text));
  if (!number || std::abs(*number) > std::numeric_limits<float>::max()) return std::nullopt;
  return static_cast<float>(*number);
}

std::string IsoDate(std::string_view date) {
  const auto day = DayOf(date);
  if (!day) return "";
  const std::chrono::year_month_day asDate(*day);
  return std::to_string(static_cast<int>(asDate.year())) + "-" +
         TwoDigits(static_cast<int>(static_cast<unsigned>(asDate.month()))) + "-" +
         TwoDigits(static_cast<int>(static_cast<unsigned>(asDate.day())));
}

std::string IsoTime(std::string_view time) {
  const auto numbers = ThreeNumbers(time, ":");
  if (!numbers) return "";
  const auto& [hour, minute, second] = *numbers;
  if (hour > 23 || minute > 59 || second > 59) return "";
  return TwoDigits(hour) + ":" + TwoDigits(minute) + ":" + TwoDigits(second);
}

}  // namespace orvex
