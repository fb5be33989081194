#pragma once

#include <string>
#include <string_view>

namespace orvex {

/// Makes a text from a file or the command line safe to show in a terminal. Anything that could
/// steer the terminal, or change the direction of the text after it, appears as its bytes: "\x1B".
std::string Printable(std::string_view text);

/// The text between quotes, made safe as by Printable and cut to 40 characters.
std::string PrintableInQuotes(std::string_view text);

}  // namespace orvex
