#include "store/printable_text.h"

#include <cstddef>

#include "store/text_encoding.h"

namespace orvex {
namespace {

/// True for control characters, line separators, and marks that change the direction of text.
constexpr bool Steers(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x061C || c == 0x200E || c == 0x200F ||
         (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

/// Takes the first character off `rest`, or the first byte when it is not a character. True when it
/// may be shown.
bool TakeShowable(std::string_view& rest) {
  const auto byte = static_cast<unsigned char>(rest.front());
  const char32_t character = TakeCharacter(rest);
  if (character != kNotUtf8) return !Steers(character);
  // A terminal without UTF-8 takes such a byte for the Latin-1 character.
  rest.remove_prefix(1);
  return !Steers(byte);
}

}  // namespace

std::string Printable(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string shown;
  while (!text.empty()) {
    std::string_view rest = text;
    const bool showable = TakeShowable(rest);
    const std::string_view bytes = text.substr(0, text.size() - rest.size());
    text = rest;
    if (showable) {
      shown += bytes;
      continue;
    }
    for (const char c : bytes) {
      const auto byte = static_cast<unsigned char>(c);
      shown.append("\\x").append(1, kDigits[byte / 16]).append(1, kDigits[byte % 16]);
    }
  }
  return shown;
}

std::string PrintableInQuotes(std::string_view text) {
  constexpr int kMostCharacters = 40;
  std::string_view rest = text;
  for (int i = 0; i < kMostCharacters && !rest.empty(); ++i) TakeShowable(rest);
  const std::string_view start = text.substr(0, text.size() - rest.size());
  return "\"" + Printable(start) + (rest.empty() ? "\"" : "...\"");
}

}  // namespace orvex
