#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvex {

/// Plain decimal text of a single: up to seven significant digits of its exact value (a tie to
/// even), never an exponent, no zero before the point (" .25" becomes ".25"); negative zero is "0".
std::string PrintDigits(float value);
/// A number as an item of a line: PrintDigits with a blank for the missing sign, and one behind.
std::string PrintItem(float value);

/// A number written with a pattern: "0" always a digit, "#" a digit where it is significant, the
/// point always written; after "E-" the exponent, with at least one digit and a sign only when
/// negative. A single counts with seven significant digits, a double with its shortest text; a half
/// is rounded away from zero. Knows "0.##", "#0.#", "0.000", "0.#######", "0.#######E-###" and
/// their like.
std::string FormatPattern(float value, std::string_view pattern);
std::string FormatPattern(double value, std::string_view pattern);

/// Reads a number of a file: sign, digits, point, digits, exponent. The whole text must be one, and
/// not too large for a double; one too small for it is 0.
std::optional<double> ParseNumber(std::string_view text);
/// True when the whole text is such a number, of whatever size.
bool IsNumber(std::string_view text);

/// `text` without the blanks around it.
std::string_view WithoutBlanks(std::string_view text);

/// Reads a number somebody typed: blanks, sign, digits, point, digits, blanks; no exponent.
std::optional<double> TypedNumber(std::string_view text);

/// `value` rounded to a whole number, a half to the even neighbour, when that fits 16 bits.
std::optional<std::int16_t> ToInt16(double value);

/// The typed numbers of the header boxes: 0 to 32767 for school, class and observation, 1 to 32767
/// for students, rounded to whole ones, a half to the even neighbour. Nothing for a text that is no
/// number, or whose number lies outside before it is rounded.
std::optional<int> IdentityNumber(std::string_view text);
std::optional<int> StudentCount(std::string_view text);

}  // namespace orvex
