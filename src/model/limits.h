#pragma once

#include <cstdint>
#include <limits>

namespace orvex {

/// Numbers and counts are stored in 16 bits: those that name a class, and those of its episodes,
/// segments and questions.
inline constexpr int kMostNumber = std::numeric_limits<std::int16_t>::max();

}  // namespace orvex
