#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvex {

/// What a count counts: "1 file", "2 files".
inline std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// `text`, or its start with an ellipsis where it is longer than any list or caption can show. No
/// character is cut in two.
std::string Shortened(std::string_view text);

/// A caption as plain text: in captions, "&&" stands for one ampersand.
std::string PlainText(std::string_view caption);

// Numbers of seconds are rounded to whole ones, a half to the even neighbour.

/// A number of seconds, without an exponent at any size.
std::string WholeSecondsText(double seconds);
/// "2:05": minutes and seconds.
std::string FormatMinSec(double seconds);
/// "2 minutes, 5 seconds", "1 minute, 1 second", "0 second".
std::string DurationInWords(double seconds);

}  // namespace orvex
