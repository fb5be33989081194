#include "export/problem.h"

#include <cstddef>
#include <string_view>

namespace orvex {
namespace {

constexpr unsigned char Byte(char c) {
  return static_cast<unsigned char>(c);
}

/// How many bytes at the start of `text` are a control character: those beyond ASCII have two.
std::size_t ControlLength(std::string_view text) {
  const unsigned char first = Byte(text[0]);
  if (first < ' ' || first == 0x7F) return 1;
  return first == 0xC2 && text.size() > 1 && Byte(text[1]) >= 0x80 && Byte(text[1]) < 0xA0 ? 2 : 0;
}

}  // namespace

std::string Shown(const std::filesystem::path& name) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const std::string_view text = name.native();
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t control = ControlLength(text.substr(i));
    if (control == 0) shown += text[i];
    for (std::size_t k = 0; k < control; ++k) {
      const unsigned char byte = Byte(text[i + k]);
      shown.append("\\x").append(1, kDigits[byte / 16]).append(1, kDigits[byte % 16]);
    }
    if (control == 2) ++i;
  }
  return shown;
}

std::string Problem::Text() const {
  std::string place = Shown(file) + ":";
  if (line > 0) place += std::to_string(line) + ":";
  const std::string list =
      listLine > 0 ? " (line " + std::to_string(listLine) + " of the list)" : "";
  return place + " " + text + list;
}

}  // namespace orvex
