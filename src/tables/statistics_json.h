#pragma once

#include "reports/question_statistics.h"
#include "tables/json.h"

namespace orvex {

/// Adds the member "statistics": an episode's counts, and the lines with their bars. The bars'
/// starts and lengths are shares of a whole bar. Null for an episode without questions.
void AddStatistics(const QuestionStatistics& statistics, Json& json);

}  // namespace orvex
