#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvex {

enum class Encoding { utf8, windows1252 };

/// A text file taken apart from how its bytes spell it.
struct DecodedText {
  std::string text;  ///< UTF-8, without a byte order mark
  Encoding encoding = Encoding::utf8;
};

/// What TakeCharacter gives for bytes that are no character.
inline constexpr char32_t kNotUtf8 = 0xFFFFFFFF;
/// Takes the first character off `text`, which is not empty; where its bytes are none, they stay.
char32_t TakeCharacter(std::string_view& text);

/// `text` without the byte order mark at its start, however often it stands there.
std::string_view WithoutByteOrderMark(std::string_view text);

/// Decodes a file: UTF-8 where it is valid, otherwise Windows-1252, whose unassigned bytes stand
/// for the control characters of the same number.
DecodedText Decode(std::string bytes);

/// The bytes of `text` in `encoding`; in UTF-8 when Windows-1252 lacks one of its characters.
std::string Encode(std::string text, Encoding encoding);

/// `text` with each run of line breaks turned into one blank, as every text of one line is stored.
std::string OneLine(std::string_view text);

}  // namespace orvex
