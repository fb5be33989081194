#include "agreement/figure_grid.h"

#include <algorithm>
#include <numeric>

#include "study/folded_text.h"
#include "study/tabbed_text.h"

namespace orvex {

FigureGrid::Cell FigureGrid::OfText(std::string text) {
  std::string folded = Folded(text);
  return {.text = std::move(text), .key = {folded.empty(), 0, std::move(folded)}};
}

FigureGrid::Cell FigureGrid::OfNumber(std::string text, std::optional<double> number) {
  return {.text = std::move(text), .key = {!number, number.value_or(0), ""}};
}

FigureGrid::Cell FigureGrid::OfCount(std::size_t count) {
  return OfNumber(std::to_string(count), static_cast<double>(count));
}

void FigureGrid::SortBy(std::size_t column, bool descending) {
  std::ranges::stable_sort(rows, [&](const Row& a, const Row& b) {
    return ComesBefore(a.cells[column].key, b.cells[column].key, descending);
  });
}

std::optional<std::size_t> FigureGrid::Find(const std::string& key) const {
  const auto found = std::ranges::find(rows, key, &Row::key);
  if (found == rows.end()) return std::nullopt;
  return static_cast<std::size_t>(found - rows.begin());
}

std::string FigureGrid::TextOf(const std::vector<std::size_t>& positions) const {
  std::string text;
  std::vector<std::string> cells;
  for (const Column& column : columns) cells.push_back(column.heading);
  AddTabbedLine(text, cells);
  for (const std::size_t position : positions) {
    cells.clear();
    for (const Cell& cell : rows[position].cells) cells.push_back(cell.text);
    AddTabbedLine(text, cells);
  }
  return text;
}

std::string FigureGrid::TextOf() const {
  std::vector<std::size_t> all(rows.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  return TextOf(all);
}

}  // namespace orvex
