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

/// The 17 activity categories of segments; activity number n stands at position n - 1.
inline constexpr int kActivityCount = 17;
inline constexpr int kQuestionAnswer = 5;

/// A caption as plain text: in captions, "&&" stands for one ampersand.
std::string PlainText(std::string_view caption);

/// The activities' names as captions.
extern const std::array<std::string_view, kActivityCount> ActivityNames;
/// The activities' names as plain text.
extern const std::array<std::string_view, kActivityCount> ActivityTexts;
/// What `fSubCat` stands for in activities 14 to 16, and in activity 17.
extern const std::array<std::string_view, 2> WritingSubCats;
extern const std::array<std::string_view, 5> GroupWorkSubCats;
/// What `src`, `coglvl` and `org` of a seatwork segment stand for, by code.
extern const std::array<std::string_view, 4> SeatworkSources;
extern const std::array<std::string_view, 2> SeatworkCognitiveLevels;
extern const std::array<std::string_view, 2> SeatworkOrganizations;

/// Which sub-codes an activity carries. Numbers outside 1 to 17 carry none.
constexpr bool CarriesAbout(int activity) {
  return activity == 4 || activity == 6 || activity == 12;
}
constexpr bool IsPresentation(int activity) {
  return activity == 7;
}
inline constexpr int kFirstSeatwork = 14;
constexpr bool IsSeatwork(int activity) {
  return activity >= kFirstSeatwork && activity <= 16;
}
constexpr bool IsGroupWork(int activity) {
  return activity == 17;
}
constexpr bool IsActivity(int activity) {
  return activity >= 1 && activity <= kActivityCount;
}

}  // namespace orvex
