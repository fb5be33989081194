#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvex {

/// `text`, or its start with an ellipsis where it is longer than any list or caption can show. No
/// character is cut in two.
inline std::string Shortened(std::string_view text) {
  constexpr std::size_t kMost = 5000;
  if (text.size() <= kMost) return std::string(text);
  std::size_t end = kMost;
  constexpr unsigned char kPartBits = 0xC0;
  constexpr unsigned char kPart = 0x80;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & kPartBits) == kPart) --end;
  return std::string(text.substr(0, end)) + "\u2026";
}

}  // namespace orvex
