#pragma once

#include <cstdint>

namespace orvex {

class Prompter;

/// The whole seconds from `start` to `now`, two readings of the clock. If they do not fit 32 bits,
/// tells the user and returns 0.
std::int32_t ElapsedSeconds(float start, float now, Prompter& prompter);

}  // namespace orvex
