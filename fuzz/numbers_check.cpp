#include <cstdlib>
#include <cstring>
#include <limits>

#include "fuzz/checks.h"
#include "store/numbers.h"

namespace orvex::fuzz {
namespace {

/// The value according to the C library; nothing for what is not a plain number.
std::optional<double> Strtod(const std::string& text) {
  if (text.empty() || text.find_first_not_of("0123456789.+-eE") != std::string::npos) {
    return std::nullopt;
  }
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  return end == text.c_str() + text.size() ? std::optional(value) : std::nullopt;
}

void CheckText(const std::string& text) {
  const auto expected = Strtod(text);
  Require(IsNumber(text) == expected.has_value(), "a number is what the C library takes for one");
  const bool fits = expected && std::abs(*expected) <= std::numeric_limits<double>::max();
  const auto number = ParseNumber(text);
  Require(number.has_value() == fits, "a number is read when a double holds it");
  Require(!fits || *number == *expected, "a number has the value it has in the C library");
  for (const auto& typed : {IdentityNumber(text), StudentCount(text)}) {
    Require(!typed || (*typed >= 0 && *typed <= 32767), "a typed number fits 16 bits");
  }
}

template <typename Value>
Value ValueOf(std::string_view bytes) {
  Value value = 0;
  if (bytes.size() >= sizeof value) std::memcpy(&value, bytes.data(), sizeof value);
  return value;
}

void CheckSingle(float value) {
  const auto digits = PrintDigits(value);
  const auto back = ParseNumber(digits);
  Require(back.has_value(), "a single's digits are a number");
  Require(PrintDigits(static_cast<float>(*back)) == digits, "a single's digits come back");
  const auto pattern = ParseNumber(FormatPattern(value, "0.#######E-###"));
  Require(pattern == back, "a pattern with an exponent has the value of the digits");
}

}  // namespace

/// Takes `bytes` both as the text of a number and as the bits of one.
std::optional<std::string> CheckNumbers(std::string_view bytes) {
  const std::string text(bytes);
  CheckText(text);
  CheckSingle(ValueOf<float>(bytes));
  const auto value = ValueOf<double>(bytes);
  for (const char* pattern : {"0.##", "#0.#", "0.000", "00", "##0"}) {
    Require(IsNumber(FormatPattern(value, pattern)), "a pattern makes a number");
  }
  if (const auto whole = ToInt16(value)) {
    Require(std::abs(*whole - value) <= 0.5, "a rounded number is the nearest");
  }
  if (!IsNumber(text)) return std::nullopt;
  return text;
}

}  // namespace orvex::fuzz
