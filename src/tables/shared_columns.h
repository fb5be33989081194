#pragma once

#include "tables/tidy_columns.h"

namespace orvex {

/// The columns that say which observation a row belongs to, of a table made from episode files and
/// of the survey's table.
Columns ObservationColumns();
Columns SurveyObservationColumns();

/// A yes-or-no code, and what it stands for.
void WriteYesNo(bool yes, Cells& cells);
std::vector<ValueLabel> YesNoValues();

/// The number that `numberOf` gives of what `source` holds; missing where it holds nothing.
template <typename Source, typename NumberOf>
void WriteNumberOf(const Source& source, NumberOf numberOf, Cells& cells) {
  if (source) {
    cells.Number(numberOf(*source));
  } else {
    cells.Missing();
  }
}

/// The label of a mean proportion of students off task, which nobody can tell from one without an
/// estimate when it is 0. `what` says of what it is the mean.
std::string OfftaskLabel(std::string_view what);

void Append(Columns& columns, Columns more);

}  // namespace orvex
