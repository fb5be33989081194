#include "store/text_encoding.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <utility>

namespace orvex {
namespace {

/// The characters of the bytes 80 to 9F in Windows-1252. Any other byte is the character of its own
/// number.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned char Byte(char c) {
  return static_cast<unsigned char>(c);
}

/// How many characters at the start of `text` are ASCII, rounded down to a multiple of eight.
std::size_t AsciiBlocks(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t count = 0;
  for (; count + 8 <= text.size(); count += 8) {
    std::uint64_t block = 0;
    std::memcpy(&block, text.data() + count, 8);
    if ((block & kHighBits) != 0) break;
  }
  return count;
}

}  // namespace

char32_t TakeCharacter(std::string_view& text) {
  const unsigned char lead = Byte(text.front());
  std::size_t length = 1;
  char32_t character = lead;
  char32_t least = 0;
  if (lead >= 0xF0 && lead < 0xF8) {
    length = 4;
    character = lead & 0x07U;
    least = 0x10000;
  } else if (lead >= 0xE0 && lead < 0xF0) {
    length = 3;
    character = lead & 0x0FU;
    least = 0x800;
  } else if (lead >= 0xC0 && lead < 0xE0) {
    length = 2;
    character = lead & 0x1FU;
    least = 0x80;
  } else if (lead >= 0x80) {
    return kNotUtf8;
  }
  if (text.size() < length) return kNotUtf8;
  for (const char next : text.substr(1, length - 1)) {
    if ((Byte(next) & 0xC0U) != 0x80) return kNotUtf8;
    character = (character << 6U) | (Byte(next) & 0x3FU);
  }
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character < least || character > 0x10FFFF || surrogate) return kNotUtf8;
  text.remove_prefix(length);
  return character;
}

namespace {

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    text.remove_prefix(AsciiBlocks(text));
    if (!text.empty() && TakeCharacter(text) == kNotUtf8) return false;
  }
  return true;
}

std::string FromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char byte : bytes) {
    const unsigned number = Byte(byte);
    const unsigned character =
        number >= 0x80 && number < 0xA0 ? kWindows1252[number - 0x80] : number;
    if (character < 0x80) {
      text += byte;
    } else if (character < 0x800) {
      text += static_cast<char>(0xC0U | (character >> 6U));
      text += static_cast<char>(0x80U | (character & 0x3FU));
    } else {
      text += static_cast<char>(0xE0U | (character >> 12U));
      text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
      text += static_cast<char>(0x80U | (character & 0x3FU));
    }
  }
  return text;
}

std::optional<char> Windows1252Byte(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(static_cast<unsigned char>(character));
  }
  for (std::size_t i = 0; i < kWindows1252.size(); ++i) {
    if (kWindows1252[i] == character) {
      return static_cast<char>(static_cast<unsigned char>(0x80 + i));
    }
  }
  return std::nullopt;
}

std::optional<std::string> ToWindows1252(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const auto byte = Windows1252Byte(TakeCharacter(text));
    if (!byte) return std::nullopt;
    bytes += *byte;
  }
  return bytes;
}

}  // namespace

std::string_view WithoutByteOrderMark(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  while (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  return text;
}

DecodedText Decode(std::string bytes) {
  if (!IsUtf8(bytes)) return {FromWindows1252(bytes), Encoding::windows1252};
  bytes.erase(0, bytes.size() - WithoutByteOrderMark(bytes).size());
  return {std::move(bytes), Encoding::utf8};
}

std::string Encode(std::string text, Encoding encoding) {
  if (encoding == Encoding::windows1252) {
    auto bytes = ToWindows1252(text);
    // Bytes that happen to be valid UTF-8 would be read back as other characters.
    if (bytes && (*bytes == text || !IsUtf8(*bytes))) return *std::move(bytes);
  }
  return text;
}

std::string OneLine(std::string_view text) {
  constexpr std::string_view kBreaks = "\r\n";
  std::string line;
  line.reserve(text.size());
  while (true) {
    const std::size_t end = text.find_first_of(kBreaks);
    line += text.substr(0, end);
    if (end == std::string_view::npos) return line;
    line += ' ';
    const std::size_t next = text.find_first_not_of(kBreaks, end);
    text.remove_prefix(next == std::string_view::npos ? text.size() : next);
  }
}

}  // namespace orvex
