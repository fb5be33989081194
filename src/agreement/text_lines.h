#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace orvex {

/// Appends a line of tab-separated cells, for a spreadsheet, to `text`. A cell that holds a tab or
/// a line break would spoil the table: these become blanks.
void AppendLine(std::string& text, std::initializer_list<std::string_view> cells);

}  // namespace orvex
