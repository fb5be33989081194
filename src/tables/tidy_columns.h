#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/eps_file.h"
#include "tables/cells.h"
#include "tables/tidy_tables.h"

namespace orvex {

/// What a row is about. Anything its table does not cover is null or 0.
struct TidyRow {
  std::string_view file;  ///< its name in the list
  const EpsHeader& header;
  const Episode& episode;
  const std::vector<DialogicSpell>& spells;  ///< the episode's
  int episodeNumber = 0;
  int number = 0;  ///< the number of the question or segment
  const questionInfo* question = nullptr;
  const SegmentData* segment = nullptr;
};

struct ValueLabel {
  std::string value;
  std::string_view label;
};

/// A variable of a table.
struct TidyColumn {
  std::string name;
  std::string label;
  std::string_view type;  ///< "text", "number", "date", "time", "code"
  void (*write)(const TidyRow& row, int argument, Cells& cells);
  int argument = 0;  ///< for columns that differ in a number only
  std::vector<ValueLabel> values = {};
};

/// How many of the first columns of every table say which observation it is; the episode's number
/// is the next.
inline constexpr std::size_t kObservationColumns = 8;

/// The variables of a table, in their order.
const std::vector<TidyColumn>& ColumnsOf(TidyTable table);

/// Hands over the rows of an observation, in their order. They last no longer than the call.
void ForEachRow(TidyTable table, std::string_view file, const EpsObservation& observation,
                const std::function<void(const TidyRow&)>& take);

}  // namespace orvex
