#pragma once

#include <cstdint>
#include <limits>

namespace orvex {

/// The largest number that the files hold in their 16 bits: for the numbers that name a class, and
/// for the counts of its episodes, segments and questions.
inline constexpr int kMostNumber = std::numeric_limits<std::int16_t>::max();

}  // namespace orvex
