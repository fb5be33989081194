#include "model/time_of_day.h"

#include <cmath>

namespace orvex {

double RoundHalfEven(double x) {
  const double below = std::floor(x);
  const double rest = x - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1.0;
  return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

float SecondsSince(float start, float now) {
  const float seconds = now - start;
  return seconds < 0 ? seconds + kSecondsPerDay : seconds;
}

float WholeSeconds(float seconds) {
  if (seconds < 0) seconds += kSecondsPerDay;
  return static_cast<float>(RoundHalfEven(static_cast<double>(seconds)));
}

std::optional<std::int32_t> SecondsOfDay(float x) {
  const auto seconds = static_cast<double>(WholeSeconds(x));
  if (!(seconds >= -2147483648.0 && seconds <= 2147483647.0)) return std::nullopt;
  return static_cast<std::int32_t>(seconds);
}

}  // namespace orvex
