#pragma once

#include <string>
#include <vector>

namespace orvex {

/// Adds a line of tab-separated cells, as a spreadsheet takes them, to `text`. Tabs and line ends
/// within a cell become blanks.
void AddTabbedLine(std::string& text, const std::vector<std::string>& cells);

}  // namespace orvex
