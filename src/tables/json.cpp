#include "tables/json.h"

#include <array>
#include <charconv>
#include <cmath>

#include "model/wording.h"

namespace orvex {

void Json::Separate() {
  if (!first_) text_ += ',';
  first_ = false;
}

Json& Json::Begin(char bracket) {
  Separate();
  text_ += bracket;
  first_ = true;
  return *this;
}

Json& Json::End(char bracket) {
  text_ += bracket;
  first_ = false;
  return *this;
}

Json& Json::Literal(std::string_view literal) {
  Separate();
  text_ += literal;
  return *this;
}

Json& Json::Key(std::string_view name) {
  Separate();
  Quote(name);
  text_ += ':';
  first_ = true;
  return *this;
}

Json& Json::Text(std::string_view text) {
  Separate();
  Quote(text);
  return *this;
}

void Json::Quote(std::string_view text) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  text_ += '"';
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (code < ' ') {
      text_.append("\\u00").append(1, kHexDigits[code / 16]).append(1, kHexDigits[code % 16]);
      continue;
    }
    if (c == '"' || c == '\\') text_ += '\\';
    text_ += c;
  }
  text_ += '"';
}

Json& Json::Number(std::int64_t number) {
  return Literal(std::to_string(number));
}

Json& Json::Number(double number) {
  return Shortest(number);
}

Json& Json::Number(float number) {
  return Shortest(number);
}

/// In as few digits as bring the number back.
template <typename Value>
Json& Json::Shortest(Value number) {
  if (!std::isfinite(number)) return Null();
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return Literal({digits.data(), end.ptr});
}

Json& Json::Seconds(double seconds) {
  return Literal(WholeSecondsText(seconds));
}

}  // namespace orvex
