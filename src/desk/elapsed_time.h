#pragma once

#include <cstdint>

namespace orvex {

class Prompter;

/// The whole seconds from `start` to `now`, two readings of the clock. What does not fit into 32
/// bits is told to the user and counts as 0.
std::int32_t ElapsedSeconds(float start, float now, Prompter& prompter);

}  // namespace orvex
