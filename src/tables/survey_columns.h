#pragma once

#include "tables/tidy_columns.h"

namespace orvex {

/// The variables of the table with a row for each survey.
Columns SurveyColumns();

}  // namespace orvex
