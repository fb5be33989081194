#pragma once

#include <cstddef>
#include <string>

namespace orvex {

/// The number with a comma between each three digits: "500,000".
inline std::string Grouped(std::size_t number) {
  constexpr std::size_t kGroup = 3;
  std::string text = std::to_string(number);
  for (std::size_t left = text.size(); left > kGroup; left -= kGroup)
    text.insert(left - kGroup, ",");
  return text;
}

}  // namespace orvex
