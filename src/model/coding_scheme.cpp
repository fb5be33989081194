#include "model/coding_scheme.h"

#include <cstddef>

namespace orvex {
namespace {

constexpr std::string_view kBlanks = "                                          ";
static_assert(kBlanks.size() == 42);

constexpr std::string_view Blanks(std::size_t count) {
  return kBlanks.substr(0, count);
}

constexpr std::array<DimensionScheme, kDimensionCount> kSchemes = {{
    {"TS", "T", "T", "Source (T*/S) :"},
    {"YN", "Y", "Y", "Response (Y*/N) :"},
    {"NA", "N", "N", "Authenticity (N*/A) :"},
    {"NTA", "N", "N", "Uptake (N*/T/A) :"},
    {"RH", "R", "R", "Cognitive Level (R*/H) :"},
    {"", "", "", "Who answers question?"},
    {"YN", "N", "N", "One part of multiple response (Y/N*) :"},
    {"CAO", "A", "", "Close down/Answer/Open up(C/A*/O) :"},
    {"EU", "U", "U", "Elaborated/Unelaborated (E/U*) :"},
}};

constexpr char UpperCase(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool AnyOtherValueIsSecondLetter(Dimension dimension) {
  return dimension == Dimension::source || dimension == Dimension::response ||
         dimension == Dimension::cognitive;
}

}  // namespace

const std::array<DimensionLabel, kDimensionCount> DimensionLabels = {{
    {"Source", Blanks(14)},
    {"Response", Blanks(16)},
    {"Authenticity", Blanks(24)},
    {"Uptake", Blanks(12)},
    {"Cognitive Level", Blanks(28)},
    {"Who answers question?", Blanks(36)},
    {"One part of multiple response", Blanks(42)},
    {"Close down/Answer/Open up", Blanks(42)},
    {"Elaborated/Unelaborated", Blanks(36)},
}};

std::string PlainText(std::string_view caption) {
  std::string text(caption);
  for (auto at = text.find("&&"); at != std::string::npos; at = text.find("&&", at + 1)) {
    text.erase(at, 1);
  }
  return text;
}

const DimensionScheme& SchemeOf(Dimension dimension) {
  return kSchemes[static_cast<std::size_t>(dimension)];
}

std::int16_t CodeOf(Dimension dimension, std::string_view letter) {
  if (letter.size() != 1) return kUncoded;
  const auto position = SchemeOf(dimension).letters.find(UpperCase(letter[0]));
  return position == std::string_view::npos ? kUncoded : static_cast<std::int16_t>(position);
}

std::string_view LetterOf(Dimension dimension, std::int16_t code) {
  const std::string_view letters = SchemeOf(dimension).letters;
  if (code == kUncoded) return "";
  if (AnyOtherValueIsSecondLetter(dimension)) return letters.substr(code == 0 ? 0 : 1, 1);
  if (code < 0 || static_cast<std::size_t>(code) >= letters.size()) return "";
  return letters.substr(static_cast<std::size_t>(code), 1);
}

bool IsLetterOf(Dimension dimension, std::string_view letter) {
  return CodeOf(dimension, letter) != kUncoded;
}

}  // namespace orvex
