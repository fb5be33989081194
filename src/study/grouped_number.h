#pragma once

#include <cstddef>
#include <string>

namespace orvex {

/// The digits of a number with a comma between each three: "500,000".
inline std::string Grouped(std::string digits) {
  constexpr std::size_t kGroup = 3;
  for (std::size_t left = digits.size(); left > kGroup; left -= kGroup)
    digits.insert(left - kGroup, ",");
  return digits;
}
inline std::string Grouped(std::size_t number) {
  return Grouped(std::to_string(number));
}

}  // namespace orvex
