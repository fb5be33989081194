#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace orvex {

/// The rows selected in a list of `count` rows: `rows` in ascending order, without repeats and
/// numbers the list does not have. Rows count from 1.
inline std::vector<int> SelectedRows(std::vector<int> rows, std::size_t count) {
  std::ranges::sort(rows);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  const int last = static_cast<int>(count);
  std::erase_if(rows, [last](int row) { return row < 1 || row > last; });
  return rows;
}

}  // namespace orvex
