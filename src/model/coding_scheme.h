#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvex {

/// Every integer code uses this for "not coded".
inline constexpr std::int16_t kUncoded = -1;

/// The nine dimensions a question is coded on, in the order of `DimensionLabels`.
enum class Dimension {
  source,
  response,
  authenticity,
  uptake,
  cognitive,
  respondName,
  onePartOfMulti,
  tResponse,
  elaborated,
};
inline constexpr int kDimensionCount = 9;

/// A dimension's caption, and blanks of about its width for a caption that blinks.
struct DimensionLabel {
  std::string_view Label;
  std::string_view Blank;
};
extern const std::array<DimensionLabel, kDimensionCount> DimensionLabels;

/// How one dimension is typed: the letter at position k stands for the code k.
/// `respondName` is free text; it has no letters and no default.
struct DimensionScheme {
  std::string_view letters;
  std::string_view defaultLetter;  ///< what leaving the field without a valid letter writes
  std::string_view normalLetter;   ///< the letter of a normal question
  std::string_view entryCaption;   ///< the caption on the live question entry form
};
const DimensionScheme& SchemeOf(Dimension dimension);

/// The code of a letter of `dimension`, in either case; kUncoded for any other text.
std::int16_t CodeOf(Dimension dimension, std::string_view letter);

/// The upper-case letter of a code of `dimension`; "" for kUncoded and for values without a letter.
/// Source, Response and Cognitive Level know only "zero or not": any other value is their second
/// letter.
std::string_view LetterOf(Dimension dimension, std::int16_t code);

/// True when `letter`, in either case, is one of the letters of `dimension`.
bool IsLetterOf(Dimension dimension, std::string_view letter);

/// A caption as plain text: in captions, "&&" stands for one ampersand.
std::string PlainText(std::string_view caption);

}  // namespace orvex
