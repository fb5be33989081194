#include "model/question_info.h"

#include <algorithm>

namespace orvex {

void questionInfo::Copy(const questionInfo& other, bool withText) {
  codes = other.codes;
  respondName = other.respondName;
  if (withText) question = other.question;
}

void questionInfo::SetNormal() {
  for (const Dimension dimension : kDimensions) {
    codes[dimension] = CodeOf(dimension, SchemeOf(dimension).normalLetter);
  }
}

bool questionInfo::IsNormal() const {
  return std::ranges::all_of(kDimensions, [this](Dimension dimension) {
    const std::string_view normal = SchemeOf(dimension).normalLetter;
    return normal.empty() || Text(dimension) == normal;
  });
}

bool questionInfo::IsCoded(Dimension dimension) const {
  return dimension == Dimension::respondName ? !respondName.empty() : codes[dimension] >= 0;
}

std::string_view questionInfo::Text(Dimension dimension) const {
  if (dimension == Dimension::respondName) return respondName;
  return LetterOf(dimension, codes[dimension]);
}

DimensionTexts questionInfo::Texts() const {
  DimensionTexts texts;
  for (const Dimension dimension : kDimensions) texts[dimension] = Text(dimension);
  return texts;
}

void questionInfo::SetValue(std::string_view text, const DimensionTexts& coded,
                            std::int16_t episode, std::int16_t segment) {
  question = text;
  for (const Dimension dimension : kLetteredDimensions) {
    codes[dimension] = CodeOf(dimension, coded[dimension]);
  }
  respondName = coded[Dimension::respondName];
  iEpQ = episode;
  iSgQ = segment;
}

}  // namespace orvex
