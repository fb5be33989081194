#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "study/study_columns.h"

namespace orvex {

/// Figures as a table, as it is shown, sorted, copied and printed.
struct FigureGrid {
  struct Column {
    std::string heading;
    std::string explanation;
    bool isNumber = false;  ///< set flush right
    int width = 0;          ///< in characters; 0: as the heading needs
  };
  /// What a cell shows, and what it is sorted by.
  struct Cell {
    std::string text;
    StudySortKey key;
  };
  struct Row {
    std::string key;  ///< tells it from the others
    std::vector<Cell> cells;
  };

  std::string name;
  std::vector<Column> columns;
  std::vector<Row> rows;

  static Cell OfText(std::string text);
  static Cell OfNumber(std::string text, std::optional<double> number);
  static Cell OfCount(std::size_t count);

  /// Sorts by a column. Rows that are equal there stay in their order.
  void SortBy(std::size_t column, bool descending);
  std::optional<std::size_t> Find(const std::string& key) const;
  /// The rows at `positions`, as lines of tab-separated cells under the columns' headings.
  std::string TextOf(const std::vector<std::size_t>& positions) const;
  /// All rows.
  std::string TextOf() const;
};

}  // namespace orvex
