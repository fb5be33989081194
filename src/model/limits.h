#pragma once

#include <cstdint>
#include <limits>

namespace orvex {

/// The largest number that fits the 16 bits the files have for the numbers that identify a class
/// and for its counts of episodes, segments and questions.
inline constexpr int kMostNumber = std::numeric_limits<std::int16_t>::max();

}  // namespace orvex
