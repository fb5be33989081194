#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tables/cells.h"
#include "tables/tidy_rows.h"
#include "tables/tidy_tables.h"

namespace orvex {

/// What the cells of a variable hold.
enum class ColumnType {
  text,
  wholeNumber,
  number,
  date,  ///< "yyyy-mm-dd"
  time,  ///< "hh:mm:ss"
  code,  ///< one of its values, or another code that the file holds
};

/// The type as the codebook has it: "text", "number", "date", "time" or "code".
std::string_view NameOf(ColumnType type);

/// What a value of a variable stands for.
struct ValueLabel {
  std::string value;
  std::string_view label;
  bool isMissing = false;  ///< says why there is no value, so that statistics leave it out
};

/// A variable of a table.
struct TidyColumn {
  std::string name;
  std::string label;
  ColumnType type;
  void (*write)(const TidyRow& row, int argument, Cells& cells);
  int argument = 0;  ///< for columns that differ in a number only
  std::vector<ValueLabel> values = {};

  /// True for a number, and for a code whose values are numbers.
  bool IsNumeric() const;
};
using Columns = std::vector<TidyColumn>;

/// How many of the first columns of every table that is made from episode files say which
/// observation it is.
inline constexpr std::size_t kObservationColumns = 9;

/// The variables of a table, in their order.
const Columns& ColumnsOf(TidyTable table);

/// Writes the values of a row.
void WriteRow(TidyTable table, const TidyRow& row, Cells& cells);

}  // namespace orvex
