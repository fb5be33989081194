#pragma once

#include <cstdint>

namespace orvex {

/// The value of an integer code that means "not coded".
inline constexpr std::int16_t kUncoded = -1;

}  // namespace orvex
