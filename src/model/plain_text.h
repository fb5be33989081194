#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvex {

/// A caption as plain text: in captions, "&&" stands for one ampersand.
inline std::string PlainText(std::string_view caption) {
  std::string text(caption);
  for (auto at = text.find("&&"); at != std::string::npos; at = text.find("&&", at + 1)) {
    text.erase(at, 1);
  }
  return text;
}

}  // namespace orvex
