#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/code.h"

namespace orvex {

/// The dimensions a question is coded on, in the order in which they are asked, shown and stored.
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

/// The questions that a dimension is asked for.
enum class AskedFor {
  everyQuestion,
  answered,
  answeredTeacher,
  answeredStudent,
  answeredOrStudent,
};

/// All that is known of a dimension. The letter at position k stands for code k. A dimension
/// without letters is coded by a text.
struct DimensionScheme {
  Dimension dimension;
  std::string_view field;     ///< its name in the question's record
  std::string_view variable;  ///< its name in the tables
  std::string_view logName;   ///< its name in the session log
  std::string_view label;
  std::size_t blanks;                   ///< how many blanks are about as wide as the label
  std::string_view tableLabel = label;  ///< its label in the codebook of the tables
  std::string_view letters = {};
  std::array<std::string_view, 3> meanings = {};  ///< what the letters stand for
  std::string_view defaultLetter = {};  ///< stored when the field is left without a valid letter
  std::string_view normalLetter = {};   ///< the letter of a normal question; "" when any will do
  std::string_view entryCaption;        ///< the caption on the live question entry form
  AskedFor asked;
  bool anyOtherIsSecond = false;  ///< any code but 0 and kUncoded counts as the second letter

  /// Blanks to show in place of the label while it blinks.
  constexpr std::string_view Blank() const {
    constexpr std::string_view kBlanks = "                                          ";
    return kBlanks.substr(0, blanks);
  }
  constexpr bool HasLetters() const { return !letters.empty(); }
};

/// The schemes of the dimensions, in the order of `Dimension`.
inline constexpr auto kDimensionSchemes = std::to_array<DimensionScheme>({
    {.dimension = Dimension::source,
     .field = "Source",
     .variable = "source",
     .logName = "SRC",
     .label = "Source",
     .blanks = 14,
     .letters = "TS",
     .meanings = {"Teacher question", "Student question"},
     .defaultLetter = "T",
     .normalLetter = "T",
     .entryCaption = "Source (T*/S) :",
     .asked = AskedFor::everyQuestion,
     .anyOtherIsSecond = true},
    {.dimension = Dimension::response,
     .field = "Response",
     .variable = "response",
     .logName = "RSP",
     .label = "Response",
     .blanks = 16,
     .letters = "YN",
     .meanings = {"Response", "No response"},
     .defaultLetter = "Y",
     .normalLetter = "Y",
     .entryCaption = "Response (Y*/N) :",
     .asked = AskedFor::everyQuestion,
     .anyOtherIsSecond = true},
    {.dimension = Dimension::authenticity,
     .field = "authenticity",
     .variable = "authenticity",
     .logName = "AUTH",
     .label = "Authenticity",
     .blanks = 24,
     .letters = "NA",
     .meanings = {"Not authentic", "Authentic"},
     .defaultLetter = "N",
     .normalLetter = "N",
     .entryCaption = "Authenticity (N*/A) :",
     .asked = AskedFor::answered},
    {.dimension = Dimension::uptake,
     .field = "uptake",
     .variable = "uptake",
     .logName = "UP",
     .label = "Uptake",
     .blanks = 12,
     .letters = "NTA",
     .meanings = {"None", "Test", "Authentic"},
     .defaultLetter = "N",
     .normalLetter = "N",
     .entryCaption = "Uptake (N*/T/A) :",
     .asked = AskedFor::answered},
    {.dimension = Dimension::cognitive,
     .field = "cognitive",
     .variable = "cognitive_level",
     .logName = "COG",
     .label = "Cognitive Level",
     .blanks = 28,
     .tableLabel = "Cognitive level",
     .letters = "RH",
     .meanings = {"Report", "Higher order"},
     .defaultLetter = "R",
     .normalLetter = "R",
     .entryCaption = "Cognitive Level (R*/H) :",
     .asked = AskedFor::answered,
     .anyOtherIsSecond = true},
    {.dimension = Dimension::respondName,
     .field = "respondName",
     .variable = "respondent",
     .logName = "RSPNAME",
     .label = "Who answers question?",
     .blanks = 36,
     .entryCaption = "Who answers question?",
     .asked = AskedFor::answeredOrStudent},
    {.dimension = Dimension::onePartOfMulti,
     .field = "onePartOfMulti",
     .variable = "one_part_of_multiple",
     .logName = "MANY",
     .label = "One part of multiple response",
     .blanks = 42,
     .letters = "YN",
     .meanings = {"Yes", "No"},
     .defaultLetter = "N",
     .normalLetter = "N",
     .entryCaption = "One part of multiple response (Y/N*) :",
     .asked = AskedFor::answeredTeacher},
    {.dimension = Dimension::tResponse,
     .field = "tResponse",
     .variable = "teacher_response",
     .logName = "TRSP",
     .label = "Close down/Answer/Open up",
     .blanks = 42,
     .letters = "CAO",
     .meanings = {"Closing down", "Answering", "Opening up"},
     .defaultLetter = "A",
     .entryCaption = "Close down/Answer/Open up(C/A*/O) :",
     .asked = AskedFor::answeredStudent},
    {.dimension = Dimension::elaborated,
     .field = "elaborated",
     .variable = "elaborated",
     .logName = "COG",  // COG again: the line has always been written this way
     .label = "Elaborated/Unelaborated",
     .blanks = 36,
     .letters = "EU",
     .meanings = {"Elaborated", "Unelaborated"},
     .defaultLetter = "U",
     .normalLetter = "U",
     .entryCaption = "Elaborated/Unelaborated (E/U*) :",
     .asked = AskedFor::answered},
});
inline constexpr std::size_t kDimensionCount = kDimensionSchemes.size();

/// All dimensions, and those that are coded by a letter.
inline constexpr auto kDimensions = [] {
  std::array<Dimension, kDimensionCount> all{};
  std::ranges::transform(kDimensionSchemes, all.begin(), &DimensionScheme::dimension);
  return all;
}();
inline constexpr auto kLetteredDimensions = [] {
  constexpr auto kCount = std::ranges::count_if(kDimensionSchemes, &DimensionScheme::HasLetters);
  std::array<Dimension, kCount> lettered{};
  std::ranges::copy_if(kDimensions, lettered.begin(), [](Dimension dimension) {
    return kDimensionSchemes[static_cast<std::size_t>(dimension)].HasLetters();
  });
  return lettered;
}();

constexpr const DimensionScheme& SchemeOf(Dimension dimension) {
  return kDimensionSchemes[static_cast<std::size_t>(dimension)];
}
static_assert(std::ranges::all_of(kDimensions, [](Dimension dimension) {
  return SchemeOf(dimension).dimension == dimension;
}));

/// A value for each dimension.
template <typename Value>
struct PerDimension {
  std::array<Value, kDimensionCount> values{};

  Value& operator[](Dimension dimension) { return values[static_cast<std::size_t>(dimension)]; }
  const Value& operator[](Dimension dimension) const {
    return values[static_cast<std::size_t>(dimension)];
  }
  bool operator==(const PerDimension&) const = default;
};

/// The code of a letter of `dimension`, in either case; kUncoded for any other text.
std::int16_t CodeOf(Dimension dimension, std::string_view letter);

/// The upper-case letter of a code of `dimension`; "" for kUncoded and for values without a letter.
std::string_view LetterOf(Dimension dimension, std::int16_t code);

/// True when `code` is the position of a letter of `dimension`.
constexpr bool IsCodeOf(Dimension dimension, int code) {
  return code >= 0 && static_cast<std::size_t>(code) < SchemeOf(dimension).letters.size();
}

/// True when a question whose Source and Response have these letters is coded on `dimension`.
bool IsAskedFor(Dimension dimension, std::string_view source, std::string_view response);

}  // namespace orvex
