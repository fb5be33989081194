#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace orvex {

/// What is selected in a list of `count` rows when the user selects `rows`, which count from 1:
/// each of them once, in ascending order.
inline std::vector<int> SelectedRows(std::vector<int> rows, std::size_t count) {
  std::ranges::sort(rows);
  const auto doubled = std::ranges::unique(rows);
  rows.erase(doubled.begin(), doubled.end());
  const int last = static_cast<int>(count);
  std::erase_if(rows, [last](int row) { return row < 1 || row > last; });
  return rows;
}

}  // namespace orvex
