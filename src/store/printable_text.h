#pragma once

#include <string>
#include <string_view>

namespace orvex {

/// A text of a file or of the command line for a terminal: what could steer the terminal, or turn
/// the direction of what follows, stands as its bytes, "\x1B".
std::string Printable(std::string_view text);

/// The same between quotes, and no longer than a message has room for.
std::string PrintableInQuotes(std::string_view text);

}  // namespace orvex
