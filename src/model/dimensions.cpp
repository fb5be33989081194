#include "model/dimensions.h"

namespace orvex {
namespace {

constexpr char UpperCase(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::int16_t CodeOf(Dimension dimension, std::string_view letter) {
  if (letter.size() != 1) return kUncoded;
  const auto position = SchemeOf(dimension).letters.find(UpperCase(letter[0]));
  return position == std::string_view::npos ? kUncoded : static_cast<std::int16_t>(position);
}

std::string_view LetterOf(Dimension dimension, std::int16_t code) {
  const DimensionScheme& scheme = SchemeOf(dimension);
  if (code == kUncoded) return "";
  if (scheme.anyOtherIsSecond) return scheme.letters.substr(code == 0 ? 0 : 1, 1);
  if (!IsCodeOf(dimension, code)) return "";
  return scheme.letters.substr(static_cast<std::size_t>(code), 1);
}

bool IsAskedFor(Dimension dimension, std::string_view source, std::string_view response) {
  const bool teacher = source == "T";
  const bool student = source == "S";
  const bool answered = (teacher || student) && response == "Y";
  switch (SchemeOf(dimension).asked) {
    case AskedFor::everyQuestion:
      return true;
    case AskedFor::answered:
      return answered;
    case AskedFor::answeredTeacher:
      return answered && teacher;
    case AskedFor::answeredStudent:
      return answered && student;
    case AskedFor::answeredOrStudent:
      return answered || student;
  }
  return false;
}

}  // namespace orvex
