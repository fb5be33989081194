#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace orvex {

/// Adds a line of tab-separated cells, as a spreadsheet takes them, to `text`. Tabs and line ends
/// within a cell become blanks.
void AddTabbedLine(std::string& text, const std::vector<std::string>& cells);
void AddTabbedLine(std::string& text, std::initializer_list<std::string_view> cells);

}  // namespace orvex
