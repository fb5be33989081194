#pragma once

#include <cstdint>

#include "agreement/code_table.h"
#include "model/survey.h"

namespace orvex {

/// What two observers answered in the survey of one class.
struct SurveyAgreement {
  CodeTable ratings{4};  ///< of the statements that both rated, by the values 0 to 3
  int leftOut = 0;       ///< statements that exactly one of them rated
  CodeTable items{2};    ///< of the check lists: 0 is not ticked, 1 ticked

  /// How many statements were rated at most one value apart.
  std::int64_t WithinOne() const;
};
/// Compares two surveys, statement by statement and item by item. A statement that "does not apply"
/// is not rated.
SurveyAgreement CompareSurveys(const Survey& first, const Survey& second);

}  // namespace orvex
