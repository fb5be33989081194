#pragma once

#include <cstdint>
#include <optional>

namespace orvex {

inline constexpr float kSecondsPerDay = 86400.0F;

/// Rounds to a whole number, with a half to the even neighbour.
double RoundHalfEven(double x);

/// The seconds from `start` to `now`, two times of day. If `now` is the earlier one, midnight lies
/// between them.
float SecondsSince(float start, float now);

/// `seconds` rounded to a whole number, a half to the even neighbour. A negative value first has a
/// day added.
float WholeSeconds(float seconds);

/// The difference `x` of two readings of the clock, rounded and wrapped past midnight as by
/// `WholeSeconds`; nothing when it does not fit 32 bits.
std::optional<std::int32_t> SecondsOfDay(float x);

}  // namespace orvex
