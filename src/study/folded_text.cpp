#include "study/folded_text.h"

#include <algorithm>
#include <cstddef>

namespace orvex {
namespace {

/// The lower-case letter of a letter from U+0080 to U+017F; any other character stays.
constexpr unsigned LowerCase(unsigned character) {
  const bool ofLatin1 = character >= 0xC0 && character <= 0xDE && character != 0xD7;
  if (ofLatin1) return character + 0x20;
  if (character == 0x178) return 0xFF;
  // Beyond these, capitals and small letters take turns; those with an I are left as they are, for
  // their partners have another length.
  const bool evenCapitals =
      (character >= 0x100 && character <= 0x137 && character != 0x130 && character != 0x131) ||
      (character >= 0x14A && character <= 0x177);
  if (evenCapitals) return character | 1U;
  const bool oddCapitals =
      (character >= 0x139 && character <= 0x148) || (character >= 0x179 && character <= 0x17E);
  return oddCapitals ? character + character % 2 : character;
}

}  // namespace

std::string Folded(std::string_view text) {
  std::string folded(text);
  for (std::size_t i = 0; i < folded.size(); ++i) {
    const auto byte = static_cast<unsigned char>(folded[i]);
    if (byte >= 'A' && byte <= 'Z') {
      folded[i] = static_cast<char>(byte + ('a' - 'A'));
    } else if (byte >= 0xC3 && byte <= 0xC5 && i + 1 < folded.size()) {
      const unsigned second = static_cast<unsigned char>(folded[i + 1]);
      if (second >> 6U != 2) continue;
      const unsigned lower = LowerCase((byte & 0x1FU) << 6U | (second & 0x3FU));
      folded[i] = static_cast<char>(0xC0U | lower >> 6U);
      folded[i + 1] = static_cast<char>(0x80U | (lower & 0x3FU));
      ++i;
    }
  }
  return folded;
}

std::vector<Word> WordsOf(std::string_view text) {
  std::vector<Word> words;
  const std::string folded = Folded(text);
  std::string_view rest = folded;
  for (;;) {
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t\r\n"), rest.size()));
    if (rest.empty()) return words;
    const bool quoted = rest.front() == '"';
    if (quoted) rest.remove_prefix(1);
    const std::size_t end = std::min(rest.find_first_of(quoted ? "\"" : " \t\r\n"), rest.size());
    if (end > 0) words.push_back({std::string(rest.substr(0, end)), quoted});
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

}  // namespace orvex
