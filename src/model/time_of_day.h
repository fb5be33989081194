#pragma once

#include <cstdint>
#include <optional>

namespace orvex {

inline constexpr float kSecondsPerDay = 86400.0F;

/// Rounds to a whole number, a half to the even neighbour.
double RoundHalfEven(double x);

/// The seconds from `start` to `now`, two times of day; past midnight when `now` is the earlier
/// one.
float SecondsSince(float start, float now);

/// `seconds` as a whole number, a half to the even neighbour; a day is added first to a negative
/// one.
float WholeSeconds(float seconds);

/// The difference `x` of two readings of the clock as a 32-bit number, rounded and wrapped past
/// midnight as by `WholeSeconds`; nothing for a value that does not fit.
std::optional<std::int32_t> SecondsOfDay(float x);

}  // namespace orvex
