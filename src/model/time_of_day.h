#pragma once

#include <cstdint>

namespace orvex {

class Prompter;

inline constexpr float kSecondsPerDay = 86400.0F;

/// Rounds to a whole number, a half to the even neighbour.
double RoundHalfEven(double x);

/// The seconds from `start` to `now`, two times of day; past midnight when `now` is the earlier
/// one.
float SecondsSince(float start, float now);

/// `seconds` as a whole number, a half to the even neighbour; a day is added first to a negative
/// one.
float WholeSeconds(float seconds);

/// The same as a 32-bit number, for the difference `x` of two readings of the clock. A value that
/// does not fit is told to the user and gives 0.
std::int32_t SecondsOfDay(float x, Prompter& prompter);

}  // namespace orvex
