#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvex {

enum class Encoding { utf8, windows1252 };

/// The text of a file, and how its bytes were encoded.
struct DecodedText {
  std::string text;  ///< UTF-8, without a byte order mark
  Encoding encoding = Encoding::utf8;
};

/// What TakeCharacter returns for bytes that are not a character.
inline constexpr char32_t kNotUtf8 = 0xFFFFFFFF;
/// Takes the first character off `text`, which must not be empty. Bytes that are not a character
/// stay.
char32_t TakeCharacter(std::string_view& text);

/// `text` without the byte order marks at its start, however many there are.
std::string_view WithoutByteOrderMark(std::string_view text);

/// Decodes the bytes of a file: as UTF-8 where they are valid, otherwise as Windows-1252, whose
/// unassigned bytes stand for the control characters of the same number.
DecodedText Decode(std::string bytes);

/// The bytes of `text` in `encoding`; in UTF-8 when Windows-1252 lacks one of its characters, or
/// its bytes would be read back as UTF-8.
std::string Encode(std::string text, Encoding encoding);

/// `text` with each run of line breaks turned into one blank, as all one-line texts are stored.
std::string OneLine(std::string_view text);

}  // namespace orvex
