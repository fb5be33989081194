#pragma once

#include <cstdint>

namespace orvex {

/// Every integer code uses this for "not coded".
inline constexpr std::int16_t kUncoded = -1;

}  // namespace orvex
