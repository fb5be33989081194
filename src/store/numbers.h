#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvex {

/// The plain decimal text of a single: up to seven significant digits of its exact value (ties to
/// even), never an exponent, no zero before the point (".25" for 0.25). Negative zero is "0".
std::string PrintDigits(float value);
/// A number as an item in a line: PrintDigits with a blank before it, unless it is negative, and a
/// blank after it.
std::string PrintItem(float value);

/// Writes a number in a pattern such as "0.##", "#0.#", "0.000", "0.#######" or "0.#######E-###".
/// "0" stands for a digit that is always written, "#" for one written only where it is significant;
/// the point is always written. "E-" adds the exponent, with at least one digit and a sign only
/// when it is negative. A single has seven significant digits, a double those of its shortest text;
/// a half is rounded away from zero.
std::string FormatPattern(float value, std::string_view pattern);
std::string FormatPattern(double value, std::string_view pattern);

/// Reads a number from a file: sign, digits, point, digits, exponent. Nothing unless the whole text
/// is a number that is not too large for a double; one that is too small for it is 0.
std::optional<double> ParseNumber(std::string_view text);
/// True when the whole text is such a number, of any size.
bool IsNumber(std::string_view text);

/// `text` without the blanks around it.
std::string_view WithoutBlanks(std::string_view text);

/// Reads a number that somebody typed: blanks, sign, digits, point, digits, blanks; no exponent.
std::optional<double> TypedNumber(std::string_view text);

/// Reads three numbers without a sign, such as those of a date or a time of day, with one of
/// `separators` between each two. Nothing for any other text.
std::optional<std::array<int, 3>> ThreeNumbers(std::string_view text, std::string_view separators);
/// The seconds since midnight of a time of day, "hh:mm:ss"; nothing for any other text.
std::optional<int> ParseTimeOfDay(std::string_view time);

/// `value` rounded to a whole number, with a half to the even neighbour; nothing when that does not
/// fit 16 bits.
std::optional<std::int16_t> ToInt16(double value);

/// Read the numbers typed into the header boxes: 0 to 32767 for school, class and observation, 1 to
/// 32767 for students. They are rounded to whole numbers, a half to the even neighbour. Nothing
/// when the text is not a number, or the number is out of range before rounding.
std::optional<int> IdentityNumber(std::string_view text);
std::optional<int> StudentCount(std::string_view text);

}  // namespace orvex
