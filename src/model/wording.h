#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvex {

/// A count and what it counts, where nothing is translated: "1 file", "2 files".
inline std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// `text`, or its start with an ellipsis if it is longer than any list or caption can show. Never
/// cuts a character in two.
std::string Shortened(std::string_view text);

/// The plain text of a caption, in which "&&" stands for one ampersand.
std::string PlainText(std::string_view caption);

// All of these round the seconds to a whole number, with a half to the even neighbour.

/// The number of seconds, never with an exponent.
std::string WholeSecondsText(double seconds);
/// Minutes and seconds: "2:05".
std::string FormatMinSec(double seconds);
/// "2 minutes, 5 seconds", "1 minute, 1 second", "0 second".
std::string DurationInWords(double seconds);

}  // namespace orvex
