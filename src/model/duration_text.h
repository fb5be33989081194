#pragma once

#include <string>

namespace orvex {

/// A time in words: "2 minutes, 5 seconds", "1 minute, 1 second", "0 second". `seconds` is rounded
/// to whole ones, a half to the even neighbour.
std::string DurationInWords(double seconds);

/// A number of seconds as a whole number, without an exponent at any size.
std::string WholeSecondsText(double seconds);

}  // namespace orvex
