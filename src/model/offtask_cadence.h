#pragma once

namespace orvex {

/// The seconds from the begin of an estimate's countdown until it is due.
inline constexpr float kCountdownSeconds = 60;

// Estimates have places in their segment, which lie 1 apart. `cadence` is the number of minutes
// between two of them.

/// The place of the next estimate in a segment that has run for `seconds`.
float NextEstimateIndex(float seconds, float cadence);

/// The seconds from the begin of the segment until the estimate at a place is due.
constexpr float DueSecond(float index, float cadence) {
  return cadence * index * kCountdownSeconds;
}
/// The seconds from the begin of the segment until its countdown begins.
constexpr float CountdownBegin(float index, float cadence) {
  return (cadence * index - 1) * kCountdownSeconds;
}

}  // namespace orvex
