#include "agreement/survey_agreement.h"

#include <cstddef>
#include <cstdlib>
#include <optional>

#include "model/survey_scheme.h"

namespace orvex {
namespace {

/// The value that a survey gives a statement; nothing when it is not rated or does not apply.
std::optional<std::size_t> RatingOf(const Survey& survey, std::size_t statement) {
  const int button = survey.ratings[statement];
  if (button == kUncoded) return std::nullopt;
  const int value = SurveyStatements()[statement].Value(button);
  if (value == kDoesNotApply) return std::nullopt;
  return static_cast<std::size_t>(value);
}

}  // namespace

std::int64_t SurveyAgreement::WithinOne() const {
  std::int64_t count = 0;
  for (std::size_t first = 0; first < ratings.Codes(); ++first) {
    for (std::size_t second = 0; second < ratings.Codes(); ++second) {
      if (first <= second + 1 && second <= first + 1) count += ratings.At(first, second);
    }
  }
  return count;
}

SurveyAgreement CompareSurveys(const Survey& first, const Survey& second) {
  SurveyAgreement agreement;
  for (std::size_t statement = 0; statement < first.ratings.size(); ++statement) {
    const auto ofFirst = RatingOf(first, statement);
    const auto ofSecond = RatingOf(second, statement);
    if (ofFirst && ofSecond) {
      agreement.ratings.Add(*ofFirst, *ofSecond);
    } else if (ofFirst || ofSecond) {
      ++agreement.leftOut;
    }
  }
  for (std::size_t group = 0; group < SurveyGroups().size(); ++group) {
    for (std::size_t item = 0; item < SurveyGroups()[group].items.size(); ++item) {
      agreement.items.Add(first.checks[group][item] ? 1 : 0, second.checks[group][item] ? 1 : 0);
    }
  }
  return agreement;
}

}  // namespace orvex
