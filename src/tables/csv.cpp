#include "tables/csv.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <optional>

#include "model/clock.h"
#include "model/wording.h"

namespace orvex {
namespace {

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

/// Spreadsheets look past blanks, and some take the wide signs for the usual ones.
bool BeginsLikeFormula(std::string_view text) {
  constexpr std::array<std::string_view, 8> kSigns = {"=", "+", "-", "@", "＝", "＋", "－", "＠"};
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return std::ranges::any_of(kSigns, [&](std::string_view sign) { return text.starts_with(sign); });
}

/// The numbers of a date or a time of day, between which one of `separators` stands.
std::optional<std::array<int, 3>> ThreeNumbers(std::string_view text, std::string_view separators) {
  std::array<int, 3> numbers{};
  const char* at = text.data();
  const char* const end = text.data() + text.size();
  for (int& number : numbers) {
    if (&number != &numbers.front()) {
      if (at == end || separators.find(*at) == std::string_view::npos) return std::nullopt;
      ++at;
    }
    if (at == end || *at < '0' || *at > '9') return std::nullopt;
    const auto read = std::from_chars(at, end, number);
    if (read.ec != std::errc{}) return std::nullopt;
    at = read.ptr;
  }
  if (at != end) return std::nullopt;
  return numbers;
}

}  // namespace

void Csv::Separate() {
  if (begun_) text_ += ',';
  begun_ = true;
}

Csv& Csv::Text(std::string_view text) {
  Separate();
  std::string clean(text);
  std::ranges::replace_if(clean, IsControl, ' ');
  if (BeginsLikeFormula(clean)) clean.insert(0, "'");
  // Readers may drop blanks around a cell that is not quoted.
  const bool quoted = clean.find_first_of(",\"") != std::string::npos || clean.starts_with(' ') ||
                      clean.ends_with(' ');
  if (!quoted) {
    text_ += clean;
    return *this;
  }
  text_ += '"';
  for (const char c : clean) text_.append(c == '"' ? 2 : 1, c);
  text_ += '"';
  return *this;
}

Csv& Csv::Code(std::string_view code) {
  Separate();
  text_ += code;
  return *this;
}

Csv& Csv::Number(std::int64_t number) {
  return Code(std::to_string(number));
}

Csv& Csv::Number(float number) {
  if (number == 0) return Code("0");  // a negative zero as well
  std::array<char, 64> digits{};      // the smallest single has 45 behind its point
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
  return Code({digits.data(), end.ptr});
}

Csv& Csv::Seconds(double seconds) {
  return Code(WholeSecondsText(seconds));
}

Csv& Csv::Missing() {
  return Code("");
}

void Csv::EndLine() {
  text_ += "\r\n";
  begun_ = false;
}

std::string IsoDate(std::string_view date) {
  const auto numbers = ThreeNumbers(date, "-/");
  if (!numbers) return "";
  const auto& [month, day, year] = *numbers;
  using namespace std::chrono;
  const year_month_day day_{std::chrono::year(year),
                            std::chrono::month(static_cast<unsigned>(month)),
                            std::chrono::day(static_cast<unsigned>(day))};
  constexpr int kFirstYear = 1000;  // a year of fewer digits could be of any century
  constexpr int kLastYear = 9999;
  if (!day_.ok() || year < kFirstYear || year > kLastYear) return "";
  return std::to_string(year) + "-" + TwoDigits(month) + "-" + TwoDigits(day);
}

std::string IsoTime(std::string_view time) {
  const auto numbers = ThreeNumbers(time, ":");
  if (!numbers) return "";
  const auto& [hour, minute, second] = *numbers;
  if (hour > 23 || minute > 59 || second > 59) return "";
  return TwoDigits(hour) + ":" + TwoDigits(minute) + ":" + TwoDigits(second);
}

}  // namespace orvex
