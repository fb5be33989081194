#pragma once

#include "reports/question_statistics.h"
#include "tables/json.h"

namespace orvex {

/// Adds the member "statistics": an episode's counts, and the texts and bars of its form by the
/// names of their controls.
void AddStatistics(const QuestionStatistics& statistics, Json& json);

}  // namespace orvex
