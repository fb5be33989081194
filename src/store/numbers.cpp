#include "store/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

#include "model/limits.h"
#include "model/time_of_day.h"

namespace orvex {
namespace {

/// A number as d.ddd x 10^exponent. `digits` has no zeros at the end, and is empty for zero.
struct Decimal {
  bool negative = false;
  std::string digits;
  int exponent = 0;
};

/// Takes apart a number in scientific notation.
Decimal Parts(std::string_view text) {
  Decimal decimal;
  decimal.negative = text.starts_with('-');
  if (decimal.negative) text.remove_prefix(1);
  const std::size_t e = text.find('e');
  std::string_view exponent = text.substr(e + 1);
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.exponent);
  for (const char c : text.substr(0, e)) {
    if (c != '.') decimal.digits += c;
  }
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  return decimal.digits.empty() ? Decimal{} : decimal;
}

/// The value itself, or the nearest that a file can hold: 0 for NaN, the largest number for
/// infinity.
template <typename Value>
Value Finite(Value value) {
  if (std::isnan(value)) return 0;
  return std::clamp(value, std::numeric_limits<Value>::lowest(), std::numeric_limits<Value>::max());
}

Decimal DecimalOf(float value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), Finite(value),
                                 std::chars_format::scientific, 6);
  return Parts({text.data(), end.ptr});
}

Decimal DecimalOf(double value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), Finite(value),
                                 std::chars_format::scientific);
  return Parts({text.data(), end.ptr});
}

/// Rounds to the first `count` digits, with a half away from zero.
void Round(Decimal& decimal, int count) {
  if (count >= static_cast<int>(decimal.digits.size())) return;
  if (count < 0) {
    decimal = {};
    return;
  }
  const bool up = decimal.digits[static_cast<std::size_t>(count)] >= '5';
  decimal.digits.resize(static_cast<std::size_t>(count));
  if (up) {
    decimal.digits.erase(decimal.digits.find_last_not_of('9') + 1);
    if (decimal.digits.empty()) {
      decimal.digits.push_back('1');
      ++decimal.exponent;
    } else {
      ++decimal.digits.back();
    }
  }
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  if (decimal.digits.empty()) decimal = {};
}

/// How to write a number.
struct Pattern {
  std::size_t whole = 0;     ///< fewest digits before the point
  bool point = false;        ///< write the point even when nothing follows it
  std::size_t decimals = 0;  ///< fewest digits after the point
  int mostDecimals = 0;
  bool exponent = false;
};

Pattern PatternOf(std::string_view text) {
  Pattern pattern;
  for (const char c : text) {
    if (c == 'E') {
      pattern.exponent = true;
      break;
    }
    if (c == '.') {
      pattern.point = true;
    } else if (pattern.point) {
      ++pattern.mostDecimals;
      if (c == '0') ++pattern.decimals;
    } else if (c == '0') {
      ++pattern.whole;
    }
  }
  return pattern;
}

std::string LayOut(const Decimal& decimal, const Pattern& pattern) {
  std::string whole;
  std::string decimals;
  if (decimal.exponent < 0) {
    decimals.assign(static_cast<std::size_t>(-decimal.exponent - 1), '0');
    decimals += decimal.digits;
  } else if (!decimal.digits.empty()) {
    const auto count = static_cast<std::size_t>(decimal.exponent) + 1;
    whole = decimal.digits.substr(0, count);
    whole.append(count - whole.size(), '0');
    if (count < decimal.digits.size()) decimals = decimal.digits.substr(count);
  }
  if (whole.size() < pattern.whole) whole.insert(0, pattern.whole - whole.size(), '0');
  if (decimals.size() < pattern.decimals) decimals.resize(pattern.decimals, '0');
  const bool point = pattern.point || !decimals.empty();
  std::string text(decimal.negative ? "-" : "");
  text += whole;
  if (point) text += '.';
  text += decimals;
  return text;
}

std::string Format(Decimal decimal, std::string_view text) {
  const Pattern pattern = PatternOf(text);
  if (!pattern.exponent) {
    Round(decimal, decimal.exponent + 1 + pattern.mostDecimals);
    return LayOut(decimal, pattern);
  }
  Round(decimal, 1 + pattern.mostDecimals);
  const std::string exponent = std::to_string(decimal.exponent);
  decimal.exponent = 0;
  return LayOut(decimal, pattern) + "E" + exponent;
}

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The result of scanning a number in a file.
struct Scanned {
  bool number = false;  ///< the whole text is a number
  bool inRange = false;
  double value = 0;
};

Scanned Scan(std::string_view text) {
  // from_chars rejects a plus sign but accepts "inf" and "nan"; here it is the other way round.
  const bool plus = text.starts_with('+');
  const std::size_t start = plus || text.starts_with('-') ? 1 : 0;
  if (start == text.size() || (text[start] != '.' && !IsDigit(text[start]))) return {};
  if (plus) text.remove_prefix(1);
  // Nearly every number in a file is short and whole, so try that first.
  int whole = 0;
  const auto simple = std::from_chars(text.data(), text.data() + text.size(), whole);
  if (simple.ec == std::errc{} && simple.ptr == text.data() + text.size()) {
    return {true, true, static_cast<double>(whole)};
  }
  Scanned scanned;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scanned.value);
  scanned.number = error != std::errc::invalid_argument && end == text.data() + text.size();
  scanned.inRange = error == std::errc{};
  return scanned;
}

/// True for a number below 1 in magnitude.
bool IsFraction(std::string_view number) {
  const std::size_t e = std::min(number.find_first_of("eE"), number.size());
  int exponent = 0;
  if (e < number.size()) {
    std::string_view text = number.substr(e + 1);
    if (text.starts_with('+')) text.remove_prefix(1);
    const auto read = std::from_chars(text.data(), text.data() + text.size(), exponent);
    // An exponent this large outweighs any run of digits.
    if (read.ec != std::errc{}) return text.starts_with('-');
  }
  const std::string_view digits = number.substr(0, e);
  const std::size_t first = digits.find_first_of("123456789");
  if (first == std::string_view::npos) return true;
  const std::size_t point = std::min(digits.find('.'), digits.size());
  // The position of the point, counted from the first digit that is not 0.
  const std::int64_t place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  return (place < 0 ? place + 1 : place) + exponent <= 0;
}

std::optional<int> TypedInteger(std::string_view text, int least) {
  const auto number = TypedNumber(text);
  if (!number || *number < least || *number > kMostNumber) {
    return std::nullopt;
  }
  return static_cast<int>(RoundHalfEven(*number));
}

}  // namespace

std::string PrintDigits(float value) {
  const Decimal decimal = DecimalOf(value);
  return decimal.digits.empty() ? "0" : LayOut(decimal, {});
}

std::string PrintItem(float value) {
  std::string item = PrintDigits(value);
  if (!item.starts_with('-')) item.insert(item.begin(), ' ');
  item += ' ';
  return item;
}

std::string FormatPattern(float value, std::string_view pattern) {
  return Format(DecimalOf(value), pattern);
}

std::string FormatPattern(double value, std::string_view pattern) {
  return Format(DecimalOf(value), pattern);
}

std::optional<double> ParseNumber(std::string_view text) {
  const Scanned scanned = Scan(text);
  if (!scanned.number) return std::nullopt;
  if (scanned.inRange) return scanned.value;
  return IsFraction(text) ? std::optional<double>(0) : std::nullopt;
}

bool IsNumber(std::string_view text) {
  return Scan(text).number;
}

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::optional<double> TypedNumber(std::string_view text) {
  text = WithoutBlanks(text);
  if (text.find_first_of("eE") != std::string_view::npos) return std::nullopt;
  return ParseNumber(text);
}

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

std::optional<int> ParseTimeOfDay(std::string_view time) {
  constexpr std::array<int, 3> kBelow = {24, 60, 60};
  const auto numbers = ThreeNumbers(time, ":");
  if (!numbers) return std::nullopt;
  int second = 0;
  for (std::size_t part = 0; part < kBelow.size(); ++part) {
    if ((*numbers)[part] >= kBelow[part]) return std::nullopt;
    second = second * 60 + (*numbers)[part];
  }
  return second;
}

std::optional<std::int16_t> ToInt16(double value) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (!(value >= Limits::min() - 0.5 && value < Limits::max() + 0.5)) return std::nullopt;
  const auto cut = static_cast<std::int16_t>(value);
  return cut == value ? cut : static_cast<std::int16_t>(RoundHalfEven(value));
}

std::optional<int> IdentityNumber(std::string_view text) {
  return TypedInteger(text, 0);
}

std::optional<int> StudentCount(std::string_view text) {
  return TypedInteger(text, 1);
}

}  // namespace orvex
